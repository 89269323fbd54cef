#include "app/fiscalite/SectionFiscalite.h"

#include "app/ActionsRapport.h"
#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/MemoireColonnes.h"
#include "app/SitesInternet.h"
#include "app/fiscalite/GraphiqueFiscalite.h"
#include "app/fiscalite/RecapitulatifFiscalite.h"
#include "app/kit/ChampDate.h"
#include "app/kit/ModeleTableau.h"
#include "app/versements/FenetreVersements.h"
#include "exchange/ExportPdf.h"
#include "exchange/RapportsEnregistrements.h"
#include "regimes/Fiscalite.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

using Cle = Reglages::Cle;
using F = ModeleTableau::Format;

const QString kDebut = QStringLiteral("fiscalite_debut");
const QString kFin = QStringLiteral("fiscalite_fin");
// The pop-up's last item, "Période définie".
constexpr int kPeriodeDefinie = 6;

QCheckBox* interrupteur(QWidget* parent, const QString& texte, const QString& nom, const QString& bulle)
{
    auto* c = new QCheckBox(texte, parent);
    c->setObjectName(nom);
    c->setToolTip(bulle);
    return c;
}

} // namespace

SectionFiscalite::SectionFiscalite(Environnement& environnement, QWidget* parent)
    : PageSection(Section::Fiscalite, parent), m_environnement(environnement)
{
    contenu()->addWidget(construireBarre());

    contenu()->addWidget(construireListes(), 1);

    auto* bas = new QHBoxLayout;
    auto* historique = new QPushButton(QStringLiteral("Paiements d'impôts…"), this);
    historique->setObjectName(QStringLiteral("boutonHistoriqueFiscalite"));
    historique->setToolTip(QStringLiteral("Les impôts payés et les remboursements reçus"));
    bas->addWidget(historique);
    bas->addStretch(1);
    ajouterBoutonsRapport(
        bas, this, m_environnement,
        [this] {
            const ChoixImpressions choix = ChoixImpressions::depuis(m_environnement.reglages);
            const QString document = cheminDuFichier();
            const DemandeFiscalite d = demande();
            return RapportEcran{document, nomRapportFiscalite(Horloge::aujourdhui()), ExportPdf::titreAlertes(),
                                [document, choix, d](Rapport& rapport) {
                                    return composerRapportFiscalite(rapport, document, choix, d);
                                }};
        },
        QStringLiteral("Fiscalite"));
    contenu()->addLayout(bas);

    connect(historique, &QPushButton::clicked, this, &SectionFiscalite::afficherHistorique);
    connect(m_recapitulatif->limiter(), &QCheckBox::clicked, this, &SectionFiscalite::optionModifiee);
    connect(m_recapitulatif->periodeAE(), &QComboBox::activated, this, &SectionFiscalite::optionModifiee);
    connect(m_recapitulatif->site(), &QPushButton::clicked, this, [this] {
        ouvrirSite(m_environnement, Cle::AutoEntrepreneurSiteInternet, QStringLiteral("Auto-entrepreneur"));
    });
}

SectionFiscalite::~SectionFiscalite() = default;

