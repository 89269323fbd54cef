// The new-document assistant filled in through its widgets; the document it creates
// is then read back with SQLite.

#include "app/AssistantNouveauDocument.h"
#include "commun/OutilsEcran.h"

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

namespace {

// The assistant on screen, its storage folder an empty folder of its own.
struct BancAssistant : Banc
{
    BancAssistant() : Banc(false)
    {
        QDir().mkpath(dossier);
        reglages.ecrire(Reglages::Cle::PrefsStockage, dossier);
        assistant = std::make_unique<AssistantNouveauDocument>(reglages, dialogues);
        assistant->show();
    }
    QString dossier = g_maison->filePath(QStringLiteral("stockage%1").arg(numero));
    std::unique_ptr<AssistantNouveauDocument> assistant;
};

void suivant(AssistantNouveauDocument& a)
{
    a.button(QWizard::NextButton)->click();
}

void terminer(AssistantNouveauDocument& a)
{
    a.button(QWizard::FinishButton)->click();
}

// Fills every page with a valid profile and goes to the last page.
void remplir(AssistantNouveauDocument& a, const QString& motDePasse = {}, const QString& confirmation = {})
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
} // namespace

class TestAssistant : public QObject
{
    Q_OBJECT

private slots:
    void init() { Horloge::fixer(QDate(2024, 3, 12)); }

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

        BancAssistant b;
        AssistantNouveauDocument& a = *b.assistant;
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
        const QString sansExtension = QDir(b.dossier).filePath(QStringLiteral("mon dossier"));
        b.dialogues.choisirChemins({sansExtension});
        trouver<QPushButton>(a, "boutonChoisirChemin")->click();
        QCOMPARE(b.dialogues.panneaux().size(), 1);
        QCOMPARE(b.dialogues.panneaux()[0].dossier, b.dossier);
        QCOMPARE(b.dialogues.panneaux()[0].nomPropose, prenom + " " + nom);
        QCOMPARE(b.dialogues.panneaux()[0].extension, QStringLiteral("cv4"));
        const QString chemin = sansExtension + QStringLiteral(".cv4");
        QCOMPARE(trouver<QLineEdit>(a, "cheminDocument")->text(), chemin);

        terminer(a);
        QVERIFY2(b.dialogues.echanges().isEmpty(), qPrintable(b.dialogues.echanges().value(0).message));
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
        BancAssistant b;
        AssistantNouveauDocument& a = *b.assistant;
        QCOMPARE(trouver<QDateEdit>(a, "dateOuvertureDroits")->date(), QDate(2024, 3, 12));
        auto* chemin = trouver<QLineEdit>(a, "cheminDocument");
        QCOMPARE(chemin->text(), QDir(b.dossier).filePath("Corvane.cv4"));
        saisir(a, "prenom", "Jeanne");
        saisir(a, "nom", "Du/pont");
        QCOMPARE(chemin->text(), QDir(b.dossier).filePath("Jeanne Du-pont.cv4"));
        cliquer(a, "boutonChoisirChemin"); // no path scripted: the panel is cancelled
        QCOMPARE(chemin->text(), QDir(b.dossier).filePath("Jeanne Du-pont.cv4"));

        // Once the user has written the path, the name no longer follows it; the extension is added.
        suivant(a);
        suivant(a);
        chemin->selectAll();
        taper(chemin, "perso");
        trouver<QLineEdit>(a, "nom")->setText("Martin");
        QCOMPARE(chemin->text(), QStringLiteral("perso"));
        terminer(a);
        QCOMPARE(a.cheminCree(), QDir(b.dossier).filePath("perso.cv4"));
        QVERIFY(QFileInfo::exists(a.cheminCree()));
    }

    void sansDossierDeStockage()
    {
        BancAssistant b;
        b.reglages.ecrire(Reglages::Cle::PrefsStockage, g_maison->filePath("disparu"));
        AssistantNouveauDocument a(b.reglages, b.dialogues);
        QCOMPARE(a.dossierParDefaut(),
                 QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + QStringLiteral("/Corvane"));
    }

    // A refusal keeps the assistant open on its last page and writes nothing; corrected, it goes
    // through (the store's own refusals: test_creation).
    void refus_data()
    {
        QTest::addColumn<QString>("confirmation");
        QTest::addColumn<bool>("fichierExistant");
        QTest::addColumn<QString>("message"); // its end
        cas("confirmation différente", "secrte", false, "Le mot de passe et sa confirmation sont différents.");
        cas("fichier existant", "secret", true, "existe déjà : choisissez un autre nom.");
    }

    void refus()
    {
        QFETCH(QString, confirmation);
        QFETCH(bool, fichierExistant);
        QFETCH(QString, message);
        BancAssistant b;
        AssistantNouveauDocument& a = *b.assistant;
        QSignalSpy cree(&a, &AssistantNouveauDocument::documentCree);
        const QString chemin = QDir(b.dossier).filePath("Jeanne Dupont.cv4");
        if (fichierExistant)
            creerDocument(parametresParDefaut(chemin));
        const QByteArray avant = empreinte(chemin);
        remplir(a, "secret", confirmation);
        QCOMPARE(trouver<QLineEdit>(a, "cheminDocument")->text(), chemin);
        terminer(a);
        QCOMPARE(b.dialogues.echanges().size(), 1);
        QCOMPARE(b.dialogues.echanges()[0].titre, QStringLiteral("Nouveau document"));
        QVERIFY2(b.dialogues.echanges()[0].message.endsWith(message), qPrintable(b.dialogues.echanges()[0].message));
        QVERIFY(a.isVisible());
        QCOMPARE(a.currentId(), int(AssistantNouveauDocument::PageDocument));
        QCOMPARE(empreinte(chemin), avant);
        QCOMPARE(cree.size(), 0);
        QVERIFY(a.cheminCree().isEmpty());

        saisir(a, "confirmationMotDePasse", "secret");
        if (fichierExistant)
            saisir(a, "cheminDocument", QDir(b.dossier).filePath("Autre.cv4"));
        terminer(a);
        QCOMPARE(cree.size(), 1);
        QVERIFY(QFileInfo::exists(a.cheminCree()));
    }

    void tauxRefuse()
    {
        BancAssistant b;
        AssistantNouveauDocument& a = *b.assistant;
        suivant(a);
        saisir(a, "tauxValide", "57,4O");
        suivant(a);
        QCOMPARE(a.currentId(), int(AssistantNouveauDocument::PageSituation));
        QCOMPARE(b.dialogues.echanges().size(), 1);
        QCOMPARE(
            b.dialogues.echanges()[0].message,
            QStringLiteral("Taux journalier validé : le caractère « O » n'est pas permis (par exemple 1 977,50)."));
    }
};

CORVANE_MAIN_GUI(TestAssistant)

#include "test_assistant.moc"
