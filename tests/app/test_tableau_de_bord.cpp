// The dashboard section on a small document: its figures, gauges and list, a record written
// elsewhere through the records layer, the sort button, the lock switch, the day changing while
// it is open, and "Exporter tout le dossier en PDF" with the three PDFs read back.

#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/FenetrePrincipale.h"
#include "app/tableaudebord/GraphiqueNets.h"
#include "app/tableaudebord/Jauges.h"
#include "app/tableaudebord/ModeleActivite.h"
#include "app/tableaudebord/SectionTableauDeBord.h"
#include "commun/MaisonTemporaire.h"
#include "commun/OutilsEcran.h"
#include "exchange/test_pdf_lecture.h"
#include "records/Contrats.h"
#include "records/OutilsContrats.h"
#include "records/Periodes.h"
#include "regimes/SecuriteSociale.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"
#include "store/Reglages.h"
#include "unemployment/PoleEmploiVersements.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QTimer>
#include <QToolButton>
#include <QtTest>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

class TestTableauDeBordEcran : public QObject
{
    Q_OBJECT

private:
    struct Banc
    {
        std::unique_ptr<Reglages> reglages;
        DialoguesScriptes dialogues;
        std::unique_ptr<Environnement> environnement;
        std::unique_ptr<SectionTableauDeBord> section;
        Document* document = nullptr;
        QString chemin;

        QString stat(const char* libelle, const char* cle) const
        {
            return section->statistique(QString::fromUtf8(libelle), QString::fromUtf8(cle));
        }
        QString cellule(int rangee, int colonne) const
        {
            return section->modele()->index(rangee, colonne).data().toString();
        }
    };
    int m_numero = 0;

    // Rights opened 2024-03-01, today 2024-06-15. At the opera (Guso): 5 days in March, 1 in June,
    // one tomorrow that counts nowhere; a sickness leave in May; 150,10 € paid in June.
    QString documentDuBanc()
    {
        const QString chemin = documentContrats(*g_maison, QStringLiteral("tdb%1.cv4").arg(++m_numero));
        const int opera = ajouterEmployeur(chemin, QStringLiteral("Opéra de Lyon"), 0, 1);
        ajouterContrat(chemin, {opera, QDate(2024, 3, 4), QDate(2024, 3, 8), 60, 5, 2500.0, 1950.0});
        ajouterContrat(chemin, {opera, QDate(2024, 6, 3), QDate(2024, 6, 3), 12, 1, 300.0, 234.0});
        ajouterContrat(chemin, {opera, QDate(2024, 6, 16), QDate(2024, 6, 16), 12, 1, 300.0, 234.0});
        ajouterArretMaladie(chemin, QDate(2024, 5, 2), QDate(2024, 5, 6));
        executerSql(chemin, "INSERT INTO assedichistorique (ah_date, ah_montant) VALUES ('2024-06-01 00:00:00.000', "
                            "150.1);");
        return chemin;
    }

    std::unique_ptr<Banc> banc()
    {
        auto b = std::make_unique<Banc>();
        b->reglages = std::make_unique<Reglages>(g_maison->filePath(QStringLiteral("tdb%1.ini").arg(++m_numero)));
        b->environnement.reset(new Environnement{*b->reglages, b->dialogues});
        b->section = std::make_unique<SectionTableauDeBord>(*b->environnement);
        b->section->resize(1000, 700);
        b->section->show();
        b->chemin = documentDuBanc();
        b->document = documentOuvert(b->chemin, b->section.get());
        b->section->setDocument(b->document);
        return b;
    }

private slots:
    void init() { Horloge::fixer(QDate(2024, 6, 15)); }
    void cleanupTestCase() { Horloge::reinitialiser(); }

