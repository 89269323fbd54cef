#pragma once

#include <QDate>
#include <QString>

namespace corvane {

class Rapport;
struct ChoixImpressions;

// "Frais professionnels 21 11 2026": day, month and year, without zeros in front. The
// neighbouring-rights report is exported under the expenses' name, as it always was.
QString nomRapportDroitsVoisins(const QDate& jour);

// "Droits voisins": the totals per body ("Compte rendu") and every payment ("Liste des
// versements"), as `choix` asks, then the stamp. False (nothing composed) when the document
// cannot be read.
bool composerRapportDroitsVoisins(Rapport& rapport, const QString& document, const ChoixImpressions& choix);

} // namespace corvane
