#include "app/frais/ListeFrais.h"

#include "app/ActionsRapport.h"
#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/MemoireColonnes.h"
#include "app/frais/FenetreCategoriesFrais.h"
#include "app/frais/Justificatif.h"
#include "app/frais/ModeleFrais.h"
#include "app/kit/ChampDate.h"
#include "exchange/ExportPdf.h"
#include "exchange/RapportFrais.h"
#include "exchange/RapportsEnregistrements.h"
#include "records/FraisTypes.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

using Cle = Reglages::Cle;

const QString kDebut = QStringLiteral("frais_debut");
const QString kFin = QStringLiteral("frais_fin");

QPushButton* bouton(QWidget* parent, const QString& texte, const QString& nom)
{
    auto* b = new QPushButton(texte, parent);
    b->setObjectName(nom);
    return b;
}

// "12 frais — cumul : 345,00 € et 1 200 km": euros and kilometres are never added together.
QString texteCumul(const Frais::Cumuls& cumuls, int categorie)
{
    QStringList montants;
    if (!Frais::estKilometrage(categorie) && (cumuls.euros != 0.0 || cumuls.kilometres == 0.0))
        montants << enEuros(cumuls.euros);
    if (Frais::estKilometrage(categorie) || cumuls.kilometres != 0.0)
        montants << enNombre(cumuls.kilometres) + QStringLiteral(" km");
    return QStringLiteral("%1 frais — cumul : %2").arg(cumuls.nombre).arg(montants.join(QStringLiteral(" et ")));
}

} // namespace

ListeFrais::ListeFrais(Environnement& environnement, QWidget* parent) : QWidget(parent), m_environnement(environnement)
{
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(0, 0, 0, 0);
    mise->addWidget(construireFiltres());

    m_modele = new ModeleFrais(this);
    m_table = new QTableView(this);
    m_table->setObjectName(QStringLiteral("tableFrais"));
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
    memoriserColonnes(m_table, m_environnement.reglages, Cle::FraisColonnes);
    mise->addWidget(m_table, 1);

    m_cumul = new QLabel(this);
    m_cumul->setObjectName(QStringLiteral("cumulFrais"));
    mise->addWidget(m_cumul);

    auto* boutons = new QHBoxLayout;
    m_nouveau = bouton(this, QStringLiteral("Nouvelle dépense"), QStringLiteral("boutonNouveauFrais"));
    m_modifier = bouton(this, QStringLiteral("Modifier"), QStringLiteral("boutonModifierFrais"));
    m_dupliquer = bouton(this, QStringLiteral("Dupliquer"), QStringLiteral("boutonDupliquerFrais"));
    m_justificatif = bouton(this, QStringLiteral("Voir le justificatif"), QStringLiteral("boutonJustificatifFrais"));
    m_supprimer = bouton(this, QStringLiteral("Supprimer"), QStringLiteral("boutonSupprimerFrais"));
    boutons->addWidget(m_nouveau);
    boutons->addWidget(m_modifier);
    boutons->addWidget(m_dupliquer);
    boutons->addWidget(m_justificatif);
    m_boutonCategories = bouton(this, QStringLiteral("Catégories…"), QStringLiteral("boutonCategoriesFrais"));
    m_boutonCategories->setToolTip(QStringLiteral("Ajouter, renommer ou supprimer des catégories de frais"));
    boutons->addWidget(m_boutonCategories);
    boutons->addStretch(1);
    // The report lists what the screen lists.
    ajouterBoutonsRapport(
        boutons, this, m_environnement,
        [this] {
            const ChoixImpressions choix = ChoixImpressions::depuis(m_environnement.reglages);
            const QString document = m_document ? m_document->chemin() : QString();
            const FiltreFrais f = filtre();
            return RapportEcran{
                document, nomRapportFrais(Horloge::aujourdhui()), ExportPdf::titreAlertes(),
                [document, choix, f](Rapport& rapport) { return composerRapportFrais(rapport, document, choix, f); }};
        },
        QStringLiteral("Frais"));
    boutons->addWidget(m_supprimer);
    mise->addLayout(boutons);

    connect(m_nouveau, &QPushButton::clicked, this, [this] {
        if (documentOuvert())
            emit nouveauDemande();
    });
    connect(m_modifier, &QPushButton::clicked, this, [this] {
        if (const QList<int> ids = idsSelectionnes(); !ids.isEmpty())
            emit modificationDemandee(ids.first());
    });
    connect(m_table, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { emit modificationDemandee(m_modele->idFrais(index.row())); });
    connect(m_dupliquer, &QPushButton::clicked, this, [this] {
        if (const QList<int> ids = idsSelectionnes(); ids.size() == 1)
            emit duplicationDemandee(ids.first());
    });
    connect(m_justificatif, &QPushButton::clicked, this, &ListeFrais::ouvrirJustificatif);
    connect(m_boutonCategories, &QPushButton::clicked, this, &ListeFrais::ouvrirCategories);
    connect(m_supprimer, &QPushButton::clicked, this, &ListeFrais::supprimerSelection);
    m_table->installEventFilter(this);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ListeFrais::majBoutons);
    connect(m_modele, &QAbstractItemModel::modelReset, this, &ListeFrais::majBoutons);
    majTri();
    majBoutons();
}

