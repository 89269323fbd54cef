#include "app/versements/FenetreVersements.h"

#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/MemoireColonnes.h"
#include "app/kit/ChampChiffre.h"
#include "app/kit/ChampDate.h"
#include "app/kit/MessageSaisie.h"
#include "app/versements/ModeleVersements.h"
#include "regimes/Conges.h"
#include "regimes/Fiscalite.h"
#include "store/Dates.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"
#include "store/Reglages.h"
#include "unemployment/PoleEmploiVersements.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

using Cle = Reglages::Cle;

const QString kTitreAlertes = QStringLiteral("Gestion des versements");

struct Textes
{
    QString titre;
    QString coche;
    QString texteCoche;
    Cle sens;
    Cle colonnes;
    QString table;
};

Textes textes(FenetreVersements::Genre genre)
{
    if (genre == FenetreVersements::Genre::Conges)
        return {QStringLiteral("Versements des Congés Spectacles"),
                QStringLiteral("Encaissé"),
                QStringLiteral("Versement encaissé"),
                Cle::CongesHistoriqueSens,
                Cle::CongesHistoriqueColonnes,
                QStringLiteral("congeshistorique")};
    return {QStringLiteral("Paiements et remboursements d'impôts"),
            QStringLiteral("Crédit"),
            QStringLiteral("Crédit (remboursement des impôts)"),
            Cle::FiscaliteHistoriqueSens,
            Cle::FiscaliteHistoriqueColonnes,
            QStringLiteral("fiscalitehistorique")};
}

QPushButton* bouton(QWidget* parent, const QString& texte, const QString& nom)
{
    auto* b = new QPushButton(texte, parent);
    b->setObjectName(nom);
    // Return belongs to the form's fields, not to a default button.
    b->setAutoDefault(false);
    return b;
}

} // namespace

FenetreVersements::FenetreVersements(Environnement& environnement, Genre genre, QWidget* parent)
    : QDialog(parent), m_environnement(environnement), m_genre(genre)
{
    const Textes t = textes(genre);
    setObjectName(genre == Genre::Conges ? QStringLiteral("fenetreVersementsConges")
                                         : QStringLiteral("fenetreVersementsFiscalite"));
    setWindowTitle(t.titre);
    resize(560, 520);

    auto* mise = new QVBoxLayout(this);
    auto* haut = new QHBoxLayout;
    auto* titre = new QLabel(QStringLiteral("<b>%1</b>").arg(t.titre), this);
    m_tri = new QToolButton(this);
    m_tri->setObjectName(QStringLiteral("boutonTriVersements"));
    m_tri->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_tri->setToolTip(QStringLiteral("Inverser l'ordre de la liste"));
    haut->addWidget(titre, 1);
    haut->addWidget(m_tri);
    mise->addLayout(haut);

    m_modele = new ModeleVersements(t.coche, this);
    m_table = new QTableView(this);
    m_table->setObjectName(QStringLiteral("tableVersements"));
    m_table->setModel(m_modele);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setAlternatingRowColors(true);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 10);
    // Three short columns share the width; the tick keeps its title's.
    m_table->horizontalHeader()->setSectionResizeMode(ModeleVersements::Date, QHeaderView::Stretch);
    m_table->horizontalHeader()->setSectionResizeMode(ModeleVersements::Montant, QHeaderView::Stretch);
    m_table->horizontalHeader()->setSectionResizeMode(ModeleVersements::Coche, QHeaderView::ResizeToContents);
    memoriserColonnes(m_table, m_environnement.reglages, t.colonnes);
    mise->addWidget(m_table, 1);

    m_totaux = new QLabel(this);
    m_totaux->setObjectName(QStringLiteral("totauxVersements"));
    m_totaux->setWordWrap(true);
    mise->addWidget(m_totaux);

    auto* boutons = new QHBoxLayout;
    m_ajouter = bouton(this, QStringLiteral("Ajouter"), QStringLiteral("boutonAjouterVersement"));
    m_modifier = bouton(this, QStringLiteral("Modifier"), QStringLiteral("boutonModifierVersement"));
    m_supprimer = bouton(this, QStringLiteral("Supprimer"), QStringLiteral("boutonSupprimerVersement"));
    auto* fermer = bouton(this, QStringLiteral("Fermer"), QStringLiteral("boutonFermerVersements"));
    boutons->addWidget(m_ajouter);
    boutons->addWidget(m_modifier);
    boutons->addWidget(m_supprimer);
    boutons->addStretch(1);
    boutons->addWidget(fermer);
    mise->addLayout(boutons);
    mise->addWidget(construireFormulaire());

    connect(m_ajouter, &QPushButton::clicked, this, &FenetreVersements::nouveau);
    connect(m_modifier, &QPushButton::clicked, this, &FenetreVersements::modifier);
    connect(m_supprimer, &QPushButton::clicked, this, &FenetreVersements::supprimerSelection);
    connect(fermer, &QPushButton::clicked, this, &QDialog::close);
    connect(m_table, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.column() != ModeleVersements::Coche)
            modifier();
    });
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &FenetreVersements::majBoutons);
    connect(m_modele, &QAbstractItemModel::modelReset, this, &FenetreVersements::majBoutons);
    connect(m_modele, &ModeleVersements::cocheModifiee, this, [this](int id, bool coche) {
        if (m_historique && m_historique->coche(id, coche))
            emit ecrit();
        majTotaux();
    });
    connect(m_tri, &QToolButton::clicked, this, [this] {
        const Cle sens = textes(m_genre).sens;
        const bool recentsDabord = m_environnement.reglages.texte(sens) == QStringLiteral("DESC");
        m_environnement.reglages.ecrire(sens, recentsDabord ? QStringLiteral("ASC") : QStringLiteral("DESC"));
        majTri();
        recharger();
    });
    majTri();
    majBoutons();
}

