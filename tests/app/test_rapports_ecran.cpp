// The PDF side of the screens: the "Exporter en PDF…" and "Imprimer" buttons of the contracts
// list, the employers section, the expenses list and the profile window (the save panel with the
// report's name, the file written and offered for display, the lists as filtered on screen, the
// settings' parts), the buttons of every screen without a document, the viewer window, and the
// "Impressions" pane of the preferences.

#include "app/ApercuPdf.h"
#include "app/ControleurApplication.h"
#include "app/FenetrePreferences.h"
#include "app/PanneauPreferencesImpressions.h"
#include "app/contrats/ListeContrats.h"
#include "app/contrats/ModeleTableContrats.h"
#include "app/contrats/SectionContrats.h"
#include "app/droitsvoisins/SectionDroitsVoisins.h"
#include "app/employeurs/SectionEmployeurs.h"
#include "app/poleemploi/SectionPoleEmploi.h"
#include "app/frais/ListeFrais.h"
#include "app/frais/ModeleFrais.h"
#include "app/frais/SectionFrais.h"
#include "app/profil/FenetreProfil.h"
#include "commun/OutilsEcran.h"
#include "exchange/ExportPdf.h"
#include "exchange/Rapport.h"
#include "exchange/RapportsEnregistrements.h"
#include "exchange/test_pdf_lecture.h"
#include "records/Frais.h"
#include "records/OutilsContrats.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QListWidget>
#include <QPdfDocument>
#include <QPrinter>
#include <QSpinBox>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

class TestRapportsEcran : public QObject
{
    Q_OBJECT

private:
    int m_numero = 0;
    std::unique_ptr<Banc> m_banc; // two employers, a contract each
    QString m_pdf;                // a report of three pages

    QString sortie() { return g_maison->filePath(QStringLiteral("export%1.pdf").arg(++m_numero)); }

    // Clicks the export button and gives the pages written ("" when none).
    QStringList exporterPdf(QWidget& ecran, const QString& suffixe, const QString& nomPropose)
    {
        DialoguesScriptes& dialogues = m_banc->dialogues;
        const QString chemin = sortie();
        dialogues.choisirChemins({chemin});
        auto* bouton = ecran.findChild<QPushButton*>(QStringLiteral("boutonExporterPdf") + suffixe);
        if (!bouton || !ecran.findChild<QPushButton*>(QStringLiteral("boutonImprimer") + suffixe))
            return {QStringLiteral("<bouton introuvable>")};
        QTest::mouseClick(bouton, Qt::LeftButton);
        if (dialogues.panneaux().size() != 1 || dialogues.panneaux()[0].nomPropose != nomPropose ||
            dialogues.panneaux()[0].extension != QStringLiteral("pdf"))
            return {QStringLiteral("<panneau inattendu>")};
        // Then the offer to show it, declined here.
        if (dialogues.echanges().size() != 1 || dialogues.echanges()[0].boutons != QStringList{"Afficher", "Fermer"} ||
            !dialogues.echanges()[0].message.contains(QDir::toNativeSeparators(chemin)))
            return {QStringLiteral("<pas de proposition d'affichage>")};
        return pagesPdf(chemin);
    }

private slots:
    void initTestCase()
    {
        Rapport r;
        r.titre(QStringLiteral("Contrats"));
        QList<QStringList> lignes;
        for (int i = 0; i < 120; ++i)
            lignes << QStringList{QStringLiteral("Ligne %1").arg(i), Rapport::montant(i)};
        r.tableau({ColonneRapport::texte("Libellé"), ColonneRapport::montant("Montant", 20)}, lignes);
        m_pdf = g_maison->filePath(QStringLiteral("Contrats.pdf"));
        QVERIFY(ExportPdf::ecrirePdf(r.document(), m_pdf));
    }

