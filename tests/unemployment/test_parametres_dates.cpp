#include "commun/Cas.h"
#include "store/Dates.h"
#include "unemployment/FonctionsParametres.h"
#include "unemployment/ParametresIntermittent.h"
#include "unemployment/ParametresPoleEmploi.h"

#include <QTest>
#include <QTimeZone>

using namespace corvane;
using namespace corvane::test;

namespace {

// An expected dated table, written out here on its own so that a slip in the program's table shows.
struct TableAttendue
{
    double avant;
    QList<QPair<QDate, double>> bascules;
};

const TableAttendue smicIntermittent{7.61,
                                     {{QDate(2005, 7, 1), 8.03},
                                      {QDate(2006, 7, 1), 8.27},
                                      {QDate(2007, 7, 1), 8.44},
                                      {QDate(2008, 5, 1), 8.63},
                                      {QDate(2008, 7, 1), 8.71},
                                      {QDate(2009, 7, 1), 8.82},
                                      {QDate(2010, 1, 1), 8.86},
                                      {QDate(2011, 1, 1), 9.00},
                                      {QDate(2011, 12, 1), 9.19},
                                      {QDate(2012, 1, 1), 9.22},
                                      {QDate(2012, 7, 1), 9.40},
                                      {QDate(2013, 1, 1), 9.43},
                                      {QDate(2014, 1, 1), 9.53},
                                      {QDate(2015, 1, 1), 9.61},
                                      {QDate(2016, 1, 1), 9.61},
                                      {QDate(2017, 1, 1), 9.76},
                                      {QDate(2018, 1, 1), 9.88},
                                      {QDate(2019, 1, 1), 10.03},
                                      {QDate(2020, 1, 1), 10.15}}};

const TableAttendue smicFunctions{7.61,
                                  {{QDate(2005, 7, 1), 8.03},
                                   {QDate(2006, 7, 1), 8.27},
                                   {QDate(2007, 7, 1), 8.44},
                                   {QDate(2008, 5, 1), 8.63},
                                   {QDate(2008, 7, 1), 8.71},
                                   {QDate(2009, 7, 1), 8.82},
                                   {QDate(2010, 1, 1), 8.86},
                                   {QDate(2011, 1, 1), 9.00},
                                   {QDate(2011, 12, 1), 9.19},
                                   {QDate(2012, 1, 1), 9.22},
                                   {QDate(2012, 7, 1), 9.40},
                                   {QDate(2013, 1, 1), 9.43},
                                   {QDate(2014, 1, 1), 9.53},
                                   {QDate(2015, 1, 1), 9.61},
                                   {QDate(2016, 1, 1), 9.67},
                                   {QDate(2017, 1, 1), 9.76}}};

const TableAttendue csgCrds{42,
                            {{QDate(2007, 7, 1), 43},
                             {QDate(2008, 7, 1), 44},
                             {QDate(2009, 7, 1), 45},
                             {QDate(2012, 1, 1), 47},
                             {QDate(2014, 1, 1), 48},
                             {QDate(2015, 1, 1), 49}}};

const TableAttendue alsaceMoselle{1.8, {{QDate(2012, 1, 1), 1.5}}};

// Only the rows that can take effect: nothing after 2012-07-01 is ever reached.
const TableAttendue plafondAllocation{121.33,
                                      {{QDate(2009, 1, 1), 129.34},
                                       {QDate(2010, 1, 1), 130.51},
                                       {QDate(2011, 1, 1), 133.27},
                                       {QDate(2012, 7, 1), 137.12}}};

QString iso(const QDate& jour)
{
    return jour.toString(Qt::ISODate);
}

// Far before, the day before and the day of each switch, far after.
void lignesDeLaTable(const TableAttendue& table)
{
    QTest::addColumn<QDate>("jour");
    QTest::addColumn<double>("attendu");
    cas("bien avant : 1990-01-01", QDate(1990, 1, 1), table.avant);
    cas("1999-12-31", QDate(1999, 12, 31), table.avant);
    double precedente = table.avant;
    for (const auto& [bascule, valeur] : table.bascules) {
        QTest::addRow("veille : %s", qPrintable(iso(bascule.addDays(-1)))) << bascule.addDays(-1) << precedente;
        QTest::addRow("bascule : %s", qPrintable(iso(bascule))) << bascule << valeur;
        precedente = valeur;
    }
    cas("bien après : 2040-06-15", QDate(2040, 6, 15), precedente);
}

// The same day as a document gives it (01:00 local time) and as a switch date is built
// (midnight at +01:00): both must land on that day, summer time included.
QDateTime instantDuDocument(const QDate& jour)
{
    return Dates::conversionDateSQLiteEnNSDate(Dates::versSQLite(jour));
}

QDateTime minuitPlusUneHeure(const QDate& jour)
{
    return QDateTime(jour, QTime(0, 0), QTimeZone(3600));
}

template <typename Recherche>
void verifier(Recherche recherche)
{
    QFETCH(QDate, jour);
    QFETCH(double, attendu);
    QCOMPARE(recherche(jour), attendu);
    QCOMPARE(recherche(minuitPlusUneHeure(jour)), attendu);
    // 01:00 local time is still on its own day at +01:00 wherever the local offset is at
    // most +02:00 (France, summer time included); further east it is the day before.
    const QDateTime instant = instantDuDocument(jour);
    if (instant.offsetFromUtc() <= 7200)
        QCOMPARE(recherche(instant), attendu);
}

} // namespace

