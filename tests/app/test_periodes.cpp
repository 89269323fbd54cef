// The new-period assistant and the periods' window driven through their widgets, with
// the document checked on disk: defaults, the duplicate refusal, the automatic profile
// update, and the management window's refusals and warning.

#include "app/kit/ChampChiffre.h"
#include "app/periodes/AssistantNouvellePeriode.h"
#include "app/periodes/FenetrePeriodes.h"
#include "commun/OutilsEcran.h"

using namespace corvane;
using namespace corvane::app;
using namespace corvane::test;

class TestPeriodesEcran : public QObject
{
    Q_OBJECT

private:
    // The document's period runs from 2024-03-01 to 2025-03-01.
    std::unique_ptr<Banc> m_banc;
    QString m_chemin;
    DialoguesScriptes* m_dialogues = nullptr;

private slots:
    void init()
    {
        Horloge::fixer(QDate(2024, 6, 15));
        m_banc = std::make_unique<Banc>();
        m_chemin = m_banc->chemin;
        m_dialogues = &m_banc->dialogues;
    }

    void defauts()
    {
        AssistantNouvellePeriode a(m_banc->environnement, *documentOuvert(m_chemin, this));
        a.show();
        auto* debut = trouver<QDateEdit>(a, "champDebut");
        auto* fin = trouver<QDateEdit>(a, "champFin");
        QCOMPARE(debut->date(), QDate(2024, 6, 15));
        QCOMPARE(fin->date(), QDate(2025, 6, 15)); // an artist, 366 days
        QCOMPARE(trouver<QLineEdit>(a, "champLibelle")->text(), QStringLiteral("Période du 15/06/2024 au 15/06/2025"));
        // Rights opened in 2024: no reference daily wage to give.
        QVERIFY(!trouver<ChampMontant>(a, "champSrj")->isVisibleTo(&a));
        // The end and the label follow the start.
        debut->setDate(QDate(2024, 9, 1));
        QCOMPARE(fin->date(), QDate(2025, 9, 1));
        QCOMPARE(trouver<QLineEdit>(a, "champLibelle")->text(), QStringLiteral("Période du 01/09/2024 au 01/09/2025"));
    }

    void doublonRefuse()
    {
        AssistantNouvellePeriode a(m_banc->environnement, *documentOuvert(m_chemin, this));
        a.show();
        QSignalSpy enregistree(&a, &AssistantNouvellePeriode::periodeEnregistree);
        trouver<QDateEdit>(a, "champDebut")->setDate(QDate(2024, 3, 1));
        trouver<QDateEdit>(a, "champFin")->setDate(QDate(2025, 3, 1));
        trouver<QLineEdit>(a, "champLibelle")->setText("Une autre étiquette");
        trouver<QPushButton>(a, "boutonEnregistrerPeriode")->click();
        QCOMPARE(m_dialogues->echanges().last().titre, QStringLiteral("Gestion des périodes"));
        QCOMPARE(m_dialogues->echanges().last().message, QStringLiteral("Cette période existe déjà."));
        QCOMPARE(m_dialogues->echanges().last().boutons, QStringList{"Fermer"});
        QVERIFY(a.isVisible());
        QCOMPARE(enregistree.count(), 0);
        QCOMPARE(nombre(m_chemin, "SELECT COUNT(*) FROM periodes;"), 1);

        // One day less: accepted, and the window closes.
        trouver<QDateEdit>(a, "champFin")->setDate(QDate(2025, 2, 28));
        trouver<QPushButton>(a, "boutonEnregistrerPeriode")->click();
        QCOMPARE(enregistree.count(), 1);
        QVERIFY(!a.isVisible());
        QCOMPARE(a.result(), int(QDialog::Accepted));
        QCOMPARE(valeur(m_chemin, "SELECT p_libelle FROM periodes WHERE p_id = 2;"),
                 QStringLiteral("Une autre étiquette"));
    }

