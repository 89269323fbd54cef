#include "unemployment/ComptageHeures.h"

#include "store/Annexes.h"
#include "store/Dates.h"
#include "store/Horloge.h"

#include <QLoggingCategory>

namespace corvane {

namespace {

// The hours table, when asked for: QT_LOGGING_RULES="corvane.heures.debug=true".
Q_LOGGING_CATEGORY(journalHeures, "corvane.heures", QtWarningMsg)

// The teaching hours at non-approved employers of one job, always within the span.
QString requeteEnseignementNonConventionne(int emploi)
{
    if (emploi == 1)
        return QStringLiteral("SELECT c_employeur_id, c_type, SUM(c_nbre_heures) AS totalHeures, e_id, e_conventionne "
                              "FROM contrats JOIN employeurs ON c_employeur_id = e_id WHERE (c_debut_contrat BETWEEN "
                              "'%1' AND '%2') AND %3 AND (c_emploi_id=1) AND (c_type = 2) AND e_conventionne = 0;");
    return QStringLiteral("SELECT c_employeur_id, c_type, SUM(c_nbre_heures) AS totalHeures, e_id, e_conventionne FROM "
                          "contrats JOIN employeurs ON c_employeur_id = e_id WHERE (c_debut_contrat BETWEEN '%1' AND "
                          "'%2') AND %3 AND (c_emploi_id=%4) AND c_type = 2 AND e_conventionne = 0;")
        .replace(QStringLiteral("%4"), QString::number(emploi));
}

bool estRestreintALaPeriode(const QString& mode)
{
    return mode == QStringLiteral("simulation") || mode == QStringLiteral("analyses");
}

} // namespace

ComptageHeures::ComptageHeures(const QString& chemin) : Intermittent(chemin) {}

const QStringList& ComptageHeures::conditionsDesContrats()
{
    static const QStringList liste{QStringLiteral("((c_effectue=0) OR (c_effectue=1))"),
                                   QStringLiteral("(c_effectue=1)"), QStringLiteral("(c_effectue=0)")};
    return liste;
}

TableauHeures ComptageHeures::compteHeuresParEmploiEtParType(const QString& mode, const QDate& debut, const QDate& fin,
                                                             const QString& triDesContrats)
{
    TableauHeures heures{};
    const QString du = Dates::versSQLite(debut);
    const QString au = Dates::versSQLite(fin);
    const bool restreint = estRestreintALaPeriode(mode);
    for (int emploi = 1; emploi <= 3; ++emploi) {
        // The condition is inserted in the same pass as the dates, so a '%' in it is never read as a marker.
        qint64 nonConventionnees = 0;
        {
            Requete r(m_db, requeteEnseignementNonConventionne(emploi).arg(du, au, triDesContrats));
            if (r.suivante())
                nonConventionnees = r.entier(2);
        }
        QString sommes;
        if (restreint)
            sommes = QStringLiteral("SELECT c_type, SUM(c_nbre_heures) AS totalHeures FROM contrats WHERE "
                                    "(c_debut_contrat BETWEEN '%1' AND '%2') AND %3 AND (c_emploi_id=%4) GROUP BY "
                                    "c_type")
                         .arg(du, au, triDesContrats, QString::number(emploi));
        else if (mode == QStringLiteral("contrats"))
            sommes = QStringLiteral("SELECT c_type, SUM(c_nbre_heures) AS totalHeures FROM contrats WHERE %1 AND "
                                    "(c_emploi_id=%2) GROUP BY c_type")
                         .arg(triDesContrats, QString::number(emploi));
        if (sommes.isEmpty())
            continue;
        const int base = 3 * (emploi - 1);
        Requete r(m_db, sommes);
        while (r.suivante()) {
            const qint64 type = r.entier(0);
            // Read as an integer: a fractional sum is truncated.
            const qint64 total = r.entier(1);
            if (type == 1)
                heures[base] = int(total);
            else if (type == 2)
                heures[base + 1] = int(total - nonConventionnees);
            else if (type == 3)
                heures[base + 2] = int(total);
        }
    }
    const qint64 incidence = restreint
                                 ? m_db.entier(QStringLiteral("SELECT SUM(ss_incidence_heures) AS incidenceHeures FROM "
                                                              "securitesociale WHERE (ss_debut BETWEEN '%1' AND '%2')")
                                                   .arg(du, au))
                                 : m_db.entier(QStringLiteral("SELECT SUM(ss_incidence_heures) AS incidenceHeures FROM "
                                                              "securitesociale"));
    heures[9] = int(incidence * assimilationTravailSecuriteSociale);
    qCDebug(journalHeures, "Tableau des heures : %d %d %d %d %d %d %d %d %d *** %d", heures[0], heures[1], heures[2],
            heures[3], heures[4], heures[5], heures[6], heures[7], heures[8], heures[9]);
    return heures;
}

int ComptageHeures::retrouveHeuresParJour()
{
    // Unlike the per-profession lookup, any job but "Artiste" is counted as annex 8 here.
    return int(retrouveEmploiUtilisateur() == QStringLiteral("Artiste") ? Artiste().heuresParJour
                                                                        : OuvrierTechnicien().heuresParJour);
}

int ComptageHeures::allongementPeriode(const QDate& debut, const QDate& fin)
{
    return int(m_db.entier(QStringLiteral("SELECT SUM(ss_incidence_periode) AS allongementEnJours FROM "
                                          "securitesociale WHERE (ss_debut BETWEEN '%1' AND '%2');")
                               .arg(Dates::versSQLite(debut), Dates::versSQLite(fin))));
}

QDate ComptageHeures::dernierJourDuDernierContrat()
{
    const QDate ouverture = retrouveDateOuvertureDroits().date();
    return Dates::depuisSQLite(m_db.texte(QStringLiteral("SELECT c_fin_contrat FROM contrats WHERE (c_debut_contrat >= "
                                                         "'%1') AND (c_effectue=1) ORDER BY c_debut_contrat DESC "
                                                         "LIMIT 1;")
                                              .arg(Dates::versSQLite(ouverture))));
}

QDate ComptageHeures::dateDebutDuDernierContratEffectueAvantToday()
{
    const QDate ouverture = retrouveDateOuvertureDroits().date();
    const QDate aujourdhui = Horloge::aujourdhui();
    const QString debut = m_db.texte(QStringLiteral("SELECT c_debut_contrat AS dateDebut FROM contrats WHERE "
                                                    "(c_debut_contrat BETWEEN '%1' AND '%2') AND (c_effectue=1) ORDER "
                                                    "BY dateDebut DESC LIMIT - 1;")
                                         .arg(Dates::versSQLite(ouverture), Dates::versSQLite(aujourdhui)));
    return debut.isEmpty() ? aujourdhui : Dates::depuisSQLite(debut);
}

int ComptageHeures::nombreDeJoursEntre(const QDate& debut, const QDate& fin)
{
    if (!debut.isValid() || !fin.isValid())
        return 0;
    if (fin < debut)
        return -nombreDeJoursEntre(fin, debut);
    // Whole months first (a month from the 31st ends on the month's last day), then the days left.
    int mois = (fin.year() - debut.year()) * 12 + fin.month() - debut.month();
    if (debut.addMonths(mois) > fin)
        --mois;
    return int(debut.addMonths(mois).daysTo(fin));
}

int ComptageHeures::joursDansLeMois(int mois, int annee)
{
    switch (mois) {
    case 1:
    case 3:
    case 5:
    case 7:
    case 8:
    case 10:
    case 12:
        return 31;
    case 4:
    case 6:
    case 9:
    case 11:
        return 30;
    case 2:
        return annee % 4 == 0 ? 29 : 28;
    default:
        return 0;
    }
}

float ComptageHeures::numberOfMonthsBetweenFirstDate(const QDate& premiere, const QDate& seconde)
{
    if (!premiere.isValid() || !seconde.isValid() || premiere > seconde)
        return 0.0f;
    const int joursPremier = joursDansLeMois(premiere.month(), premiere.year());
    if (premiere.year() == seconde.year() && premiere.month() == seconde.month())
        return float(double(premiere.daysTo(seconde)) / joursPremier);
    const int joursSecond = joursDansLeMois(seconde.month(), seconde.year());
    return float(double(joursPremier - premiere.day()) / joursPremier + (seconde.month() - (premiere.month() + 1)) +
                 12.0 * (seconde.year() - premiere.year()) + double(seconde.day()) / joursSecond);
}

} // namespace corvane
