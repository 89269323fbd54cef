// The contracts section driven as a user would: a contract entered through the form and
// found in the list and on disk, the form's derivations and refusals, the overlap warning,
// the list's filters, sort, flags, duplicate and delete, and what it remembers.

#include "app/FenetrePrincipale.h"
#include "app/contrats/FormulaireContrat.h"
#include "app/contrats/ListeContrats.h"
#include "app/contrats/ModeleTableContrats.h"
#include "app/contrats/SectionContrats.h"
#include "app/employeurs/SectionEmployeurs.h"
#include "app/kit/ChampChiffre.h"
#include "app/kit/MessageSaisie.h"
#include "commun/OutilsEcran.h"
#include "records/OutilsContrats.h"

#include <QListWidget>
#include <QToolButton>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

namespace {

QString euros(double montant)
{
    return QLocale(QLocale::French, QLocale::France).toCurrencyString(montant, QStringLiteral("€"), 2);
}

// The contracts section on screen, over a document with two employers.
struct BancContrats : Banc
{
    explicit BancContrats(bool avecDocument = true) : Banc(avecDocument)
    {
        if (avecDocument) {
            ajouterEmployeur(chemin, QStringLiteral("Théâtre d'Orly"));
            ajouterEmployeur(chemin, QStringLiteral("Opéra"));
        }
        section.resize(1100, 720);
        section.show();
        recharger();
    }
    void recharger() { section.setDocument(document(&section)); }

    template <typename T>
    T* widget(const QString& nom) const
    {
        return trouver<T>(section, nom);
    }
    ListeContrats* liste() const { return section.liste(); }
    ModeleTableContrats* table() const { return liste()->modele(); }
    bool enEdition() const { return section.enEdition(); }
    void choisir(const QString& nom, const QString& texte) const { test::choisir(section, nom, texte); }
    void saisir(const QString& nom, const QString& texte) const { test::saisir(section, nom, texte); }
    void dates(const QDate& debut, const QDate& fin) const
    {
        widget<QDateEdit>("dateDebut")->setDate(debut);
        widget<QDateEdit>("dateFin")->setDate(fin);
    }
    void enregistrer() const { cliquer(section, "boutonEnregistrerContrat"); }
    QList<int> idsAffiches() const
    {
        QList<int> ids;
        for (int r = 0; r < table()->rowCount(); ++r)
            ids << table()->idContrat(r);
        return ids;
    }

    SectionContrats section{environnement};
};
} // namespace

class TestContratsEcran : public QObject
{
    Q_OBJECT

private slots:
    void init() { Horloge::fixer(QDate(2024, 6, 15)); }

    void saisieParLeFormulaire()
    {
        BancContrats b;
        cliquer(b.section, "boutonNouveauContrat");
        QVERIFY(b.enEdition());
        QCOMPARE(b.section.formulaire()->mode(), QStringLiteral("ajout"));
        QCOMPARE(b.widget<QLabel>("titreFormulaireContrat")->text(), QStringLiteral("Nouveau contrat"));
        // The profile's job and abatement, one day today.
        QCOMPARE(b.widget<QComboBox>("choixEmploi")->currentText(), QStringLiteral("Artiste"));
        QCOMPARE(b.widget<QComboBox>("choixAbattement")->currentText(), QStringLiteral("20 %"));
        QCOMPARE(b.widget<ChampNombre>("champHeures")->value(), 12);

        b.choisir("choixEmployeur", "Théâtre d'Orly");
        b.dates(QDate(2016, 7, 25), QDate(2016, 7, 29));
        QCOMPARE(b.widget<ChampNombre>("champJours")->value(), 5);
        QCOMPARE(b.widget<ChampNombre>("champHeures")->value(), 40);
        QVERIFY(b.widget<QCheckBox>("caseEffectue")->isChecked());
        QCOMPARE(b.widget<QComboBox>("choixAnneeEncaissement")->count(), 3);
        QCOMPARE(b.widget<QComboBox>("choixAnneeEncaissement")->currentText(), QStringLiteral("2016"));
        b.saisir("champBrut", "1 000,50");
        QCOMPARE(b.widget<QLabel>("brutApresAbattement")->text(), euros(800.4));
        b.saisir("champNet", "780,25");
        b.saisir("champLieu", "Salle l'Européen");
        b.saisir("champFonction", "Chef d'orchestre");
        b.enregistrer();

        QVERIFY(!b.enEdition());
        QVERIFY(b.dialogues.echanges().isEmpty());
        QCOMPARE(b.table()->rowCount(), 1);
        const Ligne& l = b.table()->ligne(0);
        QCOMPARE(l.value("Date Debut").toString(), QStringLiteral("25/07/2016"));
        QCOMPARE(l.value("Heures").toInt(), 40);
        QCOMPARE(l.value("Employeur").toString(), QStringLiteral("Théâtre d'Orly"));
        QCOMPARE(b.table()->data(b.table()->index(0, ModeleTableContrats::Brut)).toString(), euros(1000.5));
        QCOMPARE(valeur(b.chemin, "SELECT c_nbre_heures || '|' || c_nbre_jours || '|' || c_salaire_brut || '|' || "
                                  "c_salaire_net || '|' || c_lieu || '|' || c_fonction || '|' || c_abattement || '|' "
                                  "|| c_dates_travaillees || '|' || c_annee_encaissement FROM contrats;"),
                 QStringLiteral("40|5|1000.5|780.25|Salle l'Européen|Chef d'orchestre|2|25/07/2016,26/07/2016,27/07/"
                                "2016,28/07/2016,29/07/2016|2016"));
        QVERIFY(b.widget<QLabel>("totauxContrats")->text().contains(QStringLiteral("1 période groupée")));
    }

