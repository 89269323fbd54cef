// The paid-leave fund's estimate worked by hand: which contracts qualify, whole euros after
// every addition, the days earned and their ceiling; and the payments' history.

#include "regimes/Conges.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"
#include "unemployment/OutilsDroits.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

namespace {

// A done contract subject to the fund.
ContratHeures contrat(const QDate& debut, const QDate& fin, double brut, int jours, int type = 1)
{
    ContratHeures c(1, type, 10, debut, true, 1, fin);
    c.paye(brut, jours);
    c.conges = 1;
    return c;
}

} // namespace

class TestConges : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

private slots:
    void init() { Horloge::fixer(QDate(2025, 2, 10)); }
    void cleanupTestCase() { Horloge::reinitialiser(); }

    void anneeDeConges_data()
    {
        QTest::addColumn<QDate>("jour");
        QTest::addColumn<QDate>("debut");
        QTest::newRow("31 March") << QDate(2025, 3, 31) << QDate(2024, 4, 1);
        QTest::newRow("1 April") << QDate(2025, 4, 1) << QDate(2025, 4, 1);
        QTest::newRow("31 December") << QDate(2025, 12, 31) << QDate(2025, 4, 1);
    }
    void anneeDeConges()
    {
        QFETCH(QDate, jour);
        QFETCH(QDate, debut);
        QCOMPARE(Conges::anneeDeConges(jour), qMakePair(debut, debut.addYears(1).addDays(-1)));
    }

    // The current leave year, 2024-04-01 to 2025-03-31 (today 2025-02-10), unless dates are given.
    void estimation_data()
    {
        QTest::addColumn<ContratsHeures>("contrats");
        QTest::addColumn<QList<int>>("attendu"); // contracts, days, gross, days earned, gross and net allowances
        const QDate mai(2024, 5, 6);
        QTest::newRow("1 234,99 + 10,50 give 1 244 €, then 124 € and 99 €; 2 days earn 1")
            << ContratsHeures{contrat(mai, mai, 1234.99, 1), contrat(mai.addDays(7), mai.addDays(7), 10.5, 1)}
            << QList<int>{2, 2, 1244, 1, 124, 99};
        QTest::newRow("24 days earn 3") << ContratsHeures{contrat(mai, mai.addDays(30), 3000, 24)}
                                        << QList<int>{1, 24, 3000, 3, 300, 240};
        QTest::newRow("288 days earn 30") << ContratsHeures{contrat(mai, mai.addDays(300), 30000, 288)}
                                          << QList<int>{1, 288, 30000, 30, 3000, 2400};
        ContratsHeures exclus{contrat(QDate(2024, 3, 25), QDate(2024, 4, 2), 500, 5),
                              contrat(QDate(2025, 3, 25), QDate(2025, 4, 2), 500, 5),
                              contrat(mai, mai, 500, 5, 4),
                              contrat(mai, mai, 500, 5, 100),
                              contrat(mai, mai, 500, 5),
                              contrat(mai, mai, 500, 5)};
        exclus[4].effectue = 0;
        exclus[5].conges = 0;
        QTest::newRow("straddling 31 March, general regime, self-employment, planned, not subject: none")
            << exclus << QList<int>{0, 0, 0, 0, 0, 0};
    }
    void estimation()
    {
        QFETCH(ContratsHeures, contrats);
        QFETCH(QList<int>, attendu);
        Conges conges(documentDroits(m_dossier, QStringLiteral("c%1.cv4").arg(++m_numero), {contrats}));
        const Conges::Resultat r = conges.congesSpectacles("COMPLET");
        QCOMPARE(r.du, QDate(2024, 4, 1));
        QCOMPARE((QList<int>{int(r.contrats.size()), r.nombreCachets, r.revenusBruts, int(r.nombreJoursConges),
                             r.indemniteBrute, r.indemniteNette}),
                 attendu);
        // No day retained: no summary at all rather than zeros.
        QCOMPARE(r.resume.size(), attendu.at(1) > 0 ? 7 : 0);
        if (!r.resume.isEmpty())
            QCOMPARE(r.resume.at(6), qMakePair(QStringLiteral("Indemnité nette estimée"),
                                               enEuros(attendu.at(5))));
    }

    void periodeLibre()
    {
        const QString chemin = documentDroits(m_dossier, "libre.cv4",
                                              {{contrat(QDate(2024, 3, 25), QDate(2024, 4, 2), 500, 5)}});
        QCOMPARE(Conges(chemin).congesSpectacles("PERIODE", QDate(2024, 3, 1), QDate(2024, 4, 30)).revenusBruts, 500);
    }

    void versements()
    {
        CongesVersements v(documentDroits(m_dossier, "versements.cv4", {}));
        QCOMPARE(v.liste("ASC").size(), 0);
        const int premier = v.enregistre(QDate(2024, 7, 1), 1234.567, false);
        const int second = v.enregistre(QDate(2024, 5, 1), 10, true);
        QVERIFY(premier > 0 && second > 0);
        QCOMPARE(v.enregistre(QDate(2024, 5, 1), -1, true), 0);
        QVERIFY(v.coche(premier, true));
        Table t = v.liste("DESC");
        QCOMPARE(t.valeur(0, "Id").toInt(), premier);
        QCOMPARE(t.valeur(0, "Montant").toDouble(), 1234.57);
        QCOMPARE(t.valeur(0, "Encaissé").toInt(), 1);
        QCOMPARE(v.liste("n'importe").valeur(0, "Id").toInt(), second);
        QVERIFY(v.modifie(second, QDate(2024, 8, 1), 20, false));
        QVERIFY(v.supprime(premier));
        t = v.liste("ASC");
        QCOMPARE(t.size(), 1);
        QCOMPARE(t.valeur(0, "Date").toString(), QStringLiteral("01/08/2024"));
    }
};

QTEST_GUILESS_MAIN(TestConges)
#include "test_conges.moc"
