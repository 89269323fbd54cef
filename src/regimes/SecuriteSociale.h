#pragma once

#include "store/Intermittent.h"

#include <QDate>
#include <QString>
#include <QStringList>

namespace corvane {

// One record of the social-security screen as its form holds it: a leave (kinds 1 to 4) or
// a medical expense (5 to 7). The days and the two incidences are worked out on save.
struct PeriodeSecuriteSociale
{
    QDate debut;
    QDate fin;
    int typeId = 2;
    QString note;
    bool rembourse = false;
    int joursSuspendus = 0; // working days suspended, entered by the user
    double totalIJ = 0.0;   // daily allowances received, euros
    bool ald = false;       // long-term illness
    bool rembourseMutuelle = false;

    int nombreJours = 0;
    int incidenceHeures = 0;  // counted as worked days by the unemployment hours
    int incidencePeriode = 0; // days added to the unemployment reference period
};

// The sickness, accident, maternity and paternity leaves and the medical expenses (table
// `securitesociale`): saving with the incidences on unemployment insurance, the overlap
// checks, the list, the ticks of the list, and the check of the social rights for a day.
class SecuriteSociale : public Intermittent
{
public:
    explicit SecuriteSociale(const QString& chemin = QString()) : Intermittent(chemin) {}
    explicit SecuriteSociale(BaseDeDonnees& connexion) : Intermittent(connexion) {}

    enum Type
    {
        Accident = 1,
        Maladie = 2,
        Maternite = 3,
        Paternite = 4,
        Generaliste = 5,
        Specialiste = 6,
        Pharmacie = 7,
    };

    // "ACCIDENT", "MALADIE", … "PHARMACIE", by kind id from 1.
    static QString codeDuType(int typeId);
    // "Id Securite Sociale", "Date Debut SQLite", "Date Fin SQLite", "Type Detail", "Journees
    // Suspendues", "Total I.J.", "ALD", "Remboursement Mutuelle", then "Type" (the code),
    // "Rembourse" and "Note".
    static const QStringList& clesListe();
    // "Libellé Gauche", "OuiNon Gauche", "Libellé Droit", "OuiNon Droit".
    static const QStringList& clesDroits();

    // The days and incidences of a record, from its kind, the ALD switch, the suspended days,
    // its dates and the end of the user's rights. `anciennes` are the incidences the form
    // already held, which some cases of the 2016 rules keep as they are.
    static void calculeIncidences(PeriodeSecuriteSociale& periode, const QDate& finDesDroits, int anciennesHeures,
                                  int anciennesPeriode);

    // Why a record may not be saved ("" when it may): dates, kind, suspended days, amount.
    QString refusValeurs(const PeriodeSecuriteSociale& periode);
    // The four overlap counts summed as they are: a contract lying inside counts three times.
    int nombreDeSuperpositionsAvecContratsDu(const QDate& debut, const QDate& fin);
    // The same over the other records, skipping the one with key `idExclu`.
    int nombreDeSuperpositionsAvecPeriodesDu(const QDate& debut, const QDate& fin, int idExclu);
    // The form's refusal of an overlap, "" when there is none (contracts are checked first).
    QString refusSuperpositions(const QDate& debut, const QDate& fin, int idExclu);

    int compteLesSecuriteSociale();
    bool securiteSocialeExiste(int id);
    // The stored record, incidences included; nullopt-like empty dates when it is missing.
    PeriodeSecuriteSociale retrouveSecuriteSociale(int id);

    // Checks, works the incidences out (those kept are 0 when adding, the stored ones when
    // modifying) and writes. The key, or 0 / false on refusal or failure; `periode` receives
    // the figures written.
    int enregistreSecuriteSociale(PeriodeSecuriteSociale& periode);
    bool modifieSecuriteSociale(int id, PeriodeSecuriteSociale& periode);
    bool supprimeSecuriteSociale(int id);

    // The ticks of the list: each writes its own column only.
    bool enregistreLeCocheRemboursePourId(int id, bool rembourse);
    bool enregistreLeCocheRembourseMutuellePourId(int id, bool rembourse);
    bool enregistreLeCocheAldPourId(int id, bool ald);

    // tri: "tous", "periode_reference", "annee" (SQLite's current year) or "periode" (du to
    // au); typeId 0 for every kind; classement "ASC" or "DESC" by start.
    Table listeLesPeriodesV4(const QString& tri, int typeId, const QString& classement, const QDate& du,
                             const QDate& au);
    Table listeLesPeriodes(const QString& tri, const QString& classement, const QDate& du, const QDate& au)
    {
        return listeLesPeriodesV4(tri, 0, classement, du, au);
    }

    // The four rows of the rights grid for a day; empty when the document holds no contract.
    Table verifieLesDroits(const QDate& jour);
    static QString messageSansContrat();

    // The kinds' labels, by id.
    QStringList tousLesTypes();
};

} // namespace corvane
