// Neighbouring-rights payments and their categories: what a save refuses, the list filtered by
// body, the totals with every body listed, and the categories window's refusals and deletions
// (the command line runs the same operations in cli_droits_voisins.txt).

#include "commun/Cas.h"
#include "records/DroitsVoisins.h"
#include "records/OutilsContrats.h"
#include "store/Horloge.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>
#include <limits>

using namespace corvane;
using namespace corvane::test;

Q_DECLARE_METATYPE(DroitVoisin)

namespace {

// Bodies are keyed as seeded: 1 Adami, 4 Sacem, 8 Spré; categories 3 Chanteur, 8 Musicien.
DroitVoisin droit(const QDate& date, int organisme, int categorie, double montant, const QString& details = {})
{
    return {date, organisme, categorie, montant, details};
}

// "id:date:body:amount" for each row of a listing, in its order.
QString rangees(const Table& t)
{
    QStringList l;
    for (qsizetype i = 0; i < t.size(); ++i)
        l << QStringLiteral("%1:%2:%3:%4")
                 .arg(t.valeur(i, "Id").toInt())
                 .arg(t.valeur(i, "Date").toString(), t.valeur(i, "Organism").toString())
                 .arg(t.valeur(i, "Amount").toDouble());
    return l.join(' ');
}

} // namespace

class TestDroitsVoisins : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    QString document() { return documentContrats(m_dossier, QStringLiteral("dv%1.cv4").arg(++m_numero)); }

