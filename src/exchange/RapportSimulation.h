#pragma once

#include "unemployment/DemandeDroits.h"
#include "unemployment/Simulation.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

namespace corvane {

class Rapport;
class Reglages;

// The parts of the rights report the user wants printed (the "PoleEmploi_Impressions…" settings).
struct ChoixRapportDroits
{
    bool compteRendu = true;
    bool allocations = true;
    bool periode = true;
    bool heures = true;

    static ChoixRapportDroits depuis(const Reglages& reglages);
};

// "Simulation des droits 21 11 2026" or "Analyse des droits 21 11 2026": day, month and year,
// without zeros in front.
QString nomRapportDroits(bool analyse, const QDate& jour);
QString titreRapportDroits(bool analyse);

// The hours counted, as the screen and the report show them: one row per job ("Artiste",
// "Ouvrier", "Technicien") with its performances, teaching (less the hours at employers that
// are not approved) and training; then the ceilings, the leave and the totals.
const QStringList& colonnesHeuresParEmploi();
QList<QStringList> heuresParEmploi(const Simulation& simulation);
QList<LignePeriode> decompteDesHeures(const Simulation& simulation);

// The demand launched on the document at `document`, and its report: the title and the range,
// the report's lines in their colours, the allocation table, the period table and the hours.
// When nothing could be computed the report says why. False when the document cannot be read.
bool composerRapportDroits(Rapport& rapport, const QString& document, const ChoixRapportDroits& choix,
                           const DemandeDroits& demande);

} // namespace corvane
