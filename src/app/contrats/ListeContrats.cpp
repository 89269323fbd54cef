#include "app/contrats/ListeContrats.h"

#include "app/ActionsRapport.h"
#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/MemoireColonnes.h"
#include "app/contrats/ModeleTableContrats.h"
#include "app/kit/ChampDate.h"
#include "exchange/ExportPdf.h"
#include "exchange/RapportsEnregistrements.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

QString pluriel(qint64 nombre, const QString& singulier, const QString& plurielTexte)
{
    return QStringLiteral("%1 %2").arg(nombre).arg(nombre > 1 ? plurielTexte : singulier);
}

QComboBox* liste(QWidget* parent, const QString& nom)
{
    auto* combo = new QComboBox(parent);
    combo->setObjectName(nom);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    return combo;
}

} // namespace

ListeContrats::ListeContrats(Environnement& environnement, QWidget* parent)
    : QWidget(parent), m_environnement(environnement)
{
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(0, 0, 0, 0);
    mise->addLayout(construireFiltres());

    m_modele = new ModeleTableContrats(this);
    m_modele->setCouleurGroupee(QColor(m_environnement.reglages.texte(Reglages::Cle::CouleursContratsGroupes)));
    m_table = new QTableView(this);
    m_table->setObjectName(QStringLiteral("tableContrats"));
    m_table->setModel(m_modele);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_table->setAlternatingRowColors(true);
    m_table->verticalHeader()->hide();
    // One line per contract: long employer names are elided, not wrapped.
    m_table->setWordWrap(false);
    m_table->setTextElideMode(Qt::ElideRight);
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 10);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setSectionsMovable(true);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    memoriserColonnes(m_table, m_environnement.reglages, Reglages::Cle::ContratsColonnes);
    mise->addWidget(m_table, 1);

    m_totaux = new QLabel(this);
    m_totaux->setObjectName(QStringLiteral("totauxContrats"));
    m_totaux->setTextFormat(Qt::RichText);
    mise->addWidget(m_totaux);

    auto* boutons = new QHBoxLayout;
    m_nouveau = new QPushButton(QStringLiteral("Nouveau contrat"), this);
    m_nouveau->setObjectName(QStringLiteral("boutonNouveauContrat"));
    m_modifier = new QPushButton(QStringLiteral("Modifier"), this);
    m_modifier->setObjectName(QStringLiteral("boutonModifierContrat"));
    m_dupliquer = new QPushButton(QStringLiteral("Dupliquer"), this);
    m_dupliquer->setObjectName(QStringLiteral("boutonDupliquerContrat"));
    m_supprimer = new QPushButton(QStringLiteral("Supprimer"), this);
    m_supprimer->setObjectName(QStringLiteral("boutonSupprimerContrat"));
    boutons->addWidget(m_nouveau);
    boutons->addWidget(m_modifier);
    boutons->addWidget(m_dupliquer);
    boutons->addStretch(1);
    // The report lists the contracts as filtered on screen.
    ajouterBoutonsRapport(
        boutons, this, m_environnement,
        [this] {
            const FiltreContrats filtreEcran = filtre();
            const ChoixImpressions choix = ChoixImpressions::depuis(m_environnement.reglages);
            const QString document = m_chemin;
            return RapportEcran{document, nomRapportContrats(), ExportPdf::titreAlertes(),
                                [document, filtreEcran, choix](Rapport& rapport) {
                                    return composerRapportContrats(rapport, document, choix, filtreEcran);
                                }};
        },
        QStringLiteral("Contrats"));
    boutons->addWidget(m_supprimer);
    mise->addLayout(boutons);

    connect(m_nouveau, &QPushButton::clicked, this, &ListeContrats::nouveauDemande);
    connect(m_modifier, &QPushButton::clicked, this, [this] {
        const QList<int> ids = idsSelectionnes();
        if (!ids.isEmpty())
            emit modificationDemandee(ids.first());
    });
    connect(m_table, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { emit modificationDemandee(m_modele->idContrat(index.row())); });
    connect(m_dupliquer, &QPushButton::clicked, this, &ListeContrats::dupliquerSelection);
    connect(m_supprimer, &QPushButton::clicked, this, &ListeContrats::supprimerSelection);
    m_table->installEventFilter(this);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ListeContrats::majBoutons);
    connect(m_modele, &QAbstractItemModel::modelReset, this, &ListeContrats::majBoutons);
    connect(m_modele, &ModeleTableContrats::cochesModifiees, this,
            [this](int id, int effectue, int paye, int conges, int aemFp) {
                if (m_contrats) {
                    m_contrats->enregistreLesCochesPourId(id, effectue, paye, conges, aemFp);
                    emit ecrit();
                }
            });
    setTabOrder(m_periode, m_du);
    setTabOrder(m_du, m_au);
    setTabOrder(m_au, m_effectue);
    majTri();
    majBoutons();
}

