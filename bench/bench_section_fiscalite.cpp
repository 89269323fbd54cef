// The paid-leave and income-tax screens on a realistic 20-year, 5,000-contract document: the tax
// figures of a year and the leave year's estimate computed from the open document, and each
// section opened from the document handed to it to its first painted screen.

#include "GenerateurCarriere.h"
#include "app/Environnement.h"
#include "app/conges/SectionConges.h"
#include "app/fiscalite/SectionFiscalite.h"
#include "regimes/Conges.h"
#include "regimes/Fiscalite.h"
#include "store/Dialogues.h"
#include "store/Document.h"
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

void fiscaliteAnnee(benchmark::State& etat)
{
    Document doc;
    doc.ouvrir(g_document);
    Fiscalite f(doc.base());
    for (auto _ : etat) {
        f.declarationAnnee(2025);
        benchmark::DoNotOptimize(f.revenusNet);
    }
    etat.counters["contrats"] = double(f.contrats.size());
}

void congesAnnee(benchmark::State& etat)
{
    Document doc;
    doc.ouvrir(g_document);
    Conges conges(doc.base());
    qsizetype contrats = 0;
    for (auto _ : etat) {
        const Conges::Resultat r =
            conges.congesSpectacles(QStringLiteral("PERIODE"), QDate(2025, 4, 1), QDate(2026, 3, 31));
        contrats = r.contrats.size();
        benchmark::DoNotOptimize(r);
    }
    etat.counters["contrats"] = double(contrats);
}

template <typename Section>
void ouvertureSection(benchmark::State& etat)
{
    Reglages reglages(g_dossier->filePath(QStringLiteral("reglages.ini")));
    DialoguesScriptes dialogues;
    app::Environnement environnement{reglages, dialogues};
    for (auto _ : etat) {
        QElapsedTimer chrono;
        chrono.start();
        Section section(environnement);
        section.resize(1000, 700);
        Document doc;
        doc.ouvrir(g_document);
        section.setDocument(&doc);
        section.show();
        // Painting the section into a picture runs the layout and the paint of its lists.
        benchmark::DoNotOptimize(section.grab());
        etat.SetIterationTime(double(chrono.nsecsElapsed()) / 1e9);
    }
}

void ouvertureSectionConges(benchmark::State& etat)
{
    ouvertureSection<app::SectionConges>(etat);
}

void ouvertureSectionFiscalite(benchmark::State& etat)
{
    ouvertureSection<app::SectionFiscalite>(etat);
}

} // namespace

BENCHMARK(fiscaliteAnnee)->Unit(benchmark::kMillisecond);
BENCHMARK(congesAnnee)->Unit(benchmark::kMillisecond);
BENCHMARK(ouvertureSectionConges)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(ouvertureSectionFiscalite)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

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
