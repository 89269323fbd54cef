#pragma once

#include <QString>

namespace corvane {

// SQLite's own texts are English: every reason shown to a user goes through here.
namespace ErreursSQLite {

// Another connection holds the lock the statement needed (after the busy timeout).
bool estOccupe(int code);
// The French reason for a SQLite result code (extended codes accepted), without the file's name.
QString raison(int code);
// The same, naming the file when the reason is about it ("le fichier « X » est utilisé …").
QString raison(int code, const QString& chemin);
// "Le fichier « X » est utilisé par un autre programme.", built as the other messages on a file.
QString fichierUtilise(const QString& chemin);

} // namespace ErreursSQLite
} // namespace corvane
