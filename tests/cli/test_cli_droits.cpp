// The unemployment-rights commands, in-process: periode-reference, heures, simulation,
// jours-indemnises, versement-are, the dashboard and the "année blanche" of ouvrir, their JSON, and what they refuse (bad usage, exit 2, the document
// left byte-identical).

#include "cli/Cli.h"
#include "commun/OutilsCli.h"
#include "store/Horloge.h"
#include "unemployment/OutilsDroits.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

namespace {

// Today is 2024-06-15 unless the arguments say otherwise.
ResultatCli lancer(const QStringList& arguments)
{
    return executerCli(QStringList{"--aujourdhui", "2024-06-15", "--json"} + arguments);
}

QList<int> entiers(const QJsonArray& tableau)
{
    QList<int> liste;
    for (const QJsonValue& v : tableau)
        liste << (v.isDouble() ? v.toInt() : -999);
    return liste;
}

QJsonValue jour(const char* iso)
{
    return iso ? QJsonValue(QString::fromLatin1(iso)) : QJsonValue(QJsonValue::Null);
}

} // namespace

class TestCliDroits : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;
    QString m_versements; // the payments document

    QString document(const DossierDroits& dossier = {})
    {
        return documentDroits(m_dossier, QStringLiteral("d%1.cv4").arg(++m_numero), dossier);
    }

