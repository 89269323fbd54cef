#include "records/Periodes.h"

#include "store/Dates.h"
#include "store/SaisieFrancaise.h"

#include <sqlite3.h>

namespace corvane {

Periodes::Periodes(const QString& chemin) : Intermittent(chemin) {}

const QStringList& Periodes::clesListe()
{
    static const QStringList cles{"Id",
                                  "Libelle",
                                  "Début",
                                  "Fin",
                                  "Début SQLite",
                                  "Fin SQLite",
                                  "Notes",
                                  "Congés",
                                  "Franchise salaires",
                                  "Délai d'attente"};
    return cles;
}

Periode Periodes::depuisLigne(const Ligne& l)
{
    Periode p;
    p.id = l.value("Id").toInt();
    p.libelle = l.value("Libelle").toString();
    p.debut = Dates::depuisSQLite(l.value("Début SQLite").toString());
    p.fin = Dates::depuisSQLite(l.value("Fin SQLite").toString());
    p.notes = l.value("Notes").toString();
    p.conges = l.value("Congés", 0).toInt();
    p.franchiseSalaires = l.value("Franchise salaires", 0).toInt();
    p.attente = l.value("Délai d'attente", 7).toInt();
    return p;
}

int Periodes::compteLesPeriodes()
{
    return int(m_db.entier(QStringLiteral("SELECT COUNT(*) AS nombrePeriodes FROM periodes;")));
}

int Periodes::nombreDePeriodes()
{
    return int(m_db.entier(QStringLiteral("SELECT COUNT(*) AS compteur FROM periodes;")));
}

QString Periodes::refusValeurs(const Periode& p)
{
    if (const QString r = SaisieFrancaise::refusDate(p.debut); !r.isEmpty())
        return QStringLiteral("Début : %1.").arg(r);
    if (const QString r = SaisieFrancaise::refusDate(p.fin); !r.isEmpty())
        return QStringLiteral("Fin : %1.").arg(r);
    if (p.fin < p.debut)
        return QStringLiteral("La fin de la période ne peut pas précéder son début.");
    const QList<QPair<QString, int>> jours{{QStringLiteral("Congés"), p.conges},
                                           {QStringLiteral("Franchise salaires"), p.franchiseSalaires},
                                           {QStringLiteral("Délai d'attente"), p.attente}};
    for (const auto& [champ, nombre] : jours) {
        if (const QString r = SaisieFrancaise::refusEntier(nombre, 0, Limites::kJoursPeriodeMaximum); !r.isEmpty())
            return QStringLiteral("%1 : %2.").arg(champ, r);
    }
    return {};
}

int Periodes::enregistrePeriode(const Periode& p)
{
    if (!refusValeurs(p).isEmpty())
        return 0;
    const int code =
        m_db.executer(QStringLiteral("INSERT INTO periodes (p_date_debut, p_date_fin, p_libelle, p_notes, p_conges, "
                                     "p_franchise_salaires, p_attente) VALUES ('%1', '%2', ?, ?, ?, ?, ?);")
                          .arg(Dates::versSQLite(p.debut), Dates::versSQLite(p.fin)),
                      {texteNonNul(p.libelle), texteNonNul(p.notes), p.conges, p.franchiseSalaires, p.attente});
    return code == SQLITE_DONE ? int(m_db.dernierIdInsere()) : 0;
}

bool Periodes::modifiePeriode(const Periode& p)
{
    if (!refusValeurs(p).isEmpty())
        return false;
    return m_db.executer(QStringLiteral("UPDATE periodes SET p_date_debut='%1', p_date_fin='%2', p_libelle=?, "
                                        "p_notes=?, p_conges = ?, p_franchise_salaires = ?, p_attente = ? WHERE "
                                        "p_id=?;")
                             .arg(Dates::versSQLite(p.debut), Dates::versSQLite(p.fin)),
                         {texteNonNul(p.libelle), texteNonNul(p.notes), p.conges, p.franchiseSalaires, p.attente,
                          p.id}) == SQLITE_DONE;
}

bool Periodes::supprimePeriode(int id)
{
    return m_db.exec(QStringLiteral("DELETE FROM periodes WHERE p_id='%1';").arg(uint(id))) == SQLITE_OK;
}

Lignes Periodes::lignesAvecCles(const QString& sql)
{
    Lignes resultat;
    for (const Ligne& brute : m_db.lignes(sql)) {
        const QString debut = brute.value("p_date_debut").toString();
        const QString fin = brute.value("p_date_fin").toString();
        Ligne l{{"Id", brute.value("p_id")},
                {"Libelle", brute.value("p_libelle").toString()},
                {"Début", Dates::versAffichage(Dates::depuisSQLite(debut))},
                {"Fin", Dates::versAffichage(Dates::depuisSQLite(fin))},
                {"Début SQLite", debut},
                {"Fin SQLite", fin},
                {"Notes", brute.value("p_notes").toString()}};
        if (brute.contains("p_attente")) {
            l.insert("Congés", brute.value("p_conges").toInt());
            l.insert("Franchise salaires", brute.value("p_franchise_salaires").toInt());
            l.insert("Délai d'attente", brute.value("p_attente").toInt());
        }
        resultat << l;
    }
    return resultat;
}

Lignes Periodes::toutesLesPeriodes()
{
    return lignesAvecCles(QStringLiteral(
        "SELECT p_id, p_date_debut, p_date_fin, p_libelle, p_notes FROM periodes ORDER BY p_date_debut ASC;"));
}

Lignes Periodes::listeLesPeriodes()
{
    return lignesAvecCles(QStringLiteral("SELECT p_id, p_date_debut, p_date_fin, p_libelle, p_notes, p_conges, "
                                         "p_franchise_salaires, p_attente FROM periodes ORDER BY p_date_debut DESC;"));
}

std::optional<Periode> Periodes::periode(int id)
{
    for (const Ligne& l : listeLesPeriodes()) {
        if (l.value("Id").toInt() == id)
            return depuisLigne(l);
    }
    return std::nullopt;
}

QString Periodes::periodeEnCours()
{
    return m_db.texte(QStringLiteral(
        "SELECT p_libelle FROM periodes JOIN utilisateur ON u_periode_en_cours = p_id WHERE utilisateur.u_id=1;"));
}

int Periodes::idPeriodeEnCours()
{
    return int(
        m_db.entier(QStringLiteral("SELECT u_periode_en_cours AS periode_en_cours FROM utilisateur WHERE u_id=1;")));
}

bool Periodes::activePeriodeAvecId(int id)
{
    return m_db.exec(QStringLiteral("UPDATE utilisateur SET u_periode_en_cours=%1 WHERE u_id=1;").arg(uint(id))) ==
           SQLITE_OK;
}

bool Periodes::isPeriodeExiste(const QDate& debut, const QDate& fin)
{
    return m_db.entier(QStringLiteral("SELECT COUNT(*) AS compteurPeriodes FROM periodes WHERE p_date_debut = '%1' "
                                      "AND p_date_fin = '%2';")
                           .arg(Dates::versSQLite(debut), Dates::versSQLite(fin))) != 0;
}

// --- The management window's rules ------------------------------------------------------------

QString Periodes::messageSuppressionRefusee()
{
    return QStringLiteral("Cette période est en cours d'utilisation, vous ne pouvez pas la supprimer.");
}

QString Periodes::messageUnePeriodeActive()
{
    return QStringLiteral("Au moins une période doit être active.");
}

QString Periodes::messageModificationPeriodeEnCours()
{
    return QStringLiteral("Vous allez modifier la période en cours d'utilisation...");
}

QString Periodes::messagePeriodeInconnue()
{
    return QStringLiteral("Cette période n'existe pas.");
}

QString Periodes::refusSuppression(int id)
{
    return id == idPeriodeEnCours() ? messageSuppressionRefusee() : QString();
}

QString Periodes::refusDesactivation(int id)
{
    return id == idPeriodeEnCours() ? messageUnePeriodeActive() : QString();
}

QString Periodes::avertissementModification(int id)
{
    return id == idPeriodeEnCours() ? messageModificationPeriodeEnCours() : QString();
}

} // namespace corvane
