// Faults of the document store: a write killed midway leaves a hot journal that any
// opening must roll back, and a document locked by another program is "in use", not damaged.

#include "commun/OutilsDocument.h"
#include "store/Horloge.h"

#include <QTemporaryDir>
#include <QtTest>
#include <csignal>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace corvane;
using namespace corvane::test;

class TestPannes : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    QString document()
    {
        return creerDocument(parametresParDefaut(m_dossier.filePath(QStringLiteral("d%1.cv4").arg(++m_numero))));
    }

    // A child process commits "Engagé", then starts a transaction large enough to spill
    // into the document itself, and is killed with SIGKILL before it commits.
    static void interrompreUneEcriture(const QString& chemin)
    {
        const QByteArray fichier = chemin.toUtf8();
        const pid_t enfant = fork();
        if (enfant == 0) {
            sqlite3* db = nullptr;
            sqlite3_open_v2(fichier.constData(), &db, SQLITE_OPEN_READWRITE, nullptr);
            sqlite3_exec(db, "INSERT INTO employeurs (e_raison_sociale) VALUES ('Engagé');", nullptr, nullptr, nullptr);
            sqlite3_exec(db,
                         "PRAGMA cache_size = 1; BEGIN; INSERT INTO employeurs (e_raison_sociale) VALUES ('Perdu');",
                         nullptr, nullptr, nullptr);
            for (int i = 0; i < 200; ++i)
                sqlite3_exec(db, "INSERT INTO employeurs (e_raison_sociale) VALUES (hex(randomblob(2000)));", nullptr,
                             nullptr, nullptr);
            raise(SIGKILL);
        }
        int etat = 0;
        QCOMPARE(waitpid(enfant, &etat, 0), enfant);
        QVERIFY(WIFSIGNALED(etat) && WTERMSIG(etat) == SIGKILL);
        QVERIFY(QFileInfo(chemin + "-journal").size() > 0);
    }

private slots:
    void initTestCase()
    {
        Horloge::fixer(QDate(2024, 6, 15));
        BaseDeDonnees::fixerAttenteOccupe(200); // another program's lock is waited for a short while only
    }

    void journalChaud_data()
    {
        QTest::addColumn<QString>("ouverture");
        QTest::newRow("recognition") << "checkVersion";
        QTest::newRow("opening as the program does") << "ouvertureSQLite";
        QTest::newRow("connection for reading") << "ouvrirEnLecture";
    }

    void journalChaud()
    {
        QFETCH(QString, ouverture);
        const QString chemin = document();
        interrompreUneEcriture(chemin);

        Fichiers fichiers;
        if (ouverture == "checkVersion") {
            QCOMPARE(fichiers.checkVersion(chemin), QStringLiteral("4"));
        } else if (ouverture == "ouvertureSQLite") {
            DialoguesScriptes dialogues;
            QCOMPARE(fichiers.ouvertureSQLite(chemin, QString(), dialogues), chemin);
        } else {
            BaseDeDonnees base;
            QVERIFY(base.ouvrirEnLecture(chemin));
            QCOMPARE(base.entier("SELECT COUNT(*) FROM employeurs WHERE e_raison_sociale = 'Engagé';"), 1);
        }
        QVERIFY2(fichiers.erreur().isEmpty(), qPrintable(fichiers.erreur()));
        QVERIFY(!QFileInfo::exists(chemin + "-journal"));
        BaseDeDonnees base;
        QVERIFY(base.ouvrirEnLecture(chemin));
        QCOMPARE(base.texte("PRAGMA integrity_check;"), QStringLiteral("ok"));
        QCOMPARE(base.colonne("SELECT e_raison_sociale FROM employeurs ORDER BY e_id;"),
                 (QStringList{"Inconnu", "Engagé"}));
    }

    void journalChaudSurUnFichierProtege()
    {
        // Without write access the journal cannot be rolled back: both files are left as they are.
        const QString chemin = document();
        interrompreUneEcriture(chemin);
        QFile::setPermissions(chemin, QFile::ReadOwner | QFile::ReadGroup);
        const QByteArray document = empreinte(chemin);
        const QByteArray journal = empreinte(chemin + "-journal");
        Fichiers fichiers;
        QCOMPARE(fichiers.checkVersion(chemin), QString());
        QVERIFY2(fichiers.erreur().contains(QStringLiteral("doit être réparé après un enregistrement interrompu")),
                 qPrintable(fichiers.erreur()));
        QCOMPARE(empreinte(chemin), document);
        QCOMPARE(empreinte(chemin + "-journal"), journal);

        QFile::setPermissions(chemin, QFile::ReadOwner | QFile::WriteOwner);
        QCOMPARE(fichiers.checkVersion(chemin), QStringLiteral("4"));
    }

    void ecritureRefuseeDitPourquoi()
    {
        // Another program's write transaction outlasts the busy timeout.
        const QString chemin = document();
        BaseDeDonnees autre;
        QVERIFY(autre.ouvrir(chemin));
        QCOMPARE(autre.exec("BEGIN IMMEDIATE; UPDATE utilisateur SET u_nom = 'Autre';"), SQLITE_OK);

        BaseDeDonnees base;
        QVERIFY(base.ouvrir(chemin));
        QCOMPARE(base.executer("INSERT INTO employeurs (e_raison_sociale) VALUES (?);", {"Nouveau"}), SQLITE_BUSY);
        QVERIFY2(base.derniereErreur().contains(QStringLiteral("est utilisé par un autre programme")),
                 qPrintable(base.derniereErreur()));
        autre.exec("ROLLBACK;");
    }
};

QTEST_GUILESS_MAIN(TestPannes)
#include "test_pannes.moc"
