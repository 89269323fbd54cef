#pragma once

#include <QLocale>
#include <QString>

namespace corvane::cli {

// Figures for a person, in the French format ("1 234,56 €", "14,4").
inline const QLocale& localeFrancaise()
{
    static const QLocale locale(QLocale::French, QLocale::France);
    return locale;
}

inline QString enEuros(double montant)
{
    return localeFrancaise().toCurrencyString(montant, QStringLiteral("€"), 2);
}

inline QString enNombre(double valeur)
{
    return localeFrancaise().toString(valeur, 'g', QLocale::FloatingPointShortest);
}

} // namespace corvane::cli
