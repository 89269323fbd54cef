// The upgrade pass: a generation-3 document brought to generation 4, with the
// differences from a new document that upgraded documents keep.

#include "commun/OutilsDocument.h"
#include "store/Fichiers.h"
#include "store/Horloge.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

class TestMiseAJour : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    QString m_chemin;

    QString colonneDeclaree(BaseDeDonnees& base, const QString& table, const QString& colonne, const char* champ)
    {
        for (const Ligne& l : base.lignes(QStringLiteral("PRAGMA table_info(%1);").arg(table)))
            if (l.value("name").toString() == colonne)
                return l.value(champ).isNull() ? QStringLiteral("<aucun>") : l.value(champ).toString();
        return QStringLiteral("<absente>");
    }

    // A new document changed by `sql`, then opened as the program does.
    QString ouvertApres(const QString& nom, const QString& sql)
    {
        const QString chemin = creerDocument(parametresParDefaut(m_dossier.filePath(nom)));
        {
            BaseDeDonnees base;
            if (base.ouvrir(chemin))
                base.exec(sql);
        }
        return ouvrirDocument(chemin) == chemin ? chemin : QString();
    }

private slots:
    void initTestCase()
    {
        Horloge::fixer(QDate(2024, 6, 15));
        m_chemin = m_dossier.filePath("g3.or3");
        documentDepuisScript("generation3.sql", m_chemin);
        Fichiers fichiers;
        QCOMPARE(fichiers.checkVersion(m_chemin), QStringLiteral("3"));
        DialoguesScriptes dialogues;
        QCOMPARE(fichiers.ouvertureSQLite(m_chemin, QString(), dialogues), m_chemin);
        QVERIFY2(fichiers.erreur().isEmpty(), qPrintable(fichiers.erreur()));
        QVERIFY(dialogues.echanges().isEmpty());
    }

    void devientGeneration4()
    {
        Fichiers fichiers;
        QCOMPARE(fichiers.checkVersion(m_chemin), QStringLiteral("4"));
    }

    void lignesDeReference_data()
    {
        QTest::addColumn<QString>("requete");
        QTest::addColumn<QStringList>("attendu");
        QTest::newRow("emplois: the two additions in order")
            << "SELECT e_emploi FROM emplois ORDER BY e_id"
            << QStringList{"Artiste", "Ouvrier", "Technicien", "Régime Général", "Auto Entrepreneur"};
        QTest::newRow("contract kinds gain 'Régime Général'")
            << "SELECT ct_type FROM contratstypes ORDER BY ct_id"
            << QStringList{"Prestations", "Enseignements", "Formations", "Régime Général"};
        QTest::newRow("sickness kinds gain three")
            << "SELECT sst_type FROM securitesocialetypes ORDER BY sst_id"
            << QStringList{"Accident du travail",      "Maladie",  "Maternité", "Paternité", "Consultation Généraliste",
                           "Consultation Spécialiste", "Pharmacie"};
        QTest::newRow("organisations: first six, then Agessa and SACD")
            << "SELECT dvo_id || ':' || dvo_nom FROM droitsvoisinsorganismes ORDER BY dvo_id"
            << QStringList{"1:Adami", "2:Sacem", "3:Scpp", "4:Spedidam", "5:Sppf", "6:Spré", "7:Agessa", "8:SACD"};
        QTest::newRow("categories: the conductor's insert fails")
            << "SELECT dvt_type FROM droitsvoisinstypes ORDER BY dvt_id"
            << QStringList{"Artiste-interprète", "Cascadeur", "Chanteur", "Comédien", "Danseur", "Divers", "Musicien"};
        QTest::newRow("legal forms: the works council's insert fails, 'Aucune' keeps id 2")
            << "SELECT q_id || ':' || q_libelle FROM qualites ORDER BY q_id"
            << QStringList{"1:Association", "2:Aucune", "3:Entreprise", "4:Particulier"};
        QTest::newRow("delays: (15, 0) twice") << "SELECT d_nombre || ',' || d_type FROM delais ORDER BY d_id"
                                               << QStringList{"7,0", "15,0", "1,1", "2,1", "15,0"};
        QTest::newRow("sixth discount is a rate")
            << "SELECT r_montant || ',' || r_type FROM remises ORDER BY r_id"
            << QStringList{"0.0,-1", "5.0,0", "10.0,0", "15.0,0", "20.0,0", "50.0,0", "200.0,1"};
        QTest::newRow("services seeded, priced per person 0")
            << "SELECT COUNT(*) || ',' || SUM(pt_par_personne) FROM prestationstypes" << QStringList{"10,0"};
        QTest::newRow("self-employment kinds")
            << "SELECT ae_id FROM autoentrepreneurtypes ORDER BY ae_id" << QStringList{"100", "101", "102", "103"};
        QTest::newRow("file row, version 4, unlocked, no password")
            << "SELECT f_id || ',' || f_version || ',' || f_locked || ',' || ifnull(f_password, 'NULL') FROM file"
            << QStringList{"1,4,0,NULL"};
    }

    void lignesDeReference()
    {
        QFETCH(QString, requete);
        QFETCH(QStringList, attendu);
        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(m_chemin));
        QCOMPARE(base.colonne(requete), attendu);
    }

    void colonnesAjoutees_data()
    {
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("colonne");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("defaut");
        // table, column, declared type, declared default
        const char* const lignes[][4] = {
            {"employeurs", "e_prospect", "", "0"},
            {"employeurs", "e_no_siret", "", "''"},
            {"employeurs", "e_no_licence_spectacle", "", "''"},
            {"frais", "f_rembourse", "INTEGER", "1"},
            {"utilisateur", "u_annee_blanche", "TINYINT", "0"},
            {"file", "f_password", "VARCHAR", "<aucun>"},
            {"propositions", "p_nbre_personnes", "INTEGER", "0"},
            {"contratsmodeles", "cm_employeur", "INTEGER", "1"},
            {"contratsmodeles", "cm_salaire_net_a_payer", "REAL", "0"},
            {"securitesociale", "ss_total_ij", "REAL", "0"},
            {"securitesociale", "ss_ald", "INTEGER", "0"},
            {"securitesociale", "ss_rembourse_mutuelle", "INTEGER", "0"},
            {"employeurs", "e_conventionne", "INTEGER", "1"},
            {"employeurs", "e_latitude", "REAL", "0"},
            {"employeurs", "e_qualite_id", "INTEGER", "2"},
            {"contrats", "c_aem_fp", "INTEGER", "1"},
            {"contrats", "c_pas", "REAL", "0"},
            {"utilisateur", "u_pas", "REAL", "0"},
            {"utilisateur", "u_rib_iban", "VARCHAR", "''"},
            {"utilisateur", "u_sacem", "VARCHAR", "''"},
            {"utilisateur", "u_ae_activite", "INTEGER", "1"},
            {"periodes", "p_attente", "TINYINT", "7"},
            {"periodes", "p_conges", "TINYINT", "0"},
        };
        for (const auto& l : lignes)
            QTest::addRow("%s.%s", l[0], l[1]) << l[0] << l[1] << l[2] << l[3];
    }

    void colonnesAjoutees()
    {
        QFETCH(QString, table);
        QFETCH(QString, colonne);
        QFETCH(QString, type);
        QFETCH(QString, defaut);
        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(m_chemin));
        QCOMPARE(colonneDeclaree(base, table, colonne, "type"), type);
        QCOMPARE(colonneDeclaree(base, table, colonne, "dflt_value"), defaut);
    }

    void contratsCompletes_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("datesTravaillees");
        QTest::addColumn<int>("anneeEncaissement");
        QTest::newRow("one day, no list: the start's day") << 1 << "5/10/2013" << 2013;
        QTest::newRow("list within a month, no zero padding") << 2 << "3/11/2013,4/11/2013,12/11/2013" << 2013;
        QTest::newRow("largest day takes the end's month, however the days fall")
            << 3 << "30/1/2014,31/2/2014,2/1/2014" << 2014;
        QTest::newRow("across the clock change") << 5 << "29/3/2014,30/3/2014,31/4/2014,1/3/2014" << 2014;
        QTest::newRow("NULL list: the start's day") << 6 << "10/6/2014" << 2014;
    }

    void contratsCompletes()
    {
        QFETCH(int, id);
        QFETCH(QString, datesTravaillees);
        QFETCH(int, anneeEncaissement);
        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(m_chemin));
        QCOMPARE(base.texte("SELECT c_dates_travaillees FROM contrats WHERE c_id = ?;", {id}), datesTravaillees);
        QCOMPARE(base.entier("SELECT c_annee_encaissement FROM contrats WHERE c_id = ?;", {id}),
                 qint64(anneeEncaissement));
    }

    void donneesConservees()
    {
        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(m_chemin));
        QCOMPARE(base.texte("SELECT u_pseudonyme FROM utilisateur WHERE u_id = 1;"), QStringLiteral("Léna D'Arc"));
        QCOMPARE(base.entier("SELECT COUNT(*) FROM contrats;"), 5);
        QCOMPARE(base.texte("SELECT e_raison_sociale FROM employeurs WHERE e_id = 2;"),
                 QStringLiteral("Théâtre de l'Odéon"));
        QCOMPARE(base.reel("SELECT ah_montant FROM assedichistorique;"), 1180.62);
        QCOMPARE(base.entier("SELECT COUNT(*) FROM contrats_frais;"), 0);
        QCOMPARE(base.entier("SELECT COUNT(*) FROM frais WHERE f_contrat_lie = '';"), 2);
    }

    void secondeOuvertureNeChangeRien()
    {
        const QString avant = dump(m_chemin);
        const QByteArray octets = empreinte(m_chemin);
        Fichiers fichiers;
        DialoguesScriptes dialogues;
        QCOMPARE(fichiers.ouvertureSQLite(m_chemin, QString(), dialogues), m_chemin);
        QCOMPARE(dump(m_chemin), avant);
        QCOMPARE(empreinte(m_chemin), octets);
    }

    void generation3DejaComplete()
    {
        // A generation-3 document whose jobs already number five gets no second copy of the additions.
        const QString chemin = m_dossier.filePath("g3-cinq.or3");
        documentDepuisScript("generation3.sql", chemin);
        {
            BaseDeDonnees base;
            QVERIFY(base.ouvrir(chemin));
            base.exec("INSERT INTO emplois (e_emploi) VALUES ('Régime Général');"
                      "INSERT INTO emplois (e_emploi) VALUES ('Auto Entrepreneur');");
        }
        Fichiers fichiers;
        DialoguesScriptes dialogues;
        QCOMPARE(fichiers.ouvertureSQLite(chemin, QString(), dialogues), chemin);
        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(chemin));
        QCOMPARE(base.entier("SELECT COUNT(*) FROM emplois;"), 5);
        QVERIFY(!base.tableExiste("propositions"));
        QCOMPARE(fichiers.checkVersion(chemin), QStringLiteral("3"));
        // The probes that do not depend on the jobs still ran.
        QCOMPARE(base.entier("SELECT COUNT(*) FROM pragma_table_info('contrats') WHERE name = 'c_aem_fp';"), 1);
    }

    void nouveauDocumentRecoitLesAjouts()
    {
        const QString chemin = creerDocument(parametresParDefaut(m_dossier.filePath("neuf.cv4")));
        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(chemin));
        QCOMPARE(base.entier("SELECT COUNT(*) FROM pragma_table_info('utilisateur') WHERE name = 'u_pas';"), 0);
        base.fermer();

        QCOMPARE(ouvrirDocument(chemin), chemin);
        QVERIFY(base.ouvrirEnLecture(chemin));
        for (const char* colonne : {"u_pas", "u_rib_iban"})
            QCOMPARE(
                base.entier(QStringLiteral("SELECT COUNT(*) FROM pragma_table_info('utilisateur') WHERE name = '%1';")
                                .arg(colonne)),
                1);
        QCOMPARE(base.entier("SELECT COUNT(*) FROM pragma_table_info('contrats') WHERE name IN ('c_pas', 'c_aem_fp');"),
                 2);
        // Its own seed rows are left as they are.
        QCOMPARE(base.entier("SELECT COUNT(*) FROM delais;"), 4);
        QCOMPARE(base.entier("SELECT COUNT(*) FROM droitsvoisinsorganismes;"), 8);
        QCOMPARE(base.entier("SELECT r_type FROM remises WHERE r_id = 6;"), 1);
    }

    void datesTravailleesManquantes()
    {
        // Contracts without worked dates (e.g. written by another tool) get every day of their span.
        const QString chemin = ouvertApres(
            "vides.cv4", "INSERT INTO contrats (c_debut_contrat, c_fin_contrat) VALUES ('2014-03-29 00:00:00.000', "
                         "'2014-04-01 00:00:00.000');"
                         "INSERT INTO contrats (c_debut_contrat, c_fin_contrat, c_dates_travaillees) VALUES "
                         "('2014-12-31 00:00:00.000', '2015-01-01 00:00:00.000', '31/12/2014');");
        QVERIFY(!chemin.isEmpty());
        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(chemin));
        QCOMPARE(base.colonne("SELECT c_dates_travaillees || ' ' || c_annee_encaissement FROM contrats ORDER BY c_id;"),
                 (QStringList{"29/03/2014,30/03/2014,31/03/2014,01/04/2014 2014", "31/12/2014,01/01/2015 2015"}));
    }

    void liensFraisContrats()
    {
        // A document that names its expense links in both tables but has no link table yet.
        const QString chemin = ouvertApres(
            "liens.cv4",
            "DROP TABLE contrats_frais;"
            "INSERT INTO contrats (c_id, c_debut_contrat, c_fin_contrat, c_dates_travaillees, c_frais_lies) "
            "VALUES (1, '2024-03-02 00:00:00.000', '2024-03-02 00:00:00.000', '02/03/2024', '1,12');"
            "INSERT INTO frais (f_id, f_montant, f_contrat_lie) VALUES (1, 10, '1');"
            "INSERT INTO frais (f_id, f_montant, f_contrat_lie) VALUES (2, 20, '1');"
            "INSERT INTO frais (f_id, f_montant, f_contrat_lie) VALUES (12, 30, '1');"
            "INSERT INTO frais (f_id, f_montant, f_contrat_lie) VALUES (3, 40, '');");
        QVERIFY(!chemin.isEmpty());
        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(chemin));
        // Expense 2 named contract 1, which does not list it: its link is cleared.
        QCOMPARE(base.colonne("SELECT f_id || ':' || f_contrat_lie FROM frais ORDER BY f_id;"),
                 (QStringList{"1:1", "2:", "3:", "12:1"}));
        QCOMPARE(base.colonne("SELECT contrat_id || '-' || frais_id FROM contrats_frais ORDER BY frais_id;"),
                 (QStringList{"1-1", "1-12"}));
    }
};

QTEST_GUILESS_MAIN(TestMiseAJour)
#include "test_mise_a_jour.moc"
