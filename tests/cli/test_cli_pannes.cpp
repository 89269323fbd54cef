// corvane-cli, in-process, on documents in trouble: locked by another program, protected
// by a password, in WAL mode, with a damaged page; and inputs that must be refused in French
// without a trace.

#include "commun/OutilsCli.h"

#include <QTemporaryDir>
#include <QtTest>
#include <sqlite3.h>
#include <sys/stat.h>

using namespace corvane;
using namespace corvane::test;

namespace {

ResultatCli lancer(const QStringList& arguments)
{
    return executerCli(QStringList{"--aujourdhui", "2024-06-15", "--json"} + arguments);
}

QJsonObject json(const ResultatCli& r)
{
    return QJsonDocument::fromJson(r.sortie).object();
}

} // namespace

class TestCliPannes : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    // Each document in a folder of its own, so that a stray file beside it shows.
    QString document(const QStringList& options = {})
    {
        const QString dossier = m_dossier.filePath(QString::number(++m_numero));
        QDir().mkpath(dossier);
        const QString chemin = dossier + "/doc.cv4";
        const ResultatCli r = lancer(QStringList{"nouveau", chemin, "--nom", "Martin", "--prenom", "Léa", "--emploi",
                                                 "Artiste", "--ouverture", "2024-02-01"} +
                                     options);
        if (r.code != 0)
            qWarning() << r.erreurs;
        return chemin;
    }

    static QStringList contenu(const QString& chemin)
    {
        return QFileInfo(chemin).dir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System);
    }

