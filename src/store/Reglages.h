#pragma once

#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>

namespace corvane {

// The per-user settings, with their defaults in one table. The program uses the
// user's settings store; tests use a temporary INI file.
class Reglages
{
public:
    enum class Cle
    {
        Launches,
        FichiersRoot,
        FichiersRootPath,
        FichierPath,
        PrefsDemarrage,
        PrefsStockage,
        OpenLastTab,
        LastTabUsed,
        ShowAssistant,
        AlerteActualisationDebut,
        AlerteActualisationFin,
        FichierSauvegardeJours,
        FichierSauvegardeAuto,
        FichierSauvegardeNom,
        FichierSauvegardeDate,
        FichierSauvegardePrefixe,
        SaveDateFormat,
        ActiverAlertes,
        ContractsAlertRate,
        EquilibrerColonnes,
        ContratsMemoriserEmployeurParDefaut,
        DeleteAlerts,
        ProfilLimiteAge,
        ContratsSens,
        ContratsColonnes,
        TdbSens,
        PoleEmploiHistoriqueSens,
        PoleEmploiImpressionsCompteRendu,
        PoleEmploiImpressionsAllocations,
        PoleEmploiImpressionsPeriode,
        PoleEmploiImpressionsHeures,
        ContratsImpressionsListe,
        TdbImpressionsCompteRendu,
        TdbImpressionsJourJ,
        TdbImpressionsListeContrats,
        TdbImpressionsJoursHeures,
        TdbBloquePeriode,
        TdbColonnes,
        ProfilImpressionsPhoto,
        ProfilImpressionsEtatCivil,
        ProfilImpressionsPersonnelles,
        ProfilImpressionsAdministratives,
        ProfilImpressionsAe,
        ProfilImpressionsRib,
        EmployeursImpressionsListe,
        EmployeursImpressionsCumuls,
        CouleursContratsGroupes,
        CouleursMontantsNegatifs,
        CouleursSecuriteSocialeTdb,
        CouleursRegimeGeneral,
        CouleursAutoEntrepreneur,
        Apparence,
        Files,
        FilesLastPath,
        EmployeursColonnes,
        ContratsModelesColonnes,
        PeriodesColonnes,
        SecuriteSocialeImpressionsVerificationDroits,
        SecuriteSocialeImpressionsListePeriodes,
        SecuriteSocialeSens,
        SecuriteSocialeDatesTri,
        SecuriteSocialeTypeTrie,
        SecuriteSocialeTypeIndex,
        SecuriteSocialeColonnes,
        // The paid-leave fund's screen, its payments history and its report.
        CongesDatesTri,
        CongesColonnes,
        CongesHistoriqueSens,
        CongesHistoriqueColonnes,
        CongesImpressionsCompteRendu,
        CongesImpressionsListeContrats,
        CongesSiteInternet,
        // The income-tax screen, its payments history and its report, and the self-employed site.
        FiscaliteDatesTri,
        FiscaliteToutArrondir,
        FiscalitePrimeEmploi,
        FiscaliteAutoEntrepreneur,
        FiscaliteAeLimiter,
        FiscaliteAePeriode,
        FiscaliteListeColonnes,
        FiscaliteEmployeursColonnes,
        FiscaliteHistoriqueSens,
        FiscaliteHistoriqueColonnes,
        FiscaliteImpressionsCompteRendu,
        FiscaliteImpressionsTotauxParEmployeurs,
        FiscaliteImpressionsListeContrats,
        AutoEntrepreneurSiteInternet,
        // The maps service of the "Trajets" window and of the employers' map.
        CartesScript,
        CartesTuiles,
        CartesTrafic,
        CartesGeocodeur,
        CartesItineraire,
        CartesMention,
        FraisSens,
        FraisFiltre,
        FraisCategorie,
        FraisColonnes,
        FraisImpressionsListe,
        FraisImpressionsCategories,
        DroitsVoisinsImpressionsCompteRendu,
        DroitsVoisinsImpressionsListeVersements,
        DroitsVoisinsTriParOrganisme,
        DroitsVoisinsOrganisme,
        DroitsVoisinsSens,
        DroitsVoisinsColonnes,
        // The Manager's propositions: the last choices of the new-proposition window, and the
        // folder of the official forms.
        PropositionsEmployeur,
        PropositionsRemise,
        PropositionsDelai,
        PropositionsCharges,
        PropositionsColonnes,
        FormulairesOfficielsDossier,
    };

    // The user's own settings store.
    Reglages();
    // An INI file (tests, or a portable installation).
    explicit Reglages(const QString& fichierIni);

    static QString nom(Cle cle);
    static QVariant defaut(Cle cle);

    QVariant valeur(Cle cle) const;
    bool booleen(Cle cle) const { return valeur(cle).toBool(); }
    int entier(Cle cle) const { return valeur(cle).toInt(); }
    QString texte(Cle cle) const { return valeur(cle).toString(); }
    QStringList liste(Cle cle) const { return valeur(cle).toStringList(); }
    void ecrire(Cle cle, const QVariant& valeur);
    bool contient(Cle cle) const;
    void retirer(Cle cle);

    // Gives every key that has no value yet its default, and forgets obsolete keys.
    void enregistrerDefauts();
    // Writes pending changes to disk now.
    void synchroniser();

    QSettings& stockage() { return *m_settings; }

private:
    std::unique_ptr<QSettings> m_settings;
};

} // namespace corvane
