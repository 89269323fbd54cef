#include "cli/Affichage.h"
#include "cli/Commandes.h"

#include "store/Dates.h"
#include "store/Horloge.h"
#include "unemployment/FonctionsParametres.h"
#include "unemployment/ParametresIntermittent.h"
#include "unemployment/ParametresPoleEmploi.h"

#include <QJsonObject>

namespace corvane::cli {

namespace {

class CommandeParametres : public Commande
{
public:
    QString nom() const override { return QStringLiteral("parametres"); }
    QString usage() const override { return QStringLiteral("parametres [--date AAAA-MM-JJ]"); }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"date"}}, 0, &code))
            return code;
        const auto lue = arguments.date("date");
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        const QDate jour = lue.value_or(Horloge::aujourdhui());

        const double smicIntermittent = ParametresIntermittent::smicHoraireEnCours(jour);
        const double smicFunctions = FonctionsParametres::smicHoraireEnCours(jour);
        const double csgCrds = ParametresIntermittent::CsgCrdsPlafondEnCours(jour);
        const double alsaceMoselle = ParametresIntermittent::supplementAlsaceMoselle(jour);
        const double plafondAllocation = ParametresIntermittent::plafondAllocationJournaliereEnCours(jour);
        const double plafondSecuriteSociale = FonctionsParametres::plafondSecuriteSocialePour(jour.year());
        const int heuresMinimum = FonctionsParametres::heuresMinimumARealiser();
        const QString protocole = ParametresPoleEmploi::protocolePour(jour);

        if (contexte.json) {
            ecrireJson(contexte, {
                                     {"date", jour.toString(Qt::ISODate)},
                                     {"smicHoraireEnCours",
                                      QJsonObject{{"Intermittent", smicIntermittent}, {"Functions", smicFunctions}}},
                                     {"CsgCrdsPlafondEnCours", csgCrds},
                                     {"supplementAlsaceMoselle", alsaceMoselle},
                                     {"plafondAllocationJournaliereEnCours", plafondAllocation},
                                     {"plafondSecuriteSocialePour", plafondSecuriteSociale},
                                     {"heuresMinimumARealiser", heuresMinimum},
                                     {"protocoleAccord", protocole},
                                 });
            return Succes;
        }
        contexte.sortie << "Paramètres en vigueur le " << Dates::versAffichage(jour) << " :\n"
                        << "  SMIC horaire (calcul des droits) : " << enEuros(smicIntermittent) << '\n'
                        << "  SMIC horaire (déclaration mensuelle, maladie) : " << enEuros(smicFunctions) << '\n'
                        << "  Seuil CSG/CRDS de l'allocation journalière : " << enEuros(csgCrds) << '\n'
                        << "  Supplément Alsace-Moselle : " << enNombre(alsaceMoselle) << " %\n"
                        << "  Plafond de l'allocation journalière : " << enEuros(plafondAllocation) << '\n'
                        << "  Plafond mensuel de la sécurité sociale : " << enEuros(plafondSecuriteSociale) << '\n'
                        << "  Heures minimum à réaliser : " << heuresMinimum << '\n'
                        << "  Protocole d'un dernier contrat finissant ce jour : " << protocole << '\n';
        contexte.sortie.flush();
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeParametres()
{
    return std::make_unique<CommandeParametres>();
}

} // namespace corvane::cli
