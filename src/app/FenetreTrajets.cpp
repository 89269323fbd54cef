#include "app/FenetreTrajets.h"

#include "app/Environnement.h"
#include "app/VueCarte.h"
#include "exchange/PageCarte.h"
#include "records/Employeurs.h"
#include "records/Profil.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/Reglages.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

// The maps service may take a while: the route's figures are looked for during half a minute.
constexpr int kEssais = 120;
constexpr int kIntervalle = 250;
const QString kAttente = QStringLiteral("…");
const QString kAucun = QStringLiteral("—");
// What the route page writes into its body.
const QString kDistance = QStringLiteral("document.getElementById('body').getAttribute('distance')");
const QString kTemps = QStringLiteral("document.getElementById('body').getAttribute('temps');");
const QString kEtat = QStringLiteral("document.getElementById('body').getAttribute('etat')");

Employeur employeurDe(Document& document, int id)
{
    return Employeurs(document.base()).employeur(id).value_or(Employeur());
}

} // namespace

QString FenetreTrajets::titre()
{
    return QStringLiteral("Trajets");
}

FenetreTrajets* FenetreTrajets::ouvrir(Environnement& environnement, Document* document, int employeurId,
                                       QWidget* parent)
{
    if (!document || !document->estOuvert()) {
        environnement.dialogues.information(
            titre(),
            QStringLiteral(
                "Avant toute nouvelle opération, il est nécessaire de créer un nouveau fichier, ou d'en ouvrir un."),
            QStringLiteral("Fermer"));
        return nullptr;
    }
    auto* fenetre = new FenetreTrajets(environnement, *document, employeurId, parent);
    fenetre->setAttribute(Qt::WA_DeleteOnClose);
    fenetre->open();
    return fenetre;
}

