// The contract listing streamed from its statement, byte for byte the JSON of its Table, on odd
// stored values (the listings themselves: cli_listes.txt).

#include "cli/FluxJson.h"
#include "commun/Cas.h"
#include "commun/OutilsCli.h"
#include "records/Contrats.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

class TestCliReferences : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    QString m_chemin;

private slots:
    void initTestCase()
    {
        m_chemin = m_dossier.filePath("reference.cv4");
        const QList<QStringList> etapes{
            {"nouveau", m_chemin, "--nom", "Martin", "--prenom", "Léa", "--emploi", "Artiste", "--ouverture",
             "2024-02-01"},
            {"employeur", "ajouter", m_chemin, "--nom", "Théâtre d'Orly", "--commune", "Orly", "--cp", "94310"},
            {"employeur", "ajouter", m_chemin, "--nom", "Opéra \"Garnier\"", "--commune", "Paris", "--email",
             "regie@opera.example"},
            {"contrat", "ajouter", m_chemin, "--employeur", "Théâtre d'Orly", "--debut", "2024-03-04", "--fin",
             "2024-03-06", "--brut", "450.5", "--paye", "--lieu", "Orly; salle 2"},
            {"contrat", "ajouter", m_chemin, "--employeur", "Opéra \"Garnier\"", "--debut", "2024-04-10", "--type",
             "Enseignements", "--heures", "4", "--brut", "120"},
            {"contrat", "ajouter", m_chemin, "--employeur", "Opéra \"Garnier\"", "--debut", "2024-07-01", "--fin",
             "2024-07-02", "--brut", "300", "--conges"},
        };
        for (const QStringList& etape : etapes)
            QCOMPARE(executerCli(QStringList{"--aujourdhui", "2024-06-15"} + etape).code, 0);
    }

    // The stream reads texts, dates and amounts in place; the Table goes through QVariant and QString.
    void fluxCommeTable_data()
    {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<QString>("debut"); // contract 1's "Date Debut"
        cas("as stored", "", "04/03/2024");
        cas("invalid UTF-8", "c_note = X'61FF62', c_lieu = X'EDA080', c_fonction = X'F4908080'", "04/03/2024");
        cas("byte-order mark, controls, NUL",
            "c_note = X'EFBBBF6E', c_fonction = 'a\"b\\' || char(9) || char(1) || char(127) || '€😀', "
            "c_lieu = X'00410042'",
            "04/03/2024");
        cas("NULL values",
            "c_note = NULL, c_salaire_brut = NULL, c_aem_fp = NULL, c_pas = NULL, "
            "c_nbre_heures = NULL, c_emploi_id = 99",
            "04/03/2024");
        cas("decimal amounts", "c_salaire_brut = 0.1, c_salaire_net = 123456.789, c_pas = -0.0", "04/03/2024");
        cas("whole amounts", "c_salaire_brut = 1977.0, c_salaire_net = 1e6, c_pas = 1e21", "04/03/2024");
        cas("beyond single precision", "c_salaire_brut = 3.4e38, c_salaire_net = 1e300, c_pas = 5e-324", "04/03/2024");
        cas("date and time", "c_debut_contrat = '2024-03-15 00:00:00.000'", "15/03/2024");
        cas("year before 1000", "c_debut_contrat = '0999-03-05'", "05/03/0999");
        cas("signed year", "c_debut_contrat = '+024-03-12'", "12/03/0024");
        cas("other separators", "c_debut_contrat = '2024x03y09'", "09/03/2024");
        cas("invalid byte as separator", "c_debut_contrat = X'32303234FF30332D3136'", "16/03/2024");
        cas("accented separator", "c_debut_contrat = '2024é03-16'", "16/03/2024");
        cas("byte-order mark before the date", "c_debut_contrat = X'EFBBBF323032342D30332D3134'", "");
        cas("month without zero", "c_debut_contrat = '2024-3-07'", "");
        cas("30 February", "c_debut_contrat = '2024-02-30'", "");
        cas("year 0", "c_debut_contrat = '0000-01-01'", "");
        cas("leading blank", "c_debut_contrat = ' 2024-03-12'", "");
        cas("stored as a number", "c_debut_contrat = 20240311", "");
    }
    void fluxCommeTable()
    {
        QFETCH(QString, sql);
        QFETCH(QString, debut);
        const QString chemin = m_dossier.filePath(QStringLiteral("flux.cv4"));
        QFile::remove(chemin);
        QVERIFY(QFile::copy(m_chemin, chemin));
        if (!sql.isEmpty()) {
            BaseDeDonnees base;
            QVERIFY(base.ouvrir(chemin));
            QCOMPARE(base.exec(QStringLiteral("UPDATE contrats SET %1 WHERE c_id = 1;").arg(sql)), 0);
        }

        // Through a device, as to stdout: the bytes are written as they are, never decoded.
        Contrats contrats(chemin);
        const Table table = contrats.listeLesContrats(FiltreContrats());
        QBuffer depuisTable;
        QVERIFY(depuisTable.open(QIODevice::WriteOnly));
        {
            QTextStream flux(&depuisTable);
            cli::FluxJson(flux).ecrireObjet({{QStringLiteral("contrats"), {}, &table}});
        }
        QBuffer enFlux;
        QVERIFY(enFlux.open(QIODevice::WriteOnly));
        {
            const std::unique_ptr<LectureListe> lecture = contrats.lisLesContrats(FiltreContrats());
            QTextStream flux(&enFlux);
            cli::FluxJson json(flux);
            json.ouvrirObjet();
            json.ecrireMembre(QStringLiteral("contrats"), *lecture);
            json.fermerObjet();
        }
        QCOMPARE(enFlux.data(), depuisTable.data());
        for (qsizetype i = 0; i < table.size(); ++i)
            if (table.valeur(i, "Id Contrat").toInt() == 1)
                QCOMPARE(table.valeur(i, "Date Debut").toString(), debut);
    }
};

QTEST_GUILESS_MAIN(TestCliReferences)
#include "test_cli_references.moc"
