#include "regimes/SecuriteSociale.h"

#include "store/Dates.h"
#include "store/Horloge.h"
#include "store/SaisieFrancaise.h"
#include "unemployment/ComptageHeures.h"
#include "unemployment/ParametresIntermittent.h"

#include <sqlite3.h>

#include <QHash>

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

QString jour(const QDate& date)
{
    return Dates::versSQLite(date);
}

QString oui(bool vrai)
{
    return vrai ? QStringLiteral("Oui") : QStringLiteral("Non");
}

// Euros as whole cents, so that a threshold is met to the cent and never missed by a
// binary fraction.
qint64 enCentimes(double euros)
{
    return std::llround(euros * 100.0);
}

// Hours and gross pay of the carried-out contracts starting between two days.
struct Sommes
{
    double heures = 0.0;
    double bruts = 0.0;
};

} // namespace

QString SecuriteSociale::codeDuType(int typeId)
{
    static const QStringList codes{"ACCIDENT",    "MALADIE",     "MATERNITE", "PATERNITE",
                                   "GENERALISTE", "SPECIALISTE", "PHARMACIE"};
    return typeId >= 1 && typeId <= codes.size() ? codes.at(typeId - 1) : QString();
}

const QStringList& SecuriteSociale::clesListe()
{
    static const QStringList cles{"Id Securite Sociale",
                                  "Date Debut SQLite",
                                  "Date Fin SQLite",
                                  "Type Detail",
                                  "Journees Suspendues",
                                  "Total I.J.",
                                  "ALD",
                                  "Remboursement Mutuelle",
                                  "Type",
                                  "Rembourse",
                                  "Note"};
    return cles;
}

const QStringList& SecuriteSociale::clesDroits()
{
    static const QStringList cles{"Libellé Gauche", "OuiNon Gauche", "Libellé Droit", "OuiNon Droit"};
    return cles;
}

void SecuriteSociale::calculeIncidences(PeriodeSecuriteSociale& p, const QDate& finDesDroits, int anciennesHeures,
                                        int anciennesPeriode)
{
    const int jours = int(Dates::joursEntre(p.debut, p.fin)) + 1;
    // One more than the inclusive count, as the rules have it.
    const int etendue = jours + 1;
    const int s = p.joursSuspendus;
    const int t = p.typeId;
    const bool frais = t >= Generaliste;
    const bool maladie = t == Maladie;
    p.nombreJours = jours;

    // Without a current period the end of rights is unknown: the current rules apply.
    const bool anciennesRegles = finDesDroits.isValid() && finDesDroits < QDate(2016, 8, 1);
    if (anciennesRegles) {
        if (maladie) {
            p.incidenceHeures = s;
            p.incidencePeriode = jours - s;
        } else if (frais) {
            p.incidenceHeures = 0;
            p.incidencePeriode = 0;
        } else {
            p.incidenceHeures = jours;
            p.incidencePeriode = 0;
        }
        return;
    }
    if (s < 1) {
        if (maladie && !p.ald) {
            p.incidenceHeures = 0;
            p.incidencePeriode = jours;
        } else if (frais) {
            p.incidenceHeures = 0;
            p.incidencePeriode = 0;
        } else {
            p.incidenceHeures = etendue;
            p.incidencePeriode = 0;
        }
        return;
    }
    if ((maladie && !p.ald) || (!maladie && !frais)) {
        p.incidenceHeures = s;
        p.incidencePeriode = 0;
    } else {
        // Nothing is recomputed: the form's values stay.
        p.incidenceHeures = anciennesHeures;
        p.incidencePeriode = anciennesPeriode;
    }
}

QString SecuriteSociale::refusValeurs(const PeriodeSecuriteSociale& p)
{
    if (const QString r = SaisieFrancaise::refusDate(p.debut); !r.isEmpty())
        return QStringLiteral("Date de début : %1.").arg(r);
    if (const QString r = SaisieFrancaise::refusDate(p.fin); !r.isEmpty())
        return QStringLiteral("Date de fin : %1.").arg(r);
    if (p.fin < p.debut)
        return QStringLiteral("La date de fin ne peut pas précéder la date de début.");
    const qint64 jours = Dates::joursEntre(p.debut, p.fin) + 1;
    if (jours > Limites::kJoursContratMaximum)
        return QStringLiteral("Une période ne peut pas dépasser %1 jours.").arg(Limites::kJoursContratMaximum);
    if (codeDuType(p.typeId).isEmpty())
        return QStringLiteral("Type inconnu : %1.").arg(p.typeId);
    if (const QString r = SaisieFrancaise::refusEntier(p.joursSuspendus, 0, int(jours)); !r.isEmpty())
        return QStringLiteral("Journées suspendues : %1.").arg(r);
    if (const QString r = SaisieFrancaise::refusNombre(p.totalIJ, Limites::kMontant); !r.isEmpty())
        return QStringLiteral("Total des indemnités journalières : %1.").arg(r);
    return {};
}

