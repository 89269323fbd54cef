#include "store/Reglages.h"

#include <QStandardPaths>

namespace corvane {

namespace {

struct Definition
{
    Reglages::Cle cle;
    const char* nom;
    QVariant defaut;
};

// Colours are kept as "#rrggbb" texts.
const QList<Definition>& definitions()
{
    using C = Reglages::Cle;
    static const QList<Definition> table{
        {C::Launches, "Launches", 0},
        {C::FichiersRoot, "Fichiers_Root", QString()},
        {C::FichiersRootPath, "Fichiers_RootPath", 0},
        {C::FichierPath, "fichierPath", QString()},
        {C::PrefsDemarrage, "prefsDemarrage", 1},
        {C::PrefsStockage, "prefsStockage", QString()},
        {C::OpenLastTab, "OpenLastTab", true},
        {C::LastTabUsed, "LastTabUsed", 0},
        {C::ShowAssistant, "ShowAssistant", 0},
        {C::AlerteActualisationDebut, "Configuration_AlerteActualisationDebut", 28},
        {C::AlerteActualisationFin, "Configuration_AlerteActualisationFin", 7},
        {C::FichierSauvegardeJours, "Configuration_FichierSauvegardeJours", 30},
        {C::FichierSauvegardeAuto, "Configuration_FichierSauvegardeAuto", true},
        {C::FichierSauvegardeNom, "Configuration_FichierSauvegardeNom", true},
        {C::FichierSauvegardeDate, "Configuration_FichierSauvegardeDate", true},
        {C::FichierSauvegardePrefixe, "Configuration_FichierSauvegardePrefixe", true},
        {C::SaveDateFormat, "SaveDateFormat", 0},
        {C::ActiverAlertes, "Configuration_ActiverAlertes", true},
        {C::ContractsAlertRate, "ContractsAlertRate", 0},
        {C::EquilibrerColonnes, "Prefs_Equilibrer_Colonnes", false},
        {C::ContratsMemoriserEmployeurParDefaut, "Prefs_ContratsMemoriserEmployeurParDefaut", true},
        {C::DeleteAlerts, "Preferences_DeleteAlerts", true},
        {C::ProfilLimiteAge, "profilLimiteAge", 60},
        {C::ContratsSens, "Contrats_Sens", QStringLiteral("ASC")},
        {C::ContratsColonnes, "Contrats_Colonnes", QByteArray()}, // the list's header state
        {C::TdbSens, "TDB_Sens", QStringLiteral("ASC")},
        {C::PoleEmploiHistoriqueSens, "PoleEmploiHistorique_Sens", QStringLiteral("ASC")},
        {C::PoleEmploiImpressionsCompteRendu, "PoleEmploi_ImpressionsCompteRendu", true},
        {C::PoleEmploiImpressionsAllocations, "PoleEmploi_ImpressionsAllocations", true},
        {C::PoleEmploiImpressionsPeriode, "PoleEmploi_ImpressionsPeriode", true},
        {C::PoleEmploiImpressionsHeures, "PoleEmploi_ImpressionsHeures", true},
        {C::ContratsImpressionsListe, "Contrats_ImpressionsListe", true},
        {C::TdbImpressionsCompteRendu, "TDB_ImpressionsCompteRendu", true},
        {C::TdbImpressionsJourJ, "TDB_ImpressionsJourJ", true},
        {C::TdbImpressionsListeContrats, "TDB_ImpressionsListeContrats", true},
        {C::TdbImpressionsJoursHeures, "TDB_ImpressionsJoursHeures", true},
        // The dashboard's "Période" figures and list stop at the current period's end instead of today.
        {C::TdbBloquePeriode, "TDB_BloquePeriode", false},
        {C::TdbColonnes, "TDB_Colonnes", QByteArray()}, // the dashboard list's header state
        {C::ProfilImpressionsPhoto, "Profil_ImpressionsPhoto", true},
        {C::ProfilImpressionsEtatCivil, "Profil_ImpressionsEtatCivil", true},
        {C::ProfilImpressionsPersonnelles, "Profil_ImpressionsPersonnelles", true},
        {C::ProfilImpressionsAdministratives, "Profil_ImpressionsAdministratives", true},
        {C::ProfilImpressionsAe, "Profil_ImpressionsAE", true},
        {C::ProfilImpressionsRib, "Profil_ImpressionsRIB", true},
        {C::EmployeursImpressionsListe, "Employeurs_ImpressionsListe", true},
        {C::EmployeursImpressionsCumuls, "Employeurs_ImpressionsCumuls", true},
        {C::CouleursContratsGroupes, "couleursContratsGroupes", QStringLiteral("#3465a4")},
        {C::CouleursMontantsNegatifs, "couleursMontantsNegatifs", QStringLiteral("#800080")},
        {C::CouleursSecuriteSocialeTdb, "couleursSecuriteSocialeTDB", QStringLiteral("#800080")},
        {C::CouleursRegimeGeneral, "couleursRegimeGeneral", QStringLiteral("#800080")},
        {C::CouleursAutoEntrepreneur, "couleursAutoEntrepreneur", QStringLiteral("#800080")},
        {C::Apparence, "Apparence", QStringLiteral("systeme")},
        {C::Files, "Files", QStringList()},
        {C::FilesLastPath, "filesLastPath", QString()},
        {C::EmployeursColonnes, "Employeurs_Colonnes", QByteArray()}, // header states of the lists
        {C::ContratsModelesColonnes, "ContratsModeles_Colonnes", QByteArray()},
        {C::PeriodesColonnes, "Periodes_Colonnes", QByteArray()},
        {C::SecuriteSocialeImpressionsVerificationDroits, "SecuriteSociale_ImpressionsVerificationDroits", true},
        {C::SecuriteSocialeImpressionsListePeriodes, "SecuriteSociale_ImpressionsListePeriodes", true},
        // The social-security list: newest first, its span filter's item, its kind filter (on, kind id).
        {C::SecuriteSocialeSens, "gridSsSortOrder", QStringLiteral("DESC")},
        {C::SecuriteSocialeDatesTri, "SS_DatesTri", 0},
        {C::SecuriteSocialeTypeTrie, "SS_Type_Sorted_IsSorted", false},
        {C::SecuriteSocialeTypeIndex, "SS_Type_Sorted_Index", 0},
        {C::SecuriteSocialeColonnes, "SecuriteSociale_Colonnes", QByteArray()},
        // Paid leave: the period pop-up's item (current leave year, free period), the contract
        // list's header (widths, order, sort), the history's order and header, the report's parts.
        {C::CongesDatesTri, "Conges_DatesTri", 0},
        {C::CongesColonnes, "gridCongesSortOrder", QByteArray()},
        {C::CongesHistoriqueSens, "CongesHistorique_Sens", QStringLiteral("ASC")},
        {C::CongesHistoriqueColonnes, "gridCongesSpectaclesSortOrder", QByteArray()},
        {C::CongesImpressionsCompteRendu, "Conges_ImpressionsCompteRendu", true},
        {C::CongesImpressionsListeContrats, "Conges_ImpressionsListeContrats", true},
        {C::CongesSiteInternet, "Conges_SiteInternet", QStringLiteral("https://conges-spectacles.audiens.org/")},
        // Income tax: the period pop-up's item, the switches, the lists' headers, the history's
        // order and header, the report's parts.
        {C::FiscaliteDatesTri, "Fiscalite_DatesTri", 0},
        {C::FiscaliteToutArrondir, "Fiscalite_ToutArrondir", false},
        {C::FiscalitePrimeEmploi, "Fiscalite_PrimeEmploi", false},
        {C::FiscaliteAutoEntrepreneur, "Fiscalite_AutoEntrepreneur", false},
        {C::FiscaliteAeLimiter, "Fiscalite_AE_Limiter", false},
        {C::FiscaliteAePeriode, "Fiscalite_AE_Periode", 0},
        {C::FiscaliteListeColonnes, "gridFiscaliteListeSortOrder", QByteArray()},
        {C::FiscaliteEmployeursColonnes, "gridFiscaliteTotauxEmployeursSortOrder", QByteArray()},
        {C::FiscaliteHistoriqueSens, "FiscaliteHistorique_Sens", QStringLiteral("ASC")},
        {C::FiscaliteHistoriqueColonnes, "gridTaxPaymentsHistorySortOrder", QByteArray()},
        {C::FiscaliteImpressionsCompteRendu, "Fiscalite_ImpressionsCompteRendu", true},
        {C::FiscaliteImpressionsTotauxParEmployeurs, "Fiscalite_ImpressionsTotauxParEmployeurs", true},
        {C::FiscaliteImpressionsListeContrats, "Fiscalite_ImpressionsListeContrats", true},
        {C::AutoEntrepreneurSiteInternet, "AutoEntrepreneur_SiteInternet",
         QStringLiteral("https://www.autoentrepreneur.urssaf.fr/")},
        // The maps service: OpenStreetMap's tiles, Nominatim's geocoding, OSRM's driving routes.
        // The script is the one that asks the services ("": the built-in one for these); OSM has no
        // traffic layer. "{adresse}", "{depart}" and "{arrivee}" (longitude,latitude) are filled in.
        {C::CartesScript, "Cartes_Script", QString()},
        {C::CartesTuiles, "Cartes_Tuiles", QStringLiteral("https://tile.openstreetmap.org/{z}/{x}/{y}.png")},
        {C::CartesTrafic, "Cartes_Trafic", QString()},
        {C::CartesGeocodeur, "Cartes_Geocodeur",
         QStringLiteral("https://nominatim.openstreetmap.org/search?format=json&limit=1&q={adresse}")},
        {C::CartesItineraire, "Cartes_Itineraire",
         QStringLiteral("https://router.project-osrm.org/route/v1/driving/{depart};{arrivee}"
                        "?overview=full&geometries=geojson")},
        {C::CartesMention, "Cartes_Mention", QStringLiteral("© les contributeurs d'OpenStreetMap")},
        // The expenses list: its sort word (applied inverted: "ASC" lists the newest first), its
        // span filter ("TOUS", "PERIODE", "ANNEE"), its category (0 for all), and the report's parts.
        {C::FraisSens, "fraisClassementGrilleFrais", QStringLiteral("ASC")},
        {C::FraisFiltre, "Frais_Filtre", QStringLiteral("TOUS")},
        {C::FraisCategorie, "Frais_Categorie", 0},
        {C::FraisColonnes, "Frais_Colonnes", QByteArray()},
        {C::FraisImpressionsListe, "Frais_ImpressionsListe", true},
        {C::FraisImpressionsCategories, "Frais_ImpressionsCategories", true},
        {C::DroitsVoisinsImpressionsCompteRendu, "DroitsVoisins_ImpressionsCompteRendu", true},
        {C::DroitsVoisinsImpressionsListeVersements, "DroitsVoisins_ImpressionsListeVersements", true},
        // The neighbouring-rights list: one body's payments (on, body id), newest first.
        {C::DroitsVoisinsTriParOrganisme, "DvIsSortedByOrganisms", false},
        {C::DroitsVoisinsOrganisme, "DvSortedOrganism", 0},
        {C::DroitsVoisinsSens, "gridDvSortOrder", QStringLiteral("DESC")},
        {C::DroitsVoisinsColonnes, "DroitsVoisins_Colonnes", QByteArray()},
        // The new-proposition window's last organiser (its name), discount and delay (their keys),
        // and charges (an amount); the list's header; where the user keeps the official forms.
        {C::PropositionsEmployeur, "Propositions_Employer", QString()},
        {C::PropositionsRemise, "Propositions_Discount", 1},
        {C::PropositionsDelai, "Propositions_Delay", 0},
        {C::PropositionsCharges, "Propositions_Tax", 0.0},
        {C::PropositionsColonnes, "Propositions_Colonnes", QByteArray()},
        {C::FormulairesOfficielsDossier, "Formulaires_Dossier", QString()},
    };
    return table;
}

const Definition& definition(Reglages::Cle cle)
{
    for (const Definition& d : definitions())
        if (d.cle == cle)
            return d;
    Q_UNREACHABLE();
}

} // namespace

Reglages::Reglages() : m_settings(std::make_unique<QSettings>(QStringLiteral("Corvane"), QStringLiteral("Corvane"))) {}

Reglages::Reglages(const QString& fichierIni)
    : m_settings(std::make_unique<QSettings>(fichierIni, QSettings::IniFormat))
{
}

QString Reglages::nom(Cle cle)
{
    return QString::fromLatin1(definition(cle).nom);
}

QVariant Reglages::defaut(Cle cle)
{
    return definition(cle).defaut;
}

QVariant Reglages::valeur(Cle cle) const
{
    const Definition& d = definition(cle);
    const QVariant lue = m_settings->value(QString::fromLatin1(d.nom), d.defaut);
    // An INI file gives back a one-element list as text.
    if (d.defaut.typeId() == QMetaType::QStringList && lue.typeId() == QMetaType::QString)
        return lue.toString().isEmpty() ? QStringList() : QStringList{lue.toString()};
    return lue;
}

void Reglages::ecrire(Cle cle, const QVariant& valeur)
{
    m_settings->setValue(nom(cle), valeur);
}

bool Reglages::contient(Cle cle) const
{
    return m_settings->contains(nom(cle));
}

void Reglages::retirer(Cle cle)
{
    m_settings->remove(nom(cle));
}

void Reglages::enregistrerDefauts()
{
    for (const Definition& d : definitions())
        if (!m_settings->contains(QString::fromLatin1(d.nom)))
            m_settings->setValue(QString::fromLatin1(d.nom), d.defaut);
    for (const char* obsolete : {"verifsMajEnLigne", "SMTP_Serveur", "SMTP_Port"})
        m_settings->remove(QString::fromLatin1(obsolete));
}

void Reglages::synchroniser()
{
    m_settings->sync();
}

} // namespace corvane
