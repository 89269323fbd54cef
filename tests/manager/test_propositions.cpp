// The business manager's propositions on a real document: the total with each kind of discount
// and charges, the invoiced notice that does not stop a status change, what the prices refuse,
// and the deletion refused while an event names the proposition (a text match on its number).
// Organiser, title and service all hold an apostrophe, so every free text goes through as typed.

#include "commun/Cas.h"
#include "commun/OutilsDocument.h"
#include "manager/Propositions.h"
#include "store/Horloge.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace corvane;
using namespace corvane::test;

class TestPropositions : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dossier;
    int m_numero = 0;

    // A document holding an organiser, a service for 300 € a person and one of 200 €.
    QString document()
    {
        const QString chemin =
            ouvrirDocument(creerDocument(parametresParDefaut(m_dossier.filePath(QString::number(++m_numero)))));
        Propositions propositions(chemin);
        TarifsPropositions tarifs(chemin);
        if (propositions.ajouteOrganisateur(QStringLiteral("Compagnie d'Avril"), QStringLiteral("Lyon")) == 0 ||
            tarifs.ajoutePrestation({0, 1, QStringLiteral("L'heure du conte"), 300, QStringLiteral("Contes"), true}) ==
                0 ||
            tarifs.ajoutePrestation({0, 1, QStringLiteral("Atelier"), 200, QString(), false}) == 0)
            qWarning() << "document incomplet";
        return chemin;
    }

    // A proposition with the two services (3 people for the first), charges of 50 €.
    static int proposition(const QString& chemin, int remise, bool avecLignes, bool chargesNonAjoutees)
    {
        Propositions p(chemin);
        EnteteProposition e;
        e.libelle = QStringLiteral("Fête d'été");
        e.employeurId = p.retrouveEmployeurId(QStringLiteral("Compagnie d'Avril"));
        e.date = QDate(2024, 7, 14);
        e.commune = p.communeEtQualiteOrganisateur(QStringLiteral("Compagnie d'Avril")).first;
        e.charges = 50;
        e.chargesNonAjoutees = chargesNonAjoutees;
        const int id = p.enregistreProposition(e);
        if (!avecLignes)
            return id;
        TarifsPropositions tarifs(p.db());
        const int conte = tarifs.prestationParLibelle(QStringLiteral("L'heure du conte"))->id;
        const int atelier = tarifs.prestationParLibelle(QStringLiteral("Atelier"))->id;
        const int delai = tarifs.delais().first().id;
        p.ajouteLigne({0, id, 0, remise, conte, delai, e.date, 3});
        p.ajouteLigne({0, id, 0, remise, atelier, delai, e.date, 0});
        return id;
    }

