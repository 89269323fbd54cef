// The employers section and the templates window driven through their widgets, with
// the document checked on disk: adding, the duplicate refusal, the "conventionné" box,
// both ways of deleting, templates, the import and the totals.

#include "app/Environnement.h"
#include "app/employeurs/CumulsEmployeurs.h"
#include "app/employeurs/FenetreModeles.h"
#include "app/employeurs/SectionEmployeurs.h"
#include "app/kit/ChampChiffre.h"
#include "commun/OutilsEcran.h"
#include "records/Employeurs.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QApplication>
#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChartView>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

class TestEmployeursEcran : public QObject
{
    Q_OBJECT

private:
    int m_numero = 0;
    std::unique_ptr<Reglages> m_reglages;
    std::unique_ptr<DialoguesScriptes> m_dialogues;
    std::unique_ptr<Environnement> m_environnement;
    QString m_chemin;

    QString nouveauDocument()
    {
        const QString chemin =
            creerDocument(parametresParDefaut(g_maison->filePath(QStringLiteral("e%1.cv4").arg(++m_numero))));
        ouvrirDocument(chemin);
        return chemin;
    }

    std::unique_ptr<SectionEmployeurs> section()
    {
        auto s = std::make_unique<SectionEmployeurs>(*m_environnement);
        s->setDocument(documentOuvert(m_chemin, s.get()));
        s->resize(1100, 700);
        s->show();
        QApplication::setActiveWindow(s.get());
        if (!QTest::qWaitForWindowActive(s.get()))
            qWarning() << "fenêtre inactive";
        return s;
    }

    int ajouter(SectionEmployeurs& s, const QString& nom, const QString& commune, const QString& codePostal)
    {
        trouver<QPushButton>(s, "boutonNouvelEmployeur")->click();
        saisir(s, "champEnseigne", nom);
        saisir(s, "champCodePostal", codePostal);
        saisir(s, "champCommune", commune);
        QTest::keyClick(trouver<QLineEdit>(s, "champCommune"), Qt::Key_Return); // Enter saves
        return s.idSelectionne();
    }

private slots:
    void init()
    {
        Horloge::fixer(QDate(2024, 6, 15));
        m_reglages = std::make_unique<Reglages>(g_maison->filePath(QStringLiteral("r%1.ini").arg(m_numero + 1)));
        m_dialogues = std::make_unique<DialoguesScriptes>();
        m_environnement.reset(new Environnement{*m_reglages, *m_dialogues});
        m_chemin = nouveauDocument();
    }

    void ajoutEtDoublon()
    {
        auto s = section();
        const int id = ajouter(*s, "Théâtre de l'Œuvre", "Paris", "75009");
        QCOMPARE(id, 2);
        QCOMPARE(nombre(m_chemin, "SELECT COUNT(*) FROM employeurs WHERE e_raison_sociale = 'Théâtre de l''Œuvre' "
                                  "AND e_commune = 'Paris' AND e_codepostal = '75009' AND e_conventionne = 1;"),
                 1);
        QCOMPARE(trouver<QLabel>(*s, "nombreEmployeurs")->text(), QStringLiteral("2 employeurs"));

        // Same name in another town: kept; same name, postal code and town: refused.
        QCOMPARE(ajouter(*s, "Théâtre de l'Œuvre", "Lyon", "75009"), 3);
        ajouter(*s, "Théâtre de l'Œuvre", "Paris", "75009");
        QCOMPARE(m_dialogues->echanges().last().message, QStringLiteral("Cet employeur existe déjà."));
        QCOMPARE(nombre(m_chemin, "SELECT COUNT(*) FROM employeurs;"), 3);

        // Editing the selected employer, with the fields beyond the form's statements.
        s->selectionner(2);
        saisir(*s, "champInterlocuteur", "M. d'Artagnan");
        trouver<QCheckBox>(*s, "champGuso")->setChecked(true);
        saisir(*s, "champSiret", "123 456 789");
        trouver<QPushButton>(*s, "boutonEnregistrerEmployeur")->click();
        QCOMPARE(nombre(m_chemin, "SELECT COUNT(*) FROM employeurs WHERE e_id = 2 AND e_interlocuteur = "
                                  "'M. d''Artagnan' AND e_guso = 1 AND e_no_siret = '123 456 789';"),
                 1);
    }

