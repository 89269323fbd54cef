#pragma once

#include <QString>

namespace corvane {

// The document's password and lock flag (table `file`). The password is kept as the
// Base64 text of its UTF-8 bytes; an absent value counts as no password.
namespace Verrou {

bool isFileLocked(const QString& chemin);
QString motDePasse(const QString& chemin);
bool estLeMotDePasse(const QString& chemin, const QString& tape);
// Locking takes effect at the next opening of the document.
void enregistrerVerrouillage(const QString& chemin, bool verrouille);
void changerMotDePasse(const QString& chemin, const QString& nouveau);
QString encoder(const QString& motDePasse);

} // namespace Verrou
} // namespace corvane