int SecuriteSociale::nombreDeSuperpositionsAvecContratsDu(const QDate& debut, const QDate& fin)
{
    const QStringList comptes{
        QStringLiteral("SELECT COUNT(*) FROM contrats WHERE (c_debut_contrat BETWEEN '%1' AND '%2') ORDER BY "
                       "c_debut_contrat ASC;"),
        QStringLiteral("SELECT COUNT(*) FROM contrats WHERE (c_debut_contrat BETWEEN '%1' AND '%2') AND "
                       "(c_fin_contrat BETWEEN '%1' AND '%2') ORDER BY c_debut_contrat ASC;"),
        QStringLiteral("SELECT COUNT(*) FROM contrats WHERE (c_fin_contrat BETWEEN '%1' AND '%2') ORDER BY "
                       "c_debut_contrat ASC;"),
        QStringLiteral("SELECT COUNT(*) FROM contrats WHERE (c_debut_contrat <= '%1' AND c_fin_contrat >= '%2') "
                       "ORDER BY c_debut_contrat ASC;"),
    };
    int somme = 0;
    for (const QString& compte : comptes)
        somme += int(m_db.entier(compte.arg(jour(debut), jour(fin))));
    return somme;
}

int SecuriteSociale::nombreDeSuperpositionsAvecPeriodesDu(const QDate& debut, const QDate& fin, int idExclu)
{
    if (compteLesSecuriteSociale() == 0)
        return 0;
    const QStringList comptes{
        QStringLiteral("SELECT COUNT(*) FROM securitesociale WHERE (ss_debut BETWEEN '%1' AND '%2') AND (ss_id <> "
                       "%3) ORDER BY ss_debut ASC;"),
        QStringLiteral("SELECT COUNT(*) FROM securitesociale WHERE (ss_debut BETWEEN '%1' AND '%2') AND (ss_fin "
                       "BETWEEN '%1' AND '%2') AND (ss_id <> %3) ORDER BY ss_debut ASC;"),
        QStringLiteral("SELECT COUNT(*) FROM securitesociale WHERE (ss_fin BETWEEN '%1' AND '%2') AND (ss_id <> "
                       "%3) ORDER BY ss_debut ASC;"),
        QStringLiteral("SELECT COUNT(*) FROM securitesociale WHERE (ss_debut <= '%1' AND ss_fin >= '%2') AND (ss_id "
                       "<> %3) ORDER BY ss_debut ASC;"),
    };
    int somme = 0;
    for (const QString& compte : comptes)
        somme += int(m_db.entier(compte.arg(jour(debut), jour(fin), QString::number(uint(idExclu)))));
    return somme;
}

QString SecuriteSociale::refusSuperpositions(const QDate& debut, const QDate& fin, int idExclu)
{
    const int contrats = nombreDeSuperpositionsAvecContratsDu(debut, fin);
    if (contrats == 1)
        return QStringLiteral("Cette période chevauche un contrat existant.");
    if (contrats > 1)
        return QStringLiteral("Cette période chevauche plusieurs contrats existants.");
    const int periodes = nombreDeSuperpositionsAvecPeriodesDu(debut, fin, idExclu);
    if (periodes == 1)
        return QStringLiteral("Cette période chevauche une période existante.");
    if (periodes > 1)
        return QStringLiteral("Cette période chevauche plusieurs périodes existantes.");
    return {};
}

int SecuriteSociale::compteLesSecuriteSociale()
{
    return int(m_db.entier(QStringLiteral("SELECT COUNT(*) FROM securitesociale;")));
}