    // An amount typed the French way is saved to the cent; anything else is refused with its
    // reason and nothing is written, never 0,00 € (the reading itself: test_saisie_francaise).
    void montantSaisi_data()
    {
        QTest::addColumn<QString>("texte");
        QTest::addColumn<QString>("stocke"); // c_salaire_brut, "" when nothing may be saved
        cas("German grouping", "1.977,00", "");
        cas("euro sign", "1 977,50 €", "1977.5");
    }

    void montantSaisi()
    {
        QFETCH(QString, texte);
        QFETCH(QString, stocke);
        BancContrats b;
        b.section.nouveauContrat();
        b.choisir("choixEmployeur", "Opéra");
        b.saisir("champBrut", texte);
        // Another choice refreshes the form: what was typed stays, even when it cannot be read.
        b.choisir("choixEmploi", "Technicien");
        if (stocke.isEmpty())
            QCOMPARE(b.widget<ChampMontant>("champBrut")->text(), texte);
        b.enregistrer();
        if (stocke.isEmpty()) {
            QVERIFY(b.enEdition());
            QCOMPARE(valeur(b.chemin, "SELECT COUNT(*) FROM contrats;"), QStringLiteral("0"));
            QCOMPARE(b.dialogues.echanges().size(), 1);
            QVERIFY2(b.dialogues.echanges().first().message.startsWith(QStringLiteral("Salaire brut : ")),
                     qPrintable(b.dialogues.echanges().first().message));
            QVERIFY(b.widget<MessageSaisie>("messageSaisie")->isVisible());
            QVERIFY(!b.widget<ChampMontant>("champBrut")->toolTip().isEmpty());
        } else {
            QVERIFY(!b.enEdition());
            QCOMPARE(valeur(b.chemin, "SELECT c_salaire_brut FROM contrats;"), stocke);
        }
    }

