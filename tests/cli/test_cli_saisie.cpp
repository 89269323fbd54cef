// What the command line refuses before it writes: an absurd figure or date is bad usage
// (exit 2), a value within its bounds that a record's rule refuses is exit 1, and the
// document is left byte-identical either way. Free text keeps a leading byte-order mark;
// an argument that is not UTF-8 is refused. Run in-process through the command library.

#include "cli/Cli.h"
#include "records/Employeurs.h"
#include "records/OutilsContrats.h"
#include "store/Horloge.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

namespace {

struct Resultat
{
    int code = -1;
    QString erreurs;
};

Resultat executer(const QList<QByteArray>& arguments)
{
    QString sortie;
    QString erreurs;
    QTextStream fluxSortie(&sortie);
    QTextStream fluxErreurs(&erreurs);
    const int code = cli::Cli().executer(arguments, fluxSortie, fluxErreurs);
    fluxErreurs.flush();
    return {code, erreurs};
}

// The arguments as the system would pass them, "%1" standing for the document.
QList<QByteArray> octets(const QStringList& arguments, const QString& chemin)
{
    QList<QByteArray> liste;
    for (const QString& argument : arguments)
        liste << (argument == QStringLiteral("%1") ? chemin : argument).toUtf8();
    return liste;
}

} // namespace

class TestCliSaisie : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    QString document()
    {
        const QString chemin = documentContrats(m_dossier, QStringLiteral("saisie%1.cv4").arg(++m_numero));
        ajouterEmployeur(chemin, QStringLiteral("Opéra"));
        return chemin;
    }

private slots:
    void cleanup() { Horloge::reinitialiser(); }

    void refus_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message");
        const QStringList contrat{"contrat", "ajouter", "%1", "--employeur", "Opéra", "--debut", "2024-03-04"};
        QTest::newRow("gross written the German way")
            << contrat + QStringList{"--brut", "1.977,00"} << 2 << "montant invalide pour --brut : « 1.977,00 »";
        QTest::newRow("gross of 1e308") << contrat + QStringList{"--brut", "1e308"} << 2 << "le caractère « e »";
        QTest::newRow("negative net") << contrat + QStringList{"--net", "-5"} << 2 << "un montant négatif";
        QTest::newRow("ten thousand days") << contrat + QStringList{"--jours", "10 000"} << 2 << "entre 0 et 3700";
        QTest::newRow("withholding rate of 150 %") << contrat + QStringList{"--pas", "150"} << 2 << "entre 0 et 100";
        QTest::newRow("contract from year 1 to 9999")
            << QStringList{"contrat", "ajouter",    "%1",    "--employeur", "Opéra",
                           "--debut", "0001-01-01", "--fin", "9999-12-31"}
            << 2 << "entre le 01/01/1950 et le 31/12/2100";
        QTest::newRow("150 years within the date bounds: the contract's rule")
            << QStringList{"contrat",    "ajouter", "%1",         "--employeur", "Opéra",     "--debut",
                           "1950-01-01", "--fin",   "2100-12-31", "--type",      "Formations"}
            << 1 << "Un contrat ne peut pas durer plus de 3700 jours.";
        QTest::newRow("infinite daily wage")
            << QStringList{"profil", "modifier", "%1", "--srj", "inf"} << 2 << "montant invalide pour --srj";
        QTest::newRow("born in 1899") << QStringList{"profil", "modifier", "%1", "--naissance", "1899-12-31"} << 2
                                      << "entre le 01/01/1900";
        QTest::newRow("99 children") << QStringList{"profil", "modifier", "%1", "--enfants", "99"} << 2
                                     << "entre 0 et 30";
        QTest::newRow("template above a hundred million")
            << QStringList{"modele", "ajouter", "%1", "--libelle", "Gala", "--brut", "100 000 000,01"} << 2
            << "ne peut pas dépasser 100 000 000,00 €";
        QTest::newRow("400 days of leave deferral")
            << QStringList{"periode", "ajouter", "%1", "--debut", "2024-01-01", "--conges", "400"} << 2
            << "entre 0 et 365";
        QTest::newRow("today in year 9999") << QStringList{"--aujourdhui", "9999-01-01", "profil", "afficher", "%1"}
                                            << 2 << "date invalide pour --aujourdhui";
    }

    void refus()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, code);
        QFETCH(QString, message);
        const QString chemin = document();
        const QByteArray avant = empreinte(chemin);
        const Resultat r = executer(octets(arguments, chemin));
        QCOMPARE(r.code, code);
        QVERIFY2(r.erreurs.contains(message), qPrintable(r.erreurs));
        QCOMPARE(empreinte(chemin), avant);
    }

    void texte()
    {
        const QString chemin = document();
        const QString bom(QChar(0xFEFF));
        Resultat r =
            executer(octets({"employeur", "ajouter", "%1", "--nom", bom + "La Scala", "--commune", "Milan"}, chemin));
        QCOMPARE(r.code, 0);
        QCOMPARE(valeur(chemin, "SELECT hex(e_raison_sociale) FROM employeurs WHERE e_commune = 'Milan';"),
                 QString::fromLatin1(QByteArray("\xEF\xBB\xBFLa Scala").toHex().toUpper()));
        // Read back whole too.
        QVERIFY(Employeurs(chemin).tousLesEmployeurs().contains(bom + "La Scala"));

        // Bytes that are not UTF-8 would be stored as replacement characters: refused, nothing written.
        const QByteArray avant = empreinte(chemin);
        QList<QByteArray> arguments = octets({"employeur", "ajouter", "%1", "--nom", "", "--commune", "Lyon"}, chemin);
        arguments[4] = QByteArray("Op\xE9ra"); // Latin-1
        r = executer(arguments);
        QCOMPARE(r.code, 2);
        QVERIFY2(r.erreurs.contains(QStringLiteral("UTF-8")), qPrintable(r.erreurs));
        QCOMPARE(empreinte(chemin), avant);
    }
};

QTEST_GUILESS_MAIN(TestCliSaisie)
#include "test_cli_saisie.moc"