ListeContrats::~ListeContrats() = default;

QLayout* ListeContrats::construireFiltres()
{
    auto* grille = new QGridLayout;
    grille->setHorizontalSpacing(8);

    m_periode = liste(this, QStringLiteral("filtrePeriode"));
    m_periode->addItem(QStringLiteral("Tous les contrats"), QStringLiteral("tous"));
    m_periode->addItem(QStringLiteral("Période de référence"), QStringLiteral("periode_reference"));
    m_periode->addItem(QStringLiteral("Année en cours"), QStringLiteral("annee"));
    m_periode->addItem(QStringLiteral("Période choisie"), QStringLiteral("periode"));
    m_du = new ChampDate(this);
    m_du->setObjectName(QStringLiteral("filtreDu"));
    m_au = new ChampDate(this);
    m_au->setObjectName(QStringLiteral("filtreAu"));
    for (QDateEdit* date : {m_du, m_au}) {
        date->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
        date->setCalendarPopup(true);
        date->setDate(Horloge::aujourdhui());
        connect(date, &QDateEdit::userDateChanged, this, &ListeContrats::datesPeriodeModifiees);
    }
    m_tri = new QToolButton(this);
    m_tri->setObjectName(QStringLiteral("boutonTri"));
    m_tri->setToolButtonStyle(Qt::ToolButtonTextOnly);

    m_effectue = liste(this, QStringLiteral("filtreEffectue"));
    m_effectue->addItems(
        {QStringLiteral("Effectués et planifiés"), QStringLiteral("Effectués"), QStringLiteral("Planifiés")});
    m_paye = liste(this, QStringLiteral("filtrePaye"));
    m_paye->addItems({QStringLiteral("Payés et non payés"), QStringLiteral("Payés"), QStringLiteral("Non payés")});
    m_type = liste(this, QStringLiteral("filtreType"));
    m_employeur = liste(this, QStringLiteral("filtreEmployeur"));
    m_emploi = liste(this, QStringLiteral("filtreEmploi"));

    auto* periode = new QHBoxLayout;
    periode->addWidget(m_periode);
    periode->addSpacing(8);
    periode->addWidget(new QLabel(QStringLiteral("du"), this));
    periode->addSpacing(4);
    periode->addWidget(m_du);
    periode->addSpacing(8);
    periode->addWidget(new QLabel(QStringLiteral("au"), this));
    periode->addSpacing(4);
    periode->addWidget(m_au);
    periode->addStretch(1);
    periode->addWidget(m_tri);
    auto* selection = new QHBoxLayout;
    for (QComboBox* combo : {m_effectue, m_paye, m_type, m_employeur, m_emploi})
        selection->addWidget(combo);
    selection->addStretch(1);
    grille->addWidget(new QLabel(QStringLiteral("Période :"), this), 0, 0);
    grille->addLayout(periode, 0, 1);
    grille->addWidget(new QLabel(QStringLiteral("Afficher :"), this), 1, 0);
    grille->addLayout(selection, 1, 1);
    grille->setColumnStretch(1, 1);

    for (QComboBox* combo : {m_periode, m_effectue, m_paye, m_type, m_employeur, m_emploi})
        connect(combo, &QComboBox::activated, this, &ListeContrats::recharger);
    connect(m_tri, &QToolButton::clicked, this, [this] {
        const bool recentsDabord = m_environnement.reglages.texte(Reglages::Cle::ContratsSens) == QStringLiteral("ASC");
        m_environnement.reglages.ecrire(Reglages::Cle::ContratsSens,
                                        recentsDabord ? QStringLiteral("DESC") : QStringLiteral("ASC"));
        majTri();
        recharger();
    });
    return grille;
}

