// The listings of `corvane-cli contrat lister` and `employeur lister`, text and JSON,
// compared byte for byte with stored outputs under tests/data/reference/.
// After an intended change of output, run the test with CORVANE_REGENERER=1 to rewrite
// the stored files, then review the difference before committing it.

#include "cli/Cli.h"
#include "commun/OutilsDocument.h"

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
};

QTEST_GUILESS_MAIN(TestCliReferences)
#include "test_cli_references.moc"
