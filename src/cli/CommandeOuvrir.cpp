#include "cli/Commandes.h"

#include "regimes/TableauDeBord.h"
#include "store/Fichiers.h"
#include "store/Verrou.h"

#include <QFileInfo>
#include <QJsonObject>

namespace corvane::cli {

namespace {

class CommandeOuvrir : public Commande
{
public:
    QString nom() const override { return QStringLiteral("ouvrir"); }
    QString usage() const override { return QStringLiteral("ouvrir FICHIER [--convertir | --ne-pas-convertir] [--annee-blanche oui|non]"); }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"convertir", false}, {"ne-pas-convertir", false}, {"annee-blanche"}}, 1,
                       &code))
            return code;
        const QString anneeBlanche = arguments.valeur("annee-blanche");
        if (arguments.contient("annee-blanche") && anneeBlanche != QStringLiteral("oui") &&
            anneeBlanche != QStringLiteral("non"))
            return mauvaisUsage(contexte, QStringLiteral("--annee-blanche attend oui ou non"));
        if (arguments.contient("convertir") && arguments.contient("ne-pas-convertir"))
            return mauvaisUsage(contexte, QStringLiteral("--convertir et --ne-pas-convertir s'excluent"));
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();

        // Without an answer given in advance, an old document's question is the error.
        DialoguesScriptes dialogues;
        if (arguments.contient("convertir"))
            dialogues.repondre({QStringLiteral("Convertir le fichier"), QStringLiteral("Ouvrir")});
        else
            dialogues.repondre({QStringLiteral("Ne rien faire")});

        Fichiers fichiers;
        // A protected document is refused, as by every command on records, before the upgrade pass writes to it.
        const QString generation = fichiers.checkVersion(chemin);
        if ((generation == QStringLiteral("3") || generation == QStringLiteral("4")) &&
            !verifierMotDePasse(contexte, chemin, &code))
            return code;
        const QString ouvert = fichiers.ouvertureSQLite(chemin, QString(), dialogues);
        if (!fichiers.erreur().isEmpty())
            return echec(contexte, fichiers.erreur());
        if (!arguments.contient("convertir") && !arguments.contient("ne-pas-convertir") &&
            !dialogues.echanges().isEmpty())
            return echec(contexte, dialogues.echanges().first().message +
                                       QStringLiteral("\n(répondez avec --convertir ou --ne-pas-convertir)"));

        // The question the program asks at the opening, answered here in advance (or left open).
        QJsonValue offre;
        if (!ouvert.isEmpty() && !Verrou::isFileLocked(ouvert)) {
            DialoguesScriptes reponse({anneeBlanche == QStringLiteral("oui")   ? QStringLiteral("Oui")
                                       : anneeBlanche == QStringLiteral("non") ? QStringLiteral("Non")
                                                                               : QString()});
            switch (TableauDeBord_v4(ouvert).proposeAnneeBlanche(reponse)) {
            case TableauDeBord_v4::AnneeBlanche::NonProposee:
                break;
            case TableauDeBord_v4::AnneeBlanche::Proposee:
                offre = QStringLiteral("proposee");
                break;
            case TableauDeBord_v4::AnneeBlanche::Acceptee:
                offre = QStringLiteral("acceptee");
                break;
            case TableauDeBord_v4::AnneeBlanche::Refusee:
                offre = QStringLiteral("refusee");
                break;
            }
        }

        const QString converti = fichiers.cheminConverti();
        if (contexte.json) {
            ecrireJson(contexte, {{"fichier", ouvert.isEmpty() ? QJsonValue() : QJsonValue(ouvert)},
                                  {"generation_initiale", fichiers.generationInitiale()},
                                  {"converti", converti.isEmpty() ? QJsonValue() : QJsonValue(converti)},
                                  {"anneeBlanche", offre}});
            return Succes;
        }
        if (offre.isString())
            contexte.sortie << (offre == QStringLiteral("acceptee")  ? "Année blanche acceptée : période étendue au 31/08/2021."
                                : offre == QStringLiteral("refusee") ? "Année blanche refusée."
                                                                     : "Année blanche proposée (répondez avec --annee-blanche oui|non).")
                            << '\n';
        if (!converti.isEmpty())
            contexte.sortie << "Fichier converti : " << converti << '\n';
        if (ouvert.isEmpty())
            contexte.sortie << "Aucun fichier n'a été ouvert." << '\n';
        else
            contexte.sortie << "Fichier ouvert et mis à jour : " << ouvert << '\n';
        contexte.sortie.flush();
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeOuvrir()
{
    return std::make_unique<CommandeOuvrir>();
}

} // namespace corvane::cli