bool SecuriteSociale::securiteSocialeExiste(int id)
{
    return m_db.entier(QStringLiteral("SELECT COUNT(*) FROM securitesociale WHERE ss_id = ?;"), {id}) > 0;
}

PeriodeSecuriteSociale SecuriteSociale::retrouveSecuriteSociale(int id)
{
    PeriodeSecuriteSociale p;
    Requete r(m_db, QStringLiteral("SELECT ss_debut, ss_fin, ss_type_id, ss_note, ss_rembourse, ss_nbre_jours, "
                                   "ss_nbre_jours_suspendus, ss_incidence_heures, ss_incidence_periode, ss_total_ij, "
                                   "ss_ald, ss_rembourse_mutuelle FROM securitesociale WHERE ss_id = ?;"));
    r.lier(1, id);
    if (!r.suivante())
        return p;
    p.debut = Dates::depuisSQLite(r.texte(0));
    p.fin = Dates::depuisSQLite(r.texte(1));
    p.typeId = int(r.entier(2));
    p.note = r.texte(3);
    p.rembourse = r.entier(4) != 0;
    p.nombreJours = int(r.entier(5));
    p.joursSuspendus = int(r.entier(6));
    p.incidenceHeures = int(r.entier(7));
    p.incidencePeriode = int(r.entier(8));
    p.totalIJ = r.reel(9);
    p.ald = r.entier(10) != 0;
    p.rembourseMutuelle = r.entier(11) != 0;
    return p;
}

int SecuriteSociale::enregistreSecuriteSociale(PeriodeSecuriteSociale& p)
{
    if (!refusValeurs(p).isEmpty() || !refusSuperpositions(p.debut, p.fin, 0).isEmpty())
        return 0;
    calculeIncidences(p, retrouveDateFinDePeriodeEnCours(), 0, 0);
    const int code = m_db.executer(
        QStringLiteral("INSERT INTO securitesociale (ss_debut, ss_fin, ss_type_id, ss_note, ss_rembourse, "
                       "ss_nbre_jours, ss_nbre_jours_suspendus, ss_incidence_heures, ss_incidence_periode, "
                       "ss_total_ij, ss_ald, ss_rembourse_mutuelle) VALUES ('%1', '%2', %3, ?, %4, %5, %6, %7, %8, "
                       "%9, %10, %11);")
            .arg(jour(p.debut), jour(p.fin), QString::number(uint(p.typeId)), QString::number(uint(p.rembourse)),
                 QString::number(uint(p.nombreJours)), QString::number(uint(p.joursSuspendus)),
                 QString::number(uint(p.incidenceHeures)), QString::number(uint(p.incidencePeriode)),
                 QString::number(p.totalIJ, 'f', 2))
            .arg(uint(p.ald))
            .arg(uint(p.rembourseMutuelle)),
        {texteNonNul(p.note)});
    return code == SQLITE_DONE ? int(m_db.dernierIdInsere()) : 0;
}

bool SecuriteSociale::modifieSecuriteSociale(int id, PeriodeSecuriteSociale& p)
{
    if (!securiteSocialeExiste(id) || !refusValeurs(p).isEmpty() || !refusSuperpositions(p.debut, p.fin, id).isEmpty())
        return false;
    const PeriodeSecuriteSociale ancienne = retrouveSecuriteSociale(id);
    calculeIncidences(p, retrouveDateFinDePeriodeEnCours(), ancienne.incidenceHeures, ancienne.incidencePeriode);
    return m_db.executer(
               QStringLiteral("UPDATE securitesociale SET ss_debut='%1', ss_fin='%2', ss_type_id='%3', "
                              "ss_note=?, ss_rembourse='%4', ss_nbre_jours='%5', ss_nbre_jours_suspendus='%6', "
                              "ss_incidence_heures='%7', ss_incidence_periode='%8', ss_total_ij='%9', "
                              "ss_ald='%10', ss_rembourse_mutuelle = '%11' WHERE ss_id=?;")
                   .arg(jour(p.debut), jour(p.fin), QString::number(uint(p.typeId)), QString::number(uint(p.rembourse)),
                        QString::number(uint(p.nombreJours)), QString::number(uint(p.joursSuspendus)),
                        QString::number(uint(p.incidenceHeures)), QString::number(uint(p.incidencePeriode)),
                        QString::number(p.totalIJ, 'f', 2))
                   .arg(uint(p.ald))
                   .arg(uint(p.rembourseMutuelle)),
               {texteNonNul(p.note), id}) == SQLITE_DONE;
}

