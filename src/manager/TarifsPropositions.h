#pragma once

#include "store/Intermittent.h"
#include "store/SaisieFrancaise.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace corvane {

// A priced service (table `prestationstypes`), in a group of `prestations`.
struct Prestation
{
    int id = 0;
    int groupeId = 0;
    QString libelle;
    double montant = 0.0;
    QString note;
    bool parPersonne = false; // the price is for one person
};

// A discount (table `remises`): a rate in percent or a fixed amount in euros.
struct Remise
{
    int id = 0;
    double montant = 0.0;
    int type = 0; // -1 none (the row "Aucune remise"), 0 a rate, 1 a fixed amount
    QString note;
};

// A delay (table `delais`): a number of days or of months.
struct Delai
{
    int id = 0;
    int nombre = 0;
    int type = 0; // 0 "jours", 1 "mois"
};

// What a proposition is priced with: the services and their groups, the discounts and the
// delays. Free text is always bound, so a service called "L'heure du conte" is stored as typed.
class TarifsPropositions : public Intermittent
{
public:
    explicit TarifsPropositions(const QString& chemin = QString()) : Intermittent(chemin) {}
    explicit TarifsPropositions(BaseDeDonnees& connexion) : Intermittent(connexion) {}

    // The row "Aucune remise", which every proposition without a discount points to.
    static constexpr int kAucuneRemise = 1;
    static constexpr int kTypeSansRemise = -1;
    static constexpr int kTypePourcentage = 0;
    static constexpr int kTypeMontant = 1;
    // A service's price and a fixed discount: euros, never negative.
    static constexpr Bornes kPrix = Limites::kMontant;
    static constexpr int kNombreMaximumJours = 366;
    static constexpr int kNombreMaximumMois = 36;

    // Titles of the alerts: the discounts window, and the proposition window's own.
    static QString titreRemises();            // "Gestion des remises"
    static QString titreRemisesProposition(); // "Gestion des Remises"
    static QString titreDelais();             // "Gestion des délais"
    static QString titrePrestations();        // "Prestations"
    static QString messageRemiseExistante();  // "Cette remise existe déjà..."
    static QString messageDelaiExistant();
    static QString messagePrestationExistante();

    // "%" for a rate, "€" for a fixed amount, "" for none.
    static QString unite(int type);
    // "jours" or "mois".
    static QString uniteDelai(int type);
    // "jours" gives 0, "mois" 1, anything else -1.
    static int typeDelai(const QString& unite);
    // "10 %", "200 €", "Aucune remise" for the row without discount.
    static QString libelleRemise(const Remise& remise);
    // "7 jours", "1 mois".
    static QString libelleDelai(const Delai& delai);

    // --- Services -------------------------------------------------------------------------
    // The groups by label, as (id, label).
    Choix groupes();
    // Every service, by group then label; those of one group when groupeId > 0.
    QList<Prestation> prestations(int groupeId = 0);
    std::optional<Prestation> prestation(int id);
    // Choosing a service by its label fills its price, note and per-person flag.
    std::optional<Prestation> prestationParLibelle(const QString& libelle);
    // "" or why the service may not be added: no label, a label already used, a price out of
    // bounds, an unknown group.
    QString refusPrestation(const Prestation& prestation);
    // The key written, or 0 on refusal or failure.
    int ajoutePrestation(const Prestation& prestation);

    // --- Discounts ------------------------------------------------------------------------
    // Every row, "Aucune remise" first, then by type and amount.
    QList<Remise> remises();
    // The pop-up's rows: every row but "Aucune remise", by type.
    QList<Remise> remisesProposees();
    std::optional<Remise> remise(int id);
    // Choosing a discount shows its note.
    QString noteRemise(int id);
    // "" or why the discount may not be added: a type that is neither a rate nor an amount, a
    // rate outside ]0, 100], an amount outside ]0, 100 000 000], or the same amount and type
    // already recorded ("Cette remise existe déjà...").
    QString refusRemise(const Remise& remise);
    // The new row's key, or 0 on refusal or failure.
    int ajouteRemise(const Remise& remise);
    // "" or why the discount may not be deleted: "Aucune remise", or one a proposition uses.
    QString refusSuppressionRemise(int id);
    bool supprimeRemise(int id);

    // --- Delays ---------------------------------------------------------------------------
    // In the pop-up's order: days, then months, each by number.
    QList<Delai> delais();
    std::optional<Delai> delai(int id);
    QString refusDelai(const Delai& delai);
    int ajouteDelai(const Delai& delai);
    QString refusSuppressionDelai(int id);
    bool supprimeDelai(int id);
};

} // namespace corvane