QWidget* SectionFiscalite::construireBarre()
{
    auto* barre = new QWidget(this);
    auto* mise = new QVBoxLayout(barre);
    mise->setContentsMargins(0, 0, 0, 0);
    auto* ligne = new QHBoxLayout;
    m_periode = new QComboBox(barre);
    m_periode->setObjectName(QStringLiteral("periodeFiscalite"));
    m_periode->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_periode->addItems(Fiscalite::periodes(Horloge::aujourdhui()));
    m_dates = new QWidget(barre);
    auto* dates = new QHBoxLayout(m_dates);
    dates->setContentsMargins(0, 0, 0, 0);
    m_du = new ChampDate(m_dates);
    m_du->setObjectName(QStringLiteral("fiscaliteDu"));
    m_au = new ChampDate(m_dates);
    m_au->setObjectName(QStringLiteral("fiscaliteAu"));
    dates->addWidget(new QLabel(QStringLiteral("du"), m_dates));
    dates->addWidget(m_du);
    dates->addWidget(new QLabel(QStringLiteral("au"), m_dates));
    dates->addWidget(m_au);
    ligne->addWidget(new QLabel(QStringLiteral("Période :"), barre));
    ligne->addWidget(m_periode);
    ligne->addSpacing(8);
    ligne->addWidget(m_dates);
    ligne->addStretch(1);
    mise->addLayout(ligne);

    auto* options = new QHBoxLayout;
    m_arrondir =
        interrupteur(barre, QStringLiteral("Arrondir à l'euro"), QStringLiteral("caseToutArrondir"),
                     QStringLiteral("Chaque montant arrondi à l'euro le plus proche, comme sur la déclaration"));
    m_primeEmploi = interrupteur(barre, QStringLiteral("Prime pour l'emploi (heures à 0)"),
                                 QStringLiteral("casePrimeEmploi"), QStringLiteral("La ligne « Heures » indique 0"));
    m_autoEntrepreneur =
        interrupteur(barre, QStringLiteral("Auto-entrepreneur seulement"), QStringLiteral("caseAutoEntrepreneurSeul"),
                     QStringLiteral("Les contrats d'auto-entrepreneur seulement"));
    options->addWidget(m_arrondir);
    options->addSpacing(12);
    options->addWidget(m_primeEmploi);
    options->addSpacing(12);
    options->addWidget(m_autoEntrepreneur);
    options->addStretch(1);
    mise->addLayout(options);

    connect(m_periode, &QComboBox::activated, this, &SectionFiscalite::periodeChoisie);
    connect(m_du, &ChampDate::userDateChanged, this, &SectionFiscalite::datesModifiees);
    connect(m_au, &ChampDate::userDateChanged, this, &SectionFiscalite::datesModifiees);
    for (QCheckBox* c : {m_arrondir, m_primeEmploi, m_autoEntrepreneur})
        connect(c, &QCheckBox::clicked, this, &SectionFiscalite::optionModifiee);
    return barre;
}

QWidget* SectionFiscalite::construireListes()
{
    m_onglets = new QTabWidget(this);
    m_onglets->setObjectName(QStringLiteral("ongletsFiscalite"));

    // The figures to declare come first; they scroll in a small window.
    m_recapitulatif = new RecapitulatifFiscalite;
    auto* defilement = new QScrollArea(m_onglets);
    defilement->setObjectName(QStringLiteral("defilementRecapitulatif"));
    defilement->setWidgetResizable(true);
    defilement->setFrameShape(QFrame::NoFrame);
    defilement->setWidget(m_recapitulatif);
    m_onglets->addTab(defilement, QStringLiteral("Déclaration"));

    auto* pageContrats = new QWidget(m_onglets);
    auto* miseContrats = new QVBoxLayout(pageContrats);
    m_nombreContrats = new QLabel(pageContrats);
    m_nombreContrats->setObjectName(QStringLiteral("nombreContratsFiscalite"));
    m_contrats = new ModeleTableau({{QStringLiteral("Du"), QStringLiteral("Du SQLite"), F::DateSQLite},
                                    {QStringLiteral("Au"), QStringLiteral("Au"), F::DateAffichee},
                                    {QStringLiteral("Enseigne"), QStringLiteral("Enseigne")},
                                    {QStringLiteral("CP"), QStringLiteral("CP")},
                                    {QStringLiteral("Emploi"), QStringLiteral("Emploi")},
                                    {QStringLiteral("Jours"), QStringLiteral("Jours"), F::Entier},
                                    {QStringLiteral("Heures"), QStringLiteral("Heures"), F::Entier},
                                    {QStringLiteral("Net imposable"), QStringLiteral("Net imposable"), F::Montant}},
                                   this);
    QTableView* listeContrats = vueTriee(m_contrats, pageContrats, QStringLiteral("listeFiscaliteContrats"), 2);
    memoriserColonnes(listeContrats, m_environnement.reglages, Cle::FiscaliteListeColonnes);
    miseContrats->addWidget(m_nombreContrats);
    miseContrats->addWidget(listeContrats, 1);
    m_onglets->addTab(pageContrats, QStringLiteral("Contrats"));

    auto* pageEmployeurs = new QWidget(m_onglets);
    auto* miseEmployeurs = new QVBoxLayout(pageEmployeurs);
    m_employeurs = new ModeleTableau({{QStringLiteral("Employeurs"), QStringLiteral("Employeurs")},
                                      {QStringLiteral("Heures"), QStringLiteral("Heures"), F::Nombre},
                                      {QStringLiteral("Montants"), QStringLiteral("Montants"), F::Montant},
                                      {QStringLiteral("Prélevé à la source"), QStringLiteral("PAS"), F::Montant}},
                                     this);
    QTableView* listeEmployeurs = vueTriee(m_employeurs, pageEmployeurs, QStringLiteral("listeFiscaliteEmployeurs"), 0);
    memoriserColonnes(listeEmployeurs, m_environnement.reglages, Cle::FiscaliteEmployeursColonnes);
    m_totauxEmployeurs = new QLabel(pageEmployeurs);
    m_totauxEmployeurs->setObjectName(QStringLiteral("totauxFiscaliteEmployeurs"));
    m_totauxEmployeurs->setWordWrap(true);
    miseEmployeurs->addWidget(listeEmployeurs, 1);
    miseEmployeurs->addWidget(m_totauxEmployeurs);
    m_onglets->addTab(pageEmployeurs, QStringLiteral("Par employeur"));

    m_graphique = new GraphiqueFiscalite(m_onglets);
    m_onglets->addTab(m_graphique, QStringLiteral("Graphique"));
    return m_onglets;
}