    void coucheConventionne()
    {
        auto s = section();
        const int id = ajouter(*s, "Le Zèbre", "Paris", "75020");
        auto* liste = trouver<QTableView>(*s, "listeEmployeurs");
        QModelIndex index;
        for (int i = 0; i < liste->model()->rowCount(); ++i) {
            if (liste->model()->index(i, 1).data().toString() == "Le Zèbre")
                index = liste->model()->index(i, 0);
        }
        QVERIFY(index.isValid());
        QCOMPARE(index.data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
        QVERIFY(liste->model()->setData(index, Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(nombre(m_chemin, QStringLiteral("SELECT e_conventionne FROM employeurs WHERE e_id = %1;").arg(id)), 0);
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
        QTest::newRow("contracts, \"Rien\"") << true << "Rien" << false << 1;
    }

    void suppression()
    {
        QFETCH(bool, avecContrats);
        QFETCH(QString, reponse);
        QFETCH(bool, supprime);
        QFETCH(int, modelesRestants);
        auto s = section();
        const int id = ajouter(*s, "Compagnie d'Arles", "Arles", "13200");
        executerSql(m_chemin,
                    QStringLiteral("INSERT INTO contratsmodeles (cm_libelle, cm_employeur) VALUES ('m', %1);").arg(id));
        if (avecContrats)
            executerSql(m_chemin, QStringLiteral("INSERT INTO contrats (c_employeur_id) VALUES (%1), (%1);").arg(id));
        s->selectionner(id);
        m_dialogues->repondre({reponse});
        const int avant = int(m_dialogues->echanges().size());
        // The Delete key on the list.
        auto* liste = trouver<QTableView>(*s, "listeEmployeurs");
        liste->setFocus();
        QTest::keyClick(liste, Qt::Key_Delete);
        QCOMPARE(m_dialogues->echanges().size(), avant + 1); // one question, either way
        if (avecContrats)
            QCOMPARE(m_dialogues->echanges().last().boutons, (QStringList{"Tout", "Rien"}));
        QCOMPARE(nombre(m_chemin, QStringLiteral("SELECT COUNT(*) FROM employeurs WHERE e_id = %1;").arg(id)),
                 supprime ? 0 : 1);
        QCOMPARE(nombre(m_chemin, "SELECT COUNT(*) FROM contratsmodeles;"), modelesRestants);
        QCOMPARE(nombre(m_chemin, "SELECT COUNT(*) FROM contrats;"), (avecContrats && !supprime) ? 2 : 0);
    }

    void associerUnModele()
    {
        auto s = section();
        const int id = ajouter(*s, "L'Odéon", "Paris", "75006");
        trouver<QPushButton>(*s, "boutonAssocierModele")->click();
        QCOMPARE(m_dialogues->echanges().last().titre, QStringLiteral("Associer un modèle de contrat"));
        QCOMPARE(m_dialogues->echanges().last().message, QStringLiteral("Il n'existe aucun modèle."));

        executerSql(m_chemin, "INSERT INTO contratsmodeles (cm_libelle) VALUES ('Régie d''un soir');");
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
        QCOMPARE(nombre(m_chemin, QStringLiteral("SELECT e_contratmodele_id FROM employeurs WHERE e_id = %1;").arg(id)),
                 1);
    }

    void importer()
    {
        const QString source = nouveauDocument();
        {
            Employeurs autres(source);
            Employeur e;
            e.raisonSociale = "Chez \"Lulu\"";
            e.commune = "Pau";
            autres.enregistreEmployeur(e);
        }
        auto s = section();
        m_dialogues->choisirChemins({source, m_chemin});
        trouver<QPushButton>(*s, "boutonImporterEmployeurs")->click();
        QCOMPARE(m_dialogues->panneaux().last().titre, QStringLiteral("Import d'employeurs"));
        QCOMPARE(m_dialogues->panneaux().last().extension, QStringLiteral("cv4 or3"));
        QCOMPARE(m_dialogues->echanges().last().message, QStringLiteral("Un employeur a été importé."));
        QCOMPARE(nombre(m_chemin, "SELECT COUNT(*) FROM employeurs WHERE e_raison_sociale = 'Chez \"Lulu\"';"), 1);
        QCOMPARE(trouver<QLabel>(*s, "nombreEmployeurs")->text(), QStringLiteral("2 employeurs"));
        // The open document itself is refused.
        trouver<QPushButton>(*s, "boutonImporterEmployeurs")->click();
        QCOMPARE(m_dialogues->echanges().last().message, QStringLiteral("Ce fichier est déjà ouvert dans Corvane."));
    }

    void cumulsEtGraphique()
    {
        auto s = section();
        const int id = ajouter(*s, "Bobino", "Paris", "75014");
        executerSql(m_chemin, QStringLiteral("INSERT INTO contrats (c_employeur_id, c_nbre_heures, c_nbre_jours, "
                                             "c_salaire_brut, c_salaire_net, c_salaire_net_a_payer) VALUES (%1, 24, 2, "
                                             "1234.5, 1000, 950), (%1, 12, 1, 100, 80, 80);")
                                  .arg(id));
        s->setDocument(documentOuvert(m_chemin, s.get()));
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
            executerSql(m_chemin, QStringLiteral("INSERT INTO employeurs (e_raison_sociale) VALUES ('Salle %1');"
                                                 "INSERT INTO contrats (c_employeur_id, c_salaire_brut, c_salaire_net, "
                                                 "c_salaire_net_a_payer) VALUES (last_insert_rowid(), %2, %3, %3);")
                                      .arg(n)
                                      .arg(n * 100)
                                      .arg(n * 10));
        s->setDocument(documentOuvert(m_chemin, s.get()));
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
        executerSql(m_chemin, "INSERT INTO employeurs (e_raison_sociale, e_commune) VALUES ('L''Odéon', 'Paris');");
        FenetreModeles f(*m_environnement, *documentOuvert(m_chemin, this));
        f.show();
        trouver<QPushButton>(f, "boutonNouveauModele")->click();
        saisir(f, "champLibelleModele", "Régie d'un soir");
        auto* employeur = trouver<QComboBox>(f, "champEmployeurModele");
        employeur->setCurrentIndex(employeur->findText("L'Odéon (Paris)"));
        trouver<ChampMontant>(f, "champBrutModele")->setValue(250.5);
        trouver<ChampMontant>(f, "champNetAPayerModele")->setValue(180);
        QTest::keyClick(trouver<QLineEdit>(f, "champLibelleModele"), Qt::Key_Return);
        QCOMPARE(nombre(m_chemin, "SELECT COUNT(*) FROM contratsmodeles WHERE cm_libelle = 'Régie d''un soir' AND "
                                  "cm_employeur = 2 AND cm_salaire_brut = 250.5 AND cm_salaire_net_a_payer = 180;"),
                 1);
        QCOMPARE(trouver<QTableWidget>(f, "listeModeles")->rowCount(), 1);

        // A second one with the same name is refused.
        trouver<QPushButton>(f, "boutonNouveauModele")->click();
        saisir(f, "champLibelleModele", "Régie d'un soir");
        trouver<QPushButton>(f, "boutonEnregistrerModele")->click();
        QCOMPARE(m_dialogues->echanges().last().message, QStringLiteral("Un modèle porte déjà ce nom."));

        // Deleting a template an employer carries asks first, then clears it from the employer.
        executerSql(m_chemin, "UPDATE employeurs SET e_contratmodele_id = 1 WHERE e_id = 2;");
        f.recharger(1);
        m_dialogues->repondre({"Non"});
        trouver<QPushButton>(f, "boutonSupprimerModele")->click();
        QCOMPARE(m_dialogues->echanges().last().message,
                 QStringLiteral("Des employeurs sont associés à ce modèle de contrat.\n\nSouhaitez-vous réellement "
                                "supprimer ce modèle ?"));
        QCOMPARE(nombre(m_chemin, "SELECT COUNT(*) FROM contratsmodeles;"), 1);
        m_dialogues->repondre({"Oui"});
        trouver<QPushButton>(f, "boutonSupprimerModele")->click();
        QCOMPARE(nombre(m_chemin, "SELECT COUNT(*) FROM contratsmodeles;"), 0);
        QCOMPARE(nombre(m_chemin, "SELECT e_contratmodele_id FROM employeurs WHERE e_id = 2;"), 0);
    }

    void sansDocument()
    {
        SectionEmployeurs s(*m_environnement);
        s.setDocument(documentOuvert(QString(), &s));
        trouver<QPushButton>(s, "boutonNouvelEmployeur")->click();
        QCOMPARE(m_dialogues->echanges().last().message,
                 QStringLiteral("Avant toute nouvelle opération, il est nécessaire de créer un nouveau fichier, ou "
                                "d'en ouvrir un."));
    }
};

CORVANE_MAIN_GUI(TestEmployeursEcran)

#include "test_employeurs.moc"
