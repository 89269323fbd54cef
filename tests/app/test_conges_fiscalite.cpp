// The "Congés" and "Fiscalité" sections driven as a user would, on small real documents: the
// figures shown, a contract written elsewhere changing them, the period pop-ups and the switches
// computing again, the payments histories refusing a bad amount and listing a good one, the fund's
// site and number, and the self-employment window whose choices the tax charges follow at once.

#include "app/Environnement.h"
#include "app/conges/SectionConges.h"
#include "app/fiscalite/FenetreAutoEntrepreneur.h"
#include "app/fiscalite/RecapitulatifFiscalite.h"
#include "app/fiscalite/SectionFiscalite.h"
#include "app/kit/GrilleValeurs.h"
#include "app/kit/ModeleTableau.h"
#include "app/versements/FenetreVersements.h"
#include "app/versements/ModeleVersements.h"
#include "commun/OutilsEcran.h"
#include "records/OutilsContrats.h"
#include "store/FormatFrancais.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QtTest>
#include <sqlite3.h>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

// Stands for the user's browser: keeps the addresses it is asked to open.
class Navigateur : public QObject
{
    Q_OBJECT

public:
    QList<QUrl> ouvertes;

public slots:
    void ouvrir(const QUrl& adresse) { ouvertes << adresse; }
};

class TestCongesFiscaliteEcran : public QObject
{
    Q_OBJECT

private:
    // Settings, dialogs and a document of its own, opened as the program opens it, with one employer.
    struct Banc : test::Banc
    {
        QObject proprietaire;
        Document* doc = document(&proprietaire);
        int employeur = ajouterEmployeur(chemin, QStringLiteral("Opéra"));

        // A contract done, subject to the fund, cashed in its start's year, 10 % withheld.
        void contrat(const QDate& debut, const QDate& fin, int jours, double brut, double net, int type = 1) const
        {
            const int id = ajouterContrat(chemin, {employeur, debut, fin, 8 * jours, jours, brut, net, 1, 0, type});
            executerSql(chemin,
                        QStringLiteral("UPDATE contrats SET c_conges = 1, c_annee_encaissement = %1, c_pas = 10 "
                                       "WHERE c_id = %2;")
                            .arg(debut.year())
                            .arg(id));
        }
    };

    template <typename S>
    static std::unique_ptr<S> section(Banc& b)
    {
        auto s = std::make_unique<S>(b.environnement);
        s->resize(1100, 720);
        s->show();
        s->setDocument(b.doc);
        return s;
    }

private slots:
    void init() { Horloge::fixer(QDate(2024, 6, 15)); }

