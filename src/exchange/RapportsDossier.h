#pragma once

#include <QList>
#include <QString>

#include <functional>

namespace corvane {

class Rapport;
struct ChoixImpressions;

// One report of the whole-file export: the file's name (without ".pdf") and how to compose it
// (false: the document could not be read).
struct RapportDuDossier
{
    QString nom;
    std::function<bool(Rapport&)> composer;
};

// The whole-file export, in its order: "Activité dans la période de référence", "Relevé
// d'informations" and "Liste des employeurs", each composed from the document at `document` with
// the parts `choix` prints (the dashboard locked to the period and sorted as given).
QList<RapportDuDossier> rapportsDuDossier(const QString& document, const ChoixImpressions& choix,
                                          bool bloquePeriode = false, const QString& sens = QStringLiteral("ASC"));

} // namespace corvane
