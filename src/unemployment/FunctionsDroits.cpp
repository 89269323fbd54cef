#include "unemployment/FunctionsDroits.h"

#include "unemployment/ActualisationMensuelle.h"

namespace corvane::Functions {

TableauHeures compteHeuresParEmploiEtParTypeFromFile(const QString& mode, const QDate& debut, const QDate& fin,
                                                     const QString& triDesContrats, const QString& chemin)
{
    return ComptageHeures(chemin).compteHeuresParEmploiEtParType(mode, debut, fin, triDesContrats);
}

int retrouveHeuresParJourFromFile(const QString& chemin)
{
    return ComptageHeures(chemin).retrouveHeuresParJour();
}

QDate retrouveDateFinDePeriodeEnCoursFromFile(const QString& chemin)
{
    return Intermittent(chemin).retrouveDateFinDePeriodeEnCours();
}

int allongementPRAFromFile(const QString& chemin)
{
    return Intermittent(chemin).allongementPRA();
}

QDate dateDebutDuDernierContratEffectueAvantTodayFromFile(const QString& chemin)
{
    return ComptageHeures(chemin).dateDebutDuDernierContratEffectueAvantToday();
}

int joursDansLeMois(int mois, int annee)
{
    return ComptageHeures::joursDansLeMois(mois, annee);
}

float numberOfMonthsBetweenFirstDate(const QDate& premiere, const QDate& seconde)
{
    return ComptageHeures::numberOfMonthsBetweenFirstDate(premiere, seconde);
}

int nombreJoursIndemnisesDansLeMoisFromFile(int mois, int annee, const QString& chemin)
{
    return ActualisationMensuelle(chemin).nombreJoursIndemnisesDansLeMois(mois, annee);
}

int retrouveCongesPeriodeEnCoursWithIdFromFile(int id, const QString& chemin)
{
    return ActualisationMensuelle(chemin).retrouveCongesPeriodeEnCoursWithId(id);
}

int retrouveFranchiseSalairesPeriodeEnCoursWithIdFromFile(int id, const QString& chemin)
{
    return ActualisationMensuelle(chemin).retrouveFranchiseSalairesPeriodeEnCoursWithId(id);
}

double retrouvePASFromFile(const QString& chemin)
{
    return ActualisationMensuelle(chemin).retrouvePAS();
}

bool isAnneeBlancheActiveFromFile(const QString& chemin)
{
    return ActualisationMensuelle(chemin).isAnneeBlancheActive();
}

} // namespace corvane::Functions
