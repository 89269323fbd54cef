#pragma once

#include <QString>

namespace corvane {
class Dialogues;
}

namespace corvane::app {

// The title of the expenses screen's alerts.
inline const QString kTitreAlertesFrais = QStringLiteral("Gestion des frais");

// Shows an expense's receipt in the viewer the system uses for its kind of file; says why
// when the file is gone or nothing can show it. True when it was handed over.
bool ouvrirJustificatif(const QString& chemin, Dialogues& dialogues);

} // namespace corvane::app
