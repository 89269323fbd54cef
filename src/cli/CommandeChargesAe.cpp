#include "cli/Affichage.h"
#include "cli/Commandes.h"

#include "regimes/CalculateurAutoEntrepreneur.h"

#include <QJsonObject>

namespace corvane::cli {

namespace {

class CommandeChargesAe : public Commande
{
public:
    QString nom() const override { return QStringLiteral("charges-ae"); }
    QString usage() const override
    {
        return QStringLiteral("charges-ae --annee A [--ventes V] [--services-bic S] [--services-bnc N] "
                              "[--liberatoire] [--alsace] [--moselle] [--categorie C] [--activite A]");
    }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste,
                      {{"annee"},
                       {"ventes"},
                       {"services-bic"},
                       {"services-bnc"},
                       {"liberatoire", false},
                       {"alsace", false},
                       {"moselle", false},
                       {"categorie"},
                       {"activite"}},
                      0, &code))
            return code;
        if (!arguments.exiger({"annee"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const auto annee = arguments.annee("annee");
        const auto ventes = arguments.montant("ventes");
        const auto servicesBIC = arguments.montant("services-bic");
        const auto servicesBNC = arguments.montant("services-bnc");
        const auto categorie = arguments.entier("categorie", 0, 99);
        const auto activite = arguments.entier("activite", 0, 99);
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());

        CalculateurAutoEntrepreneur calculateur;
        calculateur.setAnnee(*annee);
        calculateur.setCaVentesDeMarchandisesBIC(ventes.value_or(0.0));
        calculateur.setCaPrestationsDeServicesBIC(servicesBIC.value_or(0.0));
        calculateur.setCaPrestationsDeServicesBNC(servicesBNC.value_or(0.0));
        calculateur.setPrelevementLiberatoire(arguments.contient("liberatoire"));
        calculateur.setAlsace(arguments.contient("alsace"));
        calculateur.setMoselle(arguments.contient("moselle"));
        // Without a category or an activity, no training contribution and no chamber fee.
        calculateur.setIdCategoriePro(categorie.value_or(0));
        calculateur.setIdActivite(activite.value_or(0));
        const double charges = calculateur.calculeLesCharges();

        if (contexte.json) {
            ecrireJson(contexte, {
                                     {"tauxChargesVentes", calculateur.tauxChargesVentes()},
                                     {"tauxChargesServicesBIC", calculateur.tauxChargesServicesBIC()},
                                     {"tauxChargesServicesBNC", calculateur.tauxChargesServicesBNC()},
                                     {"tauxCFE", calculateur.tauxCFE()},
                                     {"tauxFraisDeChambre", calculateur.tauxFraisDeChambre()},
                                     {"charges", charges},
                                 });
            return Succes;
        }
        contexte.sortie << "Taux de charges " << *annee << " : ventes " << enNombre(calculateur.tauxChargesVentes())
                        << " %, services BIC " << enNombre(calculateur.tauxChargesServicesBIC()) << " %, services BNC "
                        << enNombre(calculateur.tauxChargesServicesBNC()) << " %\n"
                        << "Contribution à la formation professionnelle : " << enNombre(calculateur.tauxCFE()) << " %\n"
                        << "Taxe pour frais de chambre : " << enNombre(calculateur.tauxFraisDeChambre()) << " %\n"
                        << "Charges sociales : " << enEuros(charges) << '\n';
        contexte.sortie.flush();
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeChargesAe()
{
    return std::make_unique<CommandeChargesAe>();
}

} // namespace corvane::cli
