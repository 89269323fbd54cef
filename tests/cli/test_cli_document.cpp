// corvane-cli run as a process: nouveau, info, ouvrir, and the bad inputs that must
// be refused with a French message and without a byte written.

#include "commun/OutilsDocument.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

class TestCliDocument : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;

    QString nouveau(const QString& nom, const QStringList& options = {})
    {
        const QString chemin = m_dossier.filePath(nom);
        const ResultatCli r = lancerCli(QStringList{"--json", "nouveau", chemin, "--nom", "Martin", "--prenom", "Léa",
                                                    "--emploi", "Artiste", "--ouverture", "2024-02-01"} +
                                        options);
        if (r.code != 0)
            qWarning() << r.erreurs;
        return chemin;
    }

    QString mauvaiseEntree(const QString& type)
    {
        const QString chemin = m_dossier.filePath("mauvais-" + type);
        if (type == "absent" || QFileInfo::exists(chemin))
            return chemin;
        if (type == "dossier") {
            QDir().mkpath(chemin);
            return chemin;
        }
        if (type == "texte") {
            ecrire(chemin, "Ceci n'est pas un document.\n");
            return chemin;
        }
        if (type == "vide") {
            ecrire(chemin, {});
            return chemin;
        }
        QFile source(nouveau("source-" + type + ".cv4"));
        if (!source.open(QIODevice::ReadOnly))
            return {};
        const QByteArray octets = source.readAll();
        if (type == "tronque")
            ecrire(chemin, octets.left(octets.size() / 3));
        else if (type == "endommage") {
            QByteArray abime = octets;
            for (qsizetype i = 3000; i < abime.size(); i += 5)
                abime[i] = char(0x5A);
            ecrire(chemin, abime);
        } else if (type == "lecture-seule") {
            ecrire(chemin, octets);
            QFile::setPermissions(chemin, QFile::ReadOwner | QFile::ReadGroup);
        }
        return chemin;
    }

