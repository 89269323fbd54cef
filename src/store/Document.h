#pragma once

#include "store/BaseDeDonnees.h"

#include <QObject>
#include <QSet>
#include <QString>

namespace corvane {

// The document open in the program: its one connection, which every screen and record
// object borrows, and the news of what was written. SQLite reports each row written
// through this connection; the tables touched are gathered and announced once per turn
// of the event loop, so that a screen reloads once for a whole save.
class Document : public QObject
{
    Q_OBJECT

public:
    explicit Document(QObject* parent = nullptr);
    ~Document() override;

    // Opens a document already checked and upgraded; false when it cannot be opened.
    bool ouvrir(const QString& chemin);
    void fermer();

    bool estOuvert() const { return m_base.estOuverte(); }
    QString chemin() const { return m_base.chemin(); }
    BaseDeDonnees& base() { return m_base; }

    // Announces the tables gathered so far without waiting for the event loop.
    void annoncerMaintenant();

signals:
    void tablesModifiees(const QSet<QString>& tables);

private:
    static void surEcriture(void* document, int operation, const char* base, const char* table, long long rangee);
    void noterTable(const char* table);

    BaseDeDonnees m_base;
    QSet<QString> m_tables;
    bool m_annoncePrevue = false;
};

} // namespace corvane
