// The CSV windows, reached from the "Fichier" menu: without a document each answers with the
// no-document alert under its own title; with one, the paid contracts are exported, and a file
// is chosen, read again with another separator and its titles, given its columns' headers from
// their menus, refused, then imported after the question about the line where reading stopped.

#include "app/ControleurApplication.h"
#include "app/csv/FenetreExportCsv.h"
#include "app/csv/FenetreImportCsv.h"
#include "app/csv/ModeleGrilleCsv.h"
#include "commun/OutilsEcran.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

namespace {

// The main window and its controller over a document of its own, not yet opened.
struct BancCsv : Banc
{
    FenetrePrincipale fenetre{environnement};
    ControleurApplication controleur{reglages, dialogues, fenetre};
};

// Clicks a column's header and chooses an entry of the menu it shows.
void choisirEntete(FenetreImportCsv& fenetre, int colonne, const QString& entete)
{
    QHeaderView* entetes = trouver<QTableView>(fenetre, "grilleCsv")->horizontalHeader();
    QTest::mouseClick(entetes->viewport(), Qt::LeftButton, {},
                      QPoint(entetes->sectionViewportPosition(colonne) + 5, entetes->height() / 2));
    auto* menu = trouver<QMenu>(fenetre, "menuEnteteCsv");
    QVERIFY(menu && menu->isVisible());
    const QList<QAction*> actions = menu->actions();
    const auto action =
        std::find_if(actions.cbegin(), actions.cend(), [&entete](const QAction* a) { return a->text() == entete; });
    QVERIFY(action != actions.cend());
    (*action)->trigger();
    menu->close();
    delete menu;
}

} // namespace

class TestCsvEcran : public QObject
{
    Q_OBJECT

private slots:
    void init() { Horloge::fixer(QDate(2024, 6, 15)); }

    void sansDocument()
    {
        BancCsv b;
        QVERIFY(b.controleur.demarrer());
        for (const auto& [action, titre] :
             {std::pair{"actionExportCsv", "Export CSV"}, std::pair{"actionImportCsv", "Importation CSV"}}) {
            b.fenetre.action(QLatin1String(action))->trigger();
            QCOMPARE(b.dialogues.echanges().last().titre, QString::fromUtf8(titre));
            QCOMPARE(b.dialogues.echanges().last().message, messageSansDocument());
            QCOMPARE(b.dialogues.echanges().last().boutons, QStringList{"Fermer"});
        }
        QVERIFY(b.fenetre.findChildren<QDialog*>().isEmpty());
    }

    void exporterPuisImporter()
    {
        BancCsv b;
        executerSql(
            b.chemin,
            QStringLiteral("INSERT INTO employeurs (e_raison_sociale, e_commune) VALUES ('Opéra, \"Nouvel\"', "
                           "'Lyon');"
                           "INSERT INTO contrats (c_employeur_id, c_debut_contrat, c_fin_contrat, c_nbre_heures, "
                           "c_salaire_brut, c_salaire_net, c_salaire_net_a_payer, c_paye) VALUES (2, "
                           "'2024-03-04 00:00:00.000', '2024-03-08 00:00:00.000', 60, 2500.5, 1950, 1800, 1);"));
        QVERIFY(b.controleur.demarrer());
        QVERIFY(b.controleur.ouvrir(b.chemin));

        b.fenetre.action(QStringLiteral("actionExportCsv"))->trigger();
        auto* exporter = b.fenetre.findChild<FenetreExportCsv*>();
        QVERIFY(exporter && exporter->isVisible());
        choisir(*exporter, "listeSourcesCsv", "Contrats payés");
        trouver<QCheckBox>(*exporter, "caseEntetesCsv")->setChecked(false);
        const QString dossier = g_maison->filePath(QStringLiteral("exports"));
        saisir(*exporter, "champDossierCsv", dossier);
        cliquer(*exporter, "boutonExporterCsv");
        QCOMPARE(lire(dossier + QStringLiteral("/Contrats payés.csv")),
                 QByteArray("\"Opéra, \"\"Nouvel\"\"\",2024-03-04 00:00:00.000,2024-03-08 00:00:00.000,60,2500.5,"
                            "1950,1800\n#Généré par Corvane\n"));
        QCOMPARE(b.dernierMessage(), "1 ligne exportée dans le fichier « " + dossier + "/Contrats payés.csv ».");
        QTRY_VERIFY(!exporter->isVisible());

        const QString csv = g_maison->filePath(QStringLiteral("employeurs.csv"));
        ecrire(csv, "Nom;Ville;Code\nRond-Point;Paris;75008\nThéâtre, Lyon;Lyon;69001\nMauvais\"nom;Nulle part;0\n"
                    "Dernier;Lille;59000\n");
        b.fenetre.action(QStringLiteral("actionImportCsv"))->trigger();
        auto* importer = b.fenetre.findChild<FenetreImportCsv*>();
        QVERIFY(importer && importer->isVisible());
        b.dialogues.choisirChemins({csv});
        cliquer(*importer, "boutonChoisirCsv");
        ModeleGrilleCsv* grille = importer->grille();
        QCOMPARE(grille->columnCount(), 2); // "Théâtre, Lyon" splits at the comma
        choisir(*importer, "listeSeparateursCsv", "; (point-virgule)");
        QCOMPARE(grille->columnCount(), 3);
        QCOMPARE(grille->rowCount(), 3);
        trouver<QCheckBox>(*importer, "caseTitresCsv")->setChecked(true);
        QCOMPARE(grille->rowCount(), 2);
        auto* message = trouver<QLabel>(*importer, "messageLectureCsv");
        QVERIFY(message->isVisible());
        QVERIFY2(message->text().contains(QStringLiteral("ligne 4, colonne 8")), qPrintable(message->text()));

        choisirEntete(*importer, 0, "Raison Sociale");
        QCOMPARE(grille->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Raison Sociale\nNom"));
        const QByteArray avant = lire(b.chemin);
        cliquer(*importer, "boutonImporterCsv");
        QCOMPARE(b.dernierMessage(), QStringLiteral("Pour importer des employeurs, vous devez sélectionner au moins "
                                                    "une Raison Sociale et une Commune."));
        choisirEntete(*importer, 1, "Commune");
        choisirEntete(*importer, 2, "Code Postal");
        b.dialogues.repondre({"Annuler"});
        cliquer(*importer, "boutonImporterCsv");
        QVERIFY(b.dernierMessage().contains(QStringLiteral("Seules les 2 lignes lues avant seront importées.")));
        QCOMPARE(lire(b.chemin), avant);

        b.dialogues.repondre({"Importer"});
        cliquer(*importer, "boutonImporterCsv");
        QCOMPARE(b.dernierMessage(), QStringLiteral("2 employeurs importés."));
        QCOMPARE(valeur(b.chemin, QStringLiteral("SELECT group_concat(e_raison_sociale || '/' || e_codepostal || '/' "
                                                 "|| e_commune, '|') FROM employeurs WHERE e_id > 2;")),
                 QStringLiteral("Rond-Point/75008/Paris|Théâtre, Lyon/69001/Lyon"));
        QTRY_VERIFY(!importer->isVisible());
    }
};

CORVANE_MAIN_GUI(TestCsvEcran)
#include "test_csv_ecran.moc"
