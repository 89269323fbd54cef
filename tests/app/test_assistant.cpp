// The new-document assistant filled in through its widgets; the document it creates
// is then read back with SQLite.

#include "app/AssistantNouveauDocument.h"
#include "commun/OutilsEcran.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

class TestAssistant : public QObject
{
    Q_OBJECT

private:
    struct Banc
    {
        std::unique_ptr<Reglages> reglages;
        DialoguesScriptes dialogues;
        std::unique_ptr<AssistantNouveauDocument> assistant;
        QString dossier;
    };
    int m_numero = 0;

    std::unique_ptr<Banc> banc()
    {
        auto b = std::make_unique<Banc>();
        ++m_numero;
        b->dossier = g_maison->filePath(QStringLiteral("stockage%1").arg(m_numero));
        QDir().mkpath(b->dossier);
        b->reglages = std::make_unique<Reglages>(g_maison->filePath(QStringLiteral("reglages%1.ini").arg(m_numero)));
        b->reglages->ecrire(Reglages::Cle::PrefsStockage, b->dossier);
        b->assistant = std::make_unique<AssistantNouveauDocument>(*b->reglages, b->dialogues);
        b->assistant->show();
        return b;
    }

    static void suivant(AssistantNouveauDocument& a) { a.button(QWizard::NextButton)->click(); }
    static void terminer(AssistantNouveauDocument& a) { a.button(QWizard::FinishButton)->click(); }

    // Fills every page with a valid profile and goes to the last page.
    static void remplir(AssistantNouveauDocument& a, const QString& motDePasse = {}, const QString& confirmation = {})
    {
        saisir(a, "prenom", "Jeanne");
        saisir(a, "nom", "Dupont");
        suivant(a);
        trouver<QDateEdit>(a, "dateOuvertureDroits")->setDate(QDate(2024, 3, 1));
        saisir(a, "tauxValide", "57,40");
        suivant(a);
        saisir(a, "motDePasse", motDePasse);
        saisir(a, "confirmationMotDePasse", confirmation);
    }

private slots:
    void init() { Horloge::fixer(QDate(2024, 3, 12)); }

    void enFrancais()
    {
        auto b = banc();
        AssistantNouveauDocument& a = *b->assistant;
        QCOMPARE(a.windowTitle(), QStringLiteral("Nouveau document"));
        QCOMPARE(a.buttonText(QWizard::NextButton), QStringLiteral("Suivant >"));
        QCOMPARE(a.buttonText(QWizard::FinishButton), QStringLiteral("Créer le document"));
        QCOMPARE(a.buttonText(QWizard::CancelButton), QStringLiteral("Annuler"));
        auto* emplois = trouver<QComboBox>(a, "emploi");
        QCOMPARE(emplois->count(), 5);
        QCOMPARE(emplois->itemText(3), QStringLiteral("Régime Général"));
        QCOMPARE(emplois->itemText(4), QStringLiteral("Auto Entrepreneur"));
        QCOMPARE(trouver<QComboBox>(a, "civilite")->itemText(2), QStringLiteral("Mr"));
        auto* date = trouver<QDateEdit>(a, "dateOuvertureDroits");
        QCOMPARE(date->displayFormat(), QStringLiteral("dd/MM/yyyy"));
        QVERIFY(date->calendarPopup());
        QCOMPARE(date->date(), QDate(2024, 3, 12));
    }

    void creation_data()
    {
        QTest::addColumn<QString>("civilite");
        QTest::addColumn<QString>("prenom");
        QTest::addColumn<QString>("nom");
        QTest::addColumn<QString>("emploi");
        QTest::addColumn<QDate>("ouverture");
        QTest::addColumn<QString>("taux");
        QTest::addColumn<bool>("renonce");
        QTest::addColumn<bool>("autoEntrepreneur");
        QTest::addColumn<QString>("motDePasse");
        // What the document holds: civility, job, opening, rate, abatement, self-employed, locked.
        QTest::addColumn<QString>("enregistre");
        cas("artiste sans mot de passe", "Mme", "Jeanne", "Dupont", "Artiste", QDate(2024, 3, 1), "57,40", false, false,
            "", "1|1|2024-03-01 00:00:00.000|57.4|2|0|0");
        cas("technicien protégé, sans abattement", "Mr", "Jean-Luc", "O'Brien", "Technicien", QDate(2023, 9, 15),
            "1 234,5", true, true, "sésame ouvre-toi", "3|3|2023-09-15 00:00:00.000|1234.5|1|1|1");
        cas("auto-entrepreneur, taux à point", "Mlle", "Zoé", "Lemaître", "Auto Entrepreneur", QDate(2022, 12, 31),
            "31.8", false, true, "", "2|5|2022-12-31 00:00:00.000|31.8|2|1|0");
        cas("régime général, taux vide", "Mme", "Ana", "Ruiz", "Régime Général", QDate(2024, 1, 2), "", false, false,
            "", "1|4|2024-01-02 00:00:00.000|0.0|2|0|0");
    }

