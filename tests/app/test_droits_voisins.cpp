// The "Droits Voisins" section driven as a user would, on a real document: a payment entered
// through the form and shown in the list and in the totals of every body, the body filter, a
// refused amount, the quick creation of a category, duplicate and delete, the categories window
// deleting a category in use, and a section that follows payments written elsewhere.

#include "app/droitsvoisins/FenetreCategoriesDroitsVoisins.h"
#include "app/droitsvoisins/ListeDroitsVoisins.h"
#include "app/droitsvoisins/ModeleDroitsVoisins.h"
#include "app/droitsvoisins/SectionDroitsVoisins.h"
#include "commun/OutilsEcran.h"
#include "records/DroitsVoisins.h"

#include <QPlainTextEdit>
#include <QTableWidget>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

namespace {

// The list's rows as "date body category amount".
QStringList lignes(const ListeDroitsVoisins& liste)
{
    const ModeleDroitsVoisins* m = liste.modele();
    QStringList l;
    for (int r = 0; r < m->rowCount(); ++r) {
        QStringList cellules;
        for (int c = 0; c < ModeleDroitsVoisins::Details; ++c)
            cellules << m->data(m->index(r, c)).toString();
        l << cellules.join(' ').replace(QChar(0x202F), ' ').replace(QChar(0xA0), ' ');
    }
    return l;
}

// The totals box as "body=amount".
QStringList totaux(const ListeDroitsVoisins& liste)
{
    QStringList l;
    for (int r = 0; r < liste.totaux()->rowCount(); ++r)
        l << QString(liste.totaux()->item(r, 0)->text() + '=' + liste.totaux()->item(r, 1)->text())
                 .replace(QChar(0x202F), ' ')
                 .replace(QChar(0xA0), ' ');
    return l;
}

} // namespace

class TestDroitsVoisinsEcran : public QObject
{
    Q_OBJECT

private:
    struct Ecran
    {
        Banc banc;
        SectionDroitsVoisins section{banc.environnement};
        Document* document = nullptr;

        Ecran()
        {
            section.resize(1100, 720);
            section.show();
            document = banc.document(&section);
            section.setDocument(document);
        }
        ListeDroitsVoisins& liste() const { return *section.liste(); }
        void nouveau(const QString& organisme, const QString& categorie, const QString& montant)
        {
            cliquer(section, "boutonNouveauDv");
            trouver<QDateEdit>(section, "dateDv")->setDate(QDate(2024, 3, 12));
            choisir(section, "choixOrganismeDv", organisme);
            choisir(section, "choixCategorieDv", categorie);
            saisir(section, "montantDv", montant);
        }
    };

private slots:
    void init() { Horloge::fixer(QDate(2024, 6, 15)); }

    void saisieFiltreEtTotaux()
    {
        Ecran e;
        QCOMPARE(totaux(e.liste()).first(), QStringLiteral("Adami=—"));
        e.nouveau("Spedidam", "Musicien", "1 234,50");
        auto* details = trouver<QPlainTextEdit>(e.section, "champDetailsDv");
        details->setFocus();
        taper(details, QStringLiteral("Disque « Été »"));
        cliquer(e.section, "boutonEnregistrerDv");
        QVERIFY(!e.section.enEdition());
        QVERIFY(e.banc.dialogues.echanges().isEmpty());
        QCOMPARE(valeur(e.banc.chemin, "SELECT dv_date || '|' || dv_organisme_id || '|' || dv_categorie || '|' || "
                                       "dv_montant || '|' || dv_details FROM droitsvoisins;"),
                 QStringLiteral("2024-03-12 00:00:00.000|6|8|1234.5|Disque « Été »"));

        // Enter saves.
        e.nouveau("Adami", "Chanteur", "10");
        trouver<QDateEdit>(e.section, "dateDv")->setDate(QDate(2023, 5, 2));
        QTest::keyClick(trouver<QWidget>(e.section, "montantDv"), Qt::Key_Return);
        QCOMPARE(lignes(e.liste()),
                 (QStringList{"12/03/2024 Spedidam Musicien 1 234,50 €", "02/05/2023 Adami Chanteur 10,00 €"}));
        QCOMPARE(totaux(e.liste()), (QStringList{"Adami=10,00 €", "Agessa=—", "SACD=—", "Sacem=—", "Scpp=—",
                                                 "Spedidam=1 234,50 €", "Sppf=—", "Spré=—"}));
        QCOMPARE(
            trouver<QLabel>(e.section, "totalGeneralDv")->text().replace(QChar(0x202F), ' ').replace(QChar(0xA0), ' '),
            QStringLiteral("Total : 1 244,50 €"));

        // One body's payments; the choice is remembered for the next time.
        choisir(e.section, "filtreOrganismeDv", "Adami");
        QCOMPARE(lignes(e.liste()), QStringList{"02/05/2023 Adami Chanteur 10,00 €"});
        SectionDroitsVoisins autre(e.banc.environnement);
        autre.show();
        autre.setDocument(e.document);
        QCOMPARE(autre.liste()->modele()->rowCount(), 1);
    }