class TestParametresDates : public QObject
{
    Q_OBJECT

private slots:
    void smicHoraireIntermittent_data()
    {
        lignesDeLaTable(smicIntermittent);
        cas("2016 reprend 2015 : 2016-06-15", QDate(2016, 6, 15), 9.61);
        cas("dernière ligne : 2021-03-01", QDate(2021, 3, 1), 10.15);
        cas("1er juillet 2005 : 2005-07-01", QDate(2005, 7, 1), 8.03);
        cas("30 juin 2005 : 2005-06-30", QDate(2005, 6, 30), 7.61);
    }
    void smicHoraireIntermittent()
    {
        verifier([](const auto& d) { return ParametresIntermittent::smicHoraireEnCours(d); });
    }

    void smicHoraireFunctions_data()
    {
        lignesDeLaTable(smicFunctions);
        cas("2016 à 9,67 : 2016-06-15", QDate(2016, 6, 15), 9.67);
        cas("pas de ligne 2018 : 2018-01-01", QDate(2018, 1, 1), 9.76);
        cas("pas de ligne 2019 : 2019-01-01", QDate(2019, 1, 1), 9.76);
        cas("pas de ligne 2020 : 2020-01-01", QDate(2020, 1, 1), 9.76);
        cas("2021-03-01", QDate(2021, 3, 1), 9.76);
    }
    void smicHoraireFunctions()
    {
        verifier([](const auto& d) { return FonctionsParametres::smicHoraireEnCours(d); });
    }

    void CsgCrdsPlafondEnCours_data()
    {
        lignesDeLaTable(csgCrds);
        cas("2011-06-01", QDate(2011, 6, 1), 45.0);
    }
    void CsgCrdsPlafondEnCours()
    {
        verifier([](const auto& d) { return ParametresIntermittent::CsgCrdsPlafondEnCours(d); });
    }

    void supplementAlsaceMoselle_data() { lignesDeLaTable(alsaceMoselle); }
    void supplementAlsaceMoselle()
    {
        verifier([](const auto& d) { return ParametresIntermittent::supplementAlsaceMoselle(d); });
    }

