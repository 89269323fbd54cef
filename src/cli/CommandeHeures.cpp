// `heures FICHIER --du D --au D [--mode M] [--contrats C]`: the hours count of a span.

#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"

#include "store/Dates.h"
#include "unemployment/ComptageHeures.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace corvane::cli {

namespace {

const QStringList& modes()
{
    static const QStringList liste{"simulation", "analyses", "contrats"};
    return liste;
}

class CommandeHeures : public Commande
{
public:
    QString nom() const override { return QStringLiteral("heures"); }
    QString usage() const override
    {
        return QStringLiteral("heures FICHIER --du AAAA-MM-JJ --au AAAA-MM-JJ [--mode simulation|analyses|contrats] "
                              "[--contrats tous|effectues|planifies]");
    }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"du"}, {"au"}, {"mode"}, {"contrats"}}, 1, &code))
            return code;
        const QString mode = arguments.valeur("mode", QStringLiteral("simulation"));
        if (!modes().contains(mode))
            return mauvaisUsage(contexte,
                                QStringLiteral("mode inconnu : « %1 » (choix : %2)").arg(mode, modes().join(", ")));
        const auto plage = lirePlageDeDroits(contexte, arguments, &code);
        if (!plage)
            return code;
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!CommandeEnregistrements::documentAccessible(contexte, chemin, &code))
            return code;

        ComptageHeures comptage(chemin);
        const TableauHeures heures =
            comptage.compteHeuresParEmploiEtParType(mode, plage->du, plage->au, plage->conditionDesContrats);
        const int heuresParJour = comptage.retrouveHeuresParJour();

        if (contexte.json) {
            QJsonArray tableau;
            for (const int h : heures)
                tableau.append(h);
            ecrireJson(contexte, {{"heures", tableau}, {"heuresParJour", heuresParJour}});
            return Succes;
        }
        contexte.sortie << "Heures du " << Dates::versAffichage(plage->du) << " au " << Dates::versAffichage(plage->au)
                        << " (mode " << mode << ", contrats : " << arguments.valeur("contrats", "tous") << ")\n";
        const QStringList emplois{"Artiste", "Ouvrier", "Technicien"};
        for (int i = 0; i < emplois.size(); ++i)
            contexte.sortie << "  " << emplois.at(i) << " : prestations " << heures[3 * i] << ", enseignements "
                            << heures[3 * i + 1] << ", formations " << heures[3 * i + 2] << '\n';
        contexte.sortie << "  Arrêts (maladie, maternité…) : " << heures[9] << '\n'
                        << "Heures par jour travaillé : " << heuresParJour << Qt::endl;
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeHeures()
{
    return std::make_unique<CommandeHeures>();
}

} // namespace corvane::cli
