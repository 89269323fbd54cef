#include "app/securite/ListeSecuriteSociale.h"

#include "app/ActionsRapport.h"
#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/MemoireColonnes.h"
#include "app/kit/ChampDate.h"
#include "app/securite/GrilleDroits.h"
#include "app/securite/ModeleSecuriteSociale.h"
#include "exchange/ExportPdf.h"
#include "exchange/RapportSecuriteSociale.h"
#include "exchange/RapportsEnregistrements.h"
#include "regimes/SecuriteSociale.h"
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

const QString kTitreAlertes = QStringLiteral("Gestion des périodes");
const QString kDebut = QStringLiteral("securite_sociale_debut");
const QString kFin = QStringLiteral("securite_sociale_fin");

QString pluriel(qint64 nombre, const QString& singulier, const QString& plurielTexte)
{
    return QStringLiteral("%1 %2").arg(nombre).arg(nombre > 1 ? plurielTexte : singulier);
}

QPushButton* bouton(QWidget* parent, const QString& texte, const QString& nom)
{
    auto* b = new QPushButton(texte, parent);
    b->setObjectName(nom);
    return b;
}

} // namespace

ListeSecuriteSociale::ListeSecuriteSociale(Environnement& environnement, QWidget* parent)
    : QWidget(parent), m_environnement(environnement)
{
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(0, 0, 0, 0);
    mise->addWidget(construireFiltres());

    m_modele = new ModeleSecuriteSociale(this);
    m_table = new QTableView(this);
    m_table->setObjectName(QStringLiteral("tableSecuriteSociale"));
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
    memoriserColonnes(m_table, m_environnement.reglages, Cle::SecuriteSocialeColonnes);
    mise->addWidget(m_table, 1);

    m_totaux = new QLabel(this);
    m_totaux->setObjectName(QStringLiteral("totauxSS"));
    mise->addWidget(m_totaux);

    auto* boutons = new QHBoxLayout;
    m_nouveau = bouton(this, QStringLiteral("Nouvelle période"), QStringLiteral("boutonNouveauSS"));
    m_modifier = bouton(this, QStringLiteral("Modifier"), QStringLiteral("boutonModifierSS"));
    m_dupliquer = bouton(this, QStringLiteral("Dupliquer"), QStringLiteral("boutonDupliquerSS"));
    m_supprimer = bouton(this, QStringLiteral("Supprimer"), QStringLiteral("boutonSupprimerSS"));
    boutons->addWidget(m_nouveau);
    boutons->addWidget(m_modifier);
    boutons->addWidget(m_dupliquer);
    boutons->addStretch(1);
    // The report checks the rights on the day shown on screen.
    ajouterBoutonsRapport(
        boutons, this, m_environnement,
        [this] {
            const ChoixImpressions choix = ChoixImpressions::depuis(m_environnement.reglages);
            const QString document = m_chemin;
            const QDate jour = m_droits->jour();
            return RapportEcran{document, nomRapportSecuriteSociale(Horloge::aujourdhui()), ExportPdf::titreAlertes(),
                                [document, choix, jour](Rapport& rapport) {
                                    return composerRapportSecuriteSociale(rapport, document, choix, jour);
                                }};
        },
        QStringLiteral("SecuriteSociale"));
    boutons->addWidget(m_supprimer);
    mise->addLayout(boutons);

    m_droits = new GrilleDroits(this);
    m_droits->setObjectName(QStringLiteral("verificationDroits"));
    mise->addWidget(m_droits);

    connect(m_nouveau, &QPushButton::clicked, this, [this] {
        if (documentOuvert())
            emit nouveauDemande();
    });
    connect(m_modifier, &QPushButton::clicked, this, [this] {
        if (const QList<int> ids = idsSelectionnes(); !ids.isEmpty())
            emit modificationDemandee(ids.first());
    });
    connect(m_table, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { emit modificationDemandee(m_modele->idPeriode(index.row())); });
    connect(m_dupliquer, &QPushButton::clicked, this, [this] {
        if (const QList<int> ids = idsSelectionnes(); ids.size() == 1)
            emit duplicationDemandee(ids.first());
    });
    connect(m_supprimer, &QPushButton::clicked, this, &ListeSecuriteSociale::supprimerSelection);
    m_table->installEventFilter(this);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ListeSecuriteSociale::majBoutons);
    connect(m_modele, &QAbstractItemModel::modelReset, this, &ListeSecuriteSociale::majBoutons);
    connect(m_modele, &ModeleSecuriteSociale::cocheModifiee, this, &ListeSecuriteSociale::ecrireCoche);
    connect(m_droits, &GrilleDroits::ecrit, this, &ListeSecuriteSociale::ecrit);
    majTri();
    majBoutons();
}

ListeSecuriteSociale::~ListeSecuriteSociale() = default;