    void init()
    {
        Horloge::fixer(QDate(2026, 11, 21));
        m_banc = std::make_unique<Banc>();
        const int orly = ajouterEmployeur(m_banc->chemin, QStringLiteral("Théâtre d'Orly"));
        const int opera = ajouterEmployeur(m_banc->chemin, QStringLiteral("Opéra"));
        ajouterContrat(m_banc->chemin, {orly, QDate(2024, 1, 8), QDate(2024, 1, 10), 36, 3, 1234.56, 950.5});
        ajouterContrat(m_banc->chemin, {opera, QDate(2024, 3, 4), QDate(2024, 3, 8), 60, 5, 2500.0, 1950.0});
    }

    // Each screen's export: the save panel with the report's name, the file offered for display,
    // and in it the contracts as filtered on screen and the parts the settings ask for.
    void exporter_data()
    {
        QTest::addColumn<QString>("ecran");
        QTest::addColumn<QString>("reglage"); // the part left out, "" for none
        QTest::addColumn<QString>("nom");
        QTest::addColumn<QString>("present");
        QTest::addColumn<QString>("absent");
        using C = Reglages::Cle;
        cas("contrats filtrés", "Contrats", "", "Liste des contrats", "Totaux 5 60 2 500,00 € 1 950,00 €",
            "08/01/2024");
        cas("contrats sans la liste", "Contrats", Reglages::nom(C::ContratsImpressionsListe), "Liste des contrats",
            "Contrats : 1", "04/03/2024");
        cas("employeurs sans la liste", "Employeurs", Reglages::nom(C::EmployeursImpressionsListe),
            "Liste des employeurs", "Totaux 8 96 3 734,56 € 2 900,50 €", "Courriel");
        cas("profil sans état civil", "Profil", Reglages::nom(C::ProfilImpressionsEtatCivil),
            "Relevé d'informations 21 11 2026", "Informations personnelles", "Nom : Dupont");
        cas("frais d'une catégorie sans les totaux par catégorie", "Frais",
            Reglages::nom(C::FraisImpressionsCategories), "Frais professionnels 21 11 2026", "Total 45,50 €",
            "Totaux par catégorie");
    }

    void exporter()
    {
        QFETCH(QString, ecran);
        QFETCH(QString, reglage);
        QFETCH(QString, nom);
        QFETCH(QString, present);
        QFETCH(QString, absent);
        if (!reglage.isEmpty())
            m_banc->reglages.stockage().setValue(reglage, false);
        std::unique_ptr<QWidget> fenetre;
        if (ecran == "Contrats") {
            auto* liste = new ListeContrats(m_banc->environnement);
            fenetre.reset(liste);
            liste->setDocument(m_banc->document(liste));
            choisir(*liste, "filtreEmployeur", "Opéra");
            QCOMPARE(liste->modele()->rowCount(), 1);
        } else if (ecran == "Employeurs") {
            auto* section = new SectionEmployeurs(m_banc->environnement);
            fenetre.reset(section);
            section->setDocument(m_banc->document(section));
        } else if (ecran == "Frais") {
            Frais frais(m_banc->chemin);
            for (const auto& [categorie, montant] : {std::pair{13, 45.5}, std::pair{1, 320.0}}) {
                Depense d;
                d.categorieId = categorie;
                d.date = QDate(2024, 3, 4);
                d.montant = montant;
                QVERIFY(frais.enregistreFrais(d) > 0);
            }
            auto* liste = new ListeFrais(m_banc->environnement);
            fenetre.reset(liste);
            liste->setDocument(m_banc->document(liste));
            choisir(*liste, "filtreCategorieFrais", "Transport");
            QCOMPARE(liste->modele()->rowCount(), 1);
        } else {
            fenetre = std::make_unique<FenetreProfil>(m_banc->environnement, m_banc->document(this));
        }
        const QString texte = exporterPdf(*fenetre, ecran, nom).join("\n");
        QVERIFY2(texte.contains(present), qPrintable(texte));
        QVERIFY(!texte.contains(absent));
    }

