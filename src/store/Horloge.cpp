#include "store/Horloge.h"

#include <mutex>
#include <sqlite3.h>

namespace corvane::Horloge {

namespace {

QDate g_jourFixe;

sqlite3_vfs g_vfs;
sqlite3_vfs* g_vfsParDefaut = nullptr;

// Julian day number of 1970-01-01 00:00 UTC, in milliseconds.
constexpr sqlite3_int64 kEpoqueJulienneMs = 210866760000000LL;

// SQLite's 'now' is the local wall-clock time, so that date('now') is the user's
// today (and the fixed day when one is set), whatever the time zone.
sqlite3_int64 maintenantJulienMs()
{
    const QDateTime local = maintenant();
    const QDateTime murale(local.date(), local.time(), Qt::UTC);
    return murale.toMSecsSinceEpoch() + kEpoqueJulienneMs;
}

int heureCourante64(sqlite3_vfs*, sqlite3_int64* resultat)
{
    *resultat = maintenantJulienMs();
    return SQLITE_OK;
}

int heureCourante(sqlite3_vfs*, double* resultat)
{
    *resultat = double(maintenantJulienMs()) / 86400000.0;
    return SQLITE_OK;
}

} // namespace

QDateTime maintenant()
{
    if (g_jourFixe.isValid())
        return QDateTime(g_jourFixe, QTime(12, 0), Qt::LocalTime);
    return QDateTime::currentDateTime();
}

QDate aujourdhui()
{
    return maintenant().date();
}

void fixer(const QDate& jour)
{
    g_jourFixe = jour;
}

void reinitialiser()
{
    g_jourFixe = QDate();
}

bool estFixee()
{
    return g_jourFixe.isValid();
}

void installerDansSQLite()
{
    static std::once_flag fait;
    std::call_once(fait, [] {
        sqlite3_initialize();
        g_vfsParDefaut = sqlite3_vfs_find(nullptr);
        if (!g_vfsParDefaut)
            return;
        g_vfs = *g_vfsParDefaut;
        g_vfs.zName = "corvane-horloge";
        g_vfs.pNext = nullptr;
        g_vfs.xCurrentTime = heureCourante;
        if (g_vfs.iVersion >= 2)
            g_vfs.xCurrentTimeInt64 = heureCourante64;
        sqlite3_vfs_register(&g_vfs, 1);
    });
}

} // namespace corvane::Horloge
