// The "Trajets" window and the employers' map, on a maps service of the tests' own
// (tests/data/carte/stub.js, no network): the route's distance and time read from the loaded page,
// addresses with quotes reaching the service whole, an address not found said in the page, the home
// map clearing the switches, the "Cartes" pane, the alert without a document, the page handed to the
// browser, and the employers' map with its button.

#include "app/FenetreTrajets.h"
#include "app/PanneauPreferencesCartes.h"
#include "app/VueCarte.h"
#include "app/employeurs/CarteEmployeur.h"
#include "app/employeurs/SectionEmployeurs.h"
#include "commun/OutilsEcran.h"
#include "exchange/PageCarte.h"

#include <QDesktopServices>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRadioButton>
#include <QTabWidget>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

namespace {

using C = Reglages::Cle;

// Settings pointing at the tests' service, a home in Toulouse, the document opened afterwards.
struct BancCarte : Banc
{
    explicit BancCarte(const QString& trafic = QString())
    {
        // Built into the test (a page of the program's resources loads no file:// script).
        reglages.ecrire(C::CartesScript, QStringLiteral("qrc:/essais/carte/stub.js"));
        reglages.ecrire(C::CartesTuiles, QString());
        reglages.ecrire(C::CartesTrafic, trafic);
        executerSql(chemin, QStringLiteral("UPDATE utilisateur SET u_adresse = '1 place du Capitole', "
                                           "u_codepostal = '31000', u_commune = 'Toulouse' WHERE u_id = 1;"));
    }
    int employeur(const QString& nom, const QString& adresse) const
    {
        BaseDeDonnees base;
        if (!base.ouvrir(chemin))
            return 0;
        base.executer("INSERT INTO employeurs (e_raison_sociale, e_adresse, e_codepostal, e_commune) "
                      "VALUES (?, ?, '84000', 'Avignon');",
                      {nom, adresse});
        return int(base.dernierIdInsere());
    }
    Document* ouvert() { return document(&proprietaire); }

    QObject proprietaire;
};

// Stands for the user's browser: keeps the addresses it is asked to open.
class Navigateur : public QObject
{
    Q_OBJECT

public:
    QList<QUrl> ouvertes;

public slots:
    void ouvrir(const QUrl& adresse) { ouvertes << adresse; }
};

#ifdef CORVANE_AVEC_WEBENGINE
// What the page answers to `script`, waited for.
QString evaluer(VueCarte& vue, const QString& script)
{
    QString resultat;
    bool repondu = false;
    vue.evaluer(script, [&](const QVariant& valeur) {
        resultat = valeur.toString();
        repondu = true;
    });
    if (!QTest::qWaitFor([&] { return repondu; }, 5000))
        qWarning() << "la page ne répond pas :" << script;
    return resultat;
}
#endif

} // namespace

class TestTrajets : public QObject
{
    Q_OBJECT

private slots:
    void init() { Horloge::fixer(QDate(2024, 6, 15)); }

#ifdef CORVANE_AVEC_WEBENGINE
    void itineraire_data()
    {
        QTest::addColumn<QString>("adresse");
        QTest::addColumn<QString>("distance");
        QTest::addColumn<QString>("temps");
        QTest::addColumn<QString>("message");
        cas("found", "20 place de l'Horloge", "465,3 km", "4 h 31", "");
        cas("quotes, backslash, end of script", "12 rue \"B\" \\ </script>", "465,3 km", "4 h 31", "");
        cas("not found", "Introuvable", "—", "—", "Adresse introuvable : Introuvable, 84000 Avignon");
    }

    void itineraire()
    {
        QFETCH(QString, adresse);
        QFETCH(QString, distance);
        QFETCH(QString, temps);
        QFETCH(QString, message);
        BancCarte b;
        const int id = b.employeur(QStringLiteral("Opéra Grand Avignon"), adresse);
        FenetreTrajets f(b.environnement, *b.ouvert(), id);
        QSignalSpy chargee(f.vue(), &VueCarte::chargementTermine);
        f.show();
        QCOMPARE(f.carte(), FenetreTrajets::Carte::Itineraire);
        QCOMPARE(trouver<QLabel>(f, "legendeDestination")->text(),
                 QStringLiteral("Destination : %1, 84000 Avignon").arg(adresse));
        QVERIFY(chargee.wait(30000));
        QVERIFY(chargee.first().first().toBool());
        QTRY_COMPARE_WITH_TIMEOUT(trouver<QLabel>(f, "distance")->text(), distance, 10000);
        QCOMPARE(trouver<QLabel>(f, "temps")->text(), temps);

        // The service was asked for both addresses as they are written.
        const QJsonArray demandees =
            QJsonDocument::fromJson(
                evaluer(*f.vue(), "document.getElementById('body').getAttribute('geocodees')").toUtf8())
                .array();
        QCOMPARE(demandees.toVariantList(),
                 (QVariantList{QStringLiteral("1 place du Capitole, 31000 Toulouse"), f.adresseDestination()}));
        QCOMPARE(evaluer(*f.vue(), "document.getElementById('message').textContent"), message);
    }
#endif

