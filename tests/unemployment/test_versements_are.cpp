// The allowances received: what a save writes (two decimals, bounds) and the total, which
// follows the span of the last listing.

#include "records/OutilsContrats.h"
#include "store/Horloge.h"
#include "unemployment/PoleEmploiVersements.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

class TestVersementsAre : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    QString nouveauDocument() { return documentContrats(m_dossier, QStringLiteral("v%1.cv4").arg(++m_numero)); }

private slots:
    void initTestCase() { Horloge::fixer(QDate(2024, 6, 15)); }
    void cleanupTestCase() { Horloge::reinitialiser(); }

    void enregistre_data()
    {
        QTest::addColumn<QDate>("date");
        QTest::addColumn<double>("montant");
        QTest::addColumn<QString>("stocke"); // "" when refused
        QTest::newRow("three decimals stored to the cent") << QDate(2024, 3, 15) << 1234.567 << "1234.57";
        QTest::newRow("one cent") << QDate(2024, 3, 15) << 0.01 << "0.01";
        QTest::newRow("negative") << QDate(2024, 3, 15) << -5.0 << "";
        QTest::newRow("not a number") << QDate(2024, 3, 15) << qQNaN() << "";
        QTest::newRow("above a hundred million") << QDate(2024, 3, 15) << 100000000.01 << "";
        QTest::newRow("before 1950") << QDate(1949, 12, 31) << 10.0 << "";
        QTest::newRow("no date") << QDate() << 10.0 << "";
    }
    void enregistre()
    {
        QFETCH(QDate, date);
        QFETCH(double, montant);
        QFETCH(QString, stocke);
        const QString chemin = nouveauDocument();
        const int id = PoleEmploiVersements(chemin, date, montant).enregistrePoleEmploiVersement();
        if (stocke.isEmpty()) {
            QCOMPARE(id, 0);
            QCOMPARE(valeur(chemin, "SELECT COUNT(*) FROM assedichistorique;"), QStringLiteral("0"));
            return;
        }
        QVERIFY(id > 0);
        QCOMPARE(valeur(chemin, QStringLiteral("SELECT ah_montant FROM assedichistorique WHERE ah_id = %1;").arg(id)),
                 stocke);
        QCOMPARE(valeur(chemin, QStringLiteral("SELECT ah_date FROM assedichistorique WHERE ah_id = %1;").arg(id)),
                 jourSQLite(date));
        // A change is held to the same rules.
        PoleEmploiVersements modification(chemin, date, -1.0);
        QVERIFY(!modification.modifiePoleEmploiVersement(id));
        QCOMPARE(valeur(chemin, QStringLiteral("SELECT ah_montant FROM assedichistorique WHERE ah_id = %1;").arg(id)),
                 stocke);
    }

    void cumulSuitLaDerniereListe()
    {
        const QString chemin = nouveauDocument();
        PoleEmploiVersements versements(chemin);
        // An empty history lists nothing, and keeps the span for the total.
        QVERIFY(versements.listeLesVersementsDu(QDate(2024, 1, 1), QDate(2024, 1, 31), "periode", "ASC").isEmpty());
        QVERIFY(!versements.clauseWhere.isEmpty());
        for (const auto& [jour, montant] : QList<QPair<QDate, double>>{
                 {QDate(2024, 1, 10), 100.10}, {QDate(2024, 2, 10), 1234.56}, {QDate(2024, 3, 10), 0.20}})
            QVERIFY(PoleEmploiVersements(chemin, jour, montant).enregistrePoleEmploiVersement() > 0);

        // Before any listing, every payment.
        QCOMPARE(PoleEmploiVersements(chemin).cumulAssedic(), 100.10 + 1234.56 + 0.20);
        versements.listeLesVersementsDu(QDate(2024, 2, 1), QDate(2024, 3, 31), "periode", "ASC");
        QCOMPARE(versements.cumulAssedic(), 1234.56 + 0.20);
        versements.listeLesVersementsDu({}, {}, "tous", "ASC");
        QCOMPARE(versements.cumulAssedic(), 100.10 + 1234.56 + 0.20);
    }
};

QTEST_GUILESS_MAIN(TestVersementsAre)
#include "test_versements_are.moc"
