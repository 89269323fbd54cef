// The listings of `corvane-cli contrat lister` and `employeur lister`, text and JSON,
// compared byte for byte with stored outputs under tests/data/reference/; and the contract
// listing streamed from its statement, byte for byte the JSON of its Table on odd stored values.
// After an intended change of output, run the test with CORVANE_REGENERER=1 to rewrite
// the stored files, then review the difference before committing it.

#include "cli/Cli.h"
#include "cli/FluxJson.h"
#include "commun/OutilsDocument.h"
#include "records/Contrats.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

namespace {

QString lancer(const QStringList& arguments, int* code = nullptr)
{
    QString texte;
    QString erreurs;
    QTextStream sortie(&texte);
    QTextStream flux(&erreurs);
    const int resultat = cli::Cli().executer(QStringList{"--aujourdhui", "2024-06-15"} + arguments, sortie, flux);
    sortie.flush();
    flux.flush();
    if (code)
        *code = resultat;
    if (resultat != 0)
        qWarning() << arguments << erreurs;
    return texte;
}

} // namespace

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
        for (const QStringList& etape : etapes) {
            int code = -1;
            lancer(etape, &code);
            QCOMPARE(code, 0);
        }
    }

    void sorties_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("reference");
        QTest::newRow("contrats en texte") << QStringList{"contrat", "lister"} << "contrats.txt";
        QTest::newRow("contrats en JSON") << QStringList{"--json", "contrat", "lister"} << "contrats.json";
        QTest::newRow("employeurs en texte") << QStringList{"employeur", "lister"} << "employeurs.txt";
        QTest::newRow("employeurs en JSON") << QStringList{"--json", "employeur", "lister"} << "employeurs.json";
    }
    void sorties()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, reference);
        int code = -1;
        const QByteArray obtenu = lancer(arguments + QStringList{m_chemin}, &code).toUtf8();
        QCOMPARE(code, 0);
        const QString chemin = donnee(QStringLiteral("reference/") + reference);
        QFile fichier(chemin);
        if (qEnvironmentVariableIntValue("CORVANE_REGENERER") == 1) {
            QVERIFY(fichier.open(QIODevice::WriteOnly | QIODevice::Truncate));
            fichier.write(obtenu);
            QSKIP("Stored output rewritten");
        }
        QVERIFY2(fichier.open(QIODevice::ReadOnly), qPrintable(chemin + " missing: run with CORVANE_REGENERER=1"));
        const QByteArray attendu = fichier.readAll();
        // Line by line first, so that a failure names the first differing line.
        const QList<QByteArray> a = attendu.split('\n'), o = obtenu.split('\n');
        for (int i = 0; i < qMin(a.size(), o.size()); ++i)
            QCOMPARE(QString::fromUtf8(o[i]), QString::fromUtf8(a[i]));
        QCOMPARE(obtenu, attendu);
    }

    // The stream reads texts, dates and amounts in place; the Table goes through QVariant and QString.
    void fluxCommeTable_data()
    {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<QString>("debut"); // contract 1's "Date Debut"
        QTest::newRow("as stored") << ""
                                   << "04/03/2024";
        QTest::newRow("invalid UTF-8") << "c_note = X'61FF62', c_lieu = X'EDA080', c_fonction = X'F4908080'"
                                       << "04/03/2024";
        QTest::newRow("byte-order mark, controls, NUL")
            << "c_note = X'EFBBBF6E', c_fonction = 'a\"b\\' || char(9) || char(1) || char(127) || '€😀', "
               "c_lieu = X'00410042'"
            << "04/03/2024";
        QTest::newRow("NULL values") << "c_note = NULL, c_salaire_brut = NULL, c_aem_fp = NULL, c_pas = NULL, "
                                        "c_nbre_heures = NULL, c_emploi_id = 99"
                                     << "04/03/2024";
        QTest::newRow("decimal amounts") << "c_salaire_brut = 0.1, c_salaire_net = 123456.789, c_pas = -0.0"
                                         << "04/03/2024";
        QTest::newRow("whole amounts") << "c_salaire_brut = 1977.0, c_salaire_net = 1e6, c_pas = 1e21"
                                       << "04/03/2024";
        QTest::newRow("beyond single precision") << "c_salaire_brut = 3.4e38, c_salaire_net = 1e300, c_pas = 5e-324"
                                                 << "04/03/2024";
        QTest::newRow("date and time") << "c_debut_contrat = '2024-03-15 00:00:00.000'"
                                       << "15/03/2024";
        QTest::newRow("year before 1000") << "c_debut_contrat = '0999-03-05'"
                                          << "05/03/0999";
        QTest::newRow("signed year") << "c_debut_contrat = '+024-03-12'"
                                     << "12/03/0024";
        QTest::newRow("other separators") << "c_debut_contrat = '2024x03y09'"
                                          << "09/03/2024";
        QTest::newRow("invalid byte as separator") << "c_debut_contrat = X'32303234FF30332D3136'"
                                                   << "16/03/2024";
        QTest::newRow("accented separator") << "c_debut_contrat = '2024é03-16'"
                                            << "16/03/2024";
        QTest::newRow("byte-order mark before the date") << "c_debut_contrat = X'EFBBBF323032342D30332D3134'"
                                                         << "";
        QTest::newRow("month without zero") << "c_debut_contrat = '2024-3-07'"
                                            << "";
        QTest::newRow("30 February") << "c_debut_contrat = '2024-02-30'"
                                     << "";
        QTest::newRow("year 0") << "c_debut_contrat = '0000-01-01'"
                                << "";
        QTest::newRow("leading blank") << "c_debut_contrat = ' 2024-03-12'"
                                       << "";
        QTest::newRow("stored as a number") << "c_debut_contrat = 20240311"
                                            << "";
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
