#pragma once

class QCoreApplication;

namespace corvane::app {

// Corvane speaks French whatever the system's language: Qt's own texts (standard
// buttons, context menus, file panels) come from Qt's French catalogue, and the
// locale-aware widgets (the calendar, the spin boxes) read and write the French way.
// False when Qt's catalogue is missing (package qt6-translations-l10n): Qt's texts then
// stay in English, the rest is unchanged.
bool parlerFrancais(QCoreApplication& application);

} // namespace corvane::app
