// The id lists kept in one text column, and the changes that write more than one row: a write
// that fails half-way leaves the document as it was (the command line runs the rules in
// cli_personnel.txt).

#include "commun/Cas.h"
#include "commun/OutilsDocument.h"
#include "manager/Employes.h"
#include "manager/Evenements.h"
#include "manager/ListesIds.h"
#include "manager/Structures.h"
#include "store/Horloge.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

class TestPersonnel : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    // Structures 1 "Compagnie d'Avril" (with employee 1) and 2 "Les Tréteaux", and event 1 of
    // structure 2 for the employer "Théâtre d'Ivry".
    QString document()
    {
        const QString chemin = ouvrirDocument(
            creerDocument(parametresParDefaut(m_dossier.filePath(QStringLiteral("p%1.cv4").arg(++m_numero)))));
        executerSql(chemin, QStringLiteral("INSERT INTO employeurs (e_raison_sociale) VALUES ('Théâtre d''Ivry');"));
        Structures structures(chemin);
        Employes employes(structures.db());
        Employe lou;
        lou.prenom = QStringLiteral("Lou");
        lou.nom = QStringLiteral("Martin");
        if (structures.ajouteStructure(QStringLiteral("Compagnie d'Avril")) != 1 ||
            structures.ajouteStructure(QStringLiteral("Les Tréteaux")) != 2 || employes.enregistreEmploye(lou) != 1 ||
            !structures.rattacheEmployes(1, {1}) ||
            Evenements(structures.db()).enregistreEvenement({QDate(2024, 5, 4), QStringLiteral("Festival"), 0, 1, 2}) !=
                1)
            qWarning() << "document incomplet :" << chemin;
        return chemin;
    }

private slots:
    void init() { Horloge::fixer(QDate(2024, 6, 15)); }

    void listesIds_data()
    {
        QTest::addColumn<QString>("liste");
        QTest::addColumn<QString>("operation");
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("attendue");
        cas("7 to an empty list", QString(""), QString("+"), 7, QString("7"));
        cas("7 to 3,12", QString("3,12"), QString("+"), 7, QString("3,12,7"));
        cas("12 again", QString("3,12,7"), QString("+"), 12, QString("3,12,7"));
        cas("compared as integers", QString("03,12"), QString("+"), 3, QString("03,12"));
        cas("1 beside 12", QString("12"), QString("+"), 1, QString("12,1"));
        cas("3 out of 3,12,7", QString("3,12,7"), QString("-"), 3, QString("12,7"));
        cas("the last one out", QString("7"), QString("-"), 7, QString(""));
        cas("1 out of 12 leaves 12", QString("12"), QString("-"), 1, QString("12"));
    }

    void listesIds()
    {
        QFETCH(QString, liste);
        QFETCH(QString, operation);
        QFETCH(int, id);
        QFETCH(QString, attendue);
        QCOMPARE(operation == "+" ? ListesIds::ajoute(liste, id) : ListesIds::retire(liste, id), attendue);
    }

    // A trigger makes the change's last write fail: the writes before it are undone.
    void ecrituresEntieres_data()
    {
        QTest::addColumn<QString>("echec");
        QTest::addColumn<QString>("operation");
        QTest::addColumn<QString>("lecture");
        QTest::addColumn<QString>("attendue");
        cas("attach", QString("BEFORE UPDATE ON structures"), QString("rattacher"),
            QString("SELECT e_structures FROM employes WHERE e_id = 2;"), QString(""));
        cas("detach", QString("BEFORE UPDATE ON employes"), QString("detacher"),
            QString("SELECT s_employes FROM structures WHERE s_id = 1;"), QString("1"));
        cas("structure deleted", QString("BEFORE DELETE ON structures"), QString("supprimer structure"),
            QString("SELECT e_structures FROM employes WHERE e_id = 1;"), QString("1"));
        cas("event saved", QString("BEFORE INSERT ON evenementspaiements"), QString("enregistrer evenement"),
            QString("SELECT COUNT(*) FROM evenements;"), QString("1"));
        cas("event changed", QString("BEFORE UPDATE ON evenementspaiements"), QString("modifier evenement"),
            QString("SELECT e_nom FROM evenements WHERE e_id = 1;"), QString("Festival"));
        cas("event deleted", QString("BEFORE DELETE ON evenementspaiements"), QString("supprimer evenement"),
            QString("SELECT COUNT(*) FROM evenements;"), QString("1"));
    }

    void ecrituresEntieres()
    {
        QFETCH(QString, echec);
        QFETCH(QString, operation);
        QFETCH(QString, lecture);
        QFETCH(QString, attendue);
        const QString chemin = document();
        executerSql(chemin, QStringLiteral("INSERT INTO employes (e_prenom, e_nom) VALUES ('Jo', 'Petit');"));
        executerSql(chemin,
                    QStringLiteral("CREATE TRIGGER panne %1 BEGIN SELECT RAISE(ABORT, 'panne'); END;").arg(echec));
        Structures structures(chemin);
        Evenements evenements(structures.db());
        bool ecrit = true;
        if (operation == "rattacher")
            ecrit = structures.rattacheEmployes(1, {2});
        else if (operation == "detacher")
            ecrit = structures.detacheEmploye(1, 1);
        else if (operation == "supprimer structure")
            ecrit = structures.supprimeStructure(1);
        else if (operation == "enregistrer evenement")
            ecrit = evenements.enregistreEvenement({QDate(2024, 7, 1), QStringLiteral("Gala"), 0, 1, 1}) > 0;
        else if (operation == "modifier evenement")
            ecrit = evenements.modifieEvenement(1, {QDate(2024, 7, 1), QStringLiteral("Gala"), 0, 1, 1});
        else
            ecrit = evenements.supprimeEvenement(1);
        QVERIFY(!ecrit);
        QCOMPARE(valeur(chemin, lecture), attendue);
    }
};

QTEST_GUILESS_MAIN(TestPersonnel)
#include "test_personnel.moc"
