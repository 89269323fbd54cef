#include "app/PagesSections.h"

#include "app/Environnement.h"
#include "app/PageSection.h"
#include "app/SectionFichiers.h"

namespace corvane::app {

PageSection* creerPage(Section section, Environnement& environnement, QWidget* parent)
{
    Q_UNUSED(environnement);
    switch (section) {
    case Section::Fichiers:
        return new SectionFichiers(parent);
    default:
        return new PageAVenir(section, parent);
    }
}

} // namespace corvane::app
