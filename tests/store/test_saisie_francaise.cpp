// French input of amounts, rates and counts: what is read, and what is refused with
// which reason (never read as 0); the bounds of dates.

#include "store/SaisieFrancaise.h"

#include <QtTest>
#include <cmath>

using namespace corvane;

namespace {

Bornes bornes(const QString& genre)
{
    if (genre == QStringLiteral("taux"))
        return Limites::kPourcentage;
    if (genre == QStringLiteral("jours"))
        return {0.0, double(Limites::kJoursContratMaximum), 0, false};
    if (genre == QStringLiteral("relatif"))
        return {-Limites::kMontantMaximum, Limites::kMontantMaximum, 2, true};
    return Limites::kMontant;
}

} // namespace

class TestSaisieFrancaise : public QObject
{
    Q_OBJECT

private slots:
    void lecture_data()
    {
        // A refusal has no value (NaN) and a fragment of its reason.
        const double refus = std::nan("");
        QTest::addColumn<QString>("texte");
        QTest::addColumn<QString>("genre");
        QTest::addColumn<double>("valeur");
        QTest::addColumn<QString>("raison");
        const QString nbsp = QString(QChar(0x00A0));
        const QString fine = QString(QChar(0x202F));

        QTest::newRow("grouped with a comma") << "1 977,00"
                                              << "montant" << 1977.0 << "";
        QTest::newRow("one decimal") << "1977,5"
                                     << "montant" << 1977.5 << "";
        QTest::newRow("decimal point") << "1977.5"
                                       << "montant" << 1977.5 << "";
        QTest::newRow("whole, grouped") << "1 977"
                                        << "montant" << 1977.0 << "";
        QTest::newRow("non-breaking space") << "1" + nbsp + "977,50"
                                            << "montant" << 1977.5 << "";
        QTest::newRow("narrow no-break space, millions") << "12" + fine + "345" + fine + "678,9"
                                                         << "montant" << 12345678.9 << "";
        QTest::newRow("euro sign") << "1 977,50 €"
                                   << "montant" << 1977.5 << "";
        QTest::newRow("euro sign, no blank") << "12€"
                                             << "montant" << 12.0 << "";
        QTest::newRow("blanks around") << "  42,10 "
                                       << "montant" << 42.1 << "";
        QTest::newRow("zero") << "0"
                              << "montant" << 0.0 << "";
        QTest::newRow("the bound itself") << "100 000 000"
                                          << "montant" << 1e8 << "";
        QTest::newRow("negative where allowed") << "-12,50"
                                                << "relatif" << -12.5 << "";
        QTest::newRow("minus sign where allowed") << QString(QChar(0x2212)) + "3"
                                                  << "relatif" << -3.0 << "";

        QTest::newRow("German grouping") << "1.977,00"
                                         << "montant" << refus << "un seul séparateur décimal";
        QTest::newRow("English grouping") << "1,977.00"
                                          << "montant" << refus << "un seul séparateur décimal";
        QTest::newRow("letter O for zero") << "15OO"
                                           << "montant" << refus << "le caractère « O »";
        QTest::newRow("word") << "abc"
                              << "montant" << refus << "le caractère « a »";
        QTest::newRow("empty") << ""
                               << "montant" << refus << "aucune valeur";
        QTest::newRow("blanks only") << "   "
                                     << "montant" << refus << "aucune valeur";
        QTest::newRow("exponent") << "1e308"
                                  << "montant" << refus << "le caractère « e »";
        QTest::newRow("infinity") << "inf"
                                  << "montant" << refus << "le caractère « i »";
        QTest::newRow("not a number") << "nan"
                                      << "montant" << refus << "le caractère « n »";
        QTest::newRow("two commas") << "1,2,3"
                                    << "montant" << refus << "un seul séparateur décimal";
        QTest::newRow("dot as thousands: three decimals") << "1.977"
                                                          << "montant" << refus << "deux décimales au plus";
        QTest::newRow("groups of two") << "19 77"
                                       << "montant" << refus << "tous les trois chiffres";
        QTest::newRow("first group of four") << "1977 000"
                                             << "montant" << refus << "tous les trois chiffres";
        QTest::newRow("blank in the decimals") << "12,5 0"
                                               << "montant" << refus << "tous les trois chiffres";
        QTest::newRow("nothing after the comma") << "12,"
                                                 << "montant" << refus << "après la virgule";
        QTest::newRow("nothing before the comma") << ",50"
                                                  << "montant" << refus << "avant la virgule";
        QTest::newRow("euro sign alone") << "€"
                                         << "montant" << refus << "aucun chiffre";
        QTest::newRow("euro sign first") << "€12"
                                         << "montant" << refus << "le caractère « € »";
        QTest::newRow("negative pay") << "-12,50"
                                      << "montant" << refus << "négatif";
        QTest::newRow("beyond a hundred million") << "100 000 000,01"
                                                  << "montant" << refus << "ne peut pas dépasser 100 000 000,00 €";
        QTest::newRow("far beyond") << QString(400, QLatin1Char('9')) << "montant" << refus << "ne peut pas dépasser";
        QTest::newRow("below the negative bound") << "-100 000 001"
                                                  << "relatif" << refus << "inférieur";
        QTest::newRow("invisible character") << QString(QChar(0xFEFF)) + "12"
                                             << "montant" << refus << "U+FEFF";

        QTest::newRow("rate") << "21,5"
                              << "taux" << 21.5 << "";
        QTest::newRow("rate above 100") << "100,5"
                                        << "taux" << refus << "comprise entre 0 et 100";
        QTest::newRow("rate with a euro sign") << "12 €"
                                               << "taux" << refus << "le caractère « € »";
        QTest::newRow("days") << "1 200"
                              << "jours" << 1200.0 << "";
        QTest::newRow("days with decimals") << "12,5"
                                            << "jours" << refus << "nombre entier";
        QTest::newRow("days written the German way") << "1.000"
                                                     << "jours" << refus << "nombre entier";
        QTest::newRow("negative days") << "-1"
                                       << "jours" << refus << "comprise entre 0 et 3700";
        QTest::newRow("too many days") << "3 701"
                                       << "jours" << refus << "comprise entre 0 et 3700";
    }

