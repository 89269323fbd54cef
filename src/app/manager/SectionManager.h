#pragma once

#include "app/PageSection.h"

#include <QList>

class QTabWidget;

namespace corvane::app {

struct Environnement;
class OngletManager;

// The "Manager" section, the back office of the user's own company or troupe: the
// propositions sent to organisers, the structures with their employees, and the events.
class SectionManager : public PageSection
{
    Q_OBJECT

public:
    SectionManager(Environnement& environnement, QWidget* parent = nullptr);

    QTabWidget* onglets() const { return m_onglets; }

protected:
    QSet<QString> tablesLues() const override;
    void recharger() override;

private:
    Document* m_documentAffiche = nullptr;
    QTabWidget* m_onglets = nullptr;
    QList<OngletManager*> m_pages;
};

} // namespace corvane::app
