#include "app/conges/SectionConges.h"

#include "app/ActionsRapport.h"
#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/MemoireColonnes.h"
#include "app/SitesInternet.h"
#include "app/kit/ChampDate.h"
#include "app/kit/GrilleValeurs.h"
#include "app/kit/ModeleTableau.h"
#include "app/versements/FenetreVersements.h"
#include "exchange/ExportPdf.h"
#include "exchange/RapportConges.h"
#include "exchange/RapportsEnregistrements.h"
#include "regimes/Conges.h"
#include "store/Dates.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableView>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

using Cle = Reglages::Cle;
using F = ModeleTableau::Format;

const QString kDebut = QStringLiteral("conges_debut");
const QString kFin = QStringLiteral("conges_fin");
const QString kComplet = QStringLiteral("COMPLET");
const QString kPeriode = QStringLiteral("PERIODE");

QPushButton* bouton(QWidget* parent, const QString& texte, const QString& nom)
{
    auto* b = new QPushButton(texte, parent);
    b->setObjectName(nom);
    return b;
}

} // namespace

SectionConges::SectionConges(Environnement& environnement, QWidget* parent)
    : PageSection(Section::Conges, parent), m_environnement(environnement)
{
    contenu()->addWidget(construireBarre());

    // The estimate above the list, its lines in two columns, so that the list has the width.
    auto* estimation = new QGroupBox(QStringLiteral("Estimation"), this);
    auto* miseEstimation = new QVBoxLayout(estimation);
    m_resume = new GrilleValeurs(estimation);
    m_resume->setObjectName(QStringLiteral("resumeConges"));
    m_resume->setColonnes(2);
    m_resume->setTexteVide(QStringLiteral("Aucune journée retenue sur la période : seuls comptent les contrats "
                                          "effectués et soumis aux Congés Spectacles, commencés et finis dans la "
                                          "période."));
    miseEstimation->addWidget(m_resume);
    auto* note = new QLabel(QStringLiteral("2,5 jours acquis par 24 journées retenues, 30 jours au plus ; indemnité "
                                           "brute de 10 % des salaires bruts, nette estimée à 8 %."),
                            estimation);
    note->setWordWrap(true);
    note->setEnabled(false);
    miseEstimation->addWidget(note);
    contenu()->addWidget(estimation);

    m_nombreContrats = new QLabel(this);
    m_nombreContrats->setObjectName(QStringLiteral("nombreContratsConges"));
    contenu()->addWidget(m_nombreContrats);
    m_contrats = new ModeleTableau({{QStringLiteral("Du"), QStringLiteral("Du"), F::DateAffichee},
                                    {QStringLiteral("Au"), QStringLiteral("Au"), F::DateAffichee},
                                    {QStringLiteral("Enseigne"), QStringLiteral("Enseigne")},
                                    {QStringLiteral("CP"), QStringLiteral("CP")},
                                    {QStringLiteral("Emploi"), QStringLiteral("Emploi")},
                                    {QStringLiteral("Heures"), QStringLiteral("Heures"), F::Entier},
                                    {QStringLiteral("Jours"), QStringLiteral("Jours"), F::Entier},
                                    {QStringLiteral("Salaire brut"), QStringLiteral("Salaire brut"), F::Montant},
                                    {QStringLiteral("Salaire net"), QStringLiteral("Salaire net"), F::Montant},
                                    {QStringLiteral("Net à payer"), QStringLiteral("Salaire net à payer"), F::Montant}},
                                   this);
    m_liste = vueTriee(m_contrats, this, QStringLiteral("listeCongesContrats"), 2);
    memoriserColonnes(m_liste, m_environnement.reglages, Cle::CongesColonnes);
    contenu()->addWidget(m_liste, 1);

    auto* bas = new QHBoxLayout;
    m_identifiant = new QLabel(this);
    m_identifiant->setObjectName(QStringLiteral("identifiantConges"));
    m_identifiant->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_copier = bouton(this, QStringLiteral("Copier le numéro"), QStringLiteral("boutonCopierIdentifiantConges"));
    m_copier->setToolTip(QStringLiteral("Copie votre numéro Congés Spectacles, pour le coller sur le site."));
    bas->addWidget(m_identifiant);
    bas->addWidget(m_copier);
    bas->addStretch(1);
    ajouterBoutonsRapport(
        bas, this, m_environnement,
        [this] {
            const ChoixImpressions choix = ChoixImpressions::depuis(m_environnement.reglages);
            const QString document = cheminDuFichier();
            const QString type = typeConges();
            const QDate du = m_du->date(), au = m_au->date();
            return RapportEcran{document, nomRapportConges(Horloge::aujourdhui()), ExportPdf::titreAlertes(),
                                [document, choix, type, du, au](Rapport& rapport) {
                                    return composerRapportConges(rapport, document, choix, type, du, au);
                                }};
        },
        QStringLiteral("Conges"));
    contenu()->addLayout(bas);

    connect(m_copier, &QPushButton::clicked, this,
            [this] { QApplication::clipboard()->setText(m_identifiant->property("numero").toString()); });
    majIdentifiant();
}

