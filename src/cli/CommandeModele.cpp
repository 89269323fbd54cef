#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"

#include "records/ContratsModeles.h"
#include "store/Schema.h"

#include <QFileInfo>

namespace corvane::cli {

namespace {

class CommandeModele : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("modele"); }
    QString usage() const override
    {
        return QStringLiteral("modele ajouter FICHIER --libelle L [--emploi E] [--type T] [--jours J] [--heures H] "
                              "[--brut X] [--net X] [--employeur NOM]");
    }

protected:
    QStringList actions() const override { return {"ajouter"}; }

    int executerAction(Contexte& contexte, const QString&, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste,
                      {{"libelle"}, {"emploi"}, {"type"}, {"jours"}, {"heures"}, {"brut"}, {"net"}, {"employeur"}}, 1,
                      &code))
            return code;
        if (!arguments.exiger({"libelle"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const auto jours = arguments.entier("jours", 0, Limites::kJoursContratMaximum);
        const auto heures = arguments.entier("heures", 0, Limites::kHeuresContratMaximum);
        const auto brut = arguments.montant("brut");
        const auto net = arguments.montant("net");
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        const int emploiDonne = int(Schema::emplois().indexOf(arguments.valeur("emploi"))) + 1;
        if (arguments.contient("emploi") && emploiDonne == 0)
            return mauvaisUsage(contexte, QStringLiteral("emploi inconnu : « %1 » (choix : %2)")
                                              .arg(arguments.valeur("emploi"), Schema::emplois().join(", ")));
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!documentAccessible(contexte, chemin, &code))
            return code;

        ContratModele modele;
        modele.libelle = arguments.valeur("libelle");
        modele.jours = jours.value_or(0);
        modele.heures = heures.value_or(0);
        modele.salaireBrut = brut.value_or(0.0);
        modele.salaireNet = net.value_or(0.0);
        {
            ContratsModeles modeles(chemin);
            // Without a job, the profile's; without a kind, the first the job offers.
            modele.emploiId =
                emploiDonne > 0 ? emploiDonne : modeles.retrouveEmploiId(modeles.retrouveEmploiUtilisateur());
            if (modele.emploiId == 0)
                modele.emploiId = 1;
            const QStringList types = modeles.typesPourEmploi(modele.emploiId);
            const QString type = arguments.valeur("type", types.value(0));
            modele.typeId = modeles.typeIdPourEmploi(modele.emploiId, type);
            if (modele.typeId == 0)
                return mauvaisUsage(
                    contexte,
                    QStringLiteral("type inconnu pour cet emploi : « %1 » (choix : %2)").arg(type, types.join(", ")));
            if (arguments.contient("employeur")) {
                modele.employeurId = modeles.retrouveEmployeurId(arguments.valeur("employeur"));
                if (modele.employeurId == 0)
                    return echec(contexte,
                                 QStringLiteral("L'employeur « %1 » n'existe pas.").arg(arguments.valeur("employeur")));
            }
            const QString refus = modeles.refusEnregistrement(modele);
            if (!refus.isEmpty())
                return echec(contexte, refus);
        }
        if (!preparerEcriture(contexte, chemin, &code))
            return code;
        ContratsModeles modeles(chemin);
        const int id = modeles.enregistreContratsModele(modele);
        if (id == 0)
            return echec(
                contexte,
                QStringLiteral("Le modèle n'a pas pu être enregistré : %1").arg(modeles.db().derniereErreur()));
        if (contexte.json)
            ecrireJson(contexte, {{"id", id}});
        else
            contexte.sortie << "Modèle de contrat enregistré : " << modele.libelle << " (" << id << ")" << Qt::endl;
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeModele()
{
    return std::make_unique<CommandeModele>();
}

} // namespace corvane::cli
