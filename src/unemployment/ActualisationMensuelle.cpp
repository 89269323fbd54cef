#include "unemployment/ActualisationMensuelle.h"

#include "store/Dates.h"
#include "store/Horloge.h"

#include <algorithm>
#include <cmath>

namespace corvane {

int ActualisationMensuelle::joursNonCompensesPourTravail(const QString& profession, int heures)
{
    if (profession == QStringLiteral("Artiste"))
        return int(std::floor(heures / 10.0 * 1.3));
    if (profession == QStringLiteral("Ouvrier") || profession == QStringLiteral("Technicien"))
        return int(std::floor(heures / 8.0 * 1.4));
    return 0;
}

int ActualisationMensuelle::nombreJoursIndemnisesDansLeMois(int mois, int annee)
{
    const QString profession = retrouveEmploiUtilisateur();
    const QDate ouverture = retrouveDateOuvertureDroits().date();
    const QDate aujourdhui = Horloge::aujourdhui();
    const auto dansLeMois = [mois, annee](const QDate& jour) {
        return jour.isValid() && jour.year() == annee && jour.month() == mois;
    };
    const bool ouvertureDansLeMois = dansLeMois(ouverture);
    const bool aujourdhuiDansLeMois = dansLeMois(aujourdhui);

    // One day filter only: the opening's wins when today falls in the same month.
    QString filtre;
    if (ouvertureDansLeMois)
        filtre = QStringLiteral("AND (day >= '%1')").arg(ouverture.day());
    else if (aujourdhuiDansLeMois)
        filtre = QStringLiteral("AND (day <= '%1')").arg(aujourdhui.day());
    Requete r(m_db,
              QStringLiteral("SELECT strftime('%Y', c_debut_contrat) AS year, strftime('%m', c_debut_contrat) AS "
                             "month, CAST(strftime('%d', c_debut_contrat) AS INTEGER) AS day, "
                             "SUM(c_nbre_heures) FROM contrats WHERE (year = '%1') AND (month = '%2') AND "
                             "(c_effectue = 1) %3 GROUP BY year, month ORDER BY year, month;")
                  .arg(QString::number(uint(annee)), QStringLiteral("%1").arg(mois, 2, 10, QLatin1Char('0')), filtre));
    const int heures = r.suivante() ? int(r.entier(3)) : 0;

    const int joursDuMois = joursDansLeMois(mois, annee);
    // Both are taken off whichever filter was applied.
    const int avantOuverture = ouvertureDansLeMois ? ouverture.day() - 1 : 0;
    const int apresAujourdhui = aujourdhuiDansLeMois ? joursDuMois - aujourdhui.day() : 0;
    return joursDuMois - avantOuverture - apresAujourdhui - joursNonCompensesPourTravail(profession, heures);
}

int ActualisationMensuelle::nombreJoursIndemnisesDepuisLOuverture()
{
    const QDate ouverture = retrouveDateOuvertureDroits().date();
    const QDate aujourdhui = Horloge::aujourdhui();
    if (!ouverture.isValid() || ouverture > aujourdhui)
        return 0;
    int jours = 0;
    for (QDate mois(ouverture.year(), ouverture.month(), 1); mois <= aujourdhui; mois = mois.addMonths(1))
        jours += std::max(0, nombreJoursIndemnisesDansLeMois(mois.month(), mois.year()));
    return jours;
}

int ActualisationMensuelle::retrouveCongesPeriodeEnCoursWithId(int id)
{
    return int(m_db.entier(QStringLiteral("SELECT p_conges FROM periodes WHERE p_id = ?;"), {id}));
}

int ActualisationMensuelle::retrouveFranchiseSalairesPeriodeEnCoursWithId(int id)
{
    return int(m_db.entier(QStringLiteral("SELECT p_franchise_salaires FROM periodes WHERE p_id = ?;"), {id}));
}

double ActualisationMensuelle::retrouvePAS()
{
    return m_db.reel(QStringLiteral("SELECT u_pas FROM utilisateur WHERE u_id = 1;"));
}

bool ActualisationMensuelle::isAnneeBlancheActive()
{
    return m_db.entier(QStringLiteral("SELECT u_annee_blanche FROM utilisateur WHERE u_id = 1;")) == 1;
}

} // namespace corvane
