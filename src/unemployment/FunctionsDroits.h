#pragma once

#include "unemployment/ComptageHeures.h"

#include <QDate>
#include <QString>

namespace corvane {

// The path-taking twins of the rights counting and of the monthly declaration, in the
// shared function layer: each opens the document, asks the open-document form and closes
// it again, so both forms give the same answer.
namespace Functions {

TableauHeures compteHeuresParEmploiEtParTypeFromFile(const QString& mode, const QDate& debut, const QDate& fin,
                                                     const QString& triDesContrats, const QString& chemin);
int retrouveHeuresParJourFromFile(const QString& chemin);
// The end of the current period stretched by sickness-type leave, and the stretch alone.
QDate retrouveDateFinDePeriodeEnCoursFromFile(const QString& chemin);
int allongementPRAFromFile(const QString& chemin);
QDate dateDebutDuDernierContratEffectueAvantTodayFromFile(const QString& chemin);

int joursDansLeMois(int mois, int annee);
float numberOfMonthsBetweenFirstDate(const QDate& premiere, const QDate& seconde);

int nombreJoursIndemnisesDansLeMoisFromFile(int mois, int annee, const QString& chemin);
int retrouveCongesPeriodeEnCoursWithIdFromFile(int id, const QString& chemin);
int retrouveFranchiseSalairesPeriodeEnCoursWithIdFromFile(int id, const QString& chemin);
double retrouvePASFromFile(const QString& chemin);
bool isAnneeBlancheActiveFromFile(const QString& chemin);

} // namespace Functions
} // namespace corvane
