#include "cli/Commandes.h"

#include "store/Fichiers.h"

#include <QFileInfo>
#include <QJsonObject>

namespace corvane::cli {

namespace {

class CommandeInfo : public Commande
{
public:
    QString nom() const override { return QStringLiteral("info"); }
    QString usage() const override { return QStringLiteral("info FICHIER"); }

    int executer(Contexte& contexte, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {}, 1, &code))
            return code;
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();

        // With the check of every page, unlike the other reading commands: telling a
        // damaged file from a sound one is what this command is for.
        Fichiers fichiers;
        const QString generation = fichiers.checkVersion(chemin);
        if (generation.isEmpty())
            return echec(contexte, fichiers.erreur());

        // Only read: the document is opened read-only and nothing is upgraded.
        BaseDeDonnees base;
        base.ouvrirEnLecture(chemin);
        const bool moderne = generation == QStringLiteral("3") || generation == QStringLiteral("4");
        const bool verrouille =
            base.tableExiste("file") && base.entier(QStringLiteral("SELECT f_locked FROM file WHERE f_id = 1;")) == 1;
        bool compter = moderne;
        if (verrouille) {
            if (contexte.motDePasseDonne && !verifierMotDePasse(contexte, chemin, &code))
                return code;
            compter = compter && contexte.motDePasseDonne;
        }

        QJsonObject enregistrements;
        if (compter) {
            for (const QString& table : base.tables())
                enregistrements.insert(table, base.entier(QStringLiteral("SELECT COUNT(*) FROM \"%1\";").arg(table)));
        }

        if (contexte.json) {
            QJsonObject objet{{"fichier", chemin}, {"generation", generation}, {"verrouille", verrouille}};
            if (compter)
                objet.insert("enregistrements", enregistrements);
            ecrireJson(contexte, objet);
            return Succes;
        }
        contexte.sortie << "Fichier : " << chemin << '\n'
                        << "Génération : " << generation << '\n'
                        << "Protégé par un mot de passe : " << (verrouille ? "oui" : "non") << '\n';
        if (compter) {
            contexte.sortie << "Enregistrements :\n";
            for (auto it = enregistrements.constBegin(); it != enregistrements.constEnd(); ++it)
                contexte.sortie << "  " << it.key() << " : " << it.value().toInteger() << '\n';
        }
        contexte.sortie.flush();
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeInfo()
{
    return std::make_unique<CommandeInfo>();
}

} // namespace corvane::cli
