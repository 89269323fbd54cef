// Employers: saving and listing (quotes everywhere), the duplicate rule and the import from
// another document (deleting: cli_enregistrements.txt; the totals: test_employeurs_ecran).

#include "commun/Reference.h"
#include "records/Employeurs.h"
#include "store/Horloge.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

class TestEmployeurs : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    QString document()
    {
        const QString chemin =
            creerDocument(parametresParDefaut(m_dossier.filePath(QStringLiteral("e%1.cv4").arg(++m_numero))));
        ouvrirDocument(chemin);
        return chemin;
    }

    static Employeur employeur(const QString& nom, const QString& commune, const QString& codePostal = "75001")
    {
        Employeur e;
        e.raisonSociale = nom;
        e.commune = commune;
        e.codePostal = codePostal;
        return e;
    }

private slots:
    void initTestCase() { Horloge::fixer(QDate(2024, 6, 15)); }

    void enregistrementEtListe()
    {
        const QString chemin = document();
        Employeurs employeurs(chemin);
        Employeur e = employeur("Théâtre de l'Œuvre", "L'Haÿ-les-Roses", "94'240");
        e.adresse = "55 rue de Clichy, l'entrée";
        e.email = "o'brien@exemple.fr";
        e.interlocuteur = "M. d'Artagnan";
        e.telephone = "01'44";
        e.fax = "";
        e.conventionne = 0;
        e.id = employeurs.enregistreEmployeur(e);
        QCOMPARE(e.id, 2);
        e.siret = "123 456'789";
        e.licenceSpectacle = "2-10'45";
        e.couleur = "255,0,0";
        e.guso = 1;
        e.numeroGuso = "G'1";
        e.codeApe = "90.01Z";
        e.latitude = 48.88;
        e.longitude = 2.33;
        e.prospect = 0;
        e.qualiteId = 3;
        QVERIFY(employeurs.enregistreComplements(e));
        QVERIFY(employeurs.enregistreEmployeur(employeur("Atelier", "Lyon")) > 0);

        // Sorted by name, every field as saved, read back as an employer too.
        const Table liste = employeurs.listeLesEmployeurs();
        CORVANE_COMPARER_REFERENCE(texteTable(liste), "employeurs_liste.txt");
        QCOMPARE(Employeurs::versLigne(Employeurs::depuisLigne(liste.ligne(2))), liste.ligne(2));

        QCOMPARE(employeurs.retrouveIdEmployeur("Théâtre de l'Œuvre"), 2);
        QCOMPARE(employeurs.existanceEmployeur("Théâtre de l'Œuvre", "94'240", "L'Haÿ-les-Roses"), 1);
        QCOMPARE(employeurs.compteLesEmployeursAvecRaisonSocialeCommune("Théâtre de l'Œuvre", "L'Haÿ-les-Roses"), 1);
        QCOMPARE(employeurs.tousLesEmployeurs(), (QStringList{"Atelier", "Inconnu", "Théâtre de l'Œuvre"}));
        QCOMPARE(employeurs.compteLesEmployeurs(), 3);

        // Editing keeps the quotes too.
        e.raisonSociale = "L'Œuvre";
        e.commune = "Saint-Maur-des-Fossés";
        QVERIFY(employeurs.modifieEmployeur(e));
        QCOMPARE(employeurs.retrouveIdEmployeur("L'Œuvre"), 2);
        QCOMPARE(employeurs.employeur(2)->commune, QStringLiteral("Saint-Maur-des-Fossés"));
        QVERIFY(!employeurs.employeur(99));
    }

    void doublons_data()
    {
        QTest::addColumn<QString>("nom");
        QTest::addColumn<QString>("codePostal");
        QTest::addColumn<QString>("commune");
        QTest::addColumn<QString>("refus");
        cas("same name, another postal code", "Le Zèbre", "75002", "Paris", QString());
        cas("same name, postal code and town", "Le Zèbre", "75001", "Paris", Employeurs::messageExisteDeja());
        cas("another name", "Le Zèbre d'or", "75001", "Paris", QString());
        cas("no name", "  ", "75001", "Paris", Employeurs::messageRaisonSocialeObligatoire());
    }

    void doublons()
    {
        QFETCH(QString, nom);
        QFETCH(QString, codePostal);
        QFETCH(QString, commune);
        QFETCH(QString, refus);
        const QString chemin = document();
        Employeurs employeurs(chemin);
        const int premier = employeurs.enregistreEmployeur(employeur("Le Zèbre", "Paris", "75001"));
        const Employeur second = employeur(nom, commune, codePostal);
        QCOMPARE(employeurs.refusEnregistrement(second), refus);
        if (refus.isEmpty()) {
            QVERIFY(employeurs.enregistreEmployeur(second) > premier);
            QCOMPARE(employeurs.compteLesEmployeurs(), 3); // both kept, with 'Inconnu'
        }
        // An employer is never its own duplicate.
        Employeur lui = employeur("Le Zèbre", "Paris", "75001");
        lui.id = premier;
        QCOMPARE(employeurs.refusEnregistrement(lui), QString());
    }

    void import_data()
    {
        QTest::addColumn<bool>("ancienneGeneration");
        cas("current document", false);
        cas("generation 3, without the later columns", true);
    }

    void import()
    {
        QFETCH(bool, ancienneGeneration);
        const QString chemin = document();
        {
            Employeurs employeurs(chemin);
            employeurs.enregistreEmployeur(employeur("Théâtre de l'Odéon", "Paris", "75006"));
            employeurs.enregistreEmployeur(employeur("Opéra de Lyon", "Villeurbanne", "69100"));
        }
        QString source = m_dossier.filePath(QStringLiteral("source%1.cv4").arg(++m_numero));
        int attendus = 0;
        if (ancienneGeneration) {
            // 'Inconnu', the Odéon (same name, postal code and town: skipped) and the Opéra in Lyon (another town).
            documentDepuisScript("generation3.sql", source);
            attendus = 1;
        } else {
            source = creerDocument(parametresParDefaut(source));
            ouvrirDocument(source);
            Employeurs autres(source);
            Employeur e = employeur("Théâtre de l'Odéon", "Paris", "75006");
            autres.enregistreEmployeur(e); // skipped
            e = employeur("Théâtre de l'Odéon", "Marseille", "13001");
            e.conventionne = 0;
            e.id = autres.enregistreEmployeur(e);
            e.siret = "S'1";
            e.couleur = "1,2,3";
            e.prospect = 0;
            autres.enregistreComplements(e);
            autres.enregistreEmployeur(employeur("Chez \"Lulu\"", "Pau", "64000"));
            attendus = 2;
        }
        const QByteArray avant = empreinte(source);
        Employeurs employeurs(chemin);
        QString refus;
        QCOMPARE(employeurs.importeEmployeursDepuis(source, &refus), attendus);
        QVERIFY(refus.isEmpty());
        QCOMPARE(empreinte(source), avant); // the other document is only read
        QCOMPARE(employeurs.compteLesEmployeurs(), 3 + attendus);
        QCOMPARE(employeurs.importeEmployeursDepuis(source, &refus), 0); // a second import adds nothing

        if (ancienneGeneration) {
            QCOMPARE(nombre(chemin, "SELECT COUNT(*) FROM employeurs WHERE e_raison_sociale = 'Opéra de Lyon' AND "
                                    "e_commune = 'Lyon' AND e_conventionne = 1 AND e_no_siret = '';"),
                     1);
        } else {
            QCOMPARE(nombre(chemin, "SELECT COUNT(*) FROM employeurs WHERE e_commune = 'Marseille' AND e_conventionne "
                                    "= 0 AND e_no_siret = 'S''1' AND e_couleur = '1,2,3' AND e_prospect = 0;"),
                     1);
            QCOMPARE(employeurs.retrouveIdEmployeur("Chez \"Lulu\"") > 0, true);
        }
    }

    void importRefuse_data()
    {
        QTest::addColumn<QString>("cas");
        QTest::addColumn<QString>("message");
        cas("the open document, another spelling", "relatif", Employeurs::messageFichierDejaOuvert());
        cas("not a document", "texte", Employeurs::messageFichierIllisible());
        cas("missing", "absent", Employeurs::messageFichierIllisible());
    }

    void importRefuse()
    {
        QFETCH(QString, cas);
        QFETCH(QString, message);
        const QString chemin = document();
        QString source = chemin;
        if (cas == "relatif")
            source = QFileInfo(chemin).absolutePath() + "/./" + QFileInfo(chemin).fileName();
        else if (cas == "texte")
            ecrire(source = m_dossier.filePath("texte.txt"), "pas un document");
        else if (cas == "absent")
            source = m_dossier.filePath("absent.cv4");
        const QString avant = dump(chemin);
        Employeurs employeurs(chemin);
        QString refus;
        QCOMPARE(employeurs.importeEmployeursDepuis(source, &refus), -1);
        QCOMPARE(refus, message);
        QCOMPARE(dump(chemin), avant);
        QVERIFY(!QFileInfo::exists(m_dossier.filePath("absent.cv4")));
    }
};

QTEST_GUILESS_MAIN(TestEmployeurs)
#include "test_employeurs.moc"
