#pragma once

#include <QDate>
#include <QString>

namespace corvane {

class Rapport;
struct ChoixImpressions;

// "Congés Spectacles 2026 11 21": year, month and day, without zeros in front; the name the
// paid-leave fund's report is exported under (without ".pdf").
QString nomRapportConges(const QDate& jour);

// "Congés Spectacles": the estimate for the leave year ("COMPLET", from today) or for the
// period du..au ("PERIODE"), its summary and its contracts as `choix` asks, then the stamp.
// False (nothing composed) when the document cannot be read.
bool composerRapportConges(Rapport& rapport, const QString& document, const ChoixImpressions& choix,
                           const QString& type, const QDate& du = {}, const QDate& au = {});

} // namespace corvane
