#include "store/FormatFrancais.h"

namespace corvane {

const QLocale& localeFrancaise()
{
    static const QLocale locale(QLocale::French, QLocale::France);
    return locale;
}

QString enEuros(double montant)
{
    return localeFrancaise().toCurrencyString(montant, QStringLiteral("€"), 2);
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
