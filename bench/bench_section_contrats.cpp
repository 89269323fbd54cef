// Opening the contracts section on a realistic 20-year, 5,000-contract document: from
// the document handed to the section to the first painted list, as the user waits for it.

#include "GenerateurCarriere.h"
#include "app/Environnement.h"
#include "app/contrats/SectionContrats.h"
#include "store/Dialogues.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace corvane;

namespace {

QTemporaryDir* g_dossier = nullptr;
QString g_document;

void ouvertureSectionContrats(benchmark::State& etat)
{
    Reglages reglages(g_dossier->filePath(QStringLiteral("reglages.ini")));
    DialoguesScriptes dialogues;
    app::Environnement environnement{reglages, dialogues};
    for (auto _ : etat) {
        QElapsedTimer chrono;
        chrono.start();
        app::SectionContrats section(environnement);
        section.resize(1000, 700);
        Document document;
        document.ouvrir(g_document);
        section.setDocument(&document);
        section.show();
        // Painting the section into a picture runs the layout and the paint of the list.
        benchmark::DoNotOptimize(section.grab());
        etat.SetIterationTime(double(chrono.nsecsElapsed()) / 1e9);
    }
}

} // namespace

BENCHMARK(ouvertureSectionContrats)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QTemporaryDir dossier;
    g_dossier = &dossier;
    Horloge::fixer(QDate(2026, 11, 21));
    bench::ParametresCarriere p;
    p.chemin = dossier.filePath(QStringLiteral("carriere.cv4"));
    p.fin = QDate(2026, 11, 21);
    bench::BilanCarriere bilan;
    if (!bench::genererCarriere(p, bilan))
        qFatal("%s", qPrintable(bilan.erreur));
    g_document = p.chemin;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