QSet<QString> SectionFiscalite::tablesLues() const
{
    // Everything the declaration adds up, and the profile's self-employment and vehicle settings.
    return {"contrats",        "employeurs",        "emplois",
            "frais",           "assedichistorique", "congeshistorique",
            "securitesociale", "droitsvoisins",     "droitsvoisinsorganismes",
            "utilisateur"};
}

DemandeFiscalite SectionFiscalite::demande() const
{
    DemandeFiscalite d;
    const int index = m_periode->currentIndex();
    if (index == kPeriodeDefinie) {
        d.du = m_du->date();
        d.au = m_au->date();
    } else {
        d.annee = Horloge::aujourdhui().year() - qMax(0, index);
    }
    d.arrondir = m_arrondir->isChecked();
    d.primeEmploi = m_primeEmploi->isChecked();
    d.autoEntrepreneurSeul = m_autoEntrepreneur->isChecked();
    d.periodeAE = m_recapitulatif->limiter()->isChecked() ? m_recapitulatif->periodeAE()->currentIndex() : -1;
    return d;
}

void SectionFiscalite::recharger()
{
    Reglages& r = m_environnement.reglages;
    {
        const QSignalBlocker bloque(m_periode);
        // The years follow today's.
        const QStringList periodes = Fiscalite::periodes(Horloge::aujourdhui());
        for (int i = 0; i < periodes.size(); ++i)
            m_periode->setItemText(i, periodes.at(i));
        m_periode->setCurrentIndex(qBound(0, r.entier(Cle::FiscaliteDatesTri), kPeriodeDefinie));
    }
    m_dates->setVisible(m_periode->currentIndex() == kPeriodeDefinie);
    m_arrondir->setChecked(r.booleen(Cle::FiscaliteToutArrondir));
    m_primeEmploi->setChecked(r.booleen(Cle::FiscalitePrimeEmploi));
    m_autoEntrepreneur->setChecked(r.booleen(Cle::FiscaliteAutoEntrepreneur));
    m_recapitulatif->limiter()->setChecked(r.booleen(Cle::FiscaliteAeLimiter));
    m_recapitulatif->periodeAE()->setCurrentIndex(qBound(0, r.entier(Cle::FiscaliteAePeriode), 5));
    Document* doc = document();
    if (doc && doc->estOuvert()) {
        // The defined period's remembered dates, else this year.
        Fiscalite f(doc->base());
        const QDate du = f.retrouveDatePreferee(kDebut).date();
        const QDate au = f.retrouveDatePreferee(kFin).date();
        const int annee = Horloge::aujourdhui().year();
        const QSignalBlocker bloqueDu(m_du), bloqueAu(m_au);
        m_du->setDate(du.isValid() ? du : QDate(annee, 1, 1));
        m_au->setDate(au.isValid() ? au : QDate(annee, 12, 31));
    }
    calculer();
}

