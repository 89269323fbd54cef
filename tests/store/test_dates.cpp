// Dates between the document text and memory, in Paris and in other time zones;
// the clock that SQLite's date('now') follows; the decimal comma.

#include "commun/OutilsDocument.h"
#include "store/Dates.h"
#include "store/Functions.h"
#include "store/Horloge.h"

#include <QTemporaryDir>
#include <QTimeZone>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

class TestDates : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { Horloge::reinitialiser(); }

    void allerRetour_data()
    {
        QTest::addColumn<QString>("texte");
        QTest::addColumn<QDate>("jour");
        cas("30 March 2014, the spring clock change in Paris", "2014-03-30 00:00:00.000", QDate(2014, 3, 30));
        cas("26 October 2014, the autumn change", "2014-10-26 00:00:00.000", QDate(2014, 10, 26));
        cas("leap day", "2024-02-29 00:00:00.000", QDate(2024, 2, 29));
    }

    void allerRetour()
    {
        QFETCH(QString, texte);
        QFETCH(QDate, jour);
        QCOMPARE(Dates::depuisSQLite(texte), jour);
        QCOMPARE(Dates::versSQLite(jour), texte);

        const QDateTime instant = Dates::conversionDateSQLiteEnNSDate(texte);
        QCOMPARE(instant.date(), jour);
        QCOMPARE(instant.time(), QTime(1, 0));
        QCOMPARE(instant.timeSpec(), Qt::LocalTime);
        QCOMPARE(Dates::convertionDateSQLiteEnNSDate(texte), instant);
        QCOMPARE(Dates::versSQLite(instant.date()), texte);

        // The readers with the fixed offset give the stored midnight at +01:00.
        const QDateTime minuit = Dates::lectureAvecDecalage(texte);
        QCOMPARE(minuit.offsetFromUtc(), 3600);
        QCOMPARE(minuit.date(), jour);
        QCOMPARE(minuit.time(), QTime(0, 0));
        QCOMPARE(minuit, Dates::dateDeBascule(jour.year(), jour.month(), jour.day()));
        QCOMPARE(Dates::conversionDateAMinuit(instant), minuit);

        QCOMPARE(Dates::versAffichage(jour), jour.toString("dd/MM/yyyy"));
        QCOMPARE(Dates::depuisAffichage(jour.toString("dd/MM/yyyy")), jour);
        QCOMPARE(Dates::depuisIso(jour.toString("yyyy-MM-dd")), jour);
    }

    void textesInvalides_data()
    {
        QTest::addColumn<QString>("texte");
        cas("empty", "");
        cas("too short", "2014-03");
        cas("letters", "abcd-ef-gh 00:00:00.000");
        cas("31 February", "2014-02-31 00:00:00.000");
    }

    void textesInvalides()
    {
        QFETCH(QString, texte);
        QVERIFY(!Dates::depuisSQLite(texte).isValid());
        QVERIFY(!Dates::conversionDateSQLiteEnNSDate(texte).isValid());
        QVERIFY(!Dates::lectureAvecDecalage(texte).isValid());
    }

    void descriptions()
    {
        const QDateTime date(QDate(2014, 3, 30), QTime(14, 5, 9), QTimeZone(3600));
        const QString description = Dates::description(date);
        QCOMPARE(description, QStringLiteral("2014-03-30 14:05:09 +0100"));
        QCOMPARE(Dates::conversionNSDateDescriptionEnSQLite(description), QStringLiteral("2014-03-30 00:00:00.000"));
        QCOMPARE(Dates::getTimeFromNSDateDescription(description), QStringLiteral("14:05:09"));
        Horloge::fixer(QDate(2020, 1, 2));
        QCOMPARE(Dates::getTimeFromDateSQLite("08:30:15"), QDateTime(QDate(2020, 1, 2), QTime(8, 30, 15)));
    }

    void joursEntre_data()
    {
        QTest::addColumn<QDate>("debut");
        QTest::addColumn<QDate>("fin");
        QTest::addColumn<qint64>("jours");
        cas("across the spring change", QDate(2014, 3, 1), QDate(2014, 4, 1), qint64(31));
        cas("backwards", QDate(2014, 4, 1), QDate(2014, 3, 1), qint64(-31));
        cas("leap year", QDate(2024, 1, 1), QDate(2025, 1, 1), qint64(366));
    }

    void joursEntre()
    {
        QFETCH(QDate, debut);
        QFETCH(QDate, fin);
        QFETCH(qint64, jours);
        QCOMPARE(Dates::joursEntre(debut, fin), jours);
    }

    void horlogeEtSQLite_data()
    {
        QTest::addColumn<QDate>("jour");
        cas("winter", QDate(2021, 1, 15));
        cas("leap day", QDate(2028, 2, 29));
    }

    void horlogeEtSQLite()
    {
        QFETCH(QDate, jour);
        Horloge::fixer(jour);
        QCOMPARE(Horloge::aujourdhui(), jour);
        QTemporaryDir dossier;
        BaseDeDonnees base;
        QVERIFY(base.creer(dossier.filePath("horloge.db")));
        QCOMPARE(base.texte("SELECT date('now');"), jour.toString("yyyy-MM-dd"));
        QCOMPARE(base.texte("SELECT date('now', 'start of year');"), QDate(jour.year(), 1, 1).toString("yyyy-MM-dd"));
        Horloge::reinitialiser();
        QCOMPARE(base.texte("SELECT date('now');"), QDate::currentDate().toString("yyyy-MM-dd"));
    }

    void virguleEnPoint_data()
    {
        QTest::addColumn<QString>("texte");
        QTest::addColumn<QString>("attendu");
        cas("decimal comma", "12,5", "12.5");
        cas("blank kept, comma changed", "1 234,56", "1 234.56");
        cas("other characters kept", "€ 3,50 !", "€ 3.50 !");
    }

    void virguleEnPoint()
    {
        QFETCH(QString, texte);
        QFETCH(QString, attendu);
        QCOMPARE(Functions::virguleEnPoint(texte), attendu);
    }
};

QTEST_GUILESS_MAIN(TestDates)
#include "test_dates.moc"
