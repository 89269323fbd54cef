// The neighbouring-rights section on a realistic 20-year, 5,000-contract document: the list and
// the totals read from the document, and the section opened from the document handed to it to
// its first painted list with the totals of every body. Each also on the same document with
// 2,000 more payments.

#include "GenerateurCarriere.h"
#include "app/Environnement.h"
#include "app/droitsvoisins/SectionDroitsVoisins.h"
#include "records/DroitsVoisins.h"
#include "store/BaseDeDonnees.h"
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
// The generated document as it is, and a copy with 2,000 more payments.
QString g_documents[2];

const QString& document(const benchmark::State& etat)
{
    return g_documents[etat.range(0) > 0 ? 1 : 0];
}

void listeDroitsVoisins(benchmark::State& etat)
{
    Document doc;
    doc.ouvrir(document(etat));
    DroitsVoisins modele(doc.base());
    qsizetype lignes = 0;
    for (auto _ : etat) {
        const Table table = modele.listeLesDroitsVoisins(0, QStringLiteral("DESC"));
        const Table totaux = modele.totauxParOrganisme();
        lignes = table.size();
        benchmark::DoNotOptimize(table);
        benchmark::DoNotOptimize(totaux);
    }
    etat.counters["versements"] = double(lignes);
}

void ouvertureSectionDroitsVoisins(benchmark::State& etat)
{
    Reglages reglages(g_dossier->filePath(QStringLiteral("reglages.ini")));
    DialoguesScriptes dialogues;
    app::Environnement environnement{reglages, dialogues};
    for (auto _ : etat) {
        QElapsedTimer chrono;
        chrono.start();
        app::SectionDroitsVoisins section(environnement);
        section.resize(1000, 700);
        Document doc;
        doc.ouvrir(document(etat));
        section.setDocument(&doc);
        section.show();
        // Painting the section into a picture runs the layout and the paint of the list.
        benchmark::DoNotOptimize(section.grab());
        etat.SetIterationTime(double(chrono.nsecsElapsed()) / 1e9);
    }
}

// 2,000 payments, one every three days before the career's end, over the bodies and categories.
bool ajouterVersements(const QString& chemin, const QDate& fin)
{
    BaseDeDonnees base;
    if (!base.ouvrir(chemin) || base.exec(QStringLiteral("BEGIN;")) != 0)
        return false;
    for (int i = 0; i < 2000; ++i)
        base.executer(QStringLiteral("INSERT INTO droitsvoisins (dv_categorie, dv_details, dv_montant, dv_date, "
                                     "dv_organisme_id) VALUES (?, 'Répartition annuelle', ?, ?, ?);"),
                      {i % 8 + 1, 12.5 + i % 97,
                       fin.addDays(-3 * i).toString(QStringLiteral("yyyy-MM-dd 00:00:00.000")), i % 8 + 1});
    return base.exec(QStringLiteral("COMMIT;")) == 0;
}

} // namespace

BENCHMARK(listeDroitsVoisins)->Arg(0)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(ouvertureSectionDroitsVoisins)
    ->Arg(0)
    ->Arg(2000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(20);

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
    g_documents[0] = p.chemin;
    g_documents[1] = dossier.filePath(QStringLiteral("carriere-2000.cv4"));
    if (!QFile::copy(p.chemin, g_documents[1]) || !ajouterVersements(g_documents[1], p.fin))
        qFatal("la copie du document n'a pas pu être complétée");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
