// The rights on a realistic 20-year, 5,000-contract document: the simulation over a one-year
// reference period, and the "Pôle Emploi" section from the document handed to it to its
// first painted report, as the user waits for it.

#include "GenerateurCarriere.h"
#include "app/Environnement.h"
#include "app/poleemploi/SectionPoleEmploi.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/Horloge.h"
#include "store/Intermittent.h"
#include "store/Reglages.h"
#include "unemployment/ComptageHeures.h"
#include "unemployment/Simulation.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace corvane;

namespace {

const QDate kAujourdhui(2026, 11, 21);
QTemporaryDir* g_dossier = nullptr;
QString g_document;

// The year before the career's last day: a reference period of one year.
void simulationUneAnnee(benchmark::State& etat)
{
    Document document;
    document.ouvrir(g_document);
    int heures = 0;
    for (auto _ : etat) {
        QElapsedTimer chrono;
        chrono.start();
        Simulation simulation(document.base(), kAujourdhui.addYears(-1).addDays(1), kAujourdhui);
        simulation.setTriDesContrats(ComptageHeures::conditionsDesContrats().at(0));
        if (!simulation.lance())
            etat.SkipWithError("aucune simulation");
        heures = simulation.nbreHeures;
        benchmark::DoNotOptimize(simulation.compteRendu);
        etat.SetIterationTime(double(chrono.nsecsElapsed()) / 1e9);
    }
    etat.counters["heures"] = heures;
}

void ouvertureSectionPoleEmploi(benchmark::State& etat)
{
    Reglages reglages(g_dossier->filePath(QStringLiteral("reglages.ini")));
    DialoguesScriptes dialogues;
    app::Environnement environnement{reglages, dialogues};
    for (auto _ : etat) {
        QElapsedTimer chrono;
        chrono.start();
        app::SectionPoleEmploi section(environnement);
        section.resize(1000, 700);
        Document document;
        document.ouvrir(g_document);
        section.setDocument(&document);
        section.show();
        // Painting the section into a picture runs the layout and the paint of the report.
        benchmark::DoNotOptimize(section.grab());
        etat.SetIterationTime(double(chrono.nsecsElapsed()) / 1e9);
    }
}

} // namespace

BENCHMARK(simulationUneAnnee)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(50);
BENCHMARK(ouvertureSectionPoleEmploi)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QTemporaryDir dossier;
    g_dossier = &dossier;
    Horloge::fixer(kAujourdhui);
    bench::ParametresCarriere p;
    p.chemin = dossier.filePath(QStringLiteral("carriere.cv4"));
    p.fin = kAujourdhui;
    bench::BilanCarriere bilan;
    if (!bench::genererCarriere(p, bilan))
        qFatal("%s", qPrintable(bilan.erreur));
    g_document = p.chemin;
    {
        // The section opens on the last year, as a user who simulates it would have left it.
        Intermittent dates(p.chemin);
        dates.enregistreDatePreferee(QStringLiteral("simulation_debut"), kAujourdhui.addYears(-1).addDays(1));
        dates.enregistreDatePreferee(QStringLiteral("simulation_fin"), kAujourdhui);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
