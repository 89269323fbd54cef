#include "regimes/Conges.h"

#include "store/Dates.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"
#include "unemployment/PoleEmploiVersements.h"

#include <sqlite3.h>

#include <cmath>

namespace corvane {

QPair<QDate, QDate> Conges::anneeDeConges(const QDate& jour)
{
    const int annee = jour.month() <= 3 ? jour.year() - 1 : jour.year();
    return {QDate(annee, 4, 1), QDate(annee + 1, 3, 31)};
}

const QStringList& Conges::clesContrats()
{
    static const QStringList cles{"Du",         "Au",    "Salaire brut", "Salaire net", "Salaire net à payer", "CP",
                                  "Enseigne",   "Heures", "Jours",       "Emploi",      "Du SQLite"};
    return cles;
}

Conges::Resultat Conges::congesSpectacles(const QString& type, const QDate& du, const QDate& au)
{
    Resultat r;
    if (type == QStringLiteral("PERIODE")) {
        r.du = du;
        r.au = au;
    } else {
        const auto annee = anneeDeConges(Horloge::aujourdhui());
        r.du = annee.first;
        r.au = annee.second;
    }
    r.contrats.cles = clesContrats();
    const QString debut = Dates::versSQLite(r.du);
    const QString fin = Dates::versSQLite(r.au);
    const QString conditions = QStringLiteral("WHERE (c_debut_contrat BETWEEN '%1' AND '%2') AND (c_fin_contrat BETWEEN "
                                              "'%1' AND '%2') AND (c_effectue=1) AND (c_conges=1) AND (c_type <> 4) "
                                              "AND (c_type <> 100) AND (c_type <> 101) AND (c_type <> 102)")
                                   .arg(debut, fin);
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM contrats JOIN employeurs ON c_employeur_id=employeurs.e_id "
                                   "JOIN emplois ON emplois.e_id = c_emploi_id %1;")
                        .arg(conditions)) == 0)
        return r;

    Requete q(m_db, QStringLiteral("SELECT c_employeur_id, c_debut_contrat, c_fin_contrat, c_salaire_brut, "
                                   "c_salaire_net, c_nbre_heures, c_nbre_jours, e_raison_sociale, e_codepostal, "
                                   "e_emploi, c_salaire_net_a_payer FROM contrats JOIN employeurs ON "
                                   "c_employeur_id=employeurs.e_id JOIN emplois ON emplois.e_id = c_emploi_id %1 ORDER "
                                   "BY c_debut_contrat ASC;")
                        .arg(conditions));
    while (q.suivante()) {
        const QString debutContrat = q.texte(1);
        const double brut = q.reel(3);
        const double net = q.reel(4);
        r.contrats.rangees.append({Dates::versAffichage(Dates::depuisSQLite(debutContrat)),
                                   Dates::versAffichage(Dates::depuisSQLite(q.texte(2))), brut, net, q.reel(10),
                                   q.texte(8), q.texte(7), int(q.entier(5)), int(q.entier(6)), q.texte(9),
                                   debutContrat});
        r.nombreCachets += int(q.entier(6));
        // Whole euros after every addition.
        r.revenusBruts = int(r.revenusBruts + brut);
        r.revenusNets = int(r.revenusNets + net);
    }
    if (r.nombreCachets <= 0)
        return r;
    r.nombreJoursConges = std::min(30.0, std::ceil(r.nombreCachets / 24.0 * 2.5));
    r.indemniteBrute = (r.revenusBruts * 10) / 100;
    r.indemniteNette = (r.revenusBruts * 8) / 100;
    r.resume = {{QStringLiteral("Du"), r.du.toString(QStringLiteral("dd/MM/yyyy"))},
                {QStringLiteral("Au"), r.au.toString(QStringLiteral("dd/MM/yyyy"))},
                {QStringLiteral("Salaires bruts"), enEuros(r.revenusBruts)},
                {QStringLiteral("Journées retenues"), QString::number(r.nombreCachets)},
                {QStringLiteral("Journées acquises"), enNombre(r.nombreJoursConges)},
                {QStringLiteral("Indemnité brute"), enEuros(r.indemniteBrute)},
                {QStringLiteral("Indemnité nette estimée"), enEuros(r.indemniteNette)}};
    return r;
}

const QStringList& CongesVersements::clesListe()
{
    static const QStringList cles{"Id", "Date", "Date SQLite", "Montant", "Encaissé"};
    return cles;
}

int CongesVersements::enregistreCongesVersements(const QDate& date, double montant, bool encaisse)
{
    if (!PoleEmploiVersements::refusValeurs(date, montant).isEmpty())
        return 0;
    const int code = m_db.executer(QStringLiteral("INSERT INTO congeshistorique (ch_date, ch_montant, ch_encaisse) "
                                                  "VALUES ('%1', %2, %3);")
                                       .arg(Dates::versSQLite(date), QString::number(montant, 'f', 2))
                                       .arg(int(encaisse)));
    return code == SQLITE_DONE ? int(m_db.dernierIdInsere()) : 0;
}

bool CongesVersements::modifieCongesVersements(int id, const QDate& date, double montant, bool encaisse)
{
    if (!PoleEmploiVersements::refusValeurs(date, montant).isEmpty())
        return false;
    return m_db.executer(QStringLiteral("UPDATE congeshistorique SET ch_date='%1', ch_montant=%2, ch_encaisse=%3 WHERE "
                                        "ch_id=%4;")
                             .arg(Dates::versSQLite(date), QString::number(montant, 'f', 2))
                             .arg(int(encaisse))
                             .arg(uint(id))) == SQLITE_DONE;
}

bool CongesVersements::supprimeCongesVersements(int id)
{
    return m_db.executer(QStringLiteral("DELETE FROM congeshistorique WHERE ch_id='%1';").arg(uint(id))) ==
           SQLITE_DONE;
}

bool CongesVersements::enregistreLesCochesPourId(int id, bool encaisse)
{
    return m_db.executer(QStringLiteral("UPDATE congeshistorique SET ch_encaisse=%1 WHERE ch_id=%2;")
                             .arg(int(encaisse))
                             .arg(uint(id))) == SQLITE_DONE;
}

bool CongesVersements::versementExiste(int id)
{
    return m_db.entier(QStringLiteral("SELECT COUNT(*) FROM congeshistorique WHERE ch_id = ?;"), {id}) > 0;
}

Table CongesVersements::listeLesVersements(const QString& sens)
{
    Table table{clesListe(), {}};
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM congeshistorique;")) == 0)
        return table;
    Requete r(m_db, QStringLiteral("SELECT ch_id, ch_date, ch_montant, ch_encaisse FROM congeshistorique ORDER BY %1;")
                        .arg(sens == QStringLiteral("DESC") ? QStringLiteral("ch_date DESC")
                                                            : QStringLiteral("ch_date ASC")));
    while (r.suivante()) {
        const QString stockee = r.texte(1);
        table.rangees.append({int(r.entier(0)), Dates::versAffichage(Dates::depuisSQLite(stockee)), stockee,
                              r.reel(2), int(r.entier(3))});
    }
    return table;
}

} // namespace corvane
