#pragma once

#include "store/Intermittent.h"
#include "store/LectureListe.h"

#include <QList>
#include <QStringList>
#include <memory>
#include <optional>

namespace corvane {

// What a contract listing keeps: the period keyword, the filter pieces, and the sort word.
struct FiltreContrats
{
    QString periode = QStringLiteral("tous"); // "tous", "periode_reference", "annee" or "periode"
    int effectue = 0;                         // 0 all, 1 done, 2 planned
    int paye = 0;                             // 0 all, 1 paid, 2 unpaid
    bool filtreType = false;
    QString type; // a label of contratstypes (or of autoentrepreneurtypes)
    bool filtreEmployeur = false;
    QString employeur; // e_raison_sociale
    bool filtreEmploi = false;
    QString emploi; // a label of emplois (the screen's job piece)
    QDate du;       // the "periode" keyword's two dates
    QDate au;
    QString sens;        // the sort word, applied inverted
    QString sensPrefere; // the "Contrats_Sens" setting, read by the caller
};

// One contract, as the screen's statements write it. The defaults are those of a new contract.
struct Contrat
{
    int id = 0;
    int employeurId = 0;
    int emploiId = 1;
    int type = 1;         // a key of contratstypes, or of autoentrepreneurtypes (100 and above)
    int abattementId = 1; // key of `abattements`, not a percentage
    QDate debut;
    QDate fin;
    int jours = 0;
    int heures = 0;
    double brut = 0.0;
    double net = 0.0;
    double netAPayer = 0.0;
    double pas = 0.0; // withholding rate, percent
    bool effectue = true;
    bool paye = false;
    bool conges = false;
    bool aemFp = true;
    int anneeEncaissement = 0;
    QStringList datesTravaillees; // "dd/MM/yyyy"
    QString listeDates;           // c_liste_dates, the older day-number list, kept as stored
    QList<int> fraisLies;
    QString note;
    QString fonction;
    QString lieu;
};

// The contracts of a document: every statement of table `contrats`, the listing with
// its filters and totals, and the links to expenses. After a listing, the aggregates
// hold its totals.
class Contrats : public Intermittent
{
public:
    explicit Contrats(const QString& chemin = QString());
    explicit Contrats(BaseDeDonnees& connexion);

    // After a listing. The grouped count is only replaced by a non-zero count.
    uint nombrePeriodesGroupees = 0;
    uint totalHeures = 0;
    uint totalJours = 0;
    double totalBruts = 0.0;
    double totalNets = 0.0;
    QString clauseWhere;

    int compteLesContrats();
    bool contratExiste(int id);
    // A document not yet upgraded lacks the columns the screen's listing reads.
    bool aLesColonnesEcran();
    int compteLesContratsParEmployeur(int employeurId);
    // The sixteen-column statements of the model (note and function bound); the update
    // writes the contract whose key is `contrat.id`.
    int enregistreContrat(const Contrat& contrat);
    void modifieContrat(const Contrat& contrat);
    // The screen's statements, every value bound (23 values, and the key for the update).
    int enregistreContratDepuisEcran(const Contrat& contrat);
    void modifieContratDepuisEcran(const Contrat& contrat);
    // A stored contract; its expenses as its own column lists them (the link table is
    // fraisLiesAuContrat).
    std::optional<Contrat> chargeContrat(int id);
    void supprimeContrat(int id);
    void supprimeContratsParEmployeur(int employeurId);
    // The four check boxes of a list row.
    void enregistreLesCochesPourId(int id, int effectue, int paye, int conges, int aemfp);
    bool isModeleExistePourEmployeur(int employeurId);
    bool isModeleExistePourEmployeur(const QString& raisonSociale);
    QStringList tousLesTypesDeContrats();
    // A copy of the contract, without its expenses; returns the new key.
    int dupliqueContrat(int id);
    // Removes each contract and the links of its expenses; the expenses stay.
    void supprimeContratsEtLiens(const QList<int>& ids);

    // The rows under the display keys; also sets the aggregates and clauseWhere.
    // The screen's listing adds "Guso", "Annee Encaissement", "Lieu", "Id Frais Lie",
    // "AEM - FP" and "PAS" to the model's keys.
    Table listeLesContrats(const FiltreContrats& filtre, bool colonnesEcran = true);
    // The same rows one at a time, never all held; the aggregates are set once the last is read.
    std::unique_ptr<LectureListe> lisLesContrats(const FiltreContrats& filtre, bool colonnesEcran = true);
    static const QStringList& clesListe(bool colonnesEcran);
    // The pieces of a listing, on their own.
    QString construitClauseWhere(const FiltreContrats& filtre);
    static QString ordreDeTri(const QString& sens, const QString& sensPrefere);
    // The start-date bounds a period filter really applies ("periode_reference", "annee", "periode"),
    // both included; invalid dates for "tous".
    std::pair<QDate, QDate> bornesDuFiltre(const FiltreContrats& filtre);

    // Linked expenses: the link table is rewritten and each expense points back.
    void enregistreFraisLies(int contratId, const QList<int>& frais);
    QList<int> fraisLiesAuContrat(int contratId);
    // Every expense, newest first, for the picker: f_id, f_date, f_details, f_montant, f_contrat_lie,
    // and the linked contract's start and employer (lie_debut, lie_employeur).
    Lignes tousLesFrais();

    // The "periode" filter's two dates, kept in rows 1 and 2 of datesPeriodesPreferees.
    void enregistreDatesPeriode(const QDate& du, const QDate& au);
    QDate datePeriodeDebut();
    QDate datePeriodeFin();

    // Sickness periods overlapping the contract's dates: the sum of four counts, so a
    // period lying inside the contract counts several times.
    int nombreDeSuperpositionsAvecContratsDu(const QDate& debut, const QDate& fin);
    // The warning for that count ("" when nothing overlaps).
    static QString messageSuperpositions(int nombre);

    // The day-number list's rules, quirks included.
    static bool verifieCaracteresChaineDates(const QString& liste);
    static bool verifieFormatChaineDates(const QString& liste, const QString& mode, const QDate& debut,
                                         const QDate& fin);

private:
    friend class LecteurContrats;

    // The 23 values of the screen's statements, in their column order.
    static QVariantList valeursEcran(const Contrat& contrat);
    void calculeLesTotaux(const QString& tri);
};

} // namespace corvane