    void lecture()
    {
        QFETCH(QString, texte);
        QFETCH(QString, genre);
        QFETCH(double, valeur);
        QFETCH(QString, raison);
        const Bornes b = bornes(genre);
        const Lecture<double> lu = SaisieFrancaise::nombre(texte, b);
        if (std::isnan(valeur)) {
            QVERIFY2(!lu.ok(), qPrintable(QString::number(lu.valeur.value_or(0.0))));
            QVERIFY2(lu.erreur.contains(raison), qPrintable(lu.erreur));
        } else {
            QVERIFY2(lu.ok(), qPrintable(lu.erreur));
            QCOMPARE(*lu.valeur, valeur);
            QVERIFY(!std::signbit(*lu.valeur) || valeur < 0);
        }
        if (b.decimales == 0) {
            const Lecture<int> entier = SaisieFrancaise::entier(texte, int(b.minimum), int(b.maximum));
            QCOMPARE(entier.ok(), lu.ok());
            QCOMPARE(entier.erreur, lu.erreur);
            if (entier.ok())
                QCOMPARE(*entier.valeur, int(valeur));
        }
    }

    void dates_data()
    {
        QTest::addColumn<QDate>("jour");
        QTest::addColumn<bool>("accepte");
        QTest::newRow("first day") << QDate(1950, 1, 1) << true;
        QTest::newRow("last day") << QDate(2100, 12, 31) << true;
        QTest::newRow("the day before") << QDate(1949, 12, 31) << false;
        QTest::newRow("the day after") << QDate(2101, 1, 1) << false;
        QTest::newRow("year 1") << QDate(1, 1, 1) << false;
        QTest::newRow("invalid") << QDate() << false;
    }

    void dates()
    {
        QFETCH(QDate, jour);
        QFETCH(bool, accepte);
        QCOMPARE(SaisieFrancaise::refusDate(jour).isEmpty(), accepte);
    }
};

QTEST_GUILESS_MAIN(TestSaisieFrancaise)
#include "test_saisie_francaise.moc"
