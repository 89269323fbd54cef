// The income-tax figures worked by hand: the cashing year against the dates, the rounding of
// each net, what is never taxable or never shown, the self-employment charges and the
// actual mileage costs from the profile, and the collecting societies by position.

#include "regimes/Fiscalite.h"
#include "store/BaseDeDonnees.h"
#include "store/Horloge.h"
#include "unemployment/OutilsDroits.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

namespace {

struct Contrat
{
    QDate debut;
    double net;
    int type = 1;
    int encaissement = 0; // the year the pay was received, that of the start when 0
};

} // namespace

Q_DECLARE_METATYPE(QList<Contrat>)

class TestFiscalite : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    // A document holding the contracts, then whatever `sql` adds.
    QString document(const QList<Contrat>& contrats, const QStringList& sql = {})
    {
        ContratsHeures c;
        for (const Contrat& contrat : contrats)
            c << ContratHeures(1, contrat.type, 10, contrat.debut).paye(0, 1);
        const QString chemin = documentDroits(m_dossier, QStringLiteral("f%1.cv4").arg(++m_numero), {c});
        BaseDeDonnees base;
        base.ouvrir(chemin);
        for (int i = 0; i < contrats.size(); ++i)
            base.executer("UPDATE contrats SET c_salaire_net = ?, c_annee_encaissement = ?, c_pas = 10 WHERE c_id = ?;",
                          {contrats[i].net,
                           contrats[i].encaissement ? contrats[i].encaissement : contrats[i].debut.year(), i + 1});
        for (const QString& instruction : sql)
            base.executer(instruction);
        return chemin;
    }

