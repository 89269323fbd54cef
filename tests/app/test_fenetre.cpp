// The application shell driven as a user would: start-up, opening, the lock, the
// sections, the alerts and the quit offer, with the document and settings checked on disk.

#include "app/AssistantNouveauDocument.h"
#include "app/ControleurApplication.h"
#include "app/FenetreGuide.h"
#include "app/FenetrePreferences.h"
#include "app/InstanceUnique.h"
#include "app/PopoverVerrou.h"
#include "app/SectionFichiers.h"
#include "commun/OutilsEcran.h"
#include "store/Sauvegardes.h"
#include "store/Verrou.h"

#include <QAction>
#include <QListWidget>
#include <QPointer>
#include <QStandardPaths>
#include <QTableWidget>
#include <QTextBrowser>
#include <QToolButton>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

namespace {

// The main window and its controller, with settings of their own and no document yet.
struct BancFenetre : Banc
{
    BancFenetre() : Banc(false) { fenetre.show(); }
    template <typename T = QWidget>
    T* widget(const QString& nom) const
    {
        return trouver<T>(fenetre, nom);
    }
    // The window goes before the settings it may write on its way out.
    FenetrePrincipale fenetre{environnement};
    ControleurApplication controleur{reglages, dialogues, fenetre};
};

int g_numero = 0;

// A new document in the temporary home, protected when given a password.
QString document(const QString& nom, const QString& motDePasse = QString())
{
    NouveauDocument p = parametresParDefaut(g_maison->filePath(nom));
    if (!motDePasse.isEmpty()) {
        p.password = motDePasse;
        p.isLocked = 1;
    }
    return creerDocument(p);
}
} // namespace

class TestFenetre : public QObject
{
    Q_OBJECT

private slots:
    void init() { Horloge::fixer(QDate(2024, 3, 12)); }

    void demarrageSansDocument()
    {
        BancFenetre b;
        QVERIFY(b.controleur.demarrer());
        QCOMPARE(b.fenetre.windowTitle(), QStringLiteral("Aucun fichier ouvert..."));
        QCOMPARE(b.fenetre.sectionAffichee(), Section::Fichiers);
        QTest::qWait(20);
        QVERIFY(!b.widget<QLabel>("badgeAlertes")->isVisible());
        QCOMPARE(b.reglages.entier(Reglages::Cle::Launches), 1);
        QVERIFY(b.reglages.contient(Reglages::Cle::AlerteActualisationDebut)); // the defaults are written
        QVERIFY(QFileInfo(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + "/Corvane").isDir());
        QCOMPARE(b.reglages.texte(Reglages::Cle::PrefsStockage),
                 QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + "/Corvane");

        // Every section but the files one needs a document.
        emit b.fenetre.sectionDemandee(Section::Contrats);
        QCOMPARE(b.dialogues.echanges().size(), 1);
        QCOMPARE(b.dialogues.echanges()[0].message, ControleurApplication::messageSansDocument());
        QCOMPARE(b.fenetre.sectionAffichee(), Section::Fichiers);
    }

    void demarrageAvecDocumentEnregistre()
    {
        const QString chemin = document("Mon dossier.cv4");
        BancFenetre b;
        b.reglages.ecrire(Reglages::Cle::FichierPath, chemin);
        b.reglages.ecrire(Reglages::Cle::LastTabUsed, int(Section::Employeurs));
        QVERIFY(b.controleur.demarrer());
        QCOMPARE(b.controleur.document(), chemin);
        QCOMPARE(b.fenetre.windowTitle(), QStringLiteral("Mon dossier.cv4"));
        QCOMPARE(b.fenetre.sectionAffichee(), Section::Employeurs);
        QCOMPARE(b.reglages.liste(Reglages::Cle::Files), QStringList{chemin});
        // March 12: no monthly window, not April, no backup yet, no contracts: one alert.
        auto* badge = b.widget<QLabel>("badgeAlertes");
        QTRY_VERIFY(badge->isVisible()); // the toolbar lays out its widgets later

        QCOMPARE(badge->text(), QStringLiteral("1"));
        QVERIFY(b.fenetre.actionAlerte(2)->isEnabled());
        QVERIFY(!b.fenetre.actionAlerte(0)->isEnabled());

        b.fenetre.actionAlerte(2)->trigger();
        QCOMPARE(b.fenetre.sectionAffichee(), Section::Fichiers);
        QCOMPARE(b.reglages.entier(Reglages::Cle::LastTabUsed), int(Section::Fichiers));
    }

