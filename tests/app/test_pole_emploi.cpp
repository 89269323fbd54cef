// The "Pôle Emploi" section driven as a user would, on small documents in a temporary folder:
// the simulation with its allocation table, the screen computed again when a contract or the
// profile changes elsewhere, the monthly declaration's figures, and the payments window.

#include "app/Environnement.h"
#include "app/poleemploi/FenetreVersementsPoleEmploi.h"
#include "app/poleemploi/SectionPoleEmploi.h"
#include "app/poleemploi/VueDeclaration.h"
#include "app/poleemploi/VueDroits.h"
#include "commun/OutilsEcran.h"
#include "records/Contrats.h"
#include "records/OutilsContrats.h"
#include "records/Profil.h"
#include "store/Horloge.h"
#include "store/Reglages.h"
#include "unemployment/OutilsDroits.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTableView>
#include <QTableWidget>
#include <QTextBrowser>
#include <QtTest>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

class TestPoleEmploiEcran : public QObject
{
    Q_OBJECT

private:
    struct Banc
    {
        std::unique_ptr<Reglages> reglages;
        DialoguesScriptes dialogues;
        std::unique_ptr<Environnement> environnement;
        std::unique_ptr<SectionPoleEmploi> section;
        Document* document = nullptr;
        QString chemin;

        template <typename T>
        T* widget(const QString& nom) const
        {
            return trouver<T>(*section, nom);
        }
        QString compteRendu() const { return section->vueDroits()->compteRendu()->toPlainText(); }
        QString cellule(const QString& table, int rangee, int colonne) const
        {
            const QTableWidgetItem* item = widget<QTableWidget>(table)->item(rangee, colonne);
            return item ? item->text() : QString();
        }
        void calculer(const QDate& du, const QDate& au, const QString& contrats = QStringLiteral("Tous les contrats"))
        {
            widget<QDateEdit>("simulationDu")->setDate(du);
            widget<QDateEdit>("simulationAu")->setDate(au);
            choisir(*section, "choixContratsDroits", contrats);
            QTest::mouseClick(widget<QPushButton>("boutonCalculerDroits"), Qt::LeftButton);
        }
    };
    int m_numero = 0;

    // A performer whose rights opened on 1 March 2024, ten carried-out 60-hour performances of
    // 1 500 € from April to December 2024, and one performance in 2006.
    std::unique_ptr<Banc> banc(int emploiId = 1)
    {
        auto b = std::make_unique<Banc>();
        b->reglages = std::make_unique<Reglages>(g_maison->filePath(QStringLiteral("reglages%1.ini").arg(++m_numero)));
        b->environnement.reset(new Environnement{*b->reglages, b->dialogues});
        b->chemin = documentContrats(*g_maison, QStringLiteral("droits%1.cv4").arg(m_numero), emploiId);
        for (int i = 0; i < 10; ++i) {
            const QDate jour = QDate(2024, 4, 2).addDays(25 * i);
            ajouterContrat(b->chemin, {1, jour, jour.addDays(4), 60, 5, 1500.0, 1170.0});
        }
        ajouterContrat(b->chemin, {1, QDate(2006, 5, 10), QDate(2006, 5, 12), 36, 3, 600.0, 470.0});
        b->section = std::make_unique<SectionPoleEmploi>(*b->environnement);
        b->section->resize(1180, 700);
        b->document = documentOuvert(b->chemin, b->section.get());
        b->section->setDocument(b->document);
        b->section->show();
        return b;
    }

private slots:
    void init() { Horloge::fixer(QDate(2025, 6, 15)); }
    void cleanupTestCase() { Horloge::reinitialiser(); }

