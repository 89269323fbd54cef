#include "app/manager/OngletEvenements.h"

#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/kit/ModeleTableau.h"
#include "app/manager/FormulaireEvenement.h"
#include "app/manager/MenuDocumentsManager.h"
#include "app/manager/ModelePaiements.h"
#include "manager/Evenements.h"
#include "manager/ListesIds.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/Reglages.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QSplitter>
#include <QStackedWidget>
#include <QTableView>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

using Format = ModeleTableau::Format;

QPushButton* bouton(QWidget* parent, const QString& texte, const QString& nom)
{
    auto* b = new QPushButton(texte, parent);
    b->setObjectName(nom);
    b->setAutoDefault(false);
    return b;
}

} // namespace

OngletEvenements::OngletEvenements(Environnement& environnement, QWidget* parent)
    : OngletManager(parent), m_environnement(environnement)
{
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(0, 0, 0, 0);
    m_etats = new QStackedWidget(this);
    m_etats->setObjectName(QStringLiteral("etatsEvenements"));
    mise->addWidget(m_etats);

    m_liste = new QWidget(m_etats);
    auto* miseListe = new QVBoxLayout(m_liste);
    miseListe->setContentsMargins(0, 0, 0, 0);
    auto* partage = new QSplitter(Qt::Vertical, m_liste);
    partage->setChildrenCollapsible(false);
    m_modele = new ModeleTableau({{QStringLiteral("Date"), QStringLiteral("date"), Format::DateAffichee},
                                  {QStringLiteral("Événement"), QStringLiteral("nom")},
                                  {QStringLiteral("Organisateur"), QStringLiteral("employeur")},
                                  {QStringLiteral("Structure"), QStringLiteral("structure")},
                                  {QStringLiteral("Proposition"), QStringLiteral("proposition")},
                                  {QStringLiteral("Non payés"), QStringLiteral("nonPayes"), Format::Entier}},
                                 this);
    m_table = vueTriee(m_modele, partage, QStringLiteral("tableEvenements"), 1);
    // The event's name takes what the other columns leave; theirs are read whole.
    for (const int colonne : {0, 2, 3, 4, 5})
        m_table->horizontalHeader()->setSectionResizeMode(colonne, QHeaderView::ResizeToContents);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    partage->addWidget(m_table);

    auto* personnel = new QGroupBox(QStringLiteral("Personnel de l'événement"), partage);
    auto* misePersonnel = new QVBoxLayout(personnel);
    m_paiements = new ModelePaiements(this);
    m_tablePaiements = new QTableView(personnel);
    m_tablePaiements->setObjectName(QStringLiteral("tablePaiements"));
    m_tablePaiements->setModel(m_paiements);
    m_tablePaiements->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_tablePaiements->setSelectionMode(QAbstractItemView::SingleSelection);
    m_tablePaiements->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tablePaiements->setAlternatingRowColors(true);
    m_tablePaiements->verticalHeader()->hide();
    m_tablePaiements->horizontalHeader()->setSectionResizeMode(ModelePaiements::Nom, QHeaderView::Stretch);
    m_tablePaiements->horizontalHeader()->setSectionResizeMode(ModelePaiements::Paye, QHeaderView::ResizeToContents);
    misePersonnel->addWidget(m_tablePaiements, 1);
    m_resume = new QLabel(personnel);
    m_resume->setObjectName(QStringLiteral("resumePaiements"));
    misePersonnel->addWidget(m_resume);
    partage->addWidget(personnel);
    partage->setStretchFactor(0, 3);
    partage->setStretchFactor(1, 2);
    miseListe->addWidget(partage, 1);

    auto* barre = new QHBoxLayout;
    auto* nouveau = bouton(m_liste, QStringLiteral("Nouvel événement"), QStringLiteral("boutonNouvelEvenement"));
    m_modifier = bouton(m_liste, QStringLiteral("Modifier"), QStringLiteral("boutonModifierEvenement"));
    m_supprimer = bouton(m_liste, QStringLiteral("Supprimer"), QStringLiteral("boutonSupprimerEvenement"));
    barre->addWidget(nouveau);
    barre->addWidget(m_modifier);
    m_menu = new MenuDocumentsManager(
        m_environnement, [this] { return m_document ? m_document->chemin() : QString(); },
        [this] { return evenementSelectionne(); }, MenuDocumentsManager::Origine::Evenements, this);
    barre->addWidget(m_menu->bouton(QStringLiteral("boutonDocumentsEvenement"), m_liste));
    barre->addStretch(1);
    barre->addWidget(m_supprimer);
    miseListe->addLayout(barre);

    m_formulaire = new FormulaireEvenement(environnement, m_etats);
    m_formulaire->setObjectName(QStringLiteral("formulaireEvenement"));
    m_etats->addWidget(m_liste);
    m_etats->addWidget(m_formulaire);

    connect(nouveau, &QPushButton::clicked, this, &OngletEvenements::nouvelEvenement);
    connect(m_modifier, &QPushButton::clicked, this, &OngletEvenements::modifierEvenement);
    connect(m_table, &QTableView::doubleClicked, this, &OngletEvenements::modifierEvenement);
    connect(m_supprimer, &QPushButton::clicked, this, &OngletEvenements::supprimerEvenement);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        rechargerPaiements();
        majBoutons();
    });
    connect(m_modele, &QAbstractItemModel::modelReset, this, &OngletEvenements::majBoutons);
    connect(m_paiements, &ModelePaiements::basculeDemandee, this, &OngletEvenements::basculerPaye);
    connect(m_formulaire, &FormulaireEvenement::enregistre, this, [this](int id) {
        afficherListe();
        selectionner(id);
        emit ecrit();
    });
    connect(m_formulaire, &FormulaireEvenement::termine, this, &OngletEvenements::afficherListe);
    majBoutons();
}

