// The documentation's screenshots: the program run as `make screenshots` runs it, offscreen with
// a throwaway home, leaves one picture of the window per section (and of the windows
// the menus open) and quits.

#include "app/Captures.h"
#include "app/Sections.h"
#include "commun/OutilsDocument.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

class TestCaptures : public QObject
{
    Q_OBJECT

private:
    // Runs the program on `document` with CORVANE_CAPTURE set; returns its exit code (-1: crash or hang).
    static int lancerProgramme(const QString& maison, const QString& document, const QString& capture)
    {
        QProcessEnvironment environnement = QProcessEnvironment::systemEnvironment();
        for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
            environnement.insert(QString::fromLatin1(variable), maison);
        environnement.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environnement.insert(QStringLiteral("CORVANE_CAPTURE"), capture);
        // No maps service, so that the map pages ask nothing of the network.
        QSettings reglages(maison + QStringLiteral("/Corvane/Corvane.conf"), QSettings::IniFormat);
        reglages.setValue(QStringLiteral("Cartes_Script"), QStringLiteral("qrc:/carte/aucun.js"));
        reglages.setValue(QStringLiteral("Cartes_Tuiles"), QString());
        reglages.sync();
        QProcess programme;
        programme.setProcessEnvironment(environnement);
        programme.start(QStringLiteral(CORVANE_EXE), {document});
        if (!programme.waitForFinished(60000)) {
            programme.kill();
            programme.waitForFinished();
            return -1;
        }
        return programme.exitStatus() == QProcess::NormalExit ? programme.exitCode() : -1;
    }

private slots:
    void nomDeFichierSection_data()
    {
        QTest::addColumn<QString>("titre");
        QTest::addColumn<QString>("nom");
        cas("mots", "Tableau de bord", "tableau-de-bord");
        cas("accents et majuscules", "Sécurité Sociale", "securite-sociale");
        cas("ponctuation aux bords", " (Fichiers) ", "fichiers");
        cas("apostrophe", "Droits d'auteur", "droits-d-auteur");
    }

    void nomDeFichierSection()
    {
        QFETCH(QString, titre);
        QFETCH(QString, nom);
        QCOMPARE(app::nomDeFichierSection(titre), nom);
    }

    void dossierRecoitUneImageParSection()
    {
        QTemporaryDir maison;
        QVERIFY(maison.isValid());
        const QString document = creerDocument(parametresParDefaut(maison.filePath(QStringLiteral("moi.cv4"))));
        const QString dossier = maison.filePath(QStringLiteral("images"));
        QVERIFY(QDir().mkpath(dossier));

        QCOMPARE(lancerProgramme(maison.path(), document, dossier), 0);

        QStringList attendus{QStringLiteral("fenetre-principale.png")};
        for (const DescriptionSection& d : sectionsNavigation())
            attendus << QStringLiteral("section-%1.png").arg(app::nomDeFichierSection(d.titre));
        // The windows opened from the menus, the toolbar and the sections, and the contract,
        // social-security and expense forms.
        const QStringList fenetres{"profil.png",           "periodes.png",          "modeles-contrat.png",
                                   "preferences.png",      "versements-conges.png", "auto-entrepreneur.png",
                                   "versements-pole-emploi.png", "categories-frais.png", "trajets.png",
                                   "proposition.png",      "import-csv.png"};
        attendus << fenetres << QStringLiteral("manager-personnel.png") << QStringLiteral("manager-evenements.png")
                 << QStringLiteral("formulaire-contrat.png")
                 << QStringLiteral("formulaire-securite-sociale.png") << QStringLiteral("formulaire-frais.png")
                 << QStringLiteral("formulaire-droits-voisins.png");
        attendus.sort();
        QCOMPARE(QDir(dossier).entryList(QDir::Files, QDir::Name), attendus);
        for (const QString& nom : attendus) {
            const QImage image(QDir(dossier).filePath(nom));
            QVERIFY2(!image.isNull(), qPrintable(nom));
            if (!fenetres.contains(nom))
                QCOMPARE(image.size(), QSize(1180, 760));
        }
        QVERIFY(QImage(QDir(dossier).filePath(QStringLiteral("formulaire-contrat.png"))) !=
                QImage(QDir(dossier).filePath(QStringLiteral("section-contrats.png"))));
        // The pictures differ from one section to the next: each section was really shown.
        QVERIFY(QImage(QDir(dossier).filePath(QStringLiteral("section-fichiers.png"))) !=
                QImage(QDir(dossier).filePath(QStringLiteral("section-contrats.png"))));
    }

    // Given a file rather than a folder, the window alone; a file that cannot be written is an exit 1.
    void fichierRecoitLaFenetre_data()
    {
        QTest::addColumn<QString>("image");
        QTest::addColumn<int>("code");
        cas("written", "fenetre.png", 0);
        cas("missing folder", "absent/fenetre.png", 1);
    }

    void fichierRecoitLaFenetre()
    {
        QFETCH(QString, image);
        QFETCH(int, code);
        QTemporaryDir maison;
        const QString document = creerDocument(parametresParDefaut(maison.filePath(QStringLiteral("moi.cv4"))));
        QCOMPARE(lancerProgramme(maison.path(), document, maison.filePath(image)), code);
        QCOMPARE(QImage(maison.filePath(image)).size(), code == 0 ? QSize(1180, 760) : QSize(0, 0));
    }
};

QTEST_GUILESS_MAIN(TestCaptures)
#include "test_captures.moc"