    // A refusal is an alert that says why; the form stays open and the document as it was.
    void refus_data()
    {
        QTest::addColumn<QString>("montant");
        QTest::addColumn<QString>("categorieRapide");
        QTest::addColumn<QString>("titre");
        QTest::addColumn<QString>("message");
        cas("amount written the German way", "1.977,00", "", "Gestion des Droits voisins", "Montant : ");
        cas("a category that exists in another case", "10", "musicien", "Droits voisins",
            "Cette catégorie existe déjà...");
    }

    void refus()
    {
        QFETCH(QString, montant);
        QFETCH(QString, categorieRapide);
        QFETCH(QString, titre);
        QFETCH(QString, message);
        Ecran e;
        const QByteArray avant = empreinte(e.banc.chemin);
        e.nouveau("Adami", "Divers", montant);
        if (categorieRapide.isEmpty()) {
            cliquer(e.section, "boutonEnregistrerDv");
        } else {
            saisir(e.section, "champCategorieRapideDv", categorieRapide);
            cliquer(e.section, "boutonCreerCategorieDv");
        }
        QCOMPARE(e.banc.dialogues.echanges().size(), 1);
        QCOMPARE(e.banc.dialogues.echanges().first().titre, titre);
        QVERIFY2(e.banc.dernierMessage().startsWith(message), qPrintable(e.banc.dernierMessage()));
        QVERIFY(e.section.enEdition());
        QCOMPARE(empreinte(e.banc.chemin), avant);
    }

    // A new category from the form is chosen at once; the list's copy and deletion; the
    // categories window deleting a category in use, and the list following it.
    void categoriesDoublonEtSuppression()
    {
        Ecran e;
        e.nouveau("Sacem", "Divers", "25");
        saisir(e.section, "champCategorieRapideDv", "Bruiteur");
        cliquer(e.section, "boutonCreerCategorieDv");
        QCOMPARE(trouver<QComboBox>(e.section, "choixCategorieDv")->currentText(), QStringLiteral("Bruiteur"));
        cliquer(e.section, "boutonEnregistrerDv");

        e.liste().table()->selectRow(0);
        cliquer(e.section, "boutonDupliquerDv");
        QCOMPARE(lignes(e.liste()),
                 (QStringList{"12/03/2024 Sacem Bruiteur 25,00 €", "12/03/2024 Sacem Bruiteur 25,00 €"}));
        QCOMPARE(e.liste().idsSelectionnes(), QList<int>{2});
        e.banc.dialogues.repondre({QStringLiteral("Oui")});
        cliquer(e.section, "boutonSupprimerDv");
        QCOMPARE(e.banc.dernierMessage(),
                 QStringLiteral("Souhaitez-vous réellement supprimer le versement sélectionné ?"));
        QCOMPARE(e.liste().modele()->rowCount(), 1);

        FenetreCategoriesDroitsVoisins* fenetre = e.section.ouvrirCategories();
        QVERIFY(fenetre);
        QCOMPARE(fenetre->windowTitle(), QStringLiteral("Gestion des catégories de droits voisins"));
        auto* liste = trouver<QTableWidget>(*fenetre, "listeCategoriesDv");
        QCOMPARE(liste->item(8, 0)->text() + ' ' + liste->item(8, 1)->text(), QStringLiteral("Bruiteur 1"));
        liste->selectRow(8);
        e.banc.dialogues.repondre({QStringLiteral("Ne rien faire")});
        QVERIFY(!fenetre->supprimer());
        QCOMPARE(liste->rowCount(), 9);
        e.banc.dialogues.repondre({QStringLiteral("Tout supprimer")});
        cliquer(*fenetre, "boutonSupprimerCategorieDv");
        QCOMPARE(e.banc.dialogues.echanges().last().boutons, (QStringList{"Tout supprimer", "Ne rien faire"}));
        QCOMPARE(liste->rowCount(), 8);
        QTRY_COMPARE(e.liste().modele()->rowCount(), 0);
        QCOMPARE(nombre(e.banc.chemin, "SELECT COUNT(*) FROM droitsvoisins;"), qint64(0));
        fenetre->close();
    }

    // A payment written through the open document elsewhere reaches the list and the totals.
    void documentSuivi()
    {
        Ecran e;
        DroitsVoisins(e.document->base()).enregistreDroitVoisin({QDate(2024, 1, 8), 2, 7, 42.0, QString()});
        QTRY_COMPARE(e.liste().modele()->rowCount(), 1);
        QCOMPARE(totaux(e.liste()).at(1), QStringLiteral("Agessa=42,00 €"));
    }
};

CORVANE_MAIN_GUI(TestDroitsVoisinsEcran)

#include "test_droits_voisins.moc"
