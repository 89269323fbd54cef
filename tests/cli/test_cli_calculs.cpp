// corvane-cli run as a process: the reference values and the calculators
// (parametres, bareme-km, charges-ae), their JSON and their refusals.

#include "commun/OutilsDocument.h"
#include "store/BaseDeDonnees.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace corvane;
using namespace corvane::test;

namespace {

// A JSON number, never a string.
double nombre(const QJsonObject& objet, const QString& cle)
{
    const QJsonValue valeur = objet.value(cle);
    if (!valeur.isDouble())
        qWarning() << "pas un nombre :" << cle << valeur;
    return valeur.isDouble() ? valeur.toDouble() : qQNaN();
}

// The French format separates with non-breaking spaces; compare with plain ones.
QString texteNormalise(const QByteArray& sortie)
{
    QString texte = QString::fromUtf8(sortie);
    texte.replace(QChar(0x00A0), QLatin1Char(' '));
    texte.replace(QChar(0x202F), QLatin1Char(' '));
    return texte;
}

} // namespace

class TestCliCalculs : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;

    // A new document made by the program itself, with the vehicle set in its profile.
    QString documentAvecVehicule(const QString& nom, int type, int puissance, const QStringList& options = {})
    {
        const QString chemin = m_dossier.filePath(nom);
        const ResultatCli r = lancerCli(QStringList{"--json", "nouveau", chemin, "--nom", "Martin", "--prenom", "Léa",
                                                    "--emploi", "Technicien", "--ouverture", "2014-02-01"} +
                                        options);
        if (r.code != 0)
            qWarning() << r.erreurs;
        BaseDeDonnees base;
        if (base.ouvrir(chemin))
            base.executer("UPDATE utilisateur SET u_vehicule_type = ?, u_vehicule_puissance = ? WHERE u_id = 1;",
                          {type, puissance});
        return chemin;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_dossier.isValid());
        QVERIFY(QFile::exists(QStringLiteral(CORVANE_CLI_EXE)));
    }

    void aideListeLesCommandes()
    {
        const ResultatCli r = lancerCli({"--aide"});
        QCOMPARE(r.code, 0);
        for (const char* commande : {"parametres", "bareme-km", "charges-ae"})
            QVERIFY2(r.sortie.contains(commande), commande);
    }

    // Each value at switch dates, summer ones included, with the rule set of a last contract ending that day.
    void parametres_data()
    {
        QTest::addColumn<QString>("date");
        QTest::addColumn<double>("smicIntermittent");
        QTest::addColumn<double>("smicFunctions");
        QTest::addColumn<double>("csgCrds");
        QTest::addColumn<double>("alsaceMoselle");
        QTest::addColumn<double>("plafondAllocation");
        QTest::addColumn<QString>("protocole");
        // The dated tables are checked day by day in test_parametres_dates; here, that each value reaches the
        // output and that a date given on the command line falls on its own day at a switch.
        QTest::newRow("1999-05-05") << "1999-05-05" << 7.61 << 7.61 << 42.0 << 1.8 << 121.33 << "06_2003";
        QTest::newRow("2016-06-15") << "2016-06-15" << 9.61 << 9.67 << 49.0 << 1.5 << 137.12 << "04_2007";
        QTest::newRow("veille : 2016-07-31") << "2016-07-31" << 9.61 << 9.67 << 49.0 << 1.5 << 137.12 << "04_2007";
        QTest::newRow("bascule d'été : 2016-08-01")
            << "2016-08-01" << 9.61 << 9.67 << 49.0 << 1.5 << 137.12 << "08_2016";
        QTest::newRow("2021-03-01") << "2021-03-01" << 10.15 << 9.76 << 49.0 << 1.5 << 137.12 << "08_2016";
    }
    void parametres()
    {
        QFETCH(QString, date);
        QFETCH(double, smicIntermittent);
        QFETCH(double, smicFunctions);
        QFETCH(double, csgCrds);
        QFETCH(double, alsaceMoselle);
        QFETCH(double, plafondAllocation);
        QFETCH(QString, protocole);
        const ResultatCli r = lancerCli({"--json", "parametres", "--date", date});
        QCOMPARE(r.code, 0);
        QVERIFY(r.erreurs.isEmpty());
        const QJsonObject objet = lireJson(r);
        QCOMPARE(objet.value("date").toString(), date);
        const QJsonObject smic = objet.value("smicHoraireEnCours").toObject();
        QCOMPARE(nombre(smic, "Intermittent"), smicIntermittent);
        QCOMPARE(nombre(smic, "Functions"), smicFunctions);
        QCOMPARE(nombre(objet, "CsgCrdsPlafondEnCours"), csgCrds);
        QCOMPARE(nombre(objet, "supplementAlsaceMoselle"), alsaceMoselle);
        QCOMPARE(nombre(objet, "plafondAllocationJournaliereEnCours"), plafondAllocation);
        QCOMPARE(nombre(objet, "plafondSecuriteSocialePour"), 3269.0);
        QCOMPARE(nombre(objet, "heuresMinimumARealiser"), 507.0);
        QCOMPARE(objet.value("protocoleAccord").toString(), protocole);
        QCOMPARE(objet.size(), 8);
    }

    void parametresSansDatePrendAujourdhui()
    {
        const ResultatCli r = lancerCli({"--aujourdhui", "2016-08-01", "--json", "parametres"});
        QCOMPARE(r.code, 0);
        const QJsonObject objet = lireJson(r);
        QCOMPARE(objet.value("date").toString(), QStringLiteral("2016-08-01"));
        QCOMPARE(objet.value("protocoleAccord").toString(), QStringLiteral("08_2016"));
    }

    void parametresEnTexte()
    {
        const ResultatCli r = lancerCli({"parametres", "--date", "2016-06-15"});
        QCOMPARE(r.code, 0);
        const QString texte = texteNormalise(r.sortie);
        QVERIFY2(texte.contains("15/06/2016"), qPrintable(texte));
        QVERIFY2(texte.contains("9,61 €"), qPrintable(texte));
        QVERIFY2(texte.contains("9,67 €"), qPrintable(texte));
        QVERIFY2(texte.contains("04_2007"), qPrintable(texte));
    }

    void mauvaisUsage_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("parametres : date mal écrite") << QStringList{"parametres", "--date", "01/08/2016"};
        QTest::newRow("parametres : date impossible") << QStringList{"parametres", "--date", "2016-02-30"};
        QTest::newRow("parametres : option inconnue") << QStringList{"parametres", "--jour", "2016-08-01"};
        QTest::newRow("parametres : argument en trop") << QStringList{"parametres", "2016-08-01"};
        QTest::newRow("bareme-km : véhicule et fichier") << QStringList{
            "bareme-km", "--annee", "2014", "--km", "10", "--vehicule", "1", "--puissance", "4", "--fichier", "x.cv4"};
        QTest::newRow("bareme-km : ni véhicule ni fichier")
            << QStringList{"bareme-km", "--annee", "2014", "--km", "10"};
        QTest::newRow("bareme-km : véhicule sans puissance")
            << QStringList{"bareme-km", "--annee", "2014", "--km", "10", "--vehicule", "1"};
        QTest::newRow("bareme-km : puissance sans véhicule")
            << QStringList{"bareme-km", "--annee", "2014", "--km", "10", "--puissance", "1"};
        QTest::newRow("bareme-km : sans année")
            << QStringList{"bareme-km", "--km", "10", "--vehicule", "1", "--puissance", "4"};
        QTest::newRow("bareme-km : sans distance")
            << QStringList{"bareme-km", "--annee", "2014", "--vehicule", "1", "--puissance", "4"};
        QTest::newRow("bareme-km : distance illisible")
            << QStringList{"bareme-km", "--annee", "2014", "--km", "dix", "--vehicule", "1", "--puissance", "4"};
        QTest::newRow("bareme-km : année illisible")
            << QStringList{"bareme-km", "--annee", "2014.5", "--km", "10", "--vehicule", "1", "--puissance", "4"};
        QTest::newRow("bareme-km : véhicule illisible")
            << QStringList{"bareme-km", "--annee", "2014", "--km", "10", "--vehicule", "voiture", "--puissance", "4"};
        QTest::newRow("charges-ae : sans année") << QStringList{"charges-ae", "--ventes", "1000"};
        QTest::newRow("charges-ae : montant illisible")
            << QStringList{"charges-ae", "--annee", "2016", "--ventes", "mille"};
        QTest::newRow("charges-ae : drapeau avec valeur") << QStringList{"charges-ae", "--annee", "2016", "--alsace=1"};
        QTest::newRow("charges-ae : catégorie illisible")
            << QStringList{"charges-ae", "--annee", "2016", "--categorie", "artisan"};
        QTest::newRow("charges-ae : option inconnue") << QStringList{"charges-ae", "--annee", "2016", "--bnc", "10"};
    }
    void mauvaisUsage()
    {
        QFETCH(QStringList, arguments);
        const ResultatCli r = lancerCli(QStringList{"--json"} + arguments);
        QCOMPARE(r.code, 2);
        QVERIFY(r.sortie.isEmpty());
        QVERIFY2(r.erreurs.startsWith("corvane-cli: "), qPrintable(r.erreurs));
    }

    void baremeKm_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<double>("montant");
        auto ligne = [](const char* nom, const QString& annee, const QString& km, const QString& vehicule,
                        const QString& puissance, double montant) {
            QTest::newRow(nom) << QStringList{"--annee",    annee,    "--km",        km,
                                              "--vehicule", vehicule, "--puissance", puissance}
                               << montant;
        };
        ligne("voiture 4, 5000 km en 2014", "2014", "5000", "1", "4", 2465.0);
        ligne("voiture 4, 5000,5 km en 2014 : l'écart", "2014", "5000,5", "1", "4", 0.0);
        ligne("voiture 4, « 5 001 » km en 2014", "2014", "5 001", "1", "4", 0.277 * 5001 + 1082);
        ligne("voiture 4, 20001 km en 2014", "2014", "20001", "1", "4", 0.333 * 20001);
        ligne("moto 0, 4000 km en 2014", "2014", "4000", "2", "0", 378.0);
        ligne("moto 0, 4000 km en 2015", "2015", "4000", "2", "0", 378.0);
        ligne("moto 0, 4000 km en 2013", "2013", "4000", "2", "0", 1264.0);
        ligne("cyclomoteur, 1000.5 km en 2012", "2012", "1000.5", "3", "0", 0.266 * 1000.5);
        ligne("type inconnu", "2014", "1000", "4", "0", 0.0);
        ligne("puissance inconnue", "2014", "1000", "1", "8", 0.0);
        ligne("2016 : pas de barème", "2016", "1000", "1", "4", 0.0);
        ligne("2011 : pas de barème", "2011", "1000", "1", "4", 0.0);
    }
    void baremeKm()
    {
        QFETCH(QStringList, arguments);
        QFETCH(double, montant);
        const ResultatCli r = lancerCli(QStringList{"--json", "bareme-km"} + arguments);
        QCOMPARE(r.code, 0);
        const QJsonObject objet = lireJson(r);
        QCOMPARE(objet.size(), 1);
        QCOMPARE(nombre(objet, "montant"), montant);
    }

    void baremeKmDepuisLeDocument()
    {
        const QString chemin = documentAvecVehicule("moto.cv4", 2, 0);
        const QByteArray avant = empreinte(chemin);
        for (const auto& [annee, attendu] :
             QList<QPair<QString, double>>{{"2013", 1264.0}, {"2014", 378.0}, {"2015", 378.0}, {"2016", 0.0}}) {
            const ResultatCli r =
                lancerCli({"--json", "bareme-km", "--annee", annee, "--km", "4000", "--fichier", chemin});
            QCOMPARE(r.code, 0);
            QCOMPARE(nombre(lireJson(r), "montant"), attendu);
        }
        QCOMPARE(empreinte(chemin), avant);
    }

    void baremeKmDocumentProtege()
    {
        const QString chemin = documentAvecVehicule("protege.cv4", 1, 4, {"--mot-de-passe", "s3cret"});
        const QStringList arguments{"--json", "bareme-km", "--annee", "2014", "--km", "5000", "--fichier", chemin};
        ResultatCli r = lancerCli(arguments);
        QCOMPARE(r.code, 1);
        QVERIFY(r.sortie.isEmpty());
        QVERIFY(r.erreurs.contains("mot de passe"));
        r = lancerCli(arguments + QStringList{"--mot-de-passe", "faux"});
        QCOMPARE(r.code, 1);
        r = lancerCli(arguments + QStringList{"--mot-de-passe", "s3cret"});
        QCOMPARE(r.code, 0);
        QCOMPARE(nombre(lireJson(r), "montant"), 2465.0);
    }

    // Refused with a French message, and nothing is created or written.
    void baremeKmFichierRefuse_data()
    {
        QTest::addColumn<QString>("nature");
        QTest::newRow("absent") << "absent";
        QTest::newRow("texte") << "texte";
        QTest::newRow("vide de tables") << "sqlite-vide";
        QTest::newRow("dossier") << "dossier";
    }
    void baremeKmFichierRefuse()
    {
        QFETCH(QString, nature);
        const QString chemin = m_dossier.filePath("refuse-" + nature);
        if (nature == "texte") {
            QFile f(chemin);
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write("Ceci n'est pas un document Corvane, seulement du texte.\n");
        } else if (nature == "dossier") {
            QVERIFY(QDir().mkpath(chemin));
        } else if (nature == "sqlite-vide") {
            BaseDeDonnees base;
            QVERIFY(base.creer(chemin));
        }
        const bool existait = QFile::exists(chemin);
        const QByteArray avant = empreinte(chemin);
        const ResultatCli r =
            lancerCli({"--json", "bareme-km", "--annee", "2014", "--km", "1000", "--fichier", chemin});
        QCOMPARE(r.code, 1);
        QVERIFY(r.sortie.isEmpty());
        QVERIFY2(r.erreurs.startsWith("corvane-cli: "), qPrintable(r.erreurs));
        QCOMPARE(QFile::exists(chemin), existait);
        QCOMPARE(empreinte(chemin), avant);
    }

    void baremeKmEnTexte()
    {
        const ResultatCli r =
            lancerCli({"bareme-km", "--annee", "2014", "--km", "5000", "--vehicule", "1", "--puissance", "4"});
        QCOMPARE(r.code, 0);
        QVERIFY2(texteNormalise(r.sortie).contains("2 465,00 €"), r.sortie.constData());
    }

    void chargesAe_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QList<double>>("taux"); // ventes, BIC, BNC, CFE, chambre
        QTest::addColumn<double>("charges");
        QTest::newRow("2016, libératoire, Alsace, catégorie 2, activité 2")
            << QStringList{"--annee",       "2016",     "--ventes",    "10 000", "--services-bic", "5000",
                           "--liberatoire", "--alsace", "--categorie", "2",      "--activite",     "2"}
            << QList<double>{14.4, 24.8, 25.3, 0.17, 0.65} << 2803.0;
        QTest::newRow("2012 : la ligne d'avant 2013")
            << QStringList{"--annee", "2012", "--ventes", "1000", "--services-bic", "1000", "--services-bnc", "1000"}
            << QList<double>{12.0, 21.3, 21.3, 0.0, 0.0} << 546.0;
        QTest::newRow("2013") << QStringList{"--annee", "2013"} << QList<double>{14.0, 24.6, 24.6, 0.0, 0.0} << 0.0;
        QTest::newRow("2014") << QStringList{"--annee", "2014"} << QList<double>{14.1, 24.6, 24.6, 0.0, 0.0} << 0.0;
        QTest::newRow("2015, montant à virgule") << QStringList{"--annee", "2015", "--services-bnc", "1 000,50"}
                                                 << QList<double>{13.3, 22.9, 22.9, 0.0, 0.0} << 1000.5 * 22.9 / 100;
        QTest::newRow("Moselle et Alsace : la Moselle l'emporte")
            << QStringList{"--annee", "2017",       "--alsace", "--moselle", "--categorie",
                           "2",       "--activite", "4",        "--ventes",  "1000"}
            << QList<double>{13.4, 23.1, 23.1, 0.17, 0.37} << 1000 * 13.4 / 100 + 1000 * 0.17 / 100 + 1000 * 0.37 / 100;
        QTest::newRow("catégorie 1, activité 5")
            << QStringList{"--annee", "2016", "--categorie", "1", "--activite", "5"}
            << QList<double>{13.4, 23.1, 23.1, 0.1, 0.007} << 0.0;
        QTest::newRow("catégorie 3, activité 3")
            << QStringList{"--annee", "2016", "--categorie", "3", "--activite", "3"}
            << QList<double>{13.4, 23.1, 23.1, 0.2, 0.015} << 0.0;
        QTest::newRow("catégorie et activité inconnues")
            << QStringList{"--annee", "2016", "--categorie", "7", "--activite", "0"}
            << QList<double>{13.4, 23.1, 23.1, 0.0, 0.0} << 0.0;
    }
    void chargesAe()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QList<double>, taux);
        QFETCH(double, charges);
        const ResultatCli r = lancerCli(QStringList{"--json", "charges-ae"} + arguments);
        QCOMPARE(r.code, 0);
        const QJsonObject objet = lireJson(r);
        QCOMPARE(objet.size(), 6);
        QCOMPARE(nombre(objet, "tauxChargesVentes"), taux[0]);
        QCOMPARE(nombre(objet, "tauxChargesServicesBIC"), taux[1]);
        QCOMPARE(nombre(objet, "tauxChargesServicesBNC"), taux[2]);
        QCOMPARE(nombre(objet, "tauxCFE"), taux[3]);
        QCOMPARE(nombre(objet, "tauxFraisDeChambre"), taux[4]);
        QCOMPARE(nombre(objet, "charges"), charges);
    }

    void chargesAeEnTexte()
    {
        const ResultatCli r = lancerCli({"charges-ae", "--annee", "2016", "--ventes", "10000", "--services-bic", "5000",
                                         "--liberatoire", "--alsace", "--categorie", "2", "--activite", "2"});
        QCOMPARE(r.code, 0);
        QVERIFY2(texteNormalise(r.sortie).contains("2 803,00 €"), r.sortie.constData());
    }
};

QTEST_GUILESS_MAIN(TestCliCalculs)
#include "test_cli_calculs.moc"
