// Periods and the new-period assistant: saving and listing, the duplicate rule, the
// defaults by annex before and after 1 August 2016 and the automatic profile update (the
// management window's refusals are tested on screen, test_periodes_ecran).

#include "commun/Reference.h"
#include "records/NouvellePeriode.h"
#include "records/Periodes.h"
#include "records/Profil.h"
#include "store/Horloge.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

class TestPeriodes : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    // The document's first period runs from 2024-03-01.
    QString document(int emploiId = 1, const QDate& ouverture = QDate(2024, 3, 1))
    {
        NouveauDocument p = parametresParDefaut(m_dossier.filePath(QStringLiteral("p%1.cv4").arg(++m_numero)));
        p.emploiId = emploiId;
        p.dateOuvertureDesDroits = ouverture;
        const QString chemin = creerDocument(p);
        ouvrirDocument(chemin);
        return chemin;
    }

    static Periode periode(const QDate& debut, const QDate& fin, const QString& libelle)
    {
        Periode p;
        p.debut = debut;
        p.fin = fin;
        p.libelle = libelle;
        return p;
    }

private slots:
    void init() { Horloge::fixer(QDate(2024, 6, 15)); }

    void enregistrementEtListes()
    {
        const QString chemin = document();
        Periodes periodes(chemin);
        QCOMPARE(periodes.compteLesPeriodes(), 1);
        Periode p = periode(QDate(2025, 3, 1), QDate(2026, 2, 28), "Période d'après");
        p.notes = "Notes de l'été";
        p.conges = 3;
        p.franchiseSalaires = 5;
        p.attente = 0;
        p.id = periodes.enregistrePeriode(p);
        QCOMPARE(p.id, 2);
        // Saved with the defaults: 7 days of waiting, no leave, no wage allowance.
        QCOMPARE(periodes.enregistrePeriode(periode(QDate(2022, 1, 1), QDate(2022, 12, 31), "L'ancienne")), 3);
        QCOMPARE(periodes.nombreDePeriodes(), 3);

        // Newest first, with every display key.
        const Lignes liste = periodes.listeLesPeriodes();
        QStringList cles = Periodes::clesListe();
        cles.sort();
        QCOMPARE(liste.value(0).keys(), cles);
        CORVANE_COMPARER_REFERENCE(texteLignes(liste), "periodes_liste.txt");

        const Lignes toutes = periodes.toutesLesPeriodes();
        QCOMPARE(toutes.first().value("Libelle").toString(), QStringLiteral("L'ancienne")); // oldest first
        QCOMPARE(periodes.retrouvePeriodeId("L'ancienne"), 3);

        p.libelle = "Période d'hiver";
        p.debut = QDate(2025, 3, 2);
        p.notes = QString();
        QVERIFY(periodes.modifiePeriode(p));
        CORVANE_COMPARER_REFERENCE(texteRequete(chemin, "SELECT * FROM periodes WHERE p_id = 2;"),
                                   "periode_modifiee.txt");
        QCOMPARE(periodes.periode(2)->libelle, QStringLiteral("Période d'hiver"));

        QVERIFY(periodes.supprimePeriode(3));
        QCOMPARE(periodes.compteLesPeriodes(), 2);
        QVERIFY(!periodes.periode(3));
    }

    void defauts_data()
    {
        QTest::addColumn<QDate>("aujourdhui");
        QTest::addColumn<int>("emploiId");
        QTest::addColumn<QDate>("fin");
        // Artists: 319 days before 1 August 2016, 366 from then on; the others: 304, then 366
        // (both annexes on both sides of the switch: cli_enregistrements.txt).
        cas("worker, 2015", QDate(2015, 1, 10), 2, QDate(2015, 11, 9));
        cas("general regime takes the technicians' annex", QDate(2015, 1, 10), 4, QDate(2015, 11, 9));
        cas("artist, leap year 2024", QDate(2024, 2, 29), 1, QDate(2025, 2, 28));
    }

    void defauts()
    {
        QFETCH(QDate, aujourdhui);
        QFETCH(int, emploiId);
        QFETCH(QDate, fin);
        Horloge::fixer(aujourdhui);
        const NouvellePeriode assistant(document(emploiId));
        QCOMPARE(assistant.periode().debut, aujourdhui);
        QCOMPARE(assistant.periode().fin, fin);
        QCOMPARE(
            assistant.periode().libelle,
            QStringLiteral("Période du %1 au %2").arg(aujourdhui.toString("dd/MM/yyyy"), fin.toString("dd/MM/yyyy")));
        QCOMPARE(assistant.periode().attente, 7);
        QCOMPARE(assistant.srj(), 0.0);
        QCOMPARE(assistant.taux(), 0.0);
        QVERIFY(!assistant.majAutomatique());
    }

    void lesDatesEntrainentLeLibelle()
    {
        NouvellePeriode assistant(document());
        assistant.changeDebut(QDate(2024, 9, 1));
        QCOMPARE(assistant.periode().fin, QDate(2025, 9, 1));
        QCOMPARE(assistant.periode().libelle, QStringLiteral("Période du 01/09/2024 au 01/09/2025"));
        assistant.changeFin(QDate(2025, 8, 31));
        QCOMPARE(assistant.periode().libelle, QStringLiteral("Période du 01/09/2024 au 31/08/2025"));
        // A label of the user's own stays.
        assistant.changeLibelle("Ma période d'automne");
        assistant.changeDebut(QDate(2024, 9, 2));
        QCOMPARE(assistant.periode().libelle, QStringLiteral("Ma période d'automne"));
    }

    void doublon_data()
    {
        QTest::addColumn<QDate>("debut");
        QTest::addColumn<QDate>("fin");
        QTest::addColumn<QString>("libelle");
        QTest::addColumn<QString>("refus");
        // The document's period: 2024-03-01 to 2025-03-01.
        cas("same dates, another label", QDate(2024, 3, 1), QDate(2025, 3, 1), "Une autre",
            "Cette période existe déjà.");
        cas("start one day later", QDate(2024, 3, 2), QDate(2025, 3, 1), "x", QString());
        cas("end one day earlier", QDate(2024, 3, 1), QDate(2025, 2, 28), "x", QString());
    }

    void doublon()
    {
        QFETCH(QDate, debut);
        QFETCH(QDate, fin);
        QFETCH(QString, libelle);
        QFETCH(QString, refus);
        const QString chemin = document();
        NouvellePeriode assistant(chemin);
        assistant.changeDebut(debut);
        assistant.changeFin(fin);
        assistant.changeLibelle(libelle);
        QCOMPARE(NouvellePeriode::titre(), QStringLiteral("Gestion des périodes"));
        const QString avant = dump(chemin);
        QString message;
        const int id = assistant.enregistre(&message);
        QCOMPARE(message, refus);
        if (refus.isEmpty()) {
            QCOMPARE(id, 2);
            QCOMPARE(Periodes(chemin).compteLesPeriodes(), 2);
        } else {
            QCOMPARE(id, 0);
            QCOMPARE(dump(chemin), avant); // nothing written
        }
    }

    void miseAJourAutomatique_data()
    {
        QTest::addColumn<bool>("active");
        cas("switch on", true);
        cas("switch off", false);
    }

    void miseAJourAutomatique()
    {
        QFETCH(bool, active);
        const QString chemin = document();
        NouvellePeriode assistant(chemin);
        assistant.changeDebut(QDate(2025, 3, 10));
        assistant.changeSrj(101.456);
        assistant.changeTaux(58.444);
        assistant.changeMajAutomatique(active);
        assistant.changeNotes("Renouvellement d'été");
        assistant.changeJours(2, 4, 7);
        const int id = assistant.enregistre();
        QVERIFY(id > 0);
        const Periode p = *Periodes(chemin).periode(id);
        QCOMPARE(p.notes, QStringLiteral("Renouvellement d'été"));
        QCOMPARE(p.franchiseSalaires, 4);
        Profil profil(chemin);
        QVERIFY(profil.initDepuisLaTableV4());
        QCOMPARE(profil.donnees().dateDebutDossier, active ? QDate(2025, 3, 10) : QDate(2024, 3, 1));
        QCOMPARE(profil.donnees().srjValide, active ? 101.46 : 0.0);
        QCOMPARE(profil.donnees().tauxValide, active ? 58.44 : 57.4);
        // The active period is left as it was.
        QCOMPARE(profil.donnees().periodeEnCours, 1);
    }

    void srjDemande_data()
    {
        QTest::addColumn<QDate>("ouverture");
        QTest::addColumn<bool>("demande");
        cas("rights opened in 2006", QDate(2006, 5, 1), true);
        cas("31 March 2007", QDate(2007, 3, 31), true);
        cas("1 April 2007", QDate(2007, 4, 1), false);
        cas("2024", QDate(2024, 3, 1), false);
    }

    void srjDemande()
    {
        QFETCH(QDate, ouverture);
        QFETCH(bool, demande);
        QCOMPARE(NouvellePeriode(document(1, ouverture)).srjDemande(), demande);
    }
};

QTEST_GUILESS_MAIN(TestPeriodes)
#include "test_periodes.moc"
