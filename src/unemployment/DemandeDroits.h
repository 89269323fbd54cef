#pragma once

#include <QDate>
#include <QString>

namespace corvane {

class Simulation;

// What the unemployment screen asks for: the simulation over a range with its contract
// choice, or the analysis of the current reference period; both may add the sickness
// daily allowances to the pay. The screen, its printed report and `corvane-cli pdf`
// launch it the same way.
struct DemandeDroits
{
    bool analyse = false;
    QDate du; // the simulation's range (the analysis takes the current period's)
    QDate au;
    int contrats = 0; // index in ComptageHeures::conditionsDesContrats: all, done, planned
    bool indemnitesJournalieres = false;
};

enum class IssueDroits
{
    Calculee,
    // No performance, training, nor teaching at an approved employer starts in the range.
    AucunContrat,
    // The last counted contract ended before 1 April 2007: the screen says nothing.
    SansProtocole,
    // No current reference period to analyse.
    SansPeriode,
};

// Runs the demand on a simulation built on the document (its dates are the demand's).
IssueDroits lanceDemande(Simulation& simulation, const DemandeDroits& demande);

// What the user is told when nothing was computed ("" for Calculee).
QString messageIssue(IssueDroits issue, const DemandeDroits& demande);

} // namespace corvane
