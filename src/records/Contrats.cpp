#include "records/Contrats.h"

#include "store/Dates.h"
#include "store/Horloge.h"

#include <cmath>
#include <sqlite3.h>

namespace corvane {

namespace {

QString deuxDecimales(double montant)
{
    return QString::number(montant, 'f', 2);
}

// Amounts are written with two decimals, halves away from zero.
double auCentime(double montant)
{
    return std::round(montant * 100.0) / 100.0;
}

QString u(int valeur)
{
    return QString::number(uint(valeur));
}

} // namespace

Contrats::Contrats(const QString& chemin) : Intermittent(chemin) {}

Contrats::Contrats(BaseDeDonnees& connexion) : Intermittent(connexion) {}

bool Contrats::contratExiste(int id)
{
    return m_db.entier(QStringLiteral("SELECT COUNT(*) FROM contrats WHERE c_id = ?;"), {id}) > 0;
}

bool Contrats::aLesColonnesEcran()
{
    return Requete(m_db, QStringLiteral("SELECT c_aem_fp, c_pas, c_lieu, c_annee_encaissement, e_guso, (SELECT "
                                        "COUNT(frais_id) FROM contrats_frais) FROM contrats JOIN employeurs LIMIT 0;"))
        .estPreparee();
}

int Contrats::compteLesContrats()
{
    return int(m_db.entier("SELECT COUNT(*) AS compteurContrats FROM contrats;"));
}

int Contrats::compteLesContratsParEmployeur(int id)
{
    return int(m_db.entier(
        QStringLiteral("SELECT COUNT(*) AS compteurContrats FROM contrats WHERE c_employeur_id='%1';").arg(u(id))));
}

int Contrats::enregistreContrat(const Contrat& c)
{
    // The day-number list is bound as well: its character rule lets any text through.
    const QString sql =
        QStringLiteral("INSERT INTO contrats (c_employeur_id, c_emploi_id, c_debut_contrat, c_fin_contrat, "
                       "c_nbre_heures, c_salaire_brut, c_salaire_net, c_abattement, c_nbre_jours, c_liste_dates, "
                       "c_effectue, c_paye, c_note, c_type, c_fonction, c_conges) VALUES ('%1', '%2', '%3', '%4', "
                       "'%5','%6', '%7', '%8', '%9', ?, '%10', '%11', ?, '%12', ?, '%13');")
            .arg(u(c.employeurId), u(c.emploiId), Dates::versSQLite(c.debut), Dates::versSQLite(c.fin), u(c.heures),
                 deuxDecimales(c.brut), deuxDecimales(c.net), u(c.abattementId), u(c.jours))
            .arg(u(c.effectue), u(c.paye), u(c.type), u(c.conges));
    if (m_db.executer(sql, {c.listeDates, c.note, c.fonction}) != SQLITE_DONE)
        return 0;
    return int(m_db.dernierIdInsere());
}

void Contrats::modifieContrat(const Contrat& c)
{
    const QString sql =
        QStringLiteral("UPDATE contrats SET c_employeur_id='%1', c_emploi_id='%2', c_debut_contrat='%3', "
                       "c_fin_contrat='%4', c_nbre_heures='%5', c_salaire_brut='%6', c_salaire_net='%7', "
                       "c_abattement='%8', c_nbre_jours='%9', c_liste_dates=?, c_effectue='%10', c_paye='%11', "
                       "c_note=?, c_type='%12', c_fonction=?, c_conges='%13' WHERE c_id=?;")
            .arg(u(c.employeurId), u(c.emploiId), Dates::versSQLite(c.debut), Dates::versSQLite(c.fin), u(c.heures),
                 deuxDecimales(c.brut), deuxDecimales(c.net), u(c.abattementId), u(c.jours))
            .arg(u(c.effectue), u(c.paye), u(c.type), u(c.conges));
    m_db.executer(sql, {c.listeDates, c.note, c.fonction, c.id});
}

QVariantList Contrats::valeursEcran(const Contrat& c)
{
    QStringList frais;
    for (const int f : c.fraisLies)
        frais << QString::number(f);
    return {c.employeurId,
            c.emploiId,
            Dates::versSQLite(c.debut),
            Dates::versSQLite(c.fin),
            c.heures,
            auCentime(c.brut),
            auCentime(c.net),
            c.abattementId,
            c.jours,
            texteNonNul(c.listeDates),
            int(c.effectue),
            int(c.paye),
            texteNonNul(c.note),
            c.type,
            texteNonNul(c.fonction),
            int(c.conges),
            c.datesTravaillees.join(QLatin1Char(',')),
            frais.join(QLatin1Char(',')),
            auCentime(c.netAPayer),
            c.anneeEncaissement,
            texteNonNul(c.lieu),
            int(c.aemFp),
            auCentime(c.pas)};
}

int Contrats::enregistreContratDepuisEcran(const Contrat& contrat)
{
    const QString sql = QStringLiteral(
        "INSERT INTO contrats (c_employeur_id, c_emploi_id, c_debut_contrat, c_fin_contrat, c_nbre_heures, "
        "c_salaire_brut, c_salaire_net, c_abattement, c_nbre_jours, c_liste_dates, c_effectue, c_paye, c_note, "
        "c_type, c_fonction, c_conges, c_dates_travaillees, c_frais_lies, c_salaire_net_a_payer, "
        "c_annee_encaissement, c_lieu, c_aem_fp, c_pas) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
        "?, ?, ?, ?, ?);");
    if (m_db.executer(sql, valeursEcran(contrat)) != SQLITE_DONE)
        return 0;
    return int(m_db.dernierIdInsere());
}

void Contrats::modifieContratDepuisEcran(const Contrat& contrat)
{
    const QString sql = QStringLiteral(
        "UPDATE contrats SET c_employeur_id = ?, c_emploi_id = ?, c_debut_contrat = ?, c_fin_contrat = ?, "
        "c_nbre_heures = ?, c_salaire_brut = ?, c_salaire_net = ?, c_abattement = ?, c_nbre_jours = ?, "
        "c_liste_dates = ?, c_effectue = ?, c_paye = ?, c_note = ?, c_type = ?, c_fonction = ?, c_conges = ?, "
        "c_dates_travaillees = ?, c_frais_lies = ?, c_salaire_net_a_payer = ?, c_annee_encaissement = ?, c_lieu = ?, "
        "c_aem_fp = ?, c_pas = ? WHERE c_id = ?;");
    m_db.executer(sql, valeursEcran(contrat) << contrat.id);
}

std::optional<Contrat> Contrats::chargeContrat(int id)
{
    Requete r(m_db, QStringLiteral("SELECT c_employeur_id, c_emploi_id, c_debut_contrat, c_fin_contrat, "
                                   "c_nbre_heures, c_salaire_brut, c_salaire_net, c_abattement, c_nbre_jours, "
                                   "c_liste_dates, c_effectue, c_paye, c_note, c_type, c_fonction, c_conges, "
                                   "c_dates_travaillees, c_frais_lies, c_salaire_net_a_payer, c_annee_encaissement, "
                                   "c_lieu, c_aem_fp, c_pas FROM contrats WHERE c_id = %1;")
                        .arg(u(id)));
    if (!r.suivante())
        return std::nullopt;
    Contrat c;
    c.id = id;
    c.employeurId = int(r.entier(0));
    c.emploiId = int(r.entier(1));
    c.debut = Dates::depuisSQLite(r.texte(2));
    c.fin = Dates::depuisSQLite(r.texte(3));
    c.heures = int(r.entier(4));
    c.brut = r.reel(5);
    c.net = r.reel(6);
    c.abattementId = int(r.entier(7));
    c.jours = int(r.entier(8));
    c.listeDates = r.texte(9);
    c.effectue = r.entier(10) != 0;
    c.paye = r.entier(11) != 0;
    c.note = r.texte(12);
    c.type = int(r.entier(13));
    c.fonction = r.texte(14);
    c.conges = r.entier(15) != 0;
    const QString dates = r.texte(16);
    c.datesTravaillees = dates.isEmpty() ? QStringList() : dates.split(QLatin1Char(','));
    for (const QString& f : r.texte(17).split(QLatin1Char(','), Qt::SkipEmptyParts))
        c.fraisLies << f.toInt();
    c.netAPayer = r.reel(18);
    c.anneeEncaissement = int(r.entier(19));
    c.lieu = r.texte(20);
    c.aemFp = r.estNul(21) || r.entier(21) != 0;
    c.pas = r.reel(22);
    return c;
}

void Contrats::supprimeContrat(int id)
{
    m_db.executer(QStringLiteral("DELETE FROM contrats WHERE c_id='%1';").arg(u(id)));
}

void Contrats::supprimeContratsParEmployeur(int id)
{
    m_db.executer(QStringLiteral("DELETE FROM contrats WHERE c_employeur_id='%1';").arg(u(id)));
}

void Contrats::enregistreLesCochesPourId(int id, int effectueCoche, int paye, int congesCoche, int aemfp)
{
    m_db.executer(QStringLiteral("UPDATE contrats SET c_effectue=%1, c_paye=%2, c_conges=%3, c_aem_fp=%4 WHERE "
                                 "c_id=%5;")
                      .arg(u(effectueCoche), u(paye), u(congesCoche), u(aemfp), u(id)));
}

bool Contrats::isModeleExistePourEmployeur(int id)
{
    return m_db.entier(QStringLiteral("SELECT COUNT(*) FROM contratsmodeles JOIN employeurs ON e_contratmodele_id = "
                                      "cm_id WHERE employeurs.e_id=%1;")
                           .arg(u(id))) != 0;
}

bool Contrats::isModeleExistePourEmployeur(const QString& raisonSociale)
{
    return isModeleExistePourEmployeur(retrouveEmployeurId(raisonSociale));
}

QStringList Contrats::tousLesTypesDeContrats()
{
    return m_db.colonne("SELECT ct_type FROM contratstypes ORDER BY ct_type ASC;");
}

int Contrats::dupliqueContrat(int id)
{
    const std::optional<Contrat> source = chargeContrat(id);
    if (!source)
        return 0;
    const Contrat& c = *source;
    // Free text (note, function, place, worked dates, cashing year as stored) is bound.
    const QString anneeTexte =
        m_db.texte(QStringLiteral("SELECT c_annee_encaissement FROM contrats WHERE c_id = %1;").arg(u(id)));
    const QString sql =
        QStringLiteral("INSERT INTO contrats (c_employeur_id, c_emploi_id, c_debut_contrat, c_fin_contrat, "
                       "c_nbre_heures, c_salaire_brut, c_salaire_net, c_abattement, c_nbre_jours, "
                       "c_dates_travaillees, c_effectue, c_paye, c_note, c_type, c_fonction, c_conges, "
                       "c_salaire_net_a_payer, c_annee_encaissement, c_lieu, c_liste_dates) VALUES ('%1', '%2', "
                       "'%3', '%4', '%5','%6', '%7', '%8', '%9', ?, '%10', '%11', ?, '%12', ?, '%13', '%14', ?, ?, "
                       "'');")
            .arg(u(c.employeurId), u(c.emploiId), Dates::versSQLite(c.debut), Dates::versSQLite(c.fin), u(c.heures),
                 deuxDecimales(c.brut), deuxDecimales(c.net), u(c.abattementId), u(c.jours))
            .arg(u(c.effectue), u(c.paye), u(c.type), u(c.conges), deuxDecimales(c.netAPayer));
    if (m_db.executer(sql, {c.datesTravaillees.join(QLatin1Char(',')), texteNonNul(c.note), texteNonNul(c.fonction),
                            anneeTexte, texteNonNul(c.lieu)}) != SQLITE_DONE)
        return 0;
    return int(m_db.dernierIdInsere());
}

void Contrats::supprimeContratsEtLiens(const QList<int>& ids)
{
    for (const int id : ids) {
        const QStringList frais = m_db.colonne(
            QStringLiteral("SELECT frais_id AS fraisId FROM contrats_frais WHERE contrat_id = %1;").arg(u(id)));
        for (const QString& fraisId : frais)
            m_db.executer(QStringLiteral("DELETE FROM contrats_frais WHERE frais_id = %1;").arg(fraisId.toUInt()));
        m_db.executer(QStringLiteral("DELETE FROM contrats WHERE c_id = %1;").arg(u(id)));
    }
}

void Contrats::enregistreFraisLies(int contratId, const QList<int>& frais)
{
    m_db.executer(QStringLiteral("DELETE FROM contrats_frais WHERE contrat_id = %1;").arg(u(contratId)));
    for (const int fraisId : frais) {
        m_db.executer(
            QStringLiteral("UPDATE frais SET f_contrat_lie = %1  WHERE f_id = %2;").arg(u(contratId), u(fraisId)));
        m_db.executer(QStringLiteral("INSERT INTO contrats_frais (contrat_id, frais_id) VALUES (%1, %2);")
                          .arg(u(contratId), u(fraisId)));
    }
}

QList<int> Contrats::fraisLiesAuContrat(int contratId)
{
    QList<int> liste;
    for (const QString& id : m_db.colonne(
             QStringLiteral("SELECT frais_id AS fraisId FROM contrats_frais WHERE contrat_id = %1;").arg(u(contratId))))
        liste << id.toInt();
    return liste;
}

Lignes Contrats::tousLesFrais()
{
    // The linked contract is named by its start and its employer: its record number means nothing to the user.
    return m_db.lignes("SELECT f_id, f_date, f_details, f_montant, f_contrat_lie, c_debut_contrat AS lie_debut, "
                       "e_raison_sociale AS lie_employeur FROM frais LEFT JOIN contrats ON f_contrat_lie != '' AND "
                       "c_id = f_contrat_lie LEFT JOIN employeurs ON e_id = c_employeur_id ORDER BY f_date DESC, "
                       "f_id DESC;");
}

void Contrats::enregistreDatesPeriode(const QDate& du, const QDate& au)
{
    enregistreDatePreferee(1, du);
    enregistreDatePreferee(2, au);
}

QDate Contrats::datePeriodeDebut()
{
    return retrouveDatePreferee(1).date();
}

QDate Contrats::datePeriodeFin()
{
    return retrouveDatePreferee(2).date();
}

} // namespace corvane
