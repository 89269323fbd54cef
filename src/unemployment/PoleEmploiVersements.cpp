#include "unemployment/PoleEmploiVersements.h"

#include "store/Dates.h"
#include "store/SaisieFrancaise.h"

#include <sqlite3.h>

namespace corvane {

namespace {

// Amounts are written into the statements with two decimals.
QString deuxDecimales(double montant)
{
    return QString::number(montant, 'f', 2);
}

} // namespace

PoleEmploiVersements::PoleEmploiVersements(const QString& chemin, const QDate& date, double montant)
    : Intermittent(chemin), date(date), montant(montant)
{
}

const QStringList& PoleEmploiVersements::clesListe()
{
    static const QStringList cles{"Id", "Date", "Date SQLite", "Montant"};
    return cles;
}

QString PoleEmploiVersements::refusValeurs(const QDate& date, double montant)
{
    if (const QString r = SaisieFrancaise::refusDate(date); !r.isEmpty())
        return QStringLiteral("Date : %1.").arg(r);
    if (const QString r = SaisieFrancaise::refusNombre(montant, Limites::kMontant); !r.isEmpty())
        return QStringLiteral("Montant : %1.").arg(r);
    return {};
}

int PoleEmploiVersements::enregistrePoleEmploiVersement()
{
    if (!refusValeurs(date, montant).isEmpty())
        return 0;
    const int code = m_db.executer(QStringLiteral("INSERT INTO assedichistorique (ah_date, ah_montant) VALUES ('%1', "
                                                  "%2);")
                                       .arg(Dates::versSQLite(date), deuxDecimales(montant)));
    return code == SQLITE_DONE ? int(m_db.dernierIdInsere()) : 0;
}

bool PoleEmploiVersements::modifiePoleEmploiVersement(int id)
{
    if (!refusValeurs(date, montant).isEmpty())
        return false;
    return m_db.executer(QStringLiteral("UPDATE assedichistorique SET ah_date='%1', ah_montant=%2 WHERE ah_id=%3;")
                             .arg(Dates::versSQLite(date), deuxDecimales(montant), QString::number(uint(id)))) ==
           SQLITE_DONE;
}

bool PoleEmploiVersements::supprimePoleEmploiVersement(int id)
{
    return m_db.executer(
               QStringLiteral("DELETE FROM assedichistorique WHERE ah_id='%1';").arg(QString::number(uint(id)))) ==
           SQLITE_DONE;
}

bool PoleEmploiVersements::versementExiste(int id)
{
    return m_db.entier(QStringLiteral("SELECT COUNT(*) FROM assedichistorique WHERE ah_id = ?;"), {id}) > 0;
}

QString PoleEmploiVersements::ordreDeTri(const QString& sens)
{
    // Inverted on purpose: "ASC" lists the latest payment first.
    if (sens == QStringLiteral("DESC"))
        return QStringLiteral("ORDER BY ah_date ASC");
    return QStringLiteral("ORDER BY ah_date DESC");
}

Table PoleEmploiVersements::listeLesVersementsDu(const QDate& debut, const QDate& fin, const QString& tri,
                                                 const QString& sens)
{
    const QString entre = QStringLiteral("WHERE (ah_date BETWEEN '%1' AND '%2')");
    if (tri == QStringLiteral("periode_reference"))
        clauseWhere = entre.arg(Dates::versSQLite(retrouveDateOuvertureDroits().date()),
                                Dates::versSQLite(retrouveDateFinDePeriodeEnCours()));
    else if (tri == QStringLiteral("annee"))
        clauseWhere = QStringLiteral("WHERE (ah_date BETWEEN date('now', 'start of year') AND date('now', 'start of "
                                     "year', '+1 year'))");
    else if (tri == QStringLiteral("periode"))
        clauseWhere = entre.arg(Dates::versSQLite(debut), Dates::versSQLite(fin));
    else
        clauseWhere.clear();

    Table table{clesListe(), {}};
    if (m_db.entier(QStringLiteral("SELECT COUNT(*) FROM assedichistorique;")) == 0)
        return table;
    Requete r(m_db, QStringLiteral("SELECT ah_id, ah_date, ah_montant FROM assedichistorique %1 %2;")
                        .arg(clauseWhere, ordreDeTri(sens)));
    while (r.suivante()) {
        const QString stockee = r.texte(1);
        table.rangees.append(
            {int(r.entier(0)), Dates::versAffichage(Dates::depuisSQLite(stockee)), stockee, r.reel(2)});
    }
    return table;
}

double PoleEmploiVersements::cumulAssedic()
{
    return m_db.reel(
        QStringLiteral("SELECT SUM(ah_montant) AS cumul_assedic FROM assedichistorique %1;").arg(clauseWhere));
}

} // namespace corvane
