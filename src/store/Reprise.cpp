#include "store/Reprise.h"

#include "store/BaseDeDonnees.h"

#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

namespace corvane::Reprise {

namespace {

// Bytes 18 and 19 of the header: 2 for a WAL document.
bool estEnModeWal(const QString& chemin)
{
    QFile fichier(chemin);
    if (!fichier.open(QIODevice::ReadOnly))
        return false;
    const QByteArray entete = fichier.read(20);
    return entete.size() == 20 && entete.startsWith("SQLite format 3") && entete.at(18) == 2 && entete.at(19) == 2;
}

void reprendreLeJournal(const QString& chemin)
{
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(chemin.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK) {
        sqlite3_busy_timeout(db, BaseDeDonnees::attenteOccupe());
        // Any read takes the shared lock, which rolls a hot journal back; a journal that a
        // live writer still holds is not hot and is left alone.
        sqlite3_exec(db, "SELECT COUNT(*) FROM sqlite_master;", nullptr, nullptr, nullptr);
    }
    sqlite3_close(db);
}

} // namespace

ModeLecture preparer(const QString& chemin)
{
    const QFileInfo info(chemin);
    // As for opening to write: the owner's write bit counts even for an administrator.
    const bool modifiable = info.isWritable() && (info.permissions() & QFileDevice::WriteOwner) &&
                            QFileInfo(info.absolutePath()).isWritable();
    if (modifiable && QFileInfo(chemin + QStringLiteral("-journal")).size() > 0)
        reprendreLeJournal(chemin);
    if (modifiable && estEnModeWal(chemin) && !QFileInfo::exists(chemin + QStringLiteral("-wal")))
        return {SQLITE_OPEN_READWRITE, true};
    return {SQLITE_OPEN_READONLY, false};
}

} // namespace corvane::Reprise
