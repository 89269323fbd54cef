#pragma once

#include <QDate>
#include <QDateTime>

namespace corvane {

// The one "now" of the program. Tests and `corvane-cli --aujourdhui` fix the day;
// SQLite's own date('now') follows it through a VFS that wraps the default one.
namespace Horloge {

// Local date and time (the fixed day at noon when a day is fixed).
QDateTime maintenant();
// Today's date in the local calendar.
QDate aujourdhui();

void fixer(const QDate& jour);
void reinitialiser();
bool estFixee();

// Registers the clock VFS as SQLite's default; idempotent. Called before any connection opens.
void installerDansSQLite();

} // namespace Horloge
} // namespace corvane
