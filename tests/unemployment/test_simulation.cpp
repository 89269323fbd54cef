// The rights simulation: the 2016 daily allowance and its deductions worked by hand, then
// whole simulations on documents (rule set, abatement, what counts, steps, reports), and the
// monthly hours ceiling that only speaks up to 18 February 2009.

#include "store/BaseDeDonnees.h"
#include "store/Horloge.h"
#include "unemployment/OutilsDroits.h"
#include "unemployment/Simulation.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

namespace {

// What a simulation is expected to give; aj -1 when the 2016 computation does not apply.
struct Attendu
{
    bool simulee;
    QString protocole;
    int heuresRequises;
    int heures;
    int jours;
    double salaireRetenu;
    double aj;
    QString dansLeRapport;
};

} // namespace

Q_DECLARE_METATYPE(Attendu)

class TestSimulation : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    QString document(const DossierDroits& dossier, const QString& codePostal = {})
    {
        const QString chemin = documentDroits(m_dossier, QStringLiteral("s%1.cv4").arg(++m_numero), dossier);
        if (!codePostal.isEmpty()) {
            BaseDeDonnees base;
            base.ouvrir(chemin);
            base.executer("UPDATE utilisateur SET u_codepostal = ? WHERE u_id = 1;", {codePostal});
        }
        return chemin;
    }

