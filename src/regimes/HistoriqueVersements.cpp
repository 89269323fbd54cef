#include "regimes/HistoriqueVersements.h"

#include "store/Dates.h"
#include "unemployment/PoleEmploiVersements.h"

#include <sqlite3.h>

namespace corvane {

QStringList HistoriqueVersements::clesListe() const
{
    return {QStringLiteral("Id"), QStringLiteral("Date"), QStringLiteral("Date SQLite"), QStringLiteral("Montant"),
            m_description.cleCoche};
}

int HistoriqueVersements::enregistre(const QDate& date, double montant, bool coche)
{
    if (!PoleEmploiVersements::refusValeurs(date, montant).isEmpty())
        return 0;
    const int code = m_db.executer(QStringLiteral("INSERT INTO %1 (%2, %3, %4) VALUES ('%5', %6, %7);")
                                       .arg(m_description.table, colonne("date"), colonne("montant"),
                                            colonne(m_description.coche), Dates::versSQLite(date),
                                            QString::number(montant, 'f', 2), QString::number(int(coche))));
    return code == SQLITE_DONE ? int(m_db.dernierIdInsere()) : 0;
}

bool HistoriqueVersements::modifie(int id, const QDate& date, double montant, bool coche)
{
    if (!PoleEmploiVersements::refusValeurs(date, montant).isEmpty())
        return false;
    return m_db.executer(QStringLiteral("UPDATE %1 SET %2='%5', %3=%6, %4=%7 WHERE %8=%9;")
                             .arg(m_description.table, colonne("date"), colonne("montant"),
                                  colonne(m_description.coche), Dates::versSQLite(date),
                                  QString::number(montant, 'f', 2), QString::number(int(coche)), colonne("id"),
                                  QString::number(uint(id)))) == SQLITE_DONE;
}

bool HistoriqueVersements::supprime(int id)
{
    return m_db.executer(QStringLiteral("DELETE FROM %1 WHERE %2='%3';")
                             .arg(m_description.table, colonne("id"), QString::number(uint(id)))) == SQLITE_DONE;
}

bool HistoriqueVersements::coche(int id, bool coche)
{
    return m_db.executer(QStringLiteral("UPDATE %1 SET %2=%3 WHERE %4=%5;")
                             .arg(m_description.table, colonne(m_description.coche), QString::number(int(coche)),
                                  colonne("id"), QString::number(uint(id)))) == SQLITE_DONE;
}

bool HistoriqueVersements::existe(int id)
{
    return m_db.entier(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE %2 = ?;").arg(m_description.table, colonne("id")),
                       {id}) > 0;
}

Table HistoriqueVersements::liste(const QString& sens)
{
    Table table{clesListe(), {}};
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM %1;").arg(m_description.table)) == 0)
        return table;
    Requete r(m_db, QStringLiteral("SELECT %1, %2, %3, %4 FROM %5 ORDER BY %2 %6;")
                        .arg(colonne("id"), colonne("date"), colonne("montant"), colonne(m_description.coche),
                             m_description.table,
                             sens == QStringLiteral("DESC") ? QStringLiteral("DESC") : QStringLiteral("ASC")));
    while (r.suivante()) {
        const QString stockee = r.texte(1);
        table.rangees.append({int(r.entier(0)), Dates::versAffichage(Dates::depuisSQLite(stockee)), stockee,
                              r.reel(2), int(r.entier(3))});
    }
    return table;
}

} // namespace corvane