OngletEvenements::~OngletEvenements() = default;

void OngletEvenements::setDocument(Document* document)
{
    m_document = document;
    m_evenements = document && document->estOuvert() ? std::make_unique<Evenements>(document->base()) : nullptr;
    m_formulaire->setDocument(document);
    m_etats->setCurrentWidget(m_liste);
    m_table->clearSelection();
    actualiser();
}

void OngletEvenements::actualiser()
{
    if (enEdition()) {
        m_formulaire->actualiserChoix();
        return;
    }
    const int choisi = evenementSelectionne();
    m_modele->setTable(m_evenements ? m_evenements->listeLesEvenements() : Table());
    selectionner(choisi);
    rechargerPaiements();
}

QSet<QString> OngletEvenements::tablesLues() const
{
    return {"evenements", "evenementspaiements", "employes", "structures", "employeurs", "propositionslibelles"};
}

void OngletEvenements::showEvent(QShowEvent* evenement)
{
    // The other tabs may have written while this one was hidden (a structure, an employee's name).
    OngletManager::showEvent(evenement);
    actualiser();
}

bool OngletEvenements::enEdition() const
{
    return m_etats->currentWidget() == m_formulaire;
}

int OngletEvenements::evenementSelectionne() const
{
    const QModelIndexList lignes = m_table->selectionModel()->selectedRows();
    if (lignes.isEmpty())
        return 0;
    const auto* tri = static_cast<const QSortFilterProxyModel*>(m_table->model());
    return m_modele->table().valeur(tri->mapToSource(lignes.first()).row(), QStringLiteral("Id")).toInt();
}

void OngletEvenements::selectionner(int id)
{
    const auto* tri = static_cast<const QSortFilterProxyModel*>(m_table->model());
    const Table& table = m_modele->table();
    for (int rangee = 0; rangee < table.size(); ++rangee)
        if (id > 0 && table.valeur(rangee, QStringLiteral("Id")).toInt() == id) {
            m_table->selectRow(tri->mapFromSource(m_modele->index(rangee, 0)).row());
            return;
        }
    m_table->clearSelection();
}

void OngletEvenements::rechargerPaiements()
{
    const int id = evenementSelectionne();
    m_paiements->setTable(m_evenements && id > 0 ? m_evenements->paiements(id) : Table());
    const int nonPayes = m_paiements->nonPayes();
    if (id == 0)
        m_resume->clear();
    else if (m_paiements->rowCount() == 0)
        m_resume->setText(QStringLiteral("Aucun employé sur cet événement."));
    else if (nonPayes == 0)
        m_resume->setText(QStringLiteral("Tous les employés sont payés."));
    else
        m_resume->setText(nonPayes > 1 ? QStringLiteral("%1 employés ne sont pas encore payés.").arg(nonPayes)
                                       : QStringLiteral("1 employé n'est pas encore payé."));
}

void OngletEvenements::majBoutons()
{
    const bool choisi = evenementSelectionne() > 0;
    m_modifier->setEnabled(choisi);
    m_supprimer->setEnabled(choisi);
}

bool OngletEvenements::documentOuvert()
{
    if (m_evenements)
        return true;
    refuser(ControleurApplication::messageSansDocument());
    return false;
}

void OngletEvenements::refuser(const QString& message)
{
    m_environnement.dialogues.information(Evenements::titreAlertes(), message, QStringLiteral("Fermer"));
}

void OngletEvenements::afficherListe()
{
    m_etats->setCurrentWidget(m_liste);
    actualiser();
    m_table->setFocus();
}

void OngletEvenements::nouvelEvenement()
{
    if (!documentOuvert())
        return;
    m_formulaire->nouveau();
    m_etats->setCurrentWidget(m_formulaire);
}

void OngletEvenements::modifierEvenement()
{
    if (!documentOuvert())
        return;
    if (const int id = evenementSelectionne(); id > 0 && m_formulaire->modifier(id))
        m_etats->setCurrentWidget(m_formulaire);
}

bool OngletEvenements::supprimerEvenement()
{
    if (!documentOuvert())
        return false;
    const int id = evenementSelectionne();
    if (id == 0)
        return false;
    if (m_environnement.reglages.booleen(Reglages::Cle::DeleteAlerts) &&
        m_environnement.dialogues.question(Evenements::titreAlertes(),
                                           QStringLiteral("Souhaitez-vous réellement supprimer l'événement "
                                                          "sélectionné ?"),
                                           {QStringLiteral("Oui"), QStringLiteral("Non")}) != QStringLiteral("Oui"))
        return false;
    if (!m_evenements->supprimeEvenement(id)) {
        refuser(QStringLiteral("L'événement n'a pas pu être supprimé."));
        return false;
    }
    m_table->clearSelection();
    actualiser();
    emit ecrit();
    return true;
}

bool OngletEvenements::basculerPaye(int employeId)
{
    if (!documentOuvert())
        return false;
    const int id = evenementSelectionne();
    const std::optional<QString> payes = id > 0 ? m_evenements->basculePaye(id, employeId) : std::nullopt;
    if (!payes) {
        refuser(QStringLiteral("Le paiement n'a pas pu être enregistré."));
        return false;
    }
    // The row follows at once; the list's unpaid count once the box has finished its click.
    m_paiements->marquerPaye(employeId, ListesIds::contient(*payes, employeId));
    QTimer::singleShot(0, this, &OngletEvenements::actualiser);
    emit ecrit();
    return true;
}

} // namespace corvane::app
