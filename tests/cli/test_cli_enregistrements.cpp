// corvane-cli run as a process on a document's records: profil, employeur, modele and
// periode. Refusals give the system's message, exit 1 and leave the file untouched.

#include "commun/OutilsDocument.h"

#include <QJsonArray>
#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

class TestCliEnregistrements : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    // A document made by the command line, rights opened on 2024-02-01 (as of 2024-06-15).
    QString nouveau(const QString& emploi = "Artiste", const QStringList& options = {})
    {
        const QString chemin = m_dossier.filePath(QStringLiteral("d%1.cv4").arg(++m_numero));
        const ResultatCli r =
            lancerCli(QStringList{"--aujourdhui", "2024-06-15", "nouveau", chemin, "--nom", "Martin", "--prenom", "Léa",
                                  "--emploi", emploi, "--ouverture", "2024-02-01"} +
                      options);
        if (r.code != 0)
            qWarning() << r.erreurs;
        return chemin;
    }

    static ResultatCli cli(const QStringList& arguments)
    {
        return lancerCli(QStringList{"--aujourdhui", "2024-06-15", "--json"} + arguments);
    }

    static QVariant valeur(const QString& chemin, const QString& sql)
    {
        BaseDeDonnees base;
        if (!base.ouvrirEnLecture(chemin))
            return {};
        const Lignes l = base.lignes(sql);
        return l.isEmpty() ? QVariant() : l.first().values().value(0);
    }

    // A refusal: exit 1, the message on stderr, the document unchanged.
    void refuse(const QString& chemin, const QStringList& arguments, const QString& message, int codeAttendu = 1)
    {
        const QByteArray avant = empreinte(chemin);
        const ResultatCli r = cli(arguments);
        QCOMPARE(r.code, codeAttendu);
        QVERIFY2(r.erreurs.contains(message), qPrintable(r.erreurs));
        QVERIFY(r.erreurs.startsWith("corvane-cli: "));
        QVERIFY(r.sortie.isEmpty());
        QCOMPARE(empreinte(chemin), avant);
    }

