// `contrat ajouter|lister|supprimer`: the command and its `supprimer` action.

#include "cli/CommandeContrat.h"
#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"

#include "records/Contrats.h"

#include <QFileInfo>
#include <QJsonObject>

namespace corvane::cli {

namespace {

class CommandeContratSupprimer : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("contrat"); }
    QString usage() const override { return QStringLiteral("contrat supprimer FICHIER ID"); }

protected:
    QStringList actions() const override { return {QStringLiteral("supprimer")}; }

    int executerAction(Contexte& contexte, const QString&, const QStringList& liste) override
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {}, 2, &code))
            return code;
        const int id = lireNumero(contexte, arguments, QStringLiteral("contrat"), &code);
        if (id == 0)
            return code;
        const QString chemin = QFileInfo(arguments.positionnels().first()).absoluteFilePath();
        if (!documentAccessible(contexte, chemin, &code))
            return code;
        if (!Contrats(chemin).contratExiste(id))
            return echec(contexte, QStringLiteral("aucun contrat ne porte le numéro %1.").arg(id));
        if (!preparerEcriture(contexte, chemin, &code))
            return code;

        Contrats contrats(chemin);
        contrats.supprimeContratsEtLiens({id});

        if (contexte.json)
            ecrireJson(contexte, {{"id", id}});
        else
            contexte.sortie << "Contrat n° " << id << " supprimé." << Qt::endl;
        return Succes;
    }
};

// `contrat ACTION …`: each action is its own command.
class CommandeContrat : public CommandeEnregistrements
{
public:
    CommandeContrat()
    {
        m_actions.emplace_back(QStringLiteral("ajouter"), commandeContratAjouter());
        m_actions.emplace_back(QStringLiteral("lister"), commandeContratLister());
        m_actions.emplace_back(QStringLiteral("supprimer"), commandeContratSupprimer());
    }

    QString nom() const override { return QStringLiteral("contrat"); }
    QString usage() const override
    {
        QStringList lignes;
        for (const auto& [action, commande] : m_actions)
            lignes << commande->usage();
        return lignes.join(QStringLiteral("\n  "));
    }

protected:
    QStringList actions() const override
    {
        QStringList noms;
        for (const auto& [action, commande] : m_actions)
            noms << action;
        return noms;
    }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& arguments) override
    {
        for (const auto& [nomAction, commande] : m_actions)
            if (nomAction == action)
                return commande->executer(contexte, QStringList{action} + arguments);
        return MauvaisUsage;
    }

private:
    std::vector<std::pair<QString, std::unique_ptr<Commande>>> m_actions;
};

} // namespace

std::unique_ptr<Commande> commandeContratSupprimer()
{
    return std::make_unique<CommandeContratSupprimer>();
}

std::unique_ptr<Commande> commandeContrat()
{
    return std::make_unique<CommandeContrat>();
}

} // namespace corvane::cli
