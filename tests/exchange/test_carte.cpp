// The map pages as the program writes them: addresses put into their scripts whatever they hold,
// the route page's start, weather line and traffic layer, and the postal address of a record.

#include "commun/Cas.h"
#include "exchange/PageCarte.h"

#include <QtTest>

using namespace corvane;
using namespace corvane::test;

namespace {

FournisseurCarte fournisseur(const QString& trafic = QString())
{
    return {QString(),
            QStringLiteral("https://tuiles.exemple/{z}/{x}/{y}.png"),
            trafic,
            QStringLiteral("https://adresses.exemple/?q={adresse}"),
            QStringLiteral("https://routes.exemple/{depart};{arrivee}"),
            QStringLiteral("© Exemple")};
}

} // namespace

class TestCarte : public QObject
{
    Q_OBJECT

private slots:
    void texteJavaScript_data()
    {
        QTest::addColumn<QString>("texte");
        QTest::addColumn<QString>("litteral");
        cas("plain", "8 rue de Lyon", "\"8 rue de Lyon\"");
        cas("apostrophe", "l'Olympia", "\"l\\'Olympia\"");
        cas("double quotes", "Salle \"Pleyel\"", "\"Salle \\\"Pleyel\\\"\"");
        cas("backslash", "C:\\Théâtre", "\"C:\\\\Théâtre\"");
        cas("two lines", "3 rue Haute\nBâtiment B", "\"3 rue Haute\\nBâtiment B\"");
        cas("end of script", "</script><!--", "\"\\u003c/script\\u003e\\u003c!--\"");
        cas("line separator", QString(QChar(0x2028)), "\"\\u2028\"");
    }

    void texteJavaScript()
    {
        QFETCH(QString, texte);
        QFETCH(QString, litteral);
        QCOMPARE(corvane::texteJavaScript(texte), litteral);
    }

    void adressePostale_data()
    {
        QTest::addColumn<QString>("adresse");
        QTest::addColumn<QString>("codePostal");
        QTest::addColumn<QString>("commune");
        QTest::addColumn<QString>("pays");
        QTest::addColumn<QString>("attendue");
        cas("whole", "8 bd des Capucines", "75009", "Paris", "", "8 bd des Capucines, 75009 Paris");
        cas("two lines, country", " 3 rue Haute\r\n\nBât. B ", "69001", " Lyon ", "France",
            "3 rue Haute, Bât. B, 69001 Lyon, France");
        cas("town only", "", "", "Avignon", "", "Avignon");
        cas("nothing", "", " ", "", "", "");
    }

    void adressePostale()
    {
        QFETCH(QString, adresse);
        QFETCH(QString, codePostal);
        QFETCH(QString, commune);
        QFETCH(QString, pays);
        QFETCH(QString, attendue);
        QCOMPARE(corvane::adressePostale(adresse, codePostal, commune, pays), attendue);
    }

    // Whatever an address holds, it stays inside its string: the page has its own script elements
    // only, and the address's literal.
    void adresseDansLaPage_data()
    {
        QTest::addColumn<QString>("adresse");
        cas("apostrophe", "Théâtre de l'Olympia");
        cas("backslash and quotes", "Salle \"B\" \\ 2");
        cas("end of script", "</script><script>alert('x')</script>");
    }

    void adresseDansLaPage()
    {
        QFETCH(QString, adresse);
        const QString page = pageAdresse(fournisseur(), adresse);
        const QString temoin = pageAdresse(fournisseur(), QStringLiteral("Paris"));
        QCOMPARE(page.count(QStringLiteral("</script>")), temoin.count(QStringLiteral("</script>")));
        QVERIFY(page.contains(QStringLiteral("var adresse = ") + corvane::texteJavaScript(adresse) + u';'));
        QVERIFY(page.contains(QStringLiteral("<div id=\"map-canvas\"></div>")));
        QVERIFY(page.contains(QStringLiteral("<body id=\"body\">")));

        Trajet trajet;
        trajet.domicile = adresse;
        trajet.destination = adresse + QStringLiteral(" bis");
        const QString route = corvane::pageItineraire(fournisseur(), trajet);
        Trajet ordinaire;
        ordinaire.domicile = ordinaire.destination = QStringLiteral("Paris");
        const QString routeTemoin = corvane::pageItineraire(fournisseur(), ordinaire);
        QCOMPARE(route.count(QStringLiteral("</script>")), routeTemoin.count(QStringLiteral("</script>")));
        QVERIFY(route.contains(QStringLiteral("var domicile = ") + corvane::texteJavaScript(adresse) + u';'));
        QVERIFY(
            route.contains(QStringLiteral("var destination = ") + corvane::texteJavaScript(trajet.destination) + u';'));
    }

    // The traffic layer is drawn only when it is asked for and the service has one; the weather
    // layer's library stays commented out whatever the switch says.
    void pageItineraire_data()
    {
        QTest::addColumn<bool>("trafic");
        QTest::addColumn<QString>("couche");
        QTest::addColumn<bool>("meteo");
        QTest::addColumn<bool>("coucheTrafic");
        cas("traffic on, layer", true, "https://trafic.exemple/{z}/{x}/{y}.png", false, true);
        cas("traffic off, layer", false, "https://trafic.exemple/{z}/{x}/{y}.png", true, false);
        cas("traffic on, no layer", true, "", true, false);
    }

    void pageItineraire()
    {
        QFETCH(bool, trafic);
        QFETCH(QString, couche);
        QFETCH(bool, meteo);
        QFETCH(bool, coucheTrafic);
        Trajet trajet;
        trajet.domicile = QStringLiteral("1 place du Capitole, 31000 Toulouse");
        trajet.latitude = 43.604482;
        trajet.longitude = 1.443962;
        trajet.destination = QStringLiteral("Avignon");
        trajet.trafic = trafic;
        trajet.meteo = meteo;
        const QString page = corvane::pageItineraire(fournisseur(couche), trajet);
        QCOMPARE(page.contains(QStringLiteral("https://trafic.exemple/")), coucheTrafic);
        QVERIFY(page.contains(QStringLiteral("<!-- <script src=\"couche-meteo.js\"></script> -->")));
        QVERIFY(page.contains(QStringLiteral("var meteo = %1;").arg(meteo ? "true" : "false")));
        QVERIFY(page.contains(QStringLiteral("var depart = L.latLng(43.604482,1.443962);")));
    }
};

QTEST_GUILESS_MAIN(TestCarte)
#include "test_carte.moc"
