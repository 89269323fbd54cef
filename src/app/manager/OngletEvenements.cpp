#include "app/manager/OngletEvenements.h"

namespace corvane::app {

OngletEvenements::OngletEvenements(Environnement& environnement, QWidget* parent)
    : OngletManager(parent), m_environnement(environnement)
{
}

void OngletEvenements::setDocument(Document* document)
{
    m_document = document;
    actualiser();
}

void OngletEvenements::actualiser() {}

QSet<QString> OngletEvenements::tablesLues() const
{
    return {};
}

} // namespace corvane::app