ListeFrais::~ListeFrais() = default;

QWidget* ListeFrais::construireFiltres()
{
    auto* filtres = new QWidget(this);
    auto* ligne = new QHBoxLayout(filtres);
    ligne->setContentsMargins(0, 0, 0, 0);
    m_periode = new QComboBox(filtres);
    m_periode->setObjectName(QStringLiteral("filtrePeriodeFrais"));
    m_periode->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_periode->addItem(QStringLiteral("Tous les frais"), QStringLiteral("TOUS"));
    m_periode->addItem(QStringLiteral("Année en cours"), QStringLiteral("ANNEE"));
    m_periode->addItem(QStringLiteral("Période choisie"), QStringLiteral("PERIODE"));
    m_du = new ChampDate(filtres);
    m_du->setObjectName(QStringLiteral("filtreDuFrais"));
    m_au = new ChampDate(filtres);
    m_au->setObjectName(QStringLiteral("filtreAuFrais"));
    m_categorie = new QComboBox(filtres);
    m_categorie->setObjectName(QStringLiteral("filtreCategorieFrais"));
    m_categorie->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_tri = new QToolButton(filtres);
    m_tri->setObjectName(QStringLiteral("boutonTriFrais"));
    m_tri->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_tri->setToolTip(QStringLiteral("Inverser l'ordre de la liste"));

    ligne->addWidget(new QLabel(QStringLiteral("Période :"), filtres));
    ligne->addWidget(m_periode);
    ligne->addSpacing(8);
    ligne->addWidget(new QLabel(QStringLiteral("du"), filtres));
    ligne->addWidget(m_du);
    ligne->addSpacing(4);
    ligne->addWidget(new QLabel(QStringLiteral("au"), filtres));
    ligne->addWidget(m_au);
    ligne->addSpacing(16);
    ligne->addWidget(new QLabel(QStringLiteral("Catégorie :"), filtres));
    ligne->addWidget(m_categorie);
    ligne->addStretch(1);
    ligne->addWidget(m_tri);

    connect(m_periode, &QComboBox::activated, this, &ListeFrais::filtreChoisi);
    connect(m_categorie, &QComboBox::activated, this, &ListeFrais::filtreChoisi);
    connect(m_du, &ChampDate::userDateChanged, this, &ListeFrais::datesModifiees);
    connect(m_au, &ChampDate::userDateChanged, this, &ListeFrais::datesModifiees);
    connect(m_tri, &QToolButton::clicked, this, [this] {
        // The preference is applied inverted: "DESC" lists the oldest expense first.
        const bool anciensDabord = m_environnement.reglages.texte(Cle::FraisSens) == QStringLiteral("DESC");
        m_environnement.reglages.ecrire(Cle::FraisSens, anciensDabord ? QStringLiteral("ASC") : QStringLiteral("DESC"));
        majTri();
        recharger();
    });
    return filtres;
}

void ListeFrais::setDocument(Document* document)
{
    m_document = document;
    m_frais = document && document->estOuvert() ? std::make_unique<Frais>(document->base()) : nullptr;
    if (m_categories)
        m_categories->setDocument(document);
    m_table->clearSelection();
    actualiser();
}

void ListeFrais::actualiser()
{
    // The categories window follows the categories written elsewhere too.
    if (m_categories && m_categories->isVisible())
        m_categories->recharger();
    remplirCategories();
    {
        const QSignalBlocker bloque(m_periode);
        m_periode->setCurrentIndex(qMax(0, m_periode->findData(m_environnement.reglages.texte(Cle::FraisFiltre))));
    }
    recharger();
}

void ListeFrais::remplirCategories()
{
    const QSignalBlocker bloque(m_categorie);
    m_categorie->clear();
    m_categorie->addItem(QStringLiteral("Toutes les catégories"), 0);
    if (m_frais)
        for (const auto& [id, libelle] : m_frais->choixTypesDeFrais())
            m_categorie->addItem(libelle, id);
    m_categorie->setCurrentIndex(qMax(0, m_categorie->findData(m_environnement.reglages.entier(Cle::FraisCategorie))));
}

void ListeFrais::filtreChoisi()
{
    m_environnement.reglages.ecrire(Cle::FraisFiltre, m_periode->currentData().toString());
    m_environnement.reglages.ecrire(Cle::FraisCategorie, m_categorie->currentData().toInt());
    recharger();
}

void ListeFrais::datesModifiees()
{
    if (!m_frais)
        return;
    m_frais->enregistreDatePreferee(kDebut, m_du->date());
    m_frais->enregistreDatePreferee(kFin, m_au->date());
    recharger();
    emit ecrit();
}

FiltreFrais ListeFrais::filtre() const
{
    FiltreFrais f;
    f.filtre = m_periode->currentData().toString();
    f.categorie = m_categorie->currentData().toInt();
    f.du = m_du->date();
    f.au = m_au->date();
    f.sens = m_environnement.reglages.texte(Cle::FraisSens);
    return f;
}

