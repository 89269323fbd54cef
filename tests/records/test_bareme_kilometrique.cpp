// The mileage scale: every group of every year in each band and at its edges, the gap
// between the bands, unknown vehicles and years, and the vehicle read from a document.

#include "commun/OutilsDocument.h"
#include "records/BaremeKilometrique.h"
#include "store/Intermittent.h"

#include <QTemporaryDir>
#include <QTest>

using namespace corvane;
using namespace corvane::BaremeKilometrique;
using namespace corvane::test;

namespace {

// The scale as published, written out here on its own: a·d, b·d + c, e·d.
struct Coefficients
{
    double a, b, c, e;
};

struct Groupe
{
    int annee;
    int type;
    QList<int> puissances;
    Coefficients coefficients;
};

const QList<Groupe> groupes{
    {2012, Voiture, {1, 2, 3}, {0.405, 0.242, 818, 0.283}},
    {2012, Voiture, {4}, {0.487, 0.274, 1063, 0.327}},
    {2012, Voiture, {0, 5}, {0.536, 0.3, 1180, 0.359}},
    {2012, Voiture, {6}, {0.561, 0.316, 1223, 0.377}},
    {2012, Voiture, {7}, {0.587, 0.332, 1278, 0.396}},
    {2013, Voiture, {1, 2, 3}, {0.408, 0.244, 820, 0.285}},
    {2013, Voiture, {4}, {0.491, 0.276, 1077, 0.33}},
    {2013, Voiture, {0, 5}, {0.54, 0.303, 1182, 0.362}},
    {2013, Voiture, {6}, {0.565, 0.318, 1238, 0.38}},
    {2013, Voiture, {7}, {0.592, 0.335, 1282, 0.399}},
    {2014, Voiture, {1, 2, 3}, {0.41, 0.245, 824, 0.286}},
    {2014, Voiture, {4}, {0.493, 0.277, 1082, 0.333}},
    {2014, Voiture, {0, 5}, {0.543, 0.305, 1188, 0.364}},
    {2014, Voiture, {6}, {0.568, 0.32, 1244, 0.382}},
    {2014, Voiture, {7}, {0.595, 0.337, 1288, 0.401}},
    {2012, Moto, {1, 2}, {0.333, 0.083, 750, 0.208}},
    {2012, Moto, {0, 3, 4, 5}, {0.395, 0.069, 978, 0.232}},
    {2012, Moto, {6, 7}, {0.511, 0.067, 1332, 0.289}},
    {2013, Moto, {1, 2}, {0.336, 0.084, 756, 0.21}},
    {2013, Moto, {0, 3, 4, 5}, {0.398, 0.07, 984, 0.234}},
    {2013, Moto, {6, 7}, {0.515, 0.067, 1344, 0.291}},
    {2014, Moto, {1, 2}, {0.338, 0.084, 760, 0.211}},
    {2014, Moto, {3, 4, 5}, {0.4, 0.07, 989, 0.235}},
    {2014, Moto, {0}, {0.4, 0.07, 98, 0.235}},
    {2014, Moto, {6, 7}, {0.518, 0.067, 1351, 0.292}},
    {2012, Cyclomoteur, {0, 1, 2, 3, 4, 5, 6, 7}, {0.266, 0.063, 406, 0.144}},
    {2013, Cyclomoteur, {0, 1, 2, 3, 4, 5, 6, 7}, {0.268, 0.063, 410, 0.145}},
    {2014, Cyclomoteur, {0, 1, 2, 3, 4, 5, 6, 7}, {0.269, 0.063, 412, 0.146}},
};

QPair<double, double> bornes(int type)
{
    switch (type) {
    case Voiture:
        return {5000, 20000};
    case Moto:
        return {3000, 6000};
    default:
        return {2000, 5000};
    }
}

const char* nomDuType(int type)
{
    return type == Voiture ? "voiture" : type == Moto ? "moto" : "cyclomoteur";
}

void colonnes()
{
    QTest::addColumn<int>("annee");
    QTest::addColumn<double>("km");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("puissance");
    QTest::addColumn<double>("attendu");
}

} // namespace

