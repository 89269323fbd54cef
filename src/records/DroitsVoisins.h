#pragma once

#include "store/Dialogues.h"
#include "store/Intermittent.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <optional>

namespace corvane {

// One payment received from a collecting society, as the form holds it.
struct DroitVoisin
{
    QDate date;
    int organismeId = 0; // key of `droitsvoisinsorganismes`
    int categorieId = 0; // key of `droitsvoisinstypes`
    double montant = 0.0;
    QString details;
};

// The neighbouring-rights and royalty payments (table `droitsvoisins`), each with a paying
// body and a category; the totals per body; and the categories, which the user manages.
class DroitsVoisins : public Intermittent
{
public:
    explicit DroitsVoisins(const QString& chemin = QString()) : Intermittent(chemin) {}
    explicit DroitsVoisins(BaseDeDonnees& connexion) : Intermittent(connexion) {}

    // "Id", "Date" (dd/MM/yyyy), "Date SQLite", "Organism", "Amount", "Category", "Details".
    static const QStringList& clesListe();
    // "Name", "Amount" (null for a body without payment).
    static const QStringList& clesTotaux();

    // Titles and messages of the screen and of the categories window.
    static QString titreAlertes();    // "Gestion des Droits voisins"
    static QString titreCategories(); // "Gestion des catégories de droits voisins"
    static QString titreDoublon();    // "Droits voisins"
    static QString messageCategorieExistante();
    static QString messageNomVide();
    static QString messageNomVideRenommage();
    static QString titreVerification();
    static QString questionDroitsAttribues(const QString& categorie);
    static QString boutonToutSupprimer();
    static QString boutonNeRienFaire();

    // The bodies by name, and the categories by key, as (id, label).
    Choix organismes();
    Choix categories();
    // A body or category from its label, the exact one first, then one differing in case
    // only; 0 when there is none.
    int retrouveOrganismeId(const QString& nom);
    int retrouveCategorieId(const QString& type);

    // Why a payment may not be saved ("" when it may): its date, amount, body or category.
    QString refusValeurs(const DroitVoisin& droit);
    bool droitVoisinExiste(int id);
    std::optional<DroitVoisin> droitVoisin(int id);
    // The key written, or 0 on refusal or failure.
    int enregistreDroitVoisin(const DroitVoisin& droit);
    bool modifieDroitVoisin(int id, const DroitVoisin& droit);
    bool supprimeDroitVoisin(int id);

    // Every payment, or those of one body (organismeId > 0), by date ("ASC" or "DESC").
    Table listeLesDroitsVoisins(int organismeId = 0, const QString& classement = QStringLiteral("ASC"));
    // Every body by key with the sum of its payments, null when it has none.
    Table totauxParOrganisme();

    // The categories window. A name is kept without its surrounding blanks; a new name is
    // refused when empty or when another category has it, whatever its case.
    QString refusCategorie(const QString& nom, int idExclu = 0);
    int ajouteCategorie(const QString& nom);
    bool renommeCategorie(int id, const QString& nom);
    bool categorieExiste(int id);
    int compteLesDroitsDeLaCategorie(int id);
    // Deletes a category; one in use is deleted with its payments only when the user answers
    // "Tout supprimer" to the question. True when the category was deleted.
    bool supprimeCategorieAvecVerification(int id, Dialogues& dialogues);
    // The "Tout supprimer" answer: the category's payments, then the category.
    bool supprimeCategorieEtDroits(int id);
};

} // namespace corvane