    void chiffres()
    {
        auto b = banc();
        // Today counts, tomorrow does not; a sickness leave counts its credited hours (none here).
        QCOMPARE(b->stat("Ce mois-ci", "Jours"), QStringLiteral("1"));
        QCOMPARE(b->stat("Ce mois-ci", "Heures"), QStringLiteral("12"));
        QCOMPARE(b->stat("Ce mois-ci", "Bruts"), enEuros(300));
        QCOMPARE(b->stat("Ce mois-ci", "Pôle Emploi"), enEuros(150.1));
        QCOMPARE(b->stat("Période", "Jours"), QStringLiteral("6"));
        QCOMPARE(b->stat("Période", "Heures"), QStringLiteral("72"));
        QCOMPARE(b->stat("Période", "Net imposable"), enEuros(2184));
        QCOMPARE(trouver<QLabel>(*b->section, "etenduePeriode")->text(),
                 QStringLiteral("Période de référence du 01/03/2024 au 15/06/2024"));

        auto* heures = trouver<JaugeCirculaire>(*b->section, "jaugeHeures");
        QCOMPARE(heures->texte(), QStringLiteral("72 heures\nsur 507"));
        QCOMPARE(heures->couleur(), QColor::fromRgbF(0, 0, 0.5));
        auto* etat = trouver<QLabel>(*b->section, "etatHeures");
        QCOMPARE(etat->text(), QStringLiteral("435 heures à réaliser avant le réexamen des droits"));
        QCOMPARE(etat->palette().color(QPalette::WindowText), QColor(QStringLiteral("#800080")));
        QCOMPARE(trouver<QLabel>(*b->section, "ouvertureDroits")->text(),
                 QStringLiteral("Ouverture des droits au 01/03/2024"));
        QCOMPARE(trouver<JaugeCirculaire>(*b->section, "jaugePeriode")->texte(),
                 QStringLiteral("259 jours restants\ndans la PRA"));

        // Oldest first, the leave in its colour between the contracts, then the totals.
        const ModeleActivite* m = b->section->modele();
        QCOMPARE(m->rowCount(), 4);
        QCOMPARE(b->cellule(0, ModeleActivite::Debut), QStringLiteral("04/03/2024"));
        QCOMPARE(b->cellule(0, ModeleActivite::Note), QStringLiteral("Opéra de Lyon"));
        QCOMPARE(b->cellule(0, ModeleActivite::Guso), QStringLiteral("✓"));
        QVERIFY(m->estArret(1));
        QCOMPARE(m->index(1, ModeleActivite::Type).data(Qt::ForegroundRole).value<QColor>(),
                 QColor(QStringLiteral("#800080")));
        QVERIFY(!m->index(0, ModeleActivite::Type).data(Qt::ForegroundRole).isValid());
        QCOMPARE(b->cellule(3, ModeleActivite::Debut), QStringLiteral("Totaux"));
        QCOMPARE(b->cellule(3, ModeleActivite::Heures), QStringLiteral("72"));
        QCOMPARE(b->cellule(3, ModeleActivite::Brut), enEuros(2800));
        // The chart: one bar per contract, none for the leave.
        QCOMPARE(b->section->graphique()->barres().size(), 2);
        QCOMPARE(b->section->graphique()->barres().at(1).net, 234.0);
    }

    // A record written elsewhere in the program, through the document's connection.
    void suitLesEcritures_data()
    {
        QTest::addColumn<QString>("ecriture");
        QTest::addColumn<QString>("libelle");
        QTest::addColumn<QString>("cle");
        QTest::addColumn<QString>("apres");
        cas("contrat", "contrat", "Ce mois-ci", "Heures", "20");
        cas("arrêt maladie", "arret", "Ce mois-ci", "Jours SS", "2");
        cas("versement Pôle Emploi", "versement", "Ce mois-ci", "Pôle Emploi", "200,10 €");
        // A new current period moves the opening of rights to June.
        cas("période activée", "periode", "Période", "Jours", "1");
    }

    void suitLesEcritures()
    {
        QFETCH(QString, ecriture);
        QFETCH(QString, libelle);
        QFETCH(QString, cle);
        QFETCH(QString, apres);
        auto b = banc();
        const QString avant = b->section->statistique(libelle, cle);
        BaseDeDonnees& base = b->document->base();
        if (ecriture == "contrat") {
            Contrat c;
            c.employeurId = 2;
            c.debut = c.fin = QDate(2024, 6, 10);
            c.jours = 1;
            c.heures = 8;
            c.brut = 100;
            QVERIFY(Contrats(base).enregistreContrat(c) > 0);
        } else if (ecriture == "arret") {
            PeriodeSecuriteSociale arret;
            arret.debut = QDate(2024, 6, 5);
            arret.fin = QDate(2024, 6, 6);
            QVERIFY(SecuriteSociale(base).enregistreSecuriteSociale(arret) > 0);
        } else if (ecriture == "versement") {
            PoleEmploiVersements versement(base);
            versement.date = QDate(2024, 6, 10);
            versement.montant = 50;
            QVERIFY(versement.enregistrePoleEmploiVersement() > 0);
        } else {
            Periodes periodes(base);
            const int id = periodes.enregistrePeriode({0, QDate(2024, 6, 1), QDate(2025, 5, 31), "Juin", "", 0, 0, 7});
            QVERIFY(id > 0 && periodes.activePeriodeAvecId(id));
        }
        QTRY_COMPARE(espacesSimples(b->section->statistique(libelle, cle)), apres);
        QVERIFY(avant != apres);
    }

