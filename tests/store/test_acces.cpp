// The data-access base: lookups by label and by id (names with quotes included),
// preferred dates, list fillers and the path-taking twins.

#include "commun/OutilsDocument.h"
#include "store/Dates.h"
#include "store/Document.h"
#include "store/Functions.h"
#include "store/Horloge.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

class TestAcces : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    QString m_chemin;

private slots:
    void initTestCase()
    {
        Horloge::fixer(QDate(2024, 6, 15));
        m_chemin = creerDocument(parametresParDefaut(m_dossier.filePath("acces.cv4")));
        QCOMPARE(ouvrirDocument(m_chemin), m_chemin);
        BaseDeDonnees base;
        QVERIFY(base.ouvrir(m_chemin));
        QCOMPARE(base.executer("INSERT INTO employeurs (e_raison_sociale, e_commune) VALUES (?, 'Paris');",
                               {QStringLiteral("Théâtre de l'Œuvre")}),
                 101); // SQLITE_DONE
        base.exec("INSERT INTO periodes (p_date_debut, p_date_fin, p_libelle, p_notes) VALUES "
                  "('2023-01-01 00:00:00.000', '2025-03-01 00:00:00.000', 'Période d''été', '');");
    }

    void parLibelle_data()
    {
        QTest::addColumn<QString>("genre");
        QTest::addColumn<QString>("libelle");
        QTest::addColumn<int>("id");
        cas("job", "emploi", "Technicien", 3);
        cas("job, wrong case", "emploi", "technicien", 0);
        cas("civility", "civilite", "Mlle", 2);
        cas("abatement", "abattement", "25", 3);
        cas("contract kind", "type", "Formations", 3);
        cas("employer with a quote", "employeur", "Théâtre de l'Œuvre", 2);
        cas("employer, injection attempt", "employeur", "x' OR '1'='1", 0);
        cas("expense category", "frais", "Hébergement", 8);
        cas("sickness kind", "securite", "Maternité", 3);
        cas("period with a quote", "periode", "Période d'été", 2);
        cas("organisation", "organisme", "Spré", 8);
        cas("category with a quote", "categorie", "Chef d'orchestre", 4);
        cas("legal form with a quote", "qualite", "Comité d'entreprise", 3);
        cas("service group", "groupe", "Déplacement", 4);
        cas("service", "prestation", "Montage vidéo", 7);
    }

    void parLibelle()
    {
        QFETCH(QString, genre);
        QFETCH(QString, libelle);
        QFETCH(int, id);
        Intermittent d(m_chemin);
        const QMap<QString, std::function<int(const QString&)>> recherches{
            {"emploi", [&](const QString& l) { return d.retrouveEmploiId(l); }},
            {"civilite", [&](const QString& l) { return d.retrouveCiviliteId(l); }},
            {"abattement", [&](const QString& l) { return d.retrouveAbattementId(l); }},
            {"type", [&](const QString& l) { return d.retrouveContratTypeId(l); }},
            {"employeur", [&](const QString& l) { return d.retrouveEmployeurId(l); }},
            {"frais", [&](const QString& l) { return d.retrouveFraisTypeIdDepuisType(l); }},
            {"securite", [&](const QString& l) { return d.retrouveSecuriteSocialeTypeId(l); }},
            {"periode", [&](const QString& l) { return d.retrouvePeriodeId(l); }},
            {"organisme", [&](const QString& l) { return d.findDvOrganismId(l); }},
            {"categorie", [&](const QString& l) { return d.findDvCategoryId(l); }},
            {"qualite", [&](const QString& l) { return d.findQualificationId(l); }},
            {"groupe", [&](const QString& l) { return d.findGroupId(l); }},
            {"prestation", [&](const QString& l) { return d.findPerformanceId(l); }},
        };
        QCOMPARE(recherches.value(genre)(libelle), id);
    }

    void parId()
    {
        Intermittent d(m_chemin);
        QCOMPARE(d.retrouveEmploiDepuisId(4), QStringLiteral("Régime Général"));
        QCOMPARE(d.retrouveCiviliteDepuisId(3), QStringLiteral("Mr"));
        QCOMPARE(d.retrouveAbattementDepuisId(2), QStringLiteral("20"));
        QCOMPARE(d.retrouveAbattementDepuisId(9), QStringLiteral("0"));
        QCOMPARE(d.retrouveContratTypeDepuisId(2), QStringLiteral("Enseignements"));
        QCOMPARE(d.retrouveContratTypeAEDepuisId(103), QStringLiteral("Activités libérales (BNC)"));
        QCOMPARE(d.retrouveEmployeurDepuisId(2), QStringLiteral("Théâtre de l'Œuvre"));
        QCOMPARE(d.retrouveEmployeurDepuisId(99), QString());
        QCOMPARE(d.retrouveFraisTypeDepuisId(14), QStringLiteral("Vêtement"));
        QCOMPARE(d.retrouveSecuriteSocialeTypeDepuisId(7), QStringLiteral("Pharmacie"));
        QCOMPARE(d.findDvOrganismFromId(2), QStringLiteral("Agessa"));
        QCOMPARE(d.findDvCategoryFromId(4), QStringLiteral("Chef d'orchestre"));
        QCOMPARE(d.findQualificationFromId(2), QStringLiteral("Aucune"));
        QCOMPARE(d.findDiscountAmountFromId(7), 200.0);
        QCOMPARE(d.findDiscountTypeFromId(6), QStringLiteral("€"));
        QCOMPARE(d.findDelayIdFromNumber(1, "mois"), 3);
        QCOMPARE(d.findDelayIdFromNumber(3, "jours"), 0);
    }

    void profilEtPeriodes()
    {
        Intermittent d(m_chemin);
        QCOMPARE(d.retrouveEmploiUtilisateur(), QStringLiteral("Artiste"));
        QCOMPARE(d.retrouveAbattementIdUtilisateur(), 2);
        QCOMPARE(d.retrouveTauxValideUtilisateur(), 57.4);
        QCOMPARE(d.retrouveNomUtilisateur(), QStringLiteral("Dupont"));
        QCOMPARE(d.retrouveDateNaissanceUtilisateur(), QDate(2024, 6, 15));
        QCOMPARE(d.retrouveIdPeriodeEnCours(), 1);
        QCOMPARE(d.retrouveDateOuvertureDroits(), Dates::dateDeBascule(2024, 3, 1));
        QCOMPARE(d.retrouveDateOuvertureDroitsUtilisateur(), Dates::dateDeBascule(2024, 3, 1));
        // Both periods end on the same day: the first row of the second statement wins.
        QCOMPARE(d.retrouveIdPeriodeLaPlusRecente(), 1);
        QVERIFY(!d.isFileLocked());
    }

    void datesPreferees()
    {
        Intermittent d(m_chemin);
        d.enregistreDatePreferee(QStringLiteral("frais_debut"), QDate(2022, 7, 14));
        QCOMPARE(d.retrouveDatePreferee(QStringLiteral("frais_debut")).date(), QDate(2022, 7, 14));
        QCOMPARE(d.retrouveDatePreferee(9).date(), QDate(2022, 7, 14)); // keys sorted: frais_debut is row 9
        d.enregistreDatePreferee(9, QDate(2023, 1, 1));
        QCOMPARE(Functions::retrouveDatePrefereeFromFile(QStringLiteral("frais_debut"), m_chemin).date(),
                 QDate(2023, 1, 1));
        Functions::enregistreDatePrefereeInFile(QStringLiteral("frais_fin"), QDate(2023, 12, 31), m_chemin);
        QCOMPARE(d.retrouveDatePreferee(QStringLiteral("frais_fin")), Dates::dateDeBascule(2023, 12, 31));
        QVERIFY(!d.retrouveDatePreferee(QStringLiteral("inconnue")).isValid());
    }

    void listes()
    {
        Intermittent d(m_chemin);
        QCOMPARE(d.rempliListeDelais(), (QStringList{"7 jours", "15 jours", "1 mois", "2 mois"}));
        QCOMPARE(d.rempliPopup("employeurs"), (QStringList{"Inconnu", "Théâtre de l'Œuvre"}));
        // The base orders the categories by the table's name, which is no column: the list stays empty.
        QCOMPARE(d.rempliPopup("fraistypes"), QStringList());
        const QStringList categories = Functions::rempliListeFraisTypesWithFile(m_chemin);
        QCOMPARE(categories.size(), 14);
        QCOMPARE(categories.first(), QStringLiteral("Accessoire"));
        QCOMPARE(d.tousLesAbattements(), (QStringList{"0", "20", "25"}));
        QCOMPARE(d.fillPerformancesGroups(), (QStringList{"Animation", "Concert", "Déplacement", "Technique"}));
    }

    void fonctions()
    {
        QCOMPARE(Functions::retrouveEmploiIdWithFile("Ouvrier", m_chemin), 2);
        QCOMPARE(Functions::retrouveEmployeurIdWithFile("Théâtre de l'Œuvre", m_chemin), 2);
        QCOMPARE(Functions::recordsInWithFile("fraistypes", m_chemin), 14);
        QCOMPARE(Functions::recordsInWithFile("fraistypes; DROP TABLE frais", m_chemin), 0);
        QVERIFY(Functions::isDBOpened(m_chemin));
        QVERIFY(!Functions::isFileLockedWithFile(m_chemin));
        QCOMPARE(Functions::execSqlWithFile("SELECT nothing FROM contrats;", m_chemin), 1); // SQLITE_ERROR
        QCOMPARE(Functions::execSqlWithFile("UPDATE utilisateur SET u_nbre_enfants = 2 WHERE u_id = 1;", m_chemin), 0);
        QCOMPARE(Intermittent(m_chemin).db().entier("SELECT u_nbre_enfants FROM utilisateur;"), 2);
        // A missing path is never created by a lookup.
        const QString absent = m_dossier.filePath("absent.cv4");
        QCOMPARE(Functions::retrouveEmploiIdWithFile("Ouvrier", absent), 0);
        QVERIFY(!Functions::isDBOpened(absent));
        QVERIFY(!QFileInfo::exists(absent));
    }

    void execTexteEntier()
    {
        // A failing statement is skipped and the next one runs; the first error is returned.
        BaseDeDonnees base;
        QVERIFY(base.creer(m_dossier.filePath("exec.db")));
        QCOMPARE(base.exec("CREATE TABLE t (a); INSERT INTO absente VALUES (1); INSERT INTO t VALUES (2);"), 1);
        QCOMPARE(base.colonne("SELECT a FROM t;"), QStringList{"2"});
        QCOMPARE(
            base.exec("INSERT INTO t VALUES (3); INSERT INTO t (a) VALUES ('d'orchestre'); INSERT INTO t VALUES (4);"),
            1);
        QCOMPARE(base.colonne("SELECT a FROM t;"), (QStringList{"2", "3"}));
    }

    void documentAnnonceLesTablesEcrites()
    {
        const QString chemin = m_dossier.filePath("annonces.db");
        {
            BaseDeDonnees base;
            QVERIFY(base.creer(chemin));
            base.exec("CREATE TABLE a (x); CREATE TABLE b (y); CREATE TABLE c (z); INSERT INTO b VALUES (1); INSERT "
                      "INTO c VALUES (1);");
        }
        Document document;
        QVERIFY(document.ouvrir(chemin));
        QSignalSpy annonces(&document, &Document::tablesModifiees);
        // Every write of one turn of the event loop makes one announcement; reads make none.
        document.base().exec("INSERT INTO a VALUES (1); INSERT INTO a VALUES (2); UPDATE c SET z = 2; "
                             "SELECT * FROM b;");
        // A borrowed handle writes through the same connection, and is heard too.
        BaseDeDonnees emprunt = BaseDeDonnees::emprunter(document.base());
        emprunt.exec("DELETE FROM b;");
        QCOMPARE(annonces.count(), 0);
        QTRY_COMPARE(annonces.count(), 1);
        QCOMPARE(annonces.first().first().value<QSet<QString>>(), (QSet<QString>{"a", "b", "c"}));

        // A whole table emptied at once is a write too, and still empties it.
        document.base().exec("DELETE FROM a;");
        QCOMPARE(document.base().entier("SELECT COUNT(*) FROM a;"), 0);
        QTRY_COMPARE(annonces.count(), 2);
        QCOMPARE(annonces.last().first().value<QSet<QString>>(), QSet<QString>{"a"});

        // A borrowed handle never closes the owner's connection.
        {
            BaseDeDonnees autre = BaseDeDonnees::emprunter(document.base());
        }
        QCOMPARE(document.base().entier("SELECT COUNT(*) FROM c;"), 1);
        document.fermer();
        QVERIFY(!document.estOuvert());
    }
};

QTEST_GUILESS_MAIN(TestAcces)
#include "test_acces.moc"
