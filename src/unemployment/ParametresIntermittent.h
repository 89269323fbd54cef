#pragma once

#include "unemployment/TableDatee.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringList>

namespace corvane {

// The computation base of the unemployment rules: its defaults, set when a computation
// object is made, and its dated lookups (the rights simulation and the rights analysis
// use these; the monthly declaration and the sickness computations use FonctionsParametres).
//
// A computation class derives from it (beside Intermittent) or holds one; the lookups
// are static so that they can also be called on their own. Each lookup takes the day
// the parameter applies to, or an instant that is taken on its day at +01:00.
class ParametresIntermittent
{
public:
    quint32 nombreHeuresMiniPourDossier = 507; // hours threshold for opening rights
    quint32 plafondFormations = 338;           // ceiling of the training hours that may count
    // Turns the sickness-type incidence (ss_incidence_heures) into hours counted as work.
    quint32 assimilationTravailSecuriteSociale = 5;
    quint32 ageMaxi = 60;                      // age limit, in years
    quint32 fondTransitoire = 365;             // days of the transitional fund
    QString numeroTelephonePoleEmploi = QStringLiteral("3949");

    // The kinds of sickness-type benefit. Unlike the data-access list, the computations
    // also know "Régime Général".
    static const QStringList& securiteSocialePrestations();

    // Hourly minimum wage, euros.
    static double smicHoraireEnCours(const QDate& jour);
    static double smicHoraireEnCours(const QDateTime& instant);
    // Threshold of the daily allowance for the CSG/CRDS deductions, euros.
    static double CsgCrdsPlafondEnCours(const QDate& jour);
    static double CsgCrdsPlafondEnCours(const QDateTime& instant);
    // Rate of the Alsace-Moselle supplementary deduction, percent.
    static double supplementAlsaceMoselle(const QDate& jour);
    static double supplementAlsaceMoselle(const QDateTime& instant);
    // Ceiling of the gross daily allowance, euros.
    static double plafondAllocationJournaliereEnCours(const QDate& jour);
    static double plafondAllocationJournaliereEnCours(const QDateTime& instant);

    // The tables themselves, for the screens and the tests that list them.
    static const TableDatee& tableSmicHoraire();
    static const TableDatee& tableCsgCrdsPlafond();
    static const TableDatee& tableSupplementAlsaceMoselle();
    static const TableDatee& tablePlafondAllocationJournaliere();
};

} // namespace corvane
