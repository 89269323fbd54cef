// The social-security commands, in-process: the incidences worked out on save under each
// rule period, the overlap refusals, the list's filters, the ticks, the rights grid around
// its thresholds, and what is refused (the document left byte-identical).

#include "cli/Cli.h"
#include "commun/OutilsCli.h"
#include "store/Horloge.h"
#include "unemployment/OutilsDroits.h"
#include "unemployment/ParametresIntermittent.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using namespace corvane;
using namespace corvane::test;

namespace {

// Today is 2024-06-15 unless the arguments say otherwise.
ResultatCli lancer(const QStringList& arguments)
{
    return executerCli(QStringList{"--aujourdhui", "2024-06-15", "--json"} + arguments);
}

// A contract with its gross pay, which the rights grid sums.
struct ContratPaye
{
    QDate debut;
    QDate fin;
    double heures = 0;
    double brut = 0;
    int effectue = 1;
};
using ContratsPayes = QList<ContratPaye>;

void ajouterContrats(const QString& chemin, const ContratsPayes& contrats)
{
    BaseDeDonnees base;
    QVERIFY(base.ouvrir(chemin));
    for (const ContratPaye& c : contrats)
        base.executer(
            "INSERT INTO contrats (c_employeur_id, c_emploi_id, c_type, c_nbre_heures, c_debut_contrat, "
            "c_fin_contrat, c_effectue, c_nbre_jours, c_salaire_brut, c_salaire_net, c_abattement, "
            "c_liste_dates, c_paye, c_note, c_fonction, c_conges) VALUES (1, 1, 1, ?, ?, ?, ?, 1, ?, 0, 1, "
            "'', 0, '', '', 0);",
            {c.heures, jourSQLite(c.debut), jourSQLite(c.fin.isValid() ? c.fin : c.debut), c.effectue, c.brut});
}

QList<int> identifiants(const QJsonObject& json)
{
    QList<int> ids;
    for (const QJsonValue& v : json.value("periodes").toArray())
        ids << v.toObject().value("Id Securite Sociale").toInt();
    return ids;
}

} // namespace

Q_DECLARE_METATYPE(ContratsPayes)

class TestCliMaladie : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    QString document(const DossierDroits& dossier = {})
    {
        return documentDroits(m_dossier, QStringLiteral("m%1.cv4").arg(++m_numero), dossier);
    }
    // A document whose rights end on that day (the current period's end).
    QString documentFinDesDroits(const QDate& fin)
    {
        return document({{}, {}, 1, fin.addYears(-1), fin.addYears(-1), fin});
    }

