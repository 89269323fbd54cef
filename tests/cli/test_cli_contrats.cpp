// `corvane-cli contrat ajouter|lister|supprimer` run as a process: derived values,
// refusals with nothing written, the sickness-overlap warning, the listing's filters,
// inverted sort, keys and totals, and deletion with expense links.

#include "commun/OutilsDocument.h"
#include "records/OutilsContrats.h"
#include "store/Dates.h"

#include <QJsonArray>
#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

namespace {

const QString kAujourdhui = QStringLiteral("2024-06-15");

ResultatCli contrat(const QStringList& arguments)
{
    return lancerCli(QStringList{"--aujourdhui", kAujourdhui, "--json", "contrat"} + arguments);
}

QJsonArray lignes(const ResultatCli& r)
{
    return lireJson(r).value("contrats").toArray();
}

} // namespace

class TestCliContrats : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    // A document whose profile is an artist with the 20 % abatement, and two employers.
    QString document()
    {
        const QString chemin = documentContrats(m_dossier, QStringLiteral("cli%1.cv4").arg(++m_numero));
        ajouterEmployeur(chemin, QStringLiteral("Théâtre d'Orly"));
        ajouterEmployeur(chemin, QStringLiteral("Opéra"));
        return chemin;
    }

private slots:
    void derivations_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<int>("jours");
        QTest::addColumn<int>("heures");
        QTest::addColumn<QString>("emploi");
        QTest::addColumn<int>("effectue");
        QTest::addColumn<int>("abattement");
        QTest::addColumn<QString>("fin");
        QTest::newRow("one day") << QStringList{"--debut", "2024-03-04"} << 1 << 12 << "Artiste" << 1 << 2
                                 << "04/03/2024";
        QTest::newRow("AP") << QStringList{"--debut", "2024-03-04", "--fin", "2024-03-06", "--ap"} << 3 << 21
                            << "Artiste" << 1 << 2 << "06/03/2024";
        QTest::newRow("teaching: 0 %") << QStringList{"--debut", "2024-03-04", "--type", "Enseignements"} << 1 << 12
                                       << "Artiste" << 1 << 1 << "04/03/2024";
        QTest::newRow("general scheme sets the job") << QStringList{"--debut", "2024-03-04", "--type", "Régime Général"}
                                                     << 1 << 12 << "Régime Général" << 1 << 1 << "04/03/2024";
        QTest::newRow("starting tomorrow: planned")
            << QStringList{"--debut", "2024-06-16"} << 1 << 12 << "Artiste" << 0 << 2 << "16/06/2024";
        QTest::newRow("planned") << QStringList{"--debut", "2024-03-04", "--planifie"} << 1 << 12 << "Artiste" << 0 << 2
                                 << "04/03/2024";
        QTest::newRow("given values win") << QStringList{"--debut", "2024-03-04", "--fin", "2024-03-08",   "--jours",
                                                         "3",       "--heures",   "30",    "--abattement", "25"}
                                          << 3 << 30 << "Artiste" << 1 << 3 << "08/03/2024";
        QTest::newRow("self-employed: hours from the gross")
            << QStringList{"--debut", "2024-03-04", "--emploi", "Auto Entrepreneur",
                           "--type",  "101",        "--brut",   "976,00"}
            << 1 << 50 << "Auto Entrepreneur" << 1 << 1 << "04/03/2024";
    }

    void derivations()
    {
        QFETCH(QStringList, options);
        QFETCH(int, jours);
        QFETCH(int, heures);
        QFETCH(QString, emploi);
        QFETCH(int, effectue);
        QFETCH(int, abattement);
        QFETCH(QString, fin);
        const QString chemin = document();
        const ResultatCli r = contrat(QStringList{"ajouter", chemin, "--employeur", "Théâtre d'Orly"} + options);
        QCOMPARE(r.code, 0);
        QVERIFY2(r.erreurs.isEmpty(), qPrintable(r.erreurs));
        const QJsonObject resultat = lireJson(r);
        QCOMPARE(resultat.value("id").toInt(), 1);
        QCOMPARE(resultat.value("jours").toInt(), jours);
        QCOMPARE(resultat.value("heures").toInt(), heures);
        QVERIFY(resultat.value("avertissement").isNull());

        const QJsonObject ligne = lignes(contrat({"lister", chemin})).first().toObject();
        QCOMPARE(ligne.value("Jours").toInt(), jours);
        QCOMPARE(ligne.value("Heures").toInt(), heures);
        QCOMPARE(ligne.value("Emploi").toString(), emploi);
        QCOMPARE(ligne.value("Effectue").toInt(), effectue);
        QCOMPARE(ligne.value("Abattement").toInt(), abattement);
        QCOMPARE(ligne.value("Date Fin").toString(), fin);
    }

    // A date on the command line is read as a stored date (01:00 local time), so
    // 1 August 2016 falls on the switch (midnight at +01:00) unless the zone is ahead of +01:00 by more than an hour.
    void premierAout2016()
    {
        const QString chemin = document();
        const ResultatCli r =
            contrat({"ajouter", chemin, "--employeur", "Opéra", "--debut", "2016-08-01", "--fin", "2016-08-05"});
        QCOMPARE(r.code, 0);
        const bool avant = QDateTime(QDate(2016, 8, 1), QTime(1, 0), Qt::LocalTime) < Dates::dateDeBascule(2016, 8, 1);
        QCOMPARE(lireJson(r).value("heures").toInt(), avant ? 40 : 60);
        if (qgetenv("TZ") == "Europe/Paris")
            QCOMPARE(lireJson(r).value("heures").toInt(), 60);
    }

    void modele()
    {
        const QString chemin = document();
        const int modele = ajouterModele(chemin, QStringLiteral("Tournée"), 3, 3, 4, 35, 800, 620);
        ajouterEmployeur(chemin, QStringLiteral("Compagnie l'Envol"), modele);
        ResultatCli r = contrat({"ajouter", chemin, "--employeur", "Compagnie l'Envol", "--debut", "2024-03-04"});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r).value("jours").toInt(), 4);
        QCOMPARE(lireJson(r).value("heures").toInt(), 35);
        // Given dates make their own length.
        r = contrat(
            {"ajouter", chemin, "--employeur", "Compagnie l'Envol", "--debut", "2024-04-01", "--fin", "2024-04-02"});
        QCOMPARE(lireJson(r).value("heures").toInt(), 16);
        const QJsonArray liste = lignes(contrat({"lister", chemin, "--sens", "DESC"}));
        QCOMPARE(liste.size(), 2);
        const QJsonObject premier = liste.at(1).toObject();
        QCOMPARE(premier.value("Date Fin").toString(), QStringLiteral("07/03/2024"));
        QCOMPARE(premier.value("Emploi").toString(), QStringLiteral("Technicien"));
        QCOMPARE(premier.value("Type").toInt(), 3);
        QCOMPARE(premier.value("Salaire Brut").toDouble(), 800.0);
        QCOMPARE(premier.value("Salaire Net").toDouble(), 620.0);
    }

    void refus_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message");
        const QString e = QStringLiteral("Théâtre d'Orly");
        QTest::newRow("28 days refused beyond")
            << QStringList{"--employeur", e, "--debut", "2024-03-01", "--fin", "2024-03-29"} << 1
            << "Vous ne pouvez pas déclarer plus de 28 jours de prestations dans "
               "le même mois.";
        QTest::newRow("29 days given") << QStringList{"--employeur", e, "--debut", "2024-03-01", "--jours", "29"} << 1
                                       << "Vous ne pouvez pas déclarer plus de 28 jours de prestations dans le même "
                                          "mois.";
        QTest::newRow("teaching across months")
            << QStringList{"--employeur", e, "--debut", "2024-03-30", "--fin", "2024-04-02", "--type", "Enseignements"}
            << 1 << "Vous ne pouvez déclarer des heures d'enseignement que sur un même mois.";
        QTest::newRow("no employer") << QStringList{"--debut", "2024-03-04"} << 1
                                     << "Veuillez choisir un employeur avant d'enregistrer votre contrat.";
        QTest::newRow("29 days and no employer") << QStringList{"--debut", "2024-03-01", "--fin", "2024-03-29"} << 1
                                                 << "Vous ne pouvez pas déclarer plus de 28 jours de prestations "
                                                    "dans le même mois.";
        QTest::newRow("unknown employer") << QStringList{"--employeur", "Inexistant", "--debut", "2024-03-04"} << 1
                                          << "aucun employeur ne s'appelle « Inexistant ».";
        QTest::newRow("end before start")
            << QStringList{"--employeur", e, "--debut", "2024-03-04", "--fin", "2024-03-01"} << 1
            << "la date de fin précède la date de début.";
        QTest::newRow("bad date") << QStringList{"--employeur", e, "--debut", "04/03/2024"} << 2
                                  << "date invalide pour --debut";
        QTest::newRow("unknown type") << QStringList{"--employeur", e, "--debut", "2024-03-04", "--type", "Cachet"} << 2
                                      << "type de contrat inconnu";
    }

    void refus()
    {
        QFETCH(QStringList, options);
        QFETCH(int, code);
        QFETCH(QString, message);
        const QString chemin = document();
        const QByteArray avant = empreinte(chemin);
        const ResultatCli r = contrat(QStringList{"ajouter", chemin} + options);
        QCOMPARE(r.code, code);
        QVERIFY2(r.erreurs.startsWith(QStringLiteral("corvane-cli: ")), qPrintable(r.erreurs));
        QVERIFY2(r.erreurs.contains(message), qPrintable(r.erreurs));
        QVERIFY(r.sortie.isEmpty());
        QCOMPARE(empreinte(chemin), avant);
    }

    void vingtHuitJours()
    {
        const QString chemin = document();
        const ResultatCli r =
            contrat({"ajouter", chemin, "--employeur", "Opéra", "--debut", "2024-03-20", "--fin", "2024-04-16"});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r).value("jours").toInt(), 28);
    }

    void avertissement()
    {
        const QString chemin = document();
        ajouterArretMaladie(chemin, QDate(2024, 3, 1), QDate(2024, 3, 31));
        ResultatCli r =
            contrat({"ajouter", chemin, "--employeur", "Opéra", "--debut", "2024-03-10", "--fin", "2024-03-12"});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r).value("avertissement").toString(),
                 QStringLiteral("Ce contrat chevauche une période de Sécurité Sociale existante."));
        ajouterArretMaladie(chemin, QDate(2024, 4, 2), QDate(2024, 4, 3));
        r = contrat({"ajouter", chemin, "--employeur", "Opéra", "--debut", "2024-04-01", "--fin", "2024-04-05"});
        QCOMPARE(lireJson(r).value("avertissement").toString(),
                 QStringLiteral("Ce contrat chevauche plusieurs périodes de Sécurité Sociale existantes."));
        // Saved all the same.
        QCOMPARE(lignes(contrat({"lister", chemin})).size(), 2);
        // Text output: the warning under the confirmation.
        r = lancerCli({"--aujourdhui", kAujourdhui, "contrat", "ajouter", chemin, "--employeur", "Opéra", "--debut",
                       "2024-04-02"});
        QVERIFY(QString::fromUtf8(r.sortie).contains(QStringLiteral("plusieurs périodes")));
    }

    void texteLibre()
    {
        const QString chemin = document();
        const ResultatCli r =
            contrat({"ajouter", chemin, "--employeur", "Théâtre d'Orly", "--debut", "2024-03-04", "--note",
                     "Répétition de l'été", "--fonction", "Chef d'orchestre", "--lieu", "Salle \"l'Européen\"",
                     "--brut", "1 234,56", "--net", "987.65", "--paye", "--conges"});
        QCOMPARE(r.code, 0);
        const QJsonObject l = lignes(contrat({"lister", chemin})).first().toObject();
        QCOMPARE(l.value("Note").toString(), QStringLiteral("Répétition de l'été"));
        QCOMPARE(l.value("Fonction").toString(), QStringLiteral("Chef d'orchestre"));
        QCOMPARE(l.value("Lieu").toString(), QStringLiteral("Salle \"l'Européen\""));
        QCOMPARE(l.value("Salaire Brut").toDouble(), 1234.56);
        QCOMPARE(l.value("Salaire Net").toDouble(), 987.65);
        QCOMPARE(l.value("Paye").toInt(), 1);
        QCOMPARE(l.value("Conges").toInt(), 1);
        QCOMPARE(l.value("Annee Encaissement").toInt(), 2024);
    }

    void lister()
    {
        const QString chemin = document();
        const auto ajouter = [&](const QStringList& options) {
            QCOMPARE(contrat(QStringList{"ajouter", chemin} + options).code, 0);
        };
        ajouter({"--employeur", "Opéra", "--debut", "2023-11-02", "--fin", "2023-11-06", "--brut", "500", "--net",
                 "400", "--paye"});
        ajouter({"--employeur", "Théâtre d'Orly", "--debut", "2024-01-01", "--brut", "100,5"});
        ajouter({"--employeur", "Opéra", "--debut", "2024-07-01", "--type", "Formations", "--brut", "200"});
        ajouter({"--employeur", "Opéra", "--debut", "2025-01-01", "--emploi", "Ouvrier"});

        const auto ids = [](const QJsonArray& liste) {
            QList<int> r;
            for (const QJsonValue& v : liste)
                r << v.toObject().value("Id Contrat").toInt();
            return r;
        };
        QCOMPARE(ids(lignes(contrat({"lister", chemin, "--sens", "ASC"}))), (QList<int>{4, 3, 2, 1}));
        QCOMPARE(ids(lignes(contrat({"lister", chemin}))), (QList<int>{4, 3, 2, 1}));
        QCOMPARE(ids(lignes(contrat({"lister", chemin, "--periode", "annee"}))), (QList<int>{3, 2}));
        QCOMPARE(ids(lignes(
                     contrat({"lister", chemin, "--periode", "periode", "--du", "2023-11-02", "--au", "2024-01-01"}))),
                 (QList<int>{2, 1}));
        QCOMPARE(ids(lignes(contrat({"lister", chemin, "--effectue", "2"}))), (QList<int>{4, 3}));
        QCOMPARE(ids(lignes(contrat({"lister", chemin, "--paye", "1"}))), (QList<int>{1}));
        QCOMPARE(ids(lignes(contrat({"lister", chemin, "--type", "Formations"}))), (QList<int>{3}));
        QCOMPARE(ids(lignes(contrat({"lister", chemin, "--employeur", "Théâtre d'Orly"}))), (QList<int>{2}));
        QCOMPARE(ids(lignes(contrat({"lister", chemin, "--emploi", "Ouvrier"}))), (QList<int>{4}));

        // Nothing is written by a listing; bad filters are bad usage.
        const QByteArray avant = empreinte(chemin);
        QCOMPARE(contrat({"lister", chemin, "--periode", "semaine"}).code, 2);
        QCOMPARE(contrat({"lister", chemin, "--effectue", "3"}).code, 2);
        QCOMPARE(contrat({"lister", chemin, "--du", "2024-01-01"}).code, 2);
        QCOMPARE(contrat({"lister", chemin, "--employeur", "Inconnue"}).code, 1);
        QCOMPARE(empreinte(chemin), avant);
    }

    void supprimer()
    {
        const QString chemin = document();
        QCOMPARE(contrat({"ajouter", chemin, "--employeur", "Opéra", "--debut", "2024-03-04"}).code, 0);
        QCOMPARE(contrat({"ajouter", chemin, "--employeur", "Opéra", "--debut", "2024-03-05"}).code, 0);
        const int frais = ajouterFrais(chemin, QStringLiteral("Train"), 40);
        {
            BaseDeDonnees base;
            QVERIFY(base.ouvrir(chemin));
            base.exec(QStringLiteral("INSERT INTO contrats_frais (contrat_id, frais_id) VALUES (1, %1);").arg(frais));
        }
        ResultatCli r = contrat({"supprimer", chemin, "1"});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r).value("id").toInt(), 1);
        QCOMPARE(valeur(chemin, "SELECT COUNT(*) FROM contrats;"), QStringLiteral("1"));
        QCOMPARE(valeur(chemin, "SELECT COUNT(*) FROM contrats_frais;"), QStringLiteral("0"));
        QCOMPARE(valeur(chemin, "SELECT COUNT(*) FROM frais;"), QStringLiteral("1"));
        r = contrat({"supprimer", chemin, "1"});
        QCOMPARE(r.code, 1);
        QVERIFY(r.erreurs.contains(QStringLiteral("aucun contrat ne porte le numéro 1.")));
        QCOMPARE(contrat({"supprimer", chemin, "un"}).code, 2);
        QCOMPARE(contrat({"supprimer", chemin}).code, 2);
        QCOMPARE(contrat({}).code, 2);
        QCOMPARE(contrat({"effacer", chemin, "2"}).code, 2);
    }

    void documentManquant()
    {
        const ResultatCli r = contrat({"lister", m_dossier.filePath("absent.cv4")});
        QCOMPARE(r.code, 1);
        QVERIFY(!QFile::exists(m_dossier.filePath("absent.cv4")));
    }
};

QTEST_GUILESS_MAIN(TestCliContrats)
#include "test_cli_contrats.moc"