private slots:
    void profilAfficher()
    {
        const QString chemin = nouveau();
        const ResultatCli r = cli({"profil", "afficher", chemin});
        QCOMPARE(r.code, 0);
        const QJsonObject profil = lireJson(r);
        QCOMPARE(profil.value("u_nom").toString(), QStringLiteral("Martin"));
        QCOMPARE(profil.value("u_date_debut_dossier").toString(), QStringLiteral("2024-02-01 00:00:00.000"));
        QCOMPARE(profil.value("u_emploi_id").toInt(), 1);
        QVERIFY(profil.value("u_emploi_id").isDouble()); // numbers are numbers
        QVERIFY(profil.contains("u_photo"));
        QVERIFY(profil.contains("u_autoentrepreneur_periode"));
        // A document just created has not had the upgrade pass: its last columns read as their defaults.
        QCOMPARE(profil.value("u_rib_iban").toString(), QStringLiteral(""));
        QVERIFY(profil.value("u_pas").isDouble());
        // Reading changes nothing.
        const QByteArray avant = empreinte(chemin);
        QCOMPARE(cli({"profil", "afficher", chemin}).code, 0);
        QCOMPARE(empreinte(chemin), avant);
    }

    void profilModifier_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QString>("colonne");
        QTest::addColumn<QVariant>("attendu");
        QTest::newRow("name with a quote") << QStringList{"--nom", "L'Hermite"} << "u_nom" << QVariant("L'Hermite");
        QTest::newRow("emptied first name") << QStringList{"--prenom", ""} << "u_prenom" << QVariant("");
        QTest::newRow("postal code") << QStringList{"--cp", "94'240"} << "u_codepostal" << QVariant("94'240");
        QTest::newRow("town") << QStringList{"--commune", "L'Haÿ-les-Roses"} << "u_commune"
                              << QVariant("L'Haÿ-les-Roses");
        QTest::newRow("IBAN") << QStringList{"--iban", "FR76 3000"} << "u_rib_iban" << QVariant("FR76 3000");
        QTest::newRow("job") << QStringList{"--emploi", "Technicien"} << "u_emploi_id" << QVariant(3);
        QTest::newRow("civility") << QStringList{"--civilite", "Mme"} << "u_civilite_id" << QVariant(1);
        QTest::newRow("abatement 25 %") << QStringList{"--abattement", "25"} << "u_abattement" << QVariant(3);
        QTest::newRow("renounce the abatement")
            << QStringList{"--renoncer-abattement", "1"} << "u_abattement" << QVariant(1);
        QTest::newRow("25 % then the box cleared gives 20 %")
            << QStringList{"--abattement", "25", "--renoncer-abattement", "0"} << "u_abattement" << QVariant(2);
        QTest::newRow("date of birth") << QStringList{"--naissance", "1985-03-12"} << "u_naissance"
                                       << QVariant("1985-03-12 00:00:00.000");
        QTest::newRow("reference wage") << QStringList{"--srj", "1 234,5"} << "u_srj_valide" << QVariant(1234.5);
        QTest::newRow("rate") << QStringList{"--taux", "57,25"} << "u_taux_valide" << QVariant(57.25);
        QTest::newRow("opening date") << QStringList{"--ouverture", "2024-05-01"} << "u_date_debut_dossier"
                                      << QVariant("2024-05-01 00:00:00.000");
        QTest::newRow("opening date with its wage")
            << QStringList{"--ouverture", "2024-05-01", "--srj", "88,46"} << "u_srj_valide" << QVariant(88.46);
        QTest::newRow("children") << QStringList{"--enfants", "2"} << "u_nbre_enfants" << QVariant(2);
        QTest::newRow("vehicle power") << QStringList{"--puissance", "5"} << "u_vehicule_puissance" << QVariant(5);
        QTest::newRow("self-employment periodicity")
            << QStringList{"--ae-periodicite", "1"} << "u_autoentrepreneur_periode" << QVariant(1);
        const QString photo = m_dossier.filePath("l'été.jpg");
        ecrire(photo, "JPEG");
        QTest::newRow("photo") << QStringList{"--photo", photo} << "u_photo" << QVariant(photo);
    }

    void profilModifier()
    {
        QFETCH(QStringList, options);
        QFETCH(QString, colonne);
        QFETCH(QVariant, attendu);
        const QString chemin = nouveau();
        const ResultatCli r = cli(QStringList{"profil", "modifier", chemin} + options);
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r).value(colonne).toVariant().toString(), attendu.toString()); // the profile is printed
        QCOMPARE(valeur(chemin, QStringLiteral("SELECT %1 FROM utilisateur;").arg(colonne)).toString(),
                 attendu.toString());
        QCOMPARE(valeur(chemin, QStringLiteral("SELECT typeof(%1) FROM utilisateur;").arg(colonne)).toString() ==
                     "null",
                 false);
    }

    void profilRefus_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("code");
        QTest::newRow("unknown job") << QStringList{"--emploi", "Danseur"} << "emploi inconnu" << 2;
        QTest::newRow("unknown abatement") << QStringList{"--abattement", "30"} << "abattement inconnu" << 2;
        QTest::newRow("bad date") << QStringList{"--naissance", "12/03/1985"} << "date invalide" << 2;
        QTest::newRow("bad amount") << QStringList{"--srj", "douze"} << "montant invalide" << 2;
        QTest::newRow("below the cent") << QStringList{"--srj", "88,456"} << "deux décimales au plus" << 2;
        QTest::newRow("unknown option") << QStringList{"--chapeau", "x"} << "option inconnue" << 2;
    }

    void profilRefus()
    {
        QFETCH(QStringList, options);
        QFETCH(QString, message);
        QFETCH(int, code);
        const QString chemin = nouveau();
        refuse(chemin, QStringList{"profil", "modifier", chemin} + options, message, code);
    }

    void documentProtege()
    {
        const QString chemin = nouveau("Artiste", {"--mot-de-passe", "sésame"});
        refuse(chemin, {"profil", "modifier", chemin, "--nom", "X"}, "mot de passe");
        refuse(chemin, {"periode", "lister", chemin}, "mot de passe");
        refuse(chemin, {"--mot-de-passe", "faux", "employeur", "ajouter", chemin, "--nom", "A", "--commune", "B"},
               "mot de passe est incorrect");
        const ResultatCli r = cli({"--mot-de-passe", "sésame", "profil", "modifier", chemin, "--nom", "X"});
        QCOMPARE(r.code, 0);
        QCOMPARE(valeur(chemin, "SELECT u_nom FROM utilisateur;").toString(), QStringLiteral("X"));
    }

    void documentsRefuses()
    {
        const QString absent = m_dossier.filePath("absent.cv4");
        const ResultatCli r = cli({"employeur", "lister", absent});
        QCOMPARE(r.code, 1);
        QVERIFY(!QFileInfo::exists(absent));
        const QString ancien = m_dossier.filePath("ancien.or3");
        documentDepuisScript("generation3.sql", ancien);
        refuse(ancien, {"periode", "ajouter", ancien, "--debut", "2024-01-01"}, "ouvrez-le d'abord");
        refuse(ancien, {"employeur", "lister", ancien}, "ouvrez-le d'abord");
        refuse(ancien, {"profil", "chapeau", ancien}, "action inconnue", 2);
    }

    void employeurs()
    {
        const QString chemin = nouveau();
        ResultatCli r =
            cli({"employeur", "ajouter", chemin, "--nom", "Théâtre de l'Œuvre", "--commune", "Paris", "--cp", "75009",
                 "--adresse", "55 rue de Clichy", "--interlocuteur", "M. d'Artagnan", "--non-conventionne", "--guso"});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r), (QJsonObject{{"id", 2}}));
        // Same name, another town: both kept.
        r = cli({"employeur", "ajouter", chemin, "--nom", "Théâtre de l'Œuvre", "--commune", "Lyon", "--cp", "75009"});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r).value("id").toInt(), 3);
        // Same name, postal code and town: refused.
        refuse(chemin,
               {"employeur", "ajouter", chemin, "--nom", "Théâtre de l'Œuvre", "--commune", "Paris", "--cp", "75009"},
               "Cet employeur existe déjà.");
        refuse(chemin, {"employeur", "ajouter", chemin, "--nom", "A", "--commune", "B", "--modele", "Aucun"},
               "Le modèle « Aucun » n'existe pas.");
        refuse(chemin, {"employeur", "ajouter", chemin, "--nom", "A"}, "--commune est obligatoire", 2);

        r = cli({"employeur", "lister", chemin});
        QCOMPARE(r.code, 0);
        const QJsonArray liste = lireJson(r).value("employeurs").toArray();
        QCOMPARE(liste.size(), 3);
        QCOMPARE(liste[0].toObject().value("Enseigne").toString(), QStringLiteral("Inconnu"));
        const QJsonObject oeuvre = liste[1].toObject();
        QCOMPARE(oeuvre.value("Id").toInt(), 2);
        QCOMPARE(oeuvre.value("Enseigne").toString(), QStringLiteral("Théâtre de l'Œuvre"));
        QCOMPARE(oeuvre.value("Code Postal").toString(), QStringLiteral("75009"));
        QCOMPARE(oeuvre.value("Interlocuteur").toString(), QStringLiteral("M. d'Artagnan"));
        QCOMPARE(oeuvre.value("Conventionne").toInt(), 0);
        QCOMPARE(oeuvre.value("Is Guso").toInt(), 1);
        QCOMPARE(oeuvre.value("Qualité Id").toInt(), 2);
        QCOMPARE(oeuvre.value("Couleur").toString(), QStringLiteral("0,0,0"));
        QCOMPARE(oeuvre.keys().size(), 21);
        QCOMPARE(liste[2].toObject().value("Commune").toString(), QStringLiteral("Lyon"));
    }

    void suppressionEmployeur()
    {
        const QString chemin = nouveau();
        QCOMPARE(cli({"employeur", "ajouter", chemin, "--nom", "Avec", "--commune", "Paris"}).code, 0);
        QCOMPARE(cli({"employeur", "ajouter", chemin, "--nom", "Sans", "--commune", "Paris"}).code, 0);
        QCOMPARE(cli({"modele", "ajouter", chemin, "--libelle", "De Sans", "--employeur", "Sans"}).code, 0);
        QCOMPARE(cli({"modele", "ajouter", chemin, "--libelle", "D'Avec", "--employeur", "Avec"}).code, 0);
        {
            BaseDeDonnees base;
            QVERIFY(base.ouvrir(chemin));
            base.exec("INSERT INTO contrats (c_employeur_id, c_nbre_heures) VALUES (2, 12), (2, 8);");
        }
        refuse(chemin, {"employeur", "supprimer", chemin, "2"},
               "Des contrats sont attribués à cet employeur.\n\nSouhaitez-vous tout supprimer, ou ne rien faire ?");
        refuse(chemin, {"employeur", "supprimer", chemin, "99"}, "Cet employeur n'existe pas.");
        refuse(chemin, {"employeur", "supprimer", chemin, "deux"}, "identifiant invalide", 2);

        ResultatCli r = cli({"employeur", "supprimer", chemin, "2", "--tout"});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r), (QJsonObject{{"supprime", 2}, {"contrats", 2}, {"modeles", 0}}));
        QCOMPARE(valeur(chemin, "SELECT COUNT(*) FROM contrats;").toInt(), 0);
        QCOMPARE(valeur(chemin, "SELECT COUNT(*) FROM contratsmodeles;").toInt(), 2); // templates stay

        r = cli({"employeur", "supprimer", chemin, "3"});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r), (QJsonObject{{"supprime", 3}, {"contrats", 0}, {"modeles", 1}}));
        QCOMPARE(valeur(chemin, "SELECT COUNT(*) FROM employeurs;").toInt(), 1);
        QCOMPARE(valeur(chemin, "SELECT cm_libelle FROM contratsmodeles;").toString(), QStringLiteral("D'Avec"));
    }

    void modeles()
    {
        const QString chemin = nouveau("Technicien");
        QCOMPARE(cli({"employeur", "ajouter", chemin, "--nom", "L'Odéon", "--commune", "Paris"}).code, 0);
        ResultatCli r =
            cli({"modele", "ajouter", chemin, "--libelle", "Régie d'un soir", "--type", "Enseignements", "--jours", "2",
                 "--heures", "16", "--brut", "1 234,57", "--net", "950,5", "--employeur", "L'Odéon"});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r), (QJsonObject{{"id", 1}}));
        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(chemin));
        const Ligne m = base.lignes("SELECT * FROM contratsmodeles;").value(0);
        QCOMPARE(m.value("cm_libelle").toString(), QStringLiteral("Régie d'un soir"));
        QCOMPARE(m.value("cm_emploi_id").toInt(), 3); // the profile's job
        QCOMPARE(m.value("cm_type_id").toInt(), 2);
        QCOMPARE(m.value("cm_nbre_heures").toInt(), 16);
        QCOMPARE(m.value("cm_salaire_brut").toDouble(), 1234.57);
        QCOMPARE(m.value("cm_employeur").toInt(), 2);
        base.fermer();

        r = cli({"modele", "ajouter", chemin, "--libelle", "Vente", "--emploi", "Auto Entrepreneur", "--type",
                 "Prestations de services BNC"});
        QCOMPARE(r.code, 0);
        QCOMPARE(valeur(chemin, "SELECT cm_type_id FROM contratsmodeles WHERE cm_libelle = 'Vente';").toInt(), 102);

        refuse(chemin, {"modele", "ajouter", chemin, "--libelle", "Régie d'un soir"}, "Un modèle porte déjà ce nom.");
        refuse(chemin, {"modele", "ajouter", chemin, "--libelle", "X", "--employeur", "Personne"},
               "L'employeur « Personne » n'existe pas.");
        refuse(chemin, {"modele", "ajouter", chemin, "--libelle", "X", "--type", "Cirque"}, "type inconnu", 2);
    }

    void periodeDefauts_data()
    {
        QTest::addColumn<QString>("aujourdhui");
        QTest::addColumn<QString>("emploi");
        QTest::addColumn<QString>("fin");
        QTest::newRow("artist before 1 August 2016") << "2016-07-31"
                                                     << "Artiste"
                                                     << "2017-07-15";
        QTest::newRow("artist from 1 August 2016") << "2016-08-01"
                                                   << "Artiste"
                                                   << "2017-08-31";
        QTest::newRow("technician before 1 August 2016") << "2016-07-31"
                                                         << "Technicien"
                                                         << "2017-06-30";
        QTest::newRow("technician from 1 August 2016") << "2016-08-01"
                                                       << "Technicien"
                                                       << "2017-08-31";
    }

    void periodeDefauts()
    {
        // A start on 2016-08-31; the length depends on today, not on the start.
        QFETCH(QString, aujourdhui);
        QFETCH(QString, emploi);
        QFETCH(QString, fin);
        const QString chemin = nouveau(emploi);
        const ResultatCli r =
            lancerCli({"--aujourdhui", aujourdhui, "--json", "periode", "ajouter", chemin, "--debut", "2016-08-31"});
        QCOMPARE(r.code, 0);
        const int id = lireJson(r).value("id").toInt();
        QCOMPARE(id, 2);
        const Ligne p = [&] {
            BaseDeDonnees base;
            base.ouvrirEnLecture(chemin);
            return base.lignes("SELECT * FROM periodes WHERE p_id = 2;").value(0);
        }();
        QCOMPARE(p.value("p_date_fin").toString(), fin + " 00:00:00.000");
        QCOMPARE(p.value("p_libelle").toString(), QStringLiteral("Période du 31/08/2016 au %1")
                                                      .arg(QDate::fromString(fin, Qt::ISODate).toString("dd/MM/yyyy")));
        QCOMPARE(p.value("p_attente").toInt(), 7);
        QCOMPARE(p.value("p_notes").toString(), QString());
    }

    void periodes()
    {
        const QString chemin = nouveau();
        // The document's period: 2024-02-01 to 2025-01-31.
        refuse(chemin,
               {"periode", "ajouter", chemin, "--debut", "2024-02-01", "--fin", "2025-01-31", "--libelle", "Autre"},
               "Cette période existe déjà.");
        refuse(chemin, {"periode", "ajouter", chemin, "--debut", "2024-02-01", "--fin", "2024-01-31"},
               "La fin de la période ne peut pas précéder son début.");
        refuse(chemin, {"periode", "ajouter", chemin, "--debut", "2024-02-01", "--maj-profil"}, "--srj", 2);
        ResultatCli r = cli(
            {"periode",   "ajouter",         chemin,    "--debut",      "2024-02-01", "--fin", "2025-01-30",
             "--libelle", "Période d'essai", "--notes", "Note d'été",   "--conges",   "3",     "--franchise-salaires",
             "4",         "--attente",       "0",       "--maj-profil", "--srj",      "80",    "--taux",
             "55,56"});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r), (QJsonObject{{"id", 2}}));
        QCOMPARE(valeur(chemin, "SELECT u_taux_valide FROM utilisateur;").toDouble(), 55.56);

        r = cli({"periode", "lister", chemin});
        QCOMPARE(r.code, 0);
        const QJsonObject liste = lireJson(r);
        QCOMPARE(liste.value("periodeEnCours").toInt(), 1);
        const QJsonArray lignes = liste.value("periodes").toArray();
        QCOMPARE(lignes.size(), 2);
        const QJsonObject essai = lignes[0].toObject(); // same start: both come first by date
        QStringList cles = essai.keys();
        QCOMPARE(cles, (QStringList{"Congés", "Début", "Début SQLite", "Délai d'attente", "Fin", "Fin SQLite",
                                    "Franchise salaires", "Id", "Libelle", "Notes"}));

        refuse(chemin, {"periode", "supprimer", chemin, "1"},
               "Cette période est en cours d'utilisation, vous ne pouvez pas la supprimer.");
        refuse(chemin, {"periode", "activer", chemin, "9"}, "Cette période n'existe pas.");
        r = cli({"periode", "activer", chemin, "2"});
        QCOMPARE(r.code, 0);
        QCOMPARE(valeur(chemin, "SELECT u_periode_en_cours FROM utilisateur;").toInt(), 2);
        r = cli({"periode", "supprimer", chemin, "1"});
        QCOMPARE(r.code, 0);
        QCOMPARE(lireJson(r), (QJsonObject{{"supprime", 1}}));
        QCOMPARE(valeur(chemin, "SELECT p_libelle FROM periodes;").toString(), QStringLiteral("Période d'essai"));
        QCOMPARE(valeur(chemin, "SELECT p_franchise_salaires FROM periodes;").toInt(), 4);
    }

    void texteSansJson()
    {
        const QString chemin = nouveau();
        const ResultatCli r = lancerCli({"--aujourdhui", "2024-06-15", "periode", "lister", chemin});
        QCOMPARE(r.code, 0);
        QVERIFY(QString::fromUtf8(r.sortie).contains("Période du 01/02/2024 au 31/01/2025"));
        const ResultatCli p = lancerCli({"profil", "afficher", chemin});
        QVERIFY(QString::fromUtf8(p.sortie).contains("Léa Martin"));
    }
};

QTEST_GUILESS_MAIN(TestCliEnregistrements)
#include "test_cli_enregistrements.moc"