private slots:
    void init() { Horloge::fixer(QDate(2025, 5, 20)); }
    void cleanupTestCase() { Horloge::reinitialiser(); }

    void declaration_data()
    {
        QTest::addColumn<QList<Contrat>>("contrats");
        QTest::addColumn<bool>("arrondir");
        QTest::addColumn<int>("annee"); // 0: the defined period 2023-01-01 to 2023-12-31
        QTest::addColumn<double>("net");
        QTest::addColumn<int>("journees");
        const QList<Contrat> decembre{{QDate(2023, 12, 20), 800, 1, 2024}, {QDate(2024, 3, 1), 200}};
        QTest::newRow("worked in December 2023, paid in 2024: under 2024")
            << decembre << false << 2024 << 1000.0 << 2;
        QTest::newRow("the same under its dates in a defined period") << decembre << false << 0 << 800.0 << 1;
        QTest::newRow("two nets of 100,50 rounded give 202")
            << QList<Contrat>{{QDate(2024, 3, 1), 100.5}, {QDate(2024, 3, 2), 100.5}} << true << 2024 << 202.0 << 2;
        QTest::newRow("without rounding they give 201")
            << QList<Contrat>{{QDate(2024, 3, 1), 100.5}, {QDate(2024, 3, 2), 100.5}} << false << 2024 << 201.0 << 2;
    }
    void declaration()
    {
        QFETCH(QList<Contrat>, contrats);
        QFETCH(bool, arrondir);
        QFETCH(int, annee);
        QFETCH(double, net);
        QFETCH(int, journees);
        Fiscalite f(document(contrats));
        f.arrondirMontants = arrondir;
        if (annee)
            f.declarationAnnee(annee);
        else
            f.declarationPeriode(QDate(2023, 1, 1), QDate(2023, 12, 31));
        QCOMPARE(f.revenusNet, net);
        QCOMPARE(f.nombreCachets, journees);
        QCOMPARE(f.contrats.size(), qsizetype(journees));
        QCOMPARE(f.resume.size(), 10);
        // The withholding at 10 % is on the nets as they are stored.
        if (!arrondir)
            QCOMPARE(f.employeurs.valeur(0, "PAS").toDouble(), net / 10);
    }

    void sommes()
    {
        const QString chemin = document(
            {{QDate(2016, 3, 1), 10000, 100}, {QDate(2016, 4, 1), 5000, 101}, {QDate(2016, 5, 1), 3000, 103}},
            {"INSERT INTO securitesociale (ss_debut, ss_fin, ss_type_id, ss_total_ij, ss_ald) VALUES ('2016-02-01 "
             "00:00:00.000', '2016-02-10 00:00:00.000', 2, 300.25, 0);",
             "INSERT INTO securitesociale (ss_debut, ss_fin, ss_type_id, ss_total_ij, ss_ald) VALUES ('2016-06-01 "
             "00:00:00.000', '2016-06-30 00:00:00.000', 2, 999, 1);",
             "INSERT INTO droitsvoisins (dv_categorie, dv_details, dv_montant, dv_date, dv_organisme_id) VALUES (1, '', "
             "120.5, '2016-07-01 00:00:00.000', 4);",
             "UPDATE utilisateur SET u_ae_prelevementliberatoire = 1, u_ae_categoriepro = 2, u_ae_activite = 2, "
             "u_codepostal = '67000' WHERE u_id = 1;"});
        Fiscalite f(chemin);
        f.primeEmploi = true;
        f.declarationAnnee(2016);
        // Type 103 is in the taxable net, and in no self-employment row.
        QCOMPARE(f.revenusNet, 18000.0);
        QCOMPARE(f.totalRevenusRevente + f.totalRevenusCommerciaux + f.totalRevenusNonCommerciaux, 15000.0);
        // 10 000 × 14,4 % + 5 000 × 24,8 % + 15 000 × (0,17 % + 0,65 %).
        QCOMPARE(f.chargesAE, 2803.0);
        // Long-illness allowances are never taxable.
        QCOMPARE(f.totalIJ, 300.25);
        QCOMPARE(f.resume.at(3), qMakePair(QStringLiteral("Heures"), QStringLiteral("0")));
        QCOMPARE(f.droitsVoisins.at(3), qMakePair(QStringLiteral("Spedidam"), 120.5));
        QCOMPARE(f.droitsVoisins.at(5).first, QStringLiteral("Spré"));

        // Limited to the second quarter, only the BIC services of April count.
        f.periodeAE = 3;
        f.declarationAnnee(2016);
        QCOMPARE(f.totalRevenusRevente + f.totalRevenusCommerciaux, 5000.0);
    }

    void fraisReels()
    {
        const QString chemin =
            document({}, {"INSERT INTO frais (f_categorie, f_details, f_montant, f_date, f_fichier) VALUES (1, '', 5000, "
                          "'2014-06-01 00:00:00.000', '');",
                          "INSERT INTO frais (f_categorie, f_details, f_montant, f_date, f_fichier) VALUES (3, '', 12.4, "
                          "'2014-06-01 00:00:00.000', '');",
                          "UPDATE utilisateur SET u_vehicule_type = 1, u_vehicule_puissance = 4 WHERE u_id = 1;"});
        Fiscalite f(chemin);
        f.declarationAnnee(2014);
        QCOMPARE(f.totalKm, 5000.0);
        QCOMPARE(f.totalFrais, 12.4);
        QCOMPARE(std::floor(f.fraisReels), 2465.0);
        QCOMPARE(f.resume.at(9).second, QStringLiteral("5\u202f000 km"));
    }

    void versements()
    {
        FiscaliteVersements v(document({}));
        const int paiement = v.enregistre(QDate(2024, 9, 15), 812.4, false);
        const int credit = v.enregistre(QDate(2024, 8, 1), 120, true);
        QVERIFY(paiement > 0 && credit > 0);
        const Table t = v.liste("ASC");
        QCOMPARE(t.cles.last(), QStringLiteral("Crédit"));
        QCOMPARE(t.valeur(0, "Crédit").toInt(), 1);
        QCOMPARE(t.valeur(1, "Montant").toDouble(), 812.4);
    }
};

QTEST_GUILESS_MAIN(TestFiscalite)
#include "test_fiscalite.moc"
