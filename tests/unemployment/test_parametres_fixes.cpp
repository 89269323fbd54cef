#include "commun/Cas.h"
#include "store/Annexes.h"
#include "unemployment/FonctionsParametres.h"
#include "unemployment/ParametresPoleEmploi.h"

#include <QTest>

using namespace corvane;
using namespace corvane::test;

using Paliers = QList<QPair<quint32, quint32>>;

namespace {

Paliers enListe(const TableauPaliers& tableau)
{
    Paliers liste;
    for (const Palier& palier : tableau)
        liste.append({palier.jours, palier.heures});
    return liste;
}

const Paliers paliersArtiste{{319, 507}, {335, 531}, {365, 579}, {395, 627}, {425, 675}};
const Paliers paliersOuvrierTechnicien{{304, 507}, {335, 557}, {365, 607}, {395, 657}, {425, 707}};
// The same for both annexes; it starts at 365 days while the 2016 period is 366.
const Paliers tableau2016{{365, 507}, {395, 549}, {425, 591}, {455, 633}, {485, 675}};

} // namespace

class TestParametresFixes : public QObject
{
    Q_OBJECT

private slots:
    void heuresMinimumARealiserPour_data()
    {
        QTest::addColumn<QString>("profession");
        QTest::addColumn<double>("attendu");
        cas("Artiste", "Artiste", 507.0);
        cas("Ouvrier", "Ouvrier", 507.0);
        cas("Technicien", "Technicien", 507.0);
        cas("en minuscules", "artiste", 0.0);
        cas("en majuscules", "TECHNICIEN", 0.0);
        cas("avec une espace", "Artiste ", 0.0);
        cas("vide", "", 0.0);
        cas("Régime Général", "Régime Général", 0.0);
        cas("Auto Entrepreneur", "Auto Entrepreneur", 0.0);
    }
    void heuresMinimumARealiserPour()
    {
        QFETCH(QString, profession);
        QFETCH(double, attendu);
        QCOMPARE(FonctionsParametres::heuresMinimumARealiserPour(profession), attendu);
    }

    void nombreHeuresParJourPour_data()
    {
        QTest::addColumn<QString>("profession");
        QTest::addColumn<int>("attendu");
        cas("Artiste", "Artiste", 12);
        cas("Ouvrier", "Ouvrier", 8);
        cas("Technicien", "Technicien", 8);
        cas("vide : un artiste", "", 12);
        cas("artiste en minuscules : inconnu", "artiste", 12);
        cas("ouvrier en minuscules : inconnu", "ouvrier", 12);
        cas("Régime Général : inconnu", "Régime Général", 12);
    }
    void nombreHeuresParJourPour()
    {
        QFETCH(QString, profession);
        QFETCH(int, attendu);
        QCOMPARE(FonctionsParametres::nombreHeuresParJourPour(profession), attendu);
    }

    void sansAnnexe_data()
    {
        QTest::addColumn<QString>("profession");
        cas("en minuscules", "artiste");
        cas("vide", "");
        cas("Régime Général", "Régime Général");
        cas("Auto Entrepreneur", "Auto Entrepreneur");
    }
    void sansAnnexe()
    {
        QFETCH(QString, profession);
        QVERIFY(!annexePourProfession(profession).has_value());
    }

    void periodeEtPaliersPour_data()
    {
        QTest::addColumn<QString>("profession");
        QTest::addColumn<QString>("protocole");
        QTest::addColumn<quint32>("periode");
        QTest::addColumn<QList<quint32>>("paliers");
        QTest::addColumn<Paliers>("tableau");
        cas("Artiste 06_2003", "Artiste", "06_2003", 319u, QList<quint32>{531, 579, 627, 675}, paliersArtiste);
        cas("Artiste 04_2007", "Artiste", "04_2007", 319u, QList<quint32>{531, 579, 627, 675}, paliersArtiste);
        cas("Artiste 08_2016", "Artiste", "08_2016", 366u, QList<quint32>{549, 591, 633, 675}, tableau2016);
        cas("Technicien 04_2007", "Technicien", "04_2007", 304u, QList<quint32>{557, 607, 657, 707},
            paliersOuvrierTechnicien);
        cas("Ouvrier 08_2016", "Ouvrier", "08_2016", 366u, QList<quint32>{549, 591, 633, 675}, tableau2016);
    }
    void periodeEtPaliersPour()
    {
        QFETCH(QString, profession);
        QFETCH(QString, protocole);
        QFETCH(quint32, periode);
        QFETCH(QList<quint32>, paliers);
        QFETCH(Paliers, tableau);
        const PeriodeEtPaliers choix =
            ParametresPoleEmploi::periodeEtPaliersPour(*annexePourProfession(profession), protocole);
        QCOMPARE(choix.periodeDeReference, periode);
        QCOMPARE(QList<quint32>(choix.paliers.begin(), choix.paliers.end()), paliers);
        QCOMPARE(enListe(choix.tableauPaliers), tableau);
    }

    void messagePeriodeAuDelaDuDernierPalier_data()
    {
        QTest::addColumn<QString>("protocole");
        QTest::addColumn<QString>("attendu");
        const QString texte =
            QStringLiteral("Actuellement, Corvane ne peut calculer vos droits au-delà d'une période de référence de "
                           "%1 jours.\n");
        cas("06_2003", "06_2003", texte.arg(425));
        cas("04_2007", "04_2007", texte.arg(425));
        cas("08_2016", "08_2016", texte.arg(485));
    }
    void messagePeriodeAuDelaDuDernierPalier()
    {
        QFETCH(QString, protocole);
        QFETCH(QString, attendu);
        QCOMPARE(ParametresPoleEmploi::messagePeriodeAuDelaDuDernierPalier(protocole), attendu);
    }
};

QTEST_APPLESS_MAIN(TestParametresFixes)
#include "test_parametres_fixes.moc"
