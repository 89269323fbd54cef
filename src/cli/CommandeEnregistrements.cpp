#include "cli/CommandeEnregistrements.h"

#include "store/Fichiers.h"

#include <QFileInfo>

namespace corvane::cli {

int CommandeEnregistrements::executer(Contexte& contexte, const QStringList& liste)
{
    if (liste.isEmpty() || liste.first().startsWith(QStringLiteral("--")))
        return mauvaisUsage(contexte, QStringLiteral("action manquante (choix : %1)").arg(actions().join(", ")));
    const QString action = liste.first();
    if (!actions().contains(action))
        return mauvaisUsage(contexte,
                            QStringLiteral("action inconnue : %1 (choix : %2)").arg(action, actions().join(", ")));
    return executerAction(contexte, action, liste.mid(1));
}

bool CommandeEnregistrements::documentAccessible(Contexte& contexte, const QString& chemin, int* code)
{
    Fichiers fichiers;
    // Writes go through preparerEcriture, which checks the pages first.
    const QString generation = fichiers.checkVersion(chemin, false);
    if (generation.isEmpty()) {
        *code = echec(contexte, fichiers.erreur());
        return false;
    }
    if (generation != QStringLiteral("4")) {
        *code = echec(contexte, QStringLiteral("« %1 » n'est pas un fichier Corvane à jour : ouvrez-le d'abord avec la "
                                               "commande ouvrir.")
                                    .arg(QFileInfo(chemin).fileName()));
        return false;
    }
    return verifierMotDePasse(contexte, chemin, code);
}

bool CommandeEnregistrements::preparerEcriture(Contexte& contexte, const QString& chemin, int* code)
{
    DialoguesScriptes dialogues;
    Fichiers fichiers;
    if (fichiers.ouvertureSQLite(chemin, QString(), dialogues) != chemin) {
        *code = echec(contexte, fichiers.erreur().isEmpty()
                                    ? QStringLiteral("Le fichier « %1 » ne peut pas être modifié.").arg(chemin)
                                    : fichiers.erreur());
        return false;
    }
    return true;
}

int CommandeEnregistrements::lireNumero(Contexte& contexte, const Arguments& arguments, const QString& quoi,
                                        int* code) const
{
    bool ok = false;
    const int id = arguments.positionnels().at(1).toInt(&ok);
    if (!ok || id <= 0) {
        *code = mauvaisUsage(
            contexte, QStringLiteral("numéro de %1 invalide : « %2 »").arg(quoi, arguments.positionnels().at(1)));
        return 0;
    }
    return id;
}

std::optional<CommandeEnregistrements::Intervalle>
CommandeEnregistrements::lireIntervalle(Contexte& contexte, Arguments& arguments, int* code) const
{
    static const QStringList periodes{"tous", "periode_reference", "annee", "periode"};
    Intervalle intervalle{arguments.valeur("periode", QStringLiteral("tous")), {}, {}};
    if (!periodes.contains(intervalle.periode)) {
        *code = mauvaisUsage(contexte, QStringLiteral("période inconnue : « %1 » (choix : %2)")
                                           .arg(intervalle.periode, periodes.join(QStringLiteral(", "))));
        return std::nullopt;
    }
    if (arguments.contient("du") != arguments.contient("au")) {
        *code = mauvaisUsage(contexte, QStringLiteral("--du et --au vont ensemble"));
        return std::nullopt;
    }
    intervalle.du = arguments.date("du");
    intervalle.au = arguments.date("au");
    if (arguments.enErreur()) {
        *code = mauvaisUsage(contexte, arguments.erreur());
        return std::nullopt;
    }
    if (intervalle.du && *intervalle.au < *intervalle.du) {
        *code = mauvaisUsage(contexte, QStringLiteral("la date --au ne peut pas précéder la date --du"));
        return std::nullopt;
    }
    return intervalle;
}

QString CommandeEnregistrements::cheminDocument(const Arguments& arguments)
{
    return QFileInfo(arguments.positionnels().first()).absoluteFilePath();
}

QString CommandeEnregistrements::documentALire(Contexte& contexte, const QStringList& liste, int* code) const
{
    Arguments arguments;
    if (!analyser(contexte, arguments, liste, {}, 1, code))
        return {};
    const QString chemin = cheminDocument(arguments);
    if (!documentAccessible(contexte, chemin, code))
        return {};
    return chemin;
}

int CommandeEnregistrements::supprimerEnregistrement(Contexte& contexte, const QStringList& liste,
                                                     const Suppression& s) const
{
    Arguments arguments;
    int code = Succes;
    if (!analyser(contexte, arguments, liste, {}, 2, &code))
        return code;
    const int id = lireNumero(contexte, arguments, s.quoi, &code);
    if (code != Succes)
        return code;
    const QString chemin = cheminDocument(arguments);
    if (!documentAccessible(contexte, chemin, &code))
        return code;
    if (!s.existe(chemin, id))
        return echec(contexte, s.inconnu(id));
    if (const QString refus = s.refus ? s.refus(chemin, id) : QString(); !refus.isEmpty())
        return echec(contexte, refus);
    if (!preparerEcriture(contexte, chemin, &code))
        return code;
    if (!s.supprime(chemin, id))
        return echec(contexte, s.echec);
    if (contexte.json)
        ecrireJson(contexte, {{"id", id}});
    else
        contexte.sortie << s.fait.arg(id) << Qt::endl;
    return Succes;
}

QJsonObject CommandeEnregistrements::versJson(const Ligne& ligne)
{
    return QJsonObject::fromVariantMap(ligne);
}

QJsonArray CommandeEnregistrements::versJson(const Lignes& lignes)
{
    QJsonArray tableau;
    for (const Ligne& ligne : lignes)
        tableau.append(versJson(ligne));
    return tableau;
}

} // namespace corvane::cli