    // The report, its allocation table and the dates remembered; the plain message when no
    // contract counts; and the deliberate silence of a range that ends before April 2007.
    void simulation_data()
    {
        QTest::addColumn<QDate>("du");
        QTest::addColumn<QDate>("au");
        QTest::addColumn<QString>("contrats");
        QTest::addColumn<QString>("attendu"); // in the report; "" when it is left as it was
        QTest::addColumn<int>("allocations"); // rows of the allocation table
        cas("droits ouverts", QDate(2024, 3, 1), QDate(2025, 2, 28), "Tous les contrats",
            "Vous aurez effectué suffisamment d'heures (600)", 5);
        cas("heures manquantes", QDate(2024, 3, 1), QDate(2024, 6, 30), "Tous les contrats",
            "Vous n'aurez effectué que 240 heure(s)", 0);
        cas("aucun contrat prévu", QDate(2024, 3, 1), QDate(2025, 2, 28), "Contrats prévus",
            "Aucun contrat prévu pris en compte pour vos droits ne commence entre le 01/03/2024 et le 28/02/2025", 0);
        cas("avant avril 2007", QDate(2006, 1, 1), QDate(2006, 12, 31), "Tous les contrats", "", 5);
    }

    void simulation()
    {
        QFETCH(QDate, du);
        QFETCH(QDate, au);
        QFETCH(QString, contrats);
        QFETCH(QString, attendu);
        QFETCH(int, allocations);
        auto b = banc();
        // First the period the section opens on, then the one chosen.
        b->calculer(QDate(2024, 3, 1), QDate(2025, 2, 28));
        const QString avant = b->compteRendu();
        b->calculer(du, au, contrats);

        QCOMPARE(b->compteRendu().contains(attendu.isEmpty() ? avant : attendu), true);
        if (attendu.isEmpty())
            QCOMPARE(b->compteRendu(), avant);
        int remplies = 0;
        for (int r = 0; r < b->widget<QTableWidget>("tableAllocations")->rowCount(); ++r)
            remplies += !b->cellule("tableAllocations", r, 0).isEmpty();
        QCOMPARE(remplies, allocations);
        if (allocations > 0) {
            QCOMPARE(b->cellule("tableAllocations", 0, 0), QStringLiteral("Allocation brute"));
            QVERIFY2(QRegularExpression(QStringLiteral("^\\d+,\\d\\d\\x{a0}€$"))
                         .match(b->cellule("tableAllocations", 0, 1))
                         .hasMatch(),
                     qPrintable(b->cellule("tableAllocations", 0, 1)));
        }
        QVERIFY(b->dialogues.echanges().isEmpty());
        // The dates of "Calculer" are the document's preferred ones.
        QCOMPARE(valeur(b->chemin, "SELECT dpp_date FROM datesPeriodesPreferees WHERE dpp_element = "
                                   "'simulation_debut';")
                     .left(10),
                 du.toString(Qt::ISODate));
        QCOMPARE(valeur(b->chemin, "SELECT dpp_date FROM datesPeriodesPreferees WHERE dpp_element = 'simulation_fin';")
                     .left(10),
                 au.toString(Qt::ISODate));
    }

    // A change made elsewhere reaches the section through the document: it computes again.
    void rechargeApresModification_data()
    {
        QTest::addColumn<QString>("modification");
        QTest::addColumn<QString>("attendu");
        cas("contrat ajouté", "contrat", "Vous aurez effectué suffisamment d'heures (660)");
        cas("emploi du profil", "profil", "Vous aurez effectué suffisamment d'heures (600)");
    }

    void rechargeApresModification()
    {
        QFETCH(QString, modification);
        QFETCH(QString, attendu);
        auto b = banc();
        b->calculer(QDate(2024, 3, 1), QDate(2025, 2, 28));
        const QString allocationAvant = b->cellule("tableAllocations", 0, 1);
        const QString avant = b->compteRendu() + allocationAvant;
        if (modification == QStringLiteral("contrat")) {
            Contrat c;
            c.employeurId = 1;
            c.debut = c.fin = QDate(2025, 1, 20);
            c.jours = 1;
            c.heures = 60;
            c.brut = 1500.0;
            QVERIFY(Contrats(b->document->base()).enregistreContrat(c) > 0);
        } else {
            QVERIFY(Profil(b->document->base()).saveJobId(3));
        }
        QTRY_VERIFY(b->compteRendu() + b->cellule("tableAllocations", 0, 1) != avant);
        QVERIFY2(b->compteRendu().contains(attendu), qPrintable(b->compteRendu()));
    }

