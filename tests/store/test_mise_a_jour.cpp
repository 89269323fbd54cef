// The upgrade pass: a generation-3 document brought to generation 4, with the
// differences from a new document that upgraded documents keep.

#include "commun/Reference.h"
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

    // The whole upgraded document (schema and rows) against its stored copy: the added
    // columns with their types and defaults, the seed rows added (and the inserts that fail),
    // the contracts' worked dates and cashing years, and the user's data kept.
    void documentMisAJour() { CORVANE_COMPARER_REFERENCE(dump(m_chemin).toUtf8(), "mise_a_jour_generation3.txt"); }

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
