#pragma once

#include <QByteArrayView>
#include <QDate>
#include <QString>
#include <optional>

namespace corvane {

// What one kind of figure accepts: its range, its decimals, and whether it is an amount in
// euros (which lets a trailing "€" through and words the messages as amounts).
struct Bornes
{
    double minimum = 0.0;
    double maximum = 0.0;
    int decimales = 2;
    bool euros = true;
};

// The bounds of every figure a record holds, in one place for the forms, the command line
// and the records' own checks (the choices are in docs/decisions.md).
namespace Limites {

constexpr double kMontantMaximum = 100'000'000.0;
// A contract's span: about ten years, so that its worked-days list stays a few kilobytes.
constexpr int kJoursContratMaximum = 3700;
constexpr int kHeuresContratMaximum = 24 * kJoursContratMaximum;
// A period's leave, wage-deferral and waiting days.
constexpr int kJoursPeriodeMaximum = 365;
constexpr int kAnneeMinimum = 1950;
constexpr int kAnneeMaximum = 2100;

// Pay, expenses and daily rates: never negative.
constexpr Bornes kMontant{0.0, kMontantMaximum, 2, true};
// A rate in percent (withholding tax).
constexpr Bornes kPourcentage{0.0, 100.0, 2, false};

// The first and last day a record may hold: 1950-01-01 and 2100-12-31.
QDate premierJour();
QDate dernierJour();
// A date of birth may be older than the records: from 1900-01-01 to today.
QDate premiereNaissance();

} // namespace Limites

// A value read from what the user typed, or why it was refused.
template <typename T>
struct Lecture
{
    std::optional<T> valeur;
    QString erreur; // French, says what is wrong; empty when the value was read
    bool ok() const { return valeur.has_value(); }
};

// French input of figures: "1 977,50", "1977,5", "1977.5", "1 977", "1 977,50 €". Blanks
// (ordinary, non-breaking and narrow no-break) separate thousands in groups of three; one
// decimal comma or point. Anything else ("1.977,00", "15OO", "1e308", "inf", "") is refused
// with the reason, never read as 0. The errors are lower-case fragments ("le caractère « O »
// n'est pas permis…") for the caller to put after the field's name.
namespace SaisieFrancaise {

Lecture<double> nombre(const QString& texte, const Bornes& bornes);
inline Lecture<double> montant(const QString& texte)
{
    return nombre(texte, Limites::kMontant);
}
// Days, hours, years: the same, without decimals.
Lecture<int> entier(const QString& texte, int minimum, int maximum);

// Checks of a value already held (a record's own check): "" or the reason.
QString refusNombre(double valeur, const Bornes& bornes);
QString refusEntier(qint64 valeur, int minimum, int maximum);
// An invalid day, or one outside [1950-01-01, 2100-12-31] (or the bounds given).
QString refusDate(const QDate& jour);
QString refusDate(const QDate& jour, const QDate& premier, const QDate& dernier);

// "1 977,50 €" or "3 700", as the messages write bounds.
QString texteNombre(double valeur, const Bornes& bornes);

// UTF-8 bytes as text, every character kept (a leading byte-order mark too, which
// QString::fromUtf8 drops); nullopt when the bytes are not valid UTF-8.
std::optional<QString> texteUtf8(QByteArrayView octets);

} // namespace SaisieFrancaise

} // namespace corvane
