// The "Frais" section driven as a user would, on a real document: an expense entered through
// the form (a distance for the mileage category, a receipt chosen and shown, a contract chosen),
// the form's refusals, the filters, sort and total of the list, duplicate and delete, the
// categories window with its refusals, and the list following writes made elsewhere.

#include "app/Environnement.h"
#include "app/frais/FenetreCategoriesFrais.h"
#include "app/frais/FormulaireFrais.h"
#include "app/frais/ListeFrais.h"
#include "app/frais/ModeleFrais.h"
#include "app/frais/SectionFrais.h"
#include "commun/OutilsEcran.h"
#include "records/Frais.h"
#include "records/OutilsContrats.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QDesktopServices>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QTableWidget>
#include <QToolButton>
#include <QUrl>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

namespace {

// Figures as a person reads them: Qt writes them with narrow and non-breaking spaces.
QString simple(QString texte)
{
    return texte.replace(QChar(0x202f), QLatin1Char(' ')).replace(QChar(0x00a0), QLatin1Char(' '));
}

} // namespace

class TestFraisEcran : public QObject
{
    Q_OBJECT

public slots:
    // Stands for the system's viewer.
    void afficher(const QUrl& url) { m_affiches << url.toLocalFile(); }

private:
    struct Banc
    {
        std::unique_ptr<Reglages> reglages;
        DialoguesScriptes dialogues;
        std::unique_ptr<Environnement> environnement;
        std::unique_ptr<SectionFrais> section;
        Document* document = nullptr;
        QString chemin;

        template <typename T = QWidget>
        T* widget(const QString& nom) const
        {
            return trouver<T>(*section, nom);
        }
        ModeleFrais* table() const { return section->liste()->modele(); }
        QString texte(const QString& nom) const { return simple(widget<QLabel>(nom)->text()); }
        void saisir(const QString& nom, const QString& texte) const { test::saisir(*section, nom, texte); }
        void choisir(const QString& nom, const QString& texte) const { test::choisir(*section, nom, texte); }
        void cliquer(const QString& nom) const { QTest::mouseClick(widget<QAbstractButton>(nom), Qt::LeftButton); }
        QStringList colonne(int colonne) const
        {
            QStringList l;
            for (int r = 0; r < table()->rowCount(); ++r)
                l << simple(table()->data(table()->index(r, colonne)).toString());
            return l;
        }
    };
    int m_numero = 0;
    QStringList m_affiches;

    std::unique_ptr<Banc> banc()
    {
        auto b = std::make_unique<Banc>();
        b->reglages = std::make_unique<Reglages>(g_maison->filePath(QStringLiteral("reglages%1.ini").arg(++m_numero)));
        b->environnement.reset(new Environnement{*b->reglages, b->dialogues});
        b->section = std::make_unique<SectionFrais>(*b->environnement);
        b->section->resize(1100, 720);
        b->section->show();
        b->chemin = documentContrats(*g_maison, QStringLiteral("frais%1.cv4").arg(m_numero));
        ajouterContrat(b->chemin, {ajouterEmployeur(b->chemin, QStringLiteral("Opéra")), QDate(2024, 3, 4),
                                   QDate(2024, 3, 8), 60, 5, 2500, 1950});
        b->document = documentOuvert(b->chemin, b->section.get());
        b->section->setDocument(b->document);
        return b;
    }

