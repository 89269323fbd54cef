#pragma once

#include "store/Intermittent.h"
#include "unemployment/ParametresPoleEmploi.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <array>

namespace corvane {

// The hours of a span, whole hours: for each job (1 "Artiste", 2 "Ouvrier", 3 "Technicien")
// its paid work, teaching less the hours at non-approved employers, and training, at
// 3 × (job − 1) + 0, 1 and 2; then, at 9, the hours credited for sickness-type leave.
using TableauHeures = std::array<int, 10>;

// The counting of the rights computations over the document: hours by job and kind of
// contract, hours per worked day, the stretch of a span by sickness-type leave, the last
// contracts, and the calendar helpers. The end of the current period and its stretch are
// the data-access base's (retrouveDateFinDePeriodeEnCours, allongementPRA).
//
// It carries the defaults of the rights computations (ParametresPoleEmploi).
//
// Built on a path (the connection lives as long as the object) or on an open document's
// connection; the path-taking twins of FunctionsDroits.h build one and return its answer.
class ComptageHeures : public Intermittent, public ParametresPoleEmploi
{
public:
    explicit ComptageHeures(const QString& chemin = QString());
    explicit ComptageHeures(BaseDeDonnees& connexion) : Intermittent(connexion) {}

    // The contract conditions of the unemployment screen's choice, by index: every contract,
    // the carried-out ones, the planned ones.
    static const QStringList& conditionsDesContrats();

    // Mode "simulation" or "analyses": contracts starting in [debut, fin] that pass the
    // condition, and sickness-type leave starting in it. Mode "contrats": every contract and
    // every leave that passes, except that the non-approved teaching hours taken off are
    // still those starting in the span. Any other mode counts no contract, only every leave.
    // The condition is SQL, inserted as it is.
    TableauHeures compteHeuresParEmploiEtParType(const QString& mode, const QDate& debut, const QDate& fin,
                                                 const QString& triDesContrats);
    // 12 when the user's job is "Artiste", 8 for any other (or none).
    int retrouveHeuresParJour();
    // The days that sickness-type leave starting in the span adds to it.
    int allongementPeriode(const QDate& debut, const QDate& fin);
    // The end of the carried-out contract that starts last since the opening of rights
    // (not necessarily the latest end); invalid when there is none.
    QDate dernierJourDuDernierContrat();
    // The start of the latest carried-out contract starting between the opening of rights
    // and today, today when there is none.
    QDate dateDebutDuDernierContratEffectueAvantToday();

    // Only the days part of the difference split into years, months and days: 2016-01-01
    // to 2016-03-05 gives 4. Meant for two days of one month.
    static int nombreDeJoursEntre(const QDate& debut, const QDate& fin);
    // February has 29 days in every year divisible by 4 (2100 too); a month outside 1-12 has 0.
    static int joursDansLeMois(int mois, int annee);
    // The months between two days as a fraction of each end month; 0 when the first comes after.
    static float numberOfMonthsBetweenFirstDate(const QDate& premiere, const QDate& seconde);
};

} // namespace corvane