private slots:
    void initTestCase()
    {
        Horloge::fixer(QDate(2024, 6, 15)); // the remembered span of the history window is this year
        // Rights opened on 2024-03-01, period to 2024-12-31 stretched by one day of leave: to 2025-01-01.
        m_versements = document({{}, {{QDate(2024, 5, 2), 0, 1}}});
        // Summed as doubles, 0,20 and 0,10 give 0.30000000000000004: the totals must still be right to the cent.
        const QList<QStringList> versements{{"2024-01-01", "100,10"}, {"2024-03-15", "0,20"}, {"2024-06-10", "0.10"},
                                            {"2025-01-01", "50"},     {"2023-12-31", "10"},   {"2025-01-02", "7"}};
        for (const QStringList& v : versements)
            QCOMPARE(lancer({"versement-are", "ajouter", m_versements, "--date", v[0], "--montant", v[1]}).code, 0);
    }

    void periodeReference_data()
    {
        QTest::addColumn<DossierDroits>("dossier");
        QTest::addColumn<QJsonObject>("attendu");
        const ContratHeures effectue{1, 1, 8, QDate(2024, 4, 1), true, 1, QDate(2024, 4, 3)};
        const ContratHeures planifie{1, 1, 8, QDate(2024, 5, 1), true, 0, QDate(2024, 5, 3)};
        QTest::newRow("no leave, no contract")
            << DossierDroits{}
            << QJsonObject{{"ouverture", "2024-03-01"},   {"debut", "2024-03-01"},
                           {"fin", "2024-12-31"},         {"allongement", 0},
                           {"finAllongee", "2024-12-31"}, {"dernierJourDernierContrat", jour(nullptr)}};
        QTest::newRow("leave in the period, a done and a planned contract")
            << DossierDroits{{effectue, planifie},
                             {{QDate(2024, 6, 1), 0, 12}, {QDate(2024, 2, 20), 0, 30}},
                             1,
                             QDate(2024, 2, 15)}
            << QJsonObject{{"ouverture", "2024-02-15"},   {"debut", "2024-03-01"},
                           {"fin", "2024-12-31"},         {"allongement", 12},
                           {"finAllongee", "2025-01-12"}, {"dernierJourDernierContrat", "2024-04-03"}};
    }
    void periodeReference()
    {
        QFETCH(DossierDroits, dossier);
        QFETCH(QJsonObject, attendu);
        const ResultatCli r = lancer({"periode-reference", document(dossier)});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r), attendu);
    }

    // The span is 2024-03-01 to 2024-12-31.
    void heures_data()
    {
        QTest::addColumn<int>("emploiId");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QList<int>>("heures");
        QTest::addColumn<int>("heuresParJour");
        QTest::newRow("performer") << 1 << QStringList{} << QList<int>{20, 10, 0, 0, 0, 0, 8, 0, 0, 15} << 12;
        QTest::newRow("technician, done contracts")
            << 3 << QStringList{"--contrats", "effectues"} << QList<int>{20, 10, 0, 0, 0, 0, 0, 0, 0, 15} << 8;
        QTest::newRow("worker, planned contracts")
            << 2 << QStringList{"--contrats", "planifies"} << QList<int>{0, 0, 0, 0, 0, 0, 8, 0, 0, 15} << 8;
        QTest::newRow("general regime counts as annex 8")
            << 4 << QStringList{"--mode", "contrats"} << QList<int>{50, 10, 0, 0, 0, 0, 8, 0, 0, 25} << 8;
    }
    void heures()
    {
        QFETCH(int, emploiId);
        QFETCH(QStringList, options);
        QFETCH(QList<int>, heures);
        QFETCH(int, heuresParJour);
        const QDate avril(2024, 4, 2);
        const ContratsHeures contrats{{1, 1, 20, avril},
                                      {1, 2, 10, avril},
                                      {1, 2, 4, avril, false},
                                      {3, 1, 8, avril, true, 0},
                                      {1, 1, 30, QDate(2025, 3, 1)}};
        const QString chemin = document({contrats, {{avril, 3, 0}, {QDate(2025, 3, 1), 2, 0}}, emploiId});
        const ResultatCli r =
            lancer(QStringList{"heures", chemin, "--du", "2024-03-01", "--au", "2024-12-31"} + options);
        QCOMPARE(r.code, 0);
        QCOMPARE(entiers(lireJson(r).value("heures").toArray()), heures);
        QCOMPARE(lireJson(r).value("heuresParJour").toInt(), heuresParJour);
    }

    // The JSON of the rights simulation; the computations themselves are the engine's tests.
    void simulation_data()
    {
        QTest::addColumn<QDate>("jour"); // the one contract, 600 h for 10 000 € over 60 days
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QJsonObject>("attendu"); // the keys checked; null ones must be null
        QTest::newRow("2016 rules")
            << QDate(2024, 4, 2) << QStringList{}
            << QJsonObject{{"simulee", true}, {"protocole", "08_2016"}, {"heuresRequises", 507}, {"heures", 600},
                           {"aj", 54.18},     {"ajNette", 49.06},       {"csgCrds", 3.57},      {"sjr", 166.67},
                           {"differe", 0},    {"franchiseCongesPayes", 7}};
        QTest::newRow("2007 rules: the 2016 figures are null")
            << QDate(2016, 4, 4) << QStringList{}
            << QJsonObject{{"protocole", "04_2007"}, {"salaireRetenu", 10000}, {"aj", QJsonValue::Null},
                           {"franchiseParMois", QJsonValue::Null}, {"allocations", QJsonArray{}}};
        QTest::newRow("before 2007-04-01: nothing simulated, every key null")
            << QDate(2007, 3, 30) << QStringList{}
            << QJsonObject{{"simulee", false}, {"protocole", QJsonValue::Null}, {"rapport", QJsonValue::Null},
                           {"periode", QJsonValue::Null}};
        QTest::newRow("planned contracts only") << QDate(2024, 4, 2) << QStringList{"--contrats", "planifies"}
                                                << QJsonObject{{"simulee", false}};
    }
    void simulation()
    {
        QFETCH(QDate, jour);
        QFETCH(QStringList, options);
        QFETCH(QJsonObject, attendu);
        const QString chemin =
            document({{ContratHeures(1, 1, 600, jour).paye(10000, 60)}, {}, 1, QDate(2024, 3, 1)});
        const QString du = jour.addDays(-200).toString(Qt::ISODate);
        const QString au = jour.addDays(100).toString(Qt::ISODate);
        const ResultatCli r = lancer(QStringList{"simulation", chemin, "--du", du, "--au", au} + options);
        QCOMPARE(r.code, 0);
        const QJsonObject obtenu = lireJson(r);
        QCOMPARE(obtenu.size(), 21);
        for (auto it = attendu.begin(); it != attendu.end(); ++it)
            QVERIFY2(obtenu.value(it.key()) == it.value(), qPrintable(it.key()));
    }

    // Asked at each opening until answered "oui"; left unanswered, nothing is written.
    void anneeBlanche()
    {
        const QString chemin = document({{}, {}, 1, QDate(2020, 7, 1), QDate(2020, 7, 1), QDate(2021, 6, 30)});
        const auto fin = [&] { return lireJson(lancer({"periode-reference", chemin})).value("fin").toString(); };
        const auto ouvrir = [&](const QStringList& reponse) {
            const ResultatCli r =
                executerCli(QStringList{"--aujourdhui", "2021-01-10", "--json", "ouvrir", chemin} + reponse);
            return r.code == 0 ? lireJson(r).value("anneeBlanche") : QJsonValue(r.erreurs);
        };
        QCOMPARE(ouvrir({}), QJsonValue("proposee"));
        QCOMPARE(ouvrir({"--annee-blanche", "non"}), QJsonValue("refusee"));
        QCOMPARE(fin(), QStringLiteral("2021-06-30"));
        QCOMPARE(ouvrir({"--annee-blanche", "oui"}), QJsonValue("acceptee"));
        QCOMPARE(fin(), QStringLiteral("2021-08-31"));
        QCOMPARE(ouvrir({"--annee-blanche", "oui"}), QJsonValue(QJsonValue::Null));
        QVERIFY(ouvrir({"--annee-blanche", "peut-etre"}).toString().contains("--annee-blanche attend oui ou non"));
    }

    void tableauDeBord()
    {
        const QString chemin = document({{ContratHeures(1, 1, 12, QDate(2024, 4, 2)).paye(250, 2)}});
        const QJsonObject tdb = lireJson(lancer({"tableau-de-bord", chemin, "--sens", "DESC"}));
        QCOMPARE(tdb.value("statistiques").toArray().size(), 2);
        QCOMPARE(tdb.value("statistiques").toArray().at(1).toObject().value("Heures").toDouble(), 12.0);
        QCOMPARE(tdb.value("jauge").toObject().value("etat").toString(),
                 QStringLiteral("495 heures à réaliser avant le réexamen des droits"));
        QCOMPARE(tdb.value("droits").toObject().value("ouverture").toString(), QStringLiteral("2024-03-01"));
        QCOMPARE(tdb.value("periodeReference").toObject().value("allongement"), QJsonValue(QJsonValue::Null));
        QCOMPARE(tdb.value("contrats").toArray().last().toObject().value("Date Debut").toString(),
                 QStringLiteral("Totaux"));
    }

    void joursIndemnises_data()
    {
        QTest::addColumn<int>("emploiId");
        QTest::addColumn<QDate>("ouverture");
        QTest::addColumn<QString>("aujourdhui");
        QTest::addColumn<ContratsHeures>("contrats");
        QTest::addColumn<int>("mois");
        QTest::addColumn<int>("annee");
        QTest::addColumn<int>("jours");
        const ContratsHeures avril{{1, 1, 30, QDate(2024, 4, 3)},
                                   {1, 1, 15, QDate(2024, 4, 30)},
                                   {1, 1, 40, QDate(2024, 4, 8), true, 0},
                                   {1, 1, 40, QDate(2024, 5, 1)}};
        QTest::newRow("performer, 45 hours: 30 - floor(5.85)")
            << 1 << QDate(2024, 3, 1) << "2024-06-15" << avril << 4 << 2024 << 25;
        QTest::newRow("technician, 45 hours: 30 - floor(7.875)")
            << 3 << QDate(2024, 3, 1) << "2024-06-15" << avril << 4 << 2024 << 23;
        QTest::newRow("no reduction outside the three professions")
            << 4 << QDate(2024, 3, 1) << "2024-06-15" << avril << 4 << 2024 << 30;
        const ContratsHeures juin{
            {1, 1, 20, QDate(2024, 6, 5)}, {1, 1, 10, QDate(2024, 6, 12)}, {1, 1, 30, QDate(2024, 6, 25)}};
        QTest::newRow("opened on the 11th, today the 20th: the opening's filter only")
            << 1 << QDate(2024, 6, 11) << "2024-06-20" << juin << 6 << 2024 << 30 - 10 - 10 - 5;
        QTest::newRow("today the 20th: work up to today")
            << 1 << QDate(2024, 3, 1) << "2024-06-20" << juin << 6 << 2024 << 30 - 10 - 3;
        QTest::newRow("more work than days: negative")
            << 1 << QDate(2024, 3, 1) << "2024-06-15" << ContratsHeures{{1, 1, 300, QDate(2024, 4, 3)}} << 4 << 2024
            << 30 - 39;
        QTest::newRow("February 2100 counts 29 days")
            << 1 << QDate(2024, 3, 1) << "2100-06-01" << ContratsHeures{} << 2 << 2100 << 29;
    }
    void joursIndemnises()
    {
        QFETCH(int, emploiId);
        QFETCH(QDate, ouverture);
        QFETCH(QString, aujourdhui);
        QFETCH(ContratsHeures, contrats);
        QFETCH(int, mois);
        QFETCH(int, annee);
        QFETCH(int, jours);
        const QString chemin = document({contrats, {}, emploiId, ouverture});
        const ResultatCli r = lancer({"--aujourdhui", aujourdhui, "jours-indemnises", chemin, "--mois",
                                      QString::number(mois), "--annee", QString::number(annee)});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r).value("jours").toInt(-999), jours);
    }

    // Payments on 2023-12-31, 2024-01-01, 2024-03-15, 2024-06-10, 2025-01-01 and 2025-01-02.
    void versementsListe_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QStringList>("dates");
        QTest::addColumn<double>("cumul");
        const double tout = 167.40;
        QTest::newRow("all, newest first by default")
            << QStringList{}
            << QStringList{"2025-01-02", "2025-01-01", "2024-06-10", "2024-03-15", "2024-01-01", "2023-12-31"} << tout;
        QTest::newRow("ASC lists the newest first")
            << QStringList{"--sens", "ASC"}
            << QStringList{"2025-01-02", "2025-01-01", "2024-06-10", "2024-03-15", "2024-01-01", "2023-12-31"} << tout;
        QTest::newRow("DESC lists the oldest first")
            << QStringList{"--sens", "DESC"}
            << QStringList{"2023-12-31", "2024-01-01", "2024-03-15", "2024-06-10", "2025-01-01", "2025-01-02"} << tout;
        QTest::newRow("another word lists the newest first")
            << QStringList{"--periode", "annee", "--sens", "asc"}
            << QStringList{"2024-06-10", "2024-03-15", "2024-01-01"} << 100.40;
        QTest::newRow("the year: its 1 January in, the next one out as the texts compare")
            << QStringList{"--periode", "annee"} << QStringList{"2024-06-10", "2024-03-15", "2024-01-01"} << 100.40;
        QTest::newRow("the reference period, stretched by a day of leave")
            << QStringList{"--periode", "periode_reference"} << QStringList{"2025-01-01", "2024-06-10", "2024-03-15"}
            << 50.30;
        QTest::newRow("a span, both ends included")
            << QStringList{"--periode", "periode", "--du", "2024-03-15", "--au", "2024-06-10"}
            << QStringList{"2024-06-10", "2024-03-15"} << 0.30;
        QTest::newRow("the span the history window remembers: this year")
            << QStringList{"--periode", "periode"} << QStringList{"2024-06-10", "2024-03-15", "2024-01-01"} << 100.40;
    }
    void versementsListe()
    {
        QFETCH(QStringList, options);
        QFETCH(QStringList, dates);
        QFETCH(double, cumul);
        const QByteArray avant = empreinte(m_versements);
        const ResultatCli r = lancer(QStringList{"versement-are", "lister", m_versements} + options);
        QCOMPARE(r.code, 0);
        QStringList lues;
        for (const QJsonValue& v : lireJson(r).value("versements").toArray())
            lues << v.toObject().value("Date SQLite").toString().left(10);
        QCOMPARE(lues, dates);
        // Right to the cent: compared exactly, not within a tolerance.
        QVERIFY2(lireJson(r).value("cumul").toDouble() == cumul, r.sortie.constData());
        QCOMPARE(empreinte(m_versements), avant);
    }

    void versementsModification()
    {
        const QString chemin = document();
        ResultatCli r = lancer({"versement-are", "ajouter", chemin, "--date", "2024-04-05", "--montant", "1 977,5"});
        QCOMPARE(r.code, 0);
        const int id = lireJson(r).value("id").toInt();
        r = lancer({"versement-are", "lister", chemin});
        const QJsonObject ligne = lireJson(r).value("versements").toArray().first().toObject();
        QCOMPARE(
            ligne,
            (QJsonObject{
                {"Id", id}, {"Date", "05/04/2024"}, {"Date SQLite", "2024-04-05 00:00:00.000"}, {"Montant", 1977.5}}));

        r = lancer({"versement-are", "modifier", chemin, QString::number(id), "--date", "2024-04-06", "--montant",
                    "1 977,05"});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r).value("id").toInt(), id);
        QCOMPARE(valeur(chemin, "SELECT ah_date || ' ' || ah_montant FROM assedichistorique;"),
                 QStringLiteral("2024-04-06 00:00:00.000 1977.05"));

        r = lancer({"versement-are", "supprimer", chemin, QString::number(id)});
        QCOMPARE(r.code, 0);
        QCOMPARE(valeur(chemin, "SELECT COUNT(*) FROM assedichistorique;"), QStringLiteral("0"));
        r = lancer({"versement-are", "supprimer", chemin, QString::number(id)});
        QCOMPARE(r.code, 1);
        QVERIFY2(r.erreurs.contains(QStringLiteral("aucun versement ne porte le numéro")), qPrintable(r.erreurs));
    }

    void refus_data()
    {
        QTest::addColumn<QStringList>("arguments"); // "%1" stands for the document
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message");
        const QStringList ajouter{"versement-are", "ajouter", "%1", "--date", "2024-04-05", "--montant"};
        QTest::newRow("negative amount") << ajouter + QStringList{"-12"} << 2 << "un montant négatif";
        QTest::newRow("above a hundred million")
            << ajouter + QStringList{"100 000 000,01"} << 2 << "ne peut pas dépasser 100 000 000,00 €";
        QTest::newRow("three decimals") << ajouter + QStringList{"12,345"} << 2 << "montant invalide pour --montant";
        QTest::newRow("written the German way") << ajouter + QStringList{"1.234,56"} << 2 << "montant invalide";
        QTest::newRow("no amount") << QStringList{"versement-are", "ajouter", "%1", "--date", "2024-04-05"} << 2
                                   << "--montant est obligatoire";
        QTest::newRow("date written the French way")
            << QStringList{"versement-are", "ajouter", "%1", "--date", "05/04/2024", "--montant", "10"} << 2
            << "date invalide pour --date";
        QTest::newRow("date before 1950")
            << QStringList{"versement-are", "ajouter", "%1", "--date", "1949-12-31", "--montant", "10"} << 2
            << "entre le 01/01/1950 et le 31/12/2100";
        QTest::newRow("unknown payment") << QStringList{"versement-are", "modifier",   "%1",        "99",
                                                        "--date",        "2024-04-05", "--montant", "10"}
                                         << 1 << "aucun versement ne porte le numéro 99.";
        QTest::newRow("payment number that is not one")
            << QStringList{"versement-are", "supprimer", "%1", "abc"} << 2 << "numéro de versement invalide";
        QTest::newRow("unknown span") << QStringList{"versement-are", "lister", "%1", "--periode", "mois"} << 2
                                      << "période inconnue : « mois »";
        QTest::newRow("a start without an end")
            << QStringList{"versement-are", "lister", "%1", "--periode", "periode", "--du", "2024-01-01"} << 2
            << "--du et --au vont ensemble";
        QTest::newRow("hours over a reversed span")
            << QStringList{"heures", "%1", "--du", "2024-12-31", "--au", "2024-03-01"} << 2
            << "la date --au ne peut pas précéder la date --du";
        QTest::newRow("hours without an end")
            << QStringList{"heures", "%1", "--du", "2024-03-01"} << 2 << "l'option --au est obligatoire";
        QTest::newRow("unknown mode") << QStringList{"heures", "%1",         "--du",   "2024-03-01",
                                                     "--au",   "2024-12-31", "--mode", "analyse"}
                                      << 2 << "mode inconnu : « analyse »";
        QTest::newRow("unknown contract choice")
            << QStringList{"heures", "%1", "--du", "2024-03-01", "--au", "2024-12-31", "--contrats", "payes"} << 2
            << "choix de contrats inconnu";
        QTest::newRow("simulation without its span")
            << QStringList{"simulation", "%1", "--du", "2024-03-01"} << 2 << "l'option --au est obligatoire";
        QTest::newRow("dashboard sorted sideways")
            << QStringList{"tableau-de-bord", "%1", "--sens", "HAUT"} << 2 << "--sens attend ASC ou DESC";
        QTest::newRow("month 13") << QStringList{"jours-indemnises", "%1", "--mois", "13", "--annee", "2024"} << 2
                                  << "entre 1 et 12";
        QTest::newRow("year 2101") << QStringList{"jours-indemnises", "%1", "--mois", "2", "--annee", "2101"} << 2
                                   << "entre 1950 et 2100";
        QTest::newRow("a document that is not there")
            << QStringList{"periode-reference", "%1-absent"} << 1 << "corvane-cli: ";
    }
    void refus()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, code);
        QFETCH(QString, message);
        const QString chemin = document();
        for (QString& argument : arguments)
            argument.replace(QStringLiteral("%1"), chemin);
        const QByteArray avant = empreinte(chemin);
        const ResultatCli r = lancer(arguments);
        QCOMPARE(r.code, code);
        QVERIFY2(r.erreurs.startsWith(QStringLiteral("corvane-cli: ")), qPrintable(r.erreurs));
        QVERIFY2(r.erreurs.contains(message), qPrintable(r.erreurs));
        QVERIFY(r.sortie.isEmpty());
        QCOMPARE(empreinte(chemin), avant);
    }
};

QTEST_GUILESS_MAIN(TestCliDroits)
#include "test_cli_droits.moc"
