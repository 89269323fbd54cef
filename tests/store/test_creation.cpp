// A new document: its tables, columns and seed rows against an expectation written
// by hand from the table descriptions (tests/data/schema_v4_*.tsv), then the rows
// that depend on the assistant's answers.

#include "commun/Reference.h"
#include "store/Dates.h"
#include "store/Fichiers.h"
#include "store/Horloge.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

namespace {

QStringList lignesTsv(const QString& nom)
{
    QFile f(donnee(nom));
    if (!f.open(QIODevice::ReadOnly))
        return {};
    QStringList lignes = QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'));
    lignes.removeAll(QString());
    return lignes;
}

QString texteOuNul(const Requete& r, int i)
{
    return r.estNul(i) ? QStringLiteral("NULL") : r.texte(i);
}

} // namespace

class TestCreation : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    QString m_chemin;

private slots:
    void initTestCase()
    {
        Horloge::fixer(QDate(2024, 6, 15));
        m_chemin = creerDocument(parametresParDefaut(m_dossier.filePath("neuf.cv4")));
        QVERIFY(QFileInfo::exists(m_chemin));
    }

    void colonnes()
    {
        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(m_chemin));
        QStringList obtenu;
        const QStringList tables = base.colonne("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY rowid;");
        for (const QString& table : tables) {
            Requete r(base, QStringLiteral("PRAGMA table_info(\"%1\");").arg(table));
            while (r.suivante()) {
                QStringList champs{table};
                for (int i = 0; i < 6; ++i)
                    champs << (r.estNul(i) ? QString() : r.texte(i));
                obtenu << champs.join(QLatin1Char('\t'));
            }
        }
        const QStringList attendu = lignesTsv("schema_v4_colonnes.tsv");
        QVERIFY(!attendu.isEmpty());
        for (int i = 0; i < qMin(obtenu.size(), attendu.size()); ++i)
            QCOMPARE(obtenu[i], attendu[i]);
        QCOMPARE(obtenu.size(), attendu.size());
    }

    void lignesDeReference()
    {
        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(m_chemin));
        const QStringList attendu = lignesTsv("schema_v4_lignes.tsv");
        QVERIFY(!attendu.isEmpty());
        QStringList tables;
        for (const QString& ligne : attendu)
            if (!tables.contains(ligne.section(QLatin1Char('\t'), 0, 0)))
                tables << ligne.section(QLatin1Char('\t'), 0, 0);
        QStringList obtenu;
        for (const QString& table : tables) {
            Requete r(base, QStringLiteral("SELECT * FROM \"%1\" ORDER BY rowid;").arg(table));
            while (r.suivante()) {
                QStringList champs{table};
                for (int i = 0; i < r.nombreColonnes(); ++i)
                    champs << texteOuNul(r, i);
                obtenu << champs.join(QLatin1Char('\t'));
            }
        }
        for (int i = 0; i < qMin(obtenu.size(), attendu.size()); ++i)
            QCOMPARE(obtenu[i], attendu[i]);
        QCOMPARE(obtenu.size(), attendu.size());
    }

    // The rows that depend on the assistant's answers and on the day (the profile, the first
    // period, the preferred dates), and the tables left empty, in the whole document's dump.
    void documentNeuf() { CORVANE_COMPARER_REFERENCE(dump(m_chemin).toUtf8(), "nouveau_document.txt"); }

    void finDePremierePeriode_data()
    {
        QTest::addColumn<int>("emploiId");
        QTest::addColumn<QDate>("aujourdhui");
        QTest::addColumn<QDate>("fin");
        const QDate ouverture(2015, 3, 1);
        cas("artist, 2016 rules: 366 days", 1, QDate(2016, 8, 1), ouverture.addDays(365));
        cas("technician, older rules: 304 days", 3, QDate(2015, 4, 1), ouverture.addDays(303));
        cas("general scheme: today", 4, QDate(2020, 5, 5), QDate(2020, 5, 5));
        cas("self-employed: today", 5, QDate(2020, 5, 5), QDate(2020, 5, 5));
    }

    void finDePremierePeriode()
    {
        QFETCH(int, emploiId);
        QFETCH(QDate, aujourdhui);
        QFETCH(QDate, fin);
        Horloge::fixer(aujourdhui);
        NouveauDocument p = parametresParDefaut(
            m_dossier.filePath(QStringLiteral("fin-%1-%2.cv4").arg(emploiId).arg(aujourdhui.toString("yyyyMMdd"))));
        p.emploiId = emploiId;
        p.dateOuvertureDesDroits = QDate(2015, 3, 1);
        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(creerDocument(p)));
        QCOMPARE(base.texte("SELECT p_date_fin FROM periodes WHERE p_id = 1;"), Dates::versSQLite(fin));
        QCOMPARE(base.texte("SELECT dpp_date FROM datesPeriodesPreferees WHERE dpp_element = 'simulation_fin';"),
                 Dates::versSQLite(fin));
        Horloge::fixer(QDate(2024, 6, 15));
    }

    void refus_data()
    {
        QTest::addColumn<QString>("chemin");
        QTest::addColumn<QString>("message");
        cas("existing file", "neuf.cv4", "existe déjà");
        cas("missing folder", "nulle-part/doc.cv4", "n'existe pas");
        cas("no name", "", "Aucun nom");
    }

    void refus()
    {
        QFETCH(QString, chemin);
        QFETCH(QString, message);
        const QString complet = chemin.isEmpty() ? QString() : m_dossier.filePath(chemin);
        const QByteArray avant = empreinte(complet);
        Fichiers fichiers(parametresParDefaut(complet));
        QVERIFY(!fichiers.nouveauV4());
        QVERIFY2(fichiers.erreur().contains(message), qPrintable(fichiers.erreur()));
        QCOMPARE(empreinte(complet), avant);
    }
};

QTEST_GUILESS_MAIN(TestCreation)
#include "test_creation.moc"
