#pragma once

#include "store/BaseDeDonnees.h"

#include <QDate>
#include <QDateTime>
#include <QMap>
#include <QPair>
#include <QString>
#include <QStringList>

namespace corvane {

// Base of every model class: the document's connection, opened at construction
// (never creating the file) and kept for the object's life, and the small lookups
// that models call instead of writing their own SQL for reference data.
class Intermittent
{
public:
    explicit Intermittent(const QString& chemin = QString());
    // Works on an open document's connection (the program's one connection) without owning it.
    explicit Intermittent(BaseDeDonnees& connexion);
    virtual ~Intermittent() = default;
    Intermittent(const Intermittent&) = delete;
    Intermittent& operator=(const Intermittent&) = delete;

    bool ouvreLeFichier(const QString& chemin);
    bool ouvreLeFichierTemporaire(const QString& chemin);
    void closeConnection();

    const QString& cheminDuFichier() const { return m_cheminDuFichier; }
    bool estOuvert() const { return m_db.estOuverte(); }
    BaseDeDonnees& db() { return m_db; }
    BaseDeDonnees& dbTemporaire() { return m_dbTemporaire; }

    // Constant lists.
    static const QStringList& mois();             // "janvier" … "aout" … "décembre"
    static const QStringList& moisEnMinuscules(); // the same list
    static const QStringList& moisEnMajuscules(); // "JANVIER" … "DECEMBRE"
    static const QStringList& professions();      // "Artiste", "Ouvrier", "Technicien", "Régime Général"
    static const QStringList& sexes();            // "Mme", "Mlle", "Mr"
    static const QStringList& abattements();      // "0", "20", "25"
    static const QStringList& securiteSocialePrestations();

    // Default places: the Documents folder followed by "/Orvia", the default document
    // in it, and the earlier product's document in the home folder.
    static QString dossierTravailParDefaut();
    static QString fichierTravailParDefaut();
    static QString ancienFichierTravailParDefaut();

    // Text lookups: a missing row gives 0, "" or an invalid date.
    int retrouveEmploiId(const QString& emploi);
    QString retrouveEmploiDepuisId(int id);
    QString retrouveEmploiUtilisateur();
    int retrouveCiviliteId(const QString& civilite);
    QString retrouveCiviliteDepuisId(int id);
    int retrouveAbattementId(const QString& pourcentage);
    QString retrouveAbattementDepuisId(int id);
    int retrouveAbattementIdUtilisateur();
    int retrouveContratTypeId(const QString& type);
    QString retrouveContratTypeDepuisId(int id);
    QString retrouveContratTypeAEDepuisId(int id);
    int retrouveEmployeurId(const QString& raisonSociale);
    QString retrouveEmployeurDepuisId(int id);
    int retrouveFraisTypeIdDepuisType(const QString& type);
    QString retrouveFraisTypeDepuisId(int id);
    int retrouveSecuriteSocialeTypeId(const QString& type);
    QString retrouveSecuriteSocialeTypeDepuisId(int id);
    int retrouvePeriodeId(const QString& libelle);
    int retrouveIdPeriodeEnCours();
    int retrouveIdPeriodeLaPlusRecente();
    QDateTime retrouveDateOuvertureDroits();
    QDateTime retrouveDateOuvertureDroitsUtilisateur();
    // End of the current period, stretched by the sickness-type leave recorded in it;
    // the stretch in days is kept in allongementPeriodeDeReference.
    QDate retrouveDateFinDePeriodeEnCours();
    int allongementPeriodeDeReference = 0;
    // That stretch alone, in days (0 without any sickness-type leave since the opening).
    int allongementPRA();
    double retrouveTauxValideUtilisateur();
    QDate retrouveDateNaissanceUtilisateur();
    QString retrouveNomUtilisateur();
    QString findDvOrganismFromId(int id);
    int findDvOrganismId(const QString& nom);
    QString findDvCategoryFromId(int id);
    int findDvCategoryId(const QString& type);
    QString findQualificationFromId(int id);
    int findQualificationId(const QString& libelle);
    int findGroupId(const QString& libelle);
    int findPerformanceId(const QString& libelle);
    double findDiscountAmountFromId(int id);
    QString findDiscountTypeFromId(int id); // "%" for a rate, "€" for a fixed amount
    int findPropositionStatus(const QString& libelle);
    int findPropositionLabelId(const QString& libelle);
    int findDelayIdFromNumber(int nombre, const QString& unite); // unite "jours" or "mois"
    bool isFileLocked();
    int compteLesEnregistrements(const QString& table);

    // Preferred date ranges, by row id and by key.
    void enregistreDatePreferee(int id, const QDate& date);
    QDateTime retrouveDatePreferee(int id);
    void enregistreDatePreferee(const QString& element, const QDate& date);
    QDateTime retrouveDatePreferee(const QString& element);

    // Reference lists as (id, label), for the choices of a form.
    using Choix = QList<QPair<int, QString>>;
    Choix choixEmployeurs();   // by name
    Choix choixEmplois();      // by id
    Choix choixAbattements();  // by percentage, the label being the percentage
    Choix choixTypesDeFrais(); // by label
    // Contract kinds and self-employment kinds, one id space.
    QMap<int, QString> libellesDesTypesDeContrat();
    QStringList typesAutoEntrepreneur(bool parLibelle); // else by id
    int retrouveTypeAutoEntrepreneurId(const QString& type);

    // List fillers.
    QStringList rempliPopup(const QString& table); // "employeurs" or "fraistypes"
    QStringList tousLesEmplois();
    QStringList tousLesAbattements();
    QStringList tousLesTypes();
    QStringList rempliListeAbattements();
    QStringList rempliListeDelais(); // "7 jours", "1 mois", …
    QStringList fillPerformancesGroups();

protected:
    BaseDeDonnees m_db;
    BaseDeDonnees m_dbTemporaire;
    QString m_cheminDuFichier;
    QString m_cheminDuFichierTemporaire;
};

} // namespace corvane
