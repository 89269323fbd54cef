// The social-security section on a realistic 20-year, 5,000-contract document: the list read
// from the document, and the section opened from the document handed to it to its first
// painted list with the rights check. Each also on the same document with 500 more records.

#include "GenerateurCarriere.h"
#include "app/Environnement.h"
#include "app/securite/SectionSecuriteSociale.h"
#include "regimes/SecuriteSociale.h"
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
// The generated document as it is, and a copy with 500 more one-day medical expenses.
QString g_documents[2];

const QString& document(const benchmark::State& etat)
{
    return g_documents[etat.range(0) > 0 ? 1 : 0];
}

void listeSecuriteSociale(benchmark::State& etat)
{
    Document doc;
    doc.ouvrir(document(etat));
    SecuriteSociale modele(doc.base());
    qsizetype lignes = 0;
    for (auto _ : etat) {
        const Table table = modele.listeLesPeriodesV4(QStringLiteral("tous"), 0, QStringLiteral("DESC"), {}, {});
        lignes = table.size();
        benchmark::DoNotOptimize(table);
    }
    etat.counters["periodes"] = double(lignes);
}

void ouvertureSectionSecuriteSociale(benchmark::State& etat)
{
    Reglages reglages(g_dossier->filePath(QStringLiteral("reglages.ini")));
    DialoguesScriptes dialogues;
    app::Environnement environnement{reglages, dialogues};
    for (auto _ : etat) {
        QElapsedTimer chrono;
        chrono.start();
        app::SectionSecuriteSociale section(environnement);
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

// 500 one-day medical expenses, one a week before the career's end, written as a program would.
bool ajouterFrais(const QString& chemin, const QDate& fin)
{
    BaseDeDonnees base;
    if (!base.ouvrir(chemin) || base.exec(QStringLiteral("BEGIN;")) != 0)
        return false;
    for (int i = 0; i < 500; ++i) {
        const QString jour = fin.addDays(-7 * i - 3).toString(QStringLiteral("yyyy-MM-dd 00:00:00.000"));
        base.executer(QStringLiteral("INSERT INTO securitesociale (ss_debut, ss_fin, ss_type_id, ss_note, "
                                     "ss_rembourse, ss_nbre_jours, ss_nbre_jours_suspendus, ss_incidence_heures, "
                                     "ss_incidence_periode, ss_total_ij, ss_ald, ss_rembourse_mutuelle) VALUES (?, ?, "
                                     "7, 'Pharmacie, ordonnance', 1, 1, 0, 0, 0, 0, 0, 1);"),
                      {jour, jour});
    }
    return base.exec(QStringLiteral("COMMIT;")) == 0;
}

} // namespace

BENCHMARK(listeSecuriteSociale)->Arg(0)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(ouvertureSectionSecuriteSociale)
    ->Arg(0)
    ->Arg(500)
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
    g_documents[1] = dossier.filePath(QStringLiteral("carriere-500.cv4"));
    if (!QFile::copy(p.chemin, g_documents[1]) || !ajouterFrais(g_documents[1], p.fin))
        qFatal("la copie du document n'a pas pu être complétée");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