FenetreTrajets::FenetreTrajets(Environnement& environnement, Document& document, int employeurId, QWidget* parent)
    : QDialog(parent), m_environnement(environnement), m_document(&document)
{
    setObjectName(QStringLiteral("fenetreTrajets"));
    setWindowTitle(titre());
    resize(920, 660);
    const FournisseurCarte fournisseur = FournisseurCarte::depuis(m_environnement.reglages);

    auto* mise = new QVBoxLayout(this);
    auto* barre = new QHBoxLayout;
    m_choixDomicile = new QRadioButton(QStringLiteral("Domicile"), this);
    m_choixDomicile->setObjectName(QStringLiteral("choixDomicile"));
    m_choixItineraire = new QRadioButton(QStringLiteral("Itinéraire vers"), this);
    m_choixItineraire->setObjectName(QStringLiteral("choixItineraire"));
    auto* choix = new QButtonGroup(this);
    choix->addButton(m_choixDomicile);
    choix->addButton(m_choixItineraire);
    m_destinations = new QComboBox(this);
    m_destinations->setObjectName(QStringLiteral("listeDestinations"));
    m_destinations->setMinimumContentsLength(24);
    m_trafic = new QCheckBox(QStringLiteral("Trafic"), this);
    m_trafic->setObjectName(QStringLiteral("caseTrafic"));
    m_trafic->setToolTip(QStringLiteral("L'état de la circulation, par-dessus la carte"));
    // A service without a traffic layer has nothing to show: no switch.
    m_trafic->setVisible(fournisseur.aUnTrafic());
    m_meteo = new QCheckBox(QStringLiteral("Météo"), this);
    m_meteo->setObjectName(QStringLiteral("caseMeteo"));
    barre->addWidget(m_choixDomicile);
    barre->addSpacing(8);
    barre->addWidget(m_choixItineraire);
    barre->addWidget(m_destinations);
    barre->addStretch(1);
    barre->addWidget(m_trafic);
    barre->addWidget(m_meteo);
    mise->addLayout(barre);

    m_legende = new QLabel(this);
    m_legende->setObjectName(QStringLiteral("legendeDestination"));
    m_legende->setTextInteractionFlags(Qt::TextSelectableByMouse);
    mise->addWidget(m_legende);

    m_vue = new VueCarte(this);
    mise->addWidget(m_vue, 1);

    auto* pied = new QHBoxLayout;
    m_resultats = new QWidget(this);
    auto* chiffres = new QHBoxLayout(m_resultats);
    chiffres->setContentsMargins(0, 0, 0, 0);
    m_distance = new QLabel(kAucun, m_resultats);
    m_distance->setObjectName(QStringLiteral("distance"));
    m_temps = new QLabel(kAucun, m_resultats);
    m_temps->setObjectName(QStringLiteral("temps"));
    for (QLabel* chiffre : {m_distance, m_temps}) {
        QFont gras = chiffre->font();
        gras.setBold(true);
        chiffre->setFont(gras);
        chiffre->setMinimumWidth(80);
    }
    chiffres->addWidget(new QLabel(QStringLiteral("Distance :"), m_resultats));
    chiffres->addWidget(m_distance);
    chiffres->addSpacing(16);
    chiffres->addWidget(new QLabel(QStringLiteral("Temps :"), m_resultats));
    chiffres->addWidget(m_temps);
    pied->addWidget(m_resultats);
    pied->addStretch(1);
    auto* boutons = new QDialogButtonBox(this);
    QPushButton* fermer = boutons->addButton(QStringLiteral("Fermer"), QDialogButtonBox::RejectRole);
    fermer->setObjectName(QStringLiteral("boutonFermer"));
    connect(boutons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    pied->addWidget(boutons);
    mise->addLayout(pied);

    lireProfil();
    remplirDestinations(employeurId);

    connect(m_vue, &VueCarte::chargementTermine, this, [this](bool) {
        if (m_carte == Carte::Itineraire)
            lireDistanceTemps(m_page, 0);
    });
    connect(m_choixDomicile, &QRadioButton::clicked, this, [this] { choisirCarte(Carte::Domicile); });
    connect(m_choixItineraire, &QRadioButton::clicked, this, [this] { choisirCarte(Carte::Itineraire); });
    connect(m_destinations, &QComboBox::activated, this, [this] { choisirCarte(Carte::Itineraire); });
    connect(m_trafic, &QCheckBox::toggled, this, [this] {
        if (m_carte == Carte::Itineraire)
            afficherPage();
    });
    connect(m_meteo, &QCheckBox::toggled, this, [this] {
        if (m_carte == Carte::Itineraire)
            afficherPage();
    });

    choisirCarte(destination() != 0 && employeurId != 0 ? Carte::Itineraire : Carte::Domicile);
}

void FenetreTrajets::lireProfil()
{
    Profil profil(m_document->base());
    if (!profil.initDepuisLaTableV4())
        return;
    const DonneesProfil& p = profil.donnees();
    m_domicile = adressePostale(p.adresse, p.codePostal, p.commune, p.pays);
    m_latitude = p.latitude;
    m_longitude = p.longitude;
}

void FenetreTrajets::remplirDestinations(int employeurId)
{
    m_destinations->clear();
    const Table employeurs = Employeurs(m_document->base()).listeLesEmployeurs();
    const int id = employeurs.colonne(QStringLiteral("Id"));
    const int nom = employeurs.colonne(QStringLiteral("Enseigne"));
    for (qsizetype rangee = 0; rangee < employeurs.size(); ++rangee)
        m_destinations->addItem(employeurs.valeur(rangee, nom).toString(), employeurs.valeur(rangee, id));
    if (m_destinations->count() == 0) {
        m_destinations->addItem(QStringLiteral("Aucun employeur"), 0);
        m_destinations->setEnabled(false);
        m_choixItineraire->setEnabled(false);
    }
    const int index = m_destinations->findData(employeurId);
    m_destinations->setCurrentIndex(index >= 0 ? index : 0);
}

int FenetreTrajets::destination() const
{
    return m_destinations->currentData().toInt();
}

void FenetreTrajets::choisirDestination(int employeurId)
{
    const int index = m_destinations->findData(employeurId);
    if (index < 0)
        return;
    m_destinations->setCurrentIndex(index);
    choisirCarte(Carte::Itineraire);
}

QString FenetreTrajets::adresseDestination() const
{
    if (!m_document || destination() == 0)
        return {};
    const Employeur e = employeurDe(*m_document, destination());
    return adressePostale(e.adresse, e.codePostal, e.commune);
}

void FenetreTrajets::choisirCarte(Carte carte)
{
    if (carte == Carte::Itineraire && destination() == 0)
        carte = Carte::Domicile;
    m_carte = carte;
    const bool itineraire = carte == Carte::Itineraire;
    (itineraire ? m_choixItineraire : m_choixDomicile)->setChecked(true);
    if (!itineraire) {
        // The switches belong to the route: the home map starts them afresh.
        const QSignalBlocker bloqueTrafic(m_trafic);
        const QSignalBlocker bloqueMeteo(m_meteo);
        m_trafic->setChecked(false);
        m_meteo->setChecked(false);
    }
    m_trafic->setEnabled(itineraire);
    m_meteo->setEnabled(itineraire);
    afficherPage();
}

void FenetreTrajets::afficherPage()
{
    ++m_page;
    const FournisseurCarte fournisseur = FournisseurCarte::depuis(m_environnement.reglages);
    // Without the embedded view the page, and so its figures, are in the browser.
    m_resultats->setVisible(VueCarte::integree() && m_carte == Carte::Itineraire);
    if (m_carte == Carte::Domicile) {
        m_legende->setText(m_domicile.isEmpty() ? QStringLiteral("Domicile : renseignez votre adresse dans le profil.")
                                                : QStringLiteral("Domicile : %1").arg(m_domicile));
        montrerResultat(kAucun, kAucun);
        m_vue->afficher(pageAdresse(fournisseur, m_domicile, m_latitude, m_longitude));
        return;
    }
    const Employeur e = employeurDe(*m_document, destination());
    Trajet trajet;
    trajet.domicile = m_domicile;
    trajet.latitude = m_latitude;
    trajet.longitude = m_longitude;
    trajet.destination = adressePostale(e.adresse, e.codePostal, e.commune);
    trajet.latitudeDestination = e.latitude;
    trajet.longitudeDestination = e.longitude;
    trajet.trafic = m_trafic->isChecked();
    trajet.meteo = m_meteo->isChecked();
    m_legende->setText(
        QStringLiteral("Destination : %1").arg(trajet.destination.isEmpty() ? e.raisonSociale : trajet.destination));
    montrerResultat(kAttente, kAttente);
    m_vue->afficher(pageItineraire(fournisseur, trajet));
}

void FenetreTrajets::lireDistanceTemps(int page, int essai)
{
    evaluerPourLaPage(page, kDistance, [this, page, essai](const QVariant& distance) {
        evaluerPourLaPage(page, kTemps, [this, page, essai, distance](const QVariant& temps) {
            if (!distance.toString().isEmpty())
                montrerResultat(distance.toString(), temps.toString());
            else
                attendreLaPage(page, essai);
        });
    });
}

void FenetreTrajets::attendreLaPage(int page, int essai)
{
    // Not there yet: the page may still be waiting for the service, or have given up.
    evaluerPourLaPage(page, kEtat, [this, page, essai](const QVariant& etat) {
        if (etat.toString() == QStringLiteral("erreur") || essai + 1 >= kEssais) {
            montrerResultat(kAucun, kAucun);
            return;
        }
        QTimer::singleShot(kIntervalle, this, [this, page, essai] {
            if (m_page == page)
                lireDistanceTemps(page, essai + 1);
        });
    });
}

void FenetreTrajets::evaluerPourLaPage(int page, const QString& script, std::function<void(const QVariant&)> suite)
{
    m_vue->evaluer(script, [this, page, suite = std::move(suite)](const QVariant& valeur) {
        // The view, and so this window, still exists; a newer page makes the answer stale.
        if (m_page == page)
            suite(valeur);
    });
}

void FenetreTrajets::montrerResultat(const QString& distance, const QString& temps)
{
    m_distance->setText(distance);
    m_temps->setText(temps);
}

} // namespace corvane::app
