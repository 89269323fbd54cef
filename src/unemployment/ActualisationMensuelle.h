#pragma once

#include "unemployment/ComptageHeures.h"

#include <QDate>
#include <QString>

namespace corvane {

// How the indemnified days of a month are obtained, step by step.
struct DetailJoursIndemnises
{
    QString profession;
    QDate ouverture;         // the opening of rights
    int joursDuMois = 0;     // the month's length
    int avantOuverture = 0;  // days before the opening, when it falls in the month
    int apresAujourdhui = 0; // days after today, when today falls in the month
    int heures = 0;          // hours of the month's carried-out contracts (dated by their start)
    int nonCompenses = 0;    // days that this work offsets, by the annex rule
    int resultat() const { return joursDuMois - avantOuverture - apresAujourdhui - nonCompenses; }
};

// The monthly declaration: the days of a calendar month that the allowance pays, and the
// values of the current period and of the profile that the monthly estimate reads.
class ActualisationMensuelle : public ComptageHeures
{
public:
    explicit ActualisationMensuelle(const QString& chemin = QString()) : ComptageHeures(chemin) {}
    explicit ActualisationMensuelle(BaseDeDonnees& connexion) : ComptageHeures(connexion) {}

    // The month's length, less the days before the opening of rights and after today when
    // they fall in it, less the days that the month's carried-out work offsets. May be negative.
    int nombreJoursIndemnisesDansLeMois(int mois, int annee);
    // The same count with each of its terms.
    DetailJoursIndemnises detailJoursIndemnisesDansLeMois(int mois, int annee);
    // Days offset by H hours of work under the 2016 rules: floor(H ÷ 10 × 1.3) for "Artiste",
    // floor(H ÷ 8 × 1.4) for "Ouvrier" and "Technicien", 0 for any other profession.
    static int joursNonCompensesPourTravail(const QString& profession, int heures);
    // The days paid from the opening of rights to today: each month's days, a month that
    // work fully offsets counting none. 0 before the opening.
    int nombreJoursIndemnisesDepuisLOuverture();

    int retrouveCongesPeriodeEnCoursWithId(int id);
    int retrouveFranchiseSalairesPeriodeEnCoursWithId(int id);
    double retrouvePAS();
    bool isAnneeBlancheActive();
};

} // namespace corvane