private slots:
    // Another program's lock is waited for a short while only.
    void initTestCase() { BaseDeDonnees::fixerAttenteOccupe(200); }

    void occupe_data()
    {
        QTest::addColumn<QStringList>("commande");
        QTest::addColumn<QString>("verrou"); // what the other program holds
        cas("info", QStringList{"info"}, "BEGIN EXCLUSIVE;");
        cas("a records command", QStringList{"employeur", "lister"}, "BEGIN EXCLUSIVE;");
        // A long reader lets the document be read and checked: the refusal comes when the
        // profile's write is committed.
        cas("profil modifier under a reader", QStringList{"profil", "modifier", "--nom", "Durand", "--commune", "Lyon"},
            "BEGIN; SELECT COUNT(*) FROM utilisateur;");
    }

    void occupe()
    {
        QFETCH(QStringList, commande);
        QFETCH(QString, verrou);
        const QString chemin = document();
        BaseDeDonnees autre;
        QVERIFY(autre.ouvrir(chemin));
        QCOMPARE(autre.exec(verrou), SQLITE_OK);
        const ResultatCli r = lancer(commande + QStringList{chemin});
        autre.exec("ROLLBACK;");
        QCOMPARE(r.code, 1);
        QVERIFY2(
            r.erreurs.contains(QStringLiteral("Le fichier « %1 » est utilisé par un autre programme.").arg(chemin)),
            qPrintable(r.erreurs));
        QVERIFY(!r.erreurs.contains(QStringLiteral("endommagé")));
        QCOMPARE(autre.texte("SELECT u_nom || '|' || u_commune FROM utilisateur WHERE u_id = 1;"),
                 QStringLiteral("Martin|"));
    }

    void sauvegarderSousUnAutreEcrivain()
    {
        const QString chemin = document();
        BaseDeDonnees autre;
        QVERIFY(autre.ouvrir(chemin));
        QCOMPARE(autre.exec("BEGIN IMMEDIATE; UPDATE utilisateur SET u_nom = 'Autre';"), SQLITE_OK);
        const ResultatCli r = lancer({"sauvegarder", chemin, chemin + ".copie"});
        autre.exec("ROLLBACK;");
        QCOMPARE(r.code, 1);
        QVERIFY2(r.erreurs.contains(QStringLiteral("la date de la sauvegarde n'a pas pu être enregistrée")) &&
                     r.erreurs.contains(QStringLiteral("est utilisé par un autre programme")),
                 qPrintable(r.erreurs));
        QVERIFY(r.sortie.isEmpty());
    }

    void documentProtege_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("code");
        QTest::addColumn<bool>("comptes");
        cas("ouvrir without the password", QStringList{"ouvrir"}, 1, false);
        cas("ouvrir with a wrong one", QStringList{"--mot-de-passe", "faux", "ouvrir"}, 1, false);
        cas("info with a wrong one", QStringList{"--mot-de-passe", "faux", "info"}, 0, false);
        cas("info with the right one", QStringList{"--mot-de-passe", "sésame", "info"}, 0, true);
    }

    void documentProtege()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, code);
        QFETCH(bool, comptes);
        // A document from before the last column the upgrade pass adds: opening it would write.
        const QString chemin = document({"--mot-de-passe", "sésame"});
        {
            BaseDeDonnees base;
            QVERIFY(base.ouvrir(chemin));
            QCOMPARE(base.exec("ALTER TABLE utilisateur DROP COLUMN u_annee_blanche;"), SQLITE_OK);
        }
        const QByteArray avant = empreinte(chemin);
        const ResultatCli r = lancer(arguments + QStringList{chemin});
        QCOMPARE(r.code, code);
        QCOMPARE(empreinte(chemin), avant);
        if (code == 1)
            QVERIFY2(r.erreurs.contains(QStringLiteral("mot de passe")), qPrintable(r.erreurs));
        else
            QCOMPARE(json(r).value("verrouille").toBool(), true);
        QCOMPARE(json(r).contains("enregistrements"), comptes);
    }

    void infoSansTrace()
    {
        // A read-only connection to a WAL document creates -wal and -shm and cannot remove them.
        const QString chemin = document();
        {
            BaseDeDonnees base;
            QVERIFY(base.ouvrir(chemin));
            QCOMPARE(base.texte("PRAGMA journal_mode = WAL;"), QStringLiteral("wal"));
        }
        const QStringList fichiers = contenu(chemin);
        QCOMPARE(fichiers, QStringList{"doc.cv4"});
        const QByteArray avant = empreinte(chemin);
        const ResultatCli r = lancer({"info", chemin});
        QCOMPARE(r.code, 0);
        QCOMPARE(contenu(chemin), fichiers);
        QCOMPARE(empreinte(chemin), avant);
    }

    // A broken page in a table the listing never reads: only the check of every page
    // finds it, which writes need and reads do without.
    void pageAbimee_data()
    {
        QTest::addColumn<QStringList>("commande");
        QTest::addColumn<int>("code");
        cas("contrat lister", QStringList{"contrat", "lister"}, 0);
        cas("employeur ajouter", QStringList{"employeur", "ajouter", "--nom", "Opéra", "--commune", "Lyon"}, 1);
    }

    void pageAbimee()
    {
        QFETCH(QStringList, commande);
        QFETCH(int, code);
        const QString chemin = document();
        qint64 racine = 0;
        qint64 taillePage = 0;
        {
            BaseDeDonnees base;
            QVERIFY(base.ouvrirEnLecture(chemin));
            racine = base.entier(QStringLiteral("SELECT rootpage FROM sqlite_master WHERE name = 'propositions';"));
            taillePage = base.entier(QStringLiteral("PRAGMA page_size;"));
        }
        QVERIFY(racine > 1);
        QFile fichier(chemin);
        QVERIFY(fichier.open(QIODevice::ReadWrite) && fichier.seek((racine - 1) * taillePage));
        QCOMPARE(fichier.write(QByteArray(1, '\x00')), 1); // no such page type
        fichier.close();
        const QByteArray avant = empreinte(chemin);
        const ResultatCli r = lancer(commande.mid(0, 2) + QStringList{chemin} + commande.mid(2));
        QVERIFY2(r.code == code, qPrintable(r.erreurs));
        if (code != 0) {
            QVERIFY2(r.erreurs.contains("endommagé"), qPrintable(r.erreurs));
            QCOMPARE(empreinte(chemin), avant);
        }
    }

    void refusEnFrancais_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("cible");
        QTest::addColumn<QString>("message");
        cas("photo: missing file", QStringList{"profil", "modifier", "DOC", "--photo", "CIBLE"}, "absente.jpg",
            "la photo « CIBLE » est introuvable");
        cas("photo: a folder", QStringList{"profil", "modifier", "DOC", "--photo", "CIBLE"}, "dossier",
            "n'est pas un fichier");
        // Nothing of the profile is written when one of its fields cannot be.
        cas("profile: a field the document refuses",
            QStringList{"profil", "modifier", "DOC", "--nom", "Durand", "--commune", "Lyon"}, "refus",
            "Le profil n'a pas pu être enregistré : une valeur n'est pas acceptée par le fichier.");
        cas("backup: its temporary name taken", QStringList{"sauvegarder", "DOC", "CIBLE"}, "prise.cv4",
            "le fichier ne peut pas être ouvert");
        cas("backup: no destination", QStringList{"sauvegarder", "DOC", ""}, QString(), "aucun fichier de destination");
        cas("backup: a pipe under that name", QStringList{"sauvegarder", "DOC", "CIBLE"}, "tube.cv4",
            "n'est pas un fichier ordinaire");
    }

    void refusEnFrancais()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, cible);
        QFETCH(QString, message);
        const QString chemin = document();
        const QString dossier = QFileInfo(chemin).absolutePath();
        if (cible == "dossier")
            QDir(dossier).mkpath(cible);
        if (cible == "prise.cv4")
            QDir(dossier).mkpath(cible + ".copie-en-cours");
        if (cible == "refus") {
            // Opened once by the program already, so that the command's upgrade pass writes nothing.
            QCOMPARE(lancer({"ouvrir", chemin}).code, 0);
            BaseDeDonnees base;
            QVERIFY(base.ouvrir(chemin));
            QCOMPARE(base.exec("CREATE TRIGGER refus BEFORE UPDATE OF u_commune ON utilisateur BEGIN SELECT "
                               "RAISE(ABORT, 'refus'); END;"),
                     SQLITE_OK);
        }
        if (cible == "tube.cv4")
            QCOMPARE(mkfifo(QFile::encodeName(dossier + "/" + cible).constData(), 0600), 0);
        const QString cheminCible = cible.isEmpty() || cible == "refus" ? QString() : dossier + "/" + cible;
        arguments.replaceInStrings("DOC", chemin).replaceInStrings("CIBLE", cheminCible);
        const QStringList fichiers = contenu(chemin);
        const QByteArray avant = empreinte(chemin);

        // Neither SQLite's English nor a Qt warning.
        QTest::failOnWarning(QRegularExpression(".*"));
        const ResultatCli r = lancer(arguments);
        QCOMPARE(r.code, 1);
        QVERIFY2(r.erreurs.contains(message.replace("CIBLE", cheminCible)), qPrintable(r.erreurs));
        QVERIFY(r.sortie.isEmpty());
        QCOMPARE(contenu(chemin), fichiers);
        QCOMPARE(empreinte(chemin), avant);
        if (cible == "tube.cv4")
            QVERIFY(!QFileInfo(cheminCible).isFile());
    }
};

QTEST_GUILESS_MAIN(TestCliPannes)
#include "test_cli_pannes.moc"
