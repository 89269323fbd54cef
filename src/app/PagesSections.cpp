#include "app/PagesSections.h"

#include "app/Environnement.h"
#include "app/PageSection.h"
#include "app/SectionFichiers.h"
#include "app/conges/SectionConges.h"
#include "app/contrats/SectionContrats.h"
#include "app/droitsvoisins/SectionDroitsVoisins.h"
#include "app/employeurs/SectionEmployeurs.h"
#include "app/fiscalite/SectionFiscalite.h"
#include "app/frais/SectionFrais.h"
#include "app/manager/SectionManager.h"
#include "app/securite/SectionSecuriteSociale.h"
#include "app/poleemploi/SectionPoleEmploi.h"
#include "app/tableaudebord/SectionTableauDeBord.h"

namespace corvane::app {

PageSection* creerPage(Section section, Environnement& environnement, QWidget* parent)
{
    switch (section) {
    case Section::TableauDeBord:
        return new SectionTableauDeBord(environnement, parent);
    case Section::Fichiers:
        return new SectionFichiers(parent);
    case Section::Contrats:
        return new SectionContrats(environnement, parent);
    case Section::Employeurs:
        return new SectionEmployeurs(environnement, parent);
    case Section::SecuriteSociale:
        return new SectionSecuriteSociale(environnement, parent);
    case Section::PoleEmploi:
        return new SectionPoleEmploi(environnement, parent);
    case Section::Conges:
        return new SectionConges(environnement, parent);
    case Section::Fiscalite:
        return new SectionFiscalite(environnement, parent);
    case Section::Frais:
        return new SectionFrais(environnement, parent);
    case Section::DroitsVoisins:
        return new SectionDroitsVoisins(environnement, parent);
    case Section::Manager:
        return new SectionManager(environnement, parent);
    case Section::Verrou:
        break;
    }
    // The lock has its own page, outside the navigation bar.
    Q_ASSERT_X(false, "creerPage", "not a section of the navigation bar");
    return nullptr;
}

} // namespace corvane::app
