// The preferences window driven through its widgets, with every setting checked in
// the INI file on disk.

#include "app/FenetrePreferences.h"
#include "app/PanneauPreferencesAlertes.h"
#include "app/PanneauPreferencesGeneral.h"
#include "app/PanneauPreferencesSauvegardes.h"
#include "commun/OutilsEcran.h"

#include <QSpinBox>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

namespace {

// A pane of a later issue, which tells its changes the usual way.
class PanneauEssai : public QWidget
{
    Q_OBJECT
signals:
    void modifie();
};
} // namespace

class TestPreferences : public QObject
{
    Q_OBJECT

private:
    int m_numero = 0;
    QString m_ini;
    std::unique_ptr<Reglages> m_reglages;

    // The settings as written in the file, read as text: what another run would find.
    QMap<QString, QString> ini() const
    {
        QFile f(m_ini);
        if (!f.open(QIODevice::ReadOnly))
            return {};
        QMap<QString, QString> valeurs;
        for (const QString& ligne : QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'))) {
            const qsizetype egal = ligne.indexOf(QLatin1Char('='));
            if (egal > 0 && !ligne.startsWith(QLatin1Char('[')))
                valeurs.insert(ligne.left(egal).trimmed(), ligne.mid(egal + 1).trimmed());
        }
        return valeurs;
    }

    std::unique_ptr<FenetrePreferences> fenetre()
    {
        auto f = std::make_unique<FenetrePreferences>(*m_reglages);
        f->show();
        return f;
    }

private slots:
    void init()
    {
        Horloge::fixer(QDate(2024, 3, 12));
        m_ini = g_maison->filePath(QStringLiteral("preferences%1.ini").arg(++m_numero));
        m_reglages = std::make_unique<Reglages>(m_ini);
    }

    // A pane added later is listed, shown and relayed; showing the values writes nothing.
    void panneaux()
    {
        auto f = fenetre();
        auto* essai = new PanneauEssai;
        f->ajouterPanneau(QStringLiteral("Couleurs"), essai);
        QCOMPARE(f->titresPanneaux(), (QStringList{"Général", "Sauvegardes", "Alertes", "Couleurs"}));
        f->afficherPanneau(QStringLiteral("Couleurs"));
        QVERIFY(essai->isVisible());
        QVERIFY(!f->panneauGeneral()->isVisible());
        QSignalSpy modifies(f.get(), &FenetrePreferences::reglagesModifies);
        emit essai->modifie();
        QCOMPARE(modifies.size(), 1);
        QVERIFY(ini().isEmpty());
    }

    void casesACocher_data()
    {
        QTest::addColumn<QString>("nom");
        QTest::addColumn<QString>("ecrit");
        QTest::addColumn<bool>("cocheeAuDepart");
        cas("ouvrir au démarrage", "prefsDemarrage", "0", true);
        cas("dernière section", "OpenLastTab", "false", true);
        cas("assistant au démarrage", "ShowAssistant", "1", false);
        cas("nom", "Configuration_FichierSauvegardeNom", "false", true);
        cas("alertes", "Configuration_ActiverAlertes", "false", true);
    }

    void casesACocher()
    {
        QFETCH(QString, nom);
        QFETCH(QString, ecrit);
        QFETCH(bool, cocheeAuDepart);
        auto f = fenetre();
        QSignalSpy modifies(f.get(), &FenetrePreferences::reglagesModifies);
        auto* boite = trouver<QCheckBox>(*f, nom);
        QVERIFY(boite);
        QCOMPARE(boite->isChecked(), cocheeAuDepart);
        boite->click();
        QCOMPARE(ini().value(nom), ecrit);
        QCOMPARE(modifies.size(), 1);
        boite->click();
        QCOMPARE(QVariant(ini().value(nom)).toBool(), cocheeAuDepart);
    }

