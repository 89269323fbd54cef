// The "Exporter en PDF…" buttons of the contracts list, the employers section and the
// profile window: the save panel with the report's name, the file written and offered
// for display, the contracts as filtered on screen, the settings' parts, the alerts
// without a document (through the buttons and Ctrl+P), and the "Impressions" pane of the preferences.

#include "app/ApercuPdf.h"
#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/FenetrePreferences.h"
#include "app/FenetrePrincipale.h"
#include "app/contrats/ListeContrats.h"
#include "app/contrats/ModeleTableContrats.h"
#include "app/employeurs/SectionEmployeurs.h"
#include "app/poleemploi/SectionPoleEmploi.h"
#include "app/profil/FenetreProfil.h"
#include "commun/MaisonTemporaire.h"
#include "commun/OutilsDocument.h"
#include "exchange/Rapport.h"
#include "exchange/RapportsEnregistrements.h"
#include "exchange/test_pdf_lecture.h"
#include "records/OutilsContrats.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QListWidget>
#include <QPdfDocument>
#include <QPrinter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

class TestRapportsEcran : public QObject
{
    Q_OBJECT

private:
    int m_numero = 0;
    std::unique_ptr<Reglages> m_reglages;
    DialoguesScriptes m_dialogues;
    std::unique_ptr<Environnement> m_environnement;
    QString m_chemin;

    QString sortie() { return g_maison->filePath(QStringLiteral("export%1.pdf").arg(++m_numero)); }

    // Clicks the export button and gives the pages written ("" when none).
    QStringList exporter(QWidget& ecran, const QString& suffixe, const QString& nomPropose)
    {
        const QString chemin = sortie();
        m_dialogues.choisirChemins({chemin});
        auto* bouton = ecran.findChild<QPushButton*>(QStringLiteral("boutonExporterPdf") + suffixe);
        if (!bouton || !ecran.findChild<QPushButton*>(QStringLiteral("boutonImprimer") + suffixe))
            return {QStringLiteral("<bouton introuvable>")};
        QTest::mouseClick(bouton, Qt::LeftButton);
        if (m_dialogues.panneaux().size() != 1 || m_dialogues.panneaux()[0].nomPropose != nomPropose ||
            m_dialogues.panneaux()[0].extension != QStringLiteral("pdf"))
            return {QStringLiteral("<panneau inattendu>")};
        // Then the offer to show it, declined here.
        if (m_dialogues.echanges().size() != 1 ||
            m_dialogues.echanges()[0].boutons != QStringList{"Afficher", "Fermer"} ||
            !m_dialogues.echanges()[0].message.contains(QDir::toNativeSeparators(chemin)))
            return {QStringLiteral("<pas de proposition d'affichage>")};
        return pagesPdf(chemin);
    }

private slots:
    void init()
    {
        m_reglages = std::make_unique<Reglages>(g_maison->filePath(QStringLiteral("reglages%1.ini").arg(++m_numero)));
        m_dialogues = DialoguesScriptes();
        m_environnement.reset(new Environnement{*m_reglages, m_dialogues});
        m_chemin = documentContrats(*g_maison, QStringLiteral("ecran%1.cv4").arg(m_numero));
        const int orly = ajouterEmployeur(m_chemin, QStringLiteral("Théâtre d'Orly"));
        const int opera = ajouterEmployeur(m_chemin, QStringLiteral("Opéra"));
        ajouterContrat(m_chemin, {orly, QDate(2024, 1, 8), QDate(2024, 1, 10), 36, 3, 1234.56, 950.5});
        ajouterContrat(m_chemin, {opera, QDate(2024, 3, 4), QDate(2024, 3, 8), 60, 5, 2500.0, 1950.0});
    }

    void contratsCommeFiltresALEcran()
    {
        ListeContrats liste(*m_environnement);
        liste.setDocument(documentOuvert(m_chemin, &liste));
        auto* employeur = liste.findChild<QComboBox*>(QStringLiteral("filtreEmployeur"));
        QVERIFY(employeur);
        const int index = employeur->findText(QStringLiteral("Opéra"));
        QVERIFY(index >= 0);
        employeur->setCurrentIndex(index);
        emit employeur->activated(index);
        QCOMPARE(liste.modele()->rowCount(), 1);

        const QString texte =
            exporter(liste, QStringLiteral("Contrats"), QStringLiteral("Liste des contrats")).join("\n");
        QVERIFY2(texte.contains("04/03/2024"), qPrintable(texte));
        QVERIFY(texte.contains("Totaux 5 60 2 500,00 € 1 950,00 €"));
        QVERIFY(!texte.contains("08/01/2024"));
    }

    void contratsSelonLesReglages()
    {
        m_reglages->ecrire(Reglages::Cle::ContratsImpressionsListe, false);
        ListeContrats liste(*m_environnement);
        liste.setDocument(documentOuvert(m_chemin, &liste));
        const QString texte =
            exporter(liste, QStringLiteral("Contrats"), QStringLiteral("Liste des contrats")).join("\n");
        QVERIFY2(texte.contains("Contrats : 2"), qPrintable(texte));
        QVERIFY(!texte.contains("08/01/2024"));
    }

    void employeurs()
    {
        m_reglages->ecrire(Reglages::Cle::EmployeursImpressionsListe, false);
        SectionEmployeurs section(*m_environnement);
        section.setDocument(documentOuvert(m_chemin, &section));
        const QString texte =
            exporter(section, QStringLiteral("Employeurs"), QStringLiteral("Liste des employeurs")).join("\n");
        QVERIFY2(texte.contains("Cumuls par employeur"), qPrintable(texte));
        QVERIFY(texte.contains("Totaux 8 96 3 734,56 € 2 900,50 €"));
        QVERIFY(!texte.contains("Courriel"));
    }

