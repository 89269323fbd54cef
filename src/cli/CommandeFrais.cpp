// `frais ajouter|modifier|supprimer|lister` and `categorie-frais ajouter|renommer|supprimer|lister`:
// the professional expenses and their categories.

#include "cli/CommandeFrais.h"

#include "cli/Affichage.h"
#include "cli/CommandeEnregistrements.h"
#include "cli/Commandes.h"
#include "cli/FluxJson.h"

#include "records/Frais.h"
#include "records/FraisTypes.h"
#include "store/Dates.h"
#include "store/Reglages.h"

#include <QFileInfo>
#include <cmath>
#include <limits>

namespace corvane::cli {

namespace {

// A category by its label, whatever the case (no two labels differ only by it); 0 when none.
int categorieDuLibelle(Intermittent& document, const QString& libelle)
{
    if (const int id = document.retrouveFraisTypeIdDepuisType(libelle); id > 0)
        return id;
    for (const auto& [id, texte] : document.choixTypesDeFrais())
        if (texte.compare(libelle, Qt::CaseInsensitive) == 0)
            return id;
    return 0;
}

QString categorieInconnue(const QString& libelle)
{
    return QStringLiteral("aucune catégorie de frais ne s'appelle « %1 ».").arg(libelle);
}

class CommandeFrais : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("frais"); }
    QString usage() const override
    {
        return QStringLiteral("frais ajouter FICHIER --categorie C --date AAAA-MM-JJ --montant X [--note N] [--fichier "
                              "F] [--contrat ID] [--rembourse] | frais modifier FICHIER ID (mêmes options) | frais "
                              "supprimer FICHIER ID | frais lister FICHIER ") +
               usageFiltreFrais();
    }

protected:
    QStringList actions() const override { return {"ajouter", "modifier", "supprimer", "lister"}; }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& liste) override
    {
        if (action == QStringLiteral("lister"))
            return lister(contexte, liste);
        if (action == QStringLiteral("supprimer"))
            return supprimer(contexte, liste);
        return enregistrer(contexte, liste, action == QStringLiteral("modifier"));
    }

private:
    static QString messageInconnu(int id) { return QStringLiteral("aucun frais ne porte le numéro %1.").arg(id); }

    int enregistrer(Contexte& contexte, const QStringList& liste, bool modifier)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste,
                      {{"categorie"}, {"date"}, {"montant"}, {"note"}, {"fichier"}, {"contrat"}, {"rembourse", false}},
                      modifier ? 2 : 1, &code))
            return code;
        const int id = modifier ? lireNumero(contexte, arguments, QStringLiteral("frais"), &code) : 0;
        if (code != Succes)
            return code;
        if (!arguments.exiger({"categorie", "date", "montant"}))
            return mauvaisUsage(contexte, arguments.erreur());
        Depense depense;
        depense.id = id;
        const auto date = arguments.date("date");
        const auto contrat = arguments.entier("contrat", 1, std::numeric_limits<int>::max());
        // The amount's bounds depend on the category, read in the document; its form is checked now.
        arguments.montant("montant");
        if (arguments.enErreur())
            return mauvaisUsage(contexte, arguments.erreur());
        depense.date = *date;
        depense.contratLie = contrat.value_or(0);
        depense.details = arguments.valeur("note", QStringLiteral(""));
        const QString fichierJoint = arguments.valeur("fichier");
        depense.fichier = fichierJoint.isEmpty() ? QStringLiteral("") : QFileInfo(fichierJoint).absoluteFilePath();
        depense.rembourse = arguments.contient("rembourse");

        const QString fichier = cheminDocument(arguments);
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        {
            Frais frais(fichier);
            depense.categorieId = categorieDuLibelle(frais, arguments.valeur("categorie"));
            if (depense.categorieId == 0)
                return echec(contexte, categorieInconnue(arguments.valeur("categorie")));
            const bool km = Frais::estKilometrage(depense.categorieId);
            const auto montant = arguments.montant("montant", km ? Frais::kDistance : Limites::kMontant);
            if (arguments.enErreur())
                return mauvaisUsage(contexte, arguments.erreur());
            depense.montant = *montant;
            if (modifier && !frais.fraisExiste(id))
                return echec(contexte, messageInconnu(id));
            if (const QString refus = frais.refusValeurs(depense); !refus.isEmpty())
                return echec(contexte, refus);
        }
        if (!preparerEcriture(contexte, fichier, &code))
            return code;

        Frais frais(fichier);
        const int ecrit = modifier ? (frais.modifieFrais(depense) ? id : 0) : frais.enregistreFrais(depense);
        if (ecrit == 0)
            return echec(contexte, QStringLiteral("La dépense n'a pas pu être enregistrée."));
        if (contexte.json)
            ecrireJson(contexte, {{"id", ecrit}});
        else
            contexte.sortie << "Frais n° " << ecrit << (modifier ? " modifié : " : " enregistré : ")
                            << Dates::versAffichage(depense.date) << ", "
                            << frais.retrouveFraisTypeDepuisId(depense.categorieId) << ", "
                            << Frais::texteMontant(depense.montant, depense.categorieId) << Qt::endl;
        return Succes;
    }

    int supprimer(Contexte& contexte, const QStringList& liste)
    {
        return supprimerEnregistrement(
            contexte, liste,
            {QStringLiteral("frais"), [](const QString& chemin, int id) { return Frais(chemin).fraisExiste(id); },
             [](const QString& chemin, int id) { return Frais(chemin).supprimeFrais(id); }, &messageInconnu,
             QStringLiteral("La dépense n'a pas pu être supprimée."), QStringLiteral("Frais n° %1 supprimé.")});
    }

    int lister(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, optionsFiltreFrais(), 1, &code))
            return code;
        const QString fichier = cheminDocument(arguments);
        // A listing reads only: no upgrade pass, nothing written.
        if (!documentAccessible(contexte, fichier, &code))
            return code;
        Frais frais(fichier);
        FiltreFrais filtre;
        if (const QString refus = lireFiltreFrais(arguments, frais, filtre, &code); !refus.isEmpty())
            return code == MauvaisUsage ? mauvaisUsage(contexte, refus) : echec(contexte, refus);
        const Table table = frais.listeLesFrais(filtre);
        // Every amount is a whole number of cents; the sum is given as one.
        const double cumul = std::round(frais.cumulFrais() * 100.0) / 100.0;
        if (contexte.json) {
            FluxJson(contexte.sortie).ecrireObjet({{"frais", {}, &table}, {"cumul", cumul}});
            return Succes;
        }
        const int id = table.colonne("Id Frais"), date = table.colonne("Date"), categorie = table.colonne("Categorie"),
                  montant = table.colonne("Montant"), unite = table.colonne("KmOuEuro"), note = table.colonne("Note");
        for (const QVariantList& l : table.rangees) {
            const double m = l.at(montant).toDouble();
            contexte.sortie << l.at(id).toInt() << "  " << l.at(date).toString() << "  " << l.at(categorie).toString()
                            << "  "
                            << (l.at(unite).toString() == QStringLiteral("km") ? enNombre(m) + QStringLiteral(" km")
                                                                               : enEuros(m));
            if (const QString texte = l.at(note).toString().simplified(); !texte.isEmpty())
                contexte.sortie << "  " << texte;
            contexte.sortie << '\n';
        }
        const Frais::Cumuls cumuls = frais.cumulsParUnite();
        contexte.sortie << "Cumul : " << table.size() << " frais, " << enEuros(cumuls.euros);
        if (cumuls.kilometres != 0.0)
            contexte.sortie << " et " << enNombre(cumuls.kilometres) << " km";
        contexte.sortie << Qt::endl;
        return Succes;
    }
};

