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
    return detailJoursIndemnisesDansLeMois(mois, annee).resultat();
}

DetailJoursIndemnises ActualisationMensuelle::detailJoursIndemnisesDansLeMois(int mois, int annee)
{
    DetailJoursIndemnises d;
    d.profession = retrouveEmploiUtilisateur();
    d.ouverture = retrouveDateOuvertureDroits().date();
    const QDate aujourdhui = Horloge::aujourdhui();
    const auto dansLeMois = [mois, annee](const QDate& jour) {
        return jour.isValid() && jour.year() == annee && jour.month() == mois;
    };
    const bool ouvertureDansLeMois = dansLeMois(d.ouverture);
    const bool aujourdhuiDansLeMois = dansLeMois(aujourdhui);

    // One day filter only: the opening's wins when today falls in the same month.
    QString filtre;
    if (ouvertureDansLeMois)
        filtre = QStringLiteral("AND (day >= '%1')").arg(d.ouverture.day());
    else if (aujourdhuiDansLeMois)
        filtre = QStringLiteral("AND (day <= '%1')").arg(aujourdhui.day());
    Requete r(m_db,
              QStringLiteral("SELECT strftime('%Y', c_debut_contrat) AS year, strftime('%m', c_debut_contrat) AS "
                             "month, CAST(strftime('%d', c_debut_contrat) AS INTEGER) AS day, "
                             "SUM(c_nbre_heures) FROM contrats WHERE (year = '%1') AND (month = '%2') AND "
                             "(c_effectue = 1) %3 GROUP BY year, month ORDER BY year, month;")
                  .arg(QString::number(uint(annee)), QStringLiteral("%1").arg(mois, 2, 10, QLatin1Char('0')), filtre));
    d.heures = r.suivante() ? int(r.entier(3)) : 0;

    d.joursDuMois = joursDansLeMois(mois, annee);
    // Both are taken off whichever filter was applied.
    d.avantOuverture = ouvertureDansLeMois ? d.ouverture.day() - 1 : 0;
    d.apresAujourdhui = aujourdhuiDansLeMois ? d.joursDuMois - aujourdhui.day() : 0;
    d.nonCompenses = joursNonCompensesPourTravail(d.profession, d.heures);
    return d;
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
