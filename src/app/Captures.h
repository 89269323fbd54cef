#pragma once

#include <QString>

class QWidget;

namespace corvane::app {

class FenetrePrincipale;

// Pictures of the main window for the documentation, taken once the window has settled; the
// application then quits (status 1 when a picture could not be written). The destination is a PNG
// file (the window as it opened) or a folder, which receives "fenetre-principale.png" and one
// "section-<nom>.png" per section of the navigation bar.
void programmerCaptures(FenetrePrincipale& fenetre, const QString& destination);

// "Sécurité Sociale" -> "securite-sociale".
QString nomDeFichierSection(const QString& titre);

// Prints "peinte" on stdout once the window has been painted, and quits.
void quitterApresPremierePeinture(QWidget& fenetre);

} // namespace corvane::app
