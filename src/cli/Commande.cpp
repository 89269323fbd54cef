#include "cli/Commande.h"

#include "store/Verrou.h"

#include <QJsonDocument>

namespace corvane::cli {

int Commande::echec(Contexte& contexte, const QString& message)
{
    contexte.erreurs << "corvane-cli: " << message << Qt::endl;
    return ErreurUtilisateur;
}

int Commande::mauvaisUsage(Contexte& contexte, const QString& message) const
{
    contexte.erreurs << "corvane-cli: " << message << Qt::endl
                     << "usage : corvane-cli [--aujourdhui AAAA-MM-JJ] [--json] " << usage() << Qt::endl;
    return MauvaisUsage;
}

bool Commande::analyser(Contexte& contexte, Arguments& arguments, const QStringList& liste,
                        const QList<OptionAttendue>& options, int positionnels, int* code) const
{
    if (!arguments.analyser(liste, options)) {
        *code = mauvaisUsage(contexte, arguments.erreur());
        return false;
    }
    if (arguments.positionnels().size() != positionnels) {
        *code =
            mauvaisUsage(contexte, arguments.positionnels().size() < positionnels
                                       ? QStringLiteral("argument manquant")
                                       : QStringLiteral("argument en trop : %1").arg(arguments.positionnels().last()));
        return false;
    }
    return true;
}

void Commande::ecrireJson(Contexte& contexte, const QJsonObject& objet)
{
    contexte.sortie << QString::fromUtf8(QJsonDocument(objet).toJson(QJsonDocument::Indented));
    contexte.sortie.flush();
}

bool Commande::verifierMotDePasse(Contexte& contexte, const QString& chemin, int* code)
{
    if (!Verrou::isFileLocked(chemin))
        return true;
    if (!contexte.motDePasseDonne) {
        *code = echec(contexte, QStringLiteral("ce fichier est protégé par un mot de passe : indiquez-le avec "
                                               "--mot-de-passe."));
        return false;
    }
    if (!Verrou::estLeMotDePasse(chemin, contexte.motDePasse)) {
        *code = echec(contexte, QStringLiteral("le mot de passe est incorrect."));
        return false;
    }
    return true;
}

} // namespace corvane::cli
