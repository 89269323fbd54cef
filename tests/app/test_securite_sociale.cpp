// The "Sécurité Sociale" section driven as a user would, on a real document: a leave entered
// through the form with its incidences worked out as it is typed, the refusals, the ticks of
// the list, duplicate and delete, the filters, and the rights check following contracts
// written elsewhere.

#include "app/Environnement.h"
#include "app/FenetrePrincipale.h"
#include "app/kit/ChampChiffre.h"
#include "app/securite/FormulaireSecuriteSociale.h"
#include "app/securite/GrilleDroits.h"
#include "app/securite/ListeSecuriteSociale.h"
#include "app/securite/ModeleSecuriteSociale.h"
#include "app/securite/SectionSecuriteSociale.h"
#include "commun/OutilsEcran.h"
#include "records/Contrats.h"
#include "records/OutilsContrats.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>
#include <QtTest>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

class TestSecuriteSocialeEcran : public QObject
{
    Q_OBJECT

private:
    struct Banc
    {
        std::unique_ptr<Reglages> reglages;
        DialoguesScriptes dialogues;
        std::unique_ptr<Environnement> environnement;
        std::unique_ptr<SectionSecuriteSociale> section;
        Document* document = nullptr;
        QString chemin;

        template <typename T>
        T* widget(const QString& nom) const
        {
            return trouver<T>(*section, nom);
        }
        ModeleSecuriteSociale* table() const { return section->liste()->modele(); }
        QString texte(const QString& nom) const { return widget<QLabel>(nom)->text(); }
        void saisir(const QString& nom, const QString& texte) const { test::saisir(*section, nom, texte); }
        void nouvelle(const QString& type, const QDate& debut, const QDate& fin) const
        {
            QTest::mouseClick(widget<QPushButton>("boutonNouveauSS"), Qt::LeftButton);
            test::choisir(*section, "choixTypeSS", type);
            widget<QDateEdit>("debutSS")->setDate(debut);
            widget<QDateEdit>("finSS")->setDate(fin);
        }
        void enregistrer() const { QTest::mouseClick(widget<QPushButton>("boutonEnregistrerSS"), Qt::LeftButton); }
    };
    int m_numero = 0;

    std::unique_ptr<Banc> banc()
    {
        auto b = std::make_unique<Banc>();
        b->reglages = std::make_unique<Reglages>(g_maison->filePath(QStringLiteral("reglages%1.ini").arg(++m_numero)));
        b->environnement.reset(new Environnement{*b->reglages, b->dialogues});
        b->section = std::make_unique<SectionSecuriteSociale>(*b->environnement);
        b->section->resize(1100, 720);
        b->section->show();
        // Rights opened on 1 March 2024: the reference period ends after August 2016.
        b->chemin = documentContrats(*g_maison, QStringLiteral("securite%1.cv4").arg(m_numero));
        ajouterEmployeur(b->chemin, QStringLiteral("Opéra"));
        b->document = documentOuvert(b->chemin, b->section.get());
        b->section->setDocument(b->document);
        return b;
    }

private slots:
    void init() { Horloge::fixer(QDate(2024, 6, 15)); }

