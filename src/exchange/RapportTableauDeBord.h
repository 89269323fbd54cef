#pragma once

#include <QDate>
#include <QString>

#include <utility>

namespace corvane {

class Rapport;
class TableauDeBord_v4;
struct ChoixImpressions;

// The dashboard's report and the span its "Période" figures cover.

// "Activité dans la période de référence 2026 11 21": year, month and day, without zeros in front.
QString nomRapportTableauDeBord(const QDate& jour);
// "Activité dans la période de référence", the report's title and its name in the whole-file export.
QString titreRapportTableauDeBord();

// The first and last day the "Période" figures and the list cover: the opening of rights, and
// today, or the current period's end when the dashboard is locked to it and that end is past.
// Reads the document through `tableau` (its `bloquePeriode` says which end).
std::pair<QDate, QDate> periodeDuTableauDeBord(TableauDeBord_v4& tableau);

// "Activité dans la période de référence": the span, then behind their switches the period's
// figures, today's situation (hours, rights, reference period) and the list of the period's
// contracts and sickness periods in the order `sens` ("ASC" or "DESC"), with their days and
// hours when asked. False (nothing composed) when the document cannot be read.
bool composerRapportTableauDeBord(Rapport& rapport, const QString& document, const ChoixImpressions& choix,
                                  bool bloquePeriode = false, const QString& sens = QStringLiteral("ASC"));

} // namespace corvane