private slots:
    void init() { Horloge::fixer(QDate(2024, 6, 15)); }
    void cleanupTestCase() { Horloge::reinitialiser(); }

    // Last day of the last contract 2024-06-30: hourly minimum wage 10,15 €, CSG/CRDS threshold
    // 49 €, ceiling 137,12 €, Alsace-Moselle 1,5 %.
    void allocation_2016_data()
    {
        QTest::addColumn<QString>("profession");
        QTest::addColumn<double>("salaires");
        QTest::addColumn<int>("heures");
        QTest::addColumn<int>("jours");
        QTest::addColumn<int>("materPaterALD"); // over a 365-day period
        QTest::addColumn<QString>("codePostal");
        QTest::addColumn<QList<double>>("attendu"); // AJ, SJR, pension, CSG+CRDS, Alsace-Moselle, net
        QTest::addColumn<QList<int>>("franchise");  // days, days a month, deferment

        QTest::newRow("annex 10, 10 000 € over 600 h: 54,18 €")
            << "Artiste" << 10000.0 << 600 << 60 << 0 << "75011" << QList<double>{54.18, 166.67, 1.55, 3.57, 0, 49.06}
            << QList<int>{7, 2, 0};
        QTest::newRow("Alsace-Moselle above the CSG threshold")
            << "Artiste" << 10000.0 << 600 << 60 << 0 << "67000"
            << QList<double>{54.18, 166.67, 1.55, 3.57, 0.81, 48.25} << QList<int>{7, 2, 0};
        QTest::newRow("'6700' is no Alsace-Moselle code")
            << "Artiste" << 10000.0 << 600 << 60 << 0 << "6700" << QList<double>{54.18, 166.67, 1.55, 3.57, 0, 49.06}
            << QList<int>{7, 2, 0};
        QTest::newRow("annex 10 floor of 44 €, below the threshold: CRDS only")
            << "Artiste" << 1000.0 << 507 << 30 << 0 << "68100" << QList<double>{44, 19.61, 0.18, 0.22, 0, 43.60}
            << QList<int>{4, 2, 0};
        QTest::newRow("annex 8 keeps 40,01 € above its floor; 24 days withheld 3 a month")
            << "Technicien" << 7330.0 << 507 << 230 << 0 << "57000" << QList<double>{40.01, 114.53, 1.07, 0.20, 0, 38.74}
            << QList<int>{24, 3, 0};
        QTest::newRow("annex 8 floor of 38 €")
            << "Ouvrier" << 1000.0 << 507 << 220 << 0 << "" << QList<double>{38, 15.63, 0.15, 0.19, 0, 37.66}
            << QList<int>{23, 2, 0};
        QTest::newRow("the daily ceiling; 300 days give a franchise of 30 withheld 3 a month")
            << "Artiste" << 400000.0 << 1500 << 300 << 0 << "" << QList<double>{137.12, 2666.67, 24.80, 9.02, 0, 103.30}
            << QList<int>{30, 3, 4523};
        QTest::newRow("maternity days make the pay up over the period")
            << "Artiste" << 6000.0 << 507 << 220 << 65 << "" << QList<double>{46.59, 143.14, 1.33, 0.23, 0, 45.03}
            << QList<int>{23, 2, 0};
        QTest::newRow("without them the floor applies")
            << "Artiste" << 6000.0 << 507 << 220 << 0 << "" << QList<double>{44, 117.65, 1.09, 0.22, 0, 42.69}
            << QList<int>{23, 2, 0};
        QTest::newRow("a deferment of 36 whole days")
            << "Artiste" << 30000.0 << 600 << 120 << 0 << "" << QList<double>{67.65, 500, 4.65, 4.45, 0, 58.55}
            << QList<int>{13, 2, 36};
    }
    void allocation_2016()
    {
        QFETCH(QString, profession);
        QFETCH(double, salaires);
        QFETCH(int, heures);
        QFETCH(int, jours);
        QFETCH(int, materPaterALD);
        QFETCH(QString, codePostal);
        QFETCH(QList<double>, attendu);
        QFETCH(QList<int>, franchise);
        PoleEmploi p;
        p.annexe = profession;
        p.salaires_2016 = salaires;
        p.nbreHeures = heures;
        p.nbreJours = jours;
        p.nbreMaterPaterALD = materPaterALD;
        p.joursPeriodeDeReference = 365;
        p.codePostal = codePostal;
        p.dernierJourDernierContrat = QDate(2024, 6, 30);
        p.calculs_2016();
        const QList<double> obtenu{p.AJ_2016,        p.SJR_2016, p.retRetraiteComp_08_2016, PoleEmploi::arrondi(p.retCsgRds_2016),
                                   p.supAlsaceMoselle_08_2016, PoleEmploi::arrondi(p.AJ_2016_Net)};
        for (int i = 0; i < attendu.size(); ++i)
            QVERIFY2(qAbs(obtenu[i] - attendu[i]) < 1e-9,
                     qPrintable(QStringLiteral("%1: %2 au lieu de %3").arg(i).arg(obtenu[i]).arg(attendu[i])));
        QCOMPARE((QList<int>{p.franchiseCongesPayes, p.franchiseCongesPayesParMois, int(p.differeIndemnisation)}),
                 franchise);
    }

    // The range is the whole of the contracts' year unless the row says otherwise; the user is a
    // performer.
    void simulation_data()
    {
        QTest::addColumn<DossierDroits>("dossier");
        QTest::addColumn<QDate>("du");
        QTest::addColumn<QDate>("au");
        QTest::addColumn<int>("choix"); // the screen's contract condition
        QTest::addColumn<bool>("ij");
        QTest::addColumn<Attendu>("attendu");

        const auto contrat = [](const QDate& debut, double heures, double brut, int jours, int abattement = 1) {
            return ContratHeures(1, 1, heures, debut, true, 1, debut).paye(brut, jours, abattement);
        };
        QTest::newRow("last counted contract on 2007-03-31: nothing is simulated")
            << DossierDroits{{contrat(QDate(2007, 3, 31), 600, 10000, 60)}} << QDate(2006, 6, 1) << QDate(2007, 5, 31)
            << 0 << false << Attendu{false, {}, 0, 0, 0, 0, -1, {}};
        QTest::newRow("on 2016-07-31 the 2007 rules: no allowance invented")
            << DossierDroits{{contrat(QDate(2016, 7, 31), 600, 10000, 60, 2)}} << QDate(2015, 8, 1)
            << QDate(2016, 7, 31) << 0 << false
            << Attendu{true, "04_2007", 579, 600, 60, 8000, -1, "ne calcule pas l'allocation journalière"};
        QTest::newRow("on 2016-08-01 the 2016 rules")
            << DossierDroits{{contrat(QDate(2016, 8, 1), 600, 10000, 60, 2)}} << QDate(2015, 8, 2) << QDate(2016, 8, 1)
            << 0 << false << Attendu{true, "08_2016", 507, 600, 60, 8000, 49.66, "Contactez Pôle Emploi au 3949 !"};
        QTest::newRow("abatement still applied for a last day on 2017-06-30")
            << DossierDroits{{contrat(QDate(2017, 6, 30), 600, 10000, 60, 2)}} << QDate(2016, 7, 1)
            << QDate(2017, 6, 30) << 0 << false << Attendu{true, "08_2016", 507, 600, 60, 8000, 49.66, {}};
        QTest::newRow("abatement stopped for a last day on 2017-07-01")
            << DossierDroits{{contrat(QDate(2017, 7, 1), 600, 10000, 60, 2)}} << QDate(2016, 7, 2)
            << QDate(2017, 7, 1) << 0 << false << Attendu{true, "08_2016", 507, 600, 60, 10000, 54.18, {}};

        const QDate mars(2024, 3, 4);
        ContratsHeures nonComptes{contrat(mars, 300, 5000, 30),
                                  ContratHeures(1, 2, 40, mars, false).paye(900, 4),
                                  ContratHeures(4, 4, 100, mars).paye(2000, 10),
                                  ContratHeures(1, 100, 50, mars).paye(700, 5)};
        QTest::newRow("teaching at a non-approved employer, general regime and self-employment do not count")
            << DossierDroits{nonComptes} << QDate(2024, 1, 1) << QDate(2024, 12, 31) << 0 << false
            << Attendu{true, "08_2016", 507, 300, 30, 5000, 44, "il vous en manquera 207 pour atteindre les 507"};
        QTest::newRow("teaching kept to 55 h, training to 338 h")
            << DossierDroits{{contrat(mars, 100, 3000, 10), ContratHeures(1, 2, 70, mars).paye(1000, 7),
                              ContratHeures(2, 3, 400, mars).paye(0, 40)}}
            << QDate(2024, 1, 1) << QDate(2024, 12, 31) << 0 << false
            << Attendu{true, "08_2016", 507, 493, 57, 4000, 44, {}};
        QTest::newRow("a contract on the range's last day counts whole")
            << DossierDroits{{ContratHeures(1, 1, 507, QDate(2024, 12, 31), true, 1, QDate(2025, 2, 1))
                                  .paye(8000, 40)}}
            << QDate(2024, 1, 1) << QDate(2024, 12, 31) << 0 << false
            << Attendu{true, "08_2016", 507, 507, 40, 8000, 48.17, "vos droits pourra être fixée au 02/02/2025"};
        QTest::newRow("planned contracts only: hours, but no done pay")
            << DossierDroits{{ContratHeures(1, 1, 600, mars, true, 0).paye(10000, 60)}} << QDate(2024, 1, 1)
            << QDate(2024, 12, 31) << 2 << false << Attendu{true, "08_2016", 507, 600, 0, 0, 44, {}};
        const Arrets arrets{{QDate(2024, 5, 6), 10, 0, 2, QDate(2024, 5, 20), false, 320.5},
                            {QDate(2024, 6, 3), 4, 0, 1, QDate(2024, 6, 6), false, 100},
                            {QDate(2024, 9, 2), 20, 0, 3, QDate(2024, 9, 21), false, 900}};
        QTest::newRow("sickness and maternity hours count, a work accident's does not; maternity days make the pay up")
            << DossierDroits{{contrat(mars, 400, 8000, 40)}, arrets} << QDate(2024, 1, 1) << QDate(2024, 12, 31) << 0
            << false << Attendu{true, "08_2016", 507, 550, 40, 8462.43, 49.9, {}};
        QTest::newRow("with the option, the daily allowances raise the pay")
            << DossierDroits{{contrat(mars, 400, 8000, 40)}, arrets} << QDate(2024, 1, 1) << QDate(2024, 12, 31) << 0
            << true << Attendu{true, "08_2016", 507, 550, 40, 9859.26, 53.06, {}};
        QTest::newRow("a range of 397 days needs the second step's hours")
            << DossierDroits{{contrat(mars, 560, 9000, 56)}} << QDate(2023, 2, 1) << QDate(2024, 3, 4) << 0 << false
            << Attendu{true, "08_2016", 591, 560, 56, 9000, 51.28, "il vous en manquera 31"};
        QTest::newRow("beyond 485 days nothing is computed")
            << DossierDroits{{contrat(mars, 560, 9000, 56)}} << QDate(2022, 11, 1) << QDate(2024, 3, 4) << 0 << false
            << Attendu{true, "08_2016", 0, 560, 56, 9000, 51.28, "au-delà d'une période de référence de 485 jours"};
    }
    void simulation()
    {
        QFETCH(DossierDroits, dossier);
        QFETCH(QDate, du);
        QFETCH(QDate, au);
        QFETCH(int, choix);
        QFETCH(bool, ij);
        QFETCH(Attendu, attendu);
        Simulation s(document(dossier), du, au);
        s.setTriDesContrats(ComptageHeures::conditionsDesContrats().at(choix));
        s.setSecuriteSociale(ij);
        QCOMPARE(s.lance(), attendu.simulee);
        if (!attendu.simulee) {
            QVERIFY(s.compteRendu.isEmpty());
            return;
        }
        QCOMPARE(s.protocoleAccord, attendu.protocole);
        QCOMPARE(s.PRA_Palier, attendu.heuresRequises);
        QCOMPARE(s.nbreHeures, attendu.heures);
        QCOMPARE(s.nbreJours, attendu.jours);
        QCOMPARE(PoleEmploi::arrondi(s.salairesRetenus), attendu.salaireRetenu);
        if (attendu.aj >= 0)
            QCOMPARE(s.AJ_2016, attendu.aj);
        else
            QVERIFY(s.tableauAllocations.isEmpty());
        const QString rapport = texteDuCompteRendu(s.compteRendu);
        QVERIFY2(rapport.contains(attendu.dansLeRapport), qPrintable(rapport));
    }

    // The analysis of the current period (2024-03-01 to 2024-12-31), today 2024-06-15.
    void analyse_data()
    {
        QTest::addColumn<ContratsHeures>("contrats");
        QTest::addColumn<QStringList>("dansLeRapport");
        const QDate avril(2024, 4, 2);
        QTest::newRow("enough done hours")
            << ContratsHeures{ContratHeures(1, 1, 520, avril).paye(9000, 52)}
            << QStringList{"Vous avez effectué suffisamment d'heures (520)", "Allocation", "Contactez"};
        QTest::newRow("missing hours, planned contracts would bring enough")
            << ContratsHeures{ContratHeures(1, 1, 400, avril).paye(7000, 40),
                              ContratHeures(1, 1, 120, QDate(2024, 9, 2), true, 0).paye(2000, 12)}
            << QStringList{"vous avez effectué 400 heure(s) sur les 507 requises : il vous en manque 107 d'ici le "
                           "31/12/2024",
                           "Il vous reste 200 jour(s)", "en apporteraient 120, ce qui suffirait"};
        QTest::newRow("no contract at all")
            << ContratsHeures{} << QStringList{"vous avez effectué 0 heure(s) sur les 507 requises"};
    }
    void analyse()
    {
        QFETCH(ContratsHeures, contrats);
        QFETCH(QStringList, dansLeRapport);
        Simulation s(document(DossierDroits{contrats}), {}, {});
        QVERIFY(s.analyse());
        QCOMPARE(s.dateDebut, QDate(2024, 3, 1));
        QCOMPARE(s.dateFin, QDate(2024, 12, 31));
        const QString rapport = texteDuCompteRendu(s.compteRendu) +
                                (s.tableauAllocations.isEmpty() ? QString() : s.tableauAllocations.first().libelle);
        for (const QString& extrait : dansLeRapport)
            QVERIFY2(rapport.contains(extrait), qPrintable(rapport));
    }

    // A technician's month of 2008 over 208 hours, one contract straddling two months.
    void plafondMensuel_data()
    {
        QTest::addColumn<QDate>("aujourdhui");
        QTest::addColumn<int>("emploiId");
        QTest::addColumn<QString>("attendu");
        const QString depassement = "ATTENTION :\nEn mars 2008, vous dépassez le plafond d'heures mensuelles (220 "
                                    "heures au lieu de 208 heures).\nNotez que ce plafond peut être élevé jusqu'à 260 "
                                    "heures mensuelles par dérogation.\n\n";
        QTest::newRow("up to 2009-02-18 it is reported") << QDate(2009, 2, 18) << 3 << depassement;
        QTest::newRow("from 2009-02-19 the check is silent") << QDate(2009, 2, 19) << 3 << QString();
        QTest::newRow("performers are never checked") << QDate(2009, 1, 5) << 1 << QString();
    }
    void plafondMensuel()
    {
        QFETCH(QDate, aujourdhui);
        QFETCH(int, emploiId);
        QFETCH(QString, attendu);
        // 200 h inside March, then 4 worked days at 10 h: 2 in March (30, 31), 2 in April.
        const QString chemin = document(DossierDroits{
            {ContratHeures(3, 1, 200, QDate(2008, 3, 3), true, 1, QDate(2008, 3, 20)),
             ContratHeures(3, 1, 40, QDate(2008, 3, 30), true, 1, QDate(2008, 4, 2))},
            {},
            emploiId});
        BaseDeDonnees base;
        base.ouvrir(chemin);
        base.executer("UPDATE contrats SET c_nbre_jours = 4, c_dates_travaillees = '30/03/2008,31/03/2008,01/04/2008,"
                      "02/04/2008' WHERE c_nbre_heures = 40;");
        Horloge::fixer(aujourdhui);
        PoleEmploi p(chemin);
        QCOMPARE(p.verifiePlafondHeuresMensuel(QDate(2008, 1, 1), QDate(2008, 12, 31), "simulation"), attendu);
    }
};

QTEST_GUILESS_MAIN(TestSimulation)
#include "test_simulation.moc"
