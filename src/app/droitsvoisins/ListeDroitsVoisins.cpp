#include "app/droitsvoisins/ListeDroitsVoisins.h"

#include "app/ActionsRapport.h"
#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/MemoireColonnes.h"
#include "app/droitsvoisins/ModeleDroitsVoisins.h"
#include "exchange/ExportPdf.h"
#include "exchange/RapportDroitsVoisins.h"
#include "exchange/RapportsEnregistrements.h"
#include "records/DroitsVoisins.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableView>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

using Cle = Reglages::Cle;

QPushButton* bouton(QWidget* parent, const QString& texte, const QString& nom)
{
    auto* b = new QPushButton(texte, parent);
    b->setObjectName(nom);
    return b;
}

} // namespace

ListeDroitsVoisins::ListeDroitsVoisins(Environnement& environnement, QWidget* parent)
    : QWidget(parent), m_environnement(environnement)
{
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(0, 0, 0, 0);
    mise->addWidget(construireFiltres());

    auto* corps = new QHBoxLayout;
    auto* gauche = new QVBoxLayout;
    m_modele = new ModeleDroitsVoisins(this);
    m_table = new QTableView(this);
    m_table->setObjectName(QStringLiteral("tableDroitsVoisins"));
    m_table->setModel(m_modele);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_table->setAlternatingRowColors(true);
    m_table->verticalHeader()->hide();
    m_table->setWordWrap(false);
    m_table->setTextElideMode(Qt::ElideRight);
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 10);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setSectionsMovable(true);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    memoriserColonnes(m_table, m_environnement.reglages, Cle::DroitsVoisinsColonnes);
    gauche->addWidget(m_table, 1);
    m_resume = new QLabel(this);
    m_resume->setObjectName(QStringLiteral("resumeDv"));
    gauche->addWidget(m_resume);
    corps->addLayout(gauche, 1);
    auto* droite = new QVBoxLayout;
    droite->addWidget(construireTotaux());
    droite->addStretch(1);
    corps->addLayout(droite);
    mise->addLayout(corps, 1);

    auto* boutons = new QHBoxLayout;
    auto* nouveau = bouton(this, QStringLiteral("Nouveau versement"), QStringLiteral("boutonNouveauDv"));
    m_modifier = bouton(this, QStringLiteral("Modifier"), QStringLiteral("boutonModifierDv"));
    m_dupliquer = bouton(this, QStringLiteral("Dupliquer"), QStringLiteral("boutonDupliquerDv"));
    auto* categories = bouton(this, QStringLiteral("Catégories…"), QStringLiteral("boutonCategoriesDv"));
    m_supprimer = bouton(this, QStringLiteral("Supprimer"), QStringLiteral("boutonSupprimerDv"));
    boutons->addWidget(nouveau);
    boutons->addWidget(m_modifier);
    boutons->addWidget(m_dupliquer);
    boutons->addWidget(categories);
    boutons->addStretch(1);
    ajouterBoutonsRapport(
        boutons, this, m_environnement,
        [this] {
            const ChoixImpressions choix = ChoixImpressions::depuis(m_environnement.reglages);
            const QString document = m_chemin;
            return RapportEcran{
                document, nomRapportDroitsVoisins(Horloge::aujourdhui()), ExportPdf::titreAlertes(),
                [document, choix](Rapport& rapport) { return composerRapportDroitsVoisins(rapport, document, choix); }};
        },
        QStringLiteral("DroitsVoisins"));
    boutons->addWidget(m_supprimer);
    mise->addLayout(boutons);

    connect(nouveau, &QPushButton::clicked, this, [this] {
        if (documentOuvert())
            emit nouveauDemande();
    });
    connect(m_modifier, &QPushButton::clicked, this, [this] {
        if (const QList<int> ids = idsSelectionnes(); !ids.isEmpty())
            emit modificationDemandee(ids.first());
    });
    connect(m_table, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { emit modificationDemandee(m_modele->idDroit(index.row())); });
    connect(m_dupliquer, &QPushButton::clicked, this, &ListeDroitsVoisins::dupliquerSelection);
    connect(categories, &QPushButton::clicked, this, [this] {
        if (documentOuvert())
            emit categoriesDemandees();
    });
    connect(m_supprimer, &QPushButton::clicked, this, &ListeDroitsVoisins::supprimerSelection);
    m_table->installEventFilter(this);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ListeDroitsVoisins::majBoutons);
    connect(m_modele, &QAbstractItemModel::modelReset, this, &ListeDroitsVoisins::majBoutons);
    majTri();
    majBoutons();
}

ListeDroitsVoisins::~ListeDroitsVoisins() = default;

