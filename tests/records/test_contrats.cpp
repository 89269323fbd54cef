// The contract model: the listing filters the CLI cannot combine, the inverted sort, the rows'
// display keys, totals and the sticky grouped count, the screen's statements, duplication,
// expense links, the sickness overlap count and the day-number list rules (the single
// filters: cli_contrats.txt; the check boxes and remembered dates: test_contrats_ecran).

#include "commun/Reference.h"
#include "records/Contrats.h"
#include "records/OutilsContrats.h"
#include "store/Horloge.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

class TestContrats : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    QString m_liste; // the listing document
    int m_orly = 0;
    int m_opera = 0;
    QMap<QString, int> m_ids;
    int m_numero = 0;

    QString nouveauDocument() { return documentContrats(m_dossier, QStringLiteral("c%1.cv4").arg(++m_numero)); }

    QList<int> ids(const QStringList& noms)
    {
        QList<int> liste;
        for (const QString& nom : noms)
            liste << m_ids.value(nom);
        return liste;
    }

    static QList<int> idsDe(const Table& table)
    {
        QList<int> liste;
        for (qsizetype i = 0; i < table.size(); ++i)
            liste << table.valeur(i, "Id Contrat").toInt();
        return liste;
    }

private slots:
    void initTestCase()
    {
        Horloge::fixer(QDate(2024, 6, 15));
        m_liste = nouveauDocument();
        QVERIFY(!m_liste.isEmpty());
        m_orly = ajouterEmployeur(m_liste, QStringLiteral("Théâtre d'Orly"));
        m_opera = ajouterEmployeur(m_liste, QStringLiteral("Opéra"), 0, 1);
        // A: New Year's Day; B: five days of teaching; C: planned; D: 1 January of next year;
        // E: five days across the new year.
        m_ids["A"] =
            ajouterContrat(m_liste, {m_orly, QDate(2024, 1, 1), QDate(2024, 1, 1), 12, 1, 100, 80, 1, 1, 1, 1});
        m_ids["B"] =
            ajouterContrat(m_liste, {m_opera, QDate(2024, 3, 10), QDate(2024, 3, 14), 40, 5, 500, 400, 1, 0, 2, 2});
        m_ids["C"] =
            ajouterContrat(m_liste, {m_orly, QDate(2024, 7, 1), QDate(2024, 7, 2), 16, 2, 300, 240, 0, 0, 1, 3});
        m_ids["D"] =
            ajouterContrat(m_liste, {m_opera, QDate(2025, 1, 1), QDate(2025, 1, 1), 12, 1, 150, 120, 0, 0, 3, 1});
        m_ids["E"] = ajouterContrat(
            m_liste, {m_orly, QDate(2023, 12, 31), QDate(2024, 1, 4), 40, 5, 1000.5, 800.25, 1, 1, 1, 1});
        // The current period ends on 31 December 2024; a sickness leave in it stretches it by 10 days.
        BaseDeDonnees base;
        QVERIFY(base.ouvrir(m_liste));
        base.exec("UPDATE periodes SET p_date_debut = '2024-03-01 00:00:00.000', p_date_fin = '2024-12-31 "
                  "00:00:00.000';");
    }

    void filtres_data()
    {
        QTest::addColumn<QString>("periode");
        QTest::addColumn<int>("effectue");
        QTest::addColumn<int>("paye");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("employeur");
        QTest::addColumn<QString>("emploi");
        QTest::addColumn<bool>("arret");
        QTest::addColumn<QStringList>("attendus");

        const QString x;
        cas("unpaid and done", "tous", 1, 2, x, x, x, false, QStringList{"B"});
        cas("type and employer", "tous", 0, 0, "Formations", "Opéra", x, false, QStringList{"D"});
        // Text comparison: 1 January of this year is in, 1 January of next year is not.
        cas("this year, done", "annee", 1, 0, x, x, x, false, QStringList{"B", "A"});
        cas("period, unpaid planned", "periode", 2, 2, x, x, x, false, QStringList{"C"});
        cas("reference period", "periode_reference", 0, 0, x, x, x, false, QStringList{"C", "B"});
        cas("reference period stretched by a sickness leave", "periode_reference", 0, 0, x, x, x, true,
            QStringList{"D", "C", "B"});
    }

    void filtres()
    {
        QFETCH(QString, periode);
        QFETCH(int, effectue);
        QFETCH(int, paye);
        QFETCH(QString, type);
        QFETCH(QString, employeur);
        QFETCH(QString, emploi);
        QFETCH(bool, arret);
        QFETCH(QStringList, attendus);

        int arretId = 0;
        if (arret)
            arretId = ajouterArretMaladie(m_liste, QDate(2024, 5, 1), QDate(2024, 5, 10), 10);
        Contrats contrats(m_liste);
        FiltreContrats filtre;
        filtre.periode = periode;
        filtre.effectue = effectue;
        filtre.paye = paye;
        filtre.filtreType = !type.isEmpty();
        filtre.type = type;
        filtre.filtreEmployeur = !employeur.isEmpty();
        filtre.employeur = employeur;
        filtre.filtreEmploi = !emploi.isEmpty();
        filtre.emploi = emploi;
        filtre.du = QDate(2024, 3, 1);
        filtre.au = QDate(2024, 7, 1);
        filtre.sens = QStringLiteral("ASC");
        const QList<int> obtenus = idsDe(contrats.listeLesContrats(filtre));
        if (arret)
            contrats.db().exec(QStringLiteral("DELETE FROM securitesociale WHERE ss_id = %1;").arg(arretId));
        QCOMPARE(obtenus, ids(attendus));
    }

    void tri_data()
    {
        QTest::addColumn<QString>("sens");
        QTest::addColumn<QString>("prefere");
        QTest::addColumn<QStringList>("attendus");
        const QStringList recentsDabord{"D", "C", "B", "A", "E"};
        const QStringList anciensDabord{"E", "A", "B", "C", "D"};
        cas("DESC with the setting ASC", "DESC", "ASC", recentsDabord);
        cas("no word, setting DESC", "", "DESC", anciensDabord);
        cas("no word, setting ASC", "", "ASC", recentsDabord);
    }

    void tri()
    {
        QFETCH(QString, sens);
        QFETCH(QString, prefere);
        QFETCH(QStringList, attendus);
        Contrats contrats(m_liste);
        FiltreContrats filtre;
        filtre.sens = sens;
        filtre.sensPrefere = prefere;
        QCOMPARE(idsDe(contrats.listeLesContrats(filtre)), ids(attendus));
    }

    void lignes()
    {
        const int frais1 = ajouterFrais(m_liste, QStringLiteral("Train"), 50);
        const int frais2 = ajouterFrais(m_liste, QStringLiteral("Hôtel"), 90);
        Contrats contrats(m_liste);
        contrats.enregistreFraisLies(m_ids["B"], {frais1, frais2});
        FiltreContrats filtre;
        filtre.filtreEmploi = true;
        filtre.emploi = QStringLiteral("Ouvrier");
        // Every display key of the row, its linked expenses included; amounts are single-precision.
        const Table lignes = contrats.listeLesContrats(filtre);
        CORVANE_COMPARER_REFERENCE(texteTable(lignes), "contrats_ligne.txt");
        QCOMPARE(lignes.valeur(0, "Salaire Brut").typeId(), int(QMetaType::Float));
        // The model's own listing has only its keys.
        QCOMPARE(contrats.listeLesContrats(filtre, false).cles.size(), 20);
        contrats.enregistreFraisLies(m_ids["B"], {});
    }

    void totauxEtPeriodesGroupees()
    {
        Contrats contrats(m_liste);
        FiltreContrats tous;
        contrats.listeLesContrats(tous);
        QCOMPARE(contrats.totalHeures, 120u);
        QCOMPARE(contrats.totalJours, 14u);
        QCOMPARE(contrats.totalBruts, 2050.5);
        QCOMPARE(contrats.totalNets, 1640.25);
        QCOMPARE(contrats.nombrePeriodesGroupees, 2u);

        // No grouped contract in this filter: the previous count stays.
        FiltreContrats formations;
        formations.filtreType = true;
        formations.type = QStringLiteral("Formations");
        contrats.listeLesContrats(formations);
        QCOMPARE(contrats.totalHeures, 12u);
        QCOMPARE(contrats.totalBruts, 150.0);
        QCOMPARE(contrats.nombrePeriodesGroupees, 2u);

        FiltreContrats enseignement;
        enseignement.filtreType = true;
        enseignement.type = QStringLiteral("Enseignements");
        contrats.listeLesContrats(enseignement);
        QCOMPARE(contrats.nombrePeriodesGroupees, 1u);

        FiltreContrats vide;
        vide.periode = QStringLiteral("periode");
        vide.du = QDate(2030, 1, 1);
        vide.au = QDate(2030, 12, 31);
        QVERIFY(contrats.listeLesContrats(vide).isEmpty());
        QCOMPARE(contrats.totalHeures, 0u);
        QCOMPARE(contrats.totalNets, 0.0);
        QCOMPARE(contrats.nombrePeriodesGroupees, 1u);
    }

    void comptes()
    {
        Contrats contrats(m_liste);
        QCOMPARE(contrats.compteLesContrats(), 5);
        QCOMPARE(contrats.compteLesContratsParEmployeur(m_orly), 3);
        QCOMPARE(contrats.tousLesTypesDeContrats(),
                 (QStringList{"Enseignements", "Formations", "Prestations", "Régime Général"}));
        QVERIFY(!contrats.isModeleExistePourEmployeur(m_orly));
        const QString autre = nouveauDocument();
        const int modele = ajouterModele(autre, QStringLiteral("Concert"), 1, 1, 1, 12, 200, 150);
        const int employeur = ajouterEmployeur(autre, QStringLiteral("L'Olympia"), modele);
        Contrats avecModele(autre);
        QVERIFY(avecModele.isModeleExistePourEmployeur(employeur));
        QVERIFY(avecModele.isModeleExistePourEmployeur(QStringLiteral("L'Olympia")));
    }

    void guillemetsEtEcrans()
    {
        const QString chemin = nouveauDocument();
        const int employeur = ajouterEmployeur(chemin, QStringLiteral("Théâtre de l'Odéon"));
        Contrats contrats(chemin);
        Contrat c;
        c.employeurId = employeur;
        c.emploiId = 1;
        c.debut = QDate(2024, 4, 2);
        c.fin = QDate(2024, 4, 3);
        c.heures = 24;
        c.jours = 2;
        c.brut = 412.346;
        c.net = 321.5;
        c.abattementId = 2;
        c.note = QStringLiteral("Répétition de l'été");
        c.fonction = QStringLiteral("Chef d'orchestre");
        c.id = contrats.enregistreContrat(c);
        QCOMPARE(c.id, 1);
        c.fonction = QStringLiteral("Régisseur 'plateau'");
        contrats.modifieContrat(c);

        c.lieu = QStringLiteral("Salle l'Européen");
        c.datesTravaillees = QStringList{"02/04/2024", "03/04/2024"};
        c.netAPayer = 300.0;
        c.anneeEncaissement = 2024;
        c.aemFp = false;
        c.pas = 21.5;
        c.id = contrats.enregistreContratDepuisEcran(c);
        const int ecran = c.id;
        QCOMPARE(ecran, 2);
        QCOMPARE(contrats.chargeContrat(ecran)->lieu, QStringLiteral("Salle l'Européen"));
        c.lieu = QStringLiteral("Chez \"Lulu\" l'après-midi");
        contrats.modifieContratDepuisEcran(c);
        const std::optional<Contrat> charge = contrats.chargeContrat(ecran);
        QVERIFY(charge);
        QCOMPARE(charge->lieu, QStringLiteral("Chez \"Lulu\" l'après-midi"));
        QCOMPARE(charge->pas, 21.5);

        const int copie = contrats.dupliqueContrat(ecran);
        QCOMPARE(copie, 3);
        // The copy takes no expenses, and the two columns the statement leaves out keep their
        // defaults; the other columns as saved, quotes and amounts to the cent.
        CORVANE_COMPARER_REFERENCE(texteRequete(chemin, "SELECT * FROM contrats ORDER BY c_id;"),
                                   "contrats_guillemets.txt");
        QCOMPARE(Contrats(chemin).chargeContrat(copie)->datesTravaillees, (QStringList{"02/04/2024", "03/04/2024"}));
    }

    void fraisLiesEtSuppression()
    {
        const QString chemin = nouveauDocument();
        const int a = ajouterContrat(chemin, {1, QDate(2024, 4, 2), QDate(2024, 4, 2), 12, 1, 100, 80});
        const int b = ajouterContrat(chemin, {1, QDate(2024, 4, 5), QDate(2024, 4, 5), 12, 1, 100, 80});
        const int train = ajouterFrais(chemin, QStringLiteral("Train"), 50);
        const int hotel = ajouterFrais(chemin, QStringLiteral("Hôtel"), 90);
        const int repas = ajouterFrais(chemin, QStringLiteral("Repas"), 15);
        Contrats contrats(chemin);
        contrats.enregistreFraisLies(a, {train, hotel});
        contrats.enregistreFraisLies(b, {repas});
        QCOMPARE(contrats.fraisLiesAuContrat(a), (QList<int>{train, hotel}));
        QCOMPARE(valeur(chemin, QStringLiteral("SELECT f_contrat_lie FROM frais WHERE f_id = %1;").arg(hotel)),
                 QString::number(a));
        // Saving again rewrites the contract's links.
        contrats.enregistreFraisLies(a, {hotel});
        QCOMPARE(contrats.fraisLiesAuContrat(a), (QList<int>{hotel}));
        QCOMPARE(valeur(chemin, "SELECT COUNT(*) FROM contrats_frais;"), QStringLiteral("2"));

        contrats.supprimeContratsEtLiens({a});
        QCOMPARE(contrats.compteLesContrats(), 1);
        QCOMPARE(contrats.fraisLiesAuContrat(a), QList<int>());
        QCOMPARE(contrats.fraisLiesAuContrat(b), QList<int>{repas});
        QCOMPARE(valeur(chemin, "SELECT COUNT(*) FROM frais;"), QStringLiteral("3"));
        QCOMPARE(contrats.tousLesFrais().size(), 3);
    }

    void superpositions_data()
    {
        QTest::addColumn<QDate>("debut");
        QTest::addColumn<QDate>("fin");
        QTest::addColumn<int>("nombre");
        QTest::addColumn<QString>("message");
        const QString une = QStringLiteral("Ce contrat chevauche une période de Sécurité Sociale existante.");
        const QString plusieurs =
            QStringLiteral("Ce contrat chevauche plusieurs périodes de Sécurité Sociale existantes.");
        cas("none", QDate(2024, 2, 1), QDate(2024, 2, 5), 0, QString());
        cas("inside the contract counts three times", QDate(2024, 3, 11), QDate(2024, 3, 12), 3, plusieurs);
        cas("around the contract", QDate(2024, 3, 1), QDate(2024, 3, 31), 1, une);
        cas("touching the first day", QDate(2024, 3, 5), QDate(2024, 3, 10), 1, une);
        cas("touching the last day", QDate(2024, 3, 14), QDate(2024, 3, 20), 1, une);
        cas("the same dates", QDate(2024, 3, 10), QDate(2024, 3, 14), 4, plusieurs);
    }

    void superpositions()
    {
        QFETCH(QDate, debut);
        QFETCH(QDate, fin);
        QFETCH(int, nombre);
        QFETCH(QString, message);
        const QString chemin = nouveauDocument();
        ajouterArretMaladie(chemin, debut, fin);
        Contrats contrats(chemin);
        const int obtenu = contrats.nombreDeSuperpositionsAvecContratsDu(QDate(2024, 3, 10), QDate(2024, 3, 14));
        QCOMPARE(obtenu, nombre);
        QCOMPARE(Contrats::messageSuperpositions(obtenu), message);
    }

    void caracteres_data()
    {
        QTest::addColumn<QString>("liste");
        QTest::addColumn<bool>("accepte");
        cas("a1: only the last character counts", "a1", true);
        cas("1a", "1a", false);
        cas("3,4", "3,4", true);
        cas("trailing comma", "3,", true);
        cas("blank at the end", "3 ", false);
        cas("empty", "", true);
    }

    void caracteres()
    {
        QFETCH(QString, liste);
        QFETCH(bool, accepte);
        QCOMPARE(Contrats::verifieCaracteresChaineDates(liste), accepte);
    }

    void format_data()
    {
        QTest::addColumn<QString>("liste");
        QTest::addColumn<QString>("mode");
        QTest::addColumn<QDate>("debut");
        QTest::addColumn<QDate>("fin");
        QTest::addColumn<bool>("accepte");
        const QDate mars10(2024, 3, 10), mars14(2024, 3, 14);
        const QDate mars28(2024, 3, 28), avril3(2024, 4, 3);
        const QDate dec28(2024, 12, 28), jan3(2025, 1, 3);
        cas("leading comma", ",3", "modif", mars10, mars14, false);
        cas("trailing comma", "3,", "modif", mars10, mars14, false);
        cas("two commas", "3,,4", "modif", mars10, mars14, false);
        cas("repeated number", "3,3", "modif", mars10, mars14, false);
        cas("distinct numbers", "3,4,7", "modif", mars10, mars14, true);
        cas("out of the dates, not new", "30", "modif", mars10, mars14, true);
        cas("new, same month, inside", "10,12,14", "nouveau", mars10, mars14, true);
        cas("new, same month, before", "9", "nouveau", mars10, mars14, false);
        cas("new, two months, both ends", "28,31,1,3", "nouveau", mars28, avril3, true);
        cas("new, two months, before the start", "27", "nouveau", mars28, avril3, false);
        cas("new, across the new year: not checked", "15", "nouveau", dec28, jan3, true);
        cas("new, across the new year, repeated", "29,29", "nouveau", dec28, jan3, false);
    }

    void format()
    {
        QFETCH(QString, liste);
        QFETCH(QString, mode);
        QFETCH(QDate, debut);
        QFETCH(QDate, fin);
        QFETCH(bool, accepte);
        QCOMPARE(Contrats::verifieFormatChaineDates(liste, mode, debut, fin), accepte);
    }
};

QTEST_GUILESS_MAIN(TestContrats)
#include "test_contrats.moc"
