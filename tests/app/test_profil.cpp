// The profile window driven through its widgets: each field is on disk as soon as it is
// left, the abatement box keeps to 0 % and 20 %, the date of birth's earliest day follows
// the setting, and the photo is chosen through the dialogs seam.

#include "app/kit/ChampChiffre.h"
#include "app/profil/FenetreProfil.h"
#include "commun/OutilsEcran.h"

#include <QImage>
#include <QTabWidget>

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

namespace {

QVariant colonne(const QString& chemin, const QString& nom, QString* type = nullptr)
{
    BaseDeDonnees base;
    if (!base.ouvrirEnLecture(chemin))
        return {};
    if (type)
        *type = base.texte(QStringLiteral("SELECT typeof(%1) FROM utilisateur;").arg(nom));
    return base.lignes(QStringLiteral("SELECT %1 AS v FROM utilisateur;").arg(nom)).value(0).value("v");
}

// Shows the tab that holds the widget, as the user would.
void montrer(QWidget& f, QWidget* w)
{
    auto* onglets = f.findChild<QTabWidget*>(QStringLiteral("ongletsProfil"));
    for (int i = 0; i < onglets->count(); ++i) {
        if (onglets->widget(i)->isAncestorOf(w))
            onglets->setCurrentIndex(i);
    }
}

void taper(QWidget& f, QLineEdit* edition, const QString& texte)
{
    montrer(f, edition);
    saisir(f, edition->objectName(), texte);
}
} // namespace

class TestProfilEcran : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<Banc> m_banc;
    QString m_chemin;

    std::unique_ptr<FenetreProfil> fenetre()
    {
        auto f = std::make_unique<FenetreProfil>(m_banc->environnement, m_banc->document(this));
        montrerActive(*f);
        return f;
    }