FenetreVersements::~FenetreVersements() = default;

QWidget* FenetreVersements::construireFormulaire()
{
    const Textes t = textes(m_genre);
    m_formulaire = new QGroupBox(this);
    m_formulaire->setObjectName(QStringLiteral("formulaireVersement"));
    auto* forme = new QFormLayout(m_formulaire);
    m_date = new ChampDate(m_formulaire);
    m_date->setObjectName(QStringLiteral("champDateVersement"));
    m_montant = new ChampMontant(m_formulaire);
    m_montant->setObjectName(QStringLiteral("champMontantVersement"));
    m_montant->setMaximumWidth(160);
    m_coche = new QCheckBox(t.texteCoche, m_formulaire);
    m_coche->setObjectName(QStringLiteral("caseCocheVersement"));
    m_message = new MessageSaisie(m_formulaire);
    m_message->surveiller(m_montant, QStringLiteral("Montant"));
    forme->addRow(QStringLiteral("Date :"), m_date);
    forme->addRow(QStringLiteral("Montant :"), m_montant);
    forme->addRow(QString(), m_coche);
    forme->addRow(m_message);
    auto* boutons = new QHBoxLayout;
    auto* enregistrer =
        bouton(m_formulaire, QStringLiteral("Enregistrer"), QStringLiteral("boutonEnregistrerVersement"));
    auto* annuler = bouton(m_formulaire, QStringLiteral("Annuler"), QStringLiteral("boutonAnnulerVersement"));
    boutons->addStretch(1);
    boutons->addWidget(annuler);
    boutons->addWidget(enregistrer);
    forme->addRow(boutons);
    connect(enregistrer, &QPushButton::clicked, this, &FenetreVersements::enregistrer);
    connect(annuler, &QPushButton::clicked, this, &FenetreVersements::annuler);
    m_formulaire->hide();
    return m_formulaire;
}

void FenetreVersements::setDocument(Document* document)
{
    if (m_document)
        disconnect(m_document, nullptr, this, nullptr);
    m_document = document;
    m_historique.reset();
    if (document && document->estOuvert()) {
        if (m_genre == Genre::Conges)
            m_historique = std::make_unique<CongesVersements>(document->base());
        else
            m_historique = std::make_unique<FiscaliteVersements>(document->base());
        // A payment written elsewhere (another window, an import) shows at once.
        const QString table = textes(m_genre).table;
        connect(document, &Document::tablesModifiees, this, [this, table](const QSet<QString>& tables) {
            if (tables.contains(table) && !enEdition())
                recharger();
        });
        // A document closed while the window is open leaves it empty, never reading a closed connection.
        connect(document, &QObject::destroyed, this, [this] {
            m_historique.reset();
            annuler();
            recharger();
            hide();
        });
    }
    annuler();
    recharger();
}

void FenetreVersements::recharger()
{
    const QList<int> selection = idsSelectionnes();
    m_modele->setTable(m_historique ? m_historique->liste(m_environnement.reglages.texte(textes(m_genre).sens))
                                    : Table{});
    for (int rangee = 0; rangee < m_modele->rowCount(); ++rangee)
        if (selection.contains(m_modele->idVersement(rangee)))
            m_table->selectionModel()->select(m_modele->index(rangee, 0),
                                              QItemSelectionModel::Select | QItemSelectionModel::Rows);
    majTotaux();
}

void FenetreVersements::majTotaux()
{
    double total = 0.0, coches = 0.0;
    for (int rangee = 0; rangee < m_modele->rowCount(); ++rangee) {
        total += m_modele->montant(rangee);
        if (m_modele->estCoche(rangee))
            coches += m_modele->montant(rangee);
    }
    const int nombre = m_modele->rowCount();
    const QString compte =
        nombre > 1 ? QStringLiteral("%1 versements").arg(nombre) : QStringLiteral("%1 versement").arg(nombre);
    if (m_genre == Genre::Conges)
        m_totaux->setText(QStringLiteral("%1 — %2, dont %3 encaissés").arg(compte, enEuros(total), enEuros(coches)));
    else
        m_totaux->setText(
            QStringLiteral("%1 — paiements : %2, crédits : %3").arg(compte, enEuros(total - coches), enEuros(coches)));
}

