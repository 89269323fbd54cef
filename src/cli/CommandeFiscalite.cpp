// `fiscalite FICHIER (--annee A | --du D --au D) [--arrondir] [--prime-emploi] [--ae-seulement]
// [--ae-periode N]`: the figures of the yearly income declaration.

#include "cli/Affichage.h"
#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"
#include "cli/FluxJson.h"

#include "regimes/Fiscalite.h"
#include "store/Dates.h"

#include <QFileInfo>
#include <QJsonArray>

namespace corvane::cli {

namespace {

double auCentime(double montant)
{
    return std::round(montant * 100.0) / 100.0;
}

class CommandeFiscalite : public Commande
{
public:
    QString nom() const override { return QStringLiteral("fiscalite"); }
    QString usage() const override
    {
        return QStringLiteral("fiscalite FICHIER (--annee A | --du AAAA-MM-JJ --au AAAA-MM-JJ) [--arrondir] "
                              "[--prime-emploi] [--ae-seulement] [--ae-periode 0-5]");
    }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste,
                      {{"annee"}, {"du"}, {"au"}, {"arrondir", false}, {"prime-emploi", false}, {"ae-seulement", false},
                       {"ae-periode"}},
                      1, &code))
            return code;
        const bool parDates = arguments.contient("du") || arguments.contient("au");
        if (arguments.contient("annee") == parDates)
            return mauvaisUsage(contexte, QStringLiteral("donnez --annee, ou --du et --au"));
        if (parDates && arguments.contient("du") != arguments.contient("au"))
            return mauvaisUsage(contexte, QStringLiteral("--du et --au vont ensemble"));
        const auto annee = arguments.annee("annee");
        const auto du = arguments.date("du");
        const auto au = arguments.date("au");
        const auto periodeAE = arguments.entier("ae-periode", 0, 5);
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        if (du && *au < *du)
            return mauvaisUsage(contexte, QStringLiteral("la date --au ne peut pas précéder la date --du"));
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!CommandeEnregistrements::documentAccessible(contexte, chemin, &code))
            return code;

        Fiscalite f(chemin);
        f.arrondirMontants = arguments.contient("arrondir");
        f.primeEmploi = arguments.contient("prime-emploi");
        f.autoEntrepreneurSeul = arguments.contient("ae-seulement");
        f.periodeAE = periodeAE.value_or(-1);
        if (annee)
            f.declarationAnnee(*annee);
        else
            f.declarationPeriode(*du, *au);

        if (contexte.json) {
            QJsonArray resume;
            for (const auto& [libelle, valeur] : f.resume)
                resume.append(QJsonObject{{"Libellé", libelle}, {"Valeur", valeur}});
            QJsonArray droitsVoisins;
            for (const auto& [organisme, montant] : f.droitsVoisins)
                droitsVoisins.append(QJsonObject{{"Organisme", organisme}, {"Montant", auCentime(montant)}});
            FluxJson(contexte.sortie)
                .ecrireObjet({{"du", f.dateDebut.toString(Qt::ISODate)},
                              {"au", f.dateFin.toString(Qt::ISODate)},
                              {"resume", resume},
                              {"totaux", QJsonObject{{"journees", f.nombreCachets},
                                                     {"heures", f.nombreHeuresTotal},
                                                     {"netImposable", auCentime(f.revenusNet)},
                                                     {"frais", auCentime(f.totalFrais)},
                                                     {"km", f.totalKm},
                                                     {"ij", auCentime(f.totalIJ)},
                                                     {"poleEmploi", auCentime(f.cumulAssedic)},
                                                     {"conges", auCentime(f.cumulConges)}}},
                              {"contrats", {}, &f.contrats},
                              {"employeurs", {}, &f.employeurs},
                              {"autoEntrepreneur",
                               QJsonObject{{"Achat Revente", auCentime(f.totalRevenusRevente)},
                                           {"Commerciaux", auCentime(f.totalRevenusCommerciaux)},
                                           {"Non commerciaux", auCentime(f.totalRevenusNonCommerciaux)}}},
                              {"chargesAE", f.chargesAE},
                              {"fraisReelsKm", auCentime(f.fraisReels)},
                              {"droitsVoisins", droitsVoisins}});
            return Succes;
        }
        contexte.sortie << "Fiscalité du " << Dates::versAffichage(f.dateDebut) << " au "
                        << Dates::versAffichage(f.dateFin) << '\n';
        for (const auto& [libelle, valeur] : f.resume)
            contexte.sortie << "  " << libelle << " : " << valeur << '\n';
        contexte.sortie << "Auto-entrepreneur : achat revente " << enEuros(f.totalRevenusRevente) << ", commerciaux "
                        << enEuros(f.totalRevenusCommerciaux) << ", non commerciaux "
                        << enEuros(f.totalRevenusNonCommerciaux) << '\n'
                        << "Charges à payer : " << enEuros(f.chargesAE) << '\n'
                        << "Frais réels (km) : " << enEuros(f.fraisReels) << '\n';
        for (const auto& [organisme, montant] : f.droitsVoisins)
            contexte.sortie << "  " << organisme << " : " << enEuros(montant) << '\n';
        contexte.sortie.flush();
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeFiscalite()
{
    return std::make_unique<CommandeFiscalite>();
}

} // namespace corvane::cli