SectionConges::~SectionConges() = default;

QWidget* SectionConges::construireBarre()
{
    auto* barre = new QWidget(this);
    auto* ligne = new QHBoxLayout(barre);
    ligne->setContentsMargins(0, 0, 0, 0);
    m_periode = new QComboBox(barre);
    m_periode->setObjectName(QStringLiteral("periodeConges"));
    m_periode->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_periode->addItems({QString(), QStringLiteral("Période choisie")});
    // The two dates and their labels, shown for the chosen period only.
    m_dates = new QWidget(barre);
    auto* dates = new QHBoxLayout(m_dates);
    dates->setContentsMargins(0, 0, 0, 0);
    m_du = new ChampDate(m_dates);
    m_du->setObjectName(QStringLiteral("congesDu"));
    m_au = new ChampDate(m_dates);
    m_au->setObjectName(QStringLiteral("congesAu"));
    dates->addWidget(new QLabel(QStringLiteral("du"), m_dates));
    dates->addWidget(m_du);
    dates->addWidget(new QLabel(QStringLiteral("au"), m_dates));
    dates->addWidget(m_au);
    auto* historique = bouton(barre, QStringLiteral("Versements reçus…"), QStringLiteral("boutonHistoriqueConges"));
    historique->setToolTip(QStringLiteral("Les indemnités que la caisse vous a versées"));
    auto* site = bouton(barre, QStringLiteral("Site des Congés Spectacles"), QStringLiteral("boutonSiteConges"));
    site->setToolTip(QStringLiteral("Ouvre l'espace des bénéficiaires dans votre navigateur"));

    ligne->addWidget(new QLabel(QStringLiteral("Période :"), barre));
    ligne->addWidget(m_periode);
    ligne->addSpacing(8);
    ligne->addWidget(m_dates);
    ligne->addStretch(1);
    ligne->addWidget(historique);
    ligne->addWidget(site);

    connect(m_periode, &QComboBox::activated, this, &SectionConges::periodeChoisie);
    connect(m_du, &ChampDate::userDateChanged, this, &SectionConges::datesModifiees);
    connect(m_au, &ChampDate::userDateChanged, this, &SectionConges::datesModifiees);
    connect(historique, &QPushButton::clicked, this, &SectionConges::afficherHistorique);
    connect(site, &QPushButton::clicked, this,
            [this] { ouvrirSite(m_environnement, Cle::CongesSiteInternet, QStringLiteral("Congés Spectacles")); });
    return barre;
}

QSet<QString> SectionConges::tablesLues() const
{
    // The contracts with their employers and jobs, and the profile's fund number.
    return {"contrats", "employeurs", "emplois", "utilisateur"};
}

QString SectionConges::typeConges() const
{
    return m_periode->currentIndex() == 1 ? kPeriode : kComplet;
}

void SectionConges::majPeriodes()
{
    const auto annee = Conges::anneeDeConges(Horloge::aujourdhui());
    m_periode->setItemText(0, QStringLiteral("Année de congés en cours (%1 – %2)")
                                  .arg(Dates::versAffichage(annee.first), Dates::versAffichage(annee.second)));
}

