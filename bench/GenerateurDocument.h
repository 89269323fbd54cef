#pragma once

#include <QString>

namespace corvane::bench {

// Realistic documents for measurements: a profile, a few dozen employers and
// `contrats` engagements spread over the years, with the employers' usual pay.
// Deterministic: the same arguments give the same document.

// A current-generation document, made as the program makes one.
bool genererDocumentV4(const QString& chemin, int contrats);
// A generation-3 document, as the earlier product left it.
bool genererDocumentV3(const QString& chemin, int contrats);

} // namespace corvane::bench