class TestBaremeKilometrique : public QObject
{
    Q_OBJECT

private slots:
    // Every power index of every group, in each band and at each band's edges.
    // 2015 gives the 2014 figures.
    void groupesEtTranches_data()
    {
        colonnes();
        for (const Groupe& groupe : groupes) {
            const auto [b1, b2] = bornes(groupe.type);
            const Coefficients& k = groupe.coefficients;
            const QList<QPair<const char*, QPair<double, double>>> distances{
                {"1 km", {1, k.a * 1}},
                {"B1 / 2", {b1 / 2, k.a * (b1 / 2)}},
                {"B1", {b1, k.a * b1}},
                {"B1 + 1", {b1 + 1, k.b * (b1 + 1) + k.c}},
                {"milieu", {(b1 + b2) / 2, k.b * ((b1 + b2) / 2) + k.c}},
                {"B2", {b2, k.b * b2 + k.c}},
                {"B2 + 0,5", {b2 + 0.5, k.e * (b2 + 0.5)}},
                {"B2 + 1", {b2 + 1, k.e * (b2 + 1)}},
                {"3 × B2", {3 * b2, k.e * (3 * b2)}},
            };
            for (const int annee : groupe.annee == 2014 ? QList<int>{2014, 2015} : QList<int>{groupe.annee}) {
                for (const int puissance : groupe.puissances) {
                    for (const auto& [nom, distance] : distances) {
                        QTest::addRow("%d %s puissance %d, %s", annee, nomDuType(groupe.type), puissance, nom)
                            << annee << distance.first << groupe.type << puissance << distance.second;
                    }
                }
            }
        }
    }
    void groupesEtTranches()
    {
        QFETCH(int, annee);
        QFETCH(double, km);
        QFETCH(int, type);
        QFETCH(int, puissance);
        QFETCH(double, attendu);
        QCOMPARE(calculeFraisKmReelsAnnee(annee, km, type, puissance), attendu);
    }

    // Strictly between B1 and B1 + 1 no band applies.
    void ecartEntreB1EtB1PlusUn_data()
    {
        colonnes();
        for (const int annee : {2012, 2013, 2014, 2015}) {
            for (const int type : {int(Voiture), int(Moto), int(Cyclomoteur)}) {
                const double b1 = bornes(type).first;
                for (const double ecart : {0.001, 0.5, 0.999}) {
                    QTest::addRow("%d %s B1 + %g", annee, nomDuType(type), ecart)
                        << annee << b1 + ecart << type << 4 << 0.0;
                }
            }
        }
    }
    void ecartEntreB1EtB1PlusUn() { groupesEtTranches(); }

    void autres_data()
    {
        colonnes();
        QTest::newRow("moto 0 en 2014 : 98") << 2014 << 4000.0 << int(Moto) << 0 << 378.0;
        QTest::newRow("moto 0 en 2013") << 2013 << 4000.0 << int(Moto) << 0 << 1264.0;
        QTest::newRow("0 km") << 2014 << 0.0 << int(Voiture) << 4 << 0.0;
        QTest::newRow("type 0") << 2014 << 1000.0 << 0 << 4 << 0.0;
        QTest::newRow("type -1") << 2014 << 1000.0 << -1 << 4 << 0.0;
        QTest::newRow("voiture puissance 8") << 2014 << 1000.0 << int(Voiture) << 8 << 0.0;
        QTest::newRow("moto puissance 100") << 2012 << 1000.0 << int(Moto) << 100 << 0.0;
        QTest::newRow("2011 : pas de barème") << 2011 << 1000.0 << int(Voiture) << 4 << 0.0;
        QTest::newRow("2030 : pas de barème") << 2030 << 1000.0 << int(Cyclomoteur) << 0 << 0.0;
        // A moped's power is not read at all.
        QTest::newRow("cyclomoteur puissance 8") << 2014 << 1000.0 << int(Cyclomoteur) << 8 << 269.0;
    }
    void autres() { groupesEtTranches(); }

    // The vehicle read from the document (its refusals are in the CLI scenarios): a new
    // document's car of index 0 is grouped with 5 CV; then each year's own function.
    void depuisLeDocument()
    {
        QTemporaryDir dossier;
        const QString chemin = creerDocument(parametresParDefaut(dossier.filePath("km.cv4")));
        QCOMPARE(calculeFraisKmReelsAnnee(2014, 1000, chemin), 543.0);
        Intermittent(chemin).db().exec("UPDATE utilisateur SET u_vehicule_type = 2, u_vehicule_puissance = 0;");
        QCOMPARE(calculeFraisKmReels2012(4000, chemin), 0.069 * 4000 + 978);
        QCOMPARE(calculeFraisKmReels2013(4000, chemin), 1264.0);
        QCOMPARE(calculeFraisKmReels2014(4000, chemin), 378.0);
        QCOMPARE(calculeFraisKmReels2015(4000, chemin), 378.0);
        QCOMPARE(calculeFraisKmReelsAnnee(2016, 4000, chemin), 0.0);
    }
};
QTEST_GUILESS_MAIN(TestBaremeKilometrique)
#include "test_bareme_kilometrique.moc"
