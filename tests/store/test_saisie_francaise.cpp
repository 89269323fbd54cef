// French input of amounts, rates and counts: what is read, and what is refused with
// which reason (never read as 0); the bounds of dates.

#include "commun/Cas.h"
#include "store/SaisieFrancaise.h"

#include <QtTest>
#include <cmath>

using namespace corvane;
using namespace corvane::test;

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

        cas("grouped with a comma", "1 977,00", "montant", 1977.0, "");
        cas("decimal point", "1977.5", "montant", 1977.5, "");
        cas("non-breaking space", "1" + nbsp + "977,50", "montant", 1977.5, "");
        cas("narrow no-break space, millions", "12" + fine + "345" + fine + "678,9", "montant", 12345678.9, "");
        cas("euro sign", "1 977,50 €", "montant", 1977.5, "");
        cas("euro sign, no blank", "12€", "montant", 12.0, "");
        cas("blanks around", "  42,10 ", "montant", 42.1, "");
        cas("the bound itself", "100 000 000", "montant", 1e8, "");
        cas("negative where allowed", "-12,50", "relatif", -12.5, "");
        cas("minus sign where allowed", QString(QChar(0x2212)) + "3", "relatif", -3.0, "");

        cas("German grouping", "1.977,00", "montant", refus, "un seul séparateur décimal");
        cas("letter O for zero", "15OO", "montant", refus, "le caractère « O »");
        cas("empty", "", "montant", refus, "aucune valeur");
        cas("exponent", "1e308", "montant", refus, "le caractère « e »");
        cas("not a number", "nan", "montant", refus, "le caractère « n »");
        cas("two commas", "1,2,3", "montant", refus, "un seul séparateur décimal");
        cas("dot as thousands: three decimals", "1.977", "montant", refus, "deux décimales au plus");
        cas("groups of two", "19 77", "montant", refus, "tous les trois chiffres");
        cas("blank in the decimals", "12,5 0", "montant", refus, "tous les trois chiffres");
        cas("nothing after the comma", "12,", "montant", refus, "après la virgule");
        cas("nothing before the comma", ",50", "montant", refus, "avant la virgule");
        cas("euro sign alone", "€", "montant", refus, "aucun chiffre");
        cas("euro sign first", "€12", "montant", refus, "le caractère « € »");
        cas("negative pay", "-12,50", "montant", refus, "négatif");
        cas("beyond a hundred million", "100 000 000,01", "montant", refus, "ne peut pas dépasser 100 000 000,00 €");
        cas("below the negative bound", "-100 000 001", "relatif", refus, "inférieur");
        cas("invisible character", QString(QChar(0xFEFF)) + "12", "montant", refus, "U+FEFF");

        cas("rate", "21,5", "taux", 21.5, "");
        cas("rate above 100", "100,5", "taux", refus, "comprise entre 0 et 100");
        cas("days", "1 200", "jours", 1200.0, "");
        cas("days with decimals", "12,5", "jours", refus, "nombre entier");
        cas("days written the German way", "1.000", "jours", refus, "nombre entier");
        cas("negative days", "-1", "jours", refus, "comprise entre 0 et 3700");
        cas("too many days", "3 701", "jours", refus, "comprise entre 0 et 3700");
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
        cas("first day", QDate(1950, 1, 1), true);
        cas("last day", QDate(2100, 12, 31), true);
        cas("the day before", QDate(1949, 12, 31), false);
        cas("the day after", QDate(2101, 1, 1), false);
        cas("year 1", QDate(1, 1, 1), false);
        cas("invalid", QDate(), false);
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
