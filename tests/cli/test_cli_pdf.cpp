// `corvane-cli pdf` run as a process: the three reports written where asked and read
// back, the parts left out, the contracts' filters, and the refusals with their codes.

#include "commun/OutilsDocument.h"
#include "exchange/test_pdf_lecture.h"
#include "records/OutilsContrats.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

namespace {

ResultatCli pdf(const QStringList& arguments)
{
    return lancerCli(QStringList{"--aujourdhui", "2026-03-05", "--json", "pdf"} + arguments);
}

} // namespace

class TestCliPdf : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    QString m_document;
    int m_numero = 0;

    QString sortie() { return m_dossier.filePath(QStringLiteral("rapport%1.pdf").arg(++m_numero)); }

private slots:
    void initTestCase()
    {
        m_document = documentContrats(m_dossier, QStringLiteral("cli.cv4"));
        const ResultatCli profil = lancerCli({"profil", "modifier", m_document, "--naissance", "1980-05-14",
                                              "--lieu-naissance", "Lyon", "--iban", "FR76 1234", "--abattement", "25"});
        QVERIFY2(profil.code == 0, qPrintable(profil.erreurs));
        const int orly = ajouterEmployeur(m_document, QStringLiteral("Théâtre d'Orly"));
        const int opera = ajouterEmployeur(m_document, QStringLiteral("Opéra"));
        ajouterContrat(m_document, {orly, QDate(2024, 1, 8), QDate(2024, 1, 10), 36, 3, 1234.56, 950.5});
        ajouterContrat(m_document, {opera, QDate(2024, 3, 4), QDate(2024, 3, 8), 60, 5, 2500.0, 1950.0});
    }

    void rapports_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QString>("nom");
        QTest::addColumn<QStringList>("presents");
        QTest::addColumn<QStringList>("absents");
        QTest::newRow("profil") << QStringList{"--rapport", "profil"} << "Relevé d'informations 5 3 2026"
                                << QStringList{"Né le 14/05/1980 à Lyon", "Abattement : 25 %", "IBAN FR76 1234",
                                               "Jeanne Dupont Imprimé le 05/03/2026 1 / 2"}
                                << QStringList{};
        QTest::newRow("profil sans RIB ni état civil")
            << QStringList{"--rapport", "profil", "--sans", "rib,etat-civil"} << "Relevé d'informations 5 3 2026"
            << QStringList{"Abattement : 25 %"} << QStringList{"IBAN", "Né le", "Etat civil"};
        QTest::newRow("employeurs") << QStringList{"--rapport", "employeurs"} << "Liste des employeurs"
                                    << QStringList{"Cumuls par employeur", "Théâtre d'Orly 3 36 1 234,56 € 950,50 €",
                                                   "Totaux 8 96 3 734,56 € 2 900,50 €"}
                                    << QStringList{};
        QTest::newRow("employeurs sans cumuls")
            << QStringList{"--rapport", "employeurs", "--sans", "cumuls"} << "Liste des employeurs"
            << QStringList{"Enseigne", "Opéra"} << QStringList{"Cumuls", "Totaux"};
        QTest::newRow("contrats") << QStringList{"--rapport", "contrats"} << "Liste des contrats"
                                  << QStringList{"08/01/2024", "04/03/2024", "Totaux 8 96 3 734,56 € 2 900,50 €"}
                                  << QStringList{};
        QTest::newRow("contrats d'un employeur")
            << QStringList{"--rapport", "contrats", "--employeur", "Opéra", "--periode",
                           "periode",   "--du",     "2024-01-01",  "--au",  "2024-12-31"}
            << "Liste des contrats"
            << QStringList{"Du 01/01/2024 au 31/12/2024", "04/03/2024", "Totaux 5 60 2 500,00 € 1 950,00 €"}
            << QStringList{"08/01/2024", "Orly"};
        QTest::newRow("contrats sans la liste")
            << QStringList{"--rapport", "contrats", "--sans", "liste"} << "Liste des contrats"
            << QStringList{"Contrats : 2", "Salaires bruts : 3 734,56 €"} << QStringList{"08/01/2024"};
    }

    void rapports()
    {
        QFETCH(QStringList, options);
        QFETCH(QString, nom);
        QFETCH(QStringList, presents);
        QFETCH(QStringList, absents);
        const QString chemin = sortie();
        const QByteArray avant = empreinte(m_document);
        const ResultatCli r = pdf(QStringList{m_document, "--sortie", chemin} + options);
        QCOMPARE(r.code, 0);
        QVERIFY2(r.erreurs.isEmpty(), qPrintable(r.erreurs));
        const QJsonObject json = lireJson(r);
        QCOMPARE(json.value("fichier").toString(), chemin);
        QCOMPARE(json.value("nom").toString(), nom);
        const QStringList pages = pagesPdf(chemin);
        QCOMPARE(json.value("pages").toInt(), pages.size());
        QVERIFY(!pages.isEmpty());
        const QString texte = pages.join("\n");
        for (const QString& present : presents)
            QVERIFY2(texte.contains(present), qPrintable(present + "\n---\n" + texte));
        for (const QString& absent : absents)
            QVERIFY2(!texte.contains(absent), qPrintable(absent));
        // The document is only read, and nothing but the report is left behind.
        QCOMPARE(empreinte(m_document), avant);
        QVERIFY(!QFileInfo::exists(chemin + ".temp"));
    }

    void texteSansJson()
    {
        const QString chemin = sortie();
        const ResultatCli r = lancerCli({"pdf", m_document, "--rapport", "employeurs", "--sortie", chemin});
        QCOMPARE(r.code, 0);
        QVERIFY2(QString::fromUtf8(r.sortie).startsWith("Rapport « Liste des employeurs » écrit dans "),
                 r.sortie.constData());
        QVERIFY(QFileInfo::exists(chemin));
    }

    void sansPlateformeGraphique()
    {
        // Without QT_QPA_PLATFORM the command still lays the report out, with no display.
        QProcess processus;
        QProcessEnvironment environnement = QProcessEnvironment::systemEnvironment();
        environnement.remove("QT_QPA_PLATFORM");
        environnement.remove("DISPLAY");
        environnement.remove("WAYLAND_DISPLAY");
        processus.setProcessEnvironment(environnement);
        const QString chemin = sortie();
        processus.start(QStringLiteral(CORVANE_CLI_EXE),
                        {"pdf", m_document, "--rapport", "profil", "--sortie", chemin});
        QVERIFY(processus.waitForFinished(30000));
        QCOMPARE(processus.exitCode(), 0);
        QCOMPARE(processus.readAllStandardError(), QByteArray());
        QVERIFY(pagesPdf(chemin).value(0).contains("Relevé d'informations"));
    }

    void refus_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message");
        const QString absent = m_dossier.filePath("absent.cv4");
        const QString sortieValide = m_dossier.filePath("refus.pdf");
        QTest::newRow("rapport inconnu") << QStringList{m_document, "--rapport", "frais", "--sortie", sortieValide} << 2
                                         << "rapport inconnu";
        QTest::newRow("sans sortie") << QStringList{m_document, "--rapport", "profil"} << 2 << "--sortie";
        QTest::newRow("sans rapport") << QStringList{m_document, "--sortie", sortieValide} << 2 << "--rapport";
        QTest::newRow("partie inconnue") << QStringList{m_document,   "--rapport", "profil", "--sortie",
                                                        sortieValide, "--sans",    "tout"}
                                         << 2 << "partie inconnue";
        QTest::newRow("filtre hors des contrats")
            << QStringList{m_document, "--rapport", "profil", "--sortie", sortieValide, "--employeur", "Opéra"} << 2
            << "--rapport contrats";
        QTest::newRow("période inconnue")
            << QStringList{m_document, "--rapport", "contrats", "--sortie", sortieValide, "--periode", "hier"} << 2
            << "période inconnue";
        QTest::newRow("employeur inconnu")
            << QStringList{m_document, "--rapport", "contrats", "--sortie", sortieValide, "--employeur", "Personne"}
            << 1 << "aucun employeur ne s'appelle « Personne »";
        QTest::newRow("document absent") << QStringList{absent, "--rapport", "profil", "--sortie", sortieValide} << 1
                                         << "";
        QTest::newRow("dossier de sortie absent")
            << QStringList{m_document, "--rapport", "profil", "--sortie", m_dossier.filePath("nulle/part.pdf")} << 1
            << "n'a pas pu être écrit";
        QTest::newRow("le document lui-même")
            << QStringList{m_document, "--rapport", "profil", "--sortie", m_document} << 1 << "document lui-même";
    }

    void refus()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, code);
        QFETCH(QString, message);
        const QByteArray avant = empreinte(m_document);
        const ResultatCli r = pdf(arguments);
        QCOMPARE(r.code, code);
        QVERIFY2(r.erreurs.startsWith("corvane-cli: "), qPrintable(r.erreurs));
        QVERIFY2(r.erreurs.contains(message), qPrintable(r.erreurs));
        QVERIFY(r.sortie.isEmpty());
        QVERIFY(!QFileInfo::exists(m_dossier.filePath("refus.pdf")));
        QVERIFY(!QFileInfo::exists(m_dossier.filePath("absent.cv4")));
        QCOMPARE(empreinte(m_document), avant);
    }
};

QTEST_MAIN(TestCliPdf)
#include "test_cli_pdf.moc"