private slots:
    void nouveauPuisInfo()
    {
        const QString chemin = m_dossier.filePath("léa.cv4");
        ResultatCli r = lancerCli({"--aujourdhui", "2016-07-31", "--json", "nouveau", chemin, "--nom", "L'Hermite",
                                   "--prenom", "Léa", "--emploi", "Artiste", "--ouverture", "2016-03-01", "--taux",
                                   "1 234,5", "--civilite", "Mme", "--sans-abattement", "--auto-entrepreneur"});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r), (QJsonObject{{"fichier", chemin}, {"generation", "4"}}));
        QVERIFY(r.erreurs.isEmpty());

        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(chemin));
        QCOMPARE(
            base.colonne("SELECT u_nom || '|' || u_taux_valide || '|' || u_abattement || '|' || "
                         "u_autoentrepreneur_flag || '|' || u_civilite_id || '|' || u_naissance FROM utilisateur;"),
            QStringList{"L'Hermite|1234.5|1|1|1|2016-07-31 00:00:00.000"});
        // Before 1 August 2016 the artists' period is 319 days long.
        QCOMPARE(base.texte("SELECT p_date_fin FROM periodes;"), QStringLiteral("2017-01-13 00:00:00.000"));
        base.fermer();

        r = lancerCli({"info", chemin, "--json"});
        QCOMPARE(r.code, 0);
        const QJsonObject info = lireJson(r);
        QCOMPARE(info.value("generation").toString(), QStringLiteral("4"));
        QCOMPARE(info.value("verrouille").toBool(true), false);
        const QJsonObject comptes = info.value("enregistrements").toObject();
        QCOMPARE(comptes.size(), 37);
        QCOMPARE(comptes.value("utilisateur").toInt(), 1);
        QCOMPARE(comptes.value("datesPeriodesPreferees").toInt(), 15);
        QCOMPARE(comptes.value("fraistypes").toInt(), 14);
        QCOMPARE(comptes.value("contrats").toInt(-1), 0);

        r = lancerCli({"info", chemin});
        QCOMPARE(r.code, 0);
        QVERIFY(QString::fromUtf8(r.sortie).contains(QStringLiteral("Génération : 4")));
    }

    void nouveauRefuse_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message");
        QTest::newRow("missing surname") << QStringList{"--prenom", "A",           "--emploi",
                                                        "Artiste",  "--ouverture", "2024-01-01"}
                                         << 2 << "--nom est obligatoire";
        QTest::newRow("malformed date") << QStringList{"--nom",    "A",       "--prenom",    "B",
                                                       "--emploi", "Artiste", "--ouverture", "01/02/2024"}
                                        << 2 << "date invalide";
        QTest::newRow("impossible date") << QStringList{"--nom",    "A",       "--prenom",    "B",
                                                        "--emploi", "Artiste", "--ouverture", "2023-02-29"}
                                         << 2 << "date invalide";
        QTest::newRow("unknown job") << QStringList{"--nom",    "A",     "--prenom",    "B",
                                                    "--emploi", "Clown", "--ouverture", "2024-01-01"}
                                     << 2 << "emploi inconnu";
        QTest::newRow("malformed rate") << QStringList{"--nom",   "A",           "--prenom",   "B",      "--emploi",
                                                       "Artiste", "--ouverture", "2024-01-01", "--taux", "douze"}
                                        << 2 << "montant invalide";
        QTest::newRow("unknown option") << QStringList{"--nom", "A", "--couleur", "rouge"} << 2 << "option inconnue";
    }

    void nouveauRefuse()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, code);
        QFETCH(QString, message);
        const QString chemin = m_dossier.filePath("refus.cv4");
        const ResultatCli r = lancerCli(QStringList{"nouveau", chemin} + arguments);
        QCOMPARE(r.code, code);
        QVERIFY2(r.erreurs.startsWith("corvane-cli: ") && r.erreurs.contains(message), qPrintable(r.erreurs));
        QVERIFY(r.sortie.isEmpty());
        QVERIFY(!QFileInfo::exists(chemin));
    }

    void nouveauSurUnFichierExistant()
    {
        const QString chemin = nouveau("existant.cv4");
        const QByteArray avant = empreinte(chemin);
        const ResultatCli r = lancerCli(
            {"nouveau", chemin, "--nom", "B", "--prenom", "C", "--emploi", "Ouvrier", "--ouverture", "2024-01-01"});
        QCOMPARE(r.code, 1);
        QVERIFY2(r.erreurs.contains(QStringLiteral("existe déjà")), qPrintable(r.erreurs));
        QCOMPARE(empreinte(chemin), avant);
    }

    void documentProtege()
    {
        const QString chemin = nouveau("protege.cv4", {"--mot-de-passe", "sésame"});
        ResultatCli r = lancerCli({"--json", "info", chemin});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r).value("verrouille").toBool(), true);
        QVERIFY(!lireJson(r).contains("enregistrements"));

        r = lancerCli({"--json", "--mot-de-passe", "sésame", "info", chemin});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r).value("enregistrements").toObject().value("utilisateur").toInt(), 1);
    }

    void infoNeChangeRien()
    {
        const QString chemin = m_dossier.filePath("ancien3.or3");
        documentDepuisScript("generation3.sql", chemin);
        const QByteArray avant = empreinte(chemin);
        const ResultatCli r = lancerCli({"--json", "info", chemin});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r).value("generation").toString(), QStringLiteral("3"));
        QCOMPARE(lireJson(r).value("enregistrements").toObject().value("contrats").toInt(), 5);
        QCOMPARE(empreinte(chemin), avant);
    }

    void ouvrirGeneration3()
    {
        const QString chemin = m_dossier.filePath("a-mettre-a-jour.or3");
        documentDepuisScript("generation3.sql", chemin);
        const ResultatCli r = lancerCli({"--json", "ouvrir", chemin});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r),
                 (QJsonObject{{"fichier", chemin}, {"generation_initiale", "3"}, {"converti", QJsonValue()}}));
        QCOMPARE(lireJson(lancerCli({"--json", "info", chemin})).value("generation").toString(), QStringLiteral("4"));
    }

    void ouvrirAncienneGeneration()
    {
        const QString chemin = m_dossier.filePath("vieux.orv");
        documentDepuisScript("generation2.sql", chemin);
        const QByteArray avant = empreinte(chemin);
        const QString copie = m_dossier.filePath("V3_vieux.or3");

        ResultatCli r = lancerCli({"--json", "ouvrir", chemin});
        QCOMPARE(r.code, 1);
        QVERIFY2(r.erreurs.contains(QStringLiteral("Ce fichier est issu de Orvia 2.")), qPrintable(r.erreurs));
        QVERIFY(!QFileInfo::exists(copie));

        r = lancerCli({"--json", "ouvrir", chemin, "--ne-pas-convertir"});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r),
                 (QJsonObject{{"fichier", QJsonValue()}, {"generation_initiale", "2"}, {"converti", QJsonValue()}}));
        QVERIFY(!QFileInfo::exists(copie));

        r = lancerCli({"--json", "ouvrir", chemin, "--convertir"});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r), (QJsonObject{{"fichier", copie}, {"generation_initiale", "2"}, {"converti", copie}}));
        QCOMPARE(empreinte(chemin), avant);
        QCOMPARE(lireJson(lancerCli({"--json", "info", copie})).value("generation").toString(), QStringLiteral("4"));
    }

    void mauvaisesEntrees_data()
    {
        QTest::addColumn<QString>("commande");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("message");
        for (const char* commande : {"info", "ouvrir"}) {
            const QString c = QString::fromLatin1(commande);
            QTest::addRow("%s: missing path", commande) << c << "absent"
                                                        << "introuvable";
            QTest::addRow("%s: directory", commande) << c << "dossier"
                                                     << "est un dossier";
            QTest::addRow("%s: text file", commande) << c << "texte"
                                                     << "n'est pas un fichier Corvane";
            QTest::addRow("%s: truncated database", commande) << c << "tronque"
                                                              << "endommagé";
            QTest::addRow("%s: damaged database", commande) << c << "endommage"
                                                            << "endommagé";
        }
        QTest::newRow("ouvrir: read-only document") << "ouvrir"
                                                    << "lecture-seule"
                                                    << "protégé en écriture";
        QTest::newRow("ouvrir: empty file") << "ouvrir"
                                            << "vide"
                                            << "aucune donnée";
    }

    void mauvaisesEntrees()
    {
        QFETCH(QString, commande);
        QFETCH(QString, type);
        QFETCH(QString, message);
        const QString chemin = mauvaiseEntree(type);
        const QByteArray avant = empreinte(chemin);
        const QStringList contenu = QDir(m_dossier.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
        const ResultatCli r = lancerCli({"--json", commande, chemin});
        QCOMPARE(r.code, 1);
        QVERIFY2(r.erreurs.startsWith("corvane-cli: ") && r.erreurs.contains(message), qPrintable(r.erreurs));
        QVERIFY(r.sortie.isEmpty());
        QCOMPARE(empreinte(chemin), avant);
        QCOMPARE(QDir(m_dossier.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), contenu);
    }

    void fichierVideEstGenerationZero()
    {
        const QString chemin = mauvaiseEntree("vide");
        const ResultatCli r = lancerCli({"--json", "info", chemin});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r).value("generation").toString(), QStringLiteral("0"));
        QVERIFY(!lireJson(r).contains("enregistrements"));
        QCOMPARE(QFileInfo(chemin).size(), 0);
    }

    // A broken page in a table the listing never reads: only the check of every page
    // finds it, which writes need and reads do without.
    void pageAbimee_data()
    {
        QTest::addColumn<QStringList>("commande");
        QTest::addColumn<int>("code");
        QTest::newRow("contrat lister") << QStringList{"contrat", "lister"} << 0;
        QTest::newRow("employeur ajouter")
            << QStringList{"employeur", "ajouter", "--nom", "Opéra", "--commune", "Lyon"} << 1;
    }

    void pageAbimee()
    {
        QFETCH(QStringList, commande);
        QFETCH(int, code);
        const QString chemin = nouveau(QStringLiteral("page-abimee-%1.cv4").arg(QTest::currentDataTag()));
        qint64 racine = 0;
        qint64 taillePage = 0;
        {
            BaseDeDonnees base;
            QVERIFY(base.ouvrirEnLecture(chemin));
            racine = base.entier(QStringLiteral("SELECT rootpage FROM sqlite_master WHERE name = 'propositions';"));
            taillePage = base.entier(QStringLiteral("PRAGMA page_size;"));
        }
        QVERIFY(racine > 1);
        QFile fichier(chemin);
        QVERIFY(fichier.open(QIODevice::ReadWrite));
        QVERIFY(fichier.seek((racine - 1) * taillePage));
        QCOMPARE(fichier.write(QByteArray(1, '\x00')), 1); // no such page type
        fichier.close();
        const QByteArray avant = empreinte(chemin);

        const ResultatCli r =
            lancerCli(QStringList{"--json", commande.at(0), commande.at(1), chemin} + commande.mid(2));
        QVERIFY2(r.code == code, qPrintable(r.erreurs));
        if (code != 0) {
            QVERIFY2(r.erreurs.contains("endommagé"), qPrintable(r.erreurs));
            QCOMPARE(empreinte(chemin), avant);
        }
    }

    // Only `pdf` lays text out: the other commands start without any display platform.
    void sansPlateformeGraphique()
    {
        const QString chemin = nouveau(QStringLiteral("sans-plateforme.cv4"));
        qputenv("QT_QPA_PLATFORM", "aucune");
        const auto retablir = qScopeGuard([] { qputenv("QT_QPA_PLATFORM", "offscreen"); });
        for (const QStringList& commande : {QStringList{"info", chemin}, QStringList{"contrat", "lister", chemin},
                                            QStringList{"profil", "afficher", chemin}}) {
            const ResultatCli r = lancerCli(QStringList{"--json"} + commande);
            QVERIFY2(r.code == 0 && r.erreurs.isEmpty(), qPrintable(commande.join(' ') + " : " + r.erreurs));
        }
    }

    void sauvegarder()
    {
        const QString chemin = nouveau("a-sauver.cv4");
        const QString copie = m_dossier.filePath("copie de sûreté.cv4");
        ResultatCli r = lancerCli({"--aujourdhui", "2025-01-02", "--json", "sauvegarder", chemin, copie});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r), (QJsonObject{{"copie", copie}, {"date", "2025-01-02"}}));
        QCOMPARE(Fichiers().checkVersion(copie), QStringLiteral("4"));
        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(chemin));
        QCOMPARE(base.texte("SELECT fs_date FROM fichiersauvegardes WHERE fs_id = 1;"),
                 QStringLiteral("2025-01-02 00:00:00.000"));
        base.fermer();

        const QByteArray avant = empreinte(chemin);
        r = lancerCli({"sauvegarder", chemin, m_dossier.filePath("absent/copie.cv4")});
        QCOMPARE(r.code, 1);
        QVERIFY2(r.erreurs.contains(QStringLiteral("n'a pas pu être effectuée")), qPrintable(r.erreurs));
        QCOMPARE(empreinte(chemin), avant);

        r = lancerCli({"sauvegarder", chemin, chemin});
        QCOMPARE(r.code, 1);
        QCOMPARE(empreinte(chemin), avant);

        const QString protege = nouveau("a-sauver-protege.cv4", {"--mot-de-passe", "m"});
        r = lancerCli({"sauvegarder", protege, m_dossier.filePath("copie-protegee.cv4")});
        QCOMPARE(r.code, 1);
        QVERIFY(!QFileInfo::exists(m_dossier.filePath("copie-protegee.cv4")));
        r = lancerCli({"--mot-de-passe", "m", "sauvegarder", protege, m_dossier.filePath("copie-protegee.cv4")});
        QCOMPARE(r.code, 0);
    }

    void usage_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("no command") << QStringList{};
        QTest::newRow("unknown command") << QStringList{"supprimer-tout"};
        QTest::newRow("info without a file") << QStringList{"info"};
        QTest::newRow("info with two files") << QStringList{"info", "a", "b"};
        QTest::newRow("bad --aujourdhui") << QStringList{"--aujourdhui", "demain", "info", "a"};
        QTest::newRow("both answers") << QStringList{"ouvrir", "a", "--convertir", "--ne-pas-convertir"};
    }

    void usage()
    {
        QFETCH(QStringList, arguments);
        const ResultatCli r = lancerCli(arguments);
        QCOMPARE(r.code, 2);
        QVERIFY(r.erreurs.contains(QStringLiteral("usage")) || r.erreurs.startsWith("corvane-cli: "));
    }
};

QTEST_GUILESS_MAIN(TestCliDocument)
#include "test_cli_document.moc"