void SectionFiscalite::calculer()
{
    Document* doc = document();
    if (!doc || !doc->estOuvert()) {
        m_contrats->setTable({});
        m_employeurs->setTable({});
        m_recapitulatif->afficher(nullptr);
        m_graphique->setContrats({}, 0.0);
        m_nombreContrats->clear();
        m_totauxEmployeurs->clear();
        return;
    }
    Fiscalite f(doc->base());
    demande().calculer(f);
    m_contrats->setTable(f.contrats);
    m_employeurs->setTable(f.employeurs);
    m_recapitulatif->afficher(&f);
    m_graphique->setContrats(f.contrats, f.maxNets);
    const qsizetype n = f.contrats.size();
    m_nombreContrats->setText(n == 0   ? QStringLiteral("Aucun contrat effectué sur la période.")
                              : n == 1 ? QStringLiteral("1 contrat effectué sur la période :")
                                       : QStringLiteral("%1 contrats effectués sur la période :").arg(n));
    double nets = 0.0, prelevements = 0.0;
    for (qsizetype i = 0; i < f.employeurs.size(); ++i) {
        nets += f.employeurs.valeur(i, "Montants").toDouble();
        prelevements += f.employeurs.valeur(i, "PAS").toDouble();
    }
    m_totauxEmployeurs->setText(
        QStringLiteral("Total : %1 nets, dont %2 prélevés à la source.").arg(enEuros(nets), enEuros(prelevements)));
}

void SectionFiscalite::periodeChoisie()
{
    m_environnement.reglages.ecrire(Cle::FiscaliteDatesTri, m_periode->currentIndex());
    m_dates->setVisible(m_periode->currentIndex() == kPeriodeDefinie);
    if (m_periode->currentIndex() == kPeriodeDefinie)
        m_du->setFocus();
    calculer();
}

void SectionFiscalite::datesModifiees()
{
    Document* doc = document();
    if (!doc || !doc->estOuvert())
        return;
    Fiscalite f(doc->base());
    f.enregistreDatePreferee(kDebut, m_du->date());
    f.enregistreDatePreferee(kFin, m_au->date());
    calculer();
}

void SectionFiscalite::optionModifiee()
{
    Reglages& r = m_environnement.reglages;
    r.ecrire(Cle::FiscaliteToutArrondir, m_arrondir->isChecked());
    r.ecrire(Cle::FiscalitePrimeEmploi, m_primeEmploi->isChecked());
    r.ecrire(Cle::FiscaliteAutoEntrepreneur, m_autoEntrepreneur->isChecked());
    r.ecrire(Cle::FiscaliteAeLimiter, m_recapitulatif->limiter()->isChecked());
    r.ecrire(Cle::FiscaliteAePeriode, m_recapitulatif->periodeAE()->currentIndex());
    calculer();
}

FenetreVersements* SectionFiscalite::afficherHistorique()
{
    Document* doc = document();
    if (!doc || !doc->estOuvert()) {
        m_environnement.dialogues.information(QStringLiteral("Gestion des versements"),
                                              ControleurApplication::messageSansDocument(), QStringLiteral("Fermer"));
        return nullptr;
    }
    if (!m_historique)
        m_historique = new FenetreVersements(m_environnement, FenetreVersements::Genre::Fiscalite, this);
    m_historique->setDocument(doc);
    m_historique->show();
    m_historique->raise();
    m_historique->activateWindow();
    return m_historique;
}

} // namespace corvane::app