    void impression()
    {
        // The export's layout on a printer (here one that prints to a file), under the report's name.
        Rapport rapport;
        QVERIFY(composerRapportEmployeurs(rapport, m_banc->chemin, ChoixImpressions()));
        const QString fichier = sortie();
        QPrinter imprimante(QPrinter::HighResolution);
        imprimante.setOutputFormat(QPrinter::PdfFormat);
        imprimante.setOutputFileName(fichier);
        preparerImprimante(imprimante);
        QCOMPARE(imprimante.pageLayout().margins(QPageLayout::Point), QMarginsF(20, 20, 20, 20));
        imprimer(rapport.document(), imprimante);
        const QStringList pages = pagesPdf(fichier);
        QCOMPARE(pages.size(), 2);
        QVERIFY2(pages[1].contains("Totaux 8 96 3 734,56 € 2 900,50 €"), qPrintable(pages[1]));
        QPdfDocument pdf;
        QCOMPARE(pdf.load(fichier), QPdfDocument::Error::None);
        QCOMPARE(pdf.metaData(QPdfDocument::MetaDataField::Title).toString(), QStringLiteral("Liste des employeurs"));
    }

    // Every button that needs a document says so, and asks nothing else (Ctrl+P clicks "Imprimer").
    void sansDocument_data()
    {
        QTest::addColumn<QString>("ecran");
        QTest::addColumn<QStringList>("boutons");
        QTest::addColumn<QString>("titre");
        const auto pdf = [](const QString& ecran) {
            return QStringList{"boutonExporterPdf" + ecran, "boutonImprimer" + ecran, "Ctrl+P"};
        };
        cas("contrats, PDF", "Contrats", pdf("Contrats"), "Exports PDF");
        cas("employeurs, PDF", "Employeurs", pdf("Employeurs"), "Exports PDF");
        cas("profil, PDF", "Profil", pdf("Profil"), "Gestion des PDF");
        cas("nouveau contrat", "SectionContrats", QStringList{"boutonNouveauContrat"}, "Gestion des contrats");
        cas("nouvel employeur", "Employeurs", QStringList{"boutonNouvelEmployeur"}, "Gestion des employeurs");
        cas("frais, PDF", "SectionFrais", pdf("Frais"), "Exports PDF");
        cas("nouvelle dépense", "SectionFrais", QStringList{"boutonNouveauFrais"}, "Gestion des frais");
        cas("catégories de frais", "SectionFrais", QStringList{"boutonCategoriesFrais"},
            "Gestion des catégories de frais");
        cas("droits voisins, PDF", "DroitsVoisins", pdf("DroitsVoisins"), "Exports PDF");
        cas("nouveau versement, catégories", "DroitsVoisins", QStringList{"boutonNouveauDv", "boutonCategoriesDv"},
            "Gestion des Droits voisins");
    }

    void sansDocument()
    {
        QFETCH(QString, ecran);
        QFETCH(QStringList, boutons);
        QFETCH(QString, titre);
        Banc b(false);
        std::unique_ptr<QWidget> fenetre;
        if (ecran == "Contrats")
            fenetre = std::make_unique<ListeContrats>(b.environnement);
        else if (ecran == "SectionContrats")
            fenetre = std::make_unique<SectionContrats>(b.environnement);
        else if (ecran == "Employeurs")
            fenetre = std::make_unique<SectionEmployeurs>(b.environnement);
        else if (ecran == "SectionFrais")
            fenetre = std::make_unique<SectionFrais>(b.environnement);
        else if (ecran == "DroitsVoisins")
            fenetre = std::make_unique<SectionDroitsVoisins>(b.environnement);
        else
            fenetre = std::make_unique<FenetreProfil>(b.environnement, nullptr);
        montrerActive(*fenetre);
        for (const QString& bouton : boutons) {
            b.dialogues = DialoguesScriptes();
            b.dialogues.choisirChemins({sortie()});
            if (bouton == "Ctrl+P")
                QTest::keySequence(fenetre.get(), QKeySequence::Print);
            else
                cliquer(*fenetre, bouton);
            // A shortcut clicks its button a moment later, as a mouse would.
            QTRY_COMPARE(b.dialogues.echanges().size(), 1);
            QVERIFY(b.dialogues.panneaux().isEmpty());
            QCOMPARE(b.dialogues.echanges()[0].titre, titre);
            QCOMPARE(b.dialogues.echanges()[0].message, messageSansDocument());
        }
    }

