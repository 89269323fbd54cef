// corvane-cli run as a program: its exit codes, results on stdout and French messages on
// stderr, the raw bytes of its arguments, and no display platform unless a report is laid
// out. The commands themselves are tested in-process (test_cli_scenarios).

#include "commun/OutilsDocument.h"
#include "store/Intermittent.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

namespace {

// Runs the program through the shell, so that an argument can hold any bytes ($1 is the folder).
ResultatCli shell(const QString& script, const QString& dossier, const QStringList& sansVariables = {})
{
    QProcess processus;
    QProcessEnvironment environnement = QProcessEnvironment::systemEnvironment();
    for (const QString& variable : sansVariables)
        environnement.remove(variable);
    if (!sansVariables.contains(QStringLiteral("QT_QPA_PLATFORM")))
        environnement.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("aucune"));
    processus.setProcessEnvironment(environnement);
    processus.start(QStringLiteral("/bin/sh"),
                    {QStringLiteral("-c"), script, QStringLiteral(CORVANE_CLI_EXE), dossier});
    if (!processus.waitForFinished(30000))
        return {};
    return {processus.exitStatus() == QProcess::NormalExit ? processus.exitCode() : -1,
            processus.readAllStandardOutput(), QString::fromUtf8(processus.readAllStandardError())};
}

} // namespace

class TestCliProcessus : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;

private slots:
    void initTestCase()
    {
        const ResultatCli r =
            lancerCli({"--aujourdhui", "2024-06-15", "nouveau", m_dossier.filePath("doc.cv4"), "--nom", "Martin",
                       "--prenom", "Léa", "--emploi", "Artiste", "--ouverture", "2024-02-01"});
        QVERIFY2(r.code == 0, qPrintable(r.erreurs));
    }

    // Every command but `pdf` runs without loading any display platform ("aucune" does not exist).
    void sorties_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("sortie");  // what stdout starts with
        QTest::addColumn<QString>("erreurs"); // what stderr starts with
        cas("help", "\"$0\" --aide", 0, "usage : corvane-cli", "");
        cas("no command", "\"$0\"", 2, "", "usage : corvane-cli");
        cas("info in JSON", "\"$0\" --json info \"$1/doc.cv4\"", 0, "{", "");
        cas("a listing", "\"$0\" contrat lister \"$1/doc.cv4\"", 0, "Total : 0 contrat", "");
        cas("a missing document", "\"$0\" info \"$1/absent.cv4\"", 1, "", "corvane-cli: ");
        cas("Latin-1 bytes",
            "\"$0\" employeur ajouter \"$1/doc.cv4\" --nom \"$(printf 'Op\\351ra')\" "
            "--commune Lyon",
            2, "", "corvane-cli: l'argument n° 5 n'est pas un texte UTF-8");
        cas("a byte-order mark kept",
            "\"$0\" employeur ajouter \"$1/doc.cv4\" --nom \"$(printf '\\357\\273\\277La Scala')\" --commune Milan", 0,
            "Employeur enregistré", "");
    }

    void sorties()
    {
        QFETCH(QString, script);
        QFETCH(int, code);
        QFETCH(QString, sortie);
        QFETCH(QString, erreurs);
        const ResultatCli r = shell(script, m_dossier.path());
        QVERIFY2(r.code == code, qPrintable(r.erreurs));
        const auto commencePar = [](const QString& texte, const QString& debut) {
            return debut.isEmpty() ? texte.isEmpty() : texte.startsWith(debut);
        };
        QVERIFY2(commencePar(QString::fromUtf8(r.sortie), sortie), r.sortie.constData());
        QVERIFY2(commencePar(r.erreurs, erreurs), qPrintable(r.erreurs));
        if (QTest::currentDataTag() == QByteArray("a byte-order mark kept"))
            QCOMPARE(Intermittent(m_dossier.filePath("doc.cv4"))
                         .db()
                         .texte("SELECT hex(e_raison_sociale) FROM employeurs WHERE e_commune = 'Milan';"),
                     QStringLiteral("EFBBBF4C61205363616C61"));
    }

    // Without QT_QPA_PLATFORM nor a display, a report is laid out all the same.
    void rapportSansAffichage()
    {
        const ResultatCli r = shell("\"$0\" pdf \"$1/doc.cv4\" --rapport profil --sortie \"$1/profil.pdf\"",
                                    m_dossier.path(), {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"});
        QVERIFY2(r.code == 0 && r.erreurs.isEmpty(), qPrintable(r.erreurs));
        QFile pdf(m_dossier.filePath("profil.pdf"));
        QVERIFY(pdf.open(QIODevice::ReadOnly));
        QVERIFY(pdf.read(5) == "%PDF-");
    }
};

QTEST_GUILESS_MAIN(TestCliProcessus)
#include "test_cli_processus.moc"
