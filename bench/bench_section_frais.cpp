// The expenses section on a realistic 20-year, 5,000-contract document: the list read from the
// document, and the section opened from the document handed to it to its first painted list
// with its total. Each also on the same document with 2,000 more expenses.

#include "GenerateurCarriere.h"
#include "app/Environnement.h"
#include "app/frais/SectionFrais.h"
#include "records/Frais.h"
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
// The generated document as it is, and a copy with 2,000 more expenses.
QString g_documents[2];

const QString& document(const benchmark::State& etat)
{
    return g_documents[etat.range(0) > 0 ? 1 : 0];
}

void listeFrais(benchmark::State& etat)
{
    Document doc;
    doc.ouvrir(document(etat));
    Frais modele(doc.base());
    qsizetype lignes = 0;
    for (auto _ : etat) {
        const Table table = modele.listeLesFrais(FiltreFrais(), true);
        benchmark::DoNotOptimize(modele.cumulsParUnite());
        lignes = table.size();
        benchmark::DoNotOptimize(table);
    }
    etat.counters["frais"] = double(lignes);
}

void ouvertureSectionFrais(benchmark::State& etat)
{
    Reglages reglages(g_dossier->filePath(QStringLiteral("reglages.ini")));
    DialoguesScriptes dialogues;
    app::Environnement environnement{reglages, dialogues};
    for (auto _ : etat) {
        QElapsedTimer chrono;
        chrono.start();
        app::SectionFrais section(environnement);
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

// 2,000 expenses, one every few days before the career's end, a quarter of them linked to a
// contract, written as a program would.
bool ajouterFrais(const QString& chemin, const QDate& fin)
{
    BaseDeDonnees base;
    if (!base.ouvrir(chemin) || base.exec(QStringLiteral("BEGIN;")) != 0)
        return false;
    const QStringList contrats = base.colonne(QStringLiteral("SELECT c_id FROM contrats ORDER BY c_id;"));
    for (int i = 0; i < 2000; ++i) {
        const QString jour = fin.addDays(-3 * i - 1).toString(QStringLiteral("yyyy-MM-dd 00:00:00.000"));
        const QString contrat = i % 4 == 0 && !contrats.isEmpty() ? contrats.at(i % contrats.size()) : QString();
        base.executer(
            QStringLiteral("INSERT INTO frais (f_categorie, f_details, f_montant, f_date, f_fichier, "
                           "f_contrat_lie, f_rembourse) VALUES (?, 'Aller-retour, péage compris', ?, ?, '', ?, "
                           "0);"),
            {i % 3 == 0 ? 1 : 4, 10.0 + i % 90, jour, contrat});
        if (!contrat.isEmpty())
            base.executer(QStringLiteral("INSERT INTO contrats_frais (contrat_id, frais_id) VALUES (?, ?);"),
                          {contrat.toInt(), base.dernierIdInsere()});
    }
    return base.exec(QStringLiteral("COMMIT;")) == 0;
}

} // namespace

BENCHMARK(listeFrais)->Arg(0)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK(ouvertureSectionFrais)->Arg(0)->Arg(2000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

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
    if (!QFile::copy(p.chemin, g_documents[1]) || !ajouterFrais(g_documents[1], p.fin))
        qFatal("la copie du document n'a pas pu être complétée");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