    void proposition_data()
    {
        QTest::addColumn<bool>("fichier");
        QTest::addColumn<QString>("reponse");
        QTest::addColumn<bool>("fenetre");
        cas("afficher", true, "Afficher", true);
        cas("fermer", true, "Fermer", false);
        cas("rien à proposer sans fichier", false, "Afficher", false);
    }

    void proposition()
    {
        QFETCH(bool, fichier);
        QFETCH(QString, reponse);
        QFETCH(bool, fenetre);
        if (fenetre && !ApercuPdf::disponible())
            QSKIP("built without Qt PDF Widgets: the system's viewer would open");
        DialoguesScriptes dialogues({reponse});
        QPointer<ApercuPdf> apercu = proposerAffichage(fichier ? m_pdf : QString(), dialogues);
        QCOMPARE(!apercu.isNull(), fenetre);
        QCOMPARE(dialogues.echanges().size(), fichier ? 1 : 0);
        if (fichier) {
            QCOMPARE(dialogues.echanges()[0].titre, QStringLiteral("Exports PDF"));
            QCOMPARE(dialogues.echanges()[0].message,
                     QStringLiteral("Le fichier PDF a été enregistré :\n%1\n\nSouhaitez-vous l'afficher ?").arg(m_pdf));
        }
        if (apercu) {
            QVERIFY(apercu->isVisible());
            QVERIFY(apercu->windowTitle().contains("Contrats.pdf"));
            apercu->close();
            QTRY_VERIFY(apercu.isNull()); // deleted when closed
        }
    }

    void navigationEtZoom()
    {
        if (!ApercuPdf::disponible())
            QSKIP("built without Qt PDF Widgets");
        ApercuPdf apercu(m_pdf);
        apercu.show();
        QVERIFY(apercu.estCharge());
        QVERIFY(apercu.nombreDePages() >= 3);
        QCOMPARE(apercu.pageCourante(), 0);
        auto* precedente = apercu.findChild<QAction*>("pagePrecedente");
        auto* suivante = apercu.findChild<QAction*>("pageSuivante");
        auto* numero = apercu.findChild<QSpinBox*>("numeroPage");
        QVERIFY(precedente && suivante && numero);
        QVERIFY(!precedente->isEnabled());
        QCOMPARE(numero->maximum(), apercu.nombreDePages());

        suivante->trigger();
        QCOMPARE(apercu.pageCourante(), 1);
        QCOMPARE(numero->value(), 2);
        QVERIFY(precedente->isEnabled());
        numero->setValue(apercu.nombreDePages());
        QCOMPARE(apercu.pageCourante(), apercu.nombreDePages() - 1);
        QVERIFY(!suivante->isEnabled());
        apercu.allerALaPage(99);
        QCOMPARE(apercu.pageCourante(), apercu.nombreDePages() - 1);
        precedente->trigger();
        QCOMPARE(apercu.pageCourante(), apercu.nombreDePages() - 2);

        const qreal avant = apercu.zoom();
        apercu.findChild<QAction*>("agrandir")->trigger();
        QVERIFY(apercu.zoom() > avant);
        apercu.findChild<QAction*>("reduire")->trigger();
        apercu.findChild<QAction*>("reduire")->trigger();
        QVERIFY(apercu.zoom() < avant);
    }

