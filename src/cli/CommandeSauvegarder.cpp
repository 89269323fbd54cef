#include "cli/Commandes.h"

#include <QDir>

#include "store/Dates.h"
#include "store/Fichiers.h"
#include "store/Horloge.h"
#include "store/Sauvegardes.h"

#include <QFileInfo>
#include <QJsonObject>

namespace corvane::cli {

namespace {

class CommandeSauvegarder : public Commande
{
public:
    QString nom() const override { return QStringLiteral("sauvegarder"); }
    QString usage() const override { return QStringLiteral("sauvegarder FICHIER DESTINATION"); }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {}, 2, &code))
            return code;
        // An empty name would make Qt warn on stderr.
        if (arguments.positionnels().at(1).isEmpty())
            return echec(contexte, QStringLiteral("La copie de sauvegarde n'a pas pu être effectuée : aucun fichier de "
                                                  "destination n'a été indiqué."));
        const QString chemin = QFileInfo(arguments.positionnels().at(0)).absoluteFilePath();
        QString destination = QFileInfo(arguments.positionnels().at(1)).absoluteFilePath();
        if (QFileInfo(destination).isDir())
            destination = QDir(destination).filePath(QFileInfo(chemin).fileName());

        Fichiers fichiers;
        const QString generation = fichiers.checkVersion(chemin);
        if (generation.isEmpty())
            return echec(contexte, fichiers.erreur());
        if (generation != QStringLiteral("4") && generation != QStringLiteral("3"))
            return echec(contexte, QStringLiteral("« %1 » n'est pas un fichier Corvane à jour : ouvrez-le d'abord avec "
                                                  "la commande ouvrir.")
                                       .arg(chemin));
        if (!verifierMotDePasse(contexte, chemin, &code))
            return code;
        if (destination == chemin)
            return echec(contexte, QStringLiteral("Vous ne pouvez pas enregistrer une copie de sauvegarde en écrasant "
                                                  "le fichier en cours."));
        QString raison;
        if (!Sauvegardes::copier(chemin, destination, &raison))
            return echec(contexte, QStringLiteral("La copie de sauvegarde n'a pas pu être effectuée : %1").arg(raison));
        if (!Sauvegardes::enregistrerDateSauvegarde(chemin, &raison))
            return echec(contexte,
                         QStringLiteral("La copie « %1 » a été faite, mais la date de la sauvegarde n'a pas pu "
                                        "être enregistrée : %2.")
                             .arg(QDir::toNativeSeparators(destination), raison));

        const QString date = Horloge::aujourdhui().toString(QStringLiteral("yyyy-MM-dd"));
        if (contexte.json)
            ecrireJson(contexte, {{"copie", destination}, {"date", date}});
        else
            contexte.sortie << "Copie de sauvegarde : " << destination << " ("
                            << Dates::versAffichage(Horloge::aujourdhui()) << ")" << Qt::endl;
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeSauvegarder()
{
    return std::make_unique<CommandeSauvegarder>();
}

} // namespace corvane::cli