    // No traffic switch for a service without a traffic layer; the home map clears both switches.
    void interrupteurs_data()
    {
        QTest::addColumn<QString>("couche");
        cas("service without traffic", "");
        cas("service with traffic", "file:///trafic/{z}/{x}/{y}.png");
    }

    void interrupteurs()
    {
        QFETCH(QString, couche);
        BancCarte b(couche);
        const int id = b.employeur(QStringLiteral("Opéra"), QStringLiteral("1 rue Racine"));
        FenetreTrajets f(b.environnement, *b.ouvert(), id);
        f.show();
        auto* trafic = trouver<QCheckBox>(f, "caseTrafic");
        auto* meteo = trouver<QCheckBox>(f, "caseMeteo");
        QCOMPARE(trafic->isVisible(), !couche.isEmpty());
        trafic->setChecked(true);
        meteo->setChecked(true);
        QCOMPARE(f.vue()->page().contains(QStringLiteral("file:///trafic/")), !couche.isEmpty());
        QVERIFY(f.vue()->page().contains(QStringLiteral("var meteo = true;")));

        trouver<QRadioButton>(f, "choixDomicile")->click();
        QCOMPARE(f.carte(), FenetreTrajets::Carte::Domicile);
        QVERIFY(!trafic->isChecked());
        QVERIFY(!meteo->isChecked());
        QVERIFY(!meteo->isEnabled());
        QCOMPARE(f.vue()->page(), pageAdresse(FournisseurCarte::depuis(b.reglages), f.adresseDomicile()));
        QCOMPARE(trouver<QLabel>(f, "legendeDestination")->text(),
                 QStringLiteral("Domicile : 1 place du Capitole, 31000 Toulouse"));

        trouver<QRadioButton>(f, "choixItineraire")->click();
        QVERIFY(f.vue()->page().contains(QStringLiteral("var meteo = false;")));
        QVERIFY(!f.vue()->page().contains(QStringLiteral("file:///trafic/")));
    }

    // The "Cartes" pane keeps an address once it holds what the pages fill in; an emptied field
    // goes back to the default.
    void preferences_data()
    {
        QTest::addColumn<QString>("nom");
        QTest::addColumn<QString>("frappe");
        QTest::addColumn<QString>("ecrit");
        QTest::addColumn<QString>("refus");
        cas("tiles", "Cartes_Tuiles", "https://tuiles.exemple/{z}/{x}/{y}.png",
            "https://tuiles.exemple/{z}/{x}/{y}.png", "");
        cas("tiles without {y}", "Cartes_Tuiles", "https://tuiles.exemple/{z}/{x}.png", "",
            "L'adresse doit contenir {y}.");
        cas("router without its ends", "Cartes_Itineraire", "https://routes.exemple/", "",
            "L'adresse doit contenir {depart}, {arrivee}.");
        cas("not a web address", "Cartes_Geocodeur", "nominatim", "",
            "« nominatim » n'est pas une adresse de site : elle commence par « https:// ».");
        cas("traffic layer", "Cartes_Trafic", "https://trafic.exemple/{z}/{x}/{y}.png",
            "https://trafic.exemple/{z}/{x}/{y}.png", "");
        cas("emptied: the default", "Cartes_Mention", "", "© les contributeurs d'OpenStreetMap", "");
    }

    void preferences()
    {
        QFETCH(QString, nom);
        QFETCH(QString, frappe);
        QFETCH(QString, ecrit);
        QFETCH(QString, refus);
        Banc b(false);
        b.reglages.ecrire(C::CartesMention, QStringLiteral("Autre"));
        PanneauPreferencesCartes panneau(b.reglages);
        montrerActive(panneau);
        saisir(panneau, nom, frappe);
        QTest::keyClick(trouver<QLineEdit>(panneau, nom), Qt::Key_Return);
        QCOMPARE(QSettings(b.reglages.stockage().fileName(), QSettings::IniFormat).value(nom).toString(), ecrit);
        QCOMPARE(trouver<QLabel>(panneau, nom + "_refus")->text(), refus);
    }

