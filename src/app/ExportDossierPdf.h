#pragma once

#include <QString>

namespace corvane::app {

struct Environnement;

// "Exporter tout le dossier en PDF": the dashboard's report, the profile summary and the
// employers' list, written as "Activité dans la période de référence.pdf", "Relevé
// d'informations.pdf" and "Liste des employeurs.pdf" into the storage folder's sub-folder named
// after `document` (created when missing), with the parts the "Impressions" settings print.
// Returns that folder, or "" when nothing more was written after the user was told why (no
// document, no storage folder, a file that could not be written).
QString exporterDossierPdf(Environnement& environnement, const QString& document);

} // namespace corvane::app
