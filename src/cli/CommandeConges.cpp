// `conges FICHIER [--du D --au D]`: the paid-leave fund's estimate.

#include "cli/Affichage.h"
#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"
#include "cli/FluxJson.h"

#include "regimes/Conges.h"
#include "store/Dates.h"

#include <QFileInfo>
#include <QJsonArray>

namespace corvane::cli {

namespace {

class CommandeConges : public Commande
{
public:
    QString nom() const override { return QStringLiteral("conges"); }
    QString usage() const override { return QStringLiteral("conges FICHIER [--du AAAA-MM-JJ --au AAAA-MM-JJ]"); }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"du"}, {"au"}}, 1, &code))
            return code;
        if (arguments.contient("du") != arguments.contient("au"))
            return mauvaisUsage(contexte, QStringLiteral("--du et --au vont ensemble"));
        const auto du = arguments.date("du");
        const auto au = arguments.date("au");
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        if (du && *au < *du)
            return mauvaisUsage(contexte, QStringLiteral("la date --au ne peut pas précéder la date --du"));
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!CommandeEnregistrements::documentAccessible(contexte, chemin, &code))
            return code;

        const Conges::Resultat r = du ? Conges(chemin).congesSpectacles(QStringLiteral("PERIODE"), *du, *au)
                                      : Conges(chemin).congesSpectacles(QStringLiteral("COMPLET"));
        if (contexte.json) {
            QJsonArray resume;
            for (const auto& [libelle, valeur] : r.resume)
                resume.append(QJsonObject{{"Libellé", libelle}, {"Valeur", valeur}});
            FluxJson(contexte.sortie)
                .ecrireObjet({{"du", r.du.toString(Qt::ISODate)},
                              {"au", r.au.toString(Qt::ISODate)},
                              {"contrats", {}, &r.contrats},
                              {"resume", resume},
                              {"journeesRetenues", r.nombreCachets},
                              {"salairesBruts", r.revenusBruts},
                              {"journeesAcquises", r.nombreJoursConges},
                              {"indemniteBrute", r.indemniteBrute},
                              {"indemniteNette", r.indemniteNette}});
            return Succes;
        }
        contexte.sortie << "Congés Spectacles du " << Dates::versAffichage(r.du) << " au " << Dates::versAffichage(r.au)
                        << " : " << r.contrats.size() << " contrat(s)\n";
        for (const auto& [libelle, valeur] : r.resume)
            contexte.sortie << "  " << libelle << " : " << valeur << '\n';
        if (r.resume.isEmpty())
            contexte.sortie << "  Aucune journée retenue.\n";
        contexte.sortie.flush();
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeConges()
{
    return std::make_unique<CommandeConges>();
}

} // namespace corvane::cli
