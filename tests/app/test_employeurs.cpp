// The employers section and the templates window driven through their widgets, with
// the document checked on disk: adding, the duplicate refusal, the "conventionné" box,
// both ways of deleting, templates, the import and the totals.

#include "app/employeurs/CumulsEmployeurs.h"
#include "app/employeurs/FenetreModeles.h"
#include "app/employeurs/SectionEmployeurs.h"
#include "app/kit/ChampChiffre.h"
#include "commun/OutilsEcran.h"
#include "records/Employeurs.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChartView>
#include <QMenu>
#include <QTableWidget>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

namespace {

// The employers section on screen, active so that keys reach it.
struct BancEmployeurs : Banc
{
    BancEmployeurs()
    {
        recharger();
        s.resize(1100, 700);
        montrerActive(s);
    }
    void recharger() { s.setDocument(document(&s)); }
    // Added through the form, Enter saving it; gives the id selected afterwards.
    int ajouter(const QString& nom, const QString& commune, const QString& codePostal)
    {
        cliquer(s, "boutonNouvelEmployeur");
        saisir(s, "champEnseigne", nom);
        saisir(s, "champCodePostal", codePostal);
        saisir(s, "champCommune", commune);
        QTest::keyClick(trouver<QLineEdit>(s, "champCommune"), Qt::Key_Return);
        return s.idSelectionne();
    }
    SectionEmployeurs s{environnement};
};
} // namespace

class TestEmployeursEcran : public QObject
{
    Q_OBJECT

private slots:
    void init() { Horloge::fixer(QDate(2024, 6, 15)); }

    void ajoutEtDoublon()
    {
        BancEmployeurs b;
        SectionEmployeurs* s = &b.s;
        const int id = b.ajouter("Théâtre de l'Œuvre", "Paris", "75009");
        QCOMPARE(id, 2);
        QCOMPARE(nombre(b.chemin, "SELECT COUNT(*) FROM employeurs WHERE e_raison_sociale = 'Théâtre de l''Œuvre' "
                                  "AND e_commune = 'Paris' AND e_codepostal = '75009' AND e_conventionne = 1;"),
                 1);
        QCOMPARE(trouver<QLabel>(*s, "nombreEmployeurs")->text(), QStringLiteral("2 employeurs"));

        // Same name in another town: kept; same name, postal code and town: refused.
        QCOMPARE(b.ajouter("Théâtre de l'Œuvre", "Lyon", "75009"), 3);
        b.ajouter("Théâtre de l'Œuvre", "Paris", "75009");
        QCOMPARE(b.dialogues.echanges().last().message, QStringLiteral("Cet employeur existe déjà."));
        QCOMPARE(nombre(b.chemin, "SELECT COUNT(*) FROM employeurs;"), 3);

        // Editing the selected employer, with the fields beyond the form's statements.
        s->selectionner(2);
        saisir(*s, "champInterlocuteur", "M. d'Artagnan");
        trouver<QCheckBox>(*s, "champGuso")->setChecked(true);
        saisir(*s, "champSiret", "123 456 789");
        trouver<QPushButton>(*s, "boutonEnregistrerEmployeur")->click();
        QCOMPARE(nombre(b.chemin, "SELECT COUNT(*) FROM employeurs WHERE e_id = 2 AND e_interlocuteur = "
                                  "'M. d''Artagnan' AND e_guso = 1 AND e_no_siret = '123 456 789';"),
                 1);
    }