class CommandeCategorieFrais : public CommandeEnregistrements
{
public:
    QString nom() const override { return QStringLiteral("categorie-frais"); }
    QString usage() const override
    {
        return QStringLiteral("categorie-frais ajouter FICHIER --nom N | categorie-frais renommer FICHIER ID --nom N | "
                              "categorie-frais supprimer FICHIER ID [--tout] | categorie-frais lister FICHIER");
    }

protected:
    QStringList actions() const override { return {"ajouter", "renommer", "supprimer", "lister"}; }

    int executerAction(Contexte& contexte, const QString& action, const QStringList& liste) override
    {
        if (action == QStringLiteral("lister"))
            return lister(contexte, liste);
        if (action == QStringLiteral("supprimer"))
            return supprimer(contexte, liste);
        return nommer(contexte, liste, action == QStringLiteral("renommer"));
    }

private:
    // The key of an existing category, the document checked; 0 with the code set otherwise.
    int categorieExistante(Contexte& contexte, const Arguments& arguments, int* code)
    {
        const int id = lireNumero(contexte, arguments, QStringLiteral("catégorie"), code);
        if (*code != Succes)
            return 0;
        if (!documentAccessible(contexte, cheminDocument(arguments), code))
            return 0;
        if (!FraisTypes(cheminDocument(arguments)).categorieExiste(id)) {
            *code = echec(contexte, QStringLiteral("aucune catégorie ne porte le numéro %1.").arg(id));
            return 0;
        }
        return id;
    }