QWidget* ListeDroitsVoisins::construireFiltres()
{
    auto* filtres = new QWidget(this);
    auto* ligne = new QHBoxLayout(filtres);
    ligne->setContentsMargins(0, 0, 0, 0);
    m_organisme = new QComboBox(filtres);
    m_organisme->setObjectName(QStringLiteral("filtreOrganismeDv"));
    m_organisme->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_tri = new QToolButton(filtres);
    m_tri->setObjectName(QStringLiteral("boutonTriDv"));
    m_tri->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_tri->setToolTip(QStringLiteral("Inverser l'ordre de la liste"));
    ligne->addWidget(new QLabel(QStringLiteral("Organisme :"), filtres));
    ligne->addWidget(m_organisme);
    ligne->addStretch(1);
    ligne->addWidget(m_tri);

    connect(m_organisme, &QComboBox::activated, this, &ListeDroitsVoisins::filtreChoisi);
    connect(m_tri, &QToolButton::clicked, this, [this] {
        const bool recentsDabord = m_environnement.reglages.texte(Cle::DroitsVoisinsSens) == QStringLiteral("DESC");
        m_environnement.reglages.ecrire(Cle::DroitsVoisinsSens,
                                        recentsDabord ? QStringLiteral("ASC") : QStringLiteral("DESC"));
        majTri();
        recharger();
    });
    return filtres;
}

QWidget* ListeDroitsVoisins::construireTotaux()
{
    auto* boite = new QGroupBox(QStringLiteral("Totaux par organisme"), this);
    auto* mise = new QVBoxLayout(boite);
    m_totauxOrganismes = new QTableWidget(0, 2, boite);
    m_totauxOrganismes->setObjectName(QStringLiteral("totauxOrganismesDv"));
    m_totauxOrganismes->setHorizontalHeaderLabels({QStringLiteral("Organisme"), QStringLiteral("Montant")});
    m_totauxOrganismes->verticalHeader()->hide();
    m_totauxOrganismes->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_totauxOrganismes->setSelectionMode(QAbstractItemView::NoSelection);
    m_totauxOrganismes->setFocusPolicy(Qt::NoFocus);
    m_totauxOrganismes->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_totauxOrganismes->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_totauxOrganismes->verticalHeader()->setDefaultSectionSize(m_totauxOrganismes->fontMetrics().height() + 8);
    m_totauxOrganismes->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_totauxOrganismes->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    mise->addWidget(m_totauxOrganismes);
    m_totalGeneral = new QLabel(boite);
    m_totalGeneral->setObjectName(QStringLiteral("totalGeneralDv"));
    m_totalGeneral->setAlignment(Qt::AlignRight);
    mise->addWidget(m_totalGeneral);
    boite->setMinimumWidth(m_totauxOrganismes->fontMetrics().horizontalAdvance(QStringLiteral("Spedidam")) +
                           m_totauxOrganismes->fontMetrics().horizontalAdvance(QStringLiteral("000 000,00 €")) + 70);
    return boite;
}

void ListeDroitsVoisins::setDocument(Document* document)
{
    m_chemin = document ? document->chemin() : QString();
    m_droits = document && document->estOuvert() ? std::make_unique<DroitsVoisins>(document->base()) : nullptr;
    m_table->clearSelection();
    actualiser();
}

void ListeDroitsVoisins::actualiser()
{
    remplirOrganismes();
    recharger();
}

void ListeDroitsVoisins::remplirOrganismes()
{
    const QSignalBlocker bloque(m_organisme);
    m_organisme->clear();
    m_organisme->addItem(QStringLiteral("Tous les organismes"), 0);
    if (m_droits)
        for (const auto& [id, nom] : m_droits->organismes())
            m_organisme->addItem(nom, id);
    const bool trie = m_environnement.reglages.booleen(Cle::DroitsVoisinsTriParOrganisme);
    const int index = trie ? m_organisme->findData(m_environnement.reglages.entier(Cle::DroitsVoisinsOrganisme)) : 0;
    m_organisme->setCurrentIndex(qMax(0, index));
}

void ListeDroitsVoisins::filtreChoisi()
{
    const int organisme = m_organisme->currentData().toInt();
    m_environnement.reglages.ecrire(Cle::DroitsVoisinsTriParOrganisme, organisme > 0);
    m_environnement.reglages.ecrire(Cle::DroitsVoisinsOrganisme, organisme);
    m_table->clearSelection();
    recharger();
}

void ListeDroitsVoisins::recharger()
{
    if (!m_droits) {
        m_modele->setTable({});
        m_resume->clear();
        rechargerTotaux();
        return;
    }
    const QList<int> selection = idsSelectionnes();
    m_modele->setTable(m_droits->listeLesDroitsVoisins(m_organisme->currentData().toInt(),
                                                       m_environnement.reglages.texte(Cle::DroitsVoisinsSens)));
    for (const int id : selection)
        if (const int rangee = m_modele->rangeeDe(id); rangee >= 0)
            m_table->selectionModel()->select(m_modele->index(rangee, 0),
                                              QItemSelectionModel::Select | QItemSelectionModel::Rows);
    const Table& table = m_modele->table();
    double somme = 0.0;
    for (qsizetype i = 0; i < table.size(); ++i)
        somme += table.valeur(i, "Amount").toDouble();
    m_resume->setText(QStringLiteral("%1 %2 — %3")
                          .arg(table.size())
                          .arg(table.size() > 1 ? QStringLiteral("versements") : QStringLiteral("versement"))
                          .arg(enEuros(somme)));
    rechargerTotaux();
}