void ListeContrats::setDocument(Document* document)
{
    m_chemin = document ? document->chemin() : QString();
    m_contrats = document && document->estOuvert() ? std::make_unique<Contrats>(document->base()) : nullptr;
    actualiser();
}

void ListeContrats::actualiser()
{
    remplirListes();
    recharger();
}

void ListeContrats::remplirListes()
{
    const auto remplir = [](QComboBox* combo, const QString& tous, const QStringList& libelles) {
        const QString courant = combo->currentData().toString();
        combo->clear();
        combo->addItem(tous, QString());
        for (const QString& libelle : libelles)
            combo->addItem(libelle, libelle);
        const int index = combo->findData(courant);
        combo->setCurrentIndex(index < 0 ? 0 : index);
    };
    m_types.clear();
    QStringList types, employeurs, emplois;
    if (m_contrats) {
        types = m_contrats->tousLesTypesDeContrats() + m_contrats->typesAutoEntrepreneur(true);
        m_types = m_contrats->libellesDesTypesDeContrat();
        employeurs = m_contrats->rempliPopup(QStringLiteral("employeurs"));
        emplois = m_contrats->tousLesEmplois();
    }
    remplir(m_type, QStringLiteral("Tous les types"), types);
    remplir(m_employeur, QStringLiteral("Tous les employeurs"), employeurs);
    remplir(m_emploi, QStringLiteral("Tous les emplois"), emplois);
}

FiltreContrats ListeContrats::filtre() const
{
    FiltreContrats f;
    f.periode = m_periode->currentData().toString();
    f.effectue = m_effectue->currentIndex();
    f.paye = m_paye->currentIndex();
    f.type = m_type->currentData().toString();
    f.filtreType = !f.type.isEmpty();
    f.employeur = m_employeur->currentData().toString();
    f.filtreEmployeur = !f.employeur.isEmpty();
    f.emploi = m_emploi->currentData().toString();
    f.filtreEmploi = !f.emploi.isEmpty();
    f.du = m_du->date();
    f.au = m_au->date();
    // The screen passes its remembered word; the model applies it inverted.
    f.sens = m_environnement.reglages.texte(Reglages::Cle::ContratsSens);
    f.sensPrefere = f.sens;
    return f;
}

void ListeContrats::recharger()
{
    const bool periode = m_periode->currentData().toString() == QStringLiteral("periode");
    m_du->setEnabled(periode);
    m_au->setEnabled(periode);
    if (!m_contrats) {
        m_modele->setTable({}, {});
        m_totaux->clear();
        return;
    }
    {
        // The fields show the dates the listing applies; greyed unless they are the chosen period,
        // which stays remembered. Showing them is not a change of them.
        auto [du, au] = m_contrats->bornesDuFiltre(filtre());
        if (periode || !du.isValid())
            std::tie(du, au) = std::pair{m_contrats->datePeriodeDebut(), m_contrats->datePeriodeFin()};
        const QSignalBlocker bloqueDu(m_du), bloqueAu(m_au);
        m_du->setDate(du.isValid() ? du : Horloge::aujourdhui());
        m_au->setDate(au.isValid() ? au : Horloge::aujourdhui());
    }
    const QList<int> selection = idsSelectionnes();
    m_modele->setTable(m_contrats->listeLesContrats(filtre()), m_types);
    for (int rangee = 0; rangee < m_modele->rowCount(); ++rangee)
        if (selection.contains(m_modele->idContrat(rangee)))
            m_table->selectionModel()->select(m_modele->index(rangee, 0),
                                              QItemSelectionModel::Select | QItemSelectionModel::Rows);
    const QString couleur = m_environnement.reglages.texte(Reglages::Cle::CouleursContratsGroupes);
    m_totaux->setText(QStringLiteral("%1 — %2 — %3 — brut %4 — net %5 — <span style=\"color:%6\">%7</span>")
                          .arg(pluriel(m_modele->rowCount(), QStringLiteral("contrat"), QStringLiteral("contrats")),
                               pluriel(m_contrats->totalJours, QStringLiteral("jour"), QStringLiteral("jours")),
                               pluriel(m_contrats->totalHeures, QStringLiteral("heure"), QStringLiteral("heures")),
                               enEuros(m_contrats->totalBruts), enEuros(m_contrats->totalNets), couleur,
                               pluriel(m_contrats->nombrePeriodesGroupees, QStringLiteral("période groupée"),
                                       QStringLiteral("périodes groupées"))));
}

