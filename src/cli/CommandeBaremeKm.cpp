#include "cli/Affichage.h"
#include "cli/Commandes.h"

#include "records/BaremeKilometrique.h"
#include "store/Fichiers.h"

#include <QFileInfo>
#include <QJsonObject>

namespace corvane::cli {

namespace {

class CommandeBaremeKm : public Commande
{
public:
    QString nom() const override { return QStringLiteral("bareme-km"); }
    QString usage() const override
    {
        return QStringLiteral("bareme-km --annee A --km D (--vehicule 1|2|3 --puissance 0-7 | --fichier FICHIER)");
    }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"annee"}, {"km"}, {"vehicule"}, {"puissance"}, {"fichier"}}, 0,
                      &code))
            return code;
        if (!arguments.exiger({"annee", "km"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const bool avecVehicule = arguments.contient("vehicule") || arguments.contient("puissance");
        const bool avecFichier = arguments.contient("fichier");
        if (avecVehicule && avecFichier)
            return mauvaisUsage(contexte, QStringLiteral("donnez soit --vehicule et --puissance, soit --fichier, "
                                                         "pas les deux"));
        if (!avecVehicule && !avecFichier)
            return mauvaisUsage(contexte, QStringLiteral("donnez --vehicule et --puissance, ou --fichier"));
        if (avecVehicule && !arguments.exiger({"vehicule", "puissance"}))
            return mauvaisUsage(contexte, arguments.erreur());

        const auto annee = arguments.annee("annee");
        // A distance, not an amount: no euro sign, and a year's driving stays below a million kilometres.
        const auto km = arguments.montant("km", Bornes{0.0, 1'000'000.0, 2, false});
        // Numbers as stored in the profile; any other small number gives the scale's 0.
        const auto vehicule = arguments.entier("vehicule", 0, 99);
        const auto puissance = arguments.entier("puissance", 0, 99);
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());

        double montant = 0.0;
        if (avecFichier) {
            const QString chemin = QFileInfo(arguments.valeur("fichier")).absoluteFilePath();
            // Recognised read-only first, so that a missing file is reported without a byte written.
            Fichiers fichiers;
            const QString generation = fichiers.checkVersion(chemin, false);
            if (generation.isEmpty())
                return echec(contexte, fichiers.erreur());
            if (generation != QStringLiteral("3") && generation != QStringLiteral("4"))
                return echec(contexte, QStringLiteral("le fichier « %1 » est d'une ancienne génération (%2) : "
                                                      "ouvrez-le d'abord avec la commande ouvrir.")
                                           .arg(QFileInfo(chemin).fileName(), generation));
            if (!verifierMotDePasse(contexte, chemin, &code))
                return code;
            montant = BaremeKilometrique::calculeFraisKmReelsAnnee(*annee, *km, chemin);
        } else {
            montant = BaremeKilometrique::calculeFraisKmReelsAnnee(*annee, *km, *vehicule, *puissance);
        }

        if (contexte.json) {
            ecrireJson(contexte, {{"montant", montant}});
            return Succes;
        }
        contexte.sortie << "Frais kilométriques " << *annee << " : " << enEuros(montant) << '\n';
        if (*annee < 2012 || *annee > 2015)
            contexte.sortie << "(aucun barème kilométrique n'est connu pour cette année)\n";
        contexte.sortie.flush();
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeBaremeKm()
{
    return std::make_unique<CommandeBaremeKm>();
}

} // namespace corvane::cli
