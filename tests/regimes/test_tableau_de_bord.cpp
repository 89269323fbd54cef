// The dashboard's figures against hand-worked values: the two statistics rows and what never
// counts, the hours gauge, the benefit timeline on both sides of 2016-08-01, the reference
// period's gauge, the list with its totals, and the "année blanche" offer.

#include "regimes/TableauDeBord.h"
#include "store/BaseDeDonnees.h"
#include "store/Horloge.h"
#include "unemployment/OutilsDroits.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

class TestTableauDeBord : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    QString document(const DossierDroits& dossier)
    {
        return documentDroits(m_dossier, QStringLiteral("t%1.cv4").arg(++m_numero), dossier);
    }

private slots:
    void cleanupTestCase() { Horloge::reinitialiser(); }

    // Today 2024-06-15; rights opened and the period started on 2024-03-01.
    void statistiques_data()
    {
        QTest::addColumn<ContratsHeures>("contrats");
        QTest::addColumn<Arrets>("arrets");
        QTest::addColumn<QList<double>>("mois");    // days, hours, gross, Pôle Emploi
        QTest::addColumn<QList<double>>("periode"); // the same
        QTest::addColumn<QString>("etat");
        const auto le = [](const QDate& jour, double heures, double brut, int effectue = 1) {
            return ContratHeures(1, 1, heures, jour, true, effectue).paye(brut, 1);
        };
        QTest::newRow("today counts; tomorrow and the day after tomorrow count nowhere")
            << ContratsHeures{le(QDate(2024, 6, 15), 8, 100.1), le(QDate(2024, 6, 16), 10, 200),
                              le(QDate(2024, 6, 17), 12, 300)}
            << Arrets{} << QList<double>{1, 8, 100.1, 150.3} << QList<double>{1, 8, 100.1, 150.3}
            << "499 heures à réaliser avant le réexamen des droits";
        QTest::newRow("506 of 507 hours: the singular")
            << ContratsHeures{le(QDate(2024, 4, 2), 500, 0.1), le(QDate(2024, 6, 3), 6, 0.2)} << Arrets{}
            << QList<double>{1, 6, 0.2, 150.3} << QList<double>{2, 506, 0.3, 150.3}
            << "1 heure à réaliser avant le réexamen des droits";
        QTest::newRow("sickness days count 5 hours; planned contracts and earlier ones do not")
            << ContratsHeures{le(QDate(2024, 4, 2), 497, 5000), le(QDate(2024, 6, 3), 100, 900, 0),
                              le(QDate(2024, 2, 29), 100, 900)}
            << Arrets{{QDate(2024, 6, 10), 2, 0}} << QList<double>{0, 10, 0, 150.3}
            << QList<double>{1, 507, 5000, 150.3} << "Vous pouvez prétendre à une réouverture de droits.";
    }
    void statistiques()
    {
        QFETCH(ContratsHeures, contrats);
        QFETCH(Arrets, arrets);
        QFETCH(QList<double>, mois);
        QFETCH(QList<double>, periode);
        QFETCH(QString, etat);
        Horloge::fixer(QDate(2024, 6, 15));
        const QString chemin = document({contrats, arrets});
        BaseDeDonnees base;
        base.ouvrir(chemin);
        // 0,10 + 0,20 must still make 0,30; the payment of next month counts nowhere.
        for (const auto& [jour, montant] : QList<QPair<QString, double>>{
                 {"2024-06-01", 150.1}, {"2024-06-02", 0.2}, {"2024-02-28", 9}, {"2024-07-01", 9}})
            base.executer("INSERT INTO assedichistorique (ah_date, ah_montant) VALUES (?, ?);",
                          {jour + " 00:00:00.000", montant});
        TableauDeBord_v4 tdb(chemin);
        const Table table = tdb.statistiques();
        QCOMPARE(table.size(), 2);
        for (int r = 0; r < 2; ++r) {
            const QList<double>& attendu = r == 0 ? mois : periode;
            const QList<double> obtenu{table.valeur(r, "Jours").toDouble(), table.valeur(r, "Heures").toDouble(),
                                       table.valeur(r, "Bruts").toDouble(), table.valeur(r, "Pôle Emploi").toDouble()};
            QCOMPARE(obtenu, attendu);
        }
        QCOMPARE(tdb.dossierValidable, etat);
        QCOMPARE(tdb.heuresBarre, int(periode.at(1)));
        QCOMPARE(tdb.jaugeHeures(), QStringLiteral("%1 heures\nsur 507").arg(int(periode.at(1))));
        // The list holds the same done contracts, then the totals.
        const Table liste = tdb.listeContrats("ASC");
        QCOMPARE(liste.valeur(liste.size() - 1, "Date Debut").toString(), QStringLiteral("Totaux"));
        QCOMPARE(liste.valeur(liste.size() - 1, "Nombre Heures").toDouble(), periode.at(1));
        QCOMPARE(liste.valeur(liste.size() - 1, "Bruts").toDouble(), periode.at(2));
    }

    void droits_data()
    {
        QTest::addColumn<QDate>("ouverture");
        QTest::addColumn<QDate>("fin");
        QTest::addColumn<QString>("restants");
        QTest::addColumn<QString>("allocations");
        // Today 2016-08-10, no work: 1 day paid in July, 10 in August.
        QTest::newRow("opened 2016-07-31: 243 days less those paid")
            << QDate(2016, 7, 31) << QDate(2017, 7, 30) << "232 jours d'ARE restants"
            << "11 jours d'ARE (11 allocations)";
        QTest::newRow("opened 2016-08-01: the 2016 days less the days since the opening")
            << QDate(2016, 8, 1) << QDate(2017, 7, 31) << "355 jours d'ARE restants"
            << "10 jours d'ARE (10 allocations)";
        QTest::newRow("rights ended") << QDate(2015, 8, 10) << QDate(2016, 8, 10) << "" << "Période indemnisée";
    }
    void droits()
    {
        QFETCH(QDate, ouverture);
        QFETCH(QDate, fin);
        QFETCH(QString, restants);
        QFETCH(QString, allocations);
        Horloge::fixer(QDate(2016, 8, 10));
        TableauDeBord_v4 tdb(document({{}, {}, 1, ouverture, ouverture, fin}));
        tdb.droits();
        QCOMPARE(tdb.joursRestants, restants);
        QCOMPARE(tdb.joursAllocations, allocations);
        QCOMPARE(tdb.libelleFinDeDroits(), "Fin de droits au " + fin.toString("dd/MM/yyyy"));
    }

    // Opened 2024-03-01, today 2024-06-15: the 107th day.
    void periodeDeReference_data()
    {
        QTest::addColumn<QDate>("fin");
        QTest::addColumn<Arrets>("arrets");
        QTest::addColumn<QString>("libelle");
        QTest::addColumn<QString>("allongement");
        QTest::newRow("days left") << QDate(2024, 12, 31) << Arrets{} << "199 jours restants\ndans la PRA" << "";
        QTest::newRow("leave stretches it") << QDate(2024, 12, 31) << Arrets{{QDate(2024, 5, 2), 0, 10}}
                                            << "199 jours restants\ndans la PRA"
                                            << "Allongement possible jusqu'au 10/01/2025";
        QTest::newRow("the last day") << QDate(2024, 6, 15) << Arrets{} << "0 jours restants\ndans la PRA" << "";
        QTest::newRow("over") << QDate(2024, 6, 14) << Arrets{} << "Terminée !" << "";
    }
    void periodeDeReference()
    {
        QFETCH(QDate, fin);
        QFETCH(Arrets, arrets);
        QFETCH(QString, libelle);
        QFETCH(QString, allongement);
        Horloge::fixer(QDate(2024, 6, 15));
        TableauDeBord_v4 tdb(document({{}, arrets, 1, QDate(2024, 3, 1), QDate(2024, 3, 1), fin}));
        tdb.periodeDeReference();
        QCOMPARE(tdb.periodeReferenceLbl, libelle);
        QCOMPARE(tdb.allongementLbl, allongement);
    }

    void liste()
    {
        Horloge::fixer(QDate(2024, 6, 15));
        const QString chemin = document(
            {{ContratHeures(1, 1, 12, QDate(2024, 4, 2), true, 1, QDate(2024, 4, 3)).paye(250, 2)},
             {{QDate(2024, 5, 6), 3, 0, 2, QDate(2024, 5, 10)}}});
        TableauDeBord_v4 tdb(chemin);
        QList<bool> arrets;
        const Table table = tdb.listeContrats("DESC", &arrets);
        QCOMPARE(arrets, (QList<bool>{true, false, false}));
        QCOMPARE(table.ligne(0).value("Type").toString(), QStringLiteral("Maladie"));
        QCOMPARE(table.ligne(0).value("Nombre Heures").toDouble(), 15.0);
        QCOMPARE(table.ligne(0).value("Bruts").toDouble(), 0.0);
        QCOMPARE(table.ligne(1).value("Date Debut").toString(), QStringLiteral("02/04/2024"));
        QCOMPARE(table.ligne(1).value("Raison Sociale").toString(), QStringLiteral("Opéra"));
        QCOMPARE(table.ligne(2).value("Nombre Heures").toDouble(), 27.0);
        QCOMPARE(tdb.listeContrats("ASC").ligne(0).value("Type").toString(), QStringLiteral("Prestations"));
    }

    void anneeBlanche_data()
    {
        QTest::addColumn<QDate>("fin");
        QTest::addColumn<bool>("proposee");
        QTest::newRow("ends 2020-02-29") << QDate(2020, 2, 29) << false;
        QTest::newRow("ends 2020-03-01") << QDate(2020, 3, 1) << true;
        QTest::newRow("ends 2021-08-31") << QDate(2021, 8, 31) << true;
        QTest::newRow("ends 2021-09-01") << QDate(2021, 9, 1) << false;
    }
    void anneeBlanche()
    {
        QFETCH(QDate, fin);
        QFETCH(bool, proposee);
        Horloge::fixer(QDate(2020, 6, 1));
        const QString chemin = document({{}, {}, 1, fin.addYears(-1), fin.addYears(-1), fin});
        TableauDeBord_v4 tdb(chemin);
        DialoguesScriptes non({"Non"});
        QCOMPARE(tdb.proposeAnneeBlanche(non) == TableauDeBord_v4::AnneeBlanche::Refusee, proposee);
        if (!proposee)
            return;
        // Refused, it comes back at the next opening; accepted, never again.
        DialoguesScriptes oui({"Oui"});
        QCOMPARE(tdb.proposeAnneeBlanche(oui), TableauDeBord_v4::AnneeBlanche::Acceptee);
        QVERIFY(oui.echanges().first().message.startsWith(TableauDeBord_v4::questionAnneeBlanche()));
        QCOMPARE(tdb.proposeAnneeBlanche(oui), TableauDeBord_v4::AnneeBlanche::NonProposee);
        BaseDeDonnees base;
        base.ouvrir(chemin);
        QCOMPARE(base.texte("SELECT p_date_fin FROM periodes;"), QStringLiteral("2021-08-31 00:00:00.000"));
        QVERIFY(base.texte("SELECT p_libelle FROM periodes;").endsWith(", étendue au 31/08/2021 (année blanche)"));
    }
};

QTEST_GUILESS_MAIN(TestTableauDeBord)
#include "test_tableau_de_bord.moc"