QWidget* ListeSecuriteSociale::construireFiltres()
{
    auto* filtres = new QWidget(this);
    auto* ligne = new QHBoxLayout(filtres);
    ligne->setContentsMargins(0, 0, 0, 0);
    m_periode = new QComboBox(filtres);
    m_periode->setObjectName(QStringLiteral("filtrePeriodeSS"));
    m_periode->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_periode->addItem(QStringLiteral("Toutes les périodes"), QStringLiteral("tous"));
    m_periode->addItem(QStringLiteral("Période de référence"), QStringLiteral("periode_reference"));
    m_periode->addItem(QStringLiteral("Année en cours"), QStringLiteral("annee"));
    m_periode->addItem(QStringLiteral("Période choisie"), QStringLiteral("periode"));
    m_du = new ChampDate(filtres);
    m_du->setObjectName(QStringLiteral("filtreDuSS"));
    m_au = new ChampDate(filtres);
    m_au->setObjectName(QStringLiteral("filtreAuSS"));
    m_type = new QComboBox(filtres);
    m_type->setObjectName(QStringLiteral("filtreTypeSS"));
    m_type->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_tri = new QToolButton(filtres);
    m_tri->setObjectName(QStringLiteral("boutonTriSS"));
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
    ligne->addWidget(new QLabel(QStringLiteral("Type :"), filtres));
    ligne->addWidget(m_type);
    ligne->addStretch(1);
    ligne->addWidget(m_tri);

    connect(m_periode, &QComboBox::activated, this, &ListeSecuriteSociale::filtreChoisi);
    connect(m_type, &QComboBox::activated, this, &ListeSecuriteSociale::filtreChoisi);
    connect(m_du, &ChampDate::userDateChanged, this, &ListeSecuriteSociale::datesModifiees);
    connect(m_au, &ChampDate::userDateChanged, this, &ListeSecuriteSociale::datesModifiees);
    connect(m_tri, &QToolButton::clicked, this, [this] {
        const bool recentsDabord = m_environnement.reglages.texte(Cle::SecuriteSocialeSens) == QStringLiteral("DESC");
        m_environnement.reglages.ecrire(Cle::SecuriteSocialeSens,
                                        recentsDabord ? QStringLiteral("ASC") : QStringLiteral("DESC"));
        majTri();
        recharger();
    });
    return filtres;
}

void ListeSecuriteSociale::setDocument(Document* document)
{
    m_chemin = document ? document->chemin() : QString();
    m_modeleSS = document && document->estOuvert() ? std::make_unique<SecuriteSociale>(document->base()) : nullptr;
    m_droits->setDocument(document);
    m_table->clearSelection();
    actualiser();
}

void ListeSecuriteSociale::actualiser()
{
    remplirTypes();
    {
        const QSignalBlocker bloque(m_periode);
        m_periode->setCurrentIndex(qBound(0, m_environnement.reglages.entier(Cle::SecuriteSocialeDatesTri), 3));
    }
    recharger();
    m_droits->actualiser();
}

void ListeSecuriteSociale::remplirTypes()
{
    const QSignalBlocker bloque(m_type);
    m_type->clear();
    m_type->addItem(QStringLiteral("Tous les types"), 0);
    if (m_modeleSS) {
        const QStringList types = m_modeleSS->tousLesTypes();
        for (int i = 0; i < types.size(); ++i)
            m_type->addItem(types.at(i), i + 1);
    }
    const bool trie = m_environnement.reglages.booleen(Cle::SecuriteSocialeTypeTrie);
    const int index = trie ? m_type->findData(m_environnement.reglages.entier(Cle::SecuriteSocialeTypeIndex)) : 0;
    m_type->setCurrentIndex(qMax(0, index));
}

void ListeSecuriteSociale::filtreChoisi()
{
    Reglages& reglages = m_environnement.reglages;
    reglages.ecrire(Cle::SecuriteSocialeDatesTri, m_periode->currentIndex());
    const int type = m_type->currentData().toInt();
    reglages.ecrire(Cle::SecuriteSocialeTypeTrie, type > 0);
    reglages.ecrire(Cle::SecuriteSocialeTypeIndex, type);
    recharger();
}

void ListeSecuriteSociale::datesModifiees()
{
    if (!m_modeleSS)
        return;
    m_modeleSS->enregistreDatePreferee(kDebut, m_du->date());
    m_modeleSS->enregistreDatePreferee(kFin, m_au->date());
    recharger();
    emit ecrit();
}

