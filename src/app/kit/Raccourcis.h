#pragma once

#include <QString>

class QWidget;

namespace corvane::app {

// The Alt-letters of the main window's menus (Fichier, Dossier, Sections, Aide): a form shown in the
// window leaves them to the menus.
inline const QString kLettresDesMenus = QStringLiteral("FDSA");

// Gives every label of the form layouts under `racine`, and every check box, an Alt-letter, so that
// Alt and the letter reaches the field. A letter is used once under `racine` and never one of
// `reservees`; word-initial letters come first. Texts that already carry a letter keep it.
void attribuerRaccourcis(QWidget* racine, const QString& reservees = kLettresDesMenus);

} // namespace corvane::app
