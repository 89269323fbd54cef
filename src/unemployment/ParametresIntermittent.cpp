#include "unemployment/ParametresIntermittent.h"

#include "unemployment/SmicHoraire.h"

namespace corvane {

const QStringList& ParametresIntermittent::securiteSocialePrestations()
{
    static const QStringList liste{QStringLiteral("Accident du travail"), QStringLiteral("Maladie"),
                                   QStringLiteral("Maternité"), QStringLiteral("Paternité"),
                                   QStringLiteral("Régime Général")};
    return liste;
}

const TableDatee& ParametresIntermittent::tableSmicHoraire()
{
    // The 2016 row repeats the 2015 value: the rights already computed with this
    // table depend on it, so it stays although the minimum wage rose that year.
    static const TableDatee table(smicHoraireAvant2005, smicHoraireJusqua2015({
                                                            {QDate(2016, 1, 1), 9.61},
                                                            {QDate(2017, 1, 1), 9.76},
                                                            {QDate(2018, 1, 1), 9.88},
                                                            {QDate(2019, 1, 1), 10.03},
                                                            {QDate(2020, 1, 1), 10.15},
                                                        }));
    return table;
}

const TableDatee& ParametresIntermittent::tableCsgCrdsPlafond()
{
    static const TableDatee table(42.0, {
                                            {QDate(2007, 7, 1), 43.0},
                                            {QDate(2008, 7, 1), 44.0},
                                            {QDate(2009, 7, 1), 45.0},
                                            {QDate(2012, 1, 1), 47.0},
                                            {QDate(2014, 1, 1), 48.0},
                                            {QDate(2015, 1, 1), 49.0},
                                        });
    return table;
}

const TableDatee& ParametresIntermittent::tableSupplementAlsaceMoselle()
{
    static const TableDatee table(1.8, {{QDate(2012, 1, 1), 1.5}});
    return table;
}

const TableDatee& ParametresIntermittent::tablePlafondAllocationJournaliere()
{
    // The 2012-07-01 row answers for every later day: the three rows after it were
    // added but never take effect, and the allowances computed so far rely on 137.12.
    static const TableDatee table(121.33, {
                                              {QDate(2009, 1, 1), 129.34},
                                              {QDate(2010, 1, 1), 130.51},
                                              {QDate(2011, 1, 1), 133.27},
                                              {QDate(2012, 7, 1), 137.12, true},
                                              {QDate(2013, 7, 1), 139.61},
                                              {QDate(2014, 7, 1), 141.55},
                                              {QDate(2016, 1, 1), 145.58},
                                          });
    return table;
}

double ParametresIntermittent::smicHoraireEnCours(const QDate& jour)
{
    return tableSmicHoraire().valeurAu(jour);
}

double ParametresIntermittent::smicHoraireEnCours(const QDateTime& instant)
{
    return smicHoraireEnCours(jourLegal(instant));
}

double ParametresIntermittent::CsgCrdsPlafondEnCours(const QDate& jour)
{
    return tableCsgCrdsPlafond().valeurAu(jour);
}

double ParametresIntermittent::CsgCrdsPlafondEnCours(const QDateTime& instant)
{
    return CsgCrdsPlafondEnCours(jourLegal(instant));
}

double ParametresIntermittent::supplementAlsaceMoselle(const QDate& jour)
{
    return tableSupplementAlsaceMoselle().valeurAu(jour);
}

double ParametresIntermittent::supplementAlsaceMoselle(const QDateTime& instant)
{
    return supplementAlsaceMoselle(jourLegal(instant));
}

double ParametresIntermittent::plafondAllocationJournaliereEnCours(const QDate& jour)
{
    return tablePlafondAllocationJournaliere().valeurAu(jour);
}

double ParametresIntermittent::plafondAllocationJournaliereEnCours(const QDateTime& instant)
{
    return plafondAllocationJournaliereEnCours(jourLegal(instant));
}

} // namespace corvane
