// The document store's timings: creating a document, opening an up-to-date one,
// and opening (and so upgrading) a generation-3 document of 2,000 contracts.

#include "GenerateurDocument.h"
#include "store/Fichiers.h"

#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace corvane;

static void creationDocument(benchmark::State& etat)
{
    QTemporaryDir dossier;
    int n = 0;
    for (auto _ : etat) {
        NouveauDocument p;
        p.nomDuFichier = dossier.filePath(QStringLiteral("doc%1.cv4").arg(n++));
        p.nom = QStringLiteral("Dupont");
        p.prenom = QStringLiteral("Jeanne");
        p.dateOuvertureDesDroits = QDate(2024, 3, 1);
        Fichiers fichiers(p);
        if (!fichiers.nouveauV4())
            etat.SkipWithError("création impossible");
    }
}
BENCHMARK(creationDocument)->Unit(benchmark::kMillisecond);

static void ouvertureDocumentAJour(benchmark::State& etat)
{
    QTemporaryDir dossier;
    const QString chemin = dossier.filePath(QStringLiteral("ajour.cv4"));
    bench::genererDocumentV4(chemin, 2000);
    DialoguesScriptes dialogues;
    Fichiers().ouvertureSQLite(chemin, QString(), dialogues);
    for (auto _ : etat) {
        Fichiers fichiers;
        if (fichiers.ouvertureSQLite(chemin, QString(), dialogues) != chemin)
            etat.SkipWithError("ouverture impossible");
    }
}
BENCHMARK(ouvertureDocumentAJour)->Unit(benchmark::kMillisecond);

static void ouvertureGeneration3(benchmark::State& etat)
{
    QTemporaryDir dossier;
    const QString modele = dossier.filePath(QStringLiteral("modele.or3"));
    bench::genererDocumentV3(modele, int(etat.range(0)));
    const QString chemin = dossier.filePath(QStringLiteral("g3.or3"));
    DialoguesScriptes dialogues;
    for (auto _ : etat) {
        etat.PauseTiming();
        QFile::remove(chemin);
        QFile::copy(modele, chemin);
        etat.ResumeTiming();
        Fichiers fichiers;
        if (fichiers.ouvertureSQLite(chemin, QString(), dialogues) != chemin)
            etat.SkipWithError("mise à jour impossible");
    }
}
BENCHMARK(ouvertureGeneration3)->Arg(2000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
