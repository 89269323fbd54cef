#pragma once

#include <QString>

#include <functional>

class QBoxLayout;
class QWidget;

namespace corvane {
class Rapport;
} // namespace corvane

namespace corvane::app {

struct Environnement;
class ApercuPdf;

// Composes a screen's report; false when the document could not be read.
using CompositionRapport = std::function<bool(Rapport&)>;

// What a screen's "Imprimer…" and "Exporter en PDF…" buttons need.
struct RapportEcran
{
    QString document;     // the open document ("" when none)
    QString nomFichier;   // the name proposed in the save panel, without ".pdf"
    QString titreAlertes; // the title of the alert shown without a document
    CompositionRapport composer;
};

// "Exporter en PDF…": the save panel (limited to "pdf"), then the offer to show the
// file. Returns the path written ("" when nothing was).
QString exporterRapportEcran(Environnement& environnement, const RapportEcran& rapport, QWidget* parent);
// "Imprimer…": the print dialog, then the report on the chosen printer.
bool imprimerRapportEcran(Environnement& environnement, const RapportEcran& rapport, QWidget* parent);

// Adds the two buttons to `mise` ("boutonImprimer" + suffix, "boutonExporterPdf" + suffix);
// `rapport` is asked for at each click, so that it follows the screen's filters. Ctrl+P
// clicks "Imprimer…" while it is on screen.
void ajouterBoutonsRapport(QBoxLayout* mise, QWidget* parent, Environnement& environnement,
                           std::function<RapportEcran()> rapport, const QString& suffixe);

} // namespace corvane::app