    // The month's days and how they are obtained: its length, the days before the opening and
    // after today, the work of the month and what it offsets, and the result.
    void declarationMensuelle_data()
    {
        QTest::addColumn<int>("emploiId");
        QTest::addColumn<QDate>("ouverture");
        QTest::addColumn<QDate>("debutContrat");
        QTest::addColumn<int>("heures");
        QTest::addColumn<QString>("mois");
        QTest::addColumn<QString>("chiffres"); // month, before, after, hours, offset, result
        QTest::addColumn<QString>("note");
        cas("artiste, mois passé", 1, QDate(2024, 3, 1), QDate(2025, 4, 8), 45, "avril", "30|0|0|45 h|− 5|25", "");
        cas("technicien", 3, QDate(2024, 3, 1), QDate(2025, 4, 8), 45, "avril", "30|0|0|45 h|− 7|23", "");
        cas("ouverture et aujourd'hui dans le mois", 1, QDate(2025, 6, 11), QDate(2025, 6, 12), 45, "juin",
            "30|− 10|− 15|45 h|− 5|0", "");
        cas("résultat négatif", 1, QDate(2024, 3, 1), QDate(2025, 4, 8), 250, "avril", "30|0|0|250 h|− 32|− 2",
            "Le résultat est négatif");
        cas("hors annexes", 4, QDate(2024, 3, 1), QDate(2025, 4, 8), 45, "avril", "30|0|0|45 h|0|30",
            "ne relève pas des annexes 8 et 10");
    }

    void declarationMensuelle()
    {
        QFETCH(int, emploiId);
        QFETCH(QDate, ouverture);
        QFETCH(QDate, debutContrat);
        QFETCH(int, heures);
        QFETCH(QString, mois);
        QFETCH(QString, chiffres);
        QFETCH(QString, note);
        auto b = banc(emploiId);
        executerSql(b->chemin,
                    QStringLiteral("UPDATE utilisateur SET u_date_debut_dossier = '%1';").arg(jourSQLite(ouverture)));
        ajouterContrat(b->chemin, {1, debutContrat, debutContrat, heures, 1, 100.0, 80.0});
        b->section->choisirMode(SectionPoleEmploi::Declaration);
        QVERIFY(b->section->vueDeclaration()->isVisible());
        QVERIFY(!b->widget<QCheckBox>("caseIndemnitesJournalieres")->isVisible());
        choisir(*b->section, "choixMoisDeclaration", mois);
        b->widget<QSpinBox>("choixAnneeDeclaration")->setValue(2025);
        QStringList lus;
        for (const char* nom : {"joursDuMois", "joursAvantOuverture", "joursApresAujourdhui", "heuresDuMois",
                                "joursNonCompenses", "joursIndemnises"})
            lus << b->widget<QLabel>(QString::fromLatin1(nom))->text();
        QCOMPARE(lus.join(QLatin1Char('|')), chiffres);
        const QString lue = b->widget<QLabel>("noteDeclaration")->text();
        QVERIFY2(note.isEmpty() ? lue.isEmpty() : lue.contains(note), qPrintable(lue));
    }

    // The payments window: an amount that cannot be read is refused with its reason and nothing
    // is written; a French amount is saved to the cent, listed, and counted in the total.
    void versementSaisi_data()
    {
        QTest::addColumn<QString>("texte");
        QTest::addColumn<QString>("stocke"); // ah_montant, "" when refused
        QTest::addColumn<QString>("refus");
        cas("lettre O", "12,5O", "", "Montant : ");
        cas("vide", "", "", "Montant : indiquez la somme reçue.");
        cas("au-delà des bornes", "100 000 000,01", "", "Montant : ");
        cas("montant français", "1 234,56", "1234.56", "");
    }

