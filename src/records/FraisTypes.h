#pragma once

#include "store/Dialogues.h"
#include "store/Intermittent.h"

#include <QString>
#include <QStringList>

namespace corvane {

// The expense categories (table `fraistypes`) and the rules of their management window:
// a name is required and names no other category, and the mileage category stays.
class FraisTypes : public Intermittent
{
public:
    explicit FraisTypes(const QString& chemin = QString());
    explicit FraisTypes(BaseDeDonnees& connexion);

    // The window's title, its alerts' only button and its messages.
    static QString titreFenetre();   // "Gestion des catégories de frais"
    static QString boutonFermer();   // "Fermer"
    static QString messageNomVide(); // "Veuillez saisir un nom pour la nouvelle catégorie."
    static QString messageExisteDeja();
    static QString messageKilometrage();
    static QString messageCategorieInconnue();
    // The question asked before a category with expenses goes, with them ("Tout" or "Rien").
    static QString questionFraisClasses(int nombre);

    // By label: "Id", "Catégorie", "Frais" (the number of expenses in it).
    static const QStringList& clesListe();
    Table listeLesCategories();
    bool categorieExiste(int id);

    // Why a name may not be given to a category ("" when it may): empty, or already another
    // category's, whatever the case. `idExclu` is the category being renamed.
    QString refusNom(const QString& nom, int idExclu = 0);
    // The name is stored trimmed; the key, or 0 on refusal or failure.
    int enregistreCategorie(const QString& nom);
    bool renommeCategorie(int id, const QString& nom);
    // Why a category may not be deleted ("" when it may): the mileage category, or none such.
    QString refusSuppression(int id);
    // The category and every expense in it, with their links.
    bool supprimeCategorie(int id);
    // Asks first when expenses are in it; "Tout" deletes them with it. True when it went.
    bool supprimeCategorieAvecVerification(int id, Dialogues& dialogues);
};

} // namespace corvane
