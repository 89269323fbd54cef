#pragma once

#include "app/Sections.h"

class QWidget;

namespace corvane::app {

struct Environnement;
class PageSection;

// The page that shows a navigation section.
PageSection* creerPage(Section section, Environnement& environnement, QWidget* parent);

} // namespace corvane::app
