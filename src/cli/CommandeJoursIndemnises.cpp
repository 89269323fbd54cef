// `jours-indemnises FICHIER --mois M --annee A`: the indemnified days of a calendar month.

#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"

#include "store/FormatFrancais.h"
#include "unemployment/ActualisationMensuelle.h"

#include <QFileInfo>
#include <QJsonObject>

namespace corvane::cli {

namespace {

class CommandeJoursIndemnises : public Commande
{
public:
    QString nom() const override { return QStringLiteral("jours-indemnises"); }
    QString usage() const override { return QStringLiteral("jours-indemnises FICHIER --mois 1-12 --annee AAAA"); }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"mois"}, {"annee"}}, 1, &code))
            return code;
        if (!arguments.exiger({"mois", "annee"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const auto mois = arguments.entier("mois", 1, 12);
        const auto annee = arguments.annee("annee");
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!CommandeEnregistrements::documentAccessible(contexte, chemin, &code))
            return code;

        const int jours = ActualisationMensuelle(chemin).nombreJoursIndemnisesDansLeMois(*mois, *annee);
        if (contexte.json)
            ecrireJson(contexte, {{"jours", jours}});
        else
            contexte.sortie << "Jours indemnisés en " << localeFrancaise().monthName(*mois) << ' ' << *annee << " : "
                            << jours << Qt::endl;
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeJoursIndemnises()
{
    return std::make_unique<CommandeJoursIndemnises>();
}

} // namespace corvane::cli