    // Tab goes from field to field: a date is one stop, not one per day, month and year.
    void tabulationDesDates()
    {
        BancContrats b;
        b.section.nouveauContrat();
        montrerActive(b.section);
        auto* debut = b.widget<QDateEdit>("dateDebut");
        debut->setFocus();
        QTest::keyClick(debut, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), b.widget<QDateEdit>("dateFin"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), b.widget<QWidget>("champJours"));
    }

    void derivationsDuFormulaire()
    {
        BancContrats b;
        const int modele = ajouterModele(b.chemin, QStringLiteral("Tournée"), 3, 3, 4, 35, 800, 620);
        ajouterEmployeur(b.chemin, QStringLiteral("Compagnie l'Envol"), modele);
        b.recharger();
        b.section.nouveauContrat();
        b.dates(QDate(2024, 3, 4), QDate(2024, 3, 6));
        QCOMPARE(b.widget<ChampNombre>("champHeures")->value(), 36);
        cliquer(b.section, "caseAP");
        QCOMPARE(b.widget<ChampNombre>("champHeures")->value(), 21);
        cliquer(b.section, "caseAP");
        QCOMPARE(b.widget<ChampNombre>("champHeures")->value(), 36);
        b.choisir("choixEmploi", "Technicien");
        QCOMPARE(b.widget<ChampNombre>("champHeures")->value(), 24);
        b.choisir("choixType", "Enseignements");
        QCOMPARE(b.widget<QComboBox>("choixAbattement")->currentText(), QStringLiteral("0 %"));
        b.choisir("choixType", "Prestations");
        QCOMPARE(b.widget<QComboBox>("choixAbattement")->currentText(), QStringLiteral("20 %"));
        b.choisir("choixType", "Régime Général");
        QCOMPARE(b.widget<QComboBox>("choixEmploi")->currentText(), QStringLiteral("Régime Général"));

        // The employer's template fills the form, and its length drives the end.
        b.choisir("choixEmployeur", "Compagnie l'Envol");
        QCOMPARE(b.widget<QComboBox>("choixEmploi")->currentText(), QStringLiteral("Technicien"));
        QCOMPARE(b.widget<QComboBox>("choixType")->currentText(), QStringLiteral("Formations"));
        QCOMPARE(b.widget<QDateEdit>("dateFin")->date(), QDate(2024, 3, 7));
        QCOMPARE(b.widget<ChampNombre>("champHeures")->value(), 35);
        QCOMPARE(b.widget<QLineEdit>("champBrut")->text(), QStringLiteral("800,00"));
        b.widget<QDateEdit>("dateDebut")->setDate(QDate(2024, 5, 2));
        QCOMPARE(b.widget<QDateEdit>("dateFin")->date(), QDate(2024, 5, 5));

        // The self-employed job: the hours come from the gross.
        b.choisir("choixEmployeur", "Opéra");
        b.choisir("choixEmploi", "Auto Entrepreneur");
        QCOMPARE(b.widget<QComboBox>("choixType")->currentText(), QStringLiteral("Activités libérales (BNC)"));
        b.choisir("choixType", "Prestations de services BIC");
        b.saisir("champBrut", "976");
        QCOMPARE(b.widget<ChampNombre>("champHeures")->value(), 50);
        QCOMPARE(b.widget<QLabel>("brutApresAbattement")->text(), euros(488));
        QVERIFY(!b.widget<QComboBox>("choixAbattement")->isEnabled());

        // A start after today leaves the contract planned.
        b.widget<QDateEdit>("dateDebut")->setDate(QDate(2024, 6, 16));
        QVERIFY(!b.widget<QCheckBox>("caseEffectue")->isChecked());
    }

    // The employer's template gives its length and its hours, 0 included, until the user picks
    // an end: that end is then the user's, whatever the start or the other fields do.
    void modeleEtDateDeFin_data()
    {
        QTest::addColumn<int>("heuresModele");
        QTest::addColumn<QDate>("finChoisie"); // none when invalid
        QTest::addColumn<QDate>("nouveauDebut");
        QTest::addColumn<QDate>("fin");
        QTest::addColumn<int>("heures");
        cas("template without hours", 0, QDate(), QDate(2024, 5, 2), QDate(2024, 5, 6), 0);
        cas("template length follows the start", 35, QDate(), QDate(2024, 5, 2), QDate(2024, 5, 6), 35);
        cas("end picked by the user stays", 35, QDate(2024, 3, 12), QDate(2024, 3, 6), QDate(2024, 3, 12), 84);
        cas("start past the end picked: one day", 35, QDate(2024, 3, 12), QDate(2024, 3, 20), QDate(2024, 3, 20), 12);
    }

    void modeleEtDateDeFin()
    {
        QFETCH(int, heuresModele);
        QFETCH(QDate, finChoisie);
        QFETCH(QDate, nouveauDebut);
        QFETCH(QDate, fin);
        QFETCH(int, heures);
        BancContrats b;
        const int modele = ajouterModele(b.chemin, QStringLiteral("Résidence"), 1, 1, 5, heuresModele, 900, 700);
        ajouterEmployeur(b.chemin, QStringLiteral("Compagnie du Cerf"), modele);
        b.recharger();
        b.section.nouveauContrat();
        auto* dateFin = b.widget<QDateEdit>("dateFin");
        auto* champHeures = b.widget<ChampNombre>("champHeures");
        b.widget<QDateEdit>("dateDebut")->setDate(QDate(2024, 3, 4));
        b.choisir("choixEmployeur", "Compagnie du Cerf");
        QCOMPARE(dateFin->date(), QDate(2024, 3, 8));
        QCOMPARE(champHeures->value(), heuresModele);
        if (finChoisie.isValid()) {
            dateFin->setDate(finChoisie);
            QCOMPARE(dateFin->date(), finChoisie);
            b.choisir("choixType", "Prestations");
            QCOMPARE(dateFin->date(), finChoisie);
        }
        b.widget<QDateEdit>("dateDebut")->setDate(nouveauDebut);
        QCOMPARE(dateFin->date(), fin);
        QCOMPARE(champHeures->value(), heures);
        b.enregistrer();
        QVERIFY(!b.enEdition());
        QCOMPARE(valeur(b.chemin, "SELECT c_fin_contrat || '|' || c_nbre_heures FROM contrats;"),
                 QStringLiteral("%1|%2").arg(jourSQLite(fin)).arg(heures));
    }

    void refus_data()
    {
        QTest::addColumn<QString>("employeur");
        QTest::addColumn<QDate>("debut");
        QTest::addColumn<QDate>("fin");
        QTest::addColumn<QString>("titre");
        QTest::addColumn<QString>("message");
        cas("29 days of Prestations", "Opéra", QDate(2024, 3, 1), QDate(2024, 3, 29), "Nouveau contrat",
            "Vous ne pouvez pas déclarer plus de 28 jours de prestations dans le même mois.");
        cas("no employer", "", QDate(2024, 3, 1), QDate(2024, 3, 1), "Gestion des contrats",
            "Veuillez choisir un employeur avant d'enregistrer votre contrat.");
    }

    void refus()
    {
        QFETCH(QString, employeur);
        QFETCH(QDate, debut);
        QFETCH(QDate, fin);
        QFETCH(QString, titre);
        QFETCH(QString, message);
        BancContrats b;
        const QByteArray avant = empreinte(b.chemin);
        b.section.nouveauContrat();
        if (!employeur.isEmpty())
            b.choisir("choixEmployeur", employeur);
        b.dates(debut, fin);
        // Enter saves.
        QTest::keyClick(b.widget<QLineEdit>("champLieu"), Qt::Key_Return);
        QCOMPARE(b.dialogues.echanges().size(), 1);
        QCOMPARE(b.dialogues.echanges().first().titre, titre);
        QCOMPARE(b.dialogues.echanges().first().message, message);
        QCOMPARE(b.dialogues.echanges().first().boutons, QStringList{"Fermer"});
        QVERIFY(b.enEdition());
        QCOMPARE(empreinte(b.chemin), avant);
        // Escape cancels.
        QTest::keyClick(b.widget<QLineEdit>("champLieu"), Qt::Key_Escape);
        QVERIFY(!b.enEdition());
        QCOMPARE(b.table()->rowCount(), 0);
    }

    void avertissementEtModification()
    {
        BancContrats b;
        ajouterArretMaladie(b.chemin, QDate(2024, 3, 1), QDate(2024, 3, 31));
        b.section.nouveauContrat();
        b.choisir("choixEmployeur", "Opéra");
        b.dates(QDate(2024, 3, 10), QDate(2024, 3, 12));
        b.enregistrer();
        QCOMPARE(b.dialogues.echanges().size(), 1);
        QCOMPARE(b.dialogues.echanges().first().message,
                 QStringLiteral("Ce contrat chevauche une période de Sécurité Sociale existante."));
        QVERIFY(!b.enEdition());
        QCOMPARE(b.table()->rowCount(), 1);

        // Modified from the list: the same row changes.
        const int frais = ajouterFrais(b.chemin, QStringLiteral("Train"), 45);
        b.liste()->table()->selectRow(0);
        cliquer(b.section, "boutonModifierContrat");
        QVERIFY(b.enEdition());
        QCOMPARE(b.section.formulaire()->mode(), QStringLiteral("modif"));
        QCOMPARE(b.widget<QLabel>("titreFormulaireContrat")->text(),
                 QStringLiteral("Modification du contrat du 10/03/2024 chez Opéra"));
        QCOMPARE(b.widget<ChampNombre>("champHeures")->value(), 36);
        b.saisir("champLieu", "Bercy");
        auto* listeFrais = b.widget<QListWidget>("listeFraisLies");
        QCOMPARE(listeFrais->count(), 1);
        listeFrais->item(0)->setCheckState(Qt::Checked);
        b.enregistrer();
        QVERIFY(!b.enEdition());
        QCOMPARE(b.table()->rowCount(), 1);
        QCOMPARE(valeur(b.chemin, "SELECT c_lieu || '|' || c_frais_lies FROM contrats;"),
                 QStringLiteral("Bercy|%1").arg(frais));
        QCOMPARE(valeur(b.chemin, "SELECT contrat_id FROM contrats_frais;"), QStringLiteral("1"));
        QCOMPARE(b.table()->ligne(0).value("Id Frais Lie").toString(), QString::number(frais));

        // Another contract's form names the linked one by its date and employer.
        b.section.nouveauContrat();
        QVERIFY(listeFrais->item(0)->text().endsWith(QStringLiteral("(lié au contrat du 10/03/2024 chez Opéra)")));
    }

    void listeFiltresTriEtCases()
    {
        BancContrats b;
        ajouterContrat(b.chemin, {2, QDate(2024, 1, 10), QDate(2024, 1, 10), 12, 1, 100, 80, 1, 1, 1, 1});
        ajouterContrat(b.chemin, {3, QDate(2024, 3, 4), QDate(2024, 3, 8), 60, 5, 500, 400, 1, 0, 2, 2});
        ajouterContrat(b.chemin, {3, QDate(2024, 7, 1), QDate(2024, 7, 1), 12, 1, 200, 150, 0, 0, 1, 1});
        b.recharger();
        QCOMPARE(b.idsAffiches(), (QList<int>{3, 2, 1}));
        QVERIFY(b.widget<QLabel>("totauxContrats")->text().contains(QStringLiteral("84 heures")));

        cliquer(b.section, "boutonTri");
        QCOMPARE(b.reglages.texte(Reglages::Cle::ContratsSens), QStringLiteral("DESC"));
        QCOMPARE(b.idsAffiches(), (QList<int>{1, 2, 3}));
        cliquer(b.section, "boutonTri");
        QCOMPARE(b.idsAffiches(), (QList<int>{3, 2, 1}));

        b.choisir("filtreEffectue", "Planifiés");
        QCOMPARE(b.idsAffiches(), QList<int>{3});
        b.choisir("filtreEffectue", "Effectués et planifiés");
        b.choisir("filtreEmployeur", "Opéra");
        QCOMPARE(b.idsAffiches(), (QList<int>{3, 2}));
        b.choisir("filtreType", "Enseignements");
        QCOMPARE(b.idsAffiches(), QList<int>{2});
        b.choisir("filtreType", "Tous les types");
        b.choisir("filtreEmployeur", "Tous les employeurs");
        b.choisir("filtreEmploi", "Ouvrier");
        QCOMPARE(b.idsAffiches(), QList<int>{2});
        b.choisir("filtreEmploi", "Tous les emplois");

        // The "periode" dates are remembered in the document.
        b.choisir("filtrePeriode", "Période choisie");
        b.widget<QDateEdit>("filtreDu")->setDate(QDate(2024, 3, 1));
        b.widget<QDateEdit>("filtreAu")->setDate(QDate(2024, 6, 30));
        QCOMPARE(b.idsAffiches(), QList<int>{2});
        BancContrats autre(false);
        autre.section.setDocument(documentOuvert(b.chemin, &autre.section));
        QCOMPARE(autre.widget<QDateEdit>("filtreDu")->date(), QDate(2024, 3, 1));
        QCOMPARE(autre.widget<QDateEdit>("filtreAu")->date(), QDate(2024, 6, 30));

        // Greyed, the fields show the dates the listing applies, not the remembered ones.
        const auto periodeEnCours = [&](const char* colonne) {
            return QDate::fromString(valeur(b.chemin, QStringLiteral("SELECT substr(%1, 1, 10) FROM periodes JOIN "
                                                                     "utilisateur ON u_periode_en_cours = p_id;")
                                                          .arg(QLatin1String(colonne))),
                                     Qt::ISODate);
        };
        b.choisir("filtrePeriode", "Période de référence");
        QVERIFY(!b.widget<QDateEdit>("filtreDu")->isEnabled());
        QCOMPARE(b.widget<QDateEdit>("filtreDu")->date(), periodeEnCours("p_date_debut"));
        QCOMPARE(b.widget<QDateEdit>("filtreAu")->date(), periodeEnCours("p_date_fin"));
        b.choisir("filtrePeriode", "Année en cours");
        const int annee = Horloge::aujourdhui().year();
        QCOMPARE(b.widget<QDateEdit>("filtreDu")->date(), QDate(annee, 1, 1));
        QCOMPARE(b.widget<QDateEdit>("filtreAu")->date(), QDate(annee + 1, 1, 1));
        b.choisir("filtrePeriode", "Période choisie");
        QCOMPARE(b.widget<QDateEdit>("filtreDu")->date(), QDate(2024, 3, 1));
        b.choisir("filtrePeriode", "Tous les contrats");

        // A flag ticked in a row is written at once.
        const QModelIndex paye = b.table()->index(0, ModeleTableContrats::Paye);
        QVERIFY(b.table()->flags(paye) & Qt::ItemIsUserCheckable);
        QVERIFY(b.table()->setData(paye, Qt::Checked, Qt::CheckStateRole));
        const QModelIndex aem = b.table()->index(0, ModeleTableContrats::AemFp);
        QVERIFY(b.table()->setData(aem, Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(valeur(b.chemin, "SELECT c_effectue || c_paye || c_conges || c_aem_fp FROM contrats WHERE c_id = 3;"),
                 QStringLiteral("0100"));
    }

    void dupliquerEtSupprimer()
    {
        BancContrats b;
        ajouterContrat(b.chemin, {2, QDate(2024, 1, 10), QDate(2024, 1, 10), 12, 1, 100, 80});
        ajouterContrat(b.chemin, {3, QDate(2024, 3, 4), QDate(2024, 3, 4), 12, 1, 100, 80});
        const int frais = ajouterFrais(b.chemin, QStringLiteral("Hôtel"), 90);
        executerSql(b.chemin,
                    QStringLiteral("INSERT INTO contrats_frais (contrat_id, frais_id) VALUES (2, %1);").arg(frais));
        b.recharger();
        QTableView* table = b.liste()->table();
        table->selectRow(0);
        QCOMPARE(b.liste()->idsSelectionnes(), QList<int>{2});
        cliquer(b.section, "boutonDupliquerContrat");
        QCOMPARE(valeur(b.chemin, "SELECT COUNT(*) FROM contrats;"), QStringLiteral("3"));

        // Delete asks first; "Non" keeps it.
        table->setFocus();
        table->selectRow(0);
        b.dialogues.repondre({QStringLiteral("Non")});
        QTest::keyClick(table, Qt::Key_Delete);
        QCOMPARE(valeur(b.chemin, "SELECT COUNT(*) FROM contrats;"), QStringLiteral("3"));
        QVERIFY(!b.dialogues.echanges().isEmpty());
        QCOMPARE(b.dialogues.echanges().last().titre, QStringLiteral("Gestion des contrats"));
        b.dialogues.repondre({QStringLiteral("Oui")});
        const int id = b.liste()->idsSelectionnes().first();
        QTest::keyClick(table, Qt::Key_Delete);
        QCOMPARE(valeur(b.chemin, "SELECT COUNT(*) FROM contrats;"), QStringLiteral("2"));
        QCOMPARE(valeur(b.chemin, QStringLiteral("SELECT COUNT(*) FROM contrats WHERE c_id = %1;").arg(id)),
                 QStringLiteral("0"));
        // The first contract's expense link goes with it; the expense stays.
        table->selectAll();
        b.dialogues.repondre({QStringLiteral("Oui")});
        cliquer(b.section, "boutonSupprimerContrat");
        QCOMPARE(b.dialogues.echanges().size(), 3);
        QCOMPARE(b.dialogues.echanges().last().message,
                 QStringLiteral("Souhaitez-vous réellement supprimer les 2 contrats sélectionnés ?"));
        QCOMPARE(valeur(b.chemin, "SELECT COUNT(*) FROM contrats;"), QStringLiteral("0"));
        QCOMPARE(valeur(b.chemin, "SELECT COUNT(*) FROM contrats_frais;"), QStringLiteral("0"));
        QCOMPARE(valeur(b.chemin, "SELECT COUNT(*) FROM frais;"), QStringLiteral("1"));
    }

    void lettresDesChamps()
    {
        BancContrats b;
        b.section.nouveauContrat();
        montrerActive(b.section);
        QString prises = QStringLiteral("FDSA");
        QList<QLabel*> sansLettre;
        for (QLabel* etiquette : b.section.formulaire()->findChildren<QLabel*>()) {
            QWidget* champ = etiquette->buddy();
            if (!champ || !champ->isEnabled() || champ->focusPolicy() == Qt::NoFocus || qobject_cast<QLabel*>(champ))
                continue;
            const int i = etiquette->text().indexOf(QLatin1Char('&'));
            if (i < 0) {
                sansLettre << etiquette;
                continue;
            }
            const QChar lettre = etiquette->text().at(i + 1).toUpper();
            QVERIFY2(!prises.contains(lettre), qPrintable(etiquette->text()));
            prises += lettre;
            // Alt and the letter reach the field.
            QTest::keyClick(&b.section, Qt::Key(lettre.unicode()), Qt::AltModifier);
            QVERIFY2(etiquette->buddy()->hasFocus(), qPrintable(etiquette->text()));
        }
        // A label goes without only when every letter it has is taken.
        QVERIFY(sansLettre.size() <= 1);
        for (QLabel* etiquette : sansLettre)
            for (const QChar c : etiquette->text())
                QVERIFY2(!c.isLetter() || prises.contains(c.toUpper()), qPrintable(etiquette->text()));
    }

    void colonnesRetenues()
    {
        BancContrats b;
        // Until the user sets a width, the columns fit their contents: a long name is not cut.
        const QString nom = QStringLiteral("Compagnie du Théâtre de l'Écume");
        const int employeur = ajouterEmployeur(b.chemin, nom);
        ajouterContrat(b.chemin, {employeur, QDate(2024, 1, 10), QDate(2024, 1, 10), 12, 1, 100, 80});
        b.liste()->actualiser();
        QTableView* table = b.liste()->table();
        QVERIFY(table->columnWidth(ModeleTableContrats::Employeur) > table->fontMetrics().horizontalAdvance(nom));
        QVERIFY(b.reglages.valeur(Reglages::Cle::ContratsColonnes).toByteArray().isEmpty());

        table->setColumnWidth(ModeleTableContrats::Employeur, 333);
        QVERIFY(!b.reglages.valeur(Reglages::Cle::ContratsColonnes).toByteArray().isEmpty());
        SectionContrats autre(b.environnement);
        QCOMPARE(autre.liste()->table()->columnWidth(ModeleTableContrats::Employeur), 333);
    }

    void dansLaFenetre()
    {
        BancContrats b;
        ajouterContrat(b.chemin, {2, QDate(2024, 1, 10), QDate(2024, 1, 10), 12, 1, 100, 80});
        FenetrePrincipale fenetre(b.environnement);
        fenetre.show();
        fenetre.afficherSection(Section::Contrats);
        Document* document = documentOuvert(b.chemin, &fenetre);
        fenetre.setDocument(document);
        auto* section = fenetre.findChild<SectionContrats*>();
        QVERIFY(section);
        QCOMPARE(section->liste()->modele()->rowCount(), 1);
        // Only the page on screen has read the document; the others wait until they are shown.
        auto* employeurs = fenetre.findChild<SectionEmployeurs*>();
        QVERIFY(employeurs->estPerimee());
        QVERIFY(!section->estPerimee());

        // Contracts written anywhere through the document show in the list on screen, read once.
        QSignalSpy relectures(section->liste()->modele(), &QAbstractItemModel::modelReset);
        Contrats contrats(document->base());
        contrats.dupliqueContrat(section->liste()->modele()->idContrat(0));
        contrats.dupliqueContrat(section->liste()->modele()->idContrat(0));
        QTRY_COMPARE(section->liste()->modele()->rowCount(), 3);
        QCOMPARE(relectures.count(), 1);
        // A table the list does not read leaves it alone.
        document->base().exec(QStringLiteral("INSERT INTO congeshistorique (ch_date, ch_montant) VALUES "
                                             "('2024-01-01 00:00:00.000', 10);"));
        QCoreApplication::processEvents();
        QCOMPARE(relectures.count(), 1);
        // The hidden employers' page reads the document once it is shown.
        fenetre.afficherSection(Section::Employeurs);
        QVERIFY(!employeurs->estPerimee());
    }
};

CORVANE_MAIN_GUI(TestContratsEcran)

#include "test_contrats.moc"
