// `structure ajouter|renommer|supprimer|lister`: the user's companies and troupes;
// `employe ajouter|modifier|supprimer|lister|rattacher|detacher`: their staff, attached to a
// structure as the Manager's outline does it.

#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"
#include "cli/FluxJson.h"

#include "manager/Employes.h"
#include "manager/Structures.h"
#include "store/Dates.h"
#include "store/Horloge.h"

namespace corvane::cli {

namespace {

QString messageStructureInconnue(int id)
{
    return QStringLiteral("aucune structure ne porte le numéro %1.").arg(id);
}

QString messageEmployeInconnu(int id)
{
    return QStringLiteral("aucun employé ne porte le numéro %1.").arg(id);
}

class CommandeStructure : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("structure"); }
    QString usage() const override
    {
        return QStringLiteral("structure ajouter FICHIER --nom N | structure renommer FICHIER ID --nom N | "
                              "structure supprimer FICHIER ID | structure lister FICHIER");
    }

protected:
    QStringList actions() const override { return {"ajouter", "renommer", "supprimer", "lister"}; }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& liste) override
    {
        if (action == QStringLiteral("lister"))
            return lister(contexte, liste);
        if (action == QStringLiteral("supprimer"))
            return supprimer(contexte, liste);
        return enregistrer(contexte, liste, action == QStringLiteral("renommer"));
    }

private:
    int enregistrer(Contexte& contexte, const QStringList& liste, bool renommer)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"nom"}}, renommer ? 2 : 1, &code))
            return code;
        const int id = renommer ? lireNumero(contexte, arguments, QStringLiteral("structure"), &code) : 0;
        if (code != Succes)
            return code;
        if (!arguments.exiger({"nom"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const QString nom = arguments.valeur("nom");
        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        {
            Structures structures(fichier);
            if (renommer && !structures.structureExiste(id))
                return echec(contexte, messageStructureInconnue(id));
            if (const QString refus = structures.refusNom(nom, id); !refus.isEmpty())
                return echec(contexte, refus);
        }
        if (!preparerEcriture(contexte, fichier, &code))
            return code;
        Structures structures(fichier);
        const int ecrit = renommer ? (structures.renommeStructure(id, nom) ? id : 0) : structures.ajouteStructure(nom);
        if (ecrit == 0)
            return echec(contexte, QStringLiteral("La structure n'a pas pu être enregistrée."));
        if (contexte.json)
            ecrireJson(contexte, {{"id", ecrit}});
        else
            contexte.sortie << "Structure n° " << ecrit << (renommer ? " renommée : " : " ajoutée : ")
                            << structures.nomStructure(ecrit) << '.' << Qt::endl;
        return Succes;
    }

    int supprimer(Contexte& contexte, const QStringList& liste)
    {
        return supprimerEnregistrement(
            contexte, liste,
            {QStringLiteral("structure"),
             [](const QString& chemin, int id) { return Structures(chemin).structureExiste(id); },
             [](const QString& chemin, int id) { return Structures(chemin).supprimeStructure(id); },
             &messageStructureInconnue, QStringLiteral("La structure n'a pas pu être supprimée."),
             QStringLiteral("Structure n° %1 supprimée."),
             [](const QString& chemin, int id) { return Structures(chemin).refusSuppression(id); }});
    }

    int lister(Contexte& contexte, const QStringList& liste)
    {
        int code = Succes;
        const QString fichier = documentALire(contexte, liste, &code);
        if (code != Succes)
            return code;
        const Table table = Structures(fichier).listeLesStructures();
        if (contexte.json) {
            FluxJson(contexte.sortie).ecrireObjet({{"structures", {}, &table}});
            return Succes;
        }
        for (qsizetype i = 0; i < table.size(); ++i) {
            const QString employes = table.valeur(i, "employes").toString();
            contexte.sortie << table.valeur(i, "id").toInt() << "  " << table.valeur(i, "nom").toString() << "  "
                            << (employes.isEmpty() ? QStringLiteral("aucun employé")
                                                   : QStringLiteral("employés : ") + employes)
                            << '\n';
        }
        contexte.sortie << table.size() << " structure(s)" << Qt::endl;
        return Succes;
    }
};

class CommandeEmploye : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("employe"); }
    QString usage() const override
    {
        return QStringLiteral(
            "employe ajouter FICHIER --prenom P --nom N [--adresse A] [--cp CP] [--ville V] [--naissance AAAA-MM-JJ] "
            "[--lieu-naissance L] [--nir NIR] [--fonction F] | employe modifier FICHIER ID [mêmes options, celles "
            "omises gardées] | employe supprimer FICHIER ID | employe lister FICHIER | employe rattacher FICHIER "
            "EMPLOYE STRUCTURE | employe detacher FICHIER EMPLOYE STRUCTURE");
    }

