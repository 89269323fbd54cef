#include "store/Document.h"

#include <QMetaObject>
#include <sqlite3.h>
#include <utility>

namespace corvane {

Document::Document(QObject* parent) : QObject(parent) {}

Document::~Document()
{
    fermer();
}

bool Document::ouvrir(const QString& chemin)
{
    fermer();
    if (!m_base.ouvrir(chemin))
        return false;
    sqlite3_update_hook(m_base.handle(), &Document::surEcriture, this);
    // A DELETE without WHERE would empty the table at once, without a word to the hook:
    // answering "ignore" for deletes makes SQLite delete row by row, and report each.
    sqlite3_set_authorizer(
        m_base.handle(),
        [](void*, int action, const char*, const char*, const char*, const char*) {
            return action == SQLITE_DELETE ? SQLITE_IGNORE : SQLITE_OK;
        },
        nullptr);
    return true;
}

void Document::fermer()
{
    if (m_base.estOuverte()) {
        sqlite3_update_hook(m_base.handle(), nullptr, nullptr);
        sqlite3_set_authorizer(m_base.handle(), nullptr, nullptr);
    }
    m_base.fermer();
    m_tables.clear();
}

void Document::surEcriture(void* document, int, const char*, const char* table, long long)
{
    static_cast<Document*>(document)->noterTable(table);
}

void Document::noterTable(const char* table)
{
    // Called from inside sqlite3_step: nothing here may touch the connection.
    m_tables.insert(QString::fromUtf8(table));
    if (m_annoncePrevue)
        return;
    m_annoncePrevue = true;
    QMetaObject::invokeMethod(this, &Document::annoncerMaintenant, Qt::QueuedConnection);
}

void Document::annoncerMaintenant()
{
    m_annoncePrevue = false;
    if (m_tables.isEmpty())
        return;
    const QSet<QString> tables = std::exchange(m_tables, {});
    emit tablesModifiees(tables);
}

} // namespace corvane
