#pragma once

#include <QString>

namespace corvane {

// What a reader must do first so that reading neither fails on what an interrupted
// writer left nor leaves files behind.
namespace Reprise {

// How to open a document for reading.
struct ModeLecture
{
    int drapeaux = 0;            // sqlite3_open_v2 flags
    bool requetesSeules = false; // opened read-write: the connection must be made query-only
};

// Rolls back a hot journal (a write killed midway) through a short read-write connection,
// which is what SQLite does on its first read; a read-only connection cannot, and would call
// the document unreadable. It needs write access to the file and its folder; without it the
// document is left as it is and the read-only open reports SQLITE_READONLY_ROLLBACK.
// A WAL document without a -wal file is read through a read-write connection, which removes
// the -wal and -shm files it creates when it closes; a read-only one would leave them.
ModeLecture preparer(const QString& chemin);

} // namespace Reprise
} // namespace corvane