    static void ajouter(const QString& chemin, int categorie, const QDate& date, double montant, const QString& note)
    {
        Depense d;
        d.categorieId = categorie;
        d.date = date;
        d.montant = montant;
        d.details = note;
        QVERIFY(Frais(chemin).enregistreFrais(d) > 0);
    }

private slots:
    void initTestCase() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "afficher"); }
    void cleanupTestCase() { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
    void init()
    {
        Horloge::fixer(QDate(2024, 6, 15));
        m_affiches.clear();
    }

    void saisieParLeFormulaire()
    {
        auto b = banc();
        const QString recu = g_maison->filePath(QStringLiteral("péage d'Orly.pdf"));
        ecrire(recu, "%PDF-1.4");
        b->cliquer("boutonNouveauFrais");
        QVERIFY(b->section->enEdition());
        QCOMPARE(b->texte("titreFormulaireFrais"), QStringLiteral("Nouvelle dépense"));
        // The mileage category records a distance.
        b->choisir("choixCategorieFrais", "Kilométrage");
        QCOMPARE(b->texte("uniteFrais"), QStringLiteral("km"));
        b->widget<QDateEdit>("dateFrais")->setDate(QDate(2024, 3, 4));
        b->saisir("champMontantFrais", "1 250,5");
        b->choisir("choixContratFrais", "du 04/03/2024 chez Opéra");
        b->dialogues.choisirChemins({recu});
        b->cliquer("boutonChoisirJustificatif");
        QCOMPARE(b->widget<QLineEdit>("champJustificatif")->text(), QDir::toNativeSeparators(recu));
        b->cliquer("boutonVoirJustificatif");
        QCOMPARE(m_affiches, QStringList{recu});
        auto* note = b->widget<QPlainTextEdit>("champNoteFrais");
        note->setFocus();
        taper(note, QStringLiteral("Aller-retour à l'Opéra"));
        b->cliquer("boutonEnregistrerFrais");

        QVERIFY(!b->section->enEdition());
        QVERIFY(b->dialogues.echanges().isEmpty());
        QCOMPARE(valeur(b->chemin, "SELECT f_categorie || '|' || f_montant || '|' || f_date || '|' || f_fichier || "
                                   "'|' || f_details || '|' || f_contrat_lie || '|' || f_rembourse FROM frais;"),
                 QStringLiteral("1|1250.5|2024-03-04 00:00:00.000|%1|Aller-retour à l'Opéra|1|0").arg(recu));
        QCOMPARE(valeur(b->chemin, "SELECT c_frais_lies FROM contrats;"), QStringLiteral("1"));
        QCOMPARE(b->colonne(ModeleFrais::Montant), QStringList{"1 250,5 km"});
        QCOMPARE(b->colonne(ModeleFrais::Justificatif), QStringList{"péage d'Orly.pdf"});
        QCOMPARE(b->colonne(ModeleFrais::ContratLie), QStringList{"du 04/03/2024 chez Opéra"});
        QCOMPARE(b->texte("cumulFrais"), QStringLiteral("1 frais — cumul : 1 250,5 km"));
        // The receipt is shown from the list as well.
        b->section->liste()->table()->selectRow(0);
        b->cliquer("boutonJustificatifFrais");
        QCOMPARE(m_affiches.size(), 2);

        // Changed to an amount in euros: the same row, unlinked, without its receipt.
        b->cliquer("boutonModifierFrais");
        QCOMPARE(b->texte("titreFormulaireFrais"), QStringLiteral("Modification"));
        b->choisir("choixCategorieFrais", "Transport");
        QCOMPARE(b->texte("uniteFrais"), QStringLiteral("€"));
        b->choisir("choixContratFrais", "Aucun contrat");
        b->cliquer("boutonRetirerJustificatif");
        b->widget<QCheckBox>("caseRembourseFrais")->click();
        b->cliquer("boutonEnregistrerFrais");
        QCOMPARE(valeur(b->chemin, "SELECT COUNT(*) || '|' || f_categorie || '|' || f_fichier || '|' || f_contrat_lie "
                                   "|| '|' || f_rembourse FROM frais;"),
                 QStringLiteral("1|13|||1"));
        QCOMPARE(valeur(b->chemin, "SELECT c_frais_lies || '|' || (SELECT COUNT(*) FROM contrats_frais) FROM "
                                   "contrats;"),
                 QStringLiteral("|0"));
        QCOMPARE(b->colonne(ModeleFrais::Montant), QStringList{"1 250,50 €"});
        QCOMPARE(b->colonne(ModeleFrais::Rembourse), QStringList{"Oui"});
    }

    // A refusal is an alert "Gestion des frais" with "Fermer"; the form stays open and the
    // document is left as it was.
    void refus_data()
    {
        QTest::addColumn<QString>("categorie");
        QTest::addColumn<QString>("montant");
        QTest::addColumn<QString>("message"); // its beginning
        cas("an amount written the German way", "Transport", "1.977,00", "Montant : ");
        cas("a distance beyond a million kilometres", "Kilométrage", "1 000 000,5", "Distance : ");
    }

    void refus()
    {
        QFETCH(QString, categorie);
        QFETCH(QString, montant);
        QFETCH(QString, message);
        auto b = banc();
        const QByteArray avant = empreinte(b->chemin);
        b->cliquer("boutonNouveauFrais");
        b->choisir("choixCategorieFrais", categorie);
        b->saisir("champMontantFrais", montant);
        // Enter saves.
        QTest::keyClick(b->widget("champMontantFrais"), Qt::Key_Return);
        QCOMPARE(b->dialogues.echanges().size(), 1);
        const auto& alerte = b->dialogues.echanges().first();
        QCOMPARE(alerte.titre, QStringLiteral("Gestion des frais"));
        QVERIFY2(alerte.message.startsWith(message), qPrintable(alerte.message));
        QCOMPARE(alerte.boutons, QStringList{"Fermer"});
        QVERIFY(b->section->enEdition());
        QCOMPARE(empreinte(b->chemin), avant);
        // Escape cancels.
        QTest::keyClick(b->widget("champNoteFrais"), Qt::Key_Escape);
        QVERIFY(!b->section->enEdition());
    }

    void filtresTriEtCumul()
    {
        auto b = banc();
        ajouter(b->chemin, 1, QDate(2023, 11, 6), 80, "Tournée");
        ajouter(b->chemin, 13, QDate(2024, 2, 5), 45.5, "Train");
        ajouter(b->chemin, 12, QDate(2024, 5, 20), 12, "Repas");
        b->section->liste()->actualiser();
        QCOMPARE(b->colonne(ModeleFrais::Date), (QStringList{"20/05/2024", "05/02/2024", "06/11/2023"}));
        QCOMPARE(b->texte("cumulFrais"), QStringLiteral("3 frais — cumul : 57,50 € et 80 km"));
        QCOMPARE(b->table()->headerData(ModeleFrais::Montant, Qt::Horizontal).toString(), QStringLiteral("Km/Euros"));
        // The sort preference is applied inverted: "DESC" lists the oldest first.
        b->cliquer("boutonTriFrais");
        QCOMPARE(b->reglages->texte(Reglages::Cle::FraisSens), QStringLiteral("DESC"));
        QCOMPARE(b->colonne(ModeleFrais::Date), (QStringList{"06/11/2023", "05/02/2024", "20/05/2024"}));
        b->choisir("filtreCategorieFrais", "Transport");
        QCOMPARE(b->colonne(ModeleFrais::Note), QStringList{"Train"});
        QCOMPARE(b->table()->headerData(ModeleFrais::Montant, Qt::Horizontal).toString(), QStringLiteral("Euros"));
        QCOMPARE(b->texte("cumulFrais"), QStringLiteral("1 frais — cumul : 45,50 €"));
        b->choisir("filtreCategorieFrais", "Toutes les catégories");
        b->choisir("filtrePeriodeFrais", "Année en cours");
        QCOMPARE(b->colonne(ModeleFrais::Note), (QStringList{"Train", "Repas"}));

        // The chosen span's dates are remembered in the document, the choices in the settings.
        b->choisir("filtrePeriodeFrais", "Période choisie");
        b->widget<QDateEdit>("filtreDuFrais")->setDate(QDate(2023, 10, 1));
        b->widget<QDateEdit>("filtreAuFrais")->setDate(QDate(2024, 2, 5));
        QCOMPARE(b->colonne(ModeleFrais::Note), (QStringList{"Tournée", "Train"}));
        QCOMPARE(valeur(b->chemin, "SELECT dpp_date FROM datesPeriodesPreferees WHERE dpp_element = 'frais_fin';"),
                 QStringLiteral("2024-02-05 00:00:00.000"));
        SectionFrais autre(*b->environnement);
        autre.show();
        autre.setDocument(b->document);
        QCOMPARE(autre.liste()->modele()->rowCount(), 2);
        QCOMPARE(trouver<QDateEdit>(autre, "filtreDuFrais")->date(), QDate(2023, 10, 1));
    }

    void doublonEtSuppression()
    {
        auto b = banc();
        const QString recu = g_maison->filePath(QStringLiteral("ticket.png"));
        ecrire(recu, "PNG");
        Depense d;
        d.categorieId = 13;
        d.date = QDate(2024, 4, 2);
        d.montant = 30;
        d.fichier = recu;
        d.contratLie = 1;
        d.rembourse = true;
        QVERIFY(Frais(b->chemin).enregistreFrais(d) > 0);
        b->section->liste()->actualiser();
        QTableView* table = b->section->liste()->table();

        // A duplicate is a new expense of the same kind, date and amount, not yet linked nor reimbursed.
        table->selectRow(0);
        b->cliquer("boutonDupliquerFrais");
        QCOMPARE(b->texte("titreFormulaireFrais"), QStringLiteral("Nouvelle dépense"));
        QCOMPARE(b->widget<QComboBox>("choixContratFrais")->currentText(), QStringLiteral("Aucun contrat"));
        QVERIFY(!b->widget<QCheckBox>("caseRembourseFrais")->isChecked());
        b->cliquer("boutonEnregistrerFrais");
        QCOMPARE(valeur(b->chemin, "SELECT group_concat(f_categorie || ':' || f_montant || ':' || f_contrat_lie || ':' "
                                   "|| f_rembourse, ' ') FROM frais;"),
                 QStringLiteral("13:30.0:1:1 13:30.0::0"));

        // A receipt gone from the disk is said so.
        QVERIFY(QFile::remove(recu));
        table->selectRow(0);
        b->cliquer("boutonJustificatifFrais");
        QVERIFY(m_affiches.isEmpty());
        const QString message = b->dialogues.echanges().last().message;
        QVERIFY2(message.startsWith(
                     QStringLiteral("Le justificatif « %1 » est introuvable").arg(QDir::toNativeSeparators(recu))),
                 qPrintable(message));

        // Delete asks first; "Non" keeps them.
        table->setFocus();
        table->selectAll();
        b->dialogues.repondre({QStringLiteral("Non")});
        QTest::keyClick(table, Qt::Key_Delete);
        QCOMPARE(b->dialogues.echanges().last().message,
                 QStringLiteral("Souhaitez-vous réellement supprimer les 2 dépenses sélectionnées ?"));
        QCOMPARE(valeur(b->chemin, "SELECT COUNT(*) FROM frais;"), QStringLiteral("2"));
        b->dialogues.repondre({QStringLiteral("Oui")});
        b->cliquer("boutonSupprimerFrais");
        QCOMPARE(valeur(b->chemin, "SELECT (SELECT COUNT(*) FROM frais) || '|' || (SELECT COUNT(*) FROM "
                                   "contrats_frais) || '|' || c_frais_lies FROM contrats;"),
                 QStringLiteral("0|0|"));
        QCOMPARE(b->table()->rowCount(), 0);
    }

    // The categories window: its refusals as alerts of its own title, and the section's choices
    // following what it writes.
    void fenetreDesCategories()
    {
        auto b = banc();
        ajouter(b->chemin, 13, QDate(2024, 2, 5), 45.5, "Train");
        b->cliquer("boutonCategoriesFrais");
        FenetreCategoriesFrais* fenetre = b->section->liste()->fenetreCategories();
        QVERIFY(fenetre && fenetre->isVisible());
        QCOMPARE(fenetre->windowTitle(), QStringLiteral("Gestion des catégories de frais"));
        auto* liste = trouver<QTableWidget>(*fenetre, "listeCategoriesFrais");
        QCOMPARE(liste->rowCount(), 14);
        const auto nom = [&](const QString& texte) {
            auto* champ = trouver<QLineEdit>(*fenetre, "champNomCategorie");
            champ->setText(texte);
        };
        const auto refus = [&](const QString& bouton) {
            const qsizetype avant = b->dialogues.echanges().size();
            cliquer(*fenetre, bouton);
            if (b->dialogues.echanges().size() != avant + 1)
                return QStringLiteral("<pas d'alerte>");
            const auto& e = b->dialogues.echanges().last();
            return e.titre + " / " + e.message + " / " + e.boutons.join(',');
        };
        nom("  ");
        QCOMPARE(refus("boutonAjouterCategorie"), QStringLiteral("Gestion des catégories de frais / Veuillez saisir "
                                                                 "un nom pour la nouvelle catégorie. / Fermer"));
        nom("transport");
        QCOMPARE(refus("boutonAjouterCategorie"),
                 QStringLiteral("Gestion des catégories de frais / Une catégorie porte déjà ce nom. / Fermer"));
        nom("Péage");
        cliquer(*fenetre, "boutonAjouterCategorie");
        QCOMPARE(liste->rowCount(), 15);
        QTRY_VERIFY(b->widget<QComboBox>("filtreCategorieFrais")->findText("Péage") >= 0);

        // The selected category renamed, then the mileage one kept.
        nom("Péages et parkings");
        cliquer(*fenetre, "boutonRenommerCategorie");
        QCOMPARE(valeur(b->chemin, "SELECT ft_type FROM fraistypes WHERE ft_id = 15;"),
                 QStringLiteral("Péages et parkings"));
        fenetre->selectionner(1);
        QVERIFY(refus("boutonSupprimerCategorie").contains("ne peut pas être supprimée"));
        // A category with expenses goes with them only on "Tout".
        fenetre->selectionner(13);
        b->dialogues.repondre({QStringLiteral("Tout")});
        cliquer(*fenetre, "boutonSupprimerCategorie");
        QCOMPARE(b->dialogues.echanges().last().message,
                 QStringLiteral("Un frais est classé dans cette catégorie.\n\nSouhaitez-vous tout supprimer, ou ne "
                                "rien faire ?"));
        QCOMPARE(valeur(b->chemin, "SELECT COUNT(*) FROM frais;"), QStringLiteral("0"));
        QTRY_COMPARE(b->table()->rowCount(), 0);
    }

    // Written elsewhere through the open document, an expense appears in the list.
    void documentSuivi()
    {
        auto b = banc();
        QCOMPARE(b->table()->rowCount(), 0);
        Depense d;
        d.categorieId = 12;
        d.date = QDate(2024, 6, 1);
        d.montant = 14.9;
        QVERIFY(Frais(b->document->base()).enregistreFrais(d) > 0);
        QTRY_COMPARE(b->table()->rowCount(), 1);
        QCOMPARE(b->texte("cumulFrais"), QStringLiteral("1 frais — cumul : 14,90 €"));
    }
};

CORVANE_MAIN_GUI(TestFraisEcran)

#include "test_frais.moc"