protected:
    QStringList actions() const override
    {
        return {"ajouter", "modifier", "supprimer", "lister", "rattacher", "detacher"};
    }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& liste) override
    {
        if (action == QStringLiteral("lister"))
            return lister(contexte, liste);
        if (action == QStringLiteral("supprimer"))
            return supprimer(contexte, liste);
        if (action == QStringLiteral("rattacher") || action == QStringLiteral("detacher"))
            return rattacher(contexte, liste, action == QStringLiteral("rattacher"));
        return enregistrer(contexte, liste, action == QStringLiteral("modifier"));
    }

private:
    int enregistrer(Contexte& contexte, const QStringList& liste, bool modifier)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste,
                      {{"prenom"},
                       {"nom"},
                       {"adresse"},
                       {"cp"},
                       {"ville"},
                       {"naissance"},
                       {"lieu-naissance"},
                       {"nir"},
                       {"fonction"}},
                      modifier ? 2 : 1, &code))
            return code;
        const int id = modifier ? lireNumero(contexte, arguments, QStringLiteral("employé"), &code) : 0;
        if (code != Succes)
            return code;
        if (!modifier && !arguments.exiger({"prenom", "nom"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const auto naissance = arguments.date("naissance", Limites::premiereNaissance(), Horloge::aujourdhui());
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());

        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        Employe employe;
        {
            Employes employes(fichier);
            if (modifier) {
                const std::optional<Employe> stocke = employes.employe(id);
                if (!stocke)
                    return echec(contexte, messageEmployeInconnu(id));
                employe = *stocke;
            }
            const auto lire = [&arguments](const char* option, QString& champ) {
                if (arguments.contient(option))
                    champ = arguments.valeur(option);
            };
            lire("prenom", employe.prenom);
            lire("nom", employe.nom);
            lire("adresse", employe.adresse);
            lire("cp", employe.codePostal);
            lire("ville", employe.ville);
            lire("lieu-naissance", employe.lieuNaissance);
            lire("nir", employe.nir);
            lire("fonction", employe.fonction);
            if (naissance)
                employe.naissance = *naissance;
            if (const QString refus = employes.refusValeurs(employe, id); !refus.isEmpty())
                return echec(contexte, refus);
        }
        if (!preparerEcriture(contexte, fichier, &code))
            return code;
        Employes employes(fichier);
        const int ecrit =
            modifier ? (employes.modifieEmploye(id, employe) ? id : 0) : employes.enregistreEmploye(employe);
        if (ecrit == 0)
            return echec(contexte, QStringLiteral("L'employé n'a pas pu être enregistré."));
        if (contexte.json)
            ecrireJson(contexte, {{"id", ecrit}});
        else
            contexte.sortie << "Employé n° " << ecrit << (modifier ? " modifié : " : " enregistré : ")
                            << employe.prenom.trimmed() << ' ' << employe.nom.trimmed() << '.' << Qt::endl;
        return Succes;
    }

    int supprimer(Contexte& contexte, const QStringList& liste)
    {
        return supprimerEnregistrement(
            contexte, liste,
            {QStringLiteral("employé"),
             [](const QString& chemin, int id) { return Employes(chemin).employeExiste(id); },
             [](const QString& chemin, int id) { return Employes(chemin).supprimeEmploye(id); },
             &messageEmployeInconnu, QStringLiteral("L'employé n'a pas pu être supprimé."),
             QStringLiteral("Employé n° %1 supprimé."),
             [](const QString& chemin, int id) { return Employes(chemin).refusSuppression(id); }});
    }

    int lister(Contexte& contexte, const QStringList& liste)
    {
        int code = Succes;
        const QString fichier = documentALire(contexte, liste, &code);
        if (code != Succes)
            return code;
        const Table table = Employes(fichier).listeLesEmployes();
        if (contexte.json) {
            FluxJson(contexte.sortie).ecrireObjet({{"employes", {}, &table}});
            return Succes;
        }
        for (qsizetype i = 0; i < table.size(); ++i) {
            QStringList champs{table.valeur(i, "Prénom").toString() + QLatin1Char(' ') +
                               table.valeur(i, "Nom").toString()};
            for (const char* cle : {"Fonction", "Ville", "DOB"})
                if (const QString v = table.valeur(i, cle).toString(); !v.isEmpty())
                    champs << v;
            const QString structures = table.valeur(i, "Structures").toString();
            champs << (structures.isEmpty() ? QStringLiteral("aucune structure")
                                            : QStringLiteral("structures : ") + structures);
            contexte.sortie << table.valeur(i, "Id").toInt() << "  " << champs.join(QStringLiteral("  ")) << '\n';
        }
        contexte.sortie << table.size() << " employé(s)" << Qt::endl;
        return Succes;
    }

    int rattacher(Contexte& contexte, const QStringList& liste, bool rattacher)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {}, 3, &code))
            return code;
        const int employe = lireNumero(contexte, arguments, QStringLiteral("employé"), &code);
        if (code != Succes)
            return code;
        bool ok = false;
        const int structure = arguments.positionnels().at(2).toInt(&ok);
        if (!ok || structure <= 0)
            return mauvaisUsage(
                contexte, QStringLiteral("numéro de structure invalide : « %1 »").arg(arguments.positionnels().at(2)));
        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        {
            Structures structures(fichier);
            if (!Employes(structures.db()).employeExiste(employe))
                return echec(contexte, messageEmployeInconnu(employe));
            if (!structures.structureExiste(structure))
                return echec(contexte, messageStructureInconnue(structure));
        }
        if (!preparerEcriture(contexte, fichier, &code))
            return code;
        Structures structures(fichier);
        const bool ecrit = rattacher ? structures.rattacheEmployes(structure, {employe})
                                     : structures.detacheEmploye(structure, employe);
        if (!ecrit)
            return echec(contexte, QStringLiteral("Les listes de la structure et de l'employé n'ont pas pu être "
                                                  "enregistrées."));
        const QString employes = structures.employesDeLaStructure(structure);
        const QString siennes = Employes(structures.db()).structuresDeLEmploye(employe);
        if (contexte.json)
            ecrireJson(contexte, {{"employes", employes}, {"structures", siennes}});
        else
            contexte.sortie << "Employé n° " << employe << (rattacher ? " rattaché à " : " retiré de ")
                            << structures.nomStructure(structure) << ". Employés de la structure : "
                            << (employes.isEmpty() ? QStringLiteral("aucun") : employes)
                            << " ; structures de l'employé : "
                            << (siennes.isEmpty() ? QStringLiteral("aucune") : siennes) << '.' << Qt::endl;
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeStructure()
{
    return std::make_unique<CommandeStructure>();
}

std::unique_ptr<Commande> commandeEmploye()
{
    return std::make_unique<CommandeEmploye>();
}

} // namespace corvane::cli