void ListeFrais::recharger()
{
    const bool periode = m_periode->currentData().toString() == QStringLiteral("PERIODE");
    m_du->setEnabled(periode);
    m_au->setEnabled(periode);
    if (!m_frais) {
        m_modele->setTable({}, Frais::titreColonneMontant(0));
        m_cumul->clear();
        return;
    }
    // The fields show the span the list covers; greyed unless they are the chosen one, which
    // stays remembered. Showing them is not a change of them.
    QDate du = m_frais->retrouveDatePreferee(kDebut).date();
    QDate au = m_frais->retrouveDatePreferee(kFin).date();
    if (m_periode->currentData().toString() == QStringLiteral("ANNEE")) {
        du = QDate(Horloge::aujourdhui().year(), 1, 1);
        au = QDate(du.year(), 12, 31);
    }
    {
        const QSignalBlocker bloqueDu(m_du), bloqueAu(m_au);
        m_du->setDate(du.isValid() ? du : Horloge::aujourdhui());
        m_au->setDate(au.isValid() ? au : Horloge::aujourdhui());
    }
    const QList<int> selection = idsSelectionnes();
    const FiltreFrais f = filtre();
    m_modele->setTable(m_frais->listeLesFrais(f, true), Frais::titreColonneMontant(f.categorie));
    for (int rangee = 0; rangee < m_modele->rowCount(); ++rangee)
        if (selection.contains(m_modele->idFrais(rangee)))
            m_table->selectionModel()->select(m_modele->index(rangee, 0),
                                              QItemSelectionModel::Select | QItemSelectionModel::Rows);
    m_cumul->setText(texteCumul(m_frais->cumulsParUnite(), f.categorie));
}

void ListeFrais::majTri()
{
    const bool anciensDabord = m_environnement.reglages.texte(Cle::FraisSens) == QStringLiteral("DESC");
    m_tri->setText(anciensDabord ? QStringLiteral("Les plus anciens d'abord")
                                 : QStringLiteral("Les plus récents d'abord"));
}

void ListeFrais::majBoutons()
{
    const QList<int> ids = idsSelectionnes();
    m_modifier->setEnabled(!ids.isEmpty());
    m_dupliquer->setEnabled(ids.size() == 1);
    m_supprimer->setEnabled(!ids.isEmpty());
    const QModelIndexList rangees = m_table->selectionModel()->selectedRows();
    m_justificatif->setEnabled(rangees.size() == 1 && !m_modele->fichier(rangees.first().row()).isEmpty());
}

QList<int> ListeFrais::idsSelectionnes() const
{
    QList<int> ids;
    for (const QModelIndex& index : m_table->selectionModel()->selectedRows())
        ids << m_modele->idFrais(index.row());
    std::sort(ids.begin(), ids.end());
    return ids;
}

bool ListeFrais::eventFilter(QObject* objet, QEvent* evenement)
{
    // The Delete key on the list deletes the selected expenses.
    if (objet == m_table && evenement->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(evenement)->key() == Qt::Key_Delete) {
        supprimerSelection();
        return true;
    }
    return QWidget::eventFilter(objet, evenement);
}

bool ListeFrais::documentOuvert()
{
    if (m_frais)
        return true;
    m_environnement.dialogues.information(kTitreAlertesFrais, ControleurApplication::messageSansDocument(),
                                          QStringLiteral("Fermer"));
    return false;
}

void ListeFrais::ouvrirJustificatif()
{
    const QModelIndexList rangees = m_table->selectionModel()->selectedRows();
    if (rangees.size() == 1)
        app::ouvrirJustificatif(m_modele->fichier(rangees.first().row()), m_environnement.dialogues);
}

void ListeFrais::ouvrirCategories()
{
    if (!m_frais) {
        m_environnement.dialogues.information(FraisTypes::titreFenetre(), ControleurApplication::messageSansDocument(),
                                              FraisTypes::boutonFermer());
        return;
    }
    if (!m_categories) {
        m_categories = new FenetreCategoriesFrais(m_environnement, this);
        m_categories->setDocument(m_document);
    }
    m_categories->show();
    m_categories->raise();
    m_categories->activateWindow();
}

void ListeFrais::supprimerSelection()
{
    const QList<int> ids = idsSelectionnes();
    if (ids.isEmpty() || !documentOuvert())
        return;
    if (m_environnement.reglages.booleen(Cle::DeleteAlerts)) {
        const QString message =
            ids.size() == 1
                ? QStringLiteral("Souhaitez-vous réellement supprimer la dépense sélectionnée ?")
                : QStringLiteral("Souhaitez-vous réellement supprimer les %1 dépenses sélectionnées ?").arg(ids.size());
        if (m_environnement.dialogues.question(kTitreAlertesFrais, message,
                                               {QStringLiteral("Oui"), QStringLiteral("Non")}) != QStringLiteral("Oui"))
            return;
    }
    for (const int id : ids)
        m_frais->supprimeFrais(id);
    m_table->clearSelection();
    recharger();
    emit ecrit();
}

} // namespace corvane::app