    void creation()
    {
        QFETCH(QString, civilite);
        QFETCH(QString, prenom);
        QFETCH(QString, nom);
        QFETCH(QString, emploi);
        QFETCH(QDate, ouverture);
        QFETCH(QString, taux);
        QFETCH(bool, renonce);
        QFETCH(bool, autoEntrepreneur);
        QFETCH(QString, motDePasse);
        QFETCH(QString, enregistre);

        auto b = banc();
        AssistantNouveauDocument& a = *b->assistant;
        QSignalSpy cree(&a, &AssistantNouveauDocument::documentCree);
        choisir(a, "civilite", civilite);
        saisir(a, "prenom", prenom);
        saisir(a, "nom", nom);
        suivant(a);
        QCOMPARE(a.currentId(), int(AssistantNouveauDocument::PageSituation));
        choisir(a, "emploi", emploi);
        trouver<QDateEdit>(a, "dateOuvertureDroits")->setDate(ouverture);
        saisir(a, "tauxValide", taux);
        if (renonce)
            trouver<QCheckBox>(a, "renonceAbattement")->click();
        if (autoEntrepreneur)
            trouver<QCheckBox>(a, "autoEntrepreneur")->click();
        suivant(a);
        QCOMPARE(a.currentId(), int(AssistantNouveauDocument::PageDocument));
        saisir(a, "motDePasse", motDePasse);
        saisir(a, "confirmationMotDePasse", motDePasse);

        // The save panel opens in the storage folder with the user's name; the extension is added.
        const QString sansExtension = QDir(b->dossier).filePath(QStringLiteral("mon dossier"));
        b->dialogues.choisirChemins({sansExtension});
        trouver<QPushButton>(a, "boutonChoisirChemin")->click();
        QCOMPARE(b->dialogues.panneaux().size(), 1);
        QCOMPARE(b->dialogues.panneaux()[0].dossier, b->dossier);
        QCOMPARE(b->dialogues.panneaux()[0].nomPropose, prenom + " " + nom);
        QCOMPARE(b->dialogues.panneaux()[0].extension, QStringLiteral("cv4"));
        const QString chemin = sansExtension + QStringLiteral(".cv4");
        QCOMPARE(trouver<QLineEdit>(a, "cheminDocument")->text(), chemin);

        terminer(a);
        QVERIFY2(b->dialogues.echanges().isEmpty(), qPrintable(b->dialogues.echanges().value(0).message));
        QCOMPARE(a.result(), int(QDialog::Accepted));
        QVERIFY(!a.isVisible());
        QCOMPARE(a.cheminCree(), chemin);
        QCOMPARE(cree.size(), 1);
        QCOMPARE(cree[0][0].toString(), chemin);
        QCOMPARE(valeur(chemin, "SELECT u_nom || '|' || u_prenom FROM utilisateur;"), nom + '|' + prenom);
        QCOMPARE(valeur(chemin, "SELECT u_civilite_id || '|' || u_emploi_id || '|' || u_date_debut_dossier || '|' || "
                                "u_taux_valide || '|' || u_abattement || '|' || u_autoentrepreneur_flag || '|' || "
                                "f_locked FROM utilisateur, file;"),
                 enregistre);
        QCOMPARE(valeur(chemin, "SELECT f_password FROM file;"), QString::fromLatin1(motDePasse.toUtf8().toBase64()));
    }

    void cheminPropose()
    {
        auto b = banc();
        AssistantNouveauDocument& a = *b->assistant;
        auto* chemin = trouver<QLineEdit>(a, "cheminDocument");
        QCOMPARE(chemin->text(), QDir(b->dossier).filePath("Corvane.cv4"));
        saisir(a, "prenom", "Jeanne");
        saisir(a, "nom", "Du/pont");
        QCOMPARE(chemin->text(), QDir(b->dossier).filePath("Jeanne Du-pont.cv4"));

        // Once the user has written the path, the name no longer follows it; the extension is added.
        suivant(a);
        suivant(a);
        chemin->selectAll();
        taper(chemin, "perso");
        trouver<QLineEdit>(a, "nom")->setText("Martin");
        QCOMPARE(chemin->text(), QStringLiteral("perso"));
        terminer(a);
        QCOMPARE(a.cheminCree(), QDir(b->dossier).filePath("perso.cv4"));
        QVERIFY(QFileInfo::exists(a.cheminCree()));
    }