bool SecuriteSociale::supprimeSecuriteSociale(int id)
{
    return m_db.executer(QStringLiteral("DELETE FROM securitesociale WHERE ss_id = %1;").arg(uint(id))) == SQLITE_DONE;
}

bool SecuriteSociale::enregistreLeCocheRemboursePourId(int id, bool rembourse)
{
    return m_db.executer(QStringLiteral("UPDATE securitesociale SET ss_rembourse = %1 WHERE ss_id = %2;")
                             .arg(uint(rembourse))
                             .arg(uint(id))) == SQLITE_DONE;
}

bool SecuriteSociale::enregistreLeCocheRembourseMutuellePourId(int id, bool rembourse)
{
    return m_db.executer(QStringLiteral("UPDATE securitesociale SET ss_rembourse_mutuelle = %1 WHERE ss_id = %2;")
                             .arg(uint(rembourse))
                             .arg(uint(id))) == SQLITE_DONE;
}

bool SecuriteSociale::enregistreLeCocheAldPourId(int id, bool ald)
{
    return m_db.executer(QStringLiteral("UPDATE securitesociale SET ss_ald = %1 WHERE ss_id = %2;")
                             .arg(uint(ald))
                             .arg(uint(id))) == SQLITE_DONE;
}

Table SecuriteSociale::listeLesPeriodesV4(const QString& tri, int typeId, const QString& classement, const QDate& du,
                                          const QDate& au)
{
    const QString entre = QStringLiteral("WHERE (ss_debut BETWEEN '%1' AND '%2')");
    QString filtre;
    if (tri == QStringLiteral("periode_reference"))
        filtre = entre.arg(jour(retrouveDateOuvertureDroits().date()), jour(retrouveDateFinDePeriodeEnCours()));
    else if (tri == QStringLiteral("annee"))
        filtre = QStringLiteral("WHERE (ss_debut BETWEEN date('now', 'start of year') AND date('now', 'start of "
                                "year', '+1 year'))");
    else if (tri == QStringLiteral("periode"))
        filtre = entre.arg(jour(du), jour(au));
    if (typeId > 0)
        filtre += (filtre.isEmpty() ? QStringLiteral("WHERE ss_type_id = %1") : QStringLiteral(" AND ss_type_id = %1"))
                      .arg(uint(typeId));
    const QString ordre = classement == QStringLiteral("DESC") ? QStringLiteral(" ORDER BY ss_debut DESC")
                                                               : QStringLiteral(" ORDER BY ss_debut ASC");

    Table table{clesListe(), {}};
    Requete r(m_db, QStringLiteral("SELECT ss_id, ss_debut, ss_fin, ss_type_id, ss_note, ss_rembourse, "
                                   "ss_nbre_jours_suspendus, ss_total_ij, ss_ald, ss_rembourse_mutuelle FROM "
                                   "securitesociale %1%2;")
                        .arg(filtre, ordre));
    // The kinds' labels read once, not once a row.
    QHash<int, QString> libelles;
    while (r.suivante()) {
        const int type = int(r.entier(3));
        auto libelle = libelles.find(type);
        if (libelle == libelles.end())
            libelle = libelles.insert(type, retrouveSecuriteSocialeTypeDepuisId(type));
        table.rangees.append({int(r.entier(0)), r.texte(1), r.texte(2), *libelle, int(r.entier(6)), r.reel(7),
                              oui(r.entier(8) != 0), oui(r.entier(9) != 0), codeDuType(type), oui(r.entier(5) != 0),
                              r.texte(4)});
    }
    return table;
}

QString SecuriteSociale::messageSansContrat()
{
    return QStringLiteral("Vos droits sociaux ne peuvent pas être calculés, car vous n'avez déclaré aucun contrat.");
}

