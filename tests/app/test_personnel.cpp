// The Manager's tabs of structures and employees and of events, driven as a user would on a
// real document: employees typed in the form, dropped from their list onto a structure and taken
// out of it again, a refusal told through an alert, an event typed in its form and an
// employee's "Payé" box ticked.

#include "app/manager/ModelePaiements.h"
#include "app/manager/ModelesPersonnel.h"
#include "app/manager/OngletEvenements.h"
#include "app/manager/OngletPersonnel.h"
#include "app/manager/SectionManager.h"
#include "commun/OutilsEcran.h"
#include "manager/Employes.h"
#include "manager/Structures.h"

#include <QMimeData>
#include <QTemporaryDir>
#include <QTabWidget>
#include <QTreeView>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

class TestPersonnelEcran : public QObject
{
    Q_OBJECT

private:
    struct Ecran
    {
        Banc banc;
        SectionManager section{banc.environnement};
        Document* document = nullptr;

        explicit Ecran(bool avecDocument = true) : banc(avecDocument)
        {
            section.resize(1100, 720);
            section.show();
            document = banc.document(&section);
            section.setDocument(document);
        }
        OngletPersonnel& personnel() const { return *section.findChild<OngletPersonnel*>(); }
        OngletEvenements& evenements() const { return *section.findChild<OngletEvenements*>(); }
        void nouvelEmploye(const QString& prenom, const QString& nom)
        {
            cliquer(section, "boutonNouvelEmploye");
            saisir(section, "champPrenomEmploye", prenom);
            saisir(section, "champNomEmploye", nom);
            cliquer(section, "boutonEnregistrerEmploye");
        }
    };

private slots:
    void init() { Horloge::fixer(QDate(2024, 6, 15)); }

    // Employees dropped from their list on a structure join it, both lists written; the
    // outline's "Retirer de la structure" takes one out; an employee in a structure stays.
    void glisserSurUneStructure()
    {
        Ecran e;
        e.section.onglets()->setCurrentWidget(&e.personnel());
        saisir(e.section, "champNomStructure", "Compagnie d'Avril");
        cliquer(e.section, "boutonAjouterStructure");
        e.nouvelEmploye("Lou", "D'Arcy");
        e.nouvelEmploye("Jo", "Petit");
        e.nouvelEmploye("lou", "d'arcy");
        QCOMPARE(e.banc.dialogues.echanges().size(), 1);
        QCOMPARE(e.banc.dialogues.echanges().last().titre, QStringLiteral("Gestion des employés"));
        QCOMPARE(e.banc.dernierMessage(), Employes::messageEmployeExistant());
        cliquer(e.section, "boutonAnnulerEmploye");
        QCOMPARE(e.personnel().modeleEmployes()->rowCount(), 2);

        QTableView* table = e.personnel().tableEmployes();
        table->selectAll();
        ModeleStructures* arbre = e.personnel().modeleStructures();
        const QModelIndex structure = arbre->indexStructure(1);
        std::unique_ptr<QMimeData> glisse(table->model()->mimeData(table->selectionModel()->selectedIndexes()));
        QVERIFY(arbre->canDropMimeData(glisse.get(), Qt::CopyAction, -1, 0, structure));
        QVERIFY(arbre->dropMimeData(glisse.get(), Qt::CopyAction, -1, 0, structure));
        QCOMPARE(valeur(e.banc.chemin, "SELECT s_employes FROM structures WHERE s_id = 1;"), QStringLiteral("1,2"));
        QCOMPARE(valeur(e.banc.chemin, "SELECT group_concat(e_structures, '|') FROM employes;"), QStringLiteral("1|1"));
        QCOMPARE(arbre->rowCount(arbre->indexStructure(1)), 2);
        QCOMPARE(arbre->data(arbre->indexEmploye(1, 2)).toString(), QStringLiteral("Jo Petit"));

        e.personnel().arbre()->setCurrentIndex(arbre->indexEmploye(1, 1));
        cliquer(e.section, "boutonRetirerDeLaStructure");
        QCOMPARE(valeur(e.banc.chemin, "SELECT s_employes FROM structures WHERE s_id = 1;"), QStringLiteral("2"));
        QCOMPARE(valeur(e.banc.chemin, "SELECT group_concat(e_structures, '|') FROM employes;"), QStringLiteral("|1"));
        QCOMPARE(arbre->rowCount(arbre->indexStructure(1)), 1);

        table->selectRow(1);
        cliquer(e.section, "boutonSupprimerEmploye");
        QCOMPARE(e.banc.dernierMessage(), Employes::messageEmployeUtilise());
        QCOMPARE(nombre(e.banc.chemin, "SELECT COUNT(*) FROM employes;"), qint64(2));
    }