    void profil()
    {
        Horloge::fixer(QDate(2026, 11, 21));
        m_reglages->ecrire(Reglages::Cle::ProfilImpressionsRib, false);
        FenetreProfil fenetre(*m_environnement, documentOuvert(m_chemin, this));
        const QStringList pages =
            exporter(fenetre, QStringLiteral("Profil"), QStringLiteral("Relevé d'informations 21 11 2026"));
        Horloge::reinitialiser();
        QCOMPARE(pages.size(), 1);
        QVERIFY2(pages[0].contains("Nom : Dupont"), qPrintable(pages[0]));
        QVERIFY(!pages[0].contains("RELEVE D'IDENTITE BANCAIRE"));
    }

    void impression()
    {
        // The export's layout on a printer (here one that prints to a file), under the report's name.
        Rapport rapport;
        QVERIFY(composerRapportEmployeurs(rapport, m_chemin, ChoixImpressions()));
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

    void sansDocument_data()
    {
        QTest::addColumn<QString>("ecran");
        QTest::addColumn<QString>("titre");
        cas("contrats", "Contrats", "Exports PDF");
        cas("employeurs", "Employeurs", "Exports PDF");
        cas("profil", "Profil", "Gestion des PDF");
    }

    void sansDocument()
    {
        QFETCH(QString, ecran);
        QFETCH(QString, titre);
        std::unique_ptr<QWidget> fenetre;
        if (ecran == "Contrats")
            fenetre = std::make_unique<ListeContrats>(*m_environnement);
        else if (ecran == "Employeurs")
            fenetre = std::make_unique<SectionEmployeurs>(*m_environnement);
        else
            fenetre = std::make_unique<FenetreProfil>(*m_environnement, nullptr);
        fenetre->show();
        fenetre->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(fenetre.get()));
        // The two buttons, and Ctrl+P for the print button.
        for (const QString& bouton :
             {QStringLiteral("boutonExporterPdf"), QStringLiteral("boutonImprimer"), QStringLiteral("Ctrl+P")}) {
            m_dialogues = DialoguesScriptes();
            m_dialogues.choisirChemins({sortie()});
            if (bouton == QStringLiteral("Ctrl+P")) {
                QTest::keySequence(fenetre.get(), QKeySequence::Print);
            } else {
                auto* b = fenetre->findChild<QPushButton*>(bouton + ecran);
                QVERIFY(b);
                QTest::mouseClick(b, Qt::LeftButton);
            }
            // A shortcut clicks its button a moment later, as a mouse would.
            QTRY_COMPARE(m_dialogues.echanges().size(), 1);
            QVERIFY(m_dialogues.panneaux().isEmpty());
            QCOMPARE(m_dialogues.echanges()[0].titre, titre);
            QCOMPARE(m_dialogues.echanges()[0].message,
                     QStringLiteral("Avant toute nouvelle opération, il est nécessaire de créer un nouveau fichier, "
                                    "ou d'en ouvrir un."));
        }
    }

    void panneauImpressions()
    {
        FenetrePrincipale principale(*m_environnement);
        ControleurApplication controleur(*m_reglages, m_dialogues, principale);
        FenetrePreferences* preferences = controleur.showPreferences();
        QVERIFY(preferences);
        auto* liste = preferences->findChild<QListWidget*>();
        QVERIFY(liste);
        QVERIFY(!liste->findItems(QStringLiteral("Impressions"), Qt::MatchExactly).isEmpty());
        QVERIFY(preferences->findChild<QWidget*>(QStringLiteral("panneauImpressions")));
        preferences->close();
    }

    // The Pôle Emploi section exports the rights report of the choices on screen, with the
    // parts its settings keep; the monthly declaration has no report.
    void poleEmploi()
    {
        Horloge::fixer(QDate(2026, 11, 21));
        m_reglages->ecrire(Reglages::Cle::PoleEmploiImpressionsHeures, false);
        SectionPoleEmploi section(*m_environnement);
        section.setDocument(documentOuvert(m_chemin, &section));
        section.findChild<QDateEdit*>(QStringLiteral("simulationDu"))->setDate(QDate(2024, 1, 1));
        section.findChild<QDateEdit*>(QStringLiteral("simulationAu"))->setDate(QDate(2024, 12, 31));
        section.findChild<QComboBox*>(QStringLiteral("choixContratsDroits"))->setCurrentIndex(1);
        const QString texte =
            exporter(section, QStringLiteral("PoleEmploi"), QStringLiteral("Simulation des droits 21 11 2026"))
                .join("\n")
                .simplified();
        QVERIFY2(texte.contains("Du 01/01/2024 au 31/12/2024, contrats effectués"), qPrintable(texte));
        QVERIFY(texte.contains("Vous n'aurez effectué que 96 heure(s)"));
        QVERIFY(texte.contains("Période analysée"));
        QVERIFY(!texte.contains("Heures par emploi"));
        section.choisirMode(SectionPoleEmploi::Declaration);
        QVERIFY(!section.findChild<QPushButton*>(QStringLiteral("boutonExporterPdfPoleEmploi"))->isEnabled());
        Horloge::reinitialiser();
    }
};

CORVANE_MAIN_GUI(TestRapportsEcran)

#include "test_rapports_ecran.moc"