private slots:
    void init() { Horloge::fixer(QDate(2024, 6, 15)); }

    void refus_data()
    {
        QTest::addColumn<DroitVoisin>("droit");
        QTest::addColumn<QString>("refus");
        const QDate jour(2024, 3, 12);
        cas("accepted", droit(jour, 1, 8, 1234.5), QString());
        cas("invalid date", droit(QDate(), 1, 8, 10), QStringLiteral("Date : la date n'est pas valide."));
        cas("date before 1950", droit(QDate(1949, 12, 31), 1, 8, 10),
            QStringLiteral("Date : la date doit être comprise entre le 01/01/1950 et le 31/12/2100."));
        cas("negative amount", droit(jour, 1, 8, -0.01),
            QStringLiteral("Montant : un montant négatif n'est pas permis."));
        cas("amount past the bound", droit(jour, 1, 8, 100'000'000.01),
            QStringLiteral("Montant : le montant ne peut pas dépasser 100 000 000,00 €."));
        cas("amount not a number", droit(jour, 1, 8, std::numeric_limits<double>::quiet_NaN()),
            QStringLiteral("Montant : le montant n'est pas un nombre fini."));
        cas("no body", droit(jour, 0, 8, 10), QStringLiteral("Veuillez choisir un organisme."));
        cas("category that no longer exists", droit(jour, 1, 99, 10),
            QStringLiteral("Veuillez choisir une catégorie."));
    }

    // A refused payment is neither added nor written over an existing one.
    void refus()
    {
        QFETCH(DroitVoisin, droit);
        QFETCH(QString, refus);
        const QString chemin = document();
        DroitsVoisins droits(chemin);
        const int existant = droits.enregistreDroitVoisin(::droit(QDate(2020, 1, 2), 4, 3, 50, "avant"));
        QVERIFY(existant > 0);
        QCOMPARE(droits.refusValeurs(droit).replace(QChar(0x202F), ' ').replace(QChar(0xA0), ' '), refus);
        const int id = droits.enregistreDroitVoisin(droit);
        QCOMPARE(id > 0, refus.isEmpty());
        QCOMPARE(droits.modifieDroitVoisin(existant, droit), refus.isEmpty());
        const std::optional<DroitVoisin> lu = droits.droitVoisin(existant);
        QCOMPARE(lu->date, refus.isEmpty() ? droit.date : QDate(2020, 1, 2));
        QCOMPARE(lu->montant, refus.isEmpty() ? droit.montant : 50.0);
        QCOMPARE(nombre(chemin, "SELECT COUNT(*) FROM droitsvoisins;"), qint64(refus.isEmpty() ? 2 : 1));
    }

    void listeEtTotaux_data()
    {
        QTest::addColumn<int>("organisme");
        QTest::addColumn<QString>("sens");
        QTest::addColumn<QString>("liste");
        cas("every body, oldest first", 0, QStringLiteral("ASC"),
            QStringLiteral("2:05/01/2023:Sacem:0.1 3:05/01/2023:Adami:0.2 1:12/03/2024:Adami:100"));
        cas("newest first", 0, QStringLiteral("DESC"),
            QStringLiteral("1:12/03/2024:Adami:100 3:05/01/2023:Adami:0.2 2:05/01/2023:Sacem:0.1"));
        cas("one body", 1, QStringLiteral("ASC"), QStringLiteral("3:05/01/2023:Adami:0.2 1:12/03/2024:Adami:100"));
        cas("a body without payment", 8, QStringLiteral("ASC"), QString());
    }

    void listeEtTotaux()
    {
        QFETCH(int, organisme);
        QFETCH(QString, sens);
        QFETCH(QString, liste);
        const QString chemin = document();
        DroitsVoisins droits(chemin);
        QVERIFY(droits.enregistreDroitVoisin(droit(QDate(2024, 3, 12), 1, 8, 100, "Disque")) > 0);
        QVERIFY(droits.enregistreDroitVoisin(droit(QDate(2023, 1, 5), 4, 3, 0.1)) > 0);
        QVERIFY(droits.enregistreDroitVoisin(droit(QDate(2023, 1, 5), 1, 3, 0.2)) > 0);
        QCOMPARE(rangees(droits.listeLesDroitsVoisins(organisme, sens)), liste);

        // Every body by key, those without payment with a null sum; 0,1 + 0,2 is 0,30 to the cent.
        const Table totaux = droits.totauxParOrganisme();
        QCOMPARE(totaux.cles, (QStringList{"Name", "Amount"}));
        QStringList lus;
        for (qsizetype i = 0; i < totaux.size(); ++i)
            lus << totaux.valeur(i, "Name").toString() + '=' +
                       (totaux.valeur(i, "Amount").isValid() ? totaux.valeur(i, "Amount").toString() : "null");
        QCOMPARE(lus.join(' '),
                 QStringLiteral("Adami=100.2 Agessa=null SACD=null Sacem=0.1 Scpp=null Spedidam=null Sppf=null "
                                "Spré=null"));
    }

    // The categories window: each operation by name, what it refuses, and the categories left.
    void categories_data()
    {
        QTest::addColumn<QString>("operation");
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("nom");
        QTest::addColumn<QString>("refus");
        const QString existe = QStringLiteral("Cette catégorie existe déjà...");
        cas("new name", "ajouter", 0, "Bruiteur", QString());
        cas("new name kept without its blanks", "ajouter", 0, "  Bruiteur ", QString());
        cas("same name in other case", "ajouter", 0, "musicien", existe);
        cas("same name in other case, accented", "ajouter", 0, "COMÉDIEN", existe);
        cas("empty name", "ajouter", 0, "   ", QStringLiteral("Veuillez saisir un nom pour la nouvelle catégorie."));
        cas("renamed in other case", "renommer", 8, "MUSICIEN", QString());
        cas("renamed as another", "renommer", 8, "chanteur", existe);
        cas("renamed empty", "renommer", 8, "", QStringLiteral("Veuillez saisir un nom pour la catégorie."));
    }

    void categories()
    {
        QFETCH(QString, operation);
        QFETCH(int, id);
        QFETCH(QString, nom);
        QFETCH(QString, refus);
        const QString chemin = document();
        DroitsVoisins droits(chemin);
        const QString avant = valeur(chemin, "SELECT GROUP_CONCAT(dvt_type, '|') FROM droitsvoisinstypes;");
        QCOMPARE(droits.refusCategorie(nom, id), refus);
        const bool ecrit = operation == "ajouter" ? droits.ajouteCategorie(nom) > 0 : droits.renommeCategorie(id, nom);
        QCOMPARE(ecrit, refus.isEmpty());
        QString attendu = avant;
        if (ecrit && operation == "ajouter")
            attendu += '|' + nom.trimmed();
        else if (ecrit)
            attendu.replace("Musicien", nom);
        QCOMPARE(valeur(chemin, "SELECT GROUP_CONCAT(dvt_type, '|') FROM droitsvoisinstypes;"), attendu);
    }

    // A category in use goes with its payments only on "Tout supprimer"; one unused goes without a question.
    void suppressionCategorie_data()
    {
        QTest::addColumn<int>("categorie");
        QTest::addColumn<QString>("reponse");
        QTest::addColumn<bool>("supprimee");
        QTest::addColumn<QString>("restants"); // the payments' categories
        cas("in use, everything deleted", 8, "Tout supprimer", true, "3");
        cas("in use, nothing done", 8, "Ne rien faire", false, "8,8,3");
        cas("unused", 5, "", true, "8,8,3");
    }

    void suppressionCategorie()
    {
        QFETCH(int, categorie);
        QFETCH(QString, reponse);
        QFETCH(bool, supprimee);
        QFETCH(QString, restants);
        const QString chemin = document();
        DroitsVoisins droits(chemin);
        for (const int c : {8, 8, 3})
            QVERIFY(droits.enregistreDroitVoisin(droit(QDate(2024, 1, 10), 1, c, 10)) > 0);
        DialoguesScriptes dialogues(QStringList{reponse});
        QCOMPARE(droits.supprimeCategorieAvecVerification(categorie, dialogues), supprimee);
        QCOMPARE(droits.categorieExiste(categorie), !supprimee);
        QCOMPARE(valeur(chemin, "SELECT GROUP_CONCAT(dv_categorie) FROM droitsvoisins;"), restants);
        if (reponse.isEmpty()) {
            QVERIFY(dialogues.echanges().isEmpty());
            return;
        }
        QCOMPARE(dialogues.echanges().size(), 1);
        const auto& question = dialogues.echanges().first();
        QCOMPARE(question.titre, QStringLiteral("Vérification des données..."));
        QCOMPARE(question.message,
                 QStringLiteral("Des droits sont attribués à la catégorie : Musicien.\n\nSouhaitez-vous "
                                "tout supprimer, ou ne rien faire ?"));
        QCOMPARE(question.boutons, (QStringList{"Tout supprimer", "Ne rien faire"}));
    }
};

QTEST_GUILESS_MAIN(TestDroitsVoisins)
#include "test_droits_voisins.moc"