private slots:
    void init() { Horloge::fixer(QDate(2024, 6, 15)); }
    void cleanup() { Horloge::reinitialiser(); }

    // Seeded discounts: 1 none, 3 a rate of 10 %, 7 a fixed 200 €.
    void total_data()
    {
        QTest::addColumn<int>("remise");
        QTest::addColumn<bool>("avecLignes");
        QTest::addColumn<bool>("chargesNonAjoutees");
        QTest::addColumn<double>("total");
        cas("10 % of the services only", 3, true, false, 1040.0);
        cas("a fixed discount of 200 €", 7, true, false, 950.0);
        cas("no discount", 1, true, false, 1150.0);
        cas("no line: the charges alone", 3, false, false, 50.0);
        cas("charges not added", 3, true, true, 990.0);
    }

    void total()
    {
        QFETCH(int, remise);
        QFETCH(bool, avecLignes);
        QFETCH(bool, chargesNonAjoutees);
        QFETCH(double, total);
        const QString chemin = document();
        const int id = proposition(chemin, remise, avecLignes, chargesNonAjoutees);
        Propositions p(chemin);
        QCOMPARE(p.calculatesTotalAmount(id), total);
        const Table liste = p.listeDesPropositions();
        QCOMPARE(liste.size(), 1);
        QCOMPARE(liste.valeur(0, "Libellé").toString(), QStringLiteral("Fête d'été"));
        QCOMPARE(liste.valeur(0, "Organisateur").toString(), QStringLiteral("Compagnie d'Avril"));
        QCOMPARE(liste.valeur(0, "Commune").toString(), QStringLiteral("Lyon"));
        QCOMPARE(liste.valeur(0, "Montant").toDouble(), total);
        if (avecLignes)
            QCOMPARE(p.lignesDeLaProposition(id).valeur(0, "Prestation").toString(),
                     QStringLiteral("L'heure du conte (3 personnes)"));
    }

    // The notice is returned for an invoiced proposition, and the status is written all the same.
    void statut_data()
    {
        QTest::addColumn<int>("avant");
        QTest::addColumn<int>("apres");
        QTest::addColumn<bool>("avertissement");
        cas("sent, then accepted", 2, 1, false);
        cas("invoiced, then accepted", 3, 1, true);
        cas("invoiced, then in preparation", 3, 0, true);
    }

    void statut()
    {
        QFETCH(int, avant);
        QFETCH(int, apres);
        QFETCH(bool, avertissement);
        const QString chemin = document();
        const int id = proposition(chemin, 1, true, false);
        Propositions p(chemin);
        QVERIFY(p.changeStatut(id, avant).isEmpty());
        bool ecrit = false;
        QCOMPARE(p.changeStatut(id, apres, &ecrit),
                 avertissement ? QStringLiteral("Selon la loi, une proposition facturée ainsi que la facture "
                                                "associée, ne peuvent pas être modifiées.")
                               : QString());
        QVERIFY(ecrit);
        QCOMPARE(p.entete(id)->statut, apres);
    }

    void refus_data()
    {
        QTest::addColumn<QString>("quoi");
        QTest::addColumn<double>("valeur");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("refus");
        cas("a rate already recorded", "remise", 10.0, 0, "Cette remise existe déjà...");
        cas("the same figure as a fixed amount", "remise", 10.0, 1, "");
        cas("a negative discount", "remise", -5.0, 1, "Remise : un montant négatif n'est pas permis.");
        cas("a rate over 100 %", "remise", 150.0, 0, "Remise : la valeur doit être comprise entre 0 et 100.");
        cas("a discount of nothing", "remise", 0.0, 1, "Remise : la remise doit être supérieure à zéro.");
        cas("a negative price", "prestation", -1.0, 0, "Montant : un montant négatif n'est pas permis.");
        cas("an absurd price", "prestation", 1e12, 0, "Montant : le montant ne peut pas dépasser 100 000 000,00 €.");
        cas("negative charges", "entete", -50.0, 0, "Charges : un montant négatif n'est pas permis.");
        cas("nobody for a per-person service", "personnes", 0.0, 0,
            "Nombre de personnes : la valeur doit être comprise entre 1 et 1000.");
        cas("a crowd", "personnes", 5000.0, 0, "Nombre de personnes : la valeur doit être comprise entre 1 et 1000.");
        cas("a delay of 400 days", "delai", 400.0, 0, "Délai : la valeur doit être comprise entre 1 et 366.");
        cas("a delay already recorded", "delai", 1.0, 1, "Ce délai existe déjà...");
    }

    void refus()
    {
        QFETCH(QString, quoi);
        QFETCH(double, valeur);
        QFETCH(int, type);
        QFETCH(QString, refus);
        const QString chemin = document();
        const int id = proposition(chemin, 1, false, false);
        const QString avant = dump(chemin);
        Propositions p(chemin);
        TarifsPropositions tarifs(p.db());
        QString obtenu;
        bool ecrit = false;
        if (quoi == "remise") {
            obtenu = tarifs.refusRemise({0, valeur, type, QStringLiteral("Remise d'été")});
            ecrit = tarifs.ajouteRemise({0, valeur, type, QStringLiteral("Remise d'été")}) != 0;
        } else if (quoi == "prestation") {
            obtenu = tarifs.refusPrestation({0, 1, QStringLiteral("Conte d'hiver"), valeur, QString(), false});
            ecrit = tarifs.ajoutePrestation({0, 1, QStringLiteral("Conte d'hiver"), valeur, QString(), false}) != 0;
        } else if (quoi == "entete") {
            EnteteProposition e = *p.entete(id);
            e.charges = valeur;
            obtenu = p.refusEntete(e);
            ecrit = p.modifieProposition(e);
        } else if (quoi == "personnes") {
            const LigneProposition l{0,
                                     id,
                                     0,
                                     1,
                                     tarifs.prestationParLibelle(QStringLiteral("L'heure du conte"))->id,
                                     tarifs.delais().first().id,
                                     QDate(2024, 7, 14),
                                     int(valeur)};
            obtenu = p.refusLigne(l);
            ecrit = p.ajouteLigne(l) != 0;
        } else {
            obtenu = tarifs.refusDelai({0, int(valeur), type});
            ecrit = tarifs.ajouteDelai({0, int(valeur), type}) != 0;
        }
        QCOMPARE(obtenu.replace(QChar(0x202F), ' ').replace(QChar(0xA0), ' '), refus);
        QCOMPARE(ecrit, refus.isEmpty());
        if (!refus.isEmpty())
            QCOMPARE(dump(chemin), avant);
    }

    // "LIKE '%1%'": an event of proposition 12 keeps proposition 1 as well.
    void suppression_data()
    {
        QTest::addColumn<int>("propositionDeLEvenement");
        QTest::addColumn<bool>("supprimee");
        cas("an event of this proposition", 1, false);
        cas("an event of proposition 12", 12, false);
        cas("an event of proposition 2", 2, true);
        cas("an event without proposition", 0, true);
    }

    void suppression()
    {
        QFETCH(int, propositionDeLEvenement);
        QFETCH(bool, supprimee);
        const QString chemin = document();
        const int id = proposition(chemin, 3, true, false);
        QCOMPARE(id, 1);
        executerSql(chemin, QStringLiteral("INSERT INTO evenements (e_date, e_nom, e_proposition_id, e_employeur_id, "
                                           "e_structure_id) VALUES ('2024-07-14', 'Gala', %1, 2, 0);")
                                .arg(propositionDeLEvenement));
        Propositions p(chemin);
        QCOMPARE(p.refusSuppression(id),
                 supprimee ? QString()
                           : QStringLiteral(
                                 "Cette proposition ne peut pas être supprimée tant qu'elle est liée à un événement."));
        QCOMPARE(p.supprimeProposition(id), supprimee);
        QCOMPARE(nombre(chemin, "SELECT COUNT(*) FROM propositions;"), supprimee ? 0 : 2);
        QCOMPARE(nombre(chemin, "SELECT COUNT(*) FROM propositionslibelles;"), supprimee ? 0 : 1);
    }
};

QTEST_GUILESS_MAIN(TestPropositions)
#include "test_propositions.moc"