Table SecuriteSociale::verifieLesDroits(const QDate& d)
{
    Table table{clesDroits(), {}};
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM contrats;")) == 0)
        return table;

    // The minimum wage of the last contract worked since the opening of rights.
    QDate jourSmic = ComptageHeures(m_db).dernierJourDuDernierContrat();
    if (!jourSmic.isValid())
        jourSmic = retrouveDateOuvertureDroits().date();
    const double smic = ParametresIntermittent::smicHoraireEnCours(jourSmic);

    // Gross pay cut to whole euros, in cents.
    auto entiers = [](double bruts) { return qint64(std::floor(bruts + 1e-9)) * 100; };
    auto seuil = [&](double fois) { return enCentimes(fois * smic); };

    // Every span ends on D; their hours and gross pay are summed in one pass over the carried-out
    // contracts of the widest span, each sum adding the same rows in the same order as a query of
    // its own would.
    const int annee = Horloge::aujourdhui().year();
    const QList<QDate> debuts{
        QDate(d.year(), d.month(), 1),                // the month to date
        d.addMonths(-1).addDays(1),                   // the last month
        d.addDays(-365),                              // 365 days
        d.addMonths(-12).addDays(1),                  // twelve months
        QDate(annee, 1, 1),                           // the year to date
        QDate(annee, (d.month() - 1) / 3 * 3 + 1, 1), // the quarter
        d.addMonths(-3).addDays(1),                   // three months
    };
    QStringList colonnes;
    for (const QDate& debut : debuts)
        for (const char* colonne : {"c_nbre_heures", "c_salaire_brut"})
            colonnes << QStringLiteral("SUM(CASE WHEN c_debut_contrat BETWEEN '%1' AND '%2' THEN %3 END)")
                            .arg(jour(debut), jour(d), QLatin1String(colonne));
    QList<Sommes> sommes(debuts.size());
    const QDate premier = *std::min_element(debuts.cbegin(), debuts.cend());
    Requete r(m_db, QStringLiteral("SELECT %1 FROM contrats WHERE (c_effectue=1) AND (c_debut_contrat BETWEEN '%2' "
                                   "AND '%3');")
                        .arg(colonnes.join(", "), jour(premier), jour(d)));
    if (r.suivante())
        for (int i = 0; i < debuts.size(); ++i)
            sommes[i] = {r.reel(2 * i), r.reel(2 * i + 1)};
    const Sommes mois = sommes[0];
    const Sommes dernierMois = sommes[1];
    const double h365 = sommes[2].heures;
    const double g12 = sommes[3].bruts;
    const Sommes depuisJanvier = sommes[4];
    const double hTrimestre = sommes[5].heures;
    const double h3 = sommes[6].heures;

    const qint64 gm = entiers(mois.bruts), g1 = entiers(dernierMois.bruts), gy = entiers(depuisJanvier.bruts);
    const qint64 g12Entiers = entiers(g12);

    const bool maladieCourte = h3 >= 200 || g12Entiers >= seuil(1015);
    const bool fraisMedicaux = mois.heures >= 60 || dernierMois.heures >= 60 || gm >= seuil(60) || g1 >= seuil(60) ||
                               mois.heures >= 120 || dernierMois.heures >= 120 || depuisJanvier.heures >= 1200 ||
                               gy >= seuil(2030);
    const bool maladieLongue = ((depuisJanvier.heures >= 800 || h365 >= 800) && h3 >= 200) ||
                               (g12Entiers >= seuil(2030) && enCentimes(g12) >= seuil(1015));
    const bool effectues =
        m_db.entier(QStringLiteral("SELECT COUNT(*) AS compteurContratsEffectues FROM contrats WHERE c_effectue=1;")) >
        0;
    const bool maternite = hTrimestre >= 200 || h3 >= 200 || g12Entiers >= seuil(1015);

    table.rangees = {
        {QStringLiteral("Indemnités journalières"), QString(""), QStringLiteral("Prises en charge possibles"),
         QString("")},
        {QStringLiteral("Maladie (<= 6 mois)"), oui(maladieCourte), QStringLiteral("Remboursement de frais médicaux"),
         oui(fraisMedicaux)},
        {QStringLiteral("Maladie (> 6 mois)"), oui(maladieLongue), QStringLiteral("Accident du travail"),
         oui(effectues)},
        {QStringLiteral("Maternité / Paternité"), oui(maternite), QStringLiteral("Maladie professionnelle"),
         oui(effectues)},
    };
    return table;
}

QStringList SecuriteSociale::tousLesTypes()
{
    return m_db.colonne(QStringLiteral("SELECT sst_type FROM securitesocialetypes ORDER BY sst_id ASC;"));
}

} // namespace corvane