    int nommer(Contexte& contexte, const QStringList& liste, bool renommer)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"nom"}}, renommer ? 2 : 1, &code))
            return code;
        if (!arguments.exiger({"nom"}))
            return mauvaisUsage(contexte, arguments.erreur());
        const QString nom = arguments.valeur("nom");
        const QString fichier = cheminDocument(arguments);
        int id = 0;
        if (renommer) {
            id = categorieExistante(contexte, arguments, &code);
            if (code != Succes)
                return code;
        } else if (!documentAccessible(contexte, fichier, &code)) {
            return code;
        }
        if (const QString refus = FraisTypes(fichier).refusNom(nom, id); !refus.isEmpty())
            return echec(contexte, refus);
        if (!preparerEcriture(contexte, fichier, &code))
            return code;
        FraisTypes categories(fichier);
        const int ecrit =
            renommer ? (categories.renommeCategorie(id, nom) ? id : 0) : categories.enregistreCategorie(nom);
        if (ecrit == 0)
            return echec(contexte, QStringLiteral("La catégorie n'a pas pu être enregistrée."));
        if (contexte.json)
            ecrireJson(contexte, {{"id", ecrit}});
        else
            contexte.sortie << "Catégorie n° " << ecrit << (renommer ? " renommée : " : " enregistrée : ")
                            << nom.trimmed() << Qt::endl;
        return Succes;
    }

    int supprimer(Contexte& contexte, const QStringList& liste)
    {
        Arguments arguments;
        int code = Succes;
        if (!analyser(contexte, arguments, liste, {{"tout", false}}, 2, &code))
            return code;
        const int id = categorieExistante(contexte, arguments, &code);
        if (code != Succes)
            return code;
        const QString fichier = cheminDocument(arguments);
        int nombre = 0;
        {
            FraisTypes categories(fichier);
            if (const QString refus = categories.refusSuppression(id); !refus.isEmpty())
                return echec(contexte, refus);
            nombre = Frais(categories.db()).compteLesFraisParCategorie(id);
            // Without --tout, the question's answer is "Rien": the question is the error.
            if (nombre > 0 && !arguments.contient("tout"))
                return echec(contexte, FraisTypes::questionFraisClasses(nombre) +
                                           QStringLiteral("\n(répondez « Tout » avec --tout)"));
        }
        if (!preparerEcriture(contexte, fichier, &code))
            return code;
        if (!FraisTypes(fichier).supprimeCategorie(id))
            return echec(contexte, QStringLiteral("La catégorie n'a pas pu être supprimée."));
        if (contexte.json)
            ecrireJson(contexte, {{"id", id}, {"fraisSupprimes", nombre}});
        else
            contexte.sortie << "Catégorie n° " << id << " supprimée, avec " << nombre << " frais." << Qt::endl;
        return Succes;
    }

    int lister(Contexte& contexte, const QStringList& liste)
    {
        int code = Succes;
        const QString fichier = documentALire(contexte, liste, &code);
        if (code != Succes)
            return code;
        const Table table = FraisTypes(fichier).listeLesCategories();
        if (contexte.json) {
            FluxJson(contexte.sortie).ecrireObjet({{"categories", {}, &table}});
            return Succes;
        }
        for (const QVariantList& l : table.rangees)
            contexte.sortie << l.at(0).toInt() << "  " << l.at(1).toString() << "  " << l.at(2).toInt() << " frais\n";
        contexte.sortie << table.size() << " catégorie(s)" << Qt::endl;
        return Succes;
    }
};

} // namespace

const QList<OptionAttendue>& optionsFiltreFrais()
{
    static const QList<OptionAttendue> options{{"filtre"}, {"du"}, {"au"}, {"categorie"}, {"sens"}};
    return options;
}

QString usageFiltreFrais()
{
    return QStringLiteral(
        "[--filtre TOUS|PERIODE|ANNEE] [--du AAAA-MM-JJ --au AAAA-MM-JJ] [--categorie C] [--sens MOT]");
}

QString lireFiltreFrais(Arguments& arguments, Frais& frais, FiltreFrais& filtre, int* code)
{
    static const QStringList filtres{"TOUS", "PERIODE", "ANNEE"};
    filtre = FiltreFrais();
    *code = MauvaisUsage;
    filtre.filtre = arguments.valeur("filtre", QStringLiteral("TOUS"));
    if (!filtres.contains(filtre.filtre))
        return QStringLiteral("filtre inconnu : « %1 » (choix : %2)").arg(filtre.filtre, filtres.join(", "));
    if (arguments.contient("du") != arguments.contient("au"))
        return QStringLiteral("--du et --au vont ensemble");
    const auto du = arguments.date("du");
    const auto au = arguments.date("au");
    if (arguments.enErreur())
        return arguments.erreur();
    if (du && *au < *du)
        return QStringLiteral("la date --au ne peut pas précéder la date --du");
    // Without dates, the "PERIODE" span takes the ones the screen remembers.
    filtre.du = du ? *du : frais.retrouveDatePreferee(QStringLiteral("frais_debut")).date();
    filtre.au = au ? *au : frais.retrouveDatePreferee(QStringLiteral("frais_fin")).date();
    filtre.sens = arguments.valeur("sens", Reglages::defaut(Reglages::Cle::FraisSens).toString());
    if (arguments.contient("categorie")) {
        filtre.categorie = categorieDuLibelle(frais, arguments.valeur("categorie"));
        if (filtre.categorie == 0) {
            *code = ErreurUtilisateur;
            return categorieInconnue(arguments.valeur("categorie"));
        }
    }
    *code = Succes;
    return {};
}

std::unique_ptr<Commande> commandeFrais()
{
    return std::make_unique<CommandeFrais>();
}

std::unique_ptr<Commande> commandeCategorieFrais()
{
    return std::make_unique<CommandeCategorieFrais>();
}

} // namespace corvane::cli