    void triEtBlocage()
    {
        auto b = banc();
        // Newest first, and remembered.
        QTest::mouseClick(trouver<QToolButton>(*b->section, "boutonTriTableauDeBord"), Qt::LeftButton);
        QCOMPARE(b->reglages->texte(Reglages::Cle::TdbSens), QStringLiteral("DESC"));
        QCOMPARE(b->cellule(0, ModeleActivite::Debut), QStringLiteral("03/06/2024"));
        QCOMPARE(b->cellule(3, ModeleActivite::Debut), QStringLiteral("Totaux"));
        QCOMPARE(trouver<QToolButton>(*b->section, "boutonTriTableauDeBord")->arrowType(), Qt::DownArrow);

        // A period that ended in May: locked, June is out of the period's figures and list, and
        // the reference period shows as over.
        executerSql(b->chemin, "UPDATE periodes SET p_date_fin = '2024-05-31 00:00:00.000';");
        auto* bloque = trouver<QCheckBox>(*b->section, "caseBloquePeriode");
        bloque->click();
        QVERIFY(b->reglages->booleen(Reglages::Cle::TdbBloquePeriode));
        QCOMPARE(b->stat("Période", "Jours"), QStringLiteral("5"));
        QCOMPARE(b->stat("Ce mois-ci", "Jours"), QStringLiteral("1"));
        QCOMPARE(b->section->modele()->rowCount(), 3);
        QCOMPARE(trouver<QLabel>(*b->section, "etenduePeriode")->text(),
                 QStringLiteral("Période de référence du 01/03/2024 au 31/05/2024"));
        auto* periode = trouver<JaugeCirculaire>(*b->section, "jaugePeriode");
        QCOMPARE(periode->texte(), QStringLiteral("Terminée !"));
        QCOMPARE(periode->couleur(), QColor(QStringLiteral("#800080")));
        QCOMPARE(periode->proportion(), 1.0);
        bloque->click();
        QCOMPARE(b->stat("Période", "Jours"), QStringLiteral("6"));
    }

    void changementDeJour()
    {
        auto b = banc();
        auto* minuit = trouver<QTimer>(*b->section, "minuterieMinuit");
        // Noon by the fixed clock: a second past midnight is twelve hours away.
        QVERIFY(minuit->isActive());
        QVERIFY(qAbs(minuit->remainingTime() - (12 * 3600 + 1) * 1000) < 5000);
        Horloge::fixer(QDate(2024, 7, 1));
        minuit->start(0);
        QTRY_COMPARE(b->stat("Ce mois-ci", "Jours"), QStringLiteral("0"));
        QCOMPARE(b->stat("Période", "Jours"), QStringLiteral("7"));
    }

    // The whole-file export from the Fichier menu.
    void exportDuDossier_data()
    {
        QTest::addColumn<bool>("stockage");
        cas("dans le dossier de stockage", true);
        cas("sans dossier de stockage", false);
    }

    void exportDuDossier()
    {
        QFETCH(bool, stockage);
        Reglages reglages(g_maison->filePath(QStringLiteral("export%1.ini").arg(++m_numero)));
        DialoguesScriptes dialogues;
        Environnement environnement{reglages, dialogues};
        FenetrePrincipale fenetre(environnement);
        ControleurApplication controleur(reglages, dialogues, fenetre);
        QStringList ouverts;
        controleur.setOuvreurDeDossier([&](const QString& dossier) { ouverts << dossier; });
        const QString chemin = documentDuBanc();
        QVERIFY(controleur.ouvrir(chemin));
        // A new user's first section.
        QCOMPARE(fenetre.sectionAffichee(), Section::TableauDeBord);
        fenetre.afficherSection(Section::Contrats);
        const QString racine = g_maison->filePath(QStringLiteral("stockage%1").arg(m_numero));
        reglages.ecrire(Reglages::Cle::PrefsStockage, stockage ? racine : QString());

        fenetre.action(QStringLiteral("actionExporterDossier"))->trigger();
        QCOMPARE(fenetre.sectionAffichee(), Section::Contrats);
        if (!stockage) {
            QCOMPARE(dialogues.echanges().size(), 1);
            QCOMPARE(dialogues.echanges()[0].titre, QStringLiteral("Exports PDF"));
            QCOMPARE(dialogues.echanges()[0].message,
                     QStringLiteral("Vous n'avez pas encore précisé de dossier de stockage."));
            QVERIFY(ouverts.isEmpty());
            return;
        }
        const QString dossier = racine + QStringLiteral("/") + QFileInfo(chemin).completeBaseName();
        QCOMPARE(ouverts, QStringList{dossier});
        QVERIFY(dialogues.echanges().isEmpty());
        const QStringList attendus{"Activité dans la période de référence.pdf", "Liste des employeurs.pdf",
                                   "Relevé d'informations.pdf"};
        QCOMPARE(QDir(dossier).entryList(QDir::Files, QDir::Name), attendus);
        const QStringList premieresLignes{"Activité dans la période de référence", "Liste des employeurs",
                                          "Relevé d'informations"};
        for (int i = 0; i < attendus.size(); ++i) {
            const QStringList pages = pagesPdf(QDir(dossier).filePath(attendus[i]));
            QVERIFY2(!pages.isEmpty() && pages[0].startsWith(premieresLignes[i]), qPrintable(attendus[i]));
        }
        QVERIFY(pagesPdf(QDir(dossier).filePath(attendus[0])).join("\n").contains("Opéra de Lyon"));
    }
};

CORVANE_MAIN_GUI(TestTableauDeBordEcran)

#include "test_tableau_de_bord.moc"