    void conges()
    {
        Banc b;
        b.contrat(QDate(2024, 4, 8), QDate(2024, 4, 10), 3, 1234.99, 950.0);
        // Across 31 March: in no leave year.
        b.contrat(QDate(2024, 3, 25), QDate(2024, 4, 2), 9, 3000.0, 2300.0);
        auto s = section<SectionConges>(b);
        QCOMPARE(s->contrats()->rowCount(), 1);
        QCOMPARE(s->resume()->valeur("Du"), QStringLiteral("01/04/2024"));
        QCOMPARE(s->resume()->valeur("Journées retenues"), QStringLiteral("3"));
        QCOMPARE(s->resume()->valeur("Salaires bruts"), enEuros(1234));

        // Written through the document by another screen: the figures follow.
        QCOMPARE(
            b.doc->base().executer(
                "INSERT INTO contrats (c_employeur_id, c_emploi_id, c_debut_contrat, c_fin_contrat, c_nbre_heures, "
                "c_salaire_brut, c_salaire_net, c_nbre_jours, c_effectue, c_conges, c_type) VALUES (?, 1, "
                "'2024-05-02 00:00:00.000', '2024-05-03 00:00:00.000', 16, 10.5, 8, 2, 1, 1, 1);",
                {b.employeur}),
            SQLITE_DONE);
        QTRY_COMPARE(s->resume()->valeur("Journées retenues"), QStringLiteral("5"));
        QCOMPARE(s->resume()->valeur("Salaires bruts"), enEuros(1244));
        QCOMPARE(s->resume()->valeur("Indemnité brute"), enEuros(124));

        // A period of one's own: its dates show, are remembered in the document, and a period
        // without any retained day leaves the summary empty.
        choisir(*s, "periodeConges", "Période choisie");
        QVERIFY(trouver<QWidget>(*s, "congesDu")->isVisible());
        QCOMPARE(b.reglages.entier(Reglages::Cle::CongesDatesTri), 1);
        trouver<QDateEdit>(*s, "congesDu")->setDate(QDate(2024, 5, 1));
        trouver<QDateEdit>(*s, "congesAu")->setDate(QDate(2024, 5, 31));
        QCOMPARE(s->resume()->valeur("Journées retenues"), QStringLiteral("2"));
        QCOMPARE(valeur(b.chemin, "SELECT dpp_date FROM datesPeriodesPreferees WHERE dpp_element = 'conges_fin';"),
                 QStringLiteral("2024-05-31 00:00:00.000"));
        trouver<QDateEdit>(*s, "congesDu")->setDate(QDate(2024, 5, 4));
        QVERIFY(s->resume()->lignes().isEmpty());
        QCOMPARE(s->contrats()->rowCount(), 0);

        // The fund's number, copied; the site opened in the browser, with its address only.
        b.doc->base().executer("UPDATE utilisateur SET u_conges_spectacles = 'CS-4242', u_conges_password = 'secret' "
                               "WHERE u_id = 1;");
        QTRY_COMPARE(trouver<QLabel>(*s, "identifiantConges")->text(),
                     QStringLiteral("N° Congés Spectacles : CS-4242"));
        cliquer(*s, "boutonCopierIdentifiantConges");
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("CS-4242"));
        Navigateur navigateur;
        QDesktopServices::setUrlHandler(QStringLiteral("https"), &navigateur, "ouvrir");
        cliquer(*s, "boutonSiteConges");
        QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
        QCOMPARE(navigateur.ouvertes, QList<QUrl>{QUrl(b.reglages.texte(Reglages::Cle::CongesSiteInternet))});
        QVERIFY(!navigateur.ouvertes.first().toString().contains(QStringLiteral("secret")));
    }

    // The tax year by the year the pay was received, or a defined period by the contracts' dates,
    // each contract's net rounded first with the switch on; the choices are kept in the settings.
    void fiscalite_data()
    {
        QTest::addColumn<int>("periode");
        QTest::addColumn<bool>("arrondir");
        QTest::addColumn<double>("net");
        QTest::addColumn<int>("contrats");
        QTest::addColumn<double>("pas");
        cas("this year", 0, false, 201.0, 2, 20.1);
        cas("this year, rounded", 0, true, 202.0, 2, 20.1);
        cas("last year", 1, false, 50.0, 1, 5.0);
        cas("defined period", 6, false, 251.0, 3, 25.1);
    }

    void fiscalite()
    {
        QFETCH(int, periode);
        QFETCH(bool, arrondir);
        QFETCH(double, net);
        QFETCH(int, contrats);
        QFETCH(double, pas);
        Banc b;
        b.contrat(QDate(2024, 2, 5), QDate(2024, 2, 5), 1, 150.0, 100.5);
        b.contrat(QDate(2024, 3, 5), QDate(2024, 3, 5), 1, 150.0, 100.5);
        b.contrat(QDate(2023, 6, 5), QDate(2023, 6, 5), 1, 80.0, 50.0);
        auto s = section<SectionFiscalite>(b);
        const auto resume = [&] { return s->recapitulatif()->resume(); };
        QCOMPARE(resume()->valeur("Du"), QStringLiteral("01/01/2024"));
        QCOMPARE(resume()->valeur("Journées"), QStringLiteral("2"));

        auto* liste = trouver<QComboBox>(*s, "periodeFiscalite");
        QCOMPARE(liste->count(), 7);
        choisir(*s, "periodeFiscalite", liste->itemText(periode));
        if (periode == 6) {
            trouver<QDateEdit>(*s, "fiscaliteDu")->setDate(QDate(2023, 1, 1));
            trouver<QDateEdit>(*s, "fiscaliteAu")->setDate(QDate(2024, 12, 31));
        }
        if (arrondir)
            QTest::mouseClick(trouver<QCheckBox>(*s, "caseToutArrondir"), Qt::LeftButton);
        QCOMPARE(resume()->valeur("Net Imp."), enEuros(net));
        QCOMPARE(s->contrats()->rowCount(), contrats);
        QCOMPARE(s->employeurs()->texte(0, 3), enEuros(pas));
        QCOMPARE(b.reglages.entier(Reglages::Cle::FiscaliteDatesTri), periode);
        QCOMPARE(b.reglages.booleen(Reglages::Cle::FiscaliteToutArrondir), arrondir);
    }

    // Each section's history: a bad amount refused in French and nothing written, a good one
    // listed with its tick, and the tick changed in the list writing that column alone.
    void historique_data()
    {
        QTest::addColumn<bool>("fiscalite");
        QTest::addColumn<QString>("bouton");
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("prefixe");
        cas("paid leave", false, "boutonHistoriqueConges", "congeshistorique", "ch_");
        cas("tax", true, "boutonHistoriqueFiscalite", "fiscalitehistorique", "fh_");
    }

    void historique()
    {
        QFETCH(bool, fiscalite);
        QFETCH(QString, bouton);
        QFETCH(QString, table);
        QFETCH(QString, prefixe);
        Banc b;
        std::unique_ptr<PageSection> s;
        if (fiscalite)
            s = section<SectionFiscalite>(b);
        else
            s = section<SectionConges>(b);
        cliquer(*s, bouton);
        auto* fenetre = s->findChild<FenetreVersements*>();
        QVERIFY(fenetre && fenetre->isVisible());
        const QString lu = QStringLiteral("SELECT %1montant || '|' || %2 FROM %3;")
                               .arg(prefixe, prefixe + (fiscalite ? "credit" : "encaisse"), table);

        cliquer(*fenetre, "boutonAjouterVersement");
        trouver<QDateEdit>(*fenetre, "champDateVersement")->setDate(QDate(2024, 5, 10));
        saisir(*fenetre, "champMontantVersement", "1.234,56");
        cliquer(*fenetre, "boutonEnregistrerVersement");
        QCOMPARE(b.dialogues.echanges().size(), 1);
        QCOMPARE(b.dialogues.echanges().last().titre, QStringLiteral("Gestion des versements"));
        QVERIFY2(b.dernierMessage().startsWith("Montant : "), qPrintable(b.dernierMessage()));
        QCOMPARE(valeur(b.chemin, lu), QString());
        QVERIFY(fenetre->enEdition());

        saisir(*fenetre, "champMontantVersement", "1 234,56");
        // On its box: the line is wider than the switch's text.
        QTest::mouseClick(trouver<QCheckBox>(*fenetre, "caseCocheVersement"), Qt::LeftButton, {}, QPoint(8, 10));
        // Enter saves.
        QTest::keyClick(trouver<QWidget>(*fenetre, "champMontantVersement"), Qt::Key_Return);
        QVERIFY(!fenetre->enEdition());
        QCOMPARE(fenetre->modele()->rowCount(), 1);
        QCOMPARE(fenetre->modele()->data(fenetre->modele()->index(0, ModeleVersements::Montant)).toString(),
                 enEuros(1234.56));
        QCOMPARE(valeur(b.chemin, lu), QStringLiteral("1234.56|1"));
        QVERIFY(fenetre->modele()->setData(fenetre->modele()->index(0, ModeleVersements::Coche), Qt::Unchecked,
                                           Qt::CheckStateRole));
        QCOMPARE(valeur(b.chemin, lu), QStringLiteral("1234.56|0"));
    }

    // The self-employment window writes the activity as soon as it is chosen, and the tax
    // screen's charges follow it: 10 000 € of commercial services in 2024 at 23,1 %, plus 0,1 %
    // for a trader, plus the chamber fee of the activity (0,044 %, then 0,015 %).
    void autoEntrepreneur()
    {
        Banc b;
        b.contrat(QDate(2024, 5, 2), QDate(2024, 5, 2), 1, 0.0, 10000.0, 101);
        auto s = section<SectionFiscalite>(b);
        QLabel* charges = s->recapitulatif()->charges();
        QCOMPARE(charges->text(), QStringLiteral("Charges à payer : %1").arg(enEuros(2324)));
        QCOMPARE(s->recapitulatif()->autoEntrepreneur()->valeur("Commerciaux"), enEuros(10000));

        FenetreAutoEntrepreneur fenetre(b.environnement, b.doc);
        fenetre.show();
        QCOMPARE(trouver<QComboBox>(fenetre, "choixCategorieAE")->currentText(), QStringLiteral("Commerçant"));
        choisir(fenetre, "choixActiviteAE", "Vente de marchandises, restauration, hébergement");
        QCOMPARE(valeur(b.chemin, "SELECT u_ae_activite FROM utilisateur WHERE u_id = 1;"), QStringLiteral("3"));
        QTRY_COMPARE(charges->text(), QStringLiteral("Charges à payer : %1").arg(enEuros(2321)));
    }
};

CORVANE_MAIN_GUI(TestCongesFiscaliteEcran)

#include "test_conges_fiscalite.moc"
