#pragma once

#include "store/Intermittent.h"
#include "store/SaisieFrancaise.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <optional>

namespace corvane {

// One professional expense as its form edits it. The defaults are those of a new one.
struct Depense
{
    int id = 0;
    int categorieId = 0;  // a key of fraistypes
    QString details;      // the note
    double montant = 0.0; // euros, or kilometres for the mileage category
    QDate date;
    QString fichier; // the path of the attached receipt, "" for none
    bool rembourse = false;
    int contratLie = 0; // the linked contract, 0 for none
};

// What an expense listing keeps: the span keyword, the category and the sort preference.
struct FiltreFrais
{
    QString filtre = QStringLiteral("TOUS"); // "TOUS", "PERIODE" or "ANNEE"
    int categorie = 0;                       // a key of fraistypes, 0 for every category
    QDate du;                                // the "PERIODE" keyword's two dates
    QDate au;
    QString sens; // the "fraisClassementGrilleFrais" preference, applied inverted
};

// The expenses (table `frais`): every statement of the table, the listing with its filters
// and the total of the last listing, and the link of an expense to a contract. The link
// table `contrats_frais` is authoritative: an expense is linked to the contract that
// `f_contrat_lie` names when the link table holds that pair.
class Frais : public Intermittent
{
public:
    explicit Frais(const QString& chemin = QString());
    explicit Frais(BaseDeDonnees& connexion);

    // The mileage category ("Kilométrage"): its amounts are distances.
    static constexpr int kCategorieKilometrage = 1;
    // A distance: up to a million kilometres, to two decimals.
    static constexpr Bornes kDistance{0.0, 1'000'000.0, 2, false};
    static bool estKilometrage(int categorieId) { return categorieId == kCategorieKilometrage; }

    // The filter text of the last listing, which the total reuses ("" before any: every expense).
    QString clauseWhere;

    // "Id Frais", "Date" (dd/MM/yyyy), "Date SQLite" (the stored text), "Categorie" (its label),
    // "Montant", "Note", "Fichier", "KmOuEuro" ("km" for the mileage category, else "€").
    static const QStringList& clesListe();
    // The screen's listing adds "Rembourse" (0 or 1), "Id Contrat Lie" (0 for none) and
    // "Contrat Lie" ("du 12/03/2025 chez Opéra", "" for none).
    static const QStringList& clesEcran();
    // The amount column's title for a category filter: "Euros", or "Km/Euros" when the
    // list may hold distances.
    static QString titreColonneMontant(int categorie);
    // Inverted on purpose: "DESC" lists the oldest expense first, anything else the newest.
    static QString ordreDeTri(const QString& sens);
    // "km" for the mileage category, "€" for the others.
    static QString unite(int categorieId);
    // An amount as a person reads it: "12,50 €" or "1 234,5 km".
    static QString texteMontant(double montant, int categorieId);
    // A contract as the user knows it: "du 12/03/2025 chez Théâtre du Rond-Point".
    static QString designationContrat(const QDate& debut, const QString& employeur);

    int compteLesFrais();
    int compteLesFraisParCategorie(int categorieId);
    bool fraisExiste(int id);
    std::optional<Depense> chargeFrais(int id);

    // Why an expense may not be saved ("" when it may): an unknown category, a date or an
    // amount (a distance) out of its bounds, a linked contract that does not exist.
    QString refusValeurs(const Depense& depense);
    // Checks, inserts the expense with its reimbursed flag and its link; its key, or 0.
    int enregistreFrais(const Depense& depense);
    // Checks and writes over the expense of key `depense.id`; false on refusal or failure.
    bool modifieFrais(const Depense& depense);
    // The expense and its links to contracts.
    bool supprimeFrais(int id);
    bool supprimeFraisParCategorie(int categorieId);
    // Links the expense to the contract (0: to none): the link table, `f_contrat_lie` and the
    // contracts' own lists `c_frais_lies` all follow. Nothing is written when the link stays.
    bool lieAuContrat(int fraisId, int contratId);
    int contratLieAuFrais(int fraisId);

    // The rows under the display keys; also sets clauseWhere.
    Table listeLesFrais(const FiltreFrais& filtre, bool colonnesEcran = false);
    QString construitClauseWhere(const FiltreFrais& filtre) const;
    // "SELECT SUM(f_montant) … %clauseWhere": euros and kilometres together when the
    // listing mixes them.
    double cumulFrais();
    // The same span, euros and kilometres apart.
    struct Cumuls
    {
        int nombre = 0;
        double euros = 0.0;
        double kilometres = 0.0;
    };
    Cumuls cumulsParUnite();
    // Per category over the same span, by label: "Catégorie", "Nombre", "Montant", "KmOuEuro".
    Table cumulsParCategorie();

    // The contracts an expense may be linked to, newest first, each as the user knows it.
    Choix contratsProposes();
};

} // namespace corvane