    void saisieParLeFormulaire()
    {
        auto b = banc();
        b->nouvelle("Maladie", QDate(2024, 4, 2), QDate(2024, 4, 11));
        QVERIFY(b->section->enEdition());
        QCOMPARE(b->texte("titreFormulaireSS"), QStringLiteral("Nouveau"));
        QCOMPARE(b->texte("dureeSS"), QStringLiteral("10 jours"));
        // The incidences follow what is typed: without suspended days the period is stretched,
        // with them they count as worked.
        QCOMPARE(b->texte("incidenceHeures"), QStringLiteral("0 jour"));
        QCOMPARE(b->texte("incidencePeriode"), QStringLiteral("10 jours"));
        b->saisir("champJoursSuspendus", "3");
        QCOMPARE(b->texte("incidenceHeures"), QStringLiteral("3 jours"));
        QCOMPARE(b->texte("incidencePeriode"), QStringLiteral("0 jour"));
        b->saisir("champJoursSuspendus", "0");
        QTest::mouseClick(b->widget<QCheckBox>("caseAld"), Qt::LeftButton);
        QCOMPARE(b->texte("incidenceHeures"), QStringLiteral("11 jours"));
        QTest::mouseClick(b->widget<QCheckBox>("caseAld"), Qt::LeftButton);
        b->saisir("champJoursSuspendus", "3");
        b->saisir("champTotalIJ", "1 412,50");
        auto* note = b->widget<QPlainTextEdit>("champNoteSS");
        note->setFocus();
        taper(note, QStringLiteral("Grippe d'hiver"));
        b->enregistrer();

        QVERIFY(!b->section->enEdition());
        QVERIFY(b->dialogues.echanges().isEmpty());
        QCOMPARE(b->table()->rowCount(), 1);
        QCOMPARE(b->table()->data(b->table()->index(0, ModeleSecuriteSociale::Debut)).toString(),
                 QStringLiteral("02/04/2024"));
        QCOMPARE(b->table()->data(b->table()->index(0, ModeleSecuriteSociale::Type)).toString(),
                 QStringLiteral("Maladie"));
        QCOMPARE(valeur(b->chemin, "SELECT ss_type_id || '|' || ss_nbre_jours || '|' || ss_nbre_jours_suspendus || '|' "
                                   "|| ss_incidence_heures || '|' || ss_incidence_periode || '|' || ss_total_ij || '|' "
                                   "|| ss_ald || '|' || ss_note FROM securitesociale;"),
                 QStringLiteral("2|10|3|3|0|1412.5|0|Grippe d'hiver"));

        // Changed from the list: the same row, titled as a change.
        b->section->liste()->table()->selectRow(0);
        QTest::mouseClick(b->widget<QPushButton>("boutonModifierSS"), Qt::LeftButton);
        QCOMPARE(b->texte("titreFormulaireSS"), QStringLiteral("Modification"));
        QCOMPARE(b->widget<ChampMontant>("champTotalIJ")->nombre(), 1412.5);
        b->widget<QDateEdit>("finSS")->setDate(QDate(2024, 4, 12));
        b->enregistrer();
        QVERIFY(!b->section->enEdition());
        QCOMPARE(valeur(b->chemin, "SELECT COUNT(*) || '|' || MAX(ss_nbre_jours) FROM securitesociale;"),
                 QStringLiteral("1|11"));
    }