void ListeDroitsVoisins::rechargerTotaux()
{
    const Table totaux = m_droits ? m_droits->totauxParOrganisme() : Table();
    m_totauxOrganismes->setRowCount(int(totaux.size()));
    double total = 0.0;
    for (int rangee = 0; rangee < totaux.size(); ++rangee) {
        const QVariant montant = totaux.valeur(rangee, "Amount");
        auto* nom = new QTableWidgetItem(totaux.valeur(rangee, "Name").toString());
        // A body without payment is listed all the same, without an amount.
        auto* somme = new QTableWidgetItem(montant.isValid() ? enEuros(montant.toDouble()) : QStringLiteral("—"));
        somme->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        m_totauxOrganismes->setItem(rangee, 0, nom);
        m_totauxOrganismes->setItem(rangee, 1, somme);
        total += montant.toDouble();
    }
    m_totalGeneral->setText(m_droits ? QStringLiteral("Total : %1").arg(enEuros(total)) : QString());
    // As tall as its rows: a few bodies, never a scroll bar.
    int hauteur = m_totauxOrganismes->horizontalHeader()->sizeHint().height() + 2 * m_totauxOrganismes->frameWidth();
    for (int rangee = 0; rangee < m_totauxOrganismes->rowCount(); ++rangee)
        hauteur += m_totauxOrganismes->rowHeight(rangee);
    m_totauxOrganismes->setFixedHeight(hauteur);
}

void ListeDroitsVoisins::majTri()
{
    const bool recentsDabord = m_environnement.reglages.texte(Cle::DroitsVoisinsSens) == QStringLiteral("DESC");
    m_tri->setText(recentsDabord ? QStringLiteral("Les plus récents d'abord")
                                 : QStringLiteral("Les plus anciens d'abord"));
}

void ListeDroitsVoisins::majBoutons()
{
    const int selection = int(idsSelectionnes().size());
    m_modifier->setEnabled(selection > 0);
    m_dupliquer->setEnabled(selection == 1);
    m_supprimer->setEnabled(selection > 0);
}

QList<int> ListeDroitsVoisins::idsSelectionnes() const
{
    QList<int> ids;
    for (const QModelIndex& index : m_table->selectionModel()->selectedRows())
        ids << m_modele->idDroit(index.row());
    std::sort(ids.begin(), ids.end());
    return ids;
}

void ListeDroitsVoisins::selectionner(int id)
{
    m_table->clearSelection();
    if (const int rangee = m_modele->rangeeDe(id); rangee >= 0)
        m_table->selectRow(rangee);
}

bool ListeDroitsVoisins::eventFilter(QObject* objet, QEvent* evenement)
{
    // The Delete key on the list deletes the selected payments.
    if (objet == m_table && evenement->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(evenement)->key() == Qt::Key_Delete) {
        supprimerSelection();
        return true;
    }
    return QWidget::eventFilter(objet, evenement);
}

bool ListeDroitsVoisins::documentOuvert()
{
    if (m_droits)
        return true;
    m_environnement.dialogues.information(DroitsVoisins::titreAlertes(), ControleurApplication::messageSansDocument(),
                                          QStringLiteral("Fermer"));
    return false;
}

void ListeDroitsVoisins::dupliquerSelection()
{
    const QList<int> ids = idsSelectionnes();
    if (ids.size() != 1 || !documentOuvert())
        return;
    const std::optional<DroitVoisin> droit = m_droits->droitVoisin(ids.first());
    const int copie = droit ? m_droits->enregistreDroitVoisin(*droit) : 0;
    if (copie == 0) {
        m_environnement.dialogues.information(DroitsVoisins::titreAlertes(),
                                              QStringLiteral("Le versement n'a pas pu être dupliqué."),
                                              QStringLiteral("Fermer"));
        return;
    }
    recharger();
    selectionner(copie);
    emit ecrit();
}

void ListeDroitsVoisins::supprimerSelection()
{
    const QList<int> ids = idsSelectionnes();
    if (ids.isEmpty() || !documentOuvert())
        return;
    if (m_environnement.reglages.booleen(Cle::DeleteAlerts)) {
        const QString message = ids.size() == 1
                                    ? QStringLiteral("Souhaitez-vous réellement supprimer le versement sélectionné ?")
                                    : QStringLiteral("Souhaitez-vous réellement supprimer les %1 versements "
                                                     "sélectionnés ?")
                                          .arg(ids.size());
        if (m_environnement.dialogues.question(DroitsVoisins::titreAlertes(), message,
                                               {QStringLiteral("Oui"), QStringLiteral("Non")}) != QStringLiteral("Oui"))
            return;
    }
    for (const int id : ids)
        m_droits->supprimeDroitVoisin(id);
    m_table->clearSelection();
    recharger();
    emit ecrit();
}

} // namespace corvane::app