    void plafondAllocationJournaliereEnCours_data()
    {
        lignesDeLaTable(plafondAllocation);
        cas("jamais 139,61 : 2013-07-01", QDate(2013, 7, 1), 137.12);
        cas("jamais 141,55 : 2014-07-01", QDate(2014, 7, 1), 137.12);
        cas("jamais 141,55 : 2015-03-01", QDate(2015, 3, 1), 137.12);
        cas("jamais 145,58 : 2016-01-01", QDate(2016, 1, 1), 137.12);
        cas("2012-06-30", QDate(2012, 6, 30), 133.27);
    }
    void plafondAllocationJournaliereEnCours()
    {
        verifier([](const auto& d) { return ParametresIntermittent::plafondAllocationJournaliereEnCours(d); });
    }

    // Around a switch, an instant counts by its day at +01:00, whatever the local zone.
    void instantsAutourDUneBascule_data()
    {
        QTest::addColumn<QDateTime>("instant");
        QTest::addColumn<double>("attendu");
        const QTimeZone plusUne(3600);
        cas("23:59:59 +01:00 la veille", QDateTime(QDate(2016, 12, 31), QTime(23, 59, 59), plusUne), 9.61);
        cas("00:00 +01:00 le jour", QDateTime(QDate(2017, 1, 1), QTime(0, 0), plusUne), 9.76);
        cas("22:59:59 UTC la veille", QDateTime(QDate(2016, 12, 31), QTime(22, 59, 59), QTimeZone::utc()), 9.61);
        cas("23:00 UTC la veille", QDateTime(QDate(2016, 12, 31), QTime(23, 0), QTimeZone::utc()), 9.76);
        cas("01:00 +02:00 le jour (heure d'été)", QDateTime(QDate(2017, 1, 1), QTime(1, 0), QTimeZone(7200)), 9.76);
        cas("instant invalide", QDateTime(), 7.61);
    }
    void instantsAutourDUneBascule()
    {
        QFETCH(QDateTime, instant);
        QFETCH(double, attendu);
        QCOMPARE(ParametresIntermittent::smicHoraireEnCours(instant), attendu);
    }

    void protocolePour_data()
    {
        QTest::addColumn<QDate>("jour");
        QTest::addColumn<QString>("attendu");
        cas("bien avant : 1990-01-01", QDate(1990, 1, 1), "06_2003");
        cas("veille : 2007-03-31", QDate(2007, 3, 31), "06_2003");
        cas("bascule : 2007-04-01", QDate(2007, 4, 1), "04_2007");
        cas("2012-05-15", QDate(2012, 5, 15), "04_2007");
        cas("veille : 2016-07-31", QDate(2016, 7, 31), "04_2007");
        cas("bascule : 2016-08-01", QDate(2016, 8, 1), "08_2016");
        cas("bien après : 2040-06-15", QDate(2040, 6, 15), "08_2016");
    }
    void protocolePour()
    {
        QFETCH(QDate, jour);
        QFETCH(QString, attendu);
        QCOMPARE(ParametresPoleEmploi::protocolePour(jour), attendu);
        if (instantDuDocument(jour).offsetFromUtc() <= 7200)
            QCOMPARE(ParametresPoleEmploi::protocolePour(instantDuDocument(jour)), attendu);
        QCOMPARE(ParametresPoleEmploi::protocolePour(minuitPlusUneHeure(jour)), attendu);

        ParametresPoleEmploi poleEmploi;
        poleEmploi.dernierJourDernierContrat = jour;
        poleEmploi.determineLeProtocole();
        QCOMPARE(poleEmploi.protocoleAccord, attendu);
    }

    void sansDernierJourLeProtocoleReste()
    {
        QCOMPARE(ParametresPoleEmploi::protocolePour(QDate()), QString());
        ParametresPoleEmploi poleEmploi;
        poleEmploi.protocoleAccord = QStringLiteral("04_2007");
        poleEmploi.determineLeProtocole();
        QCOMPARE(poleEmploi.protocoleAccord, QStringLiteral("04_2007"));
    }
};

QTEST_APPLESS_MAIN(TestParametresDates)
#include "test_parametres_dates.moc"
