// The PDF side of the program: the offer to show an export, the viewer window, and
// the "Impressions" preferences pane.

#include "app/ApercuPdf.h"
#include "app/FenetrePreferences.h"
#include "app/PanneauPreferencesImpressions.h"
#include "exchange/ExportPdf.h"
#include "exchange/Rapport.h"
#include "store/Dialogues.h"
#include "store/Reglages.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::app;

class TestApercuPdf : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    QString m_pdf;
    int m_numero = 0;

    QString ini() { return m_dossier.filePath(QStringLiteral("reglages%1.ini").arg(++m_numero)); }

private slots:
    void initTestCase()
    {
        Rapport r;
        r.titre(QStringLiteral("Contrats"));
        QList<QStringList> lignes;
        for (int i = 0; i < 120; ++i)
            lignes << QStringList{QStringLiteral("Ligne %1").arg(i), Rapport::montant(i)};
        r.tableau({ColonneRapport::texte("Libellé"), ColonneRapport::montant("Montant", 20)}, lignes);
        m_pdf = m_dossier.filePath(QStringLiteral("Contrats.pdf"));
        QVERIFY(ExportPdf::ecrirePdf(r.document(), m_pdf));
    }

    void proposition_data()
    {
        QTest::addColumn<QString>("reponse");
        QTest::addColumn<bool>("fenetre");
        QTest::newRow("afficher") << "Afficher" << true;
        QTest::newRow("fermer") << "Fermer" << false;
    }

    void proposition()
    {
        QFETCH(QString, reponse);
        QFETCH(bool, fenetre);
        if (fenetre && !ApercuPdf::disponible())
            QSKIP("built without Qt PDF Widgets: the system's viewer would open");
        DialoguesScriptes dialogues({reponse});
        QPointer<ApercuPdf> apercu = proposerAffichage(m_pdf, dialogues);
        QCOMPARE(dialogues.echanges().size(), 1);
        QCOMPARE(dialogues.echanges()[0].titre, QStringLiteral("Exports PDF"));
        QCOMPARE(dialogues.echanges()[0].message,
                 QStringLiteral("Le fichier PDF a été enregistré :\n%1\n\nSouhaitez-vous l'afficher ?").arg(m_pdf));
        QCOMPARE(dialogues.echanges()[0].boutons, (QStringList{"Afficher", "Fermer"}));
        QCOMPARE(!apercu.isNull(), fenetre);
        if (apercu) {
            QVERIFY(apercu->isVisible());
            QVERIFY(apercu->windowTitle().contains("Contrats.pdf"));
            apercu->close();
            QTRY_VERIFY(apercu.isNull()); // deleted when closed
        }
    }

    void rienAProposerSansFichier()
    {
        DialoguesScriptes dialogues({"Afficher"});
        QVERIFY(!proposerAffichage(QString(), dialogues));
        QVERIFY(dialogues.echanges().isEmpty());
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
        const QString chemin = m_dossier.filePath(QStringLiteral("abime.pdf"));
        QFile f(chemin);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("pas un PDF");
        f.close();
        ApercuPdf apercu(chemin);
        QVERIFY(!apercu.estCharge());
        QCOMPARE(apercu.nombreDePages(), 0);
        auto* message = apercu.findChild<QLabel*>("messageApercu");
        QVERIFY(message);
        QVERIFY(!apercu.findChild<QAction*>("pageSuivante")->isEnabled());
    }

    void panneauImpressions_data()
    {
        QTest::addColumn<QString>("cle");
        for (const auto& groupe : PanneauPreferencesImpressions::groupes())
            for (const auto& i : groupe.interrupteurs)
                QTest::newRow(qPrintable(Reglages::nom(i.cle))) << Reglages::nom(i.cle);
    }

    void panneauImpressions()
    {
        QFETCH(QString, cle);
        const QString fichier = ini();
        Reglages reglages(fichier);
        FenetrePreferences fenetre(reglages);
        auto* panneau = new PanneauPreferencesImpressions(reglages);
        fenetre.ajouterPanneau(QStringLiteral("Impressions"), panneau);
        fenetre.show();
        fenetre.afficherPanneau(QStringLiteral("Impressions"));
        QSignalSpy modifies(&fenetre, &FenetrePreferences::reglagesModifies);

        auto* boite = panneau->findChild<QCheckBox*>(cle);
        QVERIFY(boite);
        QVERIFY(boite->isVisible());
        QVERIFY(boite->isChecked()); // printed by default
        boite->click();
        QCOMPARE(modifies.size(), 1);
        QCOMPARE(QSettings(fichier, QSettings::IniFormat).value(cle).toBool(), false);
        boite->click();
        QCOMPARE(QSettings(fichier, QSettings::IniFormat).value(cle).toBool(), true);

        // Shown as stored.
        QSettings(fichier, QSettings::IniFormat).setValue(cle, false);
        Reglages relus(fichier);
        PanneauPreferencesImpressions autre(relus);
        QVERIFY(!autre.findChild<QCheckBox*>(cle)->isChecked());
    }
};

QTEST_MAIN(TestApercuPdf)
#include "test_apercu_pdf.moc"