private slots:
    void incidences_data()
    {
        QTest::addColumn<QDate>("finDesDroits");
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("suspendus");
        QTest::addColumn<bool>("ald");
        QTest::addColumn<int>("heures");
        QTest::addColumn<int>("periode");
        // Every leave runs from 1 to 10 March 2016: 10 days.
        const QDate avant(2016, 6, 30), apres(2016, 12, 31);
        QTest::newRow("earlier rules, sickness") << avant << "Maladie" << 3 << false << 3 << 7;
        QTest::newRow("earlier rules, sickness with ALD") << avant << "2" << 3 << true << 3 << 7;
        QTest::newRow("earlier rules, accident") << avant << "Accident du travail" << 0 << false << 10 << 0;
        QTest::newRow("earlier rules, maternity, suspended days ignored") << avant << "3" << 4 << false << 10 << 0;
        QTest::newRow("earlier rules, pharmacy") << avant << "PHARMACIE" << 2 << false << 0 << 0;
        QTest::newRow("rights ending the day before the switch")
            << QDate(2016, 7, 31) << "Maladie" << 3 << false << 3 << 7;
        QTest::newRow("rights ending on the switch day") << QDate(2016, 8, 1) << "Maladie" << 3 << false << 3 << 0;
        QTest::newRow("2016 rules, sickness, 3 suspended") << apres << "Maladie" << 3 << false << 3 << 0;
        QTest::newRow("2016 rules, sickness, none suspended") << apres << "Maladie" << 0 << false << 0 << 10;
        QTest::newRow("2016 rules, sickness with ALD, none suspended") << apres << "Maladie" << 0 << true << 11 << 0;
        QTest::newRow("2016 rules, maternity, none suspended") << apres << "Maternité" << 0 << false << 11 << 0;
        QTest::newRow("2016 rules, paternity, 2 suspended") << apres << "Paternité" << 2 << false << 2 << 0;
        QTest::newRow("2016 rules, accident, none suspended") << apres << "1" << 0 << false << 11 << 0;
        QTest::newRow("2016 rules, specialist") << apres << "Consultation Spécialiste" << 0 << false << 0 << 0;
        // Kept as the form held them: nothing yet when adding.
        QTest::newRow("2016 rules, sickness with ALD, 4 suspended") << apres << "Maladie" << 4 << true << 0 << 0;
        QTest::newRow("2016 rules, general practitioner, 1 suspended") << apres << "5" << 1 << false << 0 << 0;
    }
    void incidences()
    {
        QFETCH(QDate, finDesDroits);
        QFETCH(QString, type);
        QFETCH(int, suspendus);
        QFETCH(bool, ald);
        QFETCH(int, heures);
        QFETCH(int, periode);
        QStringList arguments{"maladie",
                              "ajouter",
                              documentFinDesDroits(finDesDroits),
                              "--type",
                              type,
                              "--debut",
                              "2016-03-01",
                              "--fin",
                              "2016-03-10",
                              "--suspendus",
                              QString::number(suspendus)};
        if (ald)
            arguments << "--ald";
        const ResultatCli r = lancer(arguments);
        QVERIFY2(r.code == 0, qPrintable(r.erreurs));
        QCOMPARE(lireJson(r),
                 (QJsonObject{{"id", 1}, {"jours", 10}, {"incidenceHeures", heures}, {"incidencePeriode", periode}}));
    }

    // Modifying keeps the record's own incidences where the rules keep the form's; the ticks
    // write their column only; a record never overlaps itself.
    void modificationEtCoches()
    {
        const QString chemin = documentFinDesDroits(QDate(2016, 12, 31));
        const QStringList dates{"--debut", "2016-03-01", "--fin", "2016-03-10"};
        ResultatCli r = lancer(QStringList{"maladie", "ajouter", chemin, "--type", "Maladie", "--ij", "1 234,56",
                                           "--note", "L'arrêt « grippe »"} +
                               dates);
        QCOMPARE(lireJson(r).value("incidencePeriode").toInt(), 10);
        r = lancer(QStringList{"maladie", "modifier", chemin, "1", "--type", "Maladie", "--suspendus", "4", "--ald",
                               "--ij", "0,10", "--note", "L'arrêt « grippe »"} +
                   dates);
        QVERIFY2(r.code == 0, qPrintable(r.erreurs));
        QCOMPARE(lireJson(r),
                 (QJsonObject{{"id", 1}, {"jours", 10}, {"incidenceHeures", 0}, {"incidencePeriode", 10}}));
        QCOMPARE(lancer({"maladie", "cocher", chemin, "1", "--rembourse", "1", "--ald", "0"}).code, 0);

        const QJsonObject ligne = lireJson(lancer({"maladie", "lister", chemin})).value("periodes")[0].toObject();
        QCOMPARE(ligne.value("Total I.J.").toDouble(), 0.10);
        QCOMPARE(ligne.value("Journees Suspendues").toInt(), 4);
        QCOMPARE(ligne.value("Rembourse").toString(), QStringLiteral("Oui"));
        QCOMPARE(ligne.value("ALD").toString(), QStringLiteral("Non"));
        QCOMPARE(ligne.value("Remboursement Mutuelle").toString(), QStringLiteral("Non"));
        QCOMPARE(ligne.value("Note").toString(), QStringLiteral("L'arrêt « grippe »"));
        QCOMPARE(ligne.value("Date Fin SQLite").toString(), QStringLiteral("2016-03-10 00:00:00.000"));

        QCOMPARE(lancer({"maladie", "supprimer", chemin, "1"}).code, 0);
        QCOMPARE(identifiants(lireJson(lancer({"maladie", "lister", chemin}))), QList<int>{});
    }

    void superpositions_data()
    {
        QTest::addColumn<ContratsPayes>("contrats");
        QTest::addColumn<QStringList>("existantes"); // leaves recorded first, as start and end pairs
        QTest::addColumn<QString>("debut");
        QTest::addColumn<QString>("fin");
        QTest::addColumn<QString>("message"); // empty: saved
        const ContratPaye avril{QDate(2024, 4, 1), QDate(2024, 4, 5)};
        const QString un = "Cette période chevauche un contrat existant.";
        const QString plusieurs = "Cette période chevauche plusieurs contrats existants.";
        QTest::newRow("touching a contract by its last day") << ContratsPayes{avril} << QStringList{} << "2024-04-05"
                                                             << "2024-04-10" << un;
        QTest::newRow("containing a whole contract") << ContratsPayes{avril} << QStringList{} << "2024-03-30"
                                                     << "2024-04-10" << plusieurs;
        QTest::newRow("inside a contract") << ContratsPayes{avril} << QStringList{} << "2024-04-02"
                                           << "2024-04-03" << un;
        QTest::newRow("the day after a contract") << ContratsPayes{avril} << QStringList{} << "2024-04-06"
                                                  << "2024-04-10" << QString();
        QTest::newRow("one day on a planned contract's last day counts twice")
            << ContratsPayes{{QDate(2024, 4, 1), QDate(2024, 4, 5), 0, 0, 0}} << QStringList{} << "2024-04-05"
            << "2024-04-05" << plusieurs;
        QTest::newRow("touching a leave by its last day")
            << ContratsPayes{} << QStringList{"2024-05-01", "2024-05-10"} << "2024-05-10"
            << "2024-05-15"
            << "Cette période chevauche une période existante.";
        QTest::newRow("containing a whole leave")
            << ContratsPayes{} << QStringList{"2024-05-01", "2024-05-10"} << "2024-04-30"
            << "2024-05-15"
            << "Cette période chevauche plusieurs périodes existantes.";
        QTest::newRow("the contracts are checked first")
            << ContratsPayes{avril} << QStringList{"2024-04-06", "2024-04-10"} << "2024-04-05"
            << "2024-04-07" << un;
    }
    void superpositions()
    {
        QFETCH(ContratsPayes, contrats);
        QFETCH(QStringList, existantes);
        QFETCH(QString, debut);
        QFETCH(QString, fin);
        QFETCH(QString, message);
        const QString chemin = document();
        ajouterContrats(chemin, contrats);
        for (qsizetype i = 0; i + 1 < existantes.size(); i += 2)
            QCOMPARE(lancer({"maladie", "ajouter", chemin, "--type", "Maladie", "--debut", existantes[i], "--fin",
                             existantes[i + 1]})
                         .code,
                     0);
        const QByteArray avant = empreinte(chemin);
        const ResultatCli r =
            lancer({"maladie", "ajouter", chemin, "--type", "Maladie", "--debut", debut, "--fin", fin});
        if (message.isEmpty()) {
            QVERIFY2(r.code == 0, qPrintable(r.erreurs));
            return;
        }
        QCOMPARE(r.code, 1);
        QCOMPARE(r.erreurs, QStringLiteral("corvane-cli: %1\n").arg(message));
        QCOMPARE(empreinte(chemin), avant);
    }

    void liste_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QList<int>>("ids");
        // 1: sickness 2023-11-02, 2: pharmacy 2024-02-10, 3: maternity 2024-04-01, 4: sickness 2025-01-05.
        QTest::newRow("all, oldest first") << QStringList{} << QList<int>{1, 2, 3, 4};
        QTest::newRow("all, newest first") << QStringList{"--sens", "DESC"} << QList<int>{4, 3, 2, 1};
        QTest::newRow("one kind") << QStringList{"--type", "MALADIE"} << QList<int>{1, 4};
        QTest::newRow("this year") << QStringList{"--periode", "annee"} << QList<int>{2, 3};
        QTest::newRow("this year, one kind")
            << QStringList{"--periode", "annee", "--type", "Pharmacie"} << QList<int>{2};
        QTest::newRow("reference period") << QStringList{"--periode", "periode_reference"} << QList<int>{3};
        QTest::newRow("chosen span, bounds included")
            << QStringList{"--periode", "periode", "--du", "2023-11-02", "--au", "2024-02-10"} << QList<int>{1, 2};
    }
    void liste()
    {
        QFETCH(QStringList, options);
        QFETCH(QList<int>, ids);
        static const QString chemin = [this] {
            const QString c = document();
            const QList<QStringList> periodes{{"Maladie", "2023-11-02", "2023-11-05"},
                                              {"Pharmacie", "2024-02-10", "2024-02-10"},
                                              {"Maternité", "2024-04-01", "2024-07-20"},
                                              {"Maladie", "2025-01-05", "2025-01-06"}};
            for (const QStringList& p : periodes)
                lancer({"maladie", "ajouter", c, "--type", p[0], "--debut", p[1], "--fin", p[2]});
            return c;
        }();
        const ResultatCli r = lancer(QStringList{"maladie", "lister", chemin} + options);
        QVERIFY2(r.code == 0, qPrintable(r.erreurs));
        QCOMPARE(identifiants(lireJson(r)), ids);
    }

    // The day checked is 2024-06-15; the minimum wage is the one in force at the opening of
    // rights (2024-03-01) or at the end of the last contract since.
    void droits_data()
    {
        QTest::addColumn<ContratsPayes>("contrats");
        QTest::addColumn<QStringList>("attendu"); // <= 6 months, medical costs, > 6 months, maternity, accident
        const double smic = ParametresIntermittent::smicHoraireEnCours(QDate(2024, 3, 1));
        // Gross pay counts in whole euros: the first amount meeting n × SMIC, and the cent below.
        const auto atteint = [smic](int n) { return std::ceil(std::round(n * smic * 100.0) / 100.0); };
        const auto manque = [atteint](int n) { return atteint(n) - 0.01; };
        const QDate avril(2024, 4, 1), juillet2023(2023, 7, 1);
        QTest::newRow("199 hours over three months and 1014 × SMIC")
            << ContratsPayes{{avril, avril, 199, 1014 * smic}} << QStringList{"Non", "Non", "Non", "Non", "Oui"};
        QTest::newRow("200 hours over three months")
            << ContratsPayes{{avril, avril, 200, 0}} << QStringList{"Oui", "Non", "Non", "Oui", "Oui"};
        QTest::newRow("1015 × SMIC over twelve months") << ContratsPayes{{juillet2023, juillet2023, 0, atteint(1015)}}
                                                        << QStringList{"Oui", "Non", "Non", "Oui", "Oui"};
        QTest::newRow("a cent short of 1015 × SMIC in whole euros")
            << ContratsPayes{{juillet2023, juillet2023, 0, manque(1015)}}
            << QStringList{"Non", "Non", "Non", "Non", "Oui"};
        QTest::newRow("2030 × SMIC over twelve months") << ContratsPayes{{juillet2023, juillet2023, 0, atteint(2030)}}
                                                        << QStringList{"Oui", "Non", "Oui", "Oui", "Oui"};
        QTest::newRow("a year's earnings of 2030 × SMIC") << ContratsPayes{{QDate(2024, 1, 10), {}, 0, atteint(2030)}}
                                                          << QStringList{"Oui", "Oui", "Oui", "Oui", "Oui"};
        QTest::newRow("60 hours this month")
            << ContratsPayes{{QDate(2024, 6, 3), {}, 60, 0}} << QStringList{"Non", "Oui", "Non", "Non", "Oui"};
        QTest::newRow("59 hours this month")
            << ContratsPayes{{QDate(2024, 6, 3), {}, 59, 0}} << QStringList{"Non", "Non", "Non", "Non", "Oui"};
        QTest::newRow("60 × SMIC over the last month") << ContratsPayes{{QDate(2024, 5, 16), {}, 0, atteint(60)}}
                                                       << QStringList{"Non", "Oui", "Non", "Non", "Oui"};
        QTest::newRow("a cent short of 60 × SMIC, and a day too early")
            << ContratsPayes{{QDate(2024, 5, 16), {}, 0, manque(60)}, {QDate(2024, 5, 15), {}, 0, 1000}}
            << QStringList{"Non", "Non", "Non", "Non", "Oui"};
        QTest::newRow("800 hours over 365 days and 200 over three months")
            << ContratsPayes{{QDate(2023, 6, 16), {}, 600, 0}, {QDate(2024, 5, 1), {}, 200, 0}}
            << QStringList{"Oui", "Non", "Oui", "Oui", "Oui"};
        QTest::newRow("800 hours from one day too early")
            << ContratsPayes{{QDate(2023, 6, 15), {}, 600, 0}, {QDate(2024, 5, 1), {}, 200, 0}}
            << QStringList{"Oui", "Non", "Non", "Oui", "Oui"};
        QTest::newRow("only planned contracts")
            << ContratsPayes{{QDate(2024, 5, 1), {}, 300, 50000, 0}} << QStringList{"Non", "Non", "Non", "Non", "Non"};
    }
    void droits()
    {
        QFETCH(ContratsPayes, contrats);
        QFETCH(QStringList, attendu);
        const QString chemin = document();
        ajouterContrats(chemin, contrats);
        const ResultatCli r = lancer({"maladie", "droits", chemin, "--date", "2024-06-15"});
        QVERIFY2(r.code == 0, qPrintable(r.erreurs));
        const QJsonArray grille = lireJson(r).value("droits").toArray();
        QCOMPARE(grille.size(), 4);
        const auto cellule = [&](int rangee, const char* cle) {
            return grille.at(rangee).toObject().value(QLatin1String(cle)).toString();
        };
        QCOMPARE(cellule(0, "OuiNon Gauche"), QString());
        const QStringList obtenu{cellule(1, "OuiNon Gauche"), cellule(1, "OuiNon Droit"), cellule(2, "OuiNon Gauche"),
                                 cellule(3, "OuiNon Gauche"), cellule(2, "OuiNon Droit")};
        QCOMPARE(obtenu, attendu);
        QCOMPARE(cellule(3, "OuiNon Droit"), attendu.last());
    }

    void refus_data()
    {
        QTest::addColumn<QStringList>("arguments"); // "%1" stands for the document
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message");
        const QStringList ajouter{"maladie", "ajouter", "%1", "--type", "Maladie", "--debut", "2024-04-01"};
        QTest::newRow("end before start") << ajouter + QStringList{"--fin", "2024-03-31"} << 2
                                          << "La date de fin ne peut pas précéder la date de début.";
        QTest::newRow("more suspended days than days")
            << ajouter + QStringList{"--fin", "2024-04-03", "--suspendus", "4"} << 2 << "Journées suspendues";
        QTest::newRow("negative allowances")
            << ajouter + QStringList{"--fin", "2024-04-03", "--ij", "-1"} << 2 << "un montant négatif";
        QTest::newRow("allowances to the tenth of a cent")
            << ajouter + QStringList{"--fin", "2024-04-03", "--ij", "12,345"} << 2 << "montant invalide pour --ij";
        QTest::newRow("no end") << ajouter << 2 << "l'option --fin est obligatoire";
        QTest::newRow("unknown kind") << QStringList{"maladie", "ajouter",    "%1",    "--type",    "Grippe",
                                                     "--debut", "2024-04-01", "--fin", "2024-04-02"}
                                      << 2 << "type inconnu : « Grippe »";
        QTest::newRow("kind number 8") << QStringList{"maladie", "ajouter",    "%1",    "--type",    "8",
                                                      "--debut", "2024-04-01", "--fin", "2024-04-02"}
                                       << 2 << "type inconnu : « 8 »";
        QTest::newRow("unknown record") << QStringList{"maladie", "modifier", "%1",         "99",    "--type",
                                                       "Maladie", "--debut",  "2024-04-01", "--fin", "2024-04-02"}
                                        << 1 << "aucune période ne porte le numéro 99.";
        QTest::newRow("ticking nothing") << QStringList{"maladie", "cocher", "%1", "1"} << 2 << "rien à cocher";
        QTest::newRow("ticking with 2") << QStringList{"maladie", "cocher", "%1", "1", "--ald", "2"} << 2
                                        << "entre 0 et 1";
        QTest::newRow("unknown sort") << QStringList{"maladie", "lister", "%1", "--sens", "MOT"} << 2 << "sens inconnu";
        QTest::newRow("rights without any contract")
            << QStringList{"maladie", "droits", "%1", "--date", "2024-06-15"} << 1
            << "Vos droits sociaux ne peuvent pas être calculés, car vous n'avez déclaré aucun contrat.";
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

QTEST_GUILESS_MAIN(TestCliMaladie)
#include "test_cli_maladie.moc"
