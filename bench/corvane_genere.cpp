// corvane-genere: writes a realistic Corvane document (a performer's career over
// several years) for demonstrations and measurements.

#include "GenerateurCarriere.h"
#include "store/Dates.h"
#include "store/FormatFrancais.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLocale>
#include <QTextStream>

using namespace corvane;

namespace {

enum Code
{
    Succes = 0,
    Erreur = 1,
    MauvaisUsage = 2
};

const char* const kUsage = "usage : corvane-genere [--annees N] [--contrats N] [--graine S] [--fin AAAA-MM-JJ] "
                           "[--manager] FICHIER.cv4\n\n"
                           "Écrit un document Corvane réaliste : la carrière d'une artiste intermittente sur N années\n"
                           "(20 par défaut) avec N contrats (5000 par défaut), ses employeurs, périodes, frais,\n"
                           "arrêts et versements. La même graine donne le même contenu. --fin fixe le dernier jour\n"
                           "de la carrière (aujourd'hui par défaut). --manager ajoute deux structures, leurs employés,\n"
                           "des propositions et des événements. Un fichier existant n'est jamais remplacé.\n";

bool lireEntier(const QString& texte, qint64 min, qint64 max, qint64& valeur)
{
    bool ok = false;
    valeur = texte.toLongLong(&ok);
    return ok && valeur >= min && valeur <= max;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QTextStream sortie(stdout);
    QTextStream erreurs(stderr);

    bench::ParametresCarriere parametres;
    const QStringList arguments = application.arguments().mid(1);
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == QStringLiteral("--aide") || argument == QStringLiteral("--help")) {
            sortie << kUsage;
            return Succes;
        }
        if (argument == QStringLiteral("--manager")) {
            parametres.manager = true;
            continue;
        }
        if (!argument.startsWith(QStringLiteral("--"))) {
            if (!parametres.chemin.isEmpty()) {
                erreurs << "corvane-genere: un seul fichier est attendu\n" << kUsage;
                return MauvaisUsage;
            }
            parametres.chemin = argument;
            continue;
        }
        if (i + 1 >= arguments.size()) {
            erreurs << "corvane-genere: l'option " << argument << " attend une valeur\n";
            return MauvaisUsage;
        }
        const QString valeur = arguments.at(++i);
        qint64 nombre = 0;
        if (argument == QStringLiteral("--annees") && lireEntier(valeur, 1, 60, nombre)) {
            parametres.annees = int(nombre);
        } else if (argument == QStringLiteral("--contrats") && lireEntier(valeur, 1, 1000000, nombre)) {
            parametres.contrats = int(nombre);
        } else if (argument == QStringLiteral("--graine") && lireEntier(valeur, 0, 0xFFFFFFFFLL, nombre)) {
            parametres.graine = quint32(nombre);
        } else if (argument == QStringLiteral("--fin") && Dates::depuisIso(valeur).isValid()) {
            parametres.fin = Dates::depuisIso(valeur);
        } else if (argument == QStringLiteral("--annees") || argument == QStringLiteral("--contrats") ||
                   argument == QStringLiteral("--graine") || argument == QStringLiteral("--fin")) {
            erreurs << "corvane-genere: valeur invalide pour " << argument << " : « " << valeur << " »"
                    << (argument == QStringLiteral("--fin")        ? " (format attendu : AAAA-MM-JJ)"
                        : argument == QStringLiteral("--annees")   ? " (de 1 à 60)"
                        : argument == QStringLiteral("--contrats") ? " (de 1 à 1000000)"
                                                                   : " (entier positif)")
                    << '\n';
            return MauvaisUsage;
        } else {
            erreurs << "corvane-genere: option inconnue : " << argument << '\n' << kUsage;
            return MauvaisUsage;
        }
    }
    if (parametres.chemin.isEmpty()) {
        erreurs << kUsage;
        return MauvaisUsage;
    }

    QElapsedTimer chrono;
    chrono.start();
    bench::BilanCarriere bilan;
    if (!bench::genererCarriere(parametres, bilan)) {
        erreurs << "corvane-genere: " << bilan.erreur << '\n';
        return Erreur;
    }
    sortie << "Document créé : " << parametres.chemin << '\n'
           << "Carrière du " << Dates::versAffichage(bilan.debut) << " au " << Dates::versAffichage(bilan.fin) << '\n'
           << "  " << bilan.contrats << " contrats, " << bilan.employeurs << " employeurs, " << bilan.modeles
           << " modèles de contrat, " << bilan.periodes << " périodes\n"
           << "  " << bilan.frais << " frais (dont " << bilan.fraisLies << " liés à un contrat), " << bilan.arrets
           << " arrêts et soins\n"
           << "  " << bilan.allocations << " allocations, " << bilan.conges << " versements de congés, " << bilan.impots
           << " impôts, " << bilan.droitsVoisins << " droits voisins\n";
    if (parametres.manager)
        sortie << "  " << bilan.structures << " structures, " << bilan.employes << " employés, " << bilan.propositions
               << " propositions, " << bilan.evenements << " événements\n";
    sortie           << "Durée : " << enDecimales(chrono.elapsed() / 1000.0, 2) << " s\n";
    return Succes;
}
