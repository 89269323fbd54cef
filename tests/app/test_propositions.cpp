// The Manager's "Propositions" tab driven as a user would, on a real document: a proposition
// written through its window (an organiser chosen with its town, two services, charges and a
// discount) and shown with its total; the status pop-up, whose invoiced notice is answered and
// does not stop the change; and the PDF menu without a selection, with the letter saved, and
// with an official form missing from its folder.

#include "app/manager/FenetreProposition.h"
#include "app/manager/MenuDocumentsManager.h"
#include "app/manager/ModelePropositions.h"
#include "app/manager/OngletPropositions.h"
#include "commun/OutilsEcran.h"
#include "manager/Propositions.h"

#include <QTableView>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

class TestPropositionsEcran : public QObject
{
    Q_OBJECT

private:
    struct Ecran
    {
        Banc banc;
        OngletPropositions onglet{banc.environnement};
        Document* document = nullptr;

        Ecran()
        {
            Propositions(banc.chemin).ajouteOrganisateur(QStringLiteral("Compagnie d'Avril"), QStringLiteral("Lyon"));
            TarifsPropositions(banc.chemin)
                .ajoutePrestation({0, 1, QStringLiteral("L'heure du conte"), 300, QStringLiteral("Contes"), true});
            onglet.resize(1000, 700);
            onglet.show();
            document = banc.document(&onglet);
            onglet.setDocument(document);
        }
        QAction* action(const QString& nom) const { return trouver<QAction>(*onglet.menuDocuments(), nom); }
    };

private slots:
    void init() { Horloge::fixer(QDate(2024, 6, 15)); }

    void nouvellePropositionEtStatut()
    {
        Ecran e;
        FenetreProposition* fenetre = e.onglet.nouvelleProposition();
        QVERIFY(fenetre);
        saisir(*fenetre, "champLibelleProposition", QStringLiteral("Fête d'été"));
        choisir(*fenetre, "choixOrganisateur", QStringLiteral("Compagnie d'Avril"));
        QCOMPARE(trouver<QLineEdit>(*fenetre, "champCommuneProposition")->text(), QStringLiteral("Lyon"));
        choisir(*fenetre, "choixPrestation", QStringLiteral("L'heure du conte"));
        saisir(*fenetre, "personnesPrestation", QStringLiteral("3"));
        cliquer(*fenetre, "boutonAjouterLigne");
        choisir(*fenetre, "choixGroupe", QStringLiteral("Déplacement"));
        choisir(*fenetre, "choixPrestation", QStringLiteral("National"));
        cliquer(*fenetre, "boutonAjouterLigne");
        saisir(*fenetre, "chargesProposition", QStringLiteral("50"));
        choisir(*fenetre, "choixRemise", QStringLiteral("10 %"));
        cliquer(*fenetre, "boutonEnregistrerProposition");
        QVERIFY2(e.banc.dialogues.echanges().isEmpty(), qPrintable(e.banc.dernierMessage()));

        // (900 + 200) - 10 % + 50, on the list and in the document.
        QCOMPARE(e.onglet.modele()->rowCount(), 1);
        QCOMPARE(e.onglet.modele()
                     ->texte(0, ModelePropositions::Montant)
                     .replace(QChar(0x202F), ' ')
                     .replace(QChar(0xA0), ' '),
                 QStringLiteral("1 040,00 €"));
        QCOMPARE(Propositions(e.banc.chemin).calculatesTotalAmount(1), 1040.0);
        QCOMPARE(valeur(e.banc.chemin, "SELECT pl_libelle || '|' || pl_commune FROM propositionslibelles;"),
                 QStringLiteral("Fête d'été|Lyon"));
        QCOMPARE(e.banc.reglages.texte(Reglages::Cle::PropositionsEmployeur), QStringLiteral("Compagnie d'Avril"));
        QCOMPARE(e.onglet.idSelectionne(), 1);

        // Invoiced, then accepted: the notice is shown, the status written all the same.
        auto* statut = trouver<QComboBox>(e.onglet, "choixStatutProposition");
        choisir(e.onglet, "choixStatutProposition", QStringLiteral("Facturée"));
        QCOMPARE(nombre(e.banc.chemin, "SELECT pl_statut FROM propositionslibelles;"), qint64(3));
        QVERIFY(e.banc.dialogues.echanges().isEmpty());
        QVERIFY(!e.onglet.modele()->data(e.onglet.modele()->index(0, 0), Qt::DecorationRole).value<QIcon>().isNull());
        choisir(e.onglet, "choixStatutProposition", QStringLiteral("Acceptée"));
        QCOMPARE(e.banc.dialogues.echanges().size(), 1);
        const DialoguesScriptes::Echange avis = e.banc.dialogues.echanges().first();
        QCOMPARE(avis.titre, QStringLiteral("Propositions"));
        QCOMPARE(avis.boutons, QStringList{QStringLiteral("Ok")});
        QCOMPARE(avis.message, QStringLiteral("Selon la loi, une proposition facturée ainsi que la facture associée, "
                                              "ne peuvent pas être modifiées."));
        QCOMPARE(nombre(e.banc.chemin, "SELECT pl_statut FROM propositionslibelles;"), qint64(1));
        QCOMPARE(statut->currentText(), QStringLiteral("Acceptée"));
    }

    void menuPdf()
    {
        Ecran e;
        Propositions p(e.banc.chemin);
        EnteteProposition entete;
        entete.libelle = QStringLiteral("Gala");
        entete.employeurId = p.retrouveEmployeurId(QStringLiteral("Compagnie d'Avril"));
        entete.date = QDate(2024, 7, 14);
        QCOMPARE(p.enregistreProposition(entete), 1);
        e.onglet.actualiser();

        e.action("actionPdfProposition")->trigger();
        QCOMPARE(e.banc.dernierMessage(), QStringLiteral("Aucune proposition n'est sélectionnée..."));

        e.onglet.selectionner(1);
        const QString lettre = g_maison->filePath(QStringLiteral("lettre.pdf"));
        e.banc.dialogues.choisirChemins({lettre});
        e.action("actionPdfProposition")->trigger();
        QVERIFY(QFileInfo(lettre).isFile());
        QCOMPARE(e.banc.dialogues.panneaux().last().nomPropose, QStringLiteral("Sécurité Sociale 2024 6 15"));

        // The forms are not shipped: the user is told which one and where it is published.
        e.banc.reglages.ecrire(Reglages::Cle::FormulairesOfficielsDossier, g_maison->path());
        QString ouvert;
        e.onglet.menuDocuments()->setAfficheur([&ouvert](const QString& chemin) { ouvert = chemin; });
        e.action("actionFormulaire_cerfa_14886-01")->trigger();
        QCOMPARE(e.banc.dialogues.echanges().last().titre, QStringLiteral("Formulaires officiels"));
        QVERIFY2(e.banc.dernierMessage().contains(QStringLiteral("la déclaration préalable à l'embauche (cerfa n° "
                                                                 "14886*01)")) &&
                     e.banc.dernierMessage().contains(QStringLiteral("Urssaf")),
                 qPrintable(e.banc.dernierMessage()));
        QVERIFY(ouvert.isEmpty());
        ecrire(g_maison->filePath(QStringLiteral("cerfa_14886-01.pdf")), "%PDF-1.4");
        e.action("actionFormulaire_cerfa_14886-01")->trigger();
        QCOMPARE(ouvert, g_maison->filePath(QStringLiteral("cerfa_14886-01.pdf")));
    }
};

CORVANE_MAIN_GUI(TestPropositionsEcran)

#include "test_propositions.moc"
