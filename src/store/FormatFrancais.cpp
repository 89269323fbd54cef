#include "store/FormatFrancais.h"

#include <cmath>

namespace corvane {

const QLocale& localeFrancaise()
{
    static const QLocale locale(QLocale::French, QLocale::France);
    return locale;
}

QString enEuros(double montant)
{
    // Qt writes a negative amount the accountants' way, "(12,50 €)": a sign reads better to
    // everyone else. An amount that shows as zero gets no sign.
    const QString texte = localeFrancaise().toCurrencyString(std::abs(montant), QStringLiteral("€"), 2);
    return std::llround(montant * 100) < 0 ? localeFrancaise().negativeSign() + texte : texte;
}

QString enNombre(double valeur)
{
    return localeFrancaise().toString(valeur, 'g', QLocale::FloatingPointShortest);
}

QString enEntier(qint64 valeur)
{
    return localeFrancaise().toString(valeur);
}

QString enDecimales(double valeur, int decimales)
{
    return localeFrancaise().toString(valeur, 'f', decimales);
}

QString enSaisie(double montant)
{
    static const QLocale sansGroupes = [] {
        QLocale l = localeFrancaise();
        l.setNumberOptions(QLocale::OmitGroupSeparator);
        return l;
    }();
    return sansGroupes.toString(montant, 'f', 2);
}

} // namespace corvane
