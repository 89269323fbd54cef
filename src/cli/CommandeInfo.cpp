#include "cli/Commandes.h"

#include "store/ErreursSQLite.h"
#include "store/Fichiers.h"

#include <QDir>
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

        const bool moderne = generation == QStringLiteral("3") || generation == QStringLiteral("4");
        bool verrouille = false;
        bool compter = moderne;
        if (moderne) {
            const std::optional<Verrouillage> verrou = lireVerrouillage(contexte, chemin, &code);
            if (!verrou)
                return code;
            // The generation and the lock are answered for whoever asks; the counts only with the password.
            verrouille = verrou->verrouille;
            compter = verrou->accessible;
            if (!compter && contexte.motDePasseDonne)
                contexte.erreurs << "corvane-cli: le mot de passe est incorrect : les nombres d'enregistrements ne "
                                    "sont pas donnés."
                                 << Qt::endl;
        }

        // Only read: nothing is upgraded.
        BaseDeDonnees base;
        base.ouvrirEnLecture(chemin);

        QJsonObject enregistrements;
        if (compter) {
            for (const QString& table : base.tables()) {
                // A count that cannot be read is an error, never a 0.
                Requete r(base, QStringLiteral("SELECT COUNT(*) FROM \"%1\";").arg(table));
                if (!r.suivante())
                    return echec(contexte,
                                 ErreursSQLite::estOccupe(r.code())
                                     ? ErreursSQLite::fichierUtilise(chemin)
                                     : QStringLiteral("Le fichier « %1 » ne peut pas être lu : %2.")
                                           .arg(QDir::toNativeSeparators(chemin), ErreursSQLite::raison(r.code())));
                enregistrements.insert(table, r.entier(0));
            }
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