private slots:
    void init()
    {
        Horloge::fixer(QDate(2024, 6, 15));
        m_banc = std::make_unique<Banc>();
        m_chemin = m_banc->chemin;
    }

    void champAuClavier_data()
    {
        QTest::addColumn<QString>("widget");
        QTest::addColumn<QString>("texte");
        QTest::addColumn<QString>("colonne");
        cas("surname with a quote", "champNom", "L'Hermite", "u_nom");
        cas("first name emptied", "champPrenom", "", "u_prenom");
        cas("IBAN", "champIban", "FR76 3000 4000", "u_rib_iban");
    }

    void champAuClavier()
    {
        QFETCH(QString, widget);
        QFETCH(QString, texte);
        QFETCH(QString, colonne);
        auto f = fenetre();
        auto* edition = trouver<QLineEdit>(*f, widget);
        QVERIFY(edition);
        taper(*f, edition, texte);
        QTest::keyClick(edition, Qt::Key_Return);
        QVERIFY(f->isVisible()); // Enter saves the field; it does not close the window
        QString type;
        QCOMPARE(::colonne(m_chemin, colonne, &type).toString(), texte);
        QCOMPARE(type, QStringLiteral("text"));
    }

    void sauveEnQuittantLeChamp()
    {
        auto f = fenetre();
        auto* nom = trouver<QLineEdit>(*f, "champNom");
        taper(*f, nom, "Durand");
        QCOMPARE(colonne(m_chemin, "u_nom").toString(), QStringLiteral("Dupont")); // not yet
        trouver<QLineEdit>(*f, "champPrenom")->setFocus();
        QCOMPARE(colonne(m_chemin, "u_nom").toString(), QStringLiteral("Durand"));

        // Closing the window ends the field being typed, which is saved too.
        auto* pseudonyme = trouver<QLineEdit>(*f, "champPseudonyme");
        taper(*f, pseudonyme, "La Môme");
        f->reject();
        QCOMPARE(colonne(m_chemin, "u_pseudonyme").toString(), QStringLiteral("La Môme"));

        // Reopened, the window shows what is on disk.
        auto g = fenetre();
        QCOMPARE(trouver<QLineEdit>(*g, "champNom")->text(), QStringLiteral("Durand"));
    }

    void abattement()
    {
        auto f = fenetre();
        auto* liste = trouver<QComboBox>(*f, "champAbattement");
        auto* renoncer = trouver<QCheckBox>(*f, "champRenoncerAbattement");
        montrer(*f, liste);
        QCOMPARE(liste->currentText(), QStringLiteral("20 %"));
        QVERIFY(!renoncer->isChecked());
        liste->setCurrentIndex(2);
        emit liste->activated(2);
        QCOMPARE(colonne(m_chemin, "u_abattement").toInt(), 3);
        renoncer->click();
        QCOMPARE(colonne(m_chemin, "u_abattement").toInt(), 1);
        QCOMPARE(liste->currentText(), QStringLiteral("0 %"));
        renoncer->click(); // cleared after 25 %: 20 %, not 25 %
        QCOMPARE(colonne(m_chemin, "u_abattement").toInt(), 2);
        QCOMPARE(liste->currentText(), QStringLiteral("20 %"));
    }

    void choixEtCoches()
    {
        auto f = fenetre();
        auto* emploi = trouver<QComboBox>(*f, "champEmploi");
        emploi->setCurrentIndex(emploi->findText("Technicien"));
        emit emploi->activated(emploi->currentIndex());
        QCOMPARE(colonne(m_chemin, "u_emploi_id").toInt(), 3);
        auto* periodicite = trouver<QComboBox>(*f, "champAePeriodicite");
        QCOMPARE(periodicite->currentText(), QStringLiteral("Trimestrielles"));
        periodicite->setCurrentIndex(0);
        emit periodicite->activated(0);
        QCOMPARE(colonne(m_chemin, "u_autoentrepreneur_periode").toInt(), 1);
        auto* ae = trouver<QCheckBox>(*f, "champAutoEntrepreneur");
        montrer(*f, ae);
        ae->click();
        QCOMPARE(colonne(m_chemin, "u_autoentrepreneur_flag").toInt(), 1);
        auto* enfants = trouver<ChampNombre>(*f, "champEnfants");
        montrer(*f, enfants);
        enfants->setFocus();
        enfants->setValue(3);
        QTest::keyClick(enfants, Qt::Key_Return);
        QCOMPARE(colonne(m_chemin, "u_nbre_enfants").toInt(), 3);
    }

    // The earliest day of birth follows the setting.
    void dateDeNaissance()
    {
        m_banc->reglages.ecrire(Reglages::Cle::ProfilLimiteAge, 90);
        auto f = fenetre();
        auto* naissance = trouver<QDateEdit>(*f, "champNaissance");
        QCOMPARE(naissance->minimumDate(), QDate(1934, 6, 15));
        naissance->setFocus();
        naissance->setDate(QDate(1980, 1, 31));
        QTest::keyClick(naissance, Qt::Key_Return);
        QCOMPARE(colonne(m_chemin, "u_naissance").toString(), QStringLiteral("1980-01-31 00:00:00.000"));
    }

    void photo()
    {
        const QString image = g_maison->filePath("portrait.png");
        QImage(40, 50, QImage::Format_RGB32).save(image);
        m_banc->dialogues.choisirChemins({image, g_maison->filePath("pas-une-image.png")});
        auto f = fenetre();
        trouver<QPushButton>(*f, "boutonChoisirPhoto")->click();
        QCOMPARE(colonne(m_chemin, "u_photo").toString(), image);
        QCOMPARE(m_banc->dialogues.panneaux().last().titre, QStringLiteral("Choisir une photo"));
        QCOMPARE(trouver<QLabel>(*f, "photoProfil")->toolTip(), image);
        // A file that is not a picture is refused.
        trouver<QPushButton>(*f, "boutonChoisirPhoto")->click();
        QCOMPARE(colonne(m_chemin, "u_photo").toString(), image);
        QCOMPARE(m_banc->dialogues.echanges().last().message,
                 QStringLiteral("Ce fichier n'est pas une image lisible."));
        trouver<QPushButton>(*f, "boutonRetirerPhoto")->click();
        QString type;
        QCOMPARE(colonne(m_chemin, "u_photo", &type).toString(), QString());
        QCOMPARE(type, QStringLiteral("text"));
    }

    void sansDocument()
    {
        FenetreProfil f(m_banc->environnement, nullptr);
        QVERIFY(!f.findChild<QTabWidget*>("ongletsProfil")->isEnabled());
    }
};

CORVANE_MAIN_GUI(TestProfilEcran)

#include "test_profil.moc"
