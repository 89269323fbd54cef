#pragma once

#include "store/Intermittent.h"
#include "store/SaisieFrancaise.h"

#include <QDate>
#include <QString>

namespace corvane {

// The profile row, typed. Labels are looked up from the keys when the row is read.
struct DonneesProfil
{
    // Identity
    int civiliteId = 1;
    QString civilite;
    QString nom, prenom, pseudonyme;
    QDate naissance;
    QString lieuNaissance, nationalite;
    int nombreEnfants = 0;
    QString photo;
    // Contact
    QString adresse, codePostal, commune, pays;
    QString telephone, telephoneMobile, fax, email, web;
    double latitude = 0.0, longitude = 0.0;
    // Job and rights
    int emploiId = 1;
    QString emploi;
    QDate dateDebutDossier;
    double srjValide = 0.0, tauxValide = 0.0;
    int periodeEnCours = 0;
    int abattementId = 2;
    QString abattement; // "0", "20" or "25"
    // Administrative numbers
    QString nir, carteIdentite, permisConduire, identifiantAssedic, poleEmploiPassword;
    QString congesSpectacles, congesPassword, guso, audiens, sacem;
    // Bank
    QString ribEtablissement, ribGuichet, ribCompte, ribCle, ribIban;
    // Self-employment
    int autoEntrepreneurFlag = 0, autoEntrepreneurPeriode = 3, aePrelevementLiberatoire = 0, aeCategoriePro = 1;
    int aeActivite = 1;
    QString aeSiret, aePassword;
    // Vehicle and withholding tax
    int vehiculeType = 1, vehiculePuissance = 0;
    double pas = 0.0;
};

// The user's profile: the one row of `utilisateur` (u_id = 1), read whole and
// written field by field as the user leaves each input field.
class Profil : public Intermittent
{
public:
    explicit Profil(const QString& chemin = QString());
    explicit Profil(BaseDeDonnees& connexion) : Intermittent(connexion) {}

    static constexpr int kEnfantsMaximum = 30;

    // Reads the row; false when the document holds none.
    bool initDepuisLaTableV4();
    const DonneesProfil& donnees() const { return m_donnees; }
    DonneesProfil& donnees() { return m_donnees; }
    // The row as read, keyed by column name, dates as their stored text.
    const Ligne& colonnes() const { return m_colonnes; }
    // The columns read, in order.
    static const QStringList& nomsDesColonnes();

    // One statement per field, one bound value. An emptied text field saves '', never NULL.
    // A figure or a date out of its bounds (SaisieFrancaise) is refused: false, nothing written.
    bool saveJobId(int id);
    bool saveCivilityId(int id);
    bool saveFirstName(const QString& texte);
    bool saveLastName(const QString& texte);
    bool saveAddress(const QString& texte);
    bool savePostalCode(const QString& texte);
    bool saveCity(const QString& texte);
    bool saveCountry(const QString& texte);
    bool saveNationality(const QString& texte);
    bool saveNickname(const QString& texte);
    bool savePlaceOfBirth(const QString& texte);
    bool saveMobilePhone(const QString& texte);
    bool saveLandline(const QString& texte);
    bool saveEmail(const QString& texte);
    bool saveFax(const QString& texte);
    bool saveWebsite(const QString& texte);
    bool saveChildren(int nombre);
    bool savePas(double taux);
    bool saveAeSiret(const QString& texte);
    bool saveAePassword(const QString& texte);
    bool saveAeFlag(int drapeau);
    bool saveAeCategoryId(int id);
    bool saveAePeriodicity(int periodicite);
    bool saveAeTaxFlag(int drapeau);
    // One of the activities of `autoentrepreneuractivites`; another id is refused.
    bool saveAeActivity(int id);
    bool saveVehicleType(int type);
    bool saveVehiclePower(int puissance);
    bool savePeId(const QString& texte);
    bool savePePassword(const QString& texte);
    bool savePeAllocation(double taux);
    bool savePeSRJ(double srj);
    bool saveCsNumber(const QString& texte);
    bool saveCsPassword(const QString& texte);
    bool saveSsNumber(const QString& texte);
    bool saveIdentityCardNumber(const QString& texte);
    bool saveDrivingLicenceNumber(const QString& texte);
    bool saveGusoId(const QString& texte);
    bool saveAudiensId(const QString& texte);
    bool saveRibEstablishment(const QString& texte);
    bool saveRibDesk(const QString& texte);
    bool saveRibAccount(const QString& texte);
    bool saveRibKey(const QString& texte);
    bool saveRibIban(const QString& texte);
    bool saveFallId(int id);
    bool saveSacemNumber(const QString& texte);
    // The date of birth is written into the statement as its stored text.
    bool saveDob(const QDate& naissance);

    // Writes the identity and administrative block of donnees() in one statement.
    bool enregistrement();
    // Starts a new rights period: opening date, reference daily wage and rate (two decimals).
    bool majNouvellePeriodeDu(const QDate& debut, double srj, double taux);
    // The "renounce the abatement" box: checked gives 0 % (id 1), cleared 20 % (id 2), never 25 %.
    int renoncerAbattement(bool renonce);
    // Today minus that many years: the earliest date of birth offered.
    static QDate aujourdhuiMoinsAgeMaxi(int annees);

    bool ajouteUnePhoto(const QString& chemin);
    bool supprimeLaPhoto();

private:
    bool enregistreTexte(const char* colonne, const QString& texte);
    bool enregistreValeur(const char* colonne, const QVariant& valeur);
    // A figure within its bounds (an integer one stored as an integer).
    bool enregistreMontant(const char* colonne, double valeur, const Bornes& bornes);

    DonneesProfil m_donnees;
    Ligne m_colonnes;
};

} // namespace corvane
