#pragma once

#include "store/BaseDeDonnees.h"

namespace corvane {

// Several statements that stand or fall together: a SAVEPOINT opened at construction, released
// by valider(), rolled back when the object goes without it. Savepoints nest, so a step that
// keeps its own can run inside a larger one (a contract saved with its template's expense).
class PointDeSauvegarde
{
public:
    explicit PointDeSauvegarde(BaseDeDonnees& base) : m_base(base)
    {
        m_ouvert = m_base.exec(QStringLiteral("SAVEPOINT corvane;")) == 0;
    }
    ~PointDeSauvegarde()
    {
        if (m_ouvert)
            m_base.exec(QStringLiteral("ROLLBACK TO corvane; RELEASE corvane;"));
    }
    PointDeSauvegarde(const PointDeSauvegarde&) = delete;
    PointDeSauvegarde& operator=(const PointDeSauvegarde&) = delete;

    bool estOuvert() const { return m_ouvert; }
    // Keeps what was written; false when it could not be (the writes are then undone).
    bool valider()
    {
        if (!m_ouvert)
            return false;
        m_ouvert = false;
        if (m_base.exec(QStringLiteral("RELEASE corvane;")) == 0)
            return true;
        m_base.exec(QStringLiteral("ROLLBACK TO corvane; RELEASE corvane;"));
        return false;
    }

private:
    BaseDeDonnees& m_base;
    bool m_ouvert = false;
};

} // namespace corvane
