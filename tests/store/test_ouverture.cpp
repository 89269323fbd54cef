// Recognising a file's generation, refusing what is not a sound document, and
// converting the earlier product's files.

#include "commun/Reference.h"
#include "store/Fichiers.h"
#include "store/Horloge.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

class TestOuverture : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;

    QString nouveauDocument(const QString& nom) { return creerDocument(parametresParDefaut(m_dossier.filePath(nom))); }

    // The kinds of bad input: each must be refused with a French message, and nothing written.
    QString mauvaiseEntree(const QString& type)
    {
        const QString chemin = m_dossier.filePath(type);
        if (type == "absent")
            return chemin;
        if (type == "dossier") {
            QDir().mkpath(chemin);
            return chemin;
        }
        if (type == "texte") {
            ecrire(chemin, "Nom;Prénom\nDupont;Jeanne\n");
            return chemin;
        }
        const QByteArray document = lire(nouveauDocument(type + ".source"));
        if (type == "tronque") {
            ecrire(chemin, document.left(document.size() / 2 + 100));
        } else if (type == "endommage") {
            QByteArray abime = document;
            for (qsizetype i = 4096; i < abime.size(); i += 7)
                abime[i] = char(0xA5);
            ecrire(chemin, abime);
        } else if (type == "entete-seule") {
            ecrire(chemin, document.left(100));
        }
        return chemin;
    }

