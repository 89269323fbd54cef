#include "cli/Cli.h"

#include "cli/Commandes.h"
#include "store/Dates.h"
#include "store/Horloge.h"
#include "store/SaisieFrancaise.h"

namespace corvane::cli {

Cli::Cli()
{
    m_commandes = toutesLesCommandes();
}

void Cli::afficherAide(QTextStream& flux) const
{
    flux << "usage : corvane-cli [--aujourdhui AAAA-MM-JJ] [--json] [--mot-de-passe M] COMMANDE [ARGUMENTS]\n\n"
         << "Commandes :\n";
    for (const auto& commande : m_commandes)
        flux << "  " << commande->usage() << '\n';
    flux.flush();
}

bool Cli::metEnPage(const QStringList& arguments) const
{
    // The first argument that is neither a global option nor its value, as executer reads them.
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == QStringLiteral("--aujourdhui") || argument == QStringLiteral("--mot-de-passe")) {
            ++i;
        } else if (argument != QStringLiteral("--json") && argument != QStringLiteral("--aide") &&
                   argument != QStringLiteral("--help")) {
            for (const auto& commande : m_commandes)
                if (commande->nom() == argument)
                    return commande->metEnPage();
            return false;
        }
    }
    return false;
}

int Cli::executer(const QList<QByteArray>& octets, QTextStream& sortie, QTextStream& erreurs)
{
    QStringList arguments;
    for (int i = 0; i < octets.size(); ++i) {
        const std::optional<QString> texte = SaisieFrancaise::texteUtf8(octets.at(i));
        if (!texte) {
            erreurs << "corvane-cli: l'argument n° " << i + 1
                    << " n'est pas un texte UTF-8 valide : il n'est pas enregistré avec des caractères de "
                       "remplacement, corrigez-le."
                    << Qt::endl;
            return MauvaisUsage;
        }
        arguments << *texte;
    }
    return executer(arguments, sortie, erreurs);
}

int Cli::executer(const QStringList& arguments, QTextStream& sortie, QTextStream& erreurs)
{
    Contexte contexte{sortie, erreurs, false, QString(), false};
    QStringList reste;
    // The global options are accepted before or after the command's name.
    for (int i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == QStringLiteral("--json")) {
            contexte.json = true;
        } else if (argument == QStringLiteral("--aujourdhui") || argument == QStringLiteral("--mot-de-passe")) {
            if (i + 1 >= arguments.size()) {
                erreurs << "corvane-cli: l'option " << argument << " attend une valeur" << Qt::endl;
                return MauvaisUsage;
            }
            const QString valeur = arguments.at(++i);
            if (argument == QStringLiteral("--mot-de-passe")) {
                contexte.motDePasse = valeur;
                contexte.motDePasseDonne = true;
                continue;
            }
            const QDate jour = Dates::depuisIso(valeur);
            if (!jour.isValid() || !SaisieFrancaise::refusDate(jour).isEmpty()) {
                erreurs << "corvane-cli: date invalide pour --aujourdhui : « " << valeur
                        << " » (format attendu : AAAA-MM-JJ, entre 1950-01-01 et 2100-12-31)" << Qt::endl;
                return MauvaisUsage;
            }
            Horloge::fixer(jour);
        } else if (argument == QStringLiteral("--aide") || argument == QStringLiteral("--help")) {
            afficherAide(sortie);
            return Succes;
        } else {
            reste << argument;
        }
    }
    if (reste.isEmpty()) {
        afficherAide(erreurs);
        return MauvaisUsage;
    }
    const QString nom = reste.takeFirst();
    for (const auto& commande : m_commandes) {
        if (commande->nom() == nom)
            return commande->executer(contexte, reste);
    }
    erreurs << "corvane-cli: commande inconnue : " << nom << Qt::endl;
    afficherAide(erreurs);
    return MauvaisUsage;
}

} // namespace corvane::cli
