#include "app/manager/OngletPropositions.h"

#include "app/Environnement.h"
#include "app/MemoireColonnes.h"
#include "app/manager/FenetreDelais.h"
#include "app/manager/FenetreProposition.h"
#include "app/manager/FenetreRemises.h"
#include "app/manager/MenuDocumentsManager.h"
#include "app/manager/ModelePropositions.h"
#include "exchange/ExportPdf.h"
#include "manager/Propositions.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/Reglages.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSortFilterProxyModel>
#include <QSplitter>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

namespace corvane::app {

using Cle = Reglages::Cle;

namespace {

QPushButton* bouton(QWidget* parent, const QString& texte, const QString& nom)
{
    auto* b = new QPushButton(texte, parent);
    b->setObjectName(nom);
    return b;
}

} // namespace

OngletPropositions::OngletPropositions(Environnement& environnement, QWidget* parent)
    : OngletManager(parent), m_environnement(environnement)
{
    setObjectName(QStringLiteral("ongletPropositions"));
    auto* mise = new QVBoxLayout(this);

    auto* barre = new QHBoxLayout;
    auto* nouvelle = bouton(this, QStringLiteral("Nouvelle proposition…"), QStringLiteral("boutonNouvelleProposition"));
    auto* modifier = bouton(this, QStringLiteral("Modifier…"), QStringLiteral("boutonModifierProposition"));
    auto* supprimer = bouton(this, QStringLiteral("Supprimer"), QStringLiteral("boutonSupprimerProposition"));
    m_statut = new QComboBox(this);
    m_statut->setObjectName(QStringLiteral("choixStatutProposition"));
    for (const int code : Propositions::statutsDuMenu())
        m_statut->addItem(ModelePropositions::iconeStatut(code), Propositions::libelleStatut(code), code);
    auto* remises = bouton(this, QStringLiteral("Remises…"), QStringLiteral("boutonRemises"));
    auto* delais = bouton(this, QStringLiteral("Délais…"), QStringLiteral("boutonDelais"));
    m_menu = new MenuDocumentsManager(
        m_environnement, [this] { return m_document ? m_document->chemin() : QString(); },
        [this] { return idSelectionne(); }, MenuDocumentsManager::Origine::Propositions, this);
    auto* pdf = m_menu->bouton(QStringLiteral("boutonDocumentsProposition"), this);
    barre->addWidget(nouvelle);
    barre->addWidget(modifier);
    barre->addWidget(supprimer);
    barre->addSpacing(12);
    barre->addWidget(new QLabel(QStringLiteral("Statut :"), this));
    barre->addWidget(m_statut);
    barre->addStretch(1);
    barre->addWidget(remises);
    barre->addWidget(delais);
    barre->addWidget(pdf);
    mise->addLayout(barre);

    auto* partage = new QSplitter(Qt::Vertical, this);
    m_modele = new ModelePropositions(this);
    m_liste = vueTriee(m_modele, partage, QStringLiteral("listePropositions"), ModelePropositions::Libelle);
    m_liste->setSelectionMode(QAbstractItemView::SingleSelection);
    m_liste->horizontalHeader()->setSectionResizeMode(ModelePropositions::Statut, QHeaderView::Fixed);
    m_liste->horizontalHeader()->resizeSection(ModelePropositions::Statut, 28);
    memoriserColonnes(m_liste, m_environnement.reglages, Cle::PropositionsColonnes);
    m_modeleLignes =
        new ModeleTableau({{QStringLiteral("Date"), QStringLiteral("Date"), ModeleTableau::Format::DateAffichee},
                           {QStringLiteral("Prestation"), QStringLiteral("Prestation")},
                           {QStringLiteral("Montant"), QStringLiteral("Montant"), ModeleTableau::Format::Montant},
                           {QStringLiteral("Remise"), QStringLiteral("Remise")},
                           {QStringLiteral("Validité"), QStringLiteral("Délai")}},
                          this);
    vueTriee(m_modeleLignes, partage, QStringLiteral("lignesProposition"), 1);
    partage->setStretchFactor(0, 3);
    partage->setStretchFactor(1, 1);
    mise->addWidget(partage, 1);

    connect(nouvelle, &QPushButton::clicked, this, &OngletPropositions::nouvelleProposition);
    connect(modifier, &QPushButton::clicked, this, &OngletPropositions::modifierProposition);
    connect(supprimer, &QPushButton::clicked, this, &OngletPropositions::supprimerProposition);
    connect(remises, &QPushButton::clicked, this, &OngletPropositions::gererRemises);
    connect(delais, &QPushButton::clicked, this, &OngletPropositions::gererDelais);
    connect(m_statut, &QComboBox::activated, this, &OngletPropositions::changerStatut);
    connect(m_liste, &QTableView::doubleClicked, this, &OngletPropositions::modifierProposition);
    connect(m_liste->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &OngletPropositions::selectionChangee);
}

OngletPropositions::~OngletPropositions() = default;

void OngletPropositions::setDocument(Document* document)
{
    m_document = document;
    m_propositions = document ? std::make_unique<Propositions>(document->base()) : nullptr;
    actualiser();
}

QSet<QString> OngletPropositions::tablesLues() const
{
    return {"propositionslibelles", "propositions",    "employeurs", "remises", "delais",
            "prestations",          "prestationstypes"};
}

void OngletPropositions::actualiser()
{
    const int garde = idSelectionne();
    m_modele->setTable(m_propositions ? m_propositions->listeDesPropositions() : Table{});
    selectionner(garde);
    selectionChangee();
}

int OngletPropositions::idSelectionne() const
{
    const QModelIndexList rangees = m_liste->selectionModel()->selectedRows();
    if (rangees.isEmpty())
        return 0;
    const auto* tri = static_cast<const QSortFilterProxyModel*>(m_liste->model());
    return m_modele->idDeLaRangee(tri->mapToSource(rangees.first()).row());
}

void OngletPropositions::selectionner(int id)
{
    const int rangee = m_modele->rangeeDeLId(id);
    if (rangee < 0) {
        m_liste->clearSelection();
        return;
    }
    const auto* tri = static_cast<const QSortFilterProxyModel*>(m_liste->model());
    m_liste->selectRow(tri->mapFromSource(m_modele->index(rangee, 0)).row());
}

void OngletPropositions::selectionChangee()
{
    const int id = idSelectionne();
    {
        const QSignalBlocker bloque(m_statut);
        m_statut->setCurrentIndex(Propositions::indexDuStatut(m_modele->statutDeLaRangee(m_modele->rangeeDeLId(id))));
    }
    m_statut->setEnabled(id > 0);
    m_modeleLignes->setTable(m_propositions && id > 0 ? m_propositions->lignesDeLaProposition(id) : Table{});
}

bool OngletPropositions::documentOuvert(const QString& titre)
{
    if (m_document && m_propositions)
        return true;
    m_environnement.dialogues.information(titre, ExportPdf::messageSansDocument(), QStringLiteral("Fermer"));
    return false;
}

void OngletPropositions::aEcrit(int idASelectionner)
{
    actualiser();
    if (idASelectionner > 0)
        selectionner(idASelectionner);
    emit ecrit();
}

void OngletPropositions::ouvrir(FenetreProposition* fenetre)
{
    fenetre->setAttribute(Qt::WA_DeleteOnClose);
    connect(fenetre, &FenetreProposition::enregistree, this, &OngletPropositions::aEcrit);
    connect(fenetre, &FenetreProposition::documentModifie, this, [this] { aEcrit(idSelectionne()); });
    fenetre->open();
}

FenetreProposition* OngletPropositions::nouvelleProposition()
{
    if (!documentOuvert(Propositions::titreAlertes()))
        return nullptr;
    auto* fenetre = new FenetreProposition(m_environnement, *m_document, 0, this);
    ouvrir(fenetre);
    return fenetre;
}

FenetreProposition* OngletPropositions::modifierProposition()
{
    if (!documentOuvert(Propositions::titreAlertes()))
        return nullptr;
    const int id = idSelectionne();
    if (id == 0) {
        m_environnement.dialogues.information(Propositions::titreAlertes(), Propositions::messageAucuneSelection(),
                                              QStringLiteral("Fermer"));
        return nullptr;
    }
    auto* fenetre = new FenetreProposition(m_environnement, *m_document, id, this);
    ouvrir(fenetre);
    return fenetre;
}

FenetreRemises* OngletPropositions::gererRemises()
{
    if (!documentOuvert(TarifsPropositions::titreRemises()))
        return nullptr;
    auto* fenetre = new FenetreRemises(m_environnement, *m_document, TarifsPropositions::titreRemises(), this);
    fenetre->setAttribute(Qt::WA_DeleteOnClose);
    connect(fenetre, &FenetreRemises::remisesModifiees, this, [this] { aEcrit(idSelectionne()); });
    fenetre->open();
    return fenetre;
}

FenetreDelais* OngletPropositions::gererDelais()
{
    if (!documentOuvert(TarifsPropositions::titreDelais()))
        return nullptr;
    auto* fenetre = new FenetreDelais(m_environnement, *m_document, this);
    fenetre->setAttribute(Qt::WA_DeleteOnClose);
    connect(fenetre, &FenetreDelais::delaisModifies, this, [this] { aEcrit(idSelectionne()); });
    fenetre->open();
    return fenetre;
}

bool OngletPropositions::changerStatut(int index)
{
    if (!documentOuvert(Propositions::titreAlertes()))
        return false;
    const int id = idSelectionne();
    if (id == 0) {
        m_environnement.dialogues.information(Propositions::titreAlertes(), Propositions::messageAucuneSelection(),
                                              QStringLiteral("Fermer"));
        return false;
    }
    // The notice comes first and does not stop the change.
    const std::optional<EnteteProposition> entete = m_propositions->entete(id);
    if (entete && entete->statut == Propositions::kFacturee)
        m_environnement.dialogues.information(Propositions::titreAlertes(), Propositions::messageFacturee(),
                                              QStringLiteral("Ok"));
    bool ecrit = false;
    m_propositions->changeStatut(id, Propositions::statutDeLIndex(index), &ecrit);
    aEcrit(id);
    return ecrit;
}

bool OngletPropositions::supprimerProposition()
{
    if (!documentOuvert(Propositions::titreGestion()))
        return false;
    const int id = idSelectionne();
    if (id == 0) {
        m_environnement.dialogues.information(Propositions::titreGestion(), Propositions::messageAucuneSelection(),
                                              QStringLiteral("Fermer"));
        return false;
    }
    if (const QString refus = m_propositions->refusSuppression(id); !refus.isEmpty()) {
        m_environnement.dialogues.information(Propositions::titreGestion(), refus, QStringLiteral("Fermer"));
        return false;
    }
    if (m_environnement.reglages.booleen(Cle::DeleteAlerts) &&
        m_environnement.dialogues.question(
            Propositions::titreGestion(),
            QStringLiteral("Souhaitez-vous réellement supprimer la proposition sélectionnée et ses prestations ?"),
            {QStringLiteral("Oui"), QStringLiteral("Non")}) != QStringLiteral("Oui"))
        return false;
    if (!m_propositions->supprimeProposition(id)) {
        m_environnement.dialogues.information(Propositions::titreGestion(),
                                              QStringLiteral("La proposition n'a pas pu être supprimée."),
                                              QStringLiteral("Fermer"));
        return false;
    }
    aEcrit(0);
    return true;
}

} // namespace corvane::app