private slots:
    void initTestCase() { Horloge::fixer(QDate(2024, 6, 15)); }

    void generations_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("generation");
        cas("Orvia 1", "generation1.sql", "1");
        cas("Orvia 2", "generation2.sql", "2");
        cas("Orvia 2.5", "generation25.sql", "2.5");
        cas("generation 3", "generation3.sql", "3");
    }

    void generations()
    {
        QFETCH(QString, script);
        QFETCH(QString, generation);
        const QString chemin = m_dossier.filePath(script + ".db");
        documentDepuisScript(script, chemin);
        const QByteArray avant = empreinte(chemin);
        Fichiers fichiers;
        QCOMPARE(fichiers.checkVersion(chemin), generation);
        QCOMPARE(fichiers.version(chemin), generation);
        QCOMPARE(empreinte(chemin), avant);
    }

    void generationCourante()
    {
        Fichiers fichiers;
        QCOMPARE(fichiers.checkVersion(nouveauDocument("g4.cv4")), QStringLiteral("4"));
    }

    void sansTable_data()
    {
        QTest::addColumn<bool>("fichierVide");
        cas("empty file", true);
        cas("SQLite file without a table", false);
    }

    void sansTable()
    {
        QFETCH(bool, fichierVide);
        const QString chemin = m_dossier.filePath(fichierVide ? "vide.cv4" : "sans-table.cv4");
        if (fichierVide) {
            ecrire(chemin, {});
        } else {
            BaseDeDonnees base;
            QVERIFY(base.creer(chemin));
            base.exec("CREATE TABLE t (a); DROP TABLE t;");
        }
        const QByteArray avant = lire(chemin);
        Fichiers fichiers;
        QCOMPARE(fichiers.checkVersion(chemin), QStringLiteral("0"));
        // Without the first test, an empty catalogue would pass for the oldest generation.
        QCOMPARE(fichiers.version(chemin), QStringLiteral("1"));
        DialoguesScriptes dialogues;
        QCOMPARE(fichiers.ouvertureSQLite(chemin, QString(), dialogues), QString());
        QVERIFY(fichiers.erreur().contains(QStringLiteral("aucune donnée")));
        QVERIFY(dialogues.echanges().isEmpty());
        QCOMPARE(lire(chemin), avant);
    }

    void mauvaisesEntrees_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("message");
        // A missing path, a folder, a text file, a truncated document: cli_document.txt.
        cas("damaged pages", "endommage", "endommagé");
        cas("header only", "entete-seule", "endommagé");
    }

    void mauvaisesEntrees()
    {
        QFETCH(QString, type);
        QFETCH(QString, message);
        const QString chemin = mauvaiseEntree(type);
        const QByteArray avant = lire(chemin);
        const QStringList contenuDossier = QDir(m_dossier.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);

        Fichiers fichiers;
        QCOMPARE(fichiers.checkVersion(chemin), QString());
        QVERIFY2(fichiers.erreur().contains(message), qPrintable(fichiers.erreur()));
        DialoguesScriptes dialogues;
        QCOMPARE(fichiers.ouvertureSQLite(chemin, QString(), dialogues), QString());
        QVERIFY2(fichiers.erreur().contains(message), qPrintable(fichiers.erreur()));

        QCOMPARE(lire(chemin), avant);
        QCOMPARE(QFileInfo::exists(chemin), type != "absent");
        QCOMPARE(QDir(m_dossier.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), contenuDossier);
    }

    void conversion_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("generation");
        cas("Orvia 1", "generation1.sql", "1");
        cas("Orvia 2", "generation2.sql", "2");
        cas("Orvia 2.5", "generation25.sql", "2.5");
    }

    void conversion()
    {
        QFETCH(QString, script);
        QFETCH(QString, generation);
        const QString chemin = m_dossier.filePath(QStringLiteral("ancien-%1.orv").arg(generation));
        documentDepuisScript(script, chemin);
        const QByteArray avant = empreinte(chemin);

        Fichiers fichiers;
        DialoguesScriptes dialogues({"Convertir le fichier", "Ouvrir"});
        const QString copie = m_dossier.filePath(QStringLiteral("V3_ancien-%1.or3").arg(generation));
        QCOMPARE(fichiers.ouvertureSQLite(chemin, QString(), dialogues), copie);
        QVERIFY2(fichiers.erreur().isEmpty(), qPrintable(fichiers.erreur()));
        QCOMPARE(fichiers.generationInitiale(), generation);
        QCOMPARE(fichiers.cheminConverti(), copie);
        QCOMPARE(empreinte(chemin), avant);

        QCOMPARE(dialogues.echanges().size(), 2);
        QCOMPARE(dialogues.echanges()[0].titre, QStringLiteral("Ouverture de fichier"));
        QCOMPARE(dialogues.echanges()[0].message,
                 QStringLiteral("Ce fichier est issu de Orvia %1. Il peut être sauvegardé, puis converti dans le "
                                "nouveau format.\n\nSouhaitez-vous le convertir ?")
                     .arg(generation));
        QCOMPARE(dialogues.echanges()[1].titre, QStringLiteral("Gestion des fichiers"));
        QCOMPARE(dialogues.echanges()[1].message,
                 QStringLiteral("Votre fichier original a été sauvegardé, puis converti au format Corvane 3.\n\n"
                                "Souhaitez-vous ouvrir le nouveau fichier maintenant ?"));

        // The converted and upgraded copy against its stored dump: the profile, the employers with
        // the catch-all one, the contracts by their employer's name with their worked dates,
        // the expenses to the cent, the periods and the preferred dates.
        QCOMPARE(fichiers.checkVersion(copie), QStringLiteral("4"));
        CORVANE_COMPARER_REFERENCE(dump(copie).toUtf8(), QStringLiteral("conversion_orvia%1.txt").arg(generation));
    }

    void convertiSansOuvrir()
    {
        const QString ancien = m_dossier.filePath("plus-tard.orv");
        documentDepuisScript("generation25.sql", ancien);
        const QString courant = nouveauDocument("courant2.cv4");
        Fichiers fichiers;
        DialoguesScriptes dialogues({"Convertir le fichier", "Ne pas ouvrir"});
        QCOMPARE(fichiers.ouvertureSQLite(ancien, courant, dialogues), courant);
        const QString copie = m_dossier.filePath("V3_plus-tard.or3");
        QCOMPARE(fichiers.cheminConverti(), copie);
        // Not opened yet, so not upgraded yet.
        QCOMPARE(fichiers.checkVersion(copie), QStringLiteral("3"));
    }

    void copieDejaPresente()
    {
        const QString ancien = m_dossier.filePath("double.orv");
        documentDepuisScript("generation2.sql", ancien);
        const QString copie = m_dossier.filePath("V3_double.or3");
        ecrire(copie, "ne pas écraser");
        Fichiers fichiers;
        DialoguesScriptes dialogues({"Convertir le fichier", "Ouvrir"});
        QCOMPARE(fichiers.ouvertureSQLite(ancien, QString(), dialogues), QString());
        QVERIFY(fichiers.erreur().contains(QStringLiteral("existe déjà")));
        QCOMPARE(lire(copie), QByteArray("ne pas écraser"));
    }
};

QTEST_GUILESS_MAIN(TestOuverture)
#include "test_ouverture.moc"
