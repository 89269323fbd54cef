#pragma once

#include <QLocale>
#include <QString>

namespace corvane {

// Figures written for a person, in the French format. Qt groups digits with U+202F
// and puts U+00A0 before "€".

// The French locale (France), for widgets and charts that format by themselves.
const QLocale& localeFrancaise();

// "1 234,56 €", "-12,50 €" (never the accountants' "(12,50 €)"); no sign on an amount that shows as zero.
QString enEuros(double montant);
// "14,4", "1 234": as few digits as the value needs.
QString enNombre(double valeur);
// "1 234".
QString enEntier(qint64 valeur);
// "1 234,50": a fixed number of decimals.
QString enDecimales(double valeur, int decimales);
// "1234,50": two decimals and no digit groups, the text an amount field is edited as.
QString enSaisie(double montant);

} // namespace corvane
