// `droits-voisins ajouter|modifier|supprimer|lister|totaux`: the neighbouring-rights payments;
// `categorie-dv ajouter|renommer|supprimer|lister`: their categories, as the categories window.

#include "cli/Affichage.h"
#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"
#include "cli/FluxJson.h"

#include "records/DroitsVoisins.h"
#include "store/Dates.h"

#include <QFileInfo>

namespace corvane::cli {

namespace {

class CommandeDroitsVoisins : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("droits-voisins"); }
    QString usage() const override
    {
        return QStringLiteral(
            "droits-voisins ajouter FICHIER --organisme O --categorie C --date AAAA-MM-JJ --montant X "
            "[--details T] | droits-voisins modifier FICHIER ID [mêmes options, celles omises "
            "gardées] | droits-voisins supprimer FICHIER ID | droits-voisins lister FICHIER "
            "[--organisme O] | droits-voisins totaux FICHIER");
    }

protected:
    QStringList actions() const override { return {"ajouter", "modifier", "supprimer", "lister", "totaux"}; }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& liste) override
    {
        if (action == QStringLiteral("lister"))
            return lister(contexte, liste);
        if (action == QStringLiteral("totaux"))
            return totaux(contexte, liste);
        if (action == QStringLiteral("supprimer"))
            return supprimer(contexte, liste);
        return enregistrer(contexte, liste, action == QStringLiteral("modifier"));
    }

private:
    static QString messageInconnu(int id) { return QStringLiteral("aucun versement ne porte le numéro %1.").arg(id); }

    int enregistrer(Contexte& contexte, const QStringList& liste, bool modifier)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"organisme"}, {"categorie"}, {"date"}, {"montant"}, {"details"}},
                      modifier ? 2 : 1, &code))
            return code;
        const int id = modifier ? lireNumero(contexte, arguments, QStringLiteral("versement"), &code) : 0;
        if (code != Succes)
            return code;
        if (!modifier && !arguments.exiger({"organisme", "categorie", "date", "montant"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const auto date = arguments.date("date");
        const auto montant = arguments.montant("montant");
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());

        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        DroitVoisin droit;
        {
            DroitsVoisins droits(fichier);
            if (modifier) {
                const std::optional<DroitVoisin> stocke = droits.droitVoisin(id);
                if (!stocke)
                    return echec(contexte, messageInconnu(id));
                droit = *stocke;
            }
            if (arguments.contient("organisme")) {
                droit.organismeId = droits.retrouveOrganismeId(arguments.valeur("organisme"));
                if (droit.organismeId == 0)
                    return echec(
                        contexte,
                        QStringLiteral("aucun organisme ne s'appelle « %1 ».").arg(arguments.valeur("organisme")));
            }
            if (arguments.contient("categorie")) {
                droit.categorieId = droits.retrouveCategorieId(arguments.valeur("categorie"));
                if (droit.categorieId == 0)
                    return echec(
                        contexte,
                        QStringLiteral("aucune catégorie ne s'appelle « %1 ».").arg(arguments.valeur("categorie")));
            }
            if (date)
                droit.date = *date;
            if (montant)
                droit.montant = *montant;
            if (arguments.contient("details"))
                droit.details = arguments.valeur("details");
            if (const QString refus = droits.refusValeurs(droit); !refus.isEmpty())
                return echec(contexte, refus);
        }
        if (!preparerEcriture(contexte, fichier, &code))
            return code;

        DroitsVoisins droits(fichier);
        const int ecrit =
            modifier ? (droits.modifieDroitVoisin(id, droit) ? id : 0) : droits.enregistreDroitVoisin(droit);
        if (ecrit == 0)
            return echec(contexte, QStringLiteral("Le versement n'a pas pu être enregistré."));
        if (contexte.json)
            ecrireJson(contexte, {{"id", ecrit}});
        else
            contexte.sortie << "Versement n° " << ecrit << (modifier ? " modifié : " : " enregistré : ")
                            << droits.findDvOrganismFromId(droit.organismeId) << ", "
                            << droits.findDvCategoryFromId(droit.categorieId) << ", " << enEuros(droit.montant)
                            << " le " << Dates::versAffichage(droit.date) << '.' << Qt::endl;
        return Succes;
    }

    int supprimer(Contexte& contexte, const QStringList& liste)
    {
        return supprimerEnregistrement(
            contexte, liste,
            {QStringLiteral("versement"),
             [](const QString& chemin, int id) { return DroitsVoisins(chemin).droitVoisinExiste(id); },
             [](const QString& chemin, int id) { return DroitsVoisins(chemin).supprimeDroitVoisin(id); },
             &messageInconnu, QStringLiteral("Le versement n'a pas pu être supprimé."),
             QStringLiteral("Versement n° %1 supprimé.")});
    }

    int lister(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"organisme"}}, 1, &code))
            return code;
        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        DroitsVoisins droits(fichier);
        int organisme = 0;
        if (arguments.contient("organisme")) {
            organisme = droits.retrouveOrganismeId(arguments.valeur("organisme"));
            if (organisme == 0)
                return echec(contexte,
                             QStringLiteral("aucun organisme ne s'appelle « %1 ».").arg(arguments.valeur("organisme")));
        }
        const Table table = droits.listeLesDroitsVoisins(organisme);
        if (contexte.json) {
            FluxJson(contexte.sortie).ecrireObjet({{"droitsVoisins", {}, &table}});
            return Succes;
        }
        double total = 0.0;
        for (qsizetype i = 0; i < table.size(); ++i) {
            const QString details = table.valeur(i, "Details").toString().simplified();
            contexte.sortie << table.valeur(i, "Id").toInt() << "  " << table.valeur(i, "Date").toString() << "  "
                            << table.valeur(i, "Organism").toString() << "  " << table.valeur(i, "Category").toString()
                            << "  " << enEuros(table.valeur(i, "Amount").toDouble())
                            << (details.isEmpty() ? QString() : QStringLiteral("  ") + details) << '\n';
            total += table.valeur(i, "Amount").toDouble();
        }
        contexte.sortie << table.size() << " versement(s), " << enEuros(total) << Qt::endl;
        return Succes;
    }

    int totaux(Contexte& contexte, const QStringList& liste)
    {
        int code = Succes;
        const QString fichier = documentALire(contexte, liste, &code);
        if (code != Succes)
            return code;
        const Table table = DroitsVoisins(fichier).totauxParOrganisme();
        if (contexte.json) {
            FluxJson(contexte.sortie).ecrireObjet({{"totaux", {}, &table}});
            return Succes;
        }
        for (qsizetype i = 0; i < table.size(); ++i) {
            const QVariant montant = table.valeur(i, "Amount");
            contexte.sortie << table.valeur(i, "Name").toString() << "  "
                            << (montant.isValid() ? enEuros(montant.toDouble()) : QStringLiteral("aucun versement"))
                            << '\n';
        }
        contexte.sortie.flush();
        return Succes;
    }
};