    void ouvrirDepuisLaSectionFichiers()
    {
        const QString premier = document("premier.cv4");
        const QString second = document("second.cv4");
        BancFenetre b;
        b.reglages.ecrire(Reglages::Cle::Files, QStringList{premier, second});
        QVERIFY(b.controleur.demarrer());
        auto* liste = b.widget<QTableWidget>("listeFichiers");
        QCOMPARE(liste->rowCount(), 2);
        liste->selectRow(1);
        cliquer(b.fenetre, "boutonOuvrirConnu");
        QCOMPARE(b.controleur.document(), second);
        QCOMPARE(b.fenetre.windowTitle(), QStringLiteral("second.cv4"));

        liste->selectRow(0);
        cliquer(b.fenetre, "boutonRetirer");
        QCOMPARE(b.reglages.liste(Reglages::Cle::Files), QStringList{second});
        QCOMPARE(liste->rowCount(), 1);
    }

    // The document of last time is opened unless told not to; the assistant shows only when
    // asked for and no document is open.
    void demarrage_data()
    {
        QTest::addColumn<int>("ouvrirAuDemarrage");
        QTest::addColumn<int>("assistantDemande");
        QTest::addColumn<bool>("documentEnregistre");
        QTest::addColumn<bool>("assistantAffiche");
        cas("assistant asked for, no document", 1, 1, false, true);
        cas("assistant not asked for", 1, 0, false, false);
        cas("assistant asked for, document opened", 1, 1, true, false);
        cas("no automatic opening", 0, 0, true, false);
    }

    void demarrage()
    {
        QFETCH(int, ouvrirAuDemarrage);
        QFETCH(int, assistantDemande);
        QFETCH(bool, documentEnregistre);
        QFETCH(bool, assistantAffiche);
        BancFenetre b;
        const QString chemin = document(QStringLiteral("demarrage%1.cv4").arg(++g_numero));
        if (documentEnregistre)
            b.reglages.ecrire(Reglages::Cle::FichierPath, chemin);
        b.reglages.ecrire(Reglages::Cle::PrefsDemarrage, ouvrirAuDemarrage);
        b.reglages.ecrire(Reglages::Cle::ShowAssistant, assistantDemande);
        QVERIFY(b.controleur.demarrer());
        QCOMPARE(b.controleur.document(), documentEnregistre && ouvrirAuDemarrage ? chemin : QString());
        auto* assistant = b.fenetre.findChild<AssistantNouveauDocument*>();
        QCOMPARE(assistant != nullptr && assistant->isVisible(), assistantAffiche);
    }