    // Each refusal is an alert "Gestion des périodes" with "Fermer"; the form stays open and the
    // document is left as it was.
    void refus_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QDate>("debut");
        QTest::addColumn<QDate>("fin");
        QTest::addColumn<QString>("suspendus");
        QTest::addColumn<QString>("indemnites");
        QTest::addColumn<QString>("message"); // its beginning for the fields' own refusals
        cas("touches a contract's last day", "Maladie", QDate(2024, 3, 8), QDate(2024, 3, 10), "0", "",
            "Cette période chevauche un contrat existant.");
        cas("holds a whole contract", "Paternité", QDate(2024, 3, 1), QDate(2024, 3, 31), "0", "",
            "Cette période chevauche plusieurs contrats existants.");
        cas("overlaps a period", "Pharmacie", QDate(2024, 5, 10), QDate(2024, 5, 12), "0", "",
            "Cette période chevauche une période existante.");
        cas("amount written the German way", "Maladie", QDate(2024, 4, 2), QDate(2024, 4, 3), "0", "1.977,00",
            "Total des indemnités journalières : ");
        cas("more suspended days than days", "Maladie", QDate(2024, 4, 2), QDate(2024, 4, 3), "5", "",
            "Journées suspendues : ");
    }

    void refus()
    {
        QFETCH(QString, type);
        QFETCH(QDate, debut);
        QFETCH(QDate, fin);
        QFETCH(QString, suspendus);
        QFETCH(QString, indemnites);
        QFETCH(QString, message);
        auto b = banc();
        ajouterContrat(b->chemin, {2, QDate(2024, 3, 4), QDate(2024, 3, 8), 60, 5, 2500, 1950});
        ajouterArretMaladie(b->chemin, QDate(2024, 5, 1), QDate(2024, 5, 10));
        const QByteArray avant = empreinte(b->chemin);
        b->nouvelle(type, debut, fin);
        b->saisir("champJoursSuspendus", suspendus);
        b->saisir("champTotalIJ", indemnites);
        // Enter saves.
        QTest::keyClick(b->widget<QWidget>("champTotalIJ"), Qt::Key_Return);
        QCOMPARE(b->dialogues.echanges().size(), 1);
        const auto& alerte = b->dialogues.echanges().first();
        QCOMPARE(alerte.titre, QStringLiteral("Gestion des périodes"));
        QVERIFY2(alerte.message.startsWith(message), qPrintable(alerte.message));
        QCOMPARE(alerte.boutons, QStringList{"Fermer"});
        QVERIFY(b->section->enEdition());
        QCOMPARE(empreinte(b->chemin), avant);
        // Escape cancels.
        QTest::keyClick(b->widget<QWidget>("champNoteSS"), Qt::Key_Escape);
        QVERIFY(!b->section->enEdition());
        QCOMPARE(b->table()->rowCount(), 1);
    }

    void cochesDoublonEtSuppression()
    {
        auto b = banc();
        ajouterArretMaladie(b->chemin, QDate(2024, 1, 10), QDate(2024, 1, 12), 3);
        b->section->liste()->actualiser();
        const QString avant = valeur(b->chemin, "SELECT ss_incidence_periode || '|' || ss_note FROM securitesociale;");
        // Each tick writes its own column only.
        for (const int colonne :
             {ModeleSecuriteSociale::Rembourse, ModeleSecuriteSociale::Mutuelle, ModeleSecuriteSociale::Ald}) {
            const QModelIndex index = b->table()->index(0, colonne);
            QVERIFY(b->table()->flags(index) & Qt::ItemIsUserCheckable);
            QVERIFY(b->table()->setData(index, Qt::Checked, Qt::CheckStateRole));
            QCOMPARE(valeur(b->chemin, "SELECT ss_rembourse || ss_rembourse_mutuelle || ss_ald FROM securitesociale;"),
                     colonne == ModeleSecuriteSociale::Rembourse  ? QStringLiteral("100")
                     : colonne == ModeleSecuriteSociale::Mutuelle ? QStringLiteral("110")
                                                                  : QStringLiteral("111"));
        }
        QCOMPARE(valeur(b->chemin, "SELECT ss_incidence_periode || '|' || ss_note FROM securitesociale;"), avant);

        // A duplicate follows the original, as long, its reimbursements still to come.
        QTableView* table = b->section->liste()->table();
        table->selectRow(0);
        QTest::mouseClick(b->widget<QPushButton>("boutonDupliquerSS"), Qt::LeftButton);
        QCOMPARE(b->texte("titreFormulaireSS"), QStringLiteral("Nouveau"));
        QCOMPARE(b->widget<QDateEdit>("debutSS")->date(), QDate(2024, 1, 13));
        QCOMPARE(b->widget<QDateEdit>("finSS")->date(), QDate(2024, 1, 15));
        QVERIFY(!b->widget<QCheckBox>("caseRembourseSS")->isChecked());
        b->enregistrer();
        QCOMPARE(b->table()->rowCount(), 2);

        // Delete asks first; "Non" keeps them.
        table->setFocus();
        table->selectAll();
        b->dialogues.repondre({QStringLiteral("Non")});
        QTest::keyClick(table, Qt::Key_Delete);
        QCOMPARE(b->dialogues.echanges().last().message,
                 QStringLiteral("Souhaitez-vous réellement supprimer les 2 périodes sélectionnées ?"));
        QCOMPARE(valeur(b->chemin, "SELECT COUNT(*) FROM securitesociale;"), QStringLiteral("2"));
        b->dialogues.repondre({QStringLiteral("Oui")});
        QTest::mouseClick(b->widget<QPushButton>("boutonSupprimerSS"), Qt::LeftButton);
        QCOMPARE(b->dialogues.echanges().last().titre, QStringLiteral("Gestion des périodes"));
        QCOMPARE(valeur(b->chemin, "SELECT COUNT(*) FROM securitesociale;"), QStringLiteral("0"));
        QCOMPARE(b->table()->rowCount(), 0);
    }

    void filtresEtTri()
    {
        auto b = banc();
        ajouterArretMaladie(b->chemin, QDate(2023, 11, 6), QDate(2023, 11, 8));
        ajouterArretMaladie(b->chemin, QDate(2024, 2, 5), QDate(2024, 2, 6));
        executerSql(b->chemin, "UPDATE securitesociale SET ss_type_id = 7 WHERE ss_id = 2;");
        b->section->liste()->actualiser();
        const auto debuts = [&] {
            QStringList l;
            for (int r = 0; r < b->table()->rowCount(); ++r)
                l << b->table()->data(b->table()->index(r, ModeleSecuriteSociale::Debut)).toString();
            return l;
        };
        QCOMPARE(debuts(), (QStringList{"05/02/2024", "06/11/2023"}));
        QTest::mouseClick(b->widget<QToolButton>("boutonTriSS"), Qt::LeftButton);
        QCOMPARE(b->reglages->texte(Reglages::Cle::SecuriteSocialeSens), QStringLiteral("ASC"));
        QCOMPARE(debuts(), (QStringList{"06/11/2023", "05/02/2024"}));
        test::choisir(*b->section, "filtreTypeSS", "Pharmacie");
        QCOMPARE(debuts(), QStringList{"05/02/2024"});
        test::choisir(*b->section, "filtreTypeSS", "Tous les types");

        // The chosen span's dates are remembered in the document, the choice in the settings.
        test::choisir(*b->section, "filtrePeriodeSS", "Période choisie");
        b->widget<QDateEdit>("filtreDuSS")->setDate(QDate(2023, 10, 1));
        b->widget<QDateEdit>("filtreAuSS")->setDate(QDate(2023, 12, 31));
        QCOMPARE(debuts(), QStringList{"06/11/2023"});
        QCOMPARE(valeur(b->chemin, "SELECT dpp_date FROM datesPeriodesPreferees WHERE dpp_element = "
                                   "'securite_sociale_fin';"),
                 QStringLiteral("2023-12-31 00:00:00.000"));
        Environnement environnement{*b->reglages, b->dialogues};
        SectionSecuriteSociale autre(environnement);
        autre.show();
        autre.setDocument(b->document);
        QCOMPARE(autre.liste()->modele()->rowCount(), 1);
        QCOMPARE(trouver<QDateEdit>(autre, "filtreDuSS")->date(), QDate(2023, 10, 1));
    }

    // The rights on the day chosen, and a section that follows what is written elsewhere: a
    // contract added in another section opens them and refuses a leave over it.
    void droitsEtDocumentSuivi()
    {
        auto b = banc();
        GrilleDroits* droits = b->section->liste()->droits();
        QVERIFY(b->widget<QLabel>("messageSansContrat")->isVisible());
        QCOMPARE(b->texte("messageSansContrat"),
                 QStringLiteral("Vos droits sociaux ne peuvent pas être calculés, car vous n'avez déclaré aucun "
                                "contrat."));
        QVERIFY(!b->widget<QWidget>("grilleDroits")->isVisible());

        // A contract written on the side, then its copy written through the open document, as
        // the contracts section writes: the announcement of that write reaches this section.
        Contrats(b->document->base())
            .dupliqueContrat(ajouterContrat(b->chemin, {2, QDate(2024, 3, 4), QDate(2024, 3, 8), 60, 5, 2500, 1950}));
        QTRY_VERIFY(b->widget<QWidget>("grilleDroits")->isVisible());
        QVERIFY(!b->widget<QLabel>("messageSansContrat")->isVisible());

        b->widget<QDateEdit>("dateVerification")->setDate(QDate(2024, 3, 31));
        QCOMPARE(valeur(b->chemin, "SELECT dpp_date FROM datesPeriodesPreferees WHERE dpp_element = "
                                   "'securite_sociale_verification';"),
                 QStringLiteral("2024-03-31 00:00:00.000"));
        QCOMPARE(b->texte("droit10"), QStringLiteral("Maladie (<= 6 mois)"));
        QCOMPARE(b->texte("droit11"), QStringLiteral("Non"));
        QCOMPARE(b->texte("droit12"), QStringLiteral("Remboursement de frais médicaux"));
        QCOMPARE(b->texte("droit13"), QStringLiteral("Oui"));
        QCOMPARE(droits->droits().size(), 4);

        b->nouvelle("Maladie", QDate(2024, 3, 1), QDate(2024, 3, 5));
        b->enregistrer();
        QCOMPARE(b->dialogues.echanges().size(), 1);
        QCOMPARE(b->dialogues.echanges().first().message,
                 QStringLiteral("Cette période chevauche plusieurs contrats existants."));
    }
};

CORVANE_MAIN_GUI(TestSecuriteSocialeEcran)

#include "test_securite_sociale.moc"