    void coucheConventionne()
    {
        BancEmployeurs b;
        SectionEmployeurs* s = &b.s;
        const int id = b.ajouter("Le Zèbre", "Paris", "75020");
        auto* liste = trouver<QTableView>(*s, "listeEmployeurs");
        QModelIndex index;
        for (int i = 0; i < liste->model()->rowCount(); ++i) {
            if (liste->model()->index(i, 1).data().toString() == "Le Zèbre")
                index = liste->model()->index(i, 0);
        }
        QVERIFY(index.isValid());
        QCOMPARE(index.data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
        QVERIFY(liste->model()->setData(index, Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(nombre(b.chemin, QStringLiteral("SELECT e_conventionne FROM employeurs WHERE e_id = %1;").arg(id)), 0);
        QVERIFY(!trouver<QCheckBox>(*s, "champConventionne")->isChecked());
    }

    void suppression_data()
    {
        QTest::addColumn<bool>("avecContrats");
        QTest::addColumn<QString>("reponse");
        QTest::addColumn<bool>("supprime");
        QTest::addColumn<int>("modelesRestants");
        QTest::newRow("no contracts, confirmed: employer and its template go") << false << "Supprimer" << true << 0;
        QTest::newRow("no contracts, cancelled") << false << "Annuler" << false << 1;
        QTest::newRow("contracts, \"Tout\": its template stays") << true << "Tout" << true << 1;
    }

    void suppression()
    {
        QFETCH(bool, avecContrats);
        QFETCH(QString, reponse);
        QFETCH(bool, supprime);
        QFETCH(int, modelesRestants);
        BancEmployeurs b;
        SectionEmployeurs* s = &b.s;
        const int id = b.ajouter("Compagnie d'Arles", "Arles", "13200");
        executerSql(b.chemin,
                    QStringLiteral("INSERT INTO contratsmodeles (cm_libelle, cm_employeur) VALUES ('m', %1);").arg(id));
        if (avecContrats)
            executerSql(b.chemin, QStringLiteral("INSERT INTO contrats (c_employeur_id) VALUES (%1), (%1);").arg(id));
        s->selectionner(id);
        b.dialogues.repondre({reponse});
        const int avant = int(b.dialogues.echanges().size());
        // The Delete key on the list.
        auto* liste = trouver<QTableView>(*s, "listeEmployeurs");
        liste->setFocus();
        QTest::keyClick(liste, Qt::Key_Delete);
        QCOMPARE(b.dialogues.echanges().size(), avant + 1); // one question, either way
        if (avecContrats)
            QCOMPARE(b.dialogues.echanges().last().boutons, (QStringList{"Tout", "Rien"}));
        QCOMPARE(nombre(b.chemin, QStringLiteral("SELECT COUNT(*) FROM employeurs WHERE e_id = %1;").arg(id)),
                 supprime ? 0 : 1);
        QCOMPARE(nombre(b.chemin, "SELECT COUNT(*) FROM contratsmodeles;"), modelesRestants);
        QCOMPARE(nombre(b.chemin, "SELECT COUNT(*) FROM contrats;"), (avecContrats && !supprime) ? 2 : 0);
    }

    void associerUnModele()
    {
        BancEmployeurs b;
        SectionEmployeurs* s = &b.s;
        const int id = b.ajouter("L'Odéon", "Paris", "75006");
        trouver<QPushButton>(*s, "boutonAssocierModele")->click();
        QCOMPARE(b.dialogues.echanges().last().titre, QStringLiteral("Associer un modèle de contrat"));
        QCOMPARE(b.dialogues.echanges().last().message, QStringLiteral("Il n'existe aucun modèle."));

        executerSql(b.chemin, "INSERT INTO contratsmodeles (cm_libelle) VALUES ('Régie d''un soir');");
        trouver<QPushButton>(*s, "boutonAssocierModele")->click();
        auto* menu = trouver<QMenu>(*s, "menuModeles");
        QAction* choix = nullptr;
        for (QAction* a : menu->actions()) {
            if (a->text() == "Régie d'un soir")
                choix = a;
        }
        QVERIFY(choix);
        choix->trigger();
        menu->close();
        QCOMPARE(trouver<QLabel>(*s, "modeleAssocie")->text(), QStringLiteral("Régie d'un soir"));
        trouver<QPushButton>(*s, "boutonEnregistrerEmployeur")->click();
        QCOMPARE(nombre(b.chemin, QStringLiteral("SELECT e_contratmodele_id FROM employeurs WHERE e_id = %1;").arg(id)),
                 1);
    }

    void importer()
    {
        const QString source = ouvrirDocument(creerDocument(parametresParDefaut(g_maison->filePath("source.cv4"))));
        {
            Employeurs autres(source);
            Employeur e;
            e.raisonSociale = "Chez \"Lulu\"";
            e.commune = "Pau";
            autres.enregistreEmployeur(e);
        }
        BancEmployeurs b;
        SectionEmployeurs* s = &b.s;
        b.dialogues.choisirChemins({source, b.chemin});
        trouver<QPushButton>(*s, "boutonImporterEmployeurs")->click();
        QCOMPARE(b.dialogues.panneaux().last().titre, QStringLiteral("Import d'employeurs"));
        QCOMPARE(b.dialogues.panneaux().last().extension, QStringLiteral("cv4 or3"));
        QCOMPARE(b.dialogues.echanges().last().message, QStringLiteral("Un employeur a été importé."));
        QCOMPARE(nombre(b.chemin, "SELECT COUNT(*) FROM employeurs WHERE e_raison_sociale = 'Chez \"Lulu\"';"), 1);
        QCOMPARE(trouver<QLabel>(*s, "nombreEmployeurs")->text(), QStringLiteral("2 employeurs"));
        // The open document itself is refused.
        trouver<QPushButton>(*s, "boutonImporterEmployeurs")->click();
        QCOMPARE(b.dialogues.echanges().last().message, QStringLiteral("Ce fichier est déjà ouvert dans Corvane."));
    }

    void cumulsEtGraphique()
    {
        BancEmployeurs b;
        SectionEmployeurs* s = &b.s;
        const int id = b.ajouter("Bobino", "Paris", "75014");
        executerSql(b.chemin, QStringLiteral("INSERT INTO contrats (c_employeur_id, c_nbre_heures, c_nbre_jours, "
                                             "c_salaire_brut, c_salaire_net, c_salaire_net_a_payer) VALUES (%1, 24, 2, "
                                             "1234.5, 1000, 950), (%1, 12, 1, 100, 80, 80);")
                                  .arg(id));
        b.recharger();
        s->selectionner(id);
        QCOMPARE(trouver<QLabel>(*s, "cumulHeures")->text(), QStringLiteral("36"));
        QCOMPARE(trouver<QLabel>(*s, "cumulJournees")->text(), QStringLiteral("3"));
        QCOMPARE(trouver<QLabel>(*s, "cumulBruts")->text(), QStringLiteral("1\u202f334,50\u00a0€"));
        auto* vue = trouver<QChartView>(*s, "graphiqueEmployeurs");
        QCOMPARE(vue->chart()->series().size(), 1);
        auto* barres = qobject_cast<QBarSeries*>(vue->chart()->series().first());
        QCOMPARE(barres->count(), 3);
        QCOMPARE(barres->barSets().at(2)->label(), QStringLiteral("Net à payer"));
        QCOMPARE(barres->barSets().at(0)->at(0), 1334.5);

        // Past ten employers, the largest ten are shown, largest first, and the rest summed as "Autres".
        for (int n = 1; n <= 11; ++n)
            executerSql(b.chemin, QStringLiteral("INSERT INTO employeurs (e_raison_sociale) VALUES ('Salle %1');"
                                                 "INSERT INTO contrats (c_employeur_id, c_salaire_brut, c_salaire_net, "
                                                 "c_salaire_net_a_payer) VALUES (last_insert_rowid(), %2, %3, %3);")
                                      .arg(n)
                                      .arg(n * 100)
                                      .arg(n * 10));
        b.recharger();
        barres = qobject_cast<QBarSeries*>(vue->chart()->series().first());
        auto* axe = qobject_cast<QBarCategoryAxis*>(vue->chart()->axes(Qt::Horizontal).first());
        QCOMPARE(axe->count(), 11);
        QCOMPARE(axe->at(0), QStringLiteral("Bobino"));
        QCOMPARE(axe->at(1), QStringLiteral("Salle 11"));
        QCOMPARE(axe->at(10), QStringLiteral("Autres"));
        QCOMPARE(barres->barSets().at(0)->at(10), 200.0 + 100);
        QCOMPARE(barres->barSets().at(1)->at(10), 20.0 + 10);
    }

    void fenetreModeles()
    {
        Banc b;
        executerSql(b.chemin, "INSERT INTO employeurs (e_raison_sociale, e_commune) VALUES ('L''Odéon', 'Paris');");
        FenetreModeles f(b.environnement, *documentOuvert(b.chemin, this));
        f.show();
        trouver<QPushButton>(f, "boutonNouveauModele")->click();
        saisir(f, "champLibelleModele", "Régie d'un soir");
        auto* employeur = trouver<QComboBox>(f, "champEmployeurModele");
        employeur->setCurrentIndex(employeur->findText("L'Odéon (Paris)"));
        trouver<ChampMontant>(f, "champBrutModele")->setValue(250.5);
        trouver<ChampMontant>(f, "champNetAPayerModele")->setValue(180);
        QTest::keyClick(trouver<QLineEdit>(f, "champLibelleModele"), Qt::Key_Return);
        QCOMPARE(nombre(b.chemin, "SELECT COUNT(*) FROM contratsmodeles WHERE cm_libelle = 'Régie d''un soir' AND "
                                  "cm_employeur = 2 AND cm_salaire_brut = 250.5 AND cm_salaire_net_a_payer = 180;"),
                 1);
        QCOMPARE(trouver<QTableWidget>(f, "listeModeles")->rowCount(), 1);

        // A second one with the same name is refused.
        trouver<QPushButton>(f, "boutonNouveauModele")->click();
        saisir(f, "champLibelleModele", "Régie d'un soir");
        trouver<QPushButton>(f, "boutonEnregistrerModele")->click();
        QCOMPARE(b.dialogues.echanges().last().message, QStringLiteral("Un modèle porte déjà ce nom."));

        // Deleting a template an employer carries asks first, then clears it from the employer.
        executerSql(b.chemin, "UPDATE employeurs SET e_contratmodele_id = 1 WHERE e_id = 2;");
        f.recharger(1);
        b.dialogues.repondre({"Non"});
        trouver<QPushButton>(f, "boutonSupprimerModele")->click();
        QCOMPARE(b.dialogues.echanges().last().message,
                 QStringLiteral("Des employeurs sont associés à ce modèle de contrat.\n\nSouhaitez-vous réellement "
                                "supprimer ce modèle ?"));
        QCOMPARE(nombre(b.chemin, "SELECT COUNT(*) FROM contratsmodeles;"), 1);
        b.dialogues.repondre({"Oui"});
        trouver<QPushButton>(f, "boutonSupprimerModele")->click();
        QCOMPARE(nombre(b.chemin, "SELECT COUNT(*) FROM contratsmodeles;"), 0);
        QCOMPARE(nombre(b.chemin, "SELECT e_contratmodele_id FROM employeurs WHERE e_id = 2;"), 0);
    }
};

CORVANE_MAIN_GUI(TestEmployeursEcran)

#include "test_employeurs.moc"
