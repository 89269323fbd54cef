#pragma once

#include <QDate>
#include <QString>

namespace corvane {

class Rapport;
struct ChoixImpressions;
struct FiltreFrais;

// "Frais professionnels 21 11 2026": day, month and year, without zeros in front; the name the
// expenses report is exported under (without ".pdf").
QString nomRapportFrais(const QDate& jour);
// "Liste des frais", the report's title.
QString titreRapportFrais();

// The expenses the filter lists, in its order, with their total in euros and in kilometres,
// then the totals per category, as `choix` asks. False (nothing composed) when the document
// cannot be read.
bool composerRapportFrais(Rapport& rapport, const QString& document, const ChoixImpressions& choix,
                          const FiltreFrais& filtre);

} // namespace corvane