    void versementSaisi()
    {
        QFETCH(QString, texte);
        QFETCH(QString, stocke);
        QFETCH(QString, refus);
        auto b = banc();
        QTest::mouseClick(b->widget<QPushButton>("boutonVersements"), Qt::LeftButton);
        auto* fenetre = b->section->findChild<FenetreVersementsPoleEmploi*>();
        QVERIFY(fenetre && fenetre->isVisible());
        saisir(*fenetre, "champMontantVersement", texte);
        trouver<QDateEdit>(*fenetre, "champDateVersement")->setDate(QDate(2025, 5, 6));
        QTest::mouseClick(trouver<QPushButton>(*fenetre, "boutonEnregistrerVersement"), Qt::LeftButton);

        auto* liste = trouver<QTableView>(*fenetre, "listeVersements");
        const QString cumul = trouver<QLabel>(*fenetre, "cumulVersements")->text();
        if (stocke.isEmpty()) {
            QCOMPARE(b->dialogues.echanges().size(), 1);
            QCOMPARE(b->dialogues.echanges().first().titre, QStringLiteral("Versements Pôle Emploi"));
            QVERIFY2(b->dialogues.echanges().first().message.startsWith(refus),
                     qPrintable(b->dialogues.echanges().first().message));
            QCOMPARE(nombre(b->chemin, "SELECT COUNT(*) FROM assedichistorique;"), 0);
            QCOMPARE(liste->model()->rowCount(), 0);
            return;
        }
        QVERIFY(b->dialogues.echanges().isEmpty());
        QCOMPARE(valeur(b->chemin, "SELECT ah_date || '|' || ah_montant FROM assedichistorique;"),
                 QStringLiteral("2025-05-06 00:00:00.000|") + stocke);
        QCOMPARE(liste->model()->rowCount(), 1);
        QCOMPARE(liste->model()->index(0, 0).data().toString(), QStringLiteral("06/05/2025"));
        QCOMPARE(espaces(liste->model()->index(0, 1).data().toString()), QStringLiteral("1 234,56 €"));
        QCOMPARE(espaces(cumul), QStringLiteral("Cumul : 1 versement — 1 234,56 €"));
    }

    void suppressionDemandee_data()
    {
        QTest::addColumn<QString>("reponse");
        QTest::addColumn<int>("restants");
        cas("annulée", "Annuler", 1);
        cas("confirmée", "Supprimer", 0);
    }

    void suppressionDemandee()
    {
        QFETCH(QString, reponse);
        QFETCH(int, restants);
        auto b = banc();
        executerSql(b->chemin, "INSERT INTO assedichistorique (ah_date, ah_montant) VALUES ('2025-05-06 00:00:00.000', "
                               "812.4);");
        b->section->ouvrirVersements();
        auto* fenetre = b->section->findChild<FenetreVersementsPoleEmploi*>();
        QVERIFY(fenetre);
        trouver<QTableView>(*fenetre, "listeVersements")->selectRow(0);
        b->dialogues.repondre({reponse});
        QTest::mouseClick(trouver<QPushButton>(*fenetre, "boutonSupprimerVersement"), Qt::LeftButton);
        QCOMPARE(b->dialogues.echanges().size(), 1);
        QVERIFY2(b->dialogues.echanges().first().message.contains(QStringLiteral("06/05/2025")),
                 qPrintable(b->dialogues.echanges().first().message));
        QCOMPARE(nombre(b->chemin, "SELECT COUNT(*) FROM assedichistorique;"), restants);
        QCOMPARE(trouver<QTableView>(*fenetre, "listeVersements")->model()->rowCount(), restants);
    }

private:
    // French amounts hold no-break spaces.
    static QString espaces(QString texte)
    {
        texte.replace(QChar(0x00a0), QLatin1Char(' ')).replace(QChar(0x202f), QLatin1Char(' '));
        return texte;
    }
};

CORVANE_MAIN_GUI(TestPoleEmploiEcran)
#include "test_pole_emploi.moc"
