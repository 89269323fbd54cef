#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

namespace corvane {

// Dates between the document text and memory.
//
// A stored date ("2014-03-30 00:00:00.000") stands for one calendar day. In memory a
// day is a QDate, so that it compares the same way in every time zone and on both
// sides of a summer-time change. The instant forms below exist for the operations
// that are defined on instants: 01:00 local time for a stored day, and midnight at
// the fixed offset +01:00 for the readers and the legal switch dates.
namespace Dates {

// "%Y-%m-%d 00:00:00.000"
QString versSQLite(const QDate& jour);
// The day that a stored text stands for: year from characters 0-3, month 5-6, day 8-9.
QDate depuisSQLite(const QString& texte);
// "%d/%m/%Y", the display form.
QString versAffichage(const QDate& jour);
// Reads "dd/MM/yyyy" (leading zeros optional).
QDate depuisAffichage(const QString& texte);
// Reads "AAAA-MM-JJ" exactly (command line, JSON).
QDate depuisIso(const QString& texte);

// conversionDateSQLiteEnNSDate: the stored day at 01:00 local time.
QDateTime conversionDateSQLiteEnNSDate(const QString& texte);
inline QDateTime convertionDateSQLiteEnNSDate(const QString& texte)
{
    return conversionDateSQLiteEnNSDate(texte);
}
// The readers of the rights-opening and preferred dates: the stored midnight at +01:00.
QDateTime lectureAvecDecalage(const QString& texte);
// conversionDateAMinuit: the date's day at midnight, offset +01:00.
QDateTime conversionDateAMinuit(const QDateTime& date);
// A legal switch date: midnight at the start of that day in UTC+01:00.
QDateTime dateDeBascule(int annee, int mois, int jour);

// A date's description ("2014-03-30 01:00:00 +0100"), as the description-based helpers take it.
QString description(const QDateTime& date);
// conversionNSDateDescriptionEnSQLite: first 10 characters followed by " 00:00:00.000".
QString conversionNSDateDescriptionEnSQLite(const QString& description);
// getTimeFromNSDateDescription: characters 11-12, 14-15 and 17-18 joined by ':'.
QString getTimeFromNSDateDescription(const QString& description);
// getTimeFromDateSQLite: today's date with the time "HH:MM:SS" read from the text.
QDateTime getTimeFromDateSQLite(const QString& texte);

int anneeDeLaDate(const QDate& jour);
// Whole days from the first day to the second (negative when the second comes first).
// Days are calendar days: a summer-time change never shortens a span.
qint64 joursEntre(const QDate& debut, const QDate& fin);

} // namespace Dates
} // namespace corvane
