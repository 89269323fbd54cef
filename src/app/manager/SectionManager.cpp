#include "app/manager/SectionManager.h"

#include "app/manager/OngletEvenements.h"
#include "app/manager/OngletPersonnel.h"
#include "app/manager/OngletPropositions.h"

#include <QTabWidget>
#include <QVBoxLayout>

namespace corvane::app {

SectionManager::SectionManager(Environnement& environnement, QWidget* parent)
    : PageSection(Section::Manager, parent)
{
    m_onglets = new QTabWidget(this);
    m_onglets->setObjectName(QStringLiteral("ongletsManager"));
    m_pages = {new OngletPropositions(environnement, m_onglets), new OngletPersonnel(environnement, m_onglets),
               new OngletEvenements(environnement, m_onglets)};
    m_onglets->addTab(m_pages[0], QStringLiteral("Propositions"));
    m_onglets->addTab(m_pages[1], QStringLiteral("Structures et employés"));
    m_onglets->addTab(m_pages[2], QStringLiteral("Événements"));
    contenu()->addWidget(m_onglets, 1);
    for (OngletManager* page : m_pages)
        connect(page, &OngletManager::ecrit, this, &PageSection::ignorerProchainesModifications);
}

QSet<QString> SectionManager::tablesLues() const
{
    QSet<QString> tables;
    for (const OngletManager* page : m_pages)
        tables.unite(page->tablesLues());
    return tables;
}

void SectionManager::recharger()
{
    const bool nouveauDocument = document() != m_documentAffiche;
    m_documentAffiche = document();
    for (OngletManager* page : m_pages) {
        if (nouveauDocument)
            page->setDocument(document());
        else
            page->actualiser();
    }
}

} // namespace corvane::app
