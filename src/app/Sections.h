#pragma once

#include <QList>
#include <QString>

namespace corvane::app {

// The sections of the navigation bar, in their order; the tag is what "LastTabUsed" keeps.
enum class Section
{
    TableauDeBord = 0,
    Employeurs,
    Contrats,
    Frais,
    SecuriteSociale,
    Conges,
    Fiscalite,
    PoleEmploi,
    DroitsVoisins,
    Manager,
    Fichiers,
    Verrou, // shown instead of all the others while the document is locked
};

struct DescriptionSection
{
    Section section;
    QString titre;
};

// The navigation bar's sections (the lock section is not in it).
const QList<DescriptionSection>& sectionsNavigation();
QString titreSection(Section section);

} // namespace corvane::app
