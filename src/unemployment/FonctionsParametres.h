#pragma once

#include "unemployment/TableDatee.h"

#include <QDate>
#include <QDateTime>
#include <QString>

namespace corvane {

// The shared function layer's reference values, used by the monthly declaration, the
// sickness computations and the self-employed contract computation. They are kept apart
// from ParametresIntermittent on purpose: their minimum-wage tail differs, and each
// caller uses the family it has always used.
namespace FonctionsParametres {

// Hourly minimum wage, euros: 9.67 from 2016, 9.76 from 2017 on (no later row).
double smicHoraireEnCours(const QDate& jour);
double smicHoraireEnCours(const QDateTime& instant);
const TableDatee& tableSmicHoraire();

// Monthly social-security ceiling, euros. Always 3269, whatever the year (see the .cpp).
double plafondSecuriteSocialePour(int annee);

// Hours threshold for opening rights.
int heuresMinimumARealiser();
// 507 for "Artiste", "Ouvrier" or "Technicien" (exact, case-sensitive), 0 for any other text.
double heuresMinimumARealiserPour(const QString& profession);
// Hours credited per worked day: 8 for "Ouvrier" and "Technicien", 12 for anything else.
int nombreHeuresParJourPour(const QString& profession);
// Multiplier turning the sickness-type incidence into hours counted as work.
int assimilationTravailSecuriteSociale();

} // namespace FonctionsParametres
} // namespace corvane