    void miseAJourDuProfil()
    {
        AssistantNouvellePeriode a(m_banc->environnement, *documentOuvert(m_chemin, this));
        a.show();
        trouver<QDateEdit>(a, "champDebut")->setDate(QDate(2025, 3, 2));
        trouver<QCheckBox>(a, "champMajProfil")->setChecked(true);
        trouver<ChampMontant>(a, "champTaux")->setValue(61.25);
        trouver<ChampNombre>(a, "champConges")->setValue(4);
        QTest::keyClick(trouver<QLineEdit>(a, "champLibelle"), Qt::Key_Return); // Enter saves
        QCOMPARE(valeur(m_chemin, "SELECT u_date_debut_dossier FROM utilisateur;"),
                 QStringLiteral("2025-03-02 00:00:00.000"));
        QCOMPARE(valeur(m_chemin, "SELECT u_taux_valide FROM utilisateur;"), QStringLiteral("61.25"));
        QCOMPARE(nombre(m_chemin, "SELECT p_conges FROM periodes WHERE p_id = 2;"), 4);
    }

    void gestion()
    {
        executerSql(m_chemin, "INSERT INTO periodes (p_date_debut, p_date_fin, p_libelle, p_notes) VALUES "
                              "('2022-01-01 00:00:00.000', '2022-12-31 00:00:00.000', 'L''ancienne', '');");
        FenetrePeriodes f(m_banc->environnement, *documentOuvert(m_chemin, this));
        montrerActive(f);
        auto* liste = trouver<QTableView>(f, "listePeriodes");
        QCOMPARE(liste->model()->rowCount(), 2);
        QCOMPARE(liste->model()->index(0, 1).data().toString(), QStringLiteral("Période du 01/03/2024 au 01/03/2025"));
        QCOMPARE(liste->model()->index(0, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));

        // The active period can neither be deleted nor left without a successor.
        f.selectionner(1);
        trouver<QPushButton>(f, "boutonSupprimerPeriode")->click();
        QCOMPARE(m_dialogues->echanges().last().message,
                 QStringLiteral("Cette période est en cours d'utilisation, vous ne pouvez pas la supprimer."));
        liste->model()->setData(liste->model()->index(0, 0), Qt::Unchecked, Qt::CheckStateRole);
        QCOMPARE(m_dialogues->echanges().last().message, QStringLiteral("Au moins une période doit être active."));
        QCOMPARE(nombre(m_chemin, "SELECT u_periode_en_cours FROM utilisateur;"), 1);

        // Editing it warns first; "Annuler" keeps it as it was.
        trouver<QLineEdit>(f, "champLibelle")->setText("Période d'été");
        m_dialogues->repondre({"Annuler"});
        trouver<QPushButton>(f, "boutonEnregistrerPeriode")->click();
        QCOMPARE(m_dialogues->echanges().last().message,
                 QStringLiteral("Vous allez modifier la période en cours d'utilisation..."));
        QCOMPARE(valeur(m_chemin, "SELECT p_libelle FROM periodes WHERE p_id = 1;"),
                 QStringLiteral("Période du 01/03/2024 au 01/03/2025"));
        trouver<QLineEdit>(f, "champLibelle")->setText("Période d'été");
        m_dialogues->repondre({"Modifier"});
        trouver<QPushButton>(f, "boutonEnregistrerPeriode")->click();
        QCOMPARE(valeur(m_chemin, "SELECT p_libelle FROM periodes WHERE p_id = 1;"), QStringLiteral("Période d'été"));

        // Ticking another period makes it the active one; the former can then go.
        liste->model()->setData(liste->model()->index(1, 0), Qt::Checked, Qt::CheckStateRole);
        QCOMPARE(nombre(m_chemin, "SELECT u_periode_en_cours FROM utilisateur;"), 2);
        f.selectionner(1);
        m_dialogues->repondre({"Supprimer"});
        liste->setFocus();
        QTest::keyClick(liste, Qt::Key_Delete);
        QCOMPARE(nombre(m_chemin, "SELECT COUNT(*) FROM periodes;"), 1);
        QCOMPARE(liste->model()->rowCount(), 1);
    }
};

CORVANE_MAIN_GUI(TestPeriodesEcran)

#include "test_periodes.moc"