void SectionConges::recharger()
{
    majPeriodes();
    {
        const QSignalBlocker bloque(m_periode);
        m_periode->setCurrentIndex(qBound(0, m_environnement.reglages.entier(Cle::CongesDatesTri), 1));
    }
    m_dates->setVisible(m_periode->currentIndex() == 1);
    Document* doc = document();
    if (doc && doc->estOuvert()) {
        // The remembered dates of the chosen period, else the current leave year.
        Conges conges(doc->base());
        const auto annee = Conges::anneeDeConges(Horloge::aujourdhui());
        const QDate du = conges.retrouveDatePreferee(kDebut).date();
        const QDate au = conges.retrouveDatePreferee(kFin).date();
        const QSignalBlocker bloqueDu(m_du), bloqueAu(m_au);
        m_du->setDate(du.isValid() ? du : annee.first);
        m_au->setDate(au.isValid() ? au : annee.second);
    }
    majIdentifiant();
    calculer();
}

void SectionConges::calculer()
{
    Document* doc = document();
    // Nothing is computed without a document.
    if (!doc || !doc->estOuvert()) {
        m_contrats->setTable({});
        m_resume->setLignes({});
        m_nombreContrats->clear();
        return;
    }
    Conges conges(doc->base());
    const Conges::Resultat r = conges.congesSpectacles(typeConges(), m_du->date(), m_au->date());
    m_contrats->setTable(r.contrats);
    m_resume->setLignes(r.resume);
    const qsizetype n = r.contrats.size();
    m_nombreContrats->setText(n == 0 ? QStringLiteral("Aucun contrat retenu du %1 au %2.")
                                           .arg(Dates::versAffichage(r.du), Dates::versAffichage(r.au))
                              : n == 1 ? QStringLiteral("1 contrat retenu du %1 au %2 :")
                                             .arg(Dates::versAffichage(r.du), Dates::versAffichage(r.au))
                                       : QStringLiteral("%1 contrats retenus du %2 au %3 :")
                                             .arg(n)
                                             .arg(Dates::versAffichage(r.du), Dates::versAffichage(r.au)));
}

void SectionConges::periodeChoisie()
{
    m_environnement.reglages.ecrire(Cle::CongesDatesTri, m_periode->currentIndex());
    m_dates->setVisible(m_periode->currentIndex() == 1);
    if (m_periode->currentIndex() == 1)
        m_du->setFocus();
    calculer();
}

void SectionConges::datesModifiees()
{
    Document* doc = document();
    if (!doc || !doc->estOuvert())
        return;
    // Every change of either date is remembered in the document.
    Conges conges(doc->base());
    conges.enregistreDatePreferee(kDebut, m_du->date());
    conges.enregistreDatePreferee(kFin, m_au->date());
    calculer();
}

void SectionConges::majIdentifiant()
{
    Document* doc = document();
    const QString numero =
        doc && doc->estOuvert()
            ? doc->base().texte(QStringLiteral("SELECT u_conges_spectacles FROM utilisateur WHERE u_id = 1;")).trimmed()
            : QString();
    m_identifiant->setProperty("numero", numero);
    m_identifiant->setText(numero.isEmpty() ? QStringLiteral("Aucun numéro Congés Spectacles dans votre profil.")
                                            : QStringLiteral("N° Congés Spectacles : %1").arg(numero));
    m_copier->setEnabled(!numero.isEmpty());
}

FenetreVersements* SectionConges::afficherHistorique()
{
    Document* doc = document();
    if (!doc || !doc->estOuvert()) {
        m_environnement.dialogues.information(QStringLiteral("Gestion des versements"),
                                              ControleurApplication::messageSansDocument(), QStringLiteral("Fermer"));
        return nullptr;
    }
    if (!m_historique)
        m_historique = new FenetreVersements(m_environnement, FenetreVersements::Genre::Conges, this);
    // Moved to the document shown each time it is opened.
    m_historique->setDocument(doc);
    m_historique->show();
    m_historique->raise();
    m_historique->activateWindow();
    return m_historique;
}

} // namespace corvane::app
