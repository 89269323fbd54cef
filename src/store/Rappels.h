#pragma once

#include "store/Reglages.h"

#include <QDate>
#include <QString>

namespace corvane {

// The reminders of the alerts menu, worked out from the settings, the document and today.
struct Rappels
{
    bool actualisation = false;     // the monthly declaration
    bool declarationImpots = false; // the income-tax declaration
    bool sauvegarde = false;        // a backup is due
    bool contratsImpayes = false;   // contracts still unpaid after the chosen delay

    int compteur() const
    {
        return int(actualisation) + int(declarationImpots) + int(sauvegarde) + int(contratsImpayes);
    }

    // All off when the alerts are switched off or no document is open.
    static Rappels calculer(const QString& chemin, const Reglages& reglages);

    // The monthly window runs from `debut` to the month's end and from the 1st to `fin`.
    static bool fenetreActualisation(int jourDuMois, int debut, int fin);
    static bool moisDeDeclaration(const QDate& jour);
    static bool sauvegardeDue(const QDate& derniere, const QDate& aujourdhui, int jours);
    // The SQL delay of "ContractsAlertRate": 0 "+7 days", 1 "+15 days", 2 "+1 month", 3 "+2 month".
    static QString delaiImpayes(int taux);
    static bool contratsImpayesApresDelai(const QString& chemin, int taux);
};

} // namespace corvane