    void compteurs_data()
    {
        QTest::addColumn<QString>("nom");
        QTest::addColumn<QString>("frappe");
        QTest::addColumn<QString>("ecrit");
        cas("jours entre deux sauvegardes", "Configuration_FichierSauvegardeJours", "45", "45");
        cas("début du rappel", "Configuration_AlerteActualisationDebut", "25", "25");
        cas("un jour du mois au plus 31", "Configuration_AlerteActualisationDebut", "40", "4");
    }

    void compteurs()
    {
        QFETCH(QString, nom);
        QFETCH(QString, frappe);
        QFETCH(QString, ecrit);
        auto f = fenetre();
        auto* compteur = trouver<QSpinBox>(*f, nom);
        QVERIFY(compteur);
        f->afficherPanneau(nom.contains("Alerte") ? QStringLiteral("Alertes") : QStringLiteral("Sauvegardes"));
        compteur->setFocus();
        QTest::keyClick(compteur, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(compteur, frappe);
        QTest::keyClick(compteur, Qt::Key_Return);
        QCOMPARE(ini().value(nom), ecrit);
    }

    void listesDeroulantes_data()
    {
        QTest::addColumn<QString>("nom");
        QTest::addColumn<QString>("choix");
        QTest::addColumn<QString>("ecrit");
        cas("apparence sombre", "Apparence", "Sombre", "sombre");
        cas("date jour mois année", "SaveDateFormat", "jour, mois, année (jjmmaaaa)", "1");
        cas("contrats après 2 mois", "ContractsAlertRate", "2 mois", "3");
    }

    void listesDeroulantes()
    {
        QFETCH(QString, nom);
        QFETCH(QString, choix);
        QFETCH(QString, ecrit);
        auto f = fenetre();
        auto* liste = trouver<QComboBox>(*f, nom);
        QVERIFY(liste);
        const int index = liste->findText(choix);
        QVERIFY2(index >= 0, qPrintable(choix));
        liste->setCurrentIndex(index);
        QCOMPARE(ini().value(nom), ecrit);
    }

    // A stored value is shown as its entry, one the list does not know as the default, and
    // showing it does not rewrite it.
    void valeurStockee_data()
    {
        QTest::addColumn<QString>("nom");
        QTest::addColumn<QVariant>("enregistre");
        QTest::addColumn<QString>("affiche");
        cas("contrats, 2", "ContractsAlertRate", QVariant(2), "1 mois");
        cas("contrats, 7 compte comme 0", "ContractsAlertRate", QVariant(7), "7 jours");
        cas("contrats, -1 compte comme 0", "ContractsAlertRate", QVariant(-1), "7 jours");
        cas("apparence inconnue", "Apparence", QVariant("violette"), "Celle du système");
    }

    void valeurStockee()
    {
        QFETCH(QString, nom);
        QFETCH(QVariant, enregistre);
        QFETCH(QString, affiche);
        QSettings(m_ini, QSettings::IniFormat).setValue(nom, enregistre);
        auto f = fenetre();
        QCOMPARE(trouver<QComboBox>(*f, nom)->currentText(), affiche);
        QCOMPARE(ini().value(nom), enregistre.toString());
    }

    void apercuDuNomDeSauvegarde_data()
    {
        QTest::addColumn<bool>("prefixe");
        QTest::addColumn<bool>("nom");
        QTest::addColumn<bool>("date");
        QTest::addColumn<int>("format");
        QTest::addColumn<QString>("attendu");
        cas("tout", true, true, true, 0, "Corvane_Dupont_20240312.cv4");
        cas("jour mois année, sans préfixe", false, true, true, 1, "Dupont_12032024.cv4");
        cas("sans date", true, true, false, 0, "Corvane_Dupont.cv4");
    }

    void apercuDuNomDeSauvegarde()
    {
        QFETCH(bool, prefixe);
        QFETCH(bool, nom);
        QFETCH(bool, date);
        QFETCH(int, format);
        QFETCH(QString, attendu);
        const QString chemin =
            creerDocument(parametresParDefaut(g_maison->filePath(QStringLiteral("apercu%1.cv4").arg(m_numero))));
        auto f = fenetre();
        f->setFile(chemin);
        f->afficherPanneau(QStringLiteral("Sauvegardes"));
        auto* apercu = trouver<QLabel>(*f, "apercuNomSauvegarde");
        QVERIFY(apercu);
        QCOMPARE(apercu->text(), QStringLiteral("Corvane_Dupont_20240312.cv4"));
        trouver<QCheckBox>(*f, "Configuration_FichierSauvegardePrefixe")->setChecked(prefixe);
        trouver<QCheckBox>(*f, "Configuration_FichierSauvegardeNom")->setChecked(nom);
        trouver<QCheckBox>(*f, "Configuration_FichierSauvegardeDate")->setChecked(date);
        trouver<QComboBox>(*f, "SaveDateFormat")->setCurrentIndex(format);
        QCOMPARE(apercu->text(), attendu);
        QCOMPARE(f->panneauSauvegardes()->apercu(), attendu);
        QCOMPARE(trouver<QComboBox>(*f, "SaveDateFormat")->isEnabled(), date);
    }

    // The storage folder, typed or chosen: one that does not exist, or a file, is refused and
    // the setting stays; an existing folder is kept.
    void dossierDeStockage_data()
    {
        QTest::addColumn<bool>("parLeBouton");
        QTest::addColumn<QString>("nom"); // under the temporary home
        QTest::addColumn<bool>("accepte");
        cas("typed, missing", false, "nulle part", false);
        cas("typed, a file", false, "un-fichier.txt", false);
        cas("typed, existing", false, "Mes documents", true);
        cas("chosen, missing", true, "disparu", false);
        cas("chosen, existing", true, "Mes documents", true);
    }

    void dossierDeStockage()
    {
        QFETCH(bool, parLeBouton);
        QFETCH(QString, nom);
        QFETCH(bool, accepte);
        QVERIFY(QDir().mkpath(g_maison->filePath("Mes documents")));
        ecrire(g_maison->filePath("un-fichier.txt"), "x");
        const QString ancien = g_maison->path();
        const QString chemin = g_maison->filePath(nom);
        m_reglages->ecrire(Reglages::Cle::PrefsStockage, ancien);
        m_reglages->synchroniser();
        auto f = fenetre();
        QSignalSpy modifies(f.get(), &FenetrePreferences::reglagesModifies);
        auto* ligne = trouver<QLineEdit>(*f, "prefsStockage");
        QCOMPARE(ligne->text(), ancien);
        if (parLeBouton) {
            QString titre;
            f->panneauGeneral()->setChoixDossier([&](const QString& t, const QString&) {
                titre = t;
                return chemin;
            });
            cliquer(*f, "boutonChoisirStockage");
            QCOMPARE(titre, QStringLiteral("Choisir le dossier de stockage"));
        } else {
            ligne->selectAll();
            QTest::keyClicks(ligne, chemin);
            QTest::keyClick(ligne, Qt::Key_Return);
        }
        auto* erreur = trouver<QLabel>(*f, "erreurStockage");
        QCOMPARE(erreur->isVisible(), !accepte);
        QCOMPARE(ini().value("prefsStockage"), accepte ? chemin : ancien);
        QCOMPARE(m_reglages->texte(Reglages::Cle::PrefsStockage), accepte ? chemin : ancien);
        QCOMPARE(modifies.size(), accepte ? 1 : 0);
    }

    void lesAlertesCoupeesGrisentLeurReglage()
    {
        auto f = fenetre();
        f->afficherPanneau(QStringLiteral("Alertes"));
        auto* debut = trouver<QSpinBox>(*f, "Configuration_AlerteActualisationDebut");
        QVERIFY(debut->isEnabled());
        trouver<QCheckBox>(*f, "Configuration_ActiverAlertes")->click();
        QVERIFY(!debut->isEnabled());
        QVERIFY(!trouver<QComboBox>(*f, "ContractsAlertRate")->isEnabled());
    }
};

CORVANE_MAIN_GUI(TestPreferences)

#include "test_preferences.moc"
