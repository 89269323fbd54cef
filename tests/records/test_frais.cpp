// The expenses model: the three span filters with a category, the inverted sort, the mileage
// category's distances and the total of the last listing; what a save refuses; the categories'
// names and deletions; and the links to contracts as expenses and contracts are saved, moved and
// deleted (the commands' wiring: cli_frais.txt; the template's expense: test_saisie_contrat).

#include "records/Contrats.h"
#include "records/Frais.h"
#include "records/FraisTypes.h"
#include "records/OutilsContrats.h"
#include "store/Dialogues.h"
#include "store/Horloge.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

namespace {

constexpr int kKm = Frais::kCategorieKilometrage;
constexpr int kRestauration = 12;
constexpr int kTransport = 13;

Depense depense(int categorie, const QDate& date, double montant, const QString& note = {})
{
    Depense d;
    d.categorieId = categorie;
    d.date = date;
    d.montant = montant;
    d.details = note;
    return d;
}

} // namespace

class TestFrais : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    QString m_liste; // the listing document
    int m_numero = 0;

    QString nouveauDocument() { return documentContrats(m_dossier, QStringLiteral("f%1.cv4").arg(++m_numero)); }

private slots:
    void initTestCase()
    {
        // Today is in 2024: "ANNEE" is 2024, up to but not including 1 January 2025.
        Horloge::fixer(QDate(2024, 6, 15));
        m_liste = nouveauDocument();
        Frais frais(m_liste);
        const QList<Depense> depenses{depense(kKm, QDate(2024, 1, 1), 120, "Tournée"),
                                      depense(kTransport, QDate(2024, 3, 10), 45.5, "Train"),
                                      depense(kTransport, QDate(2023, 12, 31), 10, "Métro"),
                                      depense(kRestauration, QDate(2025, 1, 1), 20, "Repas"),
                                      depense(kKm, QDate(2024, 6, 15), 80.25, "Répétition")};
        for (const Depense& d : depenses)
            QVERIFY(frais.enregistreFrais(d) > 0);
    }

    void cleanupTestCase() { Horloge::reinitialiser(); }

    // The rows' keys in order, their units, the total of the statement and the totals kept apart.
    void liste_data()
    {
        QTest::addColumn<QString>("filtre");
        QTest::addColumn<int>("categorie");
        QTest::addColumn<QString>("sens");
        QTest::addColumn<QList<int>>("ids");
        QTest::addColumn<QString>("unites");
        QTest::addColumn<double>("cumul");
        QTest::addColumn<double>("euros");
        QTest::addColumn<double>("km");
        cas("all, newest first", "TOUS", 0, "ASC", QList<int>{4, 5, 2, 1, 3}, "€ km € km €", 275.75, 75.5, 200.25);
        cas("all, the preference DESC lists the oldest first", "TOUS", 0, "DESC", QList<int>{3, 1, 2, 5, 4},
            "€ km € km €", 275.75, 75.5, 200.25);
        cas("any other word lists the newest first", "TOUS", 0, "asc", QList<int>{4, 5, 2, 1, 3}, "€ km € km €", 275.75,
            75.5, 200.25);
        cas("one category", "TOUS", kTransport, "ASC", QList<int>{2, 3}, "€ €", 55.5, 55.5, 0.0);
        cas("this year, next New Year's Day left out", "ANNEE", 0, "ASC", QList<int>{5, 2, 1}, "km € km", 245.75, 45.5,
            200.25);
        cas("this year's distances", "ANNEE", kKm, "DESC", QList<int>{1, 5}, "km km", 200.25, 0.0, 200.25);
        cas("a period, both ends kept", "PERIODE", 0, "ASC", QList<int>{2, 1, 3}, "€ km €", 175.5, 55.5, 120.0);
        cas("a period, one category", "PERIODE", kTransport, "ASC", QList<int>{2, 3}, "€ €", 55.5, 55.5, 0.0);
        cas("nothing", "PERIODE", kRestauration, "ASC", QList<int>{}, "", 0.0, 0.0, 0.0);
    }

    void liste()
    {
        QFETCH(QString, filtre);
        QFETCH(int, categorie);
        QFETCH(QString, sens);
        QFETCH(QList<int>, ids);
        QFETCH(QString, unites);
        QFETCH(double, cumul);
        QFETCH(double, euros);
        QFETCH(double, km);
        Frais frais(m_liste);
        const Table table =
            frais.listeLesFrais({filtre, categorie, QDate(2023, 12, 31), QDate(2024, 3, 10), sens}, false);
        QCOMPARE(table.cles, Frais::clesListe());
        QList<int> lus;
        QStringList unitesLues;
        for (qsizetype i = 0; i < table.size(); ++i) {
            lus << table.valeur(i, "Id Frais").toInt();
            unitesLues << table.valeur(i, "KmOuEuro").toString();
        }
        QCOMPARE(lus, ids);
        QCOMPARE(unitesLues.join(' '), unites);
        // The total runs over the last listing's span.
        QCOMPARE(frais.cumulFrais(), cumul);
        const Frais::Cumuls apart = frais.cumulsParUnite();
        QCOMPARE(apart.nombre, int(ids.size()));
        QCOMPARE(apart.euros, euros);
        QCOMPARE(apart.kilometres, km);
    }

    // What a save refuses, before anything is written.
    void refus_data()
    {
        QTest::addColumn<int>("categorie");
        QTest::addColumn<QDate>("date");
        QTest::addColumn<double>("montant");
        QTest::addColumn<int>("contrat");
        QTest::addColumn<QString>("message"); // its beginning
        cas("no category", 0, QDate(2024, 5, 2), 10.0, 0, "Veuillez choisir la catégorie de la dépense.");
        cas("a category the document lacks", 99, QDate(2024, 5, 2), 10.0, 0,
            "Veuillez choisir la catégorie de la dépense.");
        cas("a date before 1950", kTransport, QDate(1949, 12, 31), 10.0, 0, "Date : ");
        cas("a negative amount", kTransport, QDate(2024, 5, 2), -0.01, 0, "Montant : ");
        cas("an amount beyond its bound", kTransport, QDate(2024, 5, 2), 100'000'000.01, 0, "Montant : ");
        cas("a distance beyond its bound", kKm, QDate(2024, 5, 2), 1'000'000.5, 0, "Distance : ");
        cas("a contract the document lacks", kTransport, QDate(2024, 5, 2), 10.0, 42,
            "Le contrat lié à la dépense n'existe pas.");
    }

    void refus()
    {
        QFETCH(int, categorie);
        QFETCH(QDate, date);
        QFETCH(double, montant);
        QFETCH(int, contrat);
        QFETCH(QString, message);
        Frais frais(m_liste);
        Depense d = depense(categorie, date, montant);
        d.contratLie = contrat;
        const QString refus = frais.refusValeurs(d);
        QVERIFY2(refus.startsWith(message), qPrintable(refus));
        const QByteArray avant = empreinte(m_liste);
        QCOMPARE(frais.enregistreFrais(d), 0);
        d.id = 1;
        QVERIFY(!frais.modifieFrais(d));
        QCOMPARE(empreinte(m_liste), avant);
    }

    // A category's name: required, and no other category's whatever the case.
    void nomsDeCategorie_data()
    {
        QTest::addColumn<QString>("nom");
        QTest::addColumn<int>("renommee"); // the category being renamed, 0 when adding
        QTest::addColumn<QString>("message");
        cas("a new name", "Péage", 0, "");
        cas("empty", "", 0, "Veuillez saisir un nom pour la nouvelle catégorie.");
        cas("blanks only", "   ", 0, "Veuillez saisir un nom pour la nouvelle catégorie.");
        cas("another's name", "Transport", 0, "Une catégorie porte déjà ce nom.");
        cas("another's name in other letters' case", " hÉbergement ", 0, "Une catégorie porte déjà ce nom.");
        cas("its own name in another case", "TRANSPORT", kTransport, "");
        cas("another's name when renaming", "Divers", kTransport, "Une catégorie porte déjà ce nom.");
    }

    void nomsDeCategorie()
    {
        QFETCH(QString, nom);
        QFETCH(int, renommee);
        QFETCH(QString, message);
        const QString chemin = nouveauDocument();
        FraisTypes categories(chemin);
        QCOMPARE(categories.refusNom(nom, renommee), message);
        const int avant = int(categories.listeLesCategories().size());
        const bool ecrit =
            renommee ? categories.renommeCategorie(renommee, nom) : categories.enregistreCategorie(nom) > 0;
        QCOMPARE(ecrit, message.isEmpty());
        QCOMPARE(int(categories.listeLesCategories().size()), avant + (ecrit && !renommee ? 1 : 0));
        if (ecrit)
            QCOMPARE(valeur(chemin, "SELECT COUNT(*) FROM fraistypes WHERE ft_type = '" + nom.trimmed() + "';"),
                     QStringLiteral("1"));
    }

    // Deleting a category: the mileage one stays; one with expenses asks, "Tout" takes them with
    // it and their links, "Rien" nothing.
    void suppressionDeCategorie_data()
    {
        QTest::addColumn<int>("categorie");
        QTest::addColumn<QString>("reponse");
        QTest::addColumn<QString>("message");
        QTest::addColumn<bool>("supprimee");
        QTest::addColumn<QString>("reste"); // categories | expenses | links | the contract's list
        const QString question =
            QStringLiteral("2 frais sont classés dans cette catégorie.\n\nSouhaitez-vous tout supprimer, ou ne rien "
                           "faire ?");
        cas("the mileage category", kKm, "Tout",
            "La catégorie des frais kilométriques ne peut pas être supprimée : ses montants sont des distances, "
            "que le calcul des frais réels utilise.",
            false, "14|3|1|1");
        cas("with its expenses, answered Rien", kTransport, "Rien", question, false, "14|3|1|1");
        cas("with its expenses, answered Tout", kTransport, "Tout", question, true, "13|1|0|");
        cas("an empty category, without a question", kRestauration, "Rien", "", true, "13|3|1|1");
    }

    void suppressionDeCategorie()
    {
        QFETCH(int, categorie);
        QFETCH(QString, reponse);
        QFETCH(QString, message);
        QFETCH(bool, supprimee);
        QFETCH(QString, reste);
        const QString chemin = nouveauDocument();
        const int contrat = ajouterContrat(chemin, {1, QDate(2024, 4, 2), QDate(2024, 4, 2), 12, 1, 100, 80});
        Frais frais(chemin);
        Depense lie = depense(kTransport, QDate(2024, 4, 2), 30);
        lie.contratLie = contrat;
        QVERIFY(frais.enregistreFrais(lie) > 0);
        QVERIFY(frais.enregistreFrais(depense(kTransport, QDate(2024, 4, 3), 12)) > 0);
        QVERIFY(frais.enregistreFrais(depense(kKm, QDate(2024, 4, 3), 60)) > 0);
        DialoguesScriptes dialogues({reponse});
        QCOMPARE(FraisTypes(chemin).supprimeCategorieAvecVerification(categorie, dialogues), supprimee);
        QCOMPARE(dialogues.echanges().isEmpty() ? QString() : dialogues.echanges().first().message, message);
        for (const auto& echange : dialogues.echanges())
            QCOMPARE(echange.titre, QStringLiteral("Gestion des catégories de frais"));
        QCOMPARE(valeur(chemin, "SELECT (SELECT COUNT(*) FROM fraistypes) || '|' || (SELECT COUNT(*) FROM frais) || "
                                "'|' || (SELECT COUNT(*) FROM contrats_frais) || '|' || (SELECT c_frais_lies FROM "
                                "contrats);"),
                 reste);
    }

    // The link table, the expense's f_contrat_lie and the contracts' c_frais_lies name each other
    // whichever side is saved, and the screen's listing shows the link the link table holds.
    void liensAvecLesContrats()
    {
        const QString chemin = nouveauDocument();
        const int orly = ajouterEmployeur(chemin, QStringLiteral("Théâtre d'Orly"));
        const int a = ajouterContrat(chemin, {orly, QDate(2024, 4, 2), QDate(2024, 4, 2), 12, 1, 100, 80});
        const int b = ajouterContrat(chemin, {orly, QDate(2024, 4, 9), QDate(2024, 4, 9), 12, 1, 100, 80});
        Frais frais(chemin);
        Contrats contrats(chemin);
        const auto etat = [&] {
            return valeur(chemin, "SELECT group_concat(f_id || ':' || f_contrat_lie, ' ') FROM frais;") + " | " +
                   valeur(chemin, "SELECT group_concat(contrat_id || '-' || frais_id, ' ') FROM contrats_frais;") +
                   " | " + valeur(chemin, "SELECT group_concat(c_id || '=' || c_frais_lies, ' ') FROM contrats;");
        };
        const auto lien = [&](int id) {
            const Table t = frais.listeLesFrais({}, true);
            for (qsizetype i = 0; i < t.size(); ++i)
                if (t.valeur(i, "Id Frais").toInt() == id)
                    return t.valeur(i, "Contrat Lie").toString();
            return QStringLiteral("?");
        };

        Depense train = depense(kTransport, QDate(2024, 4, 2), 40, "Train");
        train.contratLie = a;
        const int t = frais.enregistreFrais(train);
        const int h = frais.enregistreFrais(depense(8, QDate(2024, 4, 2), 90, "Hôtel"));
        QCOMPARE(etat(), QStringLiteral("1:1 2: | 1-1 | 1=1 2="));
        QCOMPARE(lien(t), QStringLiteral("du 02/04/2024 chez Théâtre d'Orly"));
        QCOMPARE(frais.chargeFrais(t)->contratLie, a);

        // The contract form links its expenses (and writes its own list with the contract).
        contrats.enregistreFraisLies(a, {t, h});
        QCOMPARE(etat(), QStringLiteral("1:1 2:1 | 1-1 1-2 | 1=1 2="));
        // The train moves to the other contract: the first one forgets it.
        train.id = t;
        train.contratLie = b;
        QVERIFY(frais.modifieFrais(train));
        QCOMPARE(etat(), QStringLiteral("1:2 2:1 | 1-2 2-1 | 1= 2=1"));
        QCOMPARE(lien(t), QStringLiteral("du 09/04/2024 chez Théâtre d'Orly"));

        // A deleted contract takes its links, not its expenses: the hotel is no longer linked.
        contrats.supprimeContratsEtLiens({a});
        QCOMPARE(lien(h), QString());
        QCOMPARE(frais.chargeFrais(h)->contratLie, 0);
        // A deleted expense leaves no link behind.
        QVERIFY(frais.supprimeFrais(t));
        QCOMPARE(etat(), QStringLiteral("2:1 |  | 2="));
        QCOMPARE(frais.compteLesFrais(), 1);
    }
};

QTEST_GUILESS_MAIN(TestFrais)
#include "test_frais.moc"
