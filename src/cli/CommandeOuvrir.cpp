#include "cli/Commandes.h"

#include "store/Fichiers.h"

#include <QFileInfo>
#include <QJsonObject>

namespace corvane::cli {

namespace {

class CommandeOuvrir : public Commande
{
public:
    QString nom() const override { return QStringLiteral("ouvrir"); }
    QString usage() const override { return QStringLiteral("ouvrir FICHIER [--convertir | --ne-pas-convertir]"); }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"convertir", false}, {"ne-pas-convertir", false}}, 1, &code))
            return code;
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

        const QString converti = fichiers.cheminConverti();
        if (contexte.json) {
            ecrireJson(contexte, {{"fichier", ouvert.isEmpty() ? QJsonValue() : QJsonValue(ouvert)},
                                  {"generation_initiale", fichiers.generationInitiale()},
                                  {"converti", converti.isEmpty() ? QJsonValue() : QJsonValue(converti)}});
            return Succes;
        }
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
