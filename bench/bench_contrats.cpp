// The contracts listing on a realistic 20-year, 5,000-contract document: each filter,
// with its totals and grouped count, as the contracts section runs it.

#include "GenerateurCarriere.h"
#include "records/Contrats.h"
#include "store/Horloge.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace corvane;

namespace {

const QString& documentCarriere()
{
    static QTemporaryDir dossier;
    static const QString chemin = [] {
        bench::ParametresCarriere p;
        p.chemin = dossier.filePath(QStringLiteral("carriere.cv4"));
        p.fin = QDate(2026, 11, 21);
        bench::BilanCarriere bilan;
        if (!bench::genererCarriere(p, bilan))
            qFatal("%s", qPrintable(bilan.erreur));
        return p.chemin;
    }();
    return chemin;
}

FiltreContrats filtre(int cas)
{
    FiltreContrats f;
    switch (cas) {
    case 0:
        break;
    case 1:
        f.periode = QStringLiteral("periode_reference");
        break;
    case 2:
        f.periode = QStringLiteral("annee");
        break;
    case 3:
        f.periode = QStringLiteral("periode");
        f.du = QDate(2015, 1, 1);
        f.au = QDate(2020, 12, 31);
        break;
    case 4: // every piece at once
        f.effectue = 1;
        f.paye = 2;
        f.filtreType = true;
        f.type = QStringLiteral("Prestations");
        f.filtreEmploi = true;
        f.emploi = QStringLiteral("Artiste");
        break;
    }
    return f;
}

void listeDesContrats(benchmark::State& etat)
{
    const QString& chemin = documentCarriere();
    Horloge::fixer(QDate(2026, 11, 21));
    const FiltreContrats f = filtre(int(etat.range(0)));
    Contrats contrats(chemin);
    qsizetype lignes = 0;
    for (auto _ : etat) {
        lignes = contrats.listeLesContrats(f).size();
        benchmark::DoNotOptimize(contrats.totalBruts);
    }
    etat.counters["contrats"] = double(lignes);
}

} // namespace

BENCHMARK(listeDesContrats)
    ->ArgName("filtre")
    ->DenseRange(0, 4)
    ->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
