// The counting of the rights computations: the ten-entry hours table in its modes, the
// current period stretched by sickness-type leave, the last contracts, and the calendar
// helpers with their deliberate quirks. The open-document form and the path-taking twin
// must give the same answers.

#include "store/Horloge.h"
#include "unemployment/FunctionsDroits.h"
#include "unemployment/OutilsDroits.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

namespace {

QList<int> enListe(const TableauHeures& heures)
{
    return QList<int>(heures.begin(), heures.end());
}

} // namespace

class TestComptageHeures : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    QString nom() { return QStringLiteral("h%1.cv4").arg(++m_numero); }

private slots:
    void initTestCase() { Horloge::fixer(QDate(2024, 6, 15)); }
    void cleanupTestCase() { Horloge::reinitialiser(); }

    // The span is 2024-03-01 to 2024-12-31 in every row.
    void compteHeures_data()
    {
        QTest::addColumn<ContratsHeures>("contrats");
        QTest::addColumn<Arrets>("arrets");
        QTest::addColumn<QString>("mode");
        QTest::addColumn<int>("choix"); // index of the screen's contract condition
        QTest::addColumn<QList<int>>("attendu");
        const QDate avril(2024, 4, 2);
        QTest::newRow("10 teaching hours, 4 of them at a non-approved employer, give 6")
            << ContratsHeures{{1, 2, 6, avril}, {1, 2, 4, avril, false}} << Arrets{} << "simulation" << 0
            << QList<int>{0, 6, 0, 0, 0, 0, 0, 0, 0, 0};
        QTest::newRow("a contract starting on the span's last day counts whole, the next day's does not")
            << ContratsHeures{{1, 1, 12, QDate(2024, 12, 31), true, 1, QDate(2025, 1, 3)},
                              {1, 1, 8, QDate(2025, 1, 1)},
                              {1, 1, 5, QDate(2024, 2, 29)}}
            << Arrets{} << "analyses" << 0 << QList<int>{12, 0, 0, 0, 0, 0, 0, 0, 0, 0};
        QTest::newRow("two sickness records of 3 hours of incidence give 15")
            << ContratsHeures{} << Arrets{{avril, 1, 0}, {QDate(2024, 5, 1), 2, 0}, {QDate(2024, 1, 10), 7, 0}}
            << "simulation" << 0 << QList<int>{0, 0, 0, 0, 0, 0, 0, 0, 0, 15};
        QTest::newRow("mode contrats: sickness records of every date")
            << ContratsHeures{} << Arrets{{avril, 1, 0}, {QDate(2024, 5, 1), 2, 0}, {QDate(2024, 1, 10), 7, 0}}
            << "contrats" << 0 << QList<int>{0, 0, 0, 0, 0, 0, 0, 0, 0, 50};
        QTest::newRow("each job and kind in its entry; general regime and self-employment left out")
            << ContratsHeures{{1, 3, 9, avril},  {2, 1, 7, avril},    {2, 2, 6, avril},  {2, 3, 5, avril},
                              {3, 1, 4, avril},  {3, 2, 3, avril},    {3, 3, 2, avril},  {3, 2, 1, avril, false},
                              {4, 1, 50, avril}, {5, 100, 50, avril}, {1, 4, 50, avril}, {1, 101, 50, avril}}
            << Arrets{} << "simulation" << 0 << QList<int>{0, 0, 9, 7, 6, 5, 4, 3, 2, 0};
        const ContratsHeures enseignements{{1, 2, 10, QDate(2025, 2, 1)},
                                           {1, 2, 4, avril, false},
                                           {1, 2, 3, QDate(2025, 2, 2), false},
                                           {1, 1, 20, QDate(2023, 5, 1)}};
        QTest::newRow("mode contrats: every date counts, but only the span's non-approved hours are taken off")
            << enseignements << Arrets{} << "contrats" << 0 << QList<int>{20, 13, 0, 0, 0, 0, 0, 0, 0, 0};
        QTest::newRow("the same contracts counted over the span")
            << enseignements << Arrets{} << "simulation" << 0 << QList<int>{0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
        const ContratsHeures effectuesEtPlanifies{
            {1, 1, 5, avril}, {1, 1, 8, avril, true, 0}, {1, 2, 10, avril}, {1, 2, 4, avril, false, 0}};
        QTest::newRow("carried-out contracts only: a planned non-approved lesson takes nothing off")
            << effectuesEtPlanifies << Arrets{} << "simulation" << 1 << QList<int>{5, 10, 0, 0, 0, 0, 0, 0, 0, 0};
        QTest::newRow("planned contracts only")
            << effectuesEtPlanifies << Arrets{} << "simulation" << 2 << QList<int>{8, 0, 0, 0, 0, 0, 0, 0, 0, 0};
        QTest::newRow("a fractional sum is truncated")
            << ContratsHeures{{1, 1, 7.5, avril}, {1, 1, 0.4, avril}} << Arrets{} << "simulation" << 0
            << QList<int>{7, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    }
    void compteHeures()
    {
        QFETCH(ContratsHeures, contrats);
        QFETCH(Arrets, arrets);
        QFETCH(QString, mode);
        QFETCH(int, choix);
        QFETCH(QList<int>, attendu);
        const QString chemin = documentDroits(m_dossier, nom(), {contrats, arrets});
        const QDate debut(2024, 3, 1), fin(2024, 12, 31);
        const QString condition = ComptageHeures::conditionsDesContrats().at(choix);
        QCOMPARE(enListe(ComptageHeures(chemin).compteHeuresParEmploiEtParType(mode, debut, fin, condition)), attendu);
        QCOMPARE(enListe(Functions::compteHeuresParEmploiEtParTypeFromFile(mode, debut, fin, condition, chemin)),
                 attendu);
    }

    // The current period runs from 2024-03-01 to 2024-12-31.
    void periodeEnCours_data()
    {
        QTest::addColumn<Arrets>("arrets");
        QTest::addColumn<int>("allongement");
        QTest::addColumn<QDate>("finAllongee");
        QTest::addColumn<int>("allongementAnnee"); // allongementPeriode over 2024
        QTest::newRow("no leave") << Arrets{} << 0 << QDate(2024, 12, 31) << 0;
        QTest::newRow("two leaves in the period")
            << Arrets{{QDate(2024, 4, 2), 0, 4}, {QDate(2024, 12, 31), 0, 6}} << 10 << QDate(2025, 1, 10) << 10;
        QTest::newRow("a leave before the period's start adds nothing to it")
            << Arrets{{QDate(2024, 2, 20), 0, 9}, {QDate(2024, 6, 1), 0, 3}} << 3 << QDate(2025, 1, 3) << 12;
        QTest::newRow("a leave after the period's end")
            << Arrets{{QDate(2025, 1, 1), 0, 5}} << 0 << QDate(2024, 12, 31) << 0;
    }
    void periodeEnCours()
    {
        QFETCH(Arrets, arrets);
        QFETCH(int, allongement);
        QFETCH(QDate, finAllongee);
        QFETCH(int, allongementAnnee);
        const QString chemin = documentDroits(m_dossier, nom(), {{}, arrets});
        ComptageHeures comptage(chemin);
        QCOMPARE(comptage.retrouveDateFinDePeriodeEnCours(), finAllongee);
        QCOMPARE(comptage.allongementPeriodeDeReference, allongement);
        QCOMPARE(comptage.allongementPeriode(QDate(2024, 1, 1), QDate(2024, 12, 31)), allongementAnnee);
        QCOMPARE(Functions::retrouveDateFinDePeriodeEnCoursFromFile(chemin), finAllongee);
        QCOMPARE(Functions::allongementPRAFromFile(chemin), allongement);
    }

    // Rights opened on 2024-03-01; today is 2024-06-15.
    void derniersContrats_data()
    {
        QTest::addColumn<ContratsHeures>("contrats");
        QTest::addColumn<QDate>("dernierJour");
        QTest::addColumn<QDate>("dernierDebut");
        const ContratHeures long_{1, 1, 0, QDate(2024, 4, 1), true, 1, QDate(2024, 8, 31)};
        const ContratHeures court{1, 1, 0, QDate(2024, 5, 1), true, 1, QDate(2024, 5, 2)};
        QTest::newRow("no contract: today") << ContratsHeures{} << QDate() << QDate(2024, 6, 15);
        QTest::newRow("the end of the contract that starts last, not the latest end")
            << ContratsHeures{long_, court} << QDate(2024, 5, 2) << QDate(2024, 5, 1);
        QTest::newRow("planned contracts are left out")
            << ContratsHeures{long_, court, {1, 1, 0, QDate(2024, 6, 1), true, 0, QDate(2024, 6, 3)}}
            << QDate(2024, 5, 2) << QDate(2024, 5, 1);
        QTest::newRow("a contract after today ends the rights, but was not before today")
            << ContratsHeures{court, {1, 1, 0, QDate(2024, 7, 1), true, 1, QDate(2024, 7, 2)}} << QDate(2024, 7, 2)
            << QDate(2024, 5, 1);
        QTest::newRow("a contract starting today")
            << ContratsHeures{court, {1, 1, 0, QDate(2024, 6, 15)}} << QDate(2024, 6, 15) << QDate(2024, 6, 15);
        QTest::newRow("only contracts before the opening")
            << ContratsHeures{{1, 1, 0, QDate(2024, 2, 1), true, 1, QDate(2024, 3, 5)}} << QDate()
            << QDate(2024, 6, 15);
    }
    void derniersContrats()
    {
        QFETCH(ContratsHeures, contrats);
        QFETCH(QDate, dernierJour);
        QFETCH(QDate, dernierDebut);
        // The period starts after the opening: these two read the opening of rights.
        const QString chemin = documentDroits(
            m_dossier, nom(), {contrats, {}, 1, QDate(2024, 3, 1), QDate(2024, 5, 15), QDate(2025, 5, 14)});
        QCOMPARE(ComptageHeures(chemin).dernierJourDuDernierContrat(), dernierJour);
        QCOMPARE(ComptageHeures(chemin).dateDebutDuDernierContratEffectueAvantToday(), dernierDebut);
        QCOMPARE(Functions::dateDebutDuDernierContratEffectueAvantTodayFromFile(chemin), dernierDebut);
    }

    void nombreDeJoursEntre_data()
    {
        QTest::addColumn<QDate>("debut");
        QTest::addColumn<QDate>("fin");
        QTest::addColumn<int>("attendu");
        QTest::newRow("within a month") << QDate(2016, 3, 1) << QDate(2016, 3, 20) << 19;
        QTest::newRow("two months and 4 days give 4") << QDate(2016, 1, 1) << QDate(2016, 3, 5) << 4;
        QTest::newRow("a year and a day gives 1") << QDate(2015, 6, 10) << QDate(2016, 6, 11) << 1;
        QTest::newRow("from the 31st into a short month") << QDate(2016, 1, 31) << QDate(2016, 3, 1) << 1;
        QTest::newRow("backwards") << QDate(2016, 3, 20) << QDate(2016, 3, 1) << -19;
    }
    void nombreDeJoursEntre()
    {
        QFETCH(QDate, debut);
        QFETCH(QDate, fin);
        QFETCH(int, attendu);
        QCOMPARE(ComptageHeures::nombreDeJoursEntre(debut, fin), attendu);
    }

    void joursDansLeMois_data()
    {
        QTest::addColumn<int>("mois");
        QTest::addColumn<int>("annee");
        QTest::addColumn<int>("attendu");
        QTest::newRow("January") << 1 << 2023 << 31;
        QTest::newRow("April") << 4 << 2023 << 30;
        QTest::newRow("February 2023") << 2 << 2023 << 28;
        QTest::newRow("February 2024") << 2 << 2024 << 29;
        QTest::newRow("February 1900, every fourth year") << 2 << 1900 << 29;
        QTest::newRow("February 2100") << 2 << 2100 << 29;
        QTest::newRow("month 13") << 13 << 2024 << 0;
        QTest::newRow("month 0") << 0 << 2024 << 0;
    }
    void joursDansLeMois()
    {
        QFETCH(int, mois);
        QFETCH(int, annee);
        QFETCH(int, attendu);
        QCOMPARE(ComptageHeures::joursDansLeMois(mois, annee), attendu);
        QCOMPARE(Functions::joursDansLeMois(mois, annee), attendu);
    }

    void numberOfMonthsBetweenFirstDate_data()
    {
        QTest::addColumn<QDate>("premiere");
        QTest::addColumn<QDate>("seconde");
        QTest::addColumn<float>("attendu");
        QTest::newRow("15 January to 10 March 2015")
            << QDate(2015, 1, 15) << QDate(2015, 3, 10) << float(16.0 / 31 + 1 + 10.0 / 31);
        QTest::newRow("within a month") << QDate(2015, 4, 5) << QDate(2015, 4, 20) << float(15.0 / 30);
        QTest::newRow("across the new year")
            << QDate(2014, 12, 20) << QDate(2015, 2, 14) << float(11.0 / 31 + 1 + 14.0 / 28);
        QTest::newRow("February 1900 has 29 days") << QDate(1900, 1, 31) << QDate(1900, 2, 28) << float(28.0 / 29);
        QTest::newRow("first after second") << QDate(2015, 3, 10) << QDate(2015, 1, 15) << 0.0f;
    }
    void numberOfMonthsBetweenFirstDate()
    {
        QFETCH(QDate, premiere);
        QFETCH(QDate, seconde);
        QFETCH(float, attendu);
        QCOMPARE(Functions::numberOfMonthsBetweenFirstDate(premiere, seconde), attendu);
    }
};

QTEST_GUILESS_MAIN(TestComptageHeures)
#include "test_comptage_heures.moc"
