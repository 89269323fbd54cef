// The contract form's derivations and checks: days and hours per job, the grouped
// periods before the 2016 switch (an instant at +01:00), the done box, templates, the "AP"
// box, type changes and abatements, the self-employed computation, the checks in their
// order, and the save with its sickness-overlap warning and the expense its template asks for.

#include "records/Contrats.h"
#include "records/ContratsModeles.h"
#include "records/OutilsContrats.h"
#include "store/Horloge.h"
#include "store/SaisieFrancaise.h"
#include "unemployment/SaisieContrat.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

namespace {

SaisieContrat saisie(int emploiId, const QDate& debut, const QDate& fin)
{
    SaisieContrat s;
    s.emploiId = emploiId;
    s.choisirDates(SaisieContrat::instantDuSelecteur(debut), SaisieContrat::instantDuSelecteur(fin));
    return s;
}

} // namespace

class TestSaisieContrat : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    QString nouveauDocument(int emploiId = 1)
    {
        return documentContrats(m_dossier, QStringLiteral("s%1.cv4").arg(++m_numero), emploiId);
    }

private slots:
    void init() { Horloge::fixer(QDate(2024, 6, 15)); }

    void heuresParJour_data()
    {
        QTest::addColumn<QString>("emploi");
        QTest::addColumn<int>("heures");
        cas("Artiste", "Artiste", 12);
        cas("Ouvrier", "Ouvrier", 8);
        cas("Technicien", "Technicien", 8);
        cas("Régime Général", "Régime Général", 12);
        cas("Auto Entrepreneur", "Auto Entrepreneur", 12);
        cas("wrong case", "technicien", 12);
    }

    void heuresParJour()
    {
        QFETCH(QString, emploi);
        QFETCH(int, heures);
        QCOMPARE(SaisieContrat::heuresParJourPour(emploi), heures);
    }

    void joursEtHeures_data()
    {
        QTest::addColumn<int>("emploi");
        QTest::addColumn<QDate>("debut");
        QTest::addColumn<QDate>("fin");
        QTest::addColumn<int>("jours");
        QTest::addColumn<int>("heures");
        QTest::addColumn<bool>("groupee");
        QTest::addColumn<QString>("unite");
        const QDate juillet1(2016, 7, 1), juillet25(2016, 7, 25), aout2(2016, 8, 2), mars(2024, 3, 4);
        cas("one day, artist", 1, mars, mars, 1, 12, false, "jour");
        cas("one day, technician", 3, mars, mars, 1, 8, false, "jour");
        cas("one day, 2015", 1, QDate(2015, 5, 5), QDate(2015, 5, 5), 1, 12, false, "jour");
        cas("four days before the switch, artist", 1, juillet1, juillet1.addDays(3), 4, 48, false, "jours");
        cas("five days from 25 July 2016, artist", 1, juillet25, juillet25.addDays(4), 5, 40, true, "jours");
        cas("ten days in 2010, artist", 1, QDate(2010, 2, 1), QDate(2010, 2, 10), 10, 80, true, "jours");
        cas("five days from 2 August 2016, artist", 1, aout2, aout2.addDays(4), 5, 60, false, "jours");
        cas("five days from 2 August 2016, technician", 3, aout2, aout2.addDays(4), 5, 40, false, "jours");
        cas("four days after the switch, artist", 1, aout2, aout2.addDays(3), 4, 48, false, "jours");
        cas("across the spring clock change", 1, QDate(2024, 3, 29), QDate(2024, 4, 2), 5, 60, false, "jours");
        cas("across the autumn clock change, 2015", 1, QDate(2015, 10, 23), QDate(2015, 10, 27), 5, 40, true, "jours");
    }

    void joursEtHeures()
    {
        QFETCH(int, emploi);
        QFETCH(QDate, debut);
        QFETCH(QDate, fin);
        QFETCH(int, jours);
        QFETCH(int, heures);
        QFETCH(bool, groupee);
        QFETCH(QString, unite);
        const SaisieContrat s = saisie(emploi, debut, fin);
        QCOMPARE(s.jours, jours);
        QCOMPARE(s.heures, heures);
        QCOMPARE(s.periodeGroupee, groupee);
        QCOMPARE(s.uniteJours, unite);
        QCOMPARE(s.debut, debut);
        QCOMPARE(s.fin, fin);
        QCOMPARE(s.datesTravaillees.size(), jours);
        QCOMPARE(s.datesTravaillees.first(), debut.toString("dd/MM/yyyy"));
        QCOMPARE(s.datesTravaillees.last(), fin.toString("dd/MM/yyyy"));
    }

    // The switch is midnight at +01:00: local midnight of 1 August in summer time (+02:00)
    // still falls before it, and a stored date (01:00 local) falls on it.
    void basculeDu1erAout2016()
    {
        const QDate aout1(2016, 8, 1);
        const QDateTime minuitLocal = SaisieContrat::instantDuSelecteur(aout1);
        const bool avantLaBascule = minuitLocal.offsetFromUtc() > 3600;
        const SaisieContrat s = saisie(1, aout1, aout1.addDays(4));
        QCOMPARE(s.heures, avantLaBascule ? 40 : 60);
        QCOMPARE(s.periodeGroupee, avantLaBascule);
        // A stored date (and one given to corvane-cli) is 01:00 local time: on the switch unless the
        // zone is ahead of +01:00 by more than an hour.
        SaisieContrat stocke;
        stocke.choisirDates(SaisieContrat::instantDuDocument(aout1),
                            SaisieContrat::instantDuDocument(aout1.addDays(4)));
        const bool stockeAvant = SaisieContrat::instantDuDocument(aout1) < SaisieContrat::dateDeBascule2016();
        QCOMPARE(stocke.heures, stockeAvant ? 40 : 60);
        if (qgetenv("TZ") == "Europe/Paris") {
            QCOMPARE(s.heures, 40);
            QCOMPARE(stocke.heures, 60);
        }
        if (qgetenv("TZ") == "Pacific/Kiritimati")
            QCOMPARE(stocke.heures, 40);
        if (qgetenv("TZ") == "America/New_York")
            QCOMPARE(s.heures, 60);
        if (qgetenv("TZ") == "Pacific/Kiritimati")
            QCOMPARE(s.heures, 40);
        QCOMPARE(SaisieContrat::dateDeBascule2016().toUTC(), QDateTime(QDate(2016, 7, 31), QTime(23, 0), Qt::UTC));
    }

    void finAvantDebut()
    {
        SaisieContrat s = saisie(1, QDate(2024, 3, 4), QDate(2024, 3, 6));
        s.choisirDates(SaisieContrat::instantDuSelecteur(QDate(2024, 3, 10)),
                       SaisieContrat::instantDuSelecteur(QDate(2024, 3, 8)));
        // Days and hours are left as they were.
        QCOMPARE(s.jours, 3);
        QCOMPARE(s.heures, 36);
    }

    void effectue_data()
    {
        QTest::addColumn<QDate>("debut");
        QTest::addColumn<bool>("effectue");
        cas("past", QDate(2024, 6, 1), true);
        cas("today", QDate(2024, 6, 15), true);
        cas("tomorrow", QDate(2024, 6, 16), false);
    }

    void effectue()
    {
        QFETCH(QDate, debut);
        QFETCH(bool, effectue);
        QCOMPARE(saisie(1, debut, debut).effectue, effectue);
        SaisieContrat stocke;
        stocke.choisirDates(SaisieContrat::instantDuDocument(debut), SaisieContrat::instantDuDocument(debut));
        QCOMPARE(stocke.effectue, effectue);
    }

    void anneesEncaissement()
    {
        const SaisieContrat s = saisie(1, QDate(2024, 12, 30), QDate(2025, 1, 2));
        QCOMPARE(s.anneesEncaissement, (QList<int>{2024, 2025, 2026}));
        QCOMPARE(s.anneeEncaissement, 2025);
    }

    void modele()
    {
        ContratModele m;
        m.emploiId = 2;
        m.typeId = 3;
        m.jours = 3;
        m.heures = 30;
        m.salaireBrut = 450;
        m.salaireNet = 350;
        SaisieContrat s = saisie(1, QDate(2024, 3, 4), QDate(2024, 3, 4));
        s.abattementUtilisateur = 2;
        s.appliquerModele(m);
        QCOMPARE(s.emploiId, 2);
        QCOMPARE(s.type, 3);
        QCOMPARE(s.abattementId, 1);
        QCOMPARE(s.brut, 450.0);
        QCOMPARE(s.net, 350.0);
        QCOMPARE(s.fin, QDate(2024, 3, 6));
        QCOMPARE(s.jours, 3);
        QCOMPARE(s.heures, 30);

        // The template's length drives the end of the dates picked next.
        s.choisirDates(SaisieContrat::instantDuSelecteur(QDate(2024, 5, 30)),
                       SaisieContrat::instantDuSelecteur(QDate(2024, 5, 30)));
        QCOMPARE(s.fin, QDate(2024, 6, 1));
        QCOMPARE(s.jours, 3);
        QCOMPARE(s.heures, 30);
        QCOMPARE(s.datesTravaillees, (QStringList{"30/05/2024", "31/05/2024", "01/06/2024"}));
        QCOMPARE(s.anneeEncaissement, 2024);

        s.retirerModele();
        s.choisirDates(SaisieContrat::instantDuSelecteur(QDate(2024, 5, 30)),
                       SaisieContrat::instantDuSelecteur(QDate(2024, 5, 30)));
        QCOMPARE(s.fin, QDate(2024, 5, 30));
        QCOMPARE(s.heures, 8);
    }

    void ap_data()
    {
        QTest::addColumn<bool>("coche");
        QTest::addColumn<int>("heures");
        cas("checked: 7 hours a day", true, 21);
        cas("cleared: 12 hours a day", false, 36);
    }

    void ap()
    {
        QFETCH(bool, coche);
        QFETCH(int, heures);
        SaisieContrat s = saisie(3, QDate(2024, 3, 4), QDate(2024, 3, 6));
        QCOMPARE(s.heures, 24);
        s.cocherAP(coche);
        QCOMPARE(s.heures, heures);
        QCOMPARE(s.ap, coche);
    }

    void type_data()
    {
        QTest::addColumn<int>("emploi");
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("abattement");
        QTest::addColumn<int>("emploiAttendu");
        cas("Prestations: the user's own", 1, 1, 3, 1);
        cas("Enseignements: 0 %", 1, 2, 1, 1);
        cas("Formations: 0 %", 2, 3, 1, 2);
        cas("Régime Général: 0 % and its job", 3, 4, 1, 4);
    }

    void type()
    {
        QFETCH(int, emploi);
        QFETCH(int, type);
        QFETCH(int, abattement);
        QFETCH(int, emploiAttendu);
        SaisieContrat s = saisie(emploi, QDate(2024, 3, 4), QDate(2024, 3, 4));
        s.abattementUtilisateur = 3;
        s.abattementId = 2;
        s.choisirType(type);
        QCOMPARE(s.abattementId, abattement);
        QCOMPARE(s.emploiId, emploiAttendu);
    }

    void brutApresAbattement_data()
    {
        QTest::addColumn<double>("brut");
        QTest::addColumn<int>("abattement");
        QTest::addColumn<double>("attendu");
        cas("20 %", 1000.0, 2, 800.0);
        cas("25 %, to the cent", 1234.56, 3, 925.92);
        cas("20 %, half a cent up", 1.40625, 2, 1.13);
        cas("0 %", 99.99, 1, 99.99);
    }

    void brutApresAbattement()
    {
        QFETCH(double, brut);
        QFETCH(int, abattement);
        QFETCH(double, attendu);
        SaisieContrat s;
        s.brut = brut;
        s.abattementId = abattement;
        QCOMPARE(s.brutApresAbattement(), attendu);
    }

    void autoEntrepreneur_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<double>("brut");
        QTest::addColumn<double>("abattu");
        QTest::addColumn<int>("heures");
        // The shared function layer's minimum wage in 2024 is 9.76.
        cas("sales: 71 %", 100, 1000.0, 290.0, 30);
        cas("BIC services: 50 %", 101, 500.0, 250.0, 26);
        cas("BNC services: 34 %", 102, 660.0, 435.6, 45);
        cas("liberal: 34 %", 103, 100.0, 66.0, 7);
    }

    void autoEntrepreneur()
    {
        QFETCH(int, type);
        QFETCH(double, brut);
        QFETCH(double, abattu);
        QFETCH(int, heures);
        SaisieContrat s = saisie(5, QDate(2024, 3, 4), QDate(2024, 3, 4));
        s.choisirBrut(brut);
        s.choisirType(type);
        QCOMPARE(s.type, type);
        QCOMPARE(s.brutAbattuAE, abattu);
        QCOMPARE(s.heures, heures);
        // The type keeps the abatement of the form out of it.
        QCOMPARE(s.emploiId, 5);
    }

    void emploiAutoEntrepreneur()
    {
        SaisieContrat s = saisie(1, QDate(2024, 3, 4), QDate(2024, 3, 5));
        s.brut = 976.0;
        s.choisirEmploi(5);
        QCOMPARE(s.type, 103);
        QCOMPARE(s.heures, 66); // 976 × 0.66 / 9.76
        s.abattementUtilisateur = 2;
        s.choisirEmploi(2);
        QCOMPARE(s.type, 1);
        QCOMPARE(s.abattementId, 2);
        QCOMPARE(s.heures, 16);
    }

    void verifications_data()
    {
        QTest::addColumn<bool>("document");
        QTest::addColumn<int>("type");
        QTest::addColumn<QDate>("debut");
        QTest::addColumn<QDate>("fin");
        QTest::addColumn<int>("jours");
        QTest::addColumn<int>("employeur");
        QTest::addColumn<QString>("titre");
        QTest::addColumn<QString>("message");
        const QString sansDocument = QStringLiteral("Avant toute nouvelle opération, il est nécessaire de créer un "
                                                    "nouveau fichier, ou d'en ouvrir un.");
        const QString vingtHuit =
            QStringLiteral("Vous ne pouvez pas déclarer plus de 28 jours de prestations dans le même mois.");
        const QString enseignement =
            QStringLiteral("Vous ne pouvez déclarer des heures d'enseignement que sur un même mois.");
        const QString employeur = QStringLiteral("Veuillez choisir un employeur avant d'enregistrer votre contrat.");
        const QString gestion = QStringLiteral("Gestion des contrats");
        const QString nouveau = QStringLiteral("Nouveau contrat");
        const QDate m1(2024, 3, 1), m28(2024, 3, 28), m29(2024, 3, 29), a2(2024, 4, 2);
        cas("accepted", true, 1, m1, m1, 1, 2, QString(), QString());
        cas("28 days accepted", true, 1, m1, m28, 28, 2, QString(), QString());
        cas("28 days over two months accepted", true, 1, QDate(2024, 3, 20), QDate(2024, 4, 16), 28, 2, QString(),
            QString());
        cas("29 days refused", true, 1, m1, m29, 29, 2, nouveau, vingtHuit);
        cas("29 days over two months refused", true, 1, QDate(2024, 3, 20), QDate(2024, 4, 17), 29, 2, nouveau,
            vingtHuit);
        cas("29 days of teaching in one month", true, 2, m1, m29, 29, 2, QString(), QString());
        cas("teaching across months", true, 2, m28, a2, 6, 2, nouveau, enseignement);
        cas("teaching, same month of another year", true, 2, QDate(2023, 3, 28), QDate(2024, 3, 2), 2, 2, nouveau,
            enseignement);
        cas("training across months", true, 3, m28, a2, 6, 2, QString(), QString());
        cas("no employer", true, 1, m1, m1, 1, 0, gestion, employeur);
        cas("29 days before no employer", true, 1, m1, m29, 29, 0, nouveau, vingtHuit);
        cas("teaching before no employer", true, 2, m28, a2, 6, 0, nouveau, enseignement);
        cas("no document first", false, 1, m1, m29, 29, 0, gestion, sansDocument);
    }

    void verifications()
    {
        QFETCH(bool, document);
        QFETCH(int, type);
        QFETCH(QDate, debut);
        QFETCH(QDate, fin);
        QFETCH(int, jours);
        QFETCH(int, employeur);
        QFETCH(QString, titre);
        QFETCH(QString, message);
        SaisieContrat s = saisie(1, debut, fin);
        s.type = type;
        s.jours = jours;
        s.employeurId = employeur;
        const RefusContrat refus = s.verifier(document);
        QCOMPARE(refus.titre, titre);
        QCOMPARE(refus.message, message);
        QCOMPARE(refus.estRefuse(), !message.isEmpty());
    }

    // Every figure is bounded before the contract rules run; a span from year 1 to 9999
    // never builds its millions of worked dates.
    void bornes_data()
    {
        QTest::addColumn<QDate>("debut");
        QTest::addColumn<QDate>("fin");
        QTest::addColumn<QString>("champ");
        QTest::addColumn<double>("valeur");
        QTest::addColumn<QString>("message");
        const QDate m1(2024, 3, 1);
        const QString montant = QStringLiteral("le montant ne peut pas dépasser 100 000 000,00 €.");
        cas("year 1 to 9999", QDate(1, 1, 1), QDate(9999, 12, 31), "", 0.0,
            "Date de début : la date doit être comprise entre le 01/01/1950 et le "
            "31/12/2100.");
        cas("1950 to 2100", QDate(1950, 1, 1), QDate(2100, 12, 31), "", 0.0,
            "Un contrat ne peut pas durer plus de 3700 jours.");
        cas("the longest contract", m1, m1.addDays(3699), "", 0.0, "");
        cas("one day longer", m1, m1.addDays(3700), "", 0.0, "Un contrat ne peut pas durer plus de 3700 jours.");
        cas("gross of 1e308", m1, m1, "brut", 1e308, "Salaire brut : " + montant);
        cas("infinite net", m1, m1, "net", qInf(), "Salaire net : le montant n'est pas un nombre fini.");
        cas("negative net to pay", m1, m1, "netAPayer", -0.01, "Net à payer : un montant négatif n'est pas permis.");
        cas("a hundred million", m1, m1, "brut", 1e8, "");
        cas("rate above 100 %", m1, m1, "pas", 100.5,
            "Taux du prélèvement à la source : la valeur doit être comprise entre 0 "
            "et 100.");
        cas("hours beyond", m1, m1, "heures", 88801.0,
            "Nombre d'heures : la valeur doit être comprise entre 0 et 88 800.");
        cas("negative days", m1, m1, "jours", -1.0, "Nombre de jours : la valeur doit être comprise entre 0 et 3700.");
        cas("cashing year 1900", m1, m1, "annee", 1900.0,
            "Année d'encaissement : la valeur doit être comprise entre 1950 et 2100"
            ".");
    }

    void bornes()
    {
        QFETCH(QDate, debut);
        QFETCH(QDate, fin);
        QFETCH(QString, champ);
        QFETCH(double, valeur);
        QFETCH(QString, message);
        SaisieContrat s = saisie(1, debut, fin);
        QVERIFY(s.datesTravaillees.size() <= Limites::kJoursContratMaximum + 1);
        s.type = 3; // training: no 28-day rule
        s.employeurId = 2;
        if (champ == QStringLiteral("brut"))
            s.brut = valeur;
        else if (champ == QStringLiteral("net"))
            s.net = valeur;
        else if (champ == QStringLiteral("netAPayer"))
            s.netAPayer = valeur;
        else if (champ == QStringLiteral("pas"))
            s.pas = valeur;
        else if (champ == QStringLiteral("heures"))
            s.heures = int(valeur);
        else if (champ == QStringLiteral("jours"))
            s.jours = int(valeur);
        else if (champ == QStringLiteral("annee"))
            s.anneeEncaissement = int(valeur);
        QCOMPARE(s.verifier(true).message, message);
    }

    void nouveauDepuisLeProfil()
    {
        const QString chemin = nouveauDocument(3);
        Contrats contrats(chemin);
        SaisieContrat s;
        s.nouveau(contrats);
        QCOMPARE(s.emploiId, 3);
        QCOMPARE(s.type, 1);
        QCOMPARE(s.abattementUtilisateur, 2);
        QCOMPARE(s.abattementId, 2);
        QCOMPARE(s.debut, QDate(2024, 6, 15));
        QCOMPARE(s.jours, 1);
        QCOMPARE(s.heures, 8);
    }

    void enregistrement()
    {
        const QString chemin = nouveauDocument();
        const int employeur = ajouterEmployeur(chemin, QStringLiteral("Théâtre d'Orly"));
        const int frais = ajouterFrais(chemin, QStringLiteral("Train"), 40);
        ajouterArretMaladie(chemin, QDate(2024, 3, 11), QDate(2024, 3, 12));
        Contrats contrats(chemin);
        SaisieContrat s;
        s.nouveau(contrats);
        s.choisirDates(SaisieContrat::instantDuSelecteur(QDate(2024, 3, 10)),
                       SaisieContrat::instantDuSelecteur(QDate(2024, 3, 14)));
        s.choisirBrut(1000);
        s.net = 780.5;
        s.lieu = QStringLiteral("Salle l'Européen");
        s.note = QStringLiteral("C'est \"noté\"");
        s.fraisLies = {frais};

        // Refused: nothing is written.
        const EnregistrementContrat refuse = s.enregistrer(contrats);
        QVERIFY(refuse.refus.estRefuse());
        QCOMPARE(refuse.id, 0);
        QCOMPARE(contrats.compteLesContrats(), 0);

        s.employeurId = employeur;
        const EnregistrementContrat fait = s.enregistrer(contrats);
        QVERIFY(!fait.refus.estRefuse());
        QVERIFY(fait.id > 0);
        QCOMPARE(fait.avertissement,
                 QStringLiteral("Ce contrat chevauche plusieurs périodes de Sécurité Sociale existantes."));
        QCOMPARE(valeur(chemin, QStringLiteral("SELECT c_employeur_id || '|' || c_emploi_id || '|' || c_debut_contrat "
                                               "|| '|' || c_fin_contrat || '|' || c_nbre_heures || '|' || "
                                               "c_nbre_jours || '|' || c_abattement || '|' || c_effectue || '|' || "
                                               "c_dates_travaillees || '|' || c_frais_lies || '|' || "
                                               "c_annee_encaissement || '|' || c_lieu || '|' || c_note || '|' || "
                                               "c_liste_dates || '|' || c_aem_fp FROM contrats WHERE c_id = %1;")
                                    .arg(fait.id)),
                 QStringLiteral("%1|1|2024-03-10 00:00:00.000|2024-03-14 00:00:00.000|60|5|2|1|10/03/2024,11/03/"
                                "2024,12/03/2024,13/03/2024,14/03/2024|%2|2024|Salle l'Européen|C'est \"noté\"||1")
                     .arg(employeur)
                     .arg(frais));
        QCOMPARE(valeur(chemin, QStringLiteral("SELECT f_contrat_lie FROM frais WHERE f_id = %1;").arg(frais)),
                 QString::number(fait.id));

        // Edited: the same row changes, and the links follow.
        SaisieContrat modif;
        QVERIFY(modif.charger(contrats, fait.id));
        QCOMPARE(modif.fraisLies, QList<int>{frais});
        QCOMPARE(modif.heures, 60);
        QCOMPARE(modif.lieu, QStringLiteral("Salle l'Européen"));
        modif.choisirDates(SaisieContrat::instantDuSelecteur(QDate(2024, 4, 1)),
                           SaisieContrat::instantDuSelecteur(QDate(2024, 4, 1)));
        modif.fraisLies.clear();
        const EnregistrementContrat modifie = modif.enregistrer(contrats, fait.id);
        QCOMPARE(modifie.id, fait.id);
        QCOMPARE(modifie.avertissement, QString());
        QCOMPARE(contrats.compteLesContrats(), 1);
        QCOMPARE(valeur(chemin, QStringLiteral("SELECT c_nbre_heures || '|' || c_frais_lies FROM contrats WHERE c_id "
                                               "= %1;")
                                    .arg(fait.id)),
                 QStringLiteral("12|"));
        QCOMPARE(valeur(chemin, "SELECT COUNT(*) FROM contrats_frais;"), QStringLiteral("0"));
    }

    // A template that asks for an expense: the new contract is saved with it, linked both ways;
    // saving the contract again adds none.
    void modeleAvecDepense_data()
    {
        QTest::addColumn<bool>("associer");
        QTest::addColumn<int>("categorie");
        QTest::addColumn<double>("montant");
        QTest::addColumn<QString>("depense"); // category|amount|note|date|linked contract, "" for none
        QTest::addColumn<QString>("avertissement");
        cas("a transport expense", true, 13, 42.5, "13|42.5|Navette|2024-03-10 00:00:00.000|1", "");
        cas("a distance for the mileage category", true, 1, 320.0, "1|320.0|Navette|2024-03-10 00:00:00.000|1", "");
        cas("no expense asked", false, 13, 42.5, "", "");
        cas("a category since deleted", true, 99, 10.0, "",
            "La dépense prévue par le modèle de contrat n'a pas été créée. Veuillez choisir la catégorie de la "
            "dépense.");
    }

    void modeleAvecDepense()
    {
        QFETCH(bool, associer);
        QFETCH(int, categorie);
        QFETCH(double, montant);
        QFETCH(QString, depense);
        QFETCH(QString, avertissement);
        const QString chemin = nouveauDocument();
        Contrats contrats(chemin);
        ContratsModeles modeles(contrats.db());
        ContratModele m;
        m.libelle = QStringLiteral("Navette");
        m.jours = 2;
        m.heures = 24;
        m.associerFrais = associer;
        m.fraisTypeId = categorie;
        m.fraisMontant = montant;
        m.fraisDetails = QStringLiteral("Navette");
        m.id = modeles.enregistreContratsModele(m);
        QVERIFY(m.id > 0 && modeles.enregistreComplements(m));
        const int employeur = ajouterEmployeur(chemin, QStringLiteral("Opéra"), m.id);

        SaisieContrat s;
        s.nouveau(contrats);
        s.employeurId = employeur;
        s.choisirDates(SaisieContrat::instantDuSelecteur(QDate(2024, 3, 10)),
                       SaisieContrat::instantDuSelecteur(QDate(2024, 3, 10)));
        const auto modele = modeles.contenuDuModeleDepuisEmployeurId(employeur);
        QVERIFY(modele);
        s.appliquerModele(*modele);
        const EnregistrementContrat fait = s.enregistrer(contrats);
        QVERIFY(!fait.refus.estRefuse());
        QCOMPARE(fait.avertissement, avertissement);
        QCOMPARE(valeur(chemin, "SELECT f_categorie || '|' || f_montant || '|' || f_details || '|' || f_date || '|' || "
                                "f_contrat_lie FROM frais;"),
                 depense);
        const QString lie = depense.isEmpty() ? QString() : QStringLiteral("1");
        QCOMPARE(valeur(chemin, "SELECT c_frais_lies FROM contrats;"), lie);
        QCOMPARE(valeur(chemin, "SELECT group_concat(contrat_id || '-' || frais_id) FROM contrats_frais;"),
                 depense.isEmpty() ? QString() : QStringLiteral("1-1"));
        // Edited and saved again with the employer's template, the contract keeps its one expense.
        SaisieContrat modif;
        QVERIFY(modif.charger(contrats, fait.id));
        modif.appliquerModele(*modele);
        QVERIFY(!modif.enregistrer(contrats, fait.id).refus.estRefuse());
        QCOMPARE(valeur(chemin, "SELECT COUNT(*) || '|' || COUNT(f_contrat_lie) FROM frais;"),
                 depense.isEmpty() ? "0|0" : "1|1");
        QCOMPARE(valeur(chemin, "SELECT c_frais_lies FROM contrats;"), lie);
    }

    void sansDocument()
    {
        Contrats contrats;
        SaisieContrat s = saisie(1, QDate(2024, 3, 4), QDate(2024, 3, 4));
        s.employeurId = 1;
        const EnregistrementContrat r = s.enregistrer(contrats);
        QCOMPARE(r.refus.titre, QStringLiteral("Gestion des contrats"));
        QVERIFY(r.refus.message.startsWith(QStringLiteral("Avant toute nouvelle opération")));
    }
};

QTEST_GUILESS_MAIN(TestSaisieContrat)
#include "test_saisie_contrat.moc"
