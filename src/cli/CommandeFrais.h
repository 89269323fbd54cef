#pragma once

#include "cli/Commande.h"

namespace corvane {
class Frais;
struct FiltreFrais;
} // namespace corvane

namespace corvane::cli {

// The filter options of `frais lister`, which `pdf --rapport frais` takes too.
const QList<OptionAttendue>& optionsFiltreFrais();
QString usageFiltreFrais();
// The filter once the document is known: "" when it reads, else the message and, in `code`,
// MauvaisUsage (a malformed option) or ErreurUtilisateur (a category the document lacks).
QString lireFiltreFrais(Arguments& arguments, Frais& frais, FiltreFrais& filtre, int* code);

} // namespace corvane::cli
