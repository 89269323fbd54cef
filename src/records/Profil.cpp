#include "records/Profil.h"

#include "store/Dates.h"
#include "store/Horloge.h"

#include <sqlite3.h>

namespace corvane {

namespace {

QString montant(double valeur)
{
    return QString::asprintf("%2.2f", valeur);
}

} // namespace

Profil::Profil(const QString& chemin) : Intermittent(chemin) {}

const QStringList& Profil::nomsDesColonnes()
{
    static const QStringList noms =
        QStringLiteral(
            "u_nom, u_prenom, u_pseudonyme, u_telephone, u_nir, u_naissance, u_adresse, u_codepostal, u_commune, "
            "u_emploi_id, u_identifiant_assedic, u_date_debut_dossier, u_conges_spectacles, u_guso, u_civilite_id, "
            "u_audiens, u_email, u_lieu_naissance, u_nationalite, u_pays, u_fax, u_photo, u_srj_valide, u_taux_valide, "
            "u_abattement, u_periode_en_cours, u_nbre_enfants, u_carte_identite, u_permis_conduire, "
            "u_telephone_mobile, u_rib_etablissement, u_rib_guichet, u_rib_compte, u_rib_cle, u_web, "
            "u_autoentrepreneur_flag, u_autoentrepreneur_periode, u_ae_prelevementliberatoire, u_ae_categoriepro, "
            "u_vehicule_type, u_vehicule_puissance, u_poleemploi_password, u_latitude, u_longitude, "
            "u_conges_password, u_ae_siret, u_ae_password, u_sacem, u_ae_activite, u_rib_iban, u_pas")
            .split(QStringLiteral(", "));
    return noms;
}

bool Profil::initDepuisLaTableV4()
{
    m_colonnes.clear();
    m_donnees = DonneesProfil();
    {
        Requete r(m_db, QStringLiteral("SELECT %1 FROM utilisateur WHERE u_id = 1;").arg(nomsDesColonnes().join(", ")));
        if (r.estPreparee()) {
            if (!r.suivante())
                return false;
            m_colonnes = r.ligne();
        }
    }
    if (m_colonnes.isEmpty()) {
        // A document that the upgrade pass has not seen yet lacks its last columns:
        // read what is there, the others keep their defaults.
        Requete r(m_db, QStringLiteral("SELECT * FROM utilisateur WHERE u_id = 1;"));
        if (!r.suivante())
            return false;
        // The columns the upgrade pass adds read as the defaults it gives them.
        static const Ligne ajouteesParLaMiseAJour{{"u_rib_iban", QStringLiteral("")}, {"u_pas", 0.0}};
        const Ligne tout = r.ligne();
        for (const QString& nom : nomsDesColonnes())
            m_colonnes.insert(nom, tout.contains(nom) ? tout.value(nom) : ajouteesParLaMiseAJour.value(nom));
    }

    const Ligne& c = m_colonnes;
    auto texte = [&c](const char* nom) { return c.value(QLatin1String(nom)).toString(); };
    auto entier = [&c](const char* nom, int defaut) {
        const QVariant v = c.value(QLatin1String(nom));
        return v.isValid() ? v.toInt() : defaut;
    };
    auto reel = [&c](const char* nom) { return c.value(QLatin1String(nom)).toDouble(); };
    DonneesProfil& d = m_donnees;
    d.civiliteId = entier("u_civilite_id", 1);
    d.nom = texte("u_nom");
    d.prenom = texte("u_prenom");
    d.pseudonyme = texte("u_pseudonyme");
    d.naissance = Dates::depuisSQLite(texte("u_naissance"));
    d.lieuNaissance = texte("u_lieu_naissance");
    d.nationalite = texte("u_nationalite");
    d.nombreEnfants = entier("u_nbre_enfants", 0);
    d.photo = texte("u_photo");
    d.adresse = texte("u_adresse");
    d.codePostal = texte("u_codepostal");
    d.commune = texte("u_commune");
    d.pays = texte("u_pays");
    d.telephone = texte("u_telephone");
    d.telephoneMobile = texte("u_telephone_mobile");
    d.fax = texte("u_fax");
    d.email = texte("u_email");
    d.web = texte("u_web");
    d.latitude = reel("u_latitude");
    d.longitude = reel("u_longitude");
    d.emploiId = entier("u_emploi_id", 1);
    d.dateDebutDossier = Dates::depuisSQLite(texte("u_date_debut_dossier"));
    d.srjValide = reel("u_srj_valide");
    d.tauxValide = reel("u_taux_valide");
    d.periodeEnCours = entier("u_periode_en_cours", 0);
    d.abattementId = entier("u_abattement", 2);
    d.nir = texte("u_nir");
    d.carteIdentite = texte("u_carte_identite");
    d.permisConduire = texte("u_permis_conduire");
    d.identifiantAssedic = texte("u_identifiant_assedic");
    d.poleEmploiPassword = texte("u_poleemploi_password");
    d.congesSpectacles = texte("u_conges_spectacles");
    d.congesPassword = texte("u_conges_password");
    d.guso = texte("u_guso");
    d.audiens = texte("u_audiens");
    d.sacem = texte("u_sacem");
    d.ribEtablissement = texte("u_rib_etablissement");
    d.ribGuichet = texte("u_rib_guichet");
    d.ribCompte = texte("u_rib_compte");
    d.ribCle = texte("u_rib_cle");
    d.ribIban = texte("u_rib_iban");
    d.autoEntrepreneurFlag = entier("u_autoentrepreneur_flag", 0);
    d.autoEntrepreneurPeriode = entier("u_autoentrepreneur_periode", 3);
    d.aePrelevementLiberatoire = entier("u_ae_prelevementliberatoire", 0);
    d.aeCategoriePro = entier("u_ae_categoriepro", 1);
    d.aeActivite = entier("u_ae_activite", 1);
    d.aeSiret = texte("u_ae_siret");
    d.aePassword = texte("u_ae_password");
    d.vehiculeType = entier("u_vehicule_type", 1);
    d.vehiculePuissance = entier("u_vehicule_puissance", 0);
    d.pas = reel("u_pas");

    d.emploi = retrouveEmploiDepuisId(d.emploiId);
    d.civilite = retrouveCiviliteDepuisId(d.civiliteId);
    d.abattement = retrouveAbattementDepuisId(d.abattementId);
    return true;
}

// --- One field at a time ---------------------------------------------------------------

bool Profil::enregistreValeur(const char* colonne, const QVariant& valeur)
{
    return m_db.executer(QStringLiteral("UPDATE utilisateur SET %1 = ? WHERE u_id=1;").arg(QLatin1String(colonne)),
                         {valeur}) == SQLITE_DONE;
}

bool Profil::enregistreMontant(const char* colonne, double valeur, const Bornes& bornes)
{
    if (!SaisieFrancaise::refusNombre(valeur, bornes).isEmpty())
        return false;
    return bornes.decimales == 0 ? enregistreValeur(colonne, qint64(valeur)) : enregistreValeur(colonne, valeur);
}

bool Profil::enregistreTexte(const char* colonne, const QString& texte)
{
    return enregistreValeur(colonne, texteNonNul(texte));
}

// clang-format off
bool Profil::saveJobId(int id) { return enregistreValeur("u_emploi_id", id); }
bool Profil::saveCivilityId(int id) { return enregistreValeur("u_civilite_id", id); }
bool Profil::saveFirstName(const QString& texte) { return enregistreTexte("u_prenom", texte); }
bool Profil::saveLastName(const QString& texte) { return enregistreTexte("u_nom", texte); }
bool Profil::saveAddress(const QString& texte) { return enregistreTexte("u_adresse", texte); }
bool Profil::savePostalCode(const QString& texte) { return enregistreTexte("u_codepostal", texte); }
bool Profil::saveCity(const QString& texte) { return enregistreTexte("u_commune", texte); }
bool Profil::saveCountry(const QString& texte) { return enregistreTexte("u_pays", texte); }
bool Profil::saveNationality(const QString& texte) { return enregistreTexte("u_nationalite", texte); }
bool Profil::saveNickname(const QString& texte) { return enregistreTexte("u_pseudonyme", texte); }
bool Profil::savePlaceOfBirth(const QString& texte) { return enregistreTexte("u_lieu_naissance", texte); }
bool Profil::saveMobilePhone(const QString& texte) { return enregistreTexte("u_telephone_mobile", texte); }
bool Profil::saveLandline(const QString& texte) { return enregistreTexte("u_telephone", texte); }
bool Profil::saveEmail(const QString& texte) { return enregistreTexte("u_email", texte); }
bool Profil::saveFax(const QString& texte) { return enregistreTexte("u_fax", texte); }
bool Profil::saveWebsite(const QString& texte) { return enregistreTexte("u_web", texte); }
bool Profil::saveChildren(int nombre) { return enregistreMontant("u_nbre_enfants", nombre, {0, kEnfantsMaximum, 0, false}); }
bool Profil::savePas(double taux) { return enregistreMontant("u_pas", taux, Limites::kPourcentage); }
bool Profil::saveAeSiret(const QString& texte) { return enregistreTexte("u_ae_siret", texte); }
bool Profil::saveAePassword(const QString& texte) { return enregistreTexte("u_ae_password", texte); }
bool Profil::saveAeFlag(int drapeau) { return enregistreValeur("u_autoentrepreneur_flag", drapeau); }
bool Profil::saveAeCategoryId(int id) { return enregistreValeur("u_ae_categoriepro", id); }
// The periodicity lives in u_autoentrepreneur_periode, the column the profile reads.
bool Profil::saveAePeriodicity(int periodicite) { return enregistreValeur("u_autoentrepreneur_periode", periodicite); }
bool Profil::saveAeTaxFlag(int drapeau) { return enregistreValeur("u_ae_prelevementliberatoire", drapeau); }
// clang-format on
bool Profil::saveAeActivity(int id)
{
    // Only an activity the document lists: its chamber fee depends on it.
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM autoentrepreneuractivites WHERE aea_id = ?;"), {id}) == 0)
        return false;
    return enregistreValeur("u_ae_activite", id);
}
// clang-format off
bool Profil::saveVehicleType(int type) { return enregistreValeur("u_vehicule_type", type); }
bool Profil::saveVehiclePower(int puissance) { return enregistreValeur("u_vehicule_puissance", puissance); }
bool Profil::savePeId(const QString& texte) { return enregistreTexte("u_identifiant_assedic", texte); }
bool Profil::savePePassword(const QString& texte) { return enregistreTexte("u_poleemploi_password", texte); }
bool Profil::savePeAllocation(double taux) { return enregistreMontant("u_taux_valide", taux, Limites::kMontant); }
bool Profil::savePeSRJ(double srj) { return enregistreMontant("u_srj_valide", srj, Limites::kMontant); }
bool Profil::saveCsNumber(const QString& texte) { return enregistreTexte("u_conges_spectacles", texte); }
bool Profil::saveCsPassword(const QString& texte) { return enregistreTexte("u_conges_password", texte); }
bool Profil::saveSsNumber(const QString& texte) { return enregistreTexte("u_nir", texte); }
bool Profil::saveIdentityCardNumber(const QString& texte) { return enregistreTexte("u_carte_identite", texte); }
bool Profil::saveDrivingLicenceNumber(const QString& texte) { return enregistreTexte("u_permis_conduire", texte); }
bool Profil::saveGusoId(const QString& texte) { return enregistreTexte("u_guso", texte); }
bool Profil::saveAudiensId(const QString& texte) { return enregistreTexte("u_audiens", texte); }
bool Profil::saveRibEstablishment(const QString& texte) { return enregistreTexte("u_rib_etablissement", texte); }
bool Profil::saveRibDesk(const QString& texte) { return enregistreTexte("u_rib_guichet", texte); }
bool Profil::saveRibAccount(const QString& texte) { return enregistreTexte("u_rib_compte", texte); }
bool Profil::saveRibKey(const QString& texte) { return enregistreTexte("u_rib_cle", texte); }
bool Profil::saveRibIban(const QString& texte) { return enregistreTexte("u_rib_iban", texte); }
bool Profil::saveFallId(int id) { return enregistreValeur("u_abattement", id); }
bool Profil::saveSacemNumber(const QString& texte) { return enregistreTexte("u_sacem", texte); }
// clang-format on

bool Profil::saveDob(const QDate& naissance)
{
    if (!SaisieFrancaise::refusDate(naissance, Limites::premiereNaissance(), Horloge::aujourdhui()).isEmpty())
        return false;
    return m_db.exec(QStringLiteral("UPDATE utilisateur SET u_naissance = '%1' WHERE u_id=1;")
                         .arg(Dates::versSQLite(naissance))) == SQLITE_OK;
}

// --- Whole blocks ------------------------------------------------------------------------

bool Profil::enregistrement()
{
    const DonneesProfil& d = m_donnees;
    // The amounts are formatted into the statement: one out of bounds (infinity) is never written.
    if (!SaisieFrancaise::refusNombre(d.srjValide, Limites::kMontant).isEmpty() ||
        !SaisieFrancaise::refusNombre(d.tauxValide, Limites::kMontant).isEmpty() ||
        !SaisieFrancaise::refusEntier(d.nombreEnfants, 0, kEnfantsMaximum).isEmpty())
        return false;
    const QString sql =
        QStringLiteral(
            "UPDATE utilisateur SET u_nom=?, u_prenom=?, u_pseudonyme=?, u_telephone=?, u_nir=?, u_naissance='%1', "
            "u_adresse=?, u_codepostal=?, u_commune=?, u_emploi_id=%2, u_identifiant_assedic=?, "
            "u_date_debut_dossier='%3', u_conges_spectacles=?, u_guso=?, u_civilite_id=%4, u_audiens=?, u_email=?, "
            "u_lieu_naissance=?, u_nationalite=?, u_pays=?, u_fax=?, u_srj_valide=%5, u_taux_valide=%6, "
            "u_abattement=%7, u_nbre_enfants=%8, u_carte_identite=?, u_permis_conduire=?, u_telephone_mobile=?, "
            "u_rib_etablissement=?, u_rib_guichet=?, u_rib_compte=?, u_rib_cle=? WHERE u_id=1;")
            .arg(Dates::versSQLite(d.naissance))
            .arg(uint(d.emploiId))
            .arg(Dates::versSQLite(d.dateDebutDossier))
            .arg(uint(d.civiliteId))
            .arg(montant(d.srjValide), montant(d.tauxValide))
            .arg(uint(d.abattementId))
            .arg(d.nombreEnfants);
    const QVariantList valeurs{
        texteNonNul(d.nom),
        texteNonNul(d.prenom),
        texteNonNul(d.pseudonyme),
        texteNonNul(d.telephone),
        texteNonNul(d.nir),
        texteNonNul(d.adresse),
        texteNonNul(d.codePostal),
        texteNonNul(d.commune),
        texteNonNul(d.identifiantAssedic),
        texteNonNul(d.congesSpectacles),
        texteNonNul(d.guso),
        texteNonNul(d.audiens),
        texteNonNul(d.email),
        texteNonNul(d.lieuNaissance),
        texteNonNul(d.nationalite),
        texteNonNul(d.pays),
        texteNonNul(d.fax),
        texteNonNul(d.carteIdentite),
        texteNonNul(d.permisConduire),
        texteNonNul(d.telephoneMobile),
        texteNonNul(d.ribEtablissement),
        texteNonNul(d.ribGuichet),
        texteNonNul(d.ribCompte),
        texteNonNul(d.ribCle),
    };
    return m_db.executer(sql, valeurs) == SQLITE_DONE;
}

bool Profil::majNouvellePeriodeDu(const QDate& debut, double srj, double taux)
{
    if (!SaisieFrancaise::refusDate(debut).isEmpty() ||
        !SaisieFrancaise::refusNombre(srj, Limites::kMontant).isEmpty() ||
        !SaisieFrancaise::refusNombre(taux, Limites::kMontant).isEmpty())
        return false;
    return m_db.exec(QStringLiteral("UPDATE utilisateur SET u_date_debut_dossier='%1', u_srj_valide=%2, "
                                    "u_taux_valide=%3 WHERE u_id=1;")
                         .arg(Dates::versSQLite(debut), montant(srj), montant(taux))) == SQLITE_OK;
}

int Profil::renoncerAbattement(bool renonce)
{
    // The box toggles between 0 % and 20 % only; 25 % is reached through saveFallId.
    if (renonce) {
        m_db.exec(QStringLiteral("UPDATE utilisateur SET u_abattement=1 WHERE u_id=1;"));
        return 1;
    }
    m_db.exec(QStringLiteral("UPDATE utilisateur SET u_abattement=2 WHERE u_id=1;"));
    return 2;
}

QDate Profil::aujourdhuiMoinsAgeMaxi(int annees)
{
    return Horloge::aujourdhui().addYears(-annees);
}

bool Profil::ajouteUnePhoto(const QString& chemin)
{
    return enregistreTexte("u_photo", chemin);
}

bool Profil::supprimeLaPhoto()
{
    return enregistreTexte("u_photo", QString());
}

} // namespace corvane