void ListeSecuriteSociale::recharger()
{
    const QString tri = m_periode->currentData().toString();
    const bool periode = tri == QStringLiteral("periode");
    m_du->setEnabled(periode);
    m_au->setEnabled(periode);
    if (!m_modeleSS) {
        m_modele->setTable({});
        m_totaux->clear();
        return;
    }
    // The fields show the span the list covers; greyed unless they are the chosen one, which
    // stays remembered. Showing them is not a change of them.
    QDate du = m_modeleSS->retrouveDatePreferee(kDebut).date();
    QDate au = m_modeleSS->retrouveDatePreferee(kFin).date();
    if (tri == QStringLiteral("periode_reference")) {
        du = m_modeleSS->retrouveDateOuvertureDroits().date();
        au = m_modeleSS->retrouveDateFinDePeriodeEnCours();
    } else if (tri == QStringLiteral("annee")) {
        du = QDate(Horloge::aujourdhui().year(), 1, 1);
        au = du.addYears(1);
    }
    {
        const QSignalBlocker bloqueDu(m_du), bloqueAu(m_au);
        m_du->setDate(du.isValid() ? du : Horloge::aujourdhui());
        m_au->setDate(au.isValid() ? au : Horloge::aujourdhui());
    }
    const QList<int> selection = idsSelectionnes();
    const QString sens = m_environnement.reglages.texte(Cle::SecuriteSocialeSens);
    m_modele->setTable(
        m_modeleSS->listeLesPeriodesV4(tri, m_type->currentData().toInt(), sens, m_du->date(), m_au->date()));
    for (int rangee = 0; rangee < m_modele->rowCount(); ++rangee)
        if (selection.contains(m_modele->idPeriode(rangee)))
            m_table->selectionModel()->select(m_modele->index(rangee, 0),
                                              QItemSelectionModel::Select | QItemSelectionModel::Rows);

    const Table& table = m_modele->table();
    qint64 suspendus = 0;
    double indemnites = 0.0;
    for (qsizetype i = 0; i < table.size(); ++i) {
        suspendus += table.valeur(i, "Journees Suspendues").toLongLong();
        indemnites += table.valeur(i, "Total I.J.").toDouble();
    }
    m_totaux->setText(
        QStringLiteral("%1 — %2 — %3 d'indemnités journalières")
            .arg(pluriel(table.size(), QStringLiteral("période"), QStringLiteral("périodes")),
                 pluriel(suspendus, QStringLiteral("journée suspendue"), QStringLiteral("journées suspendues")),
                 enEuros(indemnites)));
}

void ListeSecuriteSociale::majTri()
{
    const bool recentsDabord = m_environnement.reglages.texte(Cle::SecuriteSocialeSens) == QStringLiteral("DESC");
    m_tri->setText(recentsDabord ? QStringLiteral("Les plus récents d'abord")
                                 : QStringLiteral("Les plus anciens d'abord"));
}

void ListeSecuriteSociale::majBoutons()
{
    const int selection = int(idsSelectionnes().size());
    m_modifier->setEnabled(selection > 0);
    m_dupliquer->setEnabled(selection == 1);
    m_supprimer->setEnabled(selection > 0);
}

void ListeSecuriteSociale::ecrireCoche(int id, int colonne, bool coche)
{
    if (!m_modeleSS)
        return;
    if (colonne == ModeleSecuriteSociale::Rembourse)
        m_modeleSS->enregistreLeCocheRemboursePourId(id, coche);
    else if (colonne == ModeleSecuriteSociale::Mutuelle)
        m_modeleSS->enregistreLeCocheRembourseMutuellePourId(id, coche);
    else if (colonne == ModeleSecuriteSociale::Ald)
        m_modeleSS->enregistreLeCocheAldPourId(id, coche);
    emit ecrit();
}

QList<int> ListeSecuriteSociale::idsSelectionnes() const
{
    QList<int> ids;
    for (const QModelIndex& index : m_table->selectionModel()->selectedRows())
        ids << m_modele->idPeriode(index.row());
    std::sort(ids.begin(), ids.end());
    return ids;
}

bool ListeSecuriteSociale::eventFilter(QObject* objet, QEvent* evenement)
{
    // The Delete key on the list deletes the selected records.
    if (objet == m_table && evenement->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(evenement)->key() == Qt::Key_Delete) {
        supprimerSelection();
        return true;
    }
    return QWidget::eventFilter(objet, evenement);
}

bool ListeSecuriteSociale::documentOuvert()
{
    if (m_modeleSS)
        return true;
    m_environnement.dialogues.information(kTitreAlertes, ControleurApplication::messageSansDocument(),
                                          QStringLiteral("Fermer"));
    return false;
}

void ListeSecuriteSociale::supprimerSelection()
{
    const QList<int> ids = idsSelectionnes();
    if (ids.isEmpty() || !documentOuvert())
        return;
    if (m_environnement.reglages.booleen(Cle::DeleteAlerts)) {
        const QString message =
            ids.size() == 1
                ? QStringLiteral("Souhaitez-vous réellement supprimer la période sélectionnée ?")
                : QStringLiteral("Souhaitez-vous réellement supprimer les %1 périodes sélectionnées ?").arg(ids.size());
        if (m_environnement.dialogues.question(kTitreAlertes, message,
                                               {QStringLiteral("Oui"), QStringLiteral("Non")}) != QStringLiteral("Oui"))
            return;
    }
    for (const int id : ids)
        m_modeleSS->supprimeSecuriteSociale(id);
    m_table->clearSelection();
    recharger();
    emit ecrit();
}

} // namespace corvane::app
