// Backups (names, copies, the recorded date), known files, the lock, the reminders
// and the settings table.

#include "commun/OutilsDocument.h"
#include "store/Horloge.h"
#include "store/Rappels.h"
#include "store/Sauvegardes.h"
#include "store/Verrou.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

class TestSauvegardes : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    QString document(const QString& nom = QStringLiteral("Dupont"))
    {
        NouveauDocument p = parametresParDefaut(m_dossier.filePath(QStringLiteral("doc%1.cv4").arg(++m_numero)));
        p.nom = nom;
        return creerDocument(p);
    }

    std::unique_ptr<Reglages> reglages()
    {
        return std::make_unique<Reglages>(m_dossier.filePath(QStringLiteral("reglages%1.ini").arg(++m_numero)));
    }

private slots:
    void init() { Horloge::fixer(QDate(2024, 3, 9)); }

    void nomDeSauvegarde_data()
    {
        QTest::addColumn<bool>("prefixe");
        QTest::addColumn<bool>("nom");
        QTest::addColumn<bool>("date");
        QTest::addColumn<QString>("surnom");
        QTest::addColumn<int>("format");
        QTest::addColumn<QString>("attendu");
        cas("nothing", false, false, false, "Dupont", 0, "sauvegarde");
        cas("name, empty surname", false, true, false, "", 0, "...");
        cas("date alone, format 0", false, false, true, "Dupont", 0, "20240309");
        cas("date alone, format 1", false, false, true, "Dupont", 1, "09032024");
        cas("date alone, unknown format", false, false, true, "Dupont", 2, "");
        cas("prefix and name, empty surname", true, true, false, "", 0, "Corvane");
        cas("all three", true, true, true, "Dupont", 0, "Corvane_Dupont_20240309");
        cas("all three, empty surname", true, true, true, "", 1, "Corvane_09032024");
        cas("name and date, empty surname", false, true, true, "", 0, "20240309");
        cas("surname with a quote", false, true, false, "O'Neil", 0, "O'Neil");
    }

    void nomDeSauvegarde()
    {
        QFETCH(bool, prefixe);
        QFETCH(bool, nom);
        QFETCH(bool, date);
        QFETCH(QString, surnom);
        QFETCH(int, format);
        QFETCH(QString, attendu);
        QCOMPARE(Sauvegardes::constructionNomFichierSauvegarde(prefixe, nom, date, document(surnom), format), attendu);
    }

    void nomSansDocument()
    {
        QCOMPARE(Sauvegardes::constructionNomFichierSauvegarde(true, true, true, QString(), 0),
                 QStringLiteral("aucun fichier ouvert..."));
    }

    void sauvegardeDeEnregistreChaqueDate()
    {
        const QString chemin = document();
        QVERIFY(!Sauvegardes::dateDerniereSauvegarde(chemin).isValid());
        const QString copie = m_dossier.filePath("copie.cv4");
        QVERIFY(Sauvegardes::sauvegardeDe(chemin, copie));
        QCOMPARE(Sauvegardes::dateDerniereSauvegarde(chemin), QDate(2024, 3, 9));
        Fichiers f;
        QCOMPARE(f.checkVersion(copie), QStringLiteral("4"));
        Horloge::fixer(QDate(2024, 4, 2));
        QVERIFY(Sauvegardes::sauvegardeDe(chemin, copie));
        QCOMPARE(Sauvegardes::dateDerniereSauvegarde(chemin), QDate(2024, 4, 2));
        QCOMPARE(Intermittent(chemin).compteLesEnregistrements("fichiersauvegardes"), 1);
    }

    void copieInteractive()
    {
        const QString chemin = document();
        auto r = reglages();
        const QString destination = m_dossier.filePath("interactive");
        DialoguesScriptes dialogues;
        dialogues.choisirChemins({destination, destination + ".cv4"});
        Sauvegardes::copieDeSauvegardeWithFile(chemin, dialogues, *r);
        QCOMPARE(dialogues.panneaux().size(), 1);
        QCOMPARE(dialogues.panneaux()[0].nomPropose, QStringLiteral("Corvane_Dupont_20240309"));
        QCOMPARE(dialogues.panneaux()[0].extension, QStringLiteral("cv4"));
        QVERIFY(dialogues.panneaux()[0].dossier.endsWith(QStringLiteral("/Corvane")));
        QVERIFY(QFileInfo::exists(destination + ".cv4"));
        QCOMPARE(dialogues.echanges().last().message,
                 QStringLiteral("La sauvegarde de votre fichier a été effectuée."));
        QCOMPARE(Sauvegardes::dateDerniereSauvegarde(chemin), QDate(2024, 3, 9));
        QCOMPARE(r->texte(Reglages::Cle::FilesLastPath), m_dossier.path());

        // A second interactive backup copies again but keeps the first date.
        Horloge::fixer(QDate(2024, 5, 1));
        Sauvegardes::copieDeSauvegardeWithFile(chemin, dialogues, *r);
        QCOMPARE(dialogues.panneaux()[1].dossier, m_dossier.path());
        QCOMPARE(dialogues.echanges().last().message,
                 QStringLiteral("La sauvegarde de votre fichier a été effectuée."));
        QCOMPARE(Sauvegardes::dateDerniereSauvegarde(chemin), QDate(2024, 3, 9));
    }

    // A copy that cannot be made is said so, leaves nothing behind and records no date; over the
    // open document it is refused; a cancelled panel does nothing at all.
    void copieRefusee_data()
    {
        QTest::addColumn<QString>("destination"); // "" for a cancelled panel, "DOC" for the document itself
        QTest::addColumn<QString>("message");     // its start
        const QString impossible = QStringLiteral("La copie de sauvegarde n'a pas pu être effectuée : ");
        cas("read-only folder", "protege/copie.cv4", impossible);
        cas("destination is a folder", "dossier-cible.cv4", impossible);
        cas("the open document", "DOC",
            "Vous ne pouvez pas enregistrer une copie de sauvegarde en écrasant le fichier "
            "en cours.");
        cas("cancelled", "", "");
    }

    void copieRefusee()
    {
        QFETCH(QString, destination);
        QFETCH(QString, message);
        const QString chemin = document();
        QDir(m_dossier.path()).mkpath("protege");
        QDir(m_dossier.path()).mkpath("dossier-cible.cv4");
        QFile::setPermissions(m_dossier.filePath("protege"), QFile::ReadOwner | QFile::ExeOwner);
        if (destination.startsWith("protege") && QFileInfo(m_dossier.filePath("protege")).isWritable())
            QSKIP("an administrator writes into read-only folders");
        const QString cible = destination == "DOC" ? chemin : m_dossier.filePath(destination);
        const QByteArray avant = empreinte(chemin);
        auto r = reglages();
        DialoguesScriptes dialogues;
        if (!destination.isEmpty())
            dialogues.choisirChemins({cible});
        Sauvegardes::copieDeSauvegardeWithFile(chemin, dialogues, *r);
        QCOMPARE(dialogues.echanges().size(), message.isEmpty() ? 0 : 1);
        if (!message.isEmpty())
            QVERIFY2(dialogues.echanges()[0].message.startsWith(message), qPrintable(dialogues.echanges()[0].message));
        QCOMPARE(empreinte(chemin), avant);
        QVERIFY(!Sauvegardes::dateDerniereSauvegarde(chemin).isValid());
        if (message.startsWith("La copie")) {
            QCOMPARE(dialogues.echanges()[0].titre, QStringLiteral("Sauvegardes"));
            QVERIFY(!QFileInfo(cible).isFile());
            QVERIFY(!QFileInfo::exists(cible + ".copie-en-cours"));
            QString raison;
            QVERIFY(!Sauvegardes::sauvegardeDe(chemin, cible, &raison));
            QVERIFY(!raison.isEmpty());
        }
    }

    void remplaceUnFichierQuelconque()
    {
        // The chosen destination may be an existing file of any kind: the save panel confirmed it.
        const QString chemin = document();
        const QString destination = m_dossier.filePath("ancien.cv4");
        QFile f(destination);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("texte quelconque");
        f.close();
        QVERIFY(Sauvegardes::sauvegardeDe(chemin, destination));
        QCOMPARE(Fichiers().checkVersion(destination), QStringLiteral("4"));
    }

    void fichiersConnus()
    {
        auto r = reglages();
        Sauvegardes::addFileToPreferences("/a/un.cv4", *r);
        Sauvegardes::addFileToPreferences("/a/deux.cv4", *r);
        Sauvegardes::addFileToPreferences("/a/un.cv4", *r);
        QCOMPARE(r->liste(Reglages::Cle::Files), (QStringList{"/a/un.cv4", "/a/deux.cv4"}));
        Sauvegardes::removeFileFromPreferences("/a/absent.cv4", *r);
        QCOMPARE(r->liste(Reglages::Cle::Files).size(), 2);
        Sauvegardes::removeFileFromPreferences("/a/un.cv4", *r);
        Sauvegardes::removeFileFromPreferences("/a/deux.cv4", *r);
        QCOMPARE(r->liste(Reglages::Cle::Files), QStringList());
    }

    void verrou()
    {
        const QString chemin = document();
        QVERIFY(!Verrou::isFileLocked(chemin));
        QCOMPARE(Verrou::motDePasse(chemin), QString());
        QVERIFY(Verrou::estLeMotDePasse(chemin, QString()));
        Verrou::changerMotDePasse(chemin, QStringLiteral("façade €"));
        QVERIFY(Verrou::estLeMotDePasse(chemin, QStringLiteral("façade €")));
        QVERIFY(!Verrou::estLeMotDePasse(chemin, QStringLiteral("facade €")));
        Verrou::enregistrerVerrouillage(chemin, true);
        QVERIFY(Verrou::isFileLocked(chemin));
        Verrou::enregistrerVerrouillage(chemin, false);
        QVERIFY(!Verrou::isFileLocked(chemin));
        // Only 1 counts as locked.
        Intermittent(chemin).db().exec("UPDATE file SET f_locked = 2;");
        QVERIFY(!Verrou::isFileLocked(chemin));
    }

    void fenetreActualisation_data()
    {
        QTest::addColumn<int>("jour");
        QTest::addColumn<int>("debut");
        QTest::addColumn<int>("fin");
        QTest::addColumn<bool>("active");
        cas("27th, default window", 27, 28, 7, false);
        cas("28th", 28, 28, 7, true);
        cas("1st", 1, 28, 7, true);
        cas("7th", 7, 28, 7, true);
        cas("8th", 8, 28, 7, false);
        cas("window within a month, inside", 12, 10, 20, true);
    }

    void fenetreActualisation()
    {
        QFETCH(int, jour);
        QFETCH(int, debut);
        QFETCH(int, fin);
        QFETCH(bool, active);
        QCOMPARE(Rappels::fenetreActualisation(jour, debut, fin), active);
    }

    void rappelsDuDocument_data()
    {
        QTest::addColumn<QDate>("aujourdhui");
        QTest::addColumn<QDate>("derniereSauvegarde");
        QTest::addColumn<int>("taux");
        QTest::addColumn<bool>("actualisation");
        QTest::addColumn<bool>("impots");
        QTest::addColumn<bool>("sauvegarde");
        QTest::addColumn<bool>("impayes");
        // An unpaid contract ended on 2024-03-01.
        cas("no backup yet, March 9", QDate(2024, 3, 9), QDate(), 0, false, false, true, true);
        cas("April 30, recent backup", QDate(2024, 4, 30), QDate(2024, 4, 20), 3, true, true, false, false);
        cas("backup exactly 30 days ago", QDate(2024, 3, 8), QDate(2024, 2, 7), 0, false, false, true, true);
        cas("backup 29 days ago", QDate(2024, 3, 8), QDate(2024, 2, 8), 0, false, false, false, true);
        cas("+7 days, the day before", QDate(2024, 3, 7), QDate(2024, 3, 1), 0, true, false, false, false);
        cas("+15 days, reached", QDate(2024, 3, 16), QDate(2024, 3, 1), 1, false, false, false, true);
        cas("+15 days, not yet", QDate(2024, 3, 15), QDate(2024, 3, 1), 1, false, false, false, false);
        cas("+1 month, reached", QDate(2024, 4, 1), QDate(2024, 3, 20), 2, true, true, false, true);
        cas("+2 month, reached", QDate(2024, 5, 1), QDate(2024, 4, 20), 3, true, false, false, true);
        cas("rate 7 behaves as +7 days", QDate(2024, 3, 8), QDate(2024, 3, 1), 7, false, false, false, true);
    }

    void rappelsDuDocument()
    {
        QFETCH(QDate, aujourdhui);
        QFETCH(QDate, derniereSauvegarde);
        QFETCH(int, taux);
        QFETCH(bool, actualisation);
        QFETCH(bool, impots);
        QFETCH(bool, sauvegarde);
        QFETCH(bool, impayes);
        const QString chemin = document();
        Intermittent d(chemin);
        d.db().exec("INSERT INTO contrats (c_debut_contrat, c_fin_contrat, c_paye, c_dates_travaillees) VALUES "
                    "('2024-02-28 00:00:00.000', '2024-03-01 00:00:00.000', 0, 'x');"
                    "INSERT INTO contrats (c_debut_contrat, c_fin_contrat, c_paye, c_dates_travaillees) VALUES "
                    "('2023-02-28 00:00:00.000', '2023-03-01 00:00:00.000', 1, 'x');");
        if (derniereSauvegarde.isValid())
            d.db().executer("INSERT INTO fichiersauvegardes (fs_date) VALUES (?);", {derniereSauvegarde});
        auto r = reglages();
        r->ecrire(Reglages::Cle::ContractsAlertRate, taux);
        Horloge::fixer(aujourdhui);
        const Rappels rappels = Rappels::calculer(chemin, *r);
        QCOMPARE(rappels.actualisation, actualisation);
        QCOMPARE(rappels.declarationImpots, impots);
        QCOMPARE(rappels.sauvegarde, sauvegarde);
        QCOMPARE(rappels.contratsImpayes, impayes);
        QCOMPARE(rappels.compteur(), int(actualisation) + int(impots) + int(sauvegarde) + int(impayes));

        r->ecrire(Reglages::Cle::ActiverAlertes, false);
        QCOMPARE(Rappels::calculer(chemin, *r).compteur(), 0);
        r->ecrire(Reglages::Cle::ActiverAlertes, true);
        QCOMPARE(Rappels::calculer(QString(), *r).compteur(), 0);
    }

    void sauvegardePrevue()
    {
        const QString chemin = document();
        auto r = reglages();
        QVERIFY(!Sauvegardes::sauvegardePrevueAujourdhui(chemin, *r));
        Intermittent(chemin).db().executer("INSERT INTO fichiersauvegardes (fs_date) VALUES (?);", {QDate(2024, 2, 8)});
        QVERIFY(Sauvegardes::sauvegardePrevueAujourdhui(chemin, *r)); // 30 days later
        r->ecrire(Reglages::Cle::FichierSauvegardeJours, 10);
        QVERIFY(!Sauvegardes::sauvegardePrevueAujourdhui(chemin, *r));
    }

    void reglagesParDefaut()
    {
        auto r = reglages();
        r->stockage().setValue("SMTP_Port", 25);
        r->stockage().setValue("verifsMajEnLigne", true);
        r->ecrire(Reglages::Cle::AlerteActualisationDebut, 25);
        r->enregistrerDefauts();
        // The user's own value stays, the missing ones are written, the obsolete ones go.
        QCOMPARE(r->entier(Reglages::Cle::AlerteActualisationDebut), 25);
        QVERIFY(r->contient(Reglages::Cle::ContratsSens) && r->contient(Reglages::Cle::FichierSauvegardeJours));
        QVERIFY(!r->stockage().contains("SMTP_Port"));
        QVERIFY(!r->stockage().contains("verifsMajEnLigne"));
    }
};

QTEST_GUILESS_MAIN(TestSauvegardes)
#include "test_sauvegardes.moc"