    // Without a document, the window and the employers' button give the alert.
    void sansDocument_data()
    {
        QTest::addColumn<bool>("depuisEmployeurs");
        cas("window", false);
        cas("employers screen", true);
    }

    void sansDocument()
    {
        QFETCH(bool, depuisEmployeurs);
        Banc b(false);
        SectionEmployeurs s(b.environnement);
        if (depuisEmployeurs) {
            s.show();
            cliquer(s, "boutonTrajets");
        } else {
            QCOMPARE(FenetreTrajets::ouvrir(b.environnement, nullptr, 0, nullptr), nullptr);
        }
        QCOMPARE(b.dialogues.echanges().size(), 1);
        QCOMPARE(b.dialogues.echanges().first().titre, QStringLiteral("Trajets"));
        QCOMPARE(b.dernierMessage(), messageSansDocument());
        QCOMPARE(b.dialogues.echanges().first().boutons, QStringList{QStringLiteral("Fermer")});
        QVERIFY(!s.findChild<FenetreTrajets*>());
    }

    // The page the window shows, written with its files for the user's browser.
    void navigateur()
    {
        BancCarte b;
        FenetreTrajets f(b.environnement, *b.ouvert());
        Navigateur navigateur;
        QDesktopServices::setUrlHandler(QStringLiteral("file"), &navigateur, "ouvrir");
        if (VueCarte::integree())
            QVERIFY(f.vue()->ouvrirDansNavigateur());
        else
            cliquer(f, "boutonCarteNavigateur");
        QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
        QCOMPARE(navigateur.ouvertes.size(), 1);
        const QString page = navigateur.ouvertes.first().toLocalFile();
        QCOMPARE(QString::fromUtf8(lire(page)), f.vue()->page());
        const QDir dossier = QFileInfo(page).dir();
        for (const char* fichier : {"leaflet.js", "leaflet.css", "osm.js", "images/marker-icon.png"})
            QVERIFY2(QFileInfo(dossier.filePath(QLatin1String(fichier))).size() > 0, fichier);
    }

#ifdef CORVANE_AVEC_WEBENGINE
    // The employers' "Carte" tab shows the chosen employer's address; "Trajets…" opens the route to it.
    void carteDesEmployeurs()
    {
        BancCarte b;
        b.employeur(QStringLiteral("Cirque d'Hiver"), QStringLiteral("110 rue Amelot"));
        const int id = b.employeur(QStringLiteral("Opéra"), QStringLiteral("1 rue Racine"));
        SectionEmployeurs s(b.environnement);
        s.setDocument(b.ouvert());
        s.resize(1100, 700);
        s.show();
        s.selectionner(id);
        auto* carte = trouver<CarteEmployeur>(s, "carteEmployeur");
        QSignalSpy chargee(carte->vue(), &VueCarte::chargementTermine);
        trouver<QTabWidget>(s, "ongletsEmployeur")->setCurrentWidget(carte);
        QVERIFY(chargee.wait(30000));
        QTRY_COMPARE(evaluer(*carte->vue(), "document.getElementById('body').getAttribute('etat')"),
                     QStringLiteral("termine"));
        QVERIFY(carte->vue()->page().contains(texteJavaScript(QStringLiteral("1 rue Racine, 84000 Avignon"))));
        QCOMPARE(trouver<QLabel>(s, "adresseCarteEmployeur")->text(), QStringLiteral("1 rue Racine, 84000 Avignon"));

        cliquer(s, "boutonTrajets");
        auto* fenetre = s.findChild<FenetreTrajets*>();
        QVERIFY(fenetre);
        QCOMPARE(fenetre->destination(), id);
        QCOMPARE(fenetre->carte(), FenetreTrajets::Carte::Itineraire);
        fenetre->close();
    }
#endif
};

int main(int argc, char* argv[])
{
    // As the program does, before the application: Qt WebEngine's options.
    corvane::app::preparerMoteurWeb();
    QTemporaryDir maison;
    corvane::test::g_maison = &maison;
    qputenv("HOME", maison.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", (maison.path() + "/.config").toUtf8());
    qputenv("XDG_CACHE_HOME", (maison.path() + "/.cache").toUtf8());
    qputenv("XDG_DOCUMENTS_DIR", (maison.path() + "/Documents").toUtf8());
    QApplication application(argc, argv);
    TestTrajets test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_trajets.moc"