    void creerAvecLAssistant()
    {
        BancFenetre b;
        QVERIFY(b.controleur.demarrer());
        // A first run shows how to begin rather than an empty list.
        auto* accueil = b.widget<QWidget>("accueilFichiers");
        QVERIFY(accueil->isVisible());
        cliquer(b.fenetre, "boutonAccueilNouveau");
        auto* assistant = b.fenetre.findChild<AssistantNouveauDocument*>();
        QVERIFY(assistant && assistant->isVisible());
        assistant->findChild<QLineEdit*>("prenom")->setText(QStringLiteral("Hélène"));
        assistant->findChild<QLineEdit*>("nom")->setText(QStringLiteral("D'Arc"));
        assistant->button(QWizard::NextButton)->click();
        assistant->button(QWizard::NextButton)->click();
        assistant->button(QWizard::FinishButton)->click();

        const QString attendu = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) +
                                QStringLiteral("/Corvane/Hélène D'Arc.cv4");
        QCOMPARE(b.controleur.document(), attendu);
        QCOMPARE(b.fenetre.windowTitle(), QStringLiteral("Hélène D'Arc.cv4"));
        QVERIFY(b.reglages.liste(Reglages::Cle::Files).contains(attendu));
        QVERIFY(!accueil->isVisible());
        QFile::remove(attendu);
    }

    void preferencesDepuisLeMenu()
    {
        BancFenetre b;
        QVERIFY(b.controleur.demarrer(document("prefs.cv4")));
        auto* badge = b.widget<QLabel>("badgeAlertes");
        QTRY_VERIFY(badge->isVisible());
        b.fenetre.action(QStringLiteral("actionPreferences"))->trigger();
        auto* preferences = b.fenetre.findChild<FenetrePreferences*>();
        QVERIFY(preferences && preferences->isVisible());
        // Switching the alerts off clears the badge at once.
        preferences->findChild<QCheckBox*>(Reglages::nom(Reglages::Cle::ActiverAlertes))->click();
        QVERIFY(!b.reglages.booleen(Reglages::Cle::ActiverAlertes));
        QTRY_VERIFY(!badge->isVisible());
    }

    void menuAide()
    {
        BancFenetre b;
        QVERIFY(b.controleur.demarrer());
        b.fenetre.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&b.fenetre));
        // F1 shows the guide built into the program, in one window however often it is asked for.
        QTest::keyClick(&b.fenetre, Qt::Key_F1);
        QTest::keyClick(&b.fenetre, Qt::Key_F1);
        const QList<FenetreGuide*> guides = b.fenetre.findChildren<FenetreGuide*>();
        QCOMPARE(guides.size(), 1);
        QVERIFY(guides[0]->isVisible());
        const QString texte = guides[0]->findChild<QTextBrowser*>()->toPlainText();
        QVERIFY2(texte.contains(QStringLiteral("Elle ne chiffre pas le fichier")), qPrintable(texte.left(200)));
        guides[0]->close();

        b.fenetre.action(QStringLiteral("actionAPropos"))->trigger();
        QCOMPARE(b.dialogues.echanges().size(), 1);
        QCOMPARE(b.dialogues.echanges()[0].titre, QStringLiteral("À propos de Corvane"));
        QVERIFY(b.dialogues.echanges()[0].message.contains(QStringLiteral("GPL")));
    }

    void fenetresDuDossier_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("fenetre");
        cas("profil", "actionProfil", "corvane::app::FenetreProfil");
        cas("périodes", "actionPeriodes", "corvane::app::FenetrePeriodes");
        cas("nouvelle période", "actionNouvellePeriode", "corvane::app::AssistantNouvellePeriode");
        cas("modèles", "actionModeles", "corvane::app::FenetreModeles");
    }

    void fenetresDuDossier()
    {
        QFETCH(QString, action);
        QFETCH(QString, fenetre);
        BancFenetre b;
        QVERIFY(b.controleur.demarrer());
        b.fenetre.action(action)->trigger();
        QCOMPARE(b.dialogues.echanges().last().message, ControleurApplication::messageSansDocument());
        QVERIFY(b.fenetre.findChildren<QDialog*>().isEmpty());

        QVERIFY(b.controleur.ouvrir(document(QStringLiteral("dossier%1.cv4").arg(++g_numero))));
        b.fenetre.action(action)->trigger();
        const QList<QDialog*> ouvertes = b.fenetre.findChildren<QDialog*>();
        QCOMPARE(ouvertes.size(), 1);
        QCOMPARE(QString::fromLatin1(ouvertes.first()->metaObject()->className()), fenetre);
        QVERIFY(ouvertes.first()->isVisible());
        ouvertes.first()->close();
    }

    void ouvrirUnAutreDocument()
    {
        const QString autre = document("autre.cv4");
        BancFenetre b;
        QVERIFY(b.controleur.demarrer());
        auto* bouton = b.widget<QPushButton>("boutonOuvrirAutre");
        // Cancelling the panel changes nothing.
        QTest::mouseClick(bouton, Qt::LeftButton);
        QVERIFY(b.controleur.document().isEmpty());
        b.dialogues.choisirChemins({autre});
        QTest::mouseClick(bouton, Qt::LeftButton);
        QCOMPARE(b.controleur.document(), autre);
        QCOMPARE(b.dialogues.panneaux().last().extension, QStringLiteral("cv4 or3 orv"));
        QVERIFY(b.reglages.liste(Reglages::Cle::Files).contains(autre));
        QCOMPARE(b.widget<QTableWidget>("listeFichiers")->rowCount(), 1);
    }

    void ancienneGeneration()
    {
        const QString courant = document("courant.cv4");
        const QString ancien = g_maison->filePath("vieux.orv");
        documentDepuisScript("generation1.sql", ancien);
        BancFenetre b;
        QVERIFY(b.controleur.demarrer(courant));

        b.dialogues.repondre({"Ne rien faire"});
        QVERIFY(!b.controleur.ouvrir(ancien));
        QCOMPARE(b.controleur.document(), courant);

        b.dialogues.repondre({"Convertir le fichier", "Ouvrir"});
        QVERIFY(b.controleur.ouvrir(ancien));
        QCOMPARE(b.controleur.document(), g_maison->filePath("V3_vieux.or3"));
        QCOMPARE(b.fenetre.windowTitle(), QStringLiteral("V3_vieux.or3"));

        const QString texte = g_maison->filePath("notes.txt");
        ecrire(texte, "pas un document");
        QVERIFY(!b.controleur.ouvrir(texte));
        QCOMPARE(b.controleur.document(), g_maison->filePath("V3_vieux.or3"));
        QVERIFY(b.dialogues.echanges().last().message.contains(QStringLiteral("n'est pas un fichier Corvane")));
    }

    void verrouillage()
    {
        const QString chemin = document("secret.cv4", QStringLiteral("sésame"));
        BancFenetre b;
        QVERIFY(b.controleur.demarrer(chemin));
        QCOMPARE(b.fenetre.sectionAffichee(), Section::Verrou);
        QVERIFY(!b.widget<QListWidget>("navigation")->isEnabled());
        QCOMPARE(b.widget<QLabel>("verrouUtilisateur")->text(), QStringLiteral("Jeanne Dupont"));

        auto* champ = b.widget<QLineEdit>("verrouMotDePasse");
        QTest::keyClicks(champ, "sesame");
        cliquer(b.fenetre, "boutonDeverrouiller");
        QCOMPARE(b.fenetre.sectionAffichee(), Section::Verrou);
        QVERIFY(champ->property("erreur").toBool());
        QTest::keyClick(champ, Qt::Key_Backspace);
        QVERIFY(!champ->property("erreur").toBool());

        champ->setText(QStringLiteral("sésame"));
        QTest::keyClick(champ, Qt::Key_Return);
        QVERIFY(b.fenetre.sectionAffichee() != Section::Verrou);
        QVERIFY(b.widget<QListWidget>("navigation")->isEnabled());
        // Unlocking for this session does not change the document.
        QVERIFY(Verrou::isFileLocked(chemin));
    }

    void protegerPuisLeverLaProtection()
    {
        const QString chemin = document("protege.cv4");
        Verrou::changerMotDePasse(chemin, QStringLiteral("clé"));
        BancFenetre b;
        QVERIFY(b.controleur.demarrer(chemin));
        auto* bouton = b.fenetre.boutonVerrou();
        QCOMPARE(bouton->text(), QStringLiteral("Non protégé"));

        PopoverVerrou* popover = b.controleur.showLockPopOver();
        QVERIFY(popover && popover->isVisible());
        auto* champ = popover->findChild<QLineEdit*>("popoverMotDePasse");
        QTest::keyClicks(champ, "cle");
        QTest::keyClick(champ, Qt::Key_Return);
        QVERIFY(champ->property("erreur").toBool());
        QVERIFY(!Verrou::isFileLocked(chemin));

        champ->setText(QStringLiteral("clé"));
        QTest::mouseClick(popover->findChild<QPushButton*>("boutonEnregistrerVerrou"), Qt::LeftButton);
        QVERIFY(Verrou::isFileLocked(chemin));
        QCOMPARE(bouton->text(), QStringLiteral("Protégé"));
        // The protection takes effect at the next opening only.
        QVERIFY(b.fenetre.sectionAffichee() != Section::Verrou);

        popover = b.controleur.showLockPopOver();
        popover->findChild<QLineEdit*>("popoverMotDePasse")->setText(QStringLiteral("clé"));
        QVERIFY(popover->saveLockStatus());
        QVERIFY(!Verrou::isFileLocked(chemin));
        QCOMPARE(bouton->text(), QStringLiteral("Non protégé"));
    }

    void changerLeMotDePasse_data()
    {
        QTest::addColumn<QString>("actuel");
        QTest::addColumn<QString>("nouveau");
        QTest::addColumn<QString>("confirmation");
        QTest::addColumn<QString>("champRouge"); // "" when the change is made
        cas("accepté", "ancien", "nouveau ü", "nouveau ü", "");
        cas("mauvais mot de passe actuel", "Ancien", "x", "x", "motDePasseActuel");
        cas("confirmation différente", "ancien", "x", "y", "motDePasseConfirmation");
        cas("mot de passe retiré", "ancien", "", "", "");
    }

    void changerLeMotDePasse()
    {
        QFETCH(QString, actuel);
        QFETCH(QString, nouveau);
        QFETCH(QString, confirmation);
        QFETCH(QString, champRouge);
        const QString chemin = document(QStringLiteral("mdp%1.cv4").arg(++g_numero), QStringLiteral("ancien"));
        Verrou::enregistrerVerrouillage(chemin, false);
        BancFenetre b;
        QVERIFY(b.controleur.demarrer(chemin));
        FeuilleMotDePasse* feuille = b.controleur.showPasswordChange();
        QVERIFY(feuille);
        QPointer<FeuilleMotDePasse> garde(feuille);
        feuille->findChild<QLineEdit*>("motDePasseActuel")->insert(actuel);
        feuille->findChild<QLineEdit*>("motDePasseNouveau")->insert(nouveau);
        feuille->findChild<QLineEdit*>("motDePasseConfirmation")->insert(confirmation);
        QTest::mouseClick(feuille->findChild<QPushButton*>("boutonEnregistrerMotDePasse"), Qt::LeftButton);
        if (champRouge.isEmpty()) {
            QCOMPARE(Verrou::motDePasse(chemin), nouveau);
            QTRY_VERIFY(garde.isNull() || !garde->isVisible());
        } else {
            QCOMPARE(Verrou::motDePasse(chemin), QStringLiteral("ancien"));
            QVERIFY(feuille->isVisible());
            QVERIFY(feuille->findChild<QLineEdit*>(champRouge)->property("erreur").toBool());
        }
    }

    void offreDeSauvegardeAuDepart_data()
    {
        QTest::addColumn<QString>("motDePasse");
        cas("document ouvert", QString());
        cas("document protégé", QStringLiteral("sésame"));
    }

    void offreDeSauvegardeAuDepart()
    {
        QFETCH(QString, motDePasse);
        const QString chemin = document(QStringLiteral("planifie%1.cv4").arg(++g_numero), motDePasse);
        Intermittent(chemin).db().executer("INSERT INTO fichiersauvegardes (fs_date) VALUES (?);",
                                           {QDate(2024, 2, 11)});
        BancFenetre b;
        b.reglages.ecrire(Reglages::Cle::LastTabUsed, int(Section::Contrats));
        b.dialogues.repondre({"Oui"});
        QVERIFY(b.controleur.demarrer(chemin));
        QCOMPARE(b.dialogues.echanges().size(), 1);
        QCOMPARE(b.dialogues.echanges()[0].titre, QStringLiteral("Gestion des sauvegardes"));
        // The reminders are the document's, protected or not: the backup is due.
        QVERIFY(b.fenetre.actionAlerte(2)->isEnabled());
        if (!motDePasse.isEmpty()) {
            QCOMPARE(b.fenetre.sectionAffichee(), Section::Verrou);
            auto* champ = b.widget<QLineEdit>("verrouMotDePasse");
            champ->setText(motDePasse);
            QTest::keyClick(champ, Qt::Key_Return);
        }
        QCOMPARE(b.fenetre.sectionAffichee(), Section::Fichiers);
        QCOMPARE(b.widget<QLabel>("derniereSauvegarde")->text(), QStringLiteral("Dernière sauvegarde : 11/02/2024"));
    }

    void documentTransmisParUnAutreLancement()
    {
        const QString premier = document("lancement1.cv4");
        const QString second = document("lancement2.cv4");
        const QString ancien = g_maison->filePath("lancement3.orv");
        documentDepuisScript("generation1.sql", ancien);
        BancFenetre b;
        QVERIFY(b.controleur.demarrer(premier));
        // What a program that ended abruptly leaves behind: nobody answers there.
        const QString canal = g_maison->filePath("canal-corvane");
        ecrire(canal, "reste");
        InstanceUnique programme(canal);
        QVERIFY(!InstanceUnique(canal).transmettre(second));
        QVERIFY(programme.ecouter());
        QVERIFY(!InstanceUnique(canal).ecouter());
        connect(&programme, &InstanceUnique::documentRecu, &b.controleur, &ControleurApplication::documentTransmis);

        // Received during the start-up, opened once it is over.
        QVERIFY(InstanceUnique(canal).transmettre(second));
        QTest::qWait(50);
        QCOMPARE(b.controleur.document(), premier);
        programme.setPret();
        QTRY_COMPARE(b.controleur.document(), second);
        QVERIFY(b.reglages.liste(Reglages::Cle::Files).contains(second));

        // A dialog waiting for an answer keeps it waiting.
        QDialog attente(&b.fenetre);
        attente.open();
        QVERIFY(InstanceUnique(canal).transmettre(premier));
        QTest::qWait(400);
        QCOMPARE(b.controleur.document(), second);
        attente.reject();
        QTRY_COMPARE(b.controleur.document(), premier);

        // The questions of "Ouvrir…": an earlier generation offers its conversion.
        b.dialogues.repondre({"Ne rien faire"});
        QVERIFY(InstanceUnique(canal).transmettre(ancien));
        QTRY_VERIFY(!b.dialogues.echanges().isEmpty() &&
                    b.dialogues.echanges().last().titre == QStringLiteral("Ouverture de fichier"));
        QCOMPARE(b.controleur.document(), premier);
    }

    void fermerLeDocument()
    {
        const QString chemin = document("a-fermer.cv4");
        BancFenetre b;
        QVERIFY(b.controleur.demarrer(chemin));
        QAction* fermer = b.fenetre.action(QStringLiteral("actionFermerDocument"));
        QVERIFY(fermer && fermer->isEnabled());
        fermer->trigger();
        QCOMPARE(b.controleur.document(), QString());
        QVERIFY(!b.controleur.documentOuvert());
        QCOMPARE(b.fenetre.windowTitle(), QStringLiteral("Aucun fichier ouvert..."));
        QCOMPARE(b.fenetre.sectionAffichee(), Section::Fichiers);
        QVERIFY(!b.fenetre.sectionFichiers()->document());
        QVERIFY(!b.widget<QLabel>("derniereSauvegarde")->isVisible());
        QVERIFY(!fermer->isEnabled());
        QVERIFY(!b.fenetre.boutonVerrou()->isEnabled());
        QTRY_VERIFY(!b.widget<QLabel>("badgeAlertes")->isVisible());
        emit b.fenetre.sectionDemandee(Section::Contrats);
        QCOMPARE(b.dialogues.echanges().last().message, ControleurApplication::messageSansDocument());
        // Closed, not forgotten: the files section still offers it.
        QVERIFY(b.reglages.liste(Reglages::Cle::Files).contains(chemin));
        QVERIFY(b.controleur.ouvrir(chemin));
        QVERIFY(fermer->isEnabled());
    }

    void offreAuMomentDeQuitter_data()
    {
        QTest::addColumn<bool>("avecDocument");
        QTest::addColumn<QDate>("derniere");
        QTest::addColumn<QString>("debutQuestion");
        cas("no document: nothing asked", false, QDate(), "");
        cas("never backed up: the advice", true, QDate(), "Bien que Corvane enregistre");
        cas("planned for today", true, QDate(2024, 2, 11), "Vous avez planifié une sauvegarde");
        cas("not due: nothing asked", true, QDate(2024, 3, 1), "");
    }

    void offreAuMomentDeQuitter()
    {
        QFETCH(bool, avecDocument);
        QFETCH(QDate, derniere);
        QFETCH(QString, debutQuestion);
        const QString chemin = document(QStringLiteral("quitter%1.cv4").arg(++g_numero));
        if (derniere.isValid())
            Intermittent(chemin).db().executer("INSERT INTO fichiersauvegardes (fs_date) VALUES (?);", {derniere});
        BancFenetre b;
        QVERIFY(b.controleur.demarrer(avecDocument ? chemin : QString()));
        const auto avant = b.dialogues.echanges().size();
        const QString copie = g_maison->filePath(QStringLiteral("copie-quitter%1.cv4").arg(++g_numero));
        b.dialogues.repondre({"Oui"});
        b.dialogues.choisirChemins({copie});
        b.fenetre.close();
        if (debutQuestion.isEmpty()) {
            QCOMPARE(b.dialogues.panneaux().size(), 0);
            return;
        }
        QVERIFY(b.dialogues.echanges().size() > avant);
        QVERIFY(b.dialogues.echanges()[avant].message.startsWith(debutQuestion));
        QCOMPARE(b.dialogues.panneaux().size(), 1);
        QVERIFY(QFileInfo::exists(copie));
    }
};

CORVANE_MAIN_GUI(TestFenetre)

#include "test_fenetre.moc"
