// PDF reports: composing a contracts list of N rows, and writing it to a PDF file
// (layout on A4, headers repeated on each page, fonts embedded). The counters give
// the pages and the file's size.

#include "GenerateurCarriere.h"
#include "exchange/ExportPdf.h"
#include "exchange/Rapport.h"
#include "exchange/RapportsEnregistrements.h"
#include "records/Contrats.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace corvane;

namespace {

// A contracts list as the screen prints it: dates, employer, days, hours, gross and net.
std::unique_ptr<Rapport> rapportContrats(int nombre)
{
    const QStringList employeurs{QStringLiteral("Théâtre de la Ville"), QStringLiteral("Opéra de Lyon"),
                                 QStringLiteral("Compagnie du Hasard"), QStringLiteral("Radio France"),
                                 QStringLiteral("Festival d'Avignon")};
    QList<QStringList> lignes;
    double bruts = 0;
    double nets = 0;
    for (int i = 0; i < nombre; ++i) {
        const QDate debut = QDate(2004, 1, 1).addDays(i);
        const double brut = 120 + (i % 37) * 7.5;
        bruts += brut;
        nets += brut * 0.78;
        lignes << QStringList{debut.toString(QStringLiteral("dd/MM/yyyy")),
                              debut.addDays(i % 5).toString(QStringLiteral("dd/MM/yyyy")),
                              employeurs[i % employeurs.size()],
                              QString::number(i % 5 + 1),
                              QString::number(12 * (i % 5 + 1)),
                              Rapport::montant(brut),
                              Rapport::montant(brut * 0.78)};
    }
    auto rapport = std::make_unique<Rapport>();
    rapport->titre(QStringLiteral("Contrats"));
    rapport->separateur();
    rapport->tableau(
        {ColonneRapport::texte(QStringLiteral("Début"), 13), ColonneRapport::texte(QStringLiteral("Fin"), 13),
         ColonneRapport::texte(QStringLiteral("Employeur")), ColonneRapport::montant(QStringLiteral("Jours"), 8),
         ColonneRapport::montant(QStringLiteral("Heures"), 9), ColonneRapport::montant(QStringLiteral("Brut"), 14),
         ColonneRapport::montant(QStringLiteral("Net"), 14)},
        lignes,
        {QString(), QString(), QStringLiteral("Totaux"), QString(), QString(), Rapport::montant(bruts),
         Rapport::montant(nets)});
    rapport->ajouteTamponDans(QStringLiteral("Jeanne Dupont"));
    return rapport;
}

int nombreDePages(const QString& chemin)
{
    QFile f(chemin);
    if (!f.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray pdf = f.readAll();
    return int(pdf.count("/Type /Page") - pdf.count("/Type /Pages"));
}

void compositionContrats(benchmark::State& etat)
{
    for (auto _ : etat)
        benchmark::DoNotOptimize(rapportContrats(int(etat.range(0))));
}
BENCHMARK(compositionContrats)->Arg(500)->Arg(5000)->Unit(benchmark::kMillisecond);

void ecritureContrats(benchmark::State& etat)
{
    QTemporaryDir dossier;
    const QString chemin = dossier.filePath(QStringLiteral("Contrats.pdf"));
    const auto rapport = rapportContrats(int(etat.range(0)));
    for (auto _ : etat)
        if (!ExportPdf::ecrirePdf(rapport->document(), chemin))
            etat.SkipWithError("écriture impossible");
    etat.counters["octets"] = double(QFileInfo(chemin).size());
    etat.counters["pages"] = double(nombreDePages(chemin));
}
BENCHMARK(ecritureContrats)->Arg(500)->Arg(5000)->Unit(benchmark::kMillisecond);

// What the user waits for after "Exporter": composing, then writing.
void exportContrats(benchmark::State& etat)
{
    QTemporaryDir dossier;
    const QString chemin = dossier.filePath(QStringLiteral("Contrats.pdf"));
    for (auto _ : etat) {
        const auto rapport = rapportContrats(int(etat.range(0)));
        if (!ExportPdf::ecrirePdf(rapport->document(), chemin))
            etat.SkipWithError("écriture impossible");
    }
    etat.counters["octets"] = double(QFileInfo(chemin).size());
}
BENCHMARK(exportContrats)->Arg(5000)->Unit(benchmark::kMillisecond);

// The contracts report of a generated career (5,000 contracts by default), from the
// document: reading the listing, composing, writing.
void rapportContratsCarriere(benchmark::State& etat)
{
    QTemporaryDir dossier;
    bench::ParametresCarriere parametres;
    parametres.chemin = dossier.filePath(QStringLiteral("carriere.cv4"));
    parametres.fin = QDate(2024, 6, 30);
    bench::BilanCarriere bilan;
    if (!bench::genererCarriere(parametres, bilan)) {
        etat.SkipWithError(qPrintable(bilan.erreur));
        return;
    }
    const QString chemin = dossier.filePath(QStringLiteral("Liste des contrats.pdf"));
    int pages = 0;
    for (auto _ : etat) {
        Rapport rapport;
        if (!composerRapportContrats(rapport, parametres.chemin, ChoixImpressions(), FiltreContrats()) ||
            !ExportPdf::ecrirePdf(rapport.document(), chemin, nullptr, &pages))
            etat.SkipWithError("rapport impossible");
    }
    etat.counters["contrats"] = double(bilan.contrats);
    etat.counters["octets"] = double(QFileInfo(chemin).size());
    etat.counters["pages"] = double(pages);
}
BENCHMARK(rapportContratsCarriere)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    // Fonts and text layout need a GUI application; no window is shown.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