class CommandeCategorieDv : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("categorie-dv"); }
    QString usage() const override
    {
        return QStringLiteral("categorie-dv ajouter FICHIER --nom N | categorie-dv renommer FICHIER ID --nom N | "
                              "categorie-dv supprimer FICHIER ID [--tout] | categorie-dv lister FICHIER");
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
    static QString messageInconnue(int id) { return QStringLiteral("aucune catégorie ne porte le numéro %1.").arg(id); }

    int enregistrer(Contexte& contexte, const QStringList& liste, bool renommer)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"nom"}}, renommer ? 2 : 1, &code))
            return code;
        const int id = renommer ? lireNumero(contexte, arguments, QStringLiteral("catégorie"), &code) : 0;
        if (code != Succes)
            return code;
        if (!arguments.exiger({"nom"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const QString nom = arguments.valeur("nom");
        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        {
            DroitsVoisins droits(fichier);
            if (renommer && !droits.categorieExiste(id))
                return echec(contexte, messageInconnue(id));
            if (const QString refus = droits.refusCategorie(nom, id); !refus.isEmpty())
                return echec(contexte, refus);
        }
        if (!preparerEcriture(contexte, fichier, &code))
            return code;
        DroitsVoisins droits(fichier);
        const int ecrit = renommer ? (droits.renommeCategorie(id, nom) ? id : 0) : droits.ajouteCategorie(nom);
        if (ecrit == 0)
            return echec(contexte, QStringLiteral("La catégorie n'a pas pu être enregistrée."));
        if (contexte.json)
            ecrireJson(contexte, {{"id", ecrit}});
        else
            contexte.sortie << "Catégorie n° " << ecrit << (renommer ? " renommée : " : " ajoutée : ")
                            << droits.findDvCategoryFromId(ecrit) << '.' << Qt::endl;
        return Succes;
    }

    int supprimer(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"tout", false}}, 2, &code))
            return code;
        const int id = lireNumero(contexte, arguments, QStringLiteral("catégorie"), &code);
        if (code != Succes)
            return code;
        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        int versements = 0;
        {
            DroitsVoisins droits(fichier);
            if (!droits.categorieExiste(id))
                return echec(contexte, messageInconnue(id));
            versements = droits.compteLesDroitsDeLaCategorie(id);
            // Without --tout, the question's answer is "Ne rien faire": the question is the error.
            if (versements > 0 && !arguments.contient("tout"))
                return echec(contexte, DroitsVoisins::questionDroitsAttribues(droits.findDvCategoryFromId(id)) +
                                           QStringLiteral("\n(répondez « Tout supprimer » avec --tout)"));
        }
        if (!preparerEcriture(contexte, fichier, &code))
            return code;
        DialoguesScriptes dialogues({DroitsVoisins::boutonToutSupprimer()});
        if (!DroitsVoisins(fichier).supprimeCategorieAvecVerification(id, dialogues))
            return echec(contexte, QStringLiteral("La catégorie n'a pas pu être supprimée."));
        if (contexte.json) {
            ecrireJson(contexte, {{"id", id}, {"versementsSupprimes", versements}});
            return Succes;
        }
        contexte.sortie << "Catégorie n° " << id << " supprimée";
        if (versements > 0)
            contexte.sortie << ", avec " << versements << (versements > 1 ? " versements" : " versement");
        contexte.sortie << '.' << Qt::endl;
        return Succes;
    }

    int lister(Contexte& contexte, const QStringList& liste)
    {
        int code = Succes;
        const QString fichier = documentALire(contexte, liste, &code);
        if (code != Succes)
            return code;
        DroitsVoisins droits(fichier);
        QJsonArray categories;
        for (const auto& [id, nom] : droits.categories()) {
            const int versements = droits.compteLesDroitsDeLaCategorie(id);
            if (contexte.json)
                categories.append(QJsonObject{{"id", id}, {"nom", nom}, {"versements", versements}});
            else
                contexte.sortie << id << "  " << nom << "  " << versements << " versement(s)" << '\n';
        }
        if (contexte.json)
            ecrireJson(contexte, {{"categories", categories}});
        else
            contexte.sortie.flush();
        return Succes;
    }
};

} // namespace

std::unique_ptr<Commande> commandeDroitsVoisins()
{
    return std::make_unique<CommandeDroitsVoisins>();
}

std::unique_ptr<Commande> commandeCategorieDv()
{
    return std::make_unique<CommandeCategorieDv>();
}

} // namespace corvane::cli