    // An event typed in its form brings its structure's staff; ticking "Payé" writes the tick
    // and the list's unpaid count follows.
    void evenementEtPaiement()
    {
        Ecran e;
        executerSql(e.banc.chemin, "INSERT INTO employeurs (e_raison_sociale) VALUES ('Théâtre d''Ivry');");
        Structures structures(e.document->base());
        Employe lou;
        lou.prenom = QStringLiteral("Lou");
        lou.nom = QStringLiteral("D'Arcy");
        QCOMPARE(structures.ajouteStructure(QStringLiteral("Compagnie d'Avril")), 1);
        QCOMPARE(Employes(structures.db()).enregistreEmploye(lou), 1);
        QVERIFY(structures.rattacheEmployes(1, {1}));
        e.section.onglets()->setCurrentWidget(&e.evenements());

        cliquer(e.section, "boutonNouvelEvenement");
        trouver<QDateEdit>(e.section, "dateEvenement")->setDate(QDate(2024, 7, 14));
        saisir(e.section, "champNomEvenement", "Bal d'été");
        choisir(e.section, "choixOrganisateur", "Théâtre d'Ivry");
        choisir(e.section, "choixStructureEvenement", "Compagnie d'Avril");
        cliquer(e.section, "boutonEnregistrerEvenement");
        QVERIFY(e.banc.dialogues.echanges().isEmpty());
        QCOMPARE(valeur(e.banc.chemin, "SELECT e_date || '|' || e_nom || '|' || e_proposition_id || '|' || ep_salaries "
                                       "FROM evenements JOIN evenementspaiements ON ep_evenement_id = e_id;"),
                 QStringLiteral("2024-07-14 00:00:00.000|Bal d'été|0|1"));

        QCOMPARE(e.evenements().evenementSelectionne(), 1);
        ModelePaiements* paiements = e.evenements().paiements();
        QCOMPARE(paiements->rowCount(), 1);
        const QModelIndex paye = paiements->index(0, ModelePaiements::Paye);
        QCOMPARE(paiements->data(paye, Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
        QVERIFY(paiements->setData(paye, Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(valeur(e.banc.chemin, "SELECT ep_payes FROM evenementspaiements;"), QStringLiteral("1"));
        QCOMPARE(paiements->data(paiements->index(0, ModelePaiements::Paye), Qt::CheckStateRole).toInt(),
                 int(Qt::Checked));
        QTRY_COMPARE(e.evenements().modele()->texte(0, 5), QStringLiteral("0"));
        QCOMPARE(trouver<QLabel>(e.section, "resumePaiements")->text(),
                 QStringLiteral("Tous les employés sont payés."));

        // The events' PDF menu composes the engagement contract for the event's organiser.
        QTemporaryDir dossier;
        const QString contrat = dossier.filePath(QStringLiteral("contrat.pdf"));
        e.banc.dialogues.choisirChemins({contrat});
        e.evenements().findChild<QAction*>(QStringLiteral("actionPdfContratEngagement"))->trigger();
        QVERIFY2(QFileInfo(contrat).size() > 0, qPrintable(e.banc.dernierMessage()));
        QVERIFY(e.banc.dialogues.panneaux().last().nomPropose.startsWith(QStringLiteral("Contrat")));
    }

    // Without a document, every action says so.
    void sansDocument_data()
    {
        QTest::addColumn<int>("onglet");
        QTest::addColumn<QString>("bouton");
        QTest::addColumn<QString>("titre");
        cas("a structure", 1, QString("boutonAjouterStructure"), QString("Gestion des Structures"));
        cas("an employee", 1, QString("boutonNouvelEmploye"), QString("Gestion des employés"));
        cas("an event", 2, QString("boutonNouvelEvenement"), QString("Gestion des Événements"));
    }

    void sansDocument()
    {
        QFETCH(int, onglet);
        QFETCH(QString, bouton);
        QFETCH(QString, titre);
        Ecran e(false);
        e.section.onglets()->setCurrentIndex(onglet);
        cliquer(e.section, bouton);
        QCOMPARE(e.banc.dialogues.echanges().size(), 1);
        QCOMPARE(e.banc.dialogues.echanges().first().titre, titre);
        QCOMPARE(e.banc.dernierMessage(), messageSansDocument());
        QCOMPARE(e.banc.dialogues.echanges().first().boutons, QStringList{"Fermer"});
    }
};

CORVANE_MAIN_GUI(TestPersonnelEcran)
#include "test_personnel.moc"
