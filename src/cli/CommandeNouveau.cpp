#include "cli/Commandes.h"

#include "store/Fichiers.h"
#include "store/Schema.h"

#include <QFileInfo>

namespace corvane::cli {

namespace {

class CommandeNouveau : public Commande
{
public:
    QString nom() const override { return QStringLiteral("nouveau"); }
    QString usage() const override
    {
        return QStringLiteral("nouveau FICHIER --nom N --prenom P --emploi E --ouverture AAAA-MM-JJ "
                              "[--civilite Mme|Mlle|Mr] [--taux X] [--sans-abattement] [--auto-entrepreneur] "
                              "[--mot-de-passe M]");
    }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste,
                      {{"nom"},
                       {"prenom"},
                       {"emploi"},
                       {"ouverture"},
                       {"civilite"},
                       {"taux"},
                       {"sans-abattement", false},
                       {"auto-entrepreneur", false}},
                      1, &code))
            return code;
        if (!arguments.exiger({"nom", "prenom", "emploi", "ouverture"}))
            return mauvaisUsage(contexte, arguments.erreur());

        NouveauDocument parametres;
        parametres.nomDuFichier = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        parametres.nom = arguments.valeur("nom");
        parametres.prenom = arguments.valeur("prenom");
        parametres.emploiId = int(Schema::emplois().indexOf(arguments.valeur("emploi"))) + 1;
        if (parametres.emploiId == 0)
            return mauvaisUsage(contexte, QStringLiteral("emploi inconnu : « %1 » (choix : %2)")
                                              .arg(arguments.valeur("emploi"), Schema::emplois().join(", ")));
        parametres.civiliteId = int(Intermittent::sexes().indexOf(arguments.valeur("civilite", "Mr"))) + 1;
        if (parametres.civiliteId == 0)
            return mauvaisUsage(
                contexte,
                QStringLiteral("civilité inconnue : « %1 » (choix : Mme, Mlle, Mr)").arg(arguments.valeur("civilite")));
        const auto ouverture = arguments.date("ouverture");
        const auto taux = arguments.montant("taux");
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        parametres.dateOuvertureDesDroits = *ouverture;
        parametres.taux = taux.value_or(0.0);
        parametres.abattementState = arguments.contient("sans-abattement") ? 1 : 0;
        parametres.isAutoEntrepreneur = arguments.contient("auto-entrepreneur");
        if (contexte.motDePasseDonne) {
            parametres.password = contexte.motDePasse;
            parametres.isLocked = 1;
        }

        Fichiers fichiers(parametres);
        if (!fichiers.nouveauV4())
            return echec(contexte, fichiers.erreur());

        if (contexte.json)
            ecrireJson(contexte, {{"fichier", parametres.nomDuFichier}, {"generation", "4"}});
        else
            contexte.sortie << "Fichier créé : " << parametres.nomDuFichier << Qt::endl;
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeNouveau()
{
    return std::make_unique<CommandeNouveau>();
}

} // namespace corvane::cli