void ListeContrats::majTri()
{
    const bool recentsDabord = m_environnement.reglages.texte(Reglages::Cle::ContratsSens) == QStringLiteral("ASC");
    m_tri->setText(recentsDabord ? QStringLiteral("Les plus récents d'abord")
                                 : QStringLiteral("Les plus anciens d'abord"));
    m_tri->setToolTip(QStringLiteral("Inverser l'ordre de la liste"));
}

void ListeContrats::majBoutons()
{
    const bool selection = !idsSelectionnes().isEmpty();
    m_modifier->setEnabled(selection);
    m_dupliquer->setEnabled(selection);
    m_supprimer->setEnabled(selection);
}

void ListeContrats::datesPeriodeModifiees()
{
    if (m_contrats)
        m_contrats->enregistreDatesPeriode(m_du->date(), m_au->date());
    recharger();
    emit ecrit();
}

QList<int> ListeContrats::idsSelectionnes() const
{
    QList<int> ids;
    for (const QModelIndex& index : m_table->selectionModel()->selectedRows())
        ids << m_modele->idContrat(index.row());
    std::sort(ids.begin(), ids.end());
    return ids;
}

bool ListeContrats::eventFilter(QObject* objet, QEvent* evenement)
{
    // The Delete key on the list deletes the selected contracts.
    if (objet == m_table && evenement->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(evenement)->key() == Qt::Key_Delete) {
        supprimerSelection();
        return true;
    }
    return QWidget::eventFilter(objet, evenement);
}

bool ListeContrats::documentOuvert()
{
    if (m_contrats)
        return true;
    m_environnement.dialogues.information(QStringLiteral("Gestion des contrats"),
                                          ControleurApplication::messageSansDocument(), QStringLiteral("Fermer"));
    return false;
}

void ListeContrats::supprimerSelection()
{
    const QList<int> ids = idsSelectionnes();
    if (ids.isEmpty() || !documentOuvert())
        return;
    if (m_environnement.reglages.booleen(Reglages::Cle::DeleteAlerts)) {
        const QString message =
            ids.size() == 1
                ? QStringLiteral("Souhaitez-vous réellement supprimer le contrat sélectionné ?")
                : QStringLiteral("Souhaitez-vous réellement supprimer les %1 contrats sélectionnés ?").arg(ids.size());
        if (m_environnement.dialogues.question(QStringLiteral("Gestion des contrats"), message,
                                               {QStringLiteral("Oui"), QStringLiteral("Non")}) != QStringLiteral("Oui"))
            return;
    }
    m_contrats->supprimeContratsEtLiens(ids);
    m_table->clearSelection();
    recharger();
    emit ecrit();
}

void ListeContrats::dupliquerSelection()
{
    if (!documentOuvert())
        return;
    for (const int id : idsSelectionnes())
        m_contrats->dupliqueContrat(id);
    recharger();
    emit ecrit();
}

} // namespace corvane::app
