#include "app/manager/OngletPropositions.h"

namespace corvane::app {

OngletPropositions::OngletPropositions(Environnement& environnement, QWidget* parent)
    : OngletManager(parent), m_environnement(environnement)
{
}

void OngletPropositions::setDocument(Document* document)
{
    m_document = document;
    actualiser();
}

void OngletPropositions::actualiser() {}

QSet<QString> OngletPropositions::tablesLues() const
{
    return {};
}

} // namespace corvane::app