void FenetreVersements::majTri()
{
    const bool recentsDabord = m_environnement.reglages.texte(textes(m_genre).sens) == QStringLiteral("DESC");
    m_tri->setText(recentsDabord ? QStringLiteral("Les plus récents d'abord")
                                 : QStringLiteral("Les plus anciens d'abord"));
}

void FenetreVersements::majBoutons()
{
    const qsizetype selection = idsSelectionnes().size();
    m_modifier->setEnabled(selection == 1);
    m_supprimer->setEnabled(selection > 0);
}

QList<int> FenetreVersements::idsSelectionnes() const
{
    QList<int> ids;
    for (const QModelIndex& index : m_table->selectionModel()->selectedRows())
        ids << m_modele->idVersement(index.row());
    std::sort(ids.begin(), ids.end());
    return ids;
}

bool FenetreVersements::enEdition() const
{
    return m_formulaire->isVisibleTo(this);
}

bool FenetreVersements::documentOuvert()
{
    if (m_historique)
        return true;
    m_environnement.dialogues.information(kTitreAlertes, ControleurApplication::messageSansDocument(),
                                          QStringLiteral("Fermer"));
    return false;
}

void FenetreVersements::ouvrirFormulaire(const QString& titre)
{
    m_formulaire->setTitle(titre);
    m_formulaire->show();
    m_message->actualiser();
    m_montant->setFocus();
    m_montant->selectAll();
}

void FenetreVersements::nouveau()
{
    if (!documentOuvert())
        return;
    m_idModifie = 0;
    m_date->setDate(Horloge::aujourdhui());
    m_montant->setText(QString());
    m_coche->setChecked(false);
    ouvrirFormulaire(QStringLiteral("Nouveau versement"));
}

void FenetreVersements::modifier()
{
    const QList<int> ids = idsSelectionnes();
    if (ids.size() != 1 || !documentOuvert())
        return;
    for (int rangee = 0; rangee < m_modele->rowCount(); ++rangee) {
        if (m_modele->idVersement(rangee) != ids.first())
            continue;
        m_idModifie = ids.first();
        m_date->setDate(Dates::depuisAffichage(m_modele->table().valeur(rangee, QStringLiteral("Date")).toString()));
        m_montant->setValue(m_modele->montant(rangee));
        m_coche->setChecked(m_modele->estCoche(rangee));
        ouvrirFormulaire(QStringLiteral("Modification du versement"));
        return;
    }
}

void FenetreVersements::refuser(const QString& message)
{
    m_environnement.dialogues.information(kTitreAlertes, message, QStringLiteral("Fermer"));
}

bool FenetreVersements::enregistrer()
{
    if (!enEdition() || !documentOuvert())
        return false;
    // An amount that cannot be read is never saved, nor saved as 0.
    if (const QString refus = m_message->refus(); !refus.isEmpty()) {
        refuser(refus);
        return false;
    }
    const double montant = *m_montant->nombre();
    if (const QString refus = PoleEmploiVersements::refusValeurs(m_date->date(), montant); !refus.isEmpty()) {
        refuser(refus);
        return false;
    }
    const bool ok = m_idModifie == 0
                        ? m_historique->enregistre(m_date->date(), montant, m_coche->isChecked()) > 0
                        : m_historique->modifie(m_idModifie, m_date->date(), montant, m_coche->isChecked());
    if (!ok) {
        refuser(QStringLiteral("Le versement n'a pas pu être enregistré."));
        return false;
    }
    annuler();
    recharger();
    emit ecrit();
    return true;
}

void FenetreVersements::annuler()
{
    m_formulaire->hide();
    m_idModifie = 0;
    m_table->setFocus();
}

void FenetreVersements::supprimerSelection()
{
    const QList<int> ids = idsSelectionnes();
    if (ids.isEmpty() || !documentOuvert())
        return;
    if (m_environnement.reglages.booleen(Cle::DeleteAlerts)) {
        const QString message =
            ids.size() == 1 ? QStringLiteral("Souhaitez-vous réellement supprimer le versement sélectionné ?")
                            : QStringLiteral("Souhaitez-vous réellement supprimer les %1 versements sélectionnés ?")
                                  .arg(ids.size());
        if (m_environnement.dialogues.question(kTitreAlertes, message,
                                               {QStringLiteral("Oui"), QStringLiteral("Non")}) != QStringLiteral("Oui"))
            return;
    }
    for (const int id : ids)
        m_historique->supprime(id);
    m_table->clearSelection();
    annuler();
    recharger();
    emit ecrit();
}

void FenetreVersements::keyPressEvent(QKeyEvent* evenement)
{
    const int touche = evenement->key();
    if (enEdition() && (touche == Qt::Key_Return || touche == Qt::Key_Enter)) {
        enregistrer();
        return;
    }
    if (enEdition() && touche == Qt::Key_Escape) {
        annuler();
        return;
    }
    if (!enEdition() && touche == Qt::Key_Delete && m_table->hasFocus()) {
        supprimerSelection();
        return;
    }
    QDialog::keyPressEvent(evenement);
}

} // namespace corvane::app