    void sansDossierDeStockage()
    {
        auto b = banc();
        b->reglages->ecrire(Reglages::Cle::PrefsStockage, g_maison->filePath("disparu"));
        AssistantNouveauDocument a(*b->reglages, b->dialogues);
        QCOMPARE(a.dossierParDefaut(),
                 QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + QStringLiteral("/Corvane"));
    }

    void annulerLePanneau()
    {
        auto b = banc();
        AssistantNouveauDocument& a = *b->assistant;
        const QString avant = trouver<QLineEdit>(a, "cheminDocument")->text();
        trouver<QPushButton>(a, "boutonChoisirChemin")->click(); // no path scripted: cancelled
        QCOMPARE(trouver<QLineEdit>(a, "cheminDocument")->text(), avant);
    }

    void refus_data()
    {
        QTest::addColumn<QString>("motDePasse");
        QTest::addColumn<QString>("confirmation");
        QTest::addColumn<QString>("message");
        cas("confirmation différente", "secret", "secrte", "Le mot de passe et sa confirmation sont différents.");
        cas("confirmation sans mot de passe", "", "secret", "Le mot de passe et sa confirmation sont différents.");
        cas("mot de passe sans confirmation", "secret", "", "Le mot de passe et sa confirmation sont différents.");
    }

    void refus()
    {
        QFETCH(QString, motDePasse);
        QFETCH(QString, confirmation);
        QFETCH(QString, message);
        auto b = banc();
        AssistantNouveauDocument& a = *b->assistant;
        QSignalSpy cree(&a, &AssistantNouveauDocument::documentCree);
        remplir(a, motDePasse, confirmation);
        const QString chemin = trouver<QLineEdit>(a, "cheminDocument")->text();
        terminer(a);
        QCOMPARE(b->dialogues.echanges().size(), 1);
        QCOMPARE(b->dialogues.echanges()[0].titre, QStringLiteral("Nouveau document"));
        QCOMPARE(b->dialogues.echanges()[0].message, message);
        QCOMPARE(b->dialogues.echanges()[0].boutons, QStringList{"Fermer"});
        QVERIFY(a.isVisible());
        QCOMPARE(a.currentId(), int(AssistantNouveauDocument::PageDocument));
        QVERIFY(!QFileInfo::exists(chemin));
        QCOMPARE(cree.size(), 0);
        QVERIFY(a.cheminCree().isEmpty());

        // Corrected, it goes through.
        saisir(a, "motDePasse", "secret");
        saisir(a, "confirmationMotDePasse", "secret");
        terminer(a);
        QCOMPARE(cree.size(), 1);
        QVERIFY(QFileInfo::exists(chemin));
    }

    void fichierExistantRefuse()
    {
        auto b = banc();
        const QString chemin = creerDocument(parametresParDefaut(QDir(b->dossier).filePath("Jeanne Dupont.cv4")));
        const QByteArray avant = empreinte(chemin);
        AssistantNouveauDocument& a = *b->assistant;
        QSignalSpy cree(&a, &AssistantNouveauDocument::documentCree);
        remplir(a);
        QCOMPARE(trouver<QLineEdit>(a, "cheminDocument")->text(), chemin);
        terminer(a);
        QCOMPARE(b->dialogues.echanges().size(), 1);
        QVERIFY2(b->dialogues.echanges()[0].message.contains(QStringLiteral("existe déjà")),
                 qPrintable(b->dialogues.echanges()[0].message));
        QVERIFY(a.isVisible());
        QCOMPARE(cree.size(), 0);
        QCOMPARE(empreinte(chemin), avant);
    }

    void dossierAbsentRefuse()
    {
        auto b = banc();
        AssistantNouveauDocument& a = *b->assistant;
        remplir(a);
        const QString chemin = g_maison->filePath("absent/nouveau.cv4");
        auto* ligne = trouver<QLineEdit>(a, "cheminDocument");
        ligne->selectAll();
        taper(ligne, chemin);
        terminer(a);
        QCOMPARE(b->dialogues.echanges().size(), 1);
        QVERIFY(b->dialogues.echanges()[0].message.contains(QStringLiteral("n'existe pas")));
        QVERIFY(a.isVisible());
        QVERIFY(!QFileInfo::exists(chemin));
    }

    void tauxRefuse()
    {
        auto b = banc();
        AssistantNouveauDocument& a = *b->assistant;
        suivant(a);
        saisir(a, "tauxValide", "57,4O");
        suivant(a);
        QCOMPARE(a.currentId(), int(AssistantNouveauDocument::PageSituation));
        QCOMPARE(b->dialogues.echanges().size(), 1);
        QCOMPARE(
            b->dialogues.echanges()[0].message,
            QStringLiteral("Taux journalier validé : le caractère « O » n'est pas permis (par exemple 1 977,50)."));
    }
};

CORVANE_MAIN_GUI(TestAssistant)

#include "test_assistant.moc"
