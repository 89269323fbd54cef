#include "commun/Cas.h"
#include "regimes/CalculateurAutoEntrepreneur.h"

#include <QTest>

using namespace corvane;
using namespace corvane::test;

class TestCalculateurAutoEntrepreneur : public QObject
{
    Q_OBJECT

private slots:
    void tauxDeCharges_data()
    {
        QTest::addColumn<int>("annee");
        QTest::addColumn<bool>("liberatoire");
        QTest::addColumn<double>("ventes");
        QTest::addColumn<double>("servicesBIC");
        QTest::addColumn<double>("servicesBNC");
        struct Ligne
        {
            int annee;
            double ventes, bic, bnc;
        };
        const QList<Ligne> lignes{
            {1990, 12.0, 21.3, 21.3}, {2011, 12.0, 21.3, 21.3}, {2012, 12.0, 21.3, 21.3},
            {2013, 14.0, 24.6, 24.6}, {2014, 14.1, 24.6, 24.6}, {2015, 13.3, 22.9, 22.9},
            {2016, 13.4, 23.1, 23.1}, {2017, 13.4, 23.1, 23.1}, {2030, 13.4, 23.1, 23.1},
        };
        for (const Ligne& l : lignes) {
            QTest::addRow("%d", l.annee) << l.annee << false << l.ventes << l.bic << l.bnc;
            QTest::addRow("%d avec versement libératoire", l.annee)
                << l.annee << true << l.ventes + 1.0 << l.bic + 1.7 << l.bnc + 2.2;
        }
    }
    void tauxDeCharges()
    {
        QFETCH(int, annee);
        QFETCH(bool, liberatoire);
        QFETCH(double, ventes);
        QFETCH(double, servicesBIC);
        QFETCH(double, servicesBNC);
        const TauxDeCharges taux = CalculateurAutoEntrepreneur::tauxDeCharges(annee, liberatoire);
        QCOMPARE(taux.ventes, ventes);
        QCOMPARE(taux.servicesBIC, servicesBIC);
        QCOMPARE(taux.servicesBNC, servicesBNC);

        CalculateurAutoEntrepreneur calculateur;
        calculateur.setAnnee(annee);
        calculateur.setPrelevementLiberatoire(liberatoire);
        QCOMPARE(calculateur.tauxChargesVentes(), ventes);
        QCOMPARE(calculateur.tauxChargesServicesBIC(), servicesBIC);
        QCOMPARE(calculateur.tauxChargesServicesBNC(), servicesBNC);
    }

    void calculeLesCharges_data()
    {
        QTest::addColumn<int>("annee");
        QTest::addColumn<bool>("liberatoire");
        QTest::addColumn<bool>("alsace");
        QTest::addColumn<bool>("moselle");
        QTest::addColumn<int>("categorie");
        QTest::addColumn<int>("activite");
        QTest::addColumn<double>("ventes");
        QTest::addColumn<double>("servicesBIC");
        QTest::addColumn<double>("servicesBNC");
        QTest::addColumn<double>("attendu");
        cas("2016, libératoire, Alsace, catégorie 2, activité 2", 2016, true, true, false, 2, 2, 10000.0, 5000.0, 0.0,
            2803.0);
        cas("2012 : la ligne d'avant 2013", 2012, false, false, false, 0, 0, 1000.0, 1000.0, 1000.0,
            120.0 + 213.0 + 213.0);
        cas("ventes seules 2015", 2015, false, false, false, 0, 0, 1000.0, 0.0, 0.0, 133.0);
        cas("services BIC seuls 2014", 2014, false, false, false, 0, 0, 0.0, 1000.0, 0.0, 246.0);
        cas("services BNC seuls 2013, libératoire", 2013, true, false, false, 0, 0, 0.0, 0.0, 1000.0, 268.0);
        cas("CFE et chambre sur le total, Moselle", 2016, false, false, true, 3, 4, 0.0, 0.0, 10000.0,
            2310.0 + 20.0 + 37.0);
        cas("Alsace et Moselle : CFE d'Alsace, chambre de Moselle", 2016, false, true, true, 2, 2, 0.0, 0.0, 10000.0,
            2310.0 + 17.0 + 83.0);
        cas("catégorie et activité inconnues", 2016, false, false, false, 9, 9, 10000.0, 0.0, 0.0, 1340.0);
        cas("sans chiffre d'affaires", 2016, true, true, true, 1, 2, 0.0, 0.0, 0.0, 0.0);
        cas("pas d'arrondi", 2016, false, false, false, 1, 1, 1234.56, 0.0, 0.0,
            1234.56 * 13.4 / 100 + 1234.56 * 0.1 / 100 + 1234.56 * 0.044 / 100);
    }
    void calculeLesCharges()
    {
        QFETCH(int, annee);
        QFETCH(bool, liberatoire);
        QFETCH(bool, alsace);
        QFETCH(bool, moselle);
        QFETCH(int, categorie);
        QFETCH(int, activite);
        QFETCH(double, ventes);
        QFETCH(double, servicesBIC);
        QFETCH(double, servicesBNC);
        QFETCH(double, attendu);
        CalculateurAutoEntrepreneur calculateur;
        calculateur.setAnnee(annee);
        calculateur.setPrelevementLiberatoire(liberatoire);
        calculateur.setAlsace(alsace);
        calculateur.setMoselle(moselle);
        calculateur.setIdCategoriePro(categorie);
        calculateur.setIdActivite(activite);
        calculateur.setCaVentesDeMarchandisesBIC(ventes);
        calculateur.setCaPrestationsDeServicesBIC(servicesBIC);
        calculateur.setCaPrestationsDeServicesBNC(servicesBNC);
        QCOMPARE(calculateur.calculeLesCharges(), attendu);
    }
};

QTEST_APPLESS_MAIN(TestCalculateurAutoEntrepreneur)
#include "test_calculateur_auto_entrepreneur.moc"
