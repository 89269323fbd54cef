#include "app/Sections.h"

namespace corvane::app {

const QList<DescriptionSection>& sectionsNavigation()
{
    static const QList<DescriptionSection> liste{
        {Section::TableauDeBord, QStringLiteral("Tableau de bord")},
        {Section::Employeurs, QStringLiteral("Employeurs")},
        {Section::Contrats, QStringLiteral("Contrats")},
        {Section::Frais, QStringLiteral("Frais")},
        {Section::SecuriteSociale, QStringLiteral("Sécurité Sociale")},
        {Section::Conges, QStringLiteral("Congés")},
        {Section::Fiscalite, QStringLiteral("Fiscalité")},
        {Section::PoleEmploi, QStringLiteral("Pôle Emploi")},
        {Section::DroitsVoisins, QStringLiteral("Droits Voisins")},
        {Section::Manager, QStringLiteral("Manager")},
        {Section::Fichiers, QStringLiteral("Fichiers")},
    };
    return liste;
}

QString titreSection(Section section)
{
    if (section == Section::Verrou)
        return QStringLiteral("Fichier protégé");
    for (const DescriptionSection& d : sectionsNavigation())
        if (d.section == section)
            return d.titre;
    return {};
}

} // namespace corvane::app