    void fichierIlisible()
    {
        const QString chemin = g_maison->filePath(QStringLiteral("abime.pdf"));
        ecrire(chemin, "pas un PDF");
        ApercuPdf apercu(chemin);
        QVERIFY(!apercu.estCharge());
        QCOMPARE(apercu.nombreDePages(), 0);
        QVERIFY(apercu.findChild<QLabel*>("messageApercu"));
        QVERIFY(!apercu.findChild<QAction*>("pageSuivante")->isEnabled());
    }

    // Each switch of the "Impressions" pane, as the preferences window opened from the menu shows it.
    void panneauImpressions()
    {
        const QString fichier = g_maison->filePath(QStringLiteral("reglages%1.ini").arg(m_banc->numero));
        FenetrePrincipale principale(m_banc->environnement);
        ControleurApplication controleur(m_banc->reglages, m_banc->dialogues, principale);
        FenetrePreferences* preferences = controleur.showPreferences();
        QVERIFY(preferences);
        preferences->afficherPanneau(QStringLiteral("Impressions"));
        QSignalSpy modifies(preferences, &FenetrePreferences::reglagesModifies);
        auto* panneau = preferences->findChild<PanneauPreferencesImpressions*>();
        QVERIFY(panneau);
        for (const auto& groupe : PanneauPreferencesImpressions::groupes()) {
            for (const auto& interrupteur : groupe.interrupteurs) {
                const QString cle = Reglages::nom(interrupteur.cle);
                auto* boite = trouver<QCheckBox>(*panneau, cle);
                QVERIFY2(boite && boite->isVisible() && boite->isChecked(), qPrintable(cle)); // printed by default
                boite->click();
                QCOMPARE(QSettings(fichier, QSettings::IniFormat).value(cle).toBool(), false);
                boite->click();
                QCOMPARE(QSettings(fichier, QSettings::IniFormat).value(cle).toBool(), true);
                // Shown as stored.
                QSettings(fichier, QSettings::IniFormat).setValue(cle, false);
                Reglages relus(fichier);
                QVERIFY2(!PanneauPreferencesImpressions(relus).findChild<QCheckBox*>(cle)->isChecked(),
                         qPrintable(cle));
            }
        }
        QVERIFY(modifies.size() > 2);
    }

    // The Pôle Emploi section exports the rights report of the choices on screen, with the
    // parts its settings keep; the monthly declaration has no report.
    void poleEmploi()
    {
        m_banc->reglages.ecrire(Reglages::Cle::PoleEmploiImpressionsHeures, false);
        SectionPoleEmploi section(m_banc->environnement);
        section.setDocument(m_banc->document(&section));
        section.findChild<QDateEdit*>(QStringLiteral("simulationDu"))->setDate(QDate(2024, 1, 1));
        section.findChild<QDateEdit*>(QStringLiteral("simulationAu"))->setDate(QDate(2024, 12, 31));
        section.findChild<QComboBox*>(QStringLiteral("choixContratsDroits"))->setCurrentIndex(1);
        const QString texte =
            exporterPdf(section, QStringLiteral("PoleEmploi"), QStringLiteral("Simulation des droits 21 11 2026"))
                .join("\n")
                .simplified();
        QVERIFY2(texte.contains("Du 01/01/2024 au 31/12/2024, contrats effectués"), qPrintable(texte));
        QVERIFY(texte.contains("Vous n'aurez effectué que 96 heure(s)"));
        QVERIFY(texte.contains("Période analysée"));
        QVERIFY(!texte.contains("Heures par emploi"));
        section.choisirMode(SectionPoleEmploi::Declaration);
        QVERIFY(!section.findChild<QPushButton*>(QStringLiteral("boutonExporterPdfPoleEmploi"))->isEnabled());
    }
};

CORVANE_MAIN_GUI(TestRapportsEcran)

#include "test_rapports_ecran.moc"
