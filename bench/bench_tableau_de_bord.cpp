// The dashboard on a realistic 20-year, 5,000-contract document (the generator's, as
// `corvane-genere --contrats 5000` writes it): its figures read in-process, the section from the
// document handed to it to its first painted picture, and the whole-file export of three PDFs.

#include "GenerateurCarriere.h"
#include "app/Environnement.h"
#include "app/ExportDossierPdf.h"
#include "app/tableaudebord/SectionTableauDeBord.h"
#include "regimes/TableauDeBord.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace corvane;

namespace {

QTemporaryDir* g_dossier = nullptr;
QString g_document;

// What the section reads at each reload: both statistics rows, the rights, the reference period
// and the list with its totals.
void chiffresTableauDeBord(benchmark::State& etat)
{
    Document document;
    document.ouvrir(g_document);
    for (auto _ : etat) {
        TableauDeBord_v4 tdb(document.base());
        benchmark::DoNotOptimize(tdb.statistiques());
        tdb.droits();
        tdb.periodeDeReference();
        benchmark::DoNotOptimize(tdb.listeContrats(QStringLiteral("ASC")));
    }
}

void ouvertureSectionTableauDeBord(benchmark::State& etat)
{
    Reglages reglages(g_dossier->filePath(QStringLiteral("reglages.ini")));
    DialoguesScriptes dialogues;
    app::Environnement environnement{reglages, dialogues};
    for (auto _ : etat) {
        QElapsedTimer chrono;
        chrono.start();
        app::SectionTableauDeBord section(environnement);
        section.resize(990, 680);
        Document document;
        document.ouvrir(g_document);
        section.setDocument(&document);
        section.show();
        // Painting into a picture runs the layout and the paint of the gauges, list and chart.
        benchmark::DoNotOptimize(section.grab());
        etat.SetIterationTime(double(chrono.nsecsElapsed()) / 1e9);
    }
}

void exportDuDossier(benchmark::State& etat)
{
    Reglages reglages(g_dossier->filePath(QStringLiteral("export.ini")));
    reglages.ecrire(Reglages::Cle::PrefsStockage, g_dossier->filePath(QStringLiteral("stockage")));
    DialoguesScriptes dialogues;
    app::Environnement environnement{reglages, dialogues};
    for (auto _ : etat) {
        const QString dossier = app::exporterDossierPdf(environnement, g_document);
        if (dossier.isEmpty() || QDir(dossier).entryList(QDir::Files).size() != 3)
            etat.SkipWithError("l'export n'a pas écrit ses trois fichiers");
    }
}

} // namespace

BENCHMARK(chiffresTableauDeBord)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(ouvertureSectionTableauDeBord)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(exportDuDossier)->Unit(benchmark::kMillisecond)->Iterations(5);

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
