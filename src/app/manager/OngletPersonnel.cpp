#include "app/manager/OngletPersonnel.h"

namespace corvane::app {

OngletPersonnel::OngletPersonnel(Environnement& environnement, QWidget* parent)
    : OngletManager(parent), m_environnement(environnement)
{
}

void OngletPersonnel::setDocument(Document* document)
{
    m_document = document;
    actualiser();
}

void OngletPersonnel::actualiser() {}

QSet<QString> OngletPersonnel::tablesLues() const
{
    return {};
}

} // namespace corvane::app
