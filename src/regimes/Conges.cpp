#include "regimes/Conges.h"

#include "store/Dates.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"

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

} // namespace corvane
