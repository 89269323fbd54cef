#pragma once

#include "manager/TarifsPropositions.h"
#include "store/Intermittent.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTime>
#include <optional>

namespace corvane {

// A proposition's heading (table `propositionslibelles`).
struct EnteteProposition
{
    int id = 0;
    QString libelle;
    int employeurId = 0; // the organiser, an employer
    QDate date;          // the day of the event
    int statut = 0;
    QString commune; // where it takes place
    QTime heure;
    bool heureDonnee = false;
    QTime duree; // hours and minutes
    bool dureeDonnee = false;
    double charges = 0.0;
    bool chargesNonAjoutees = false; // pl_charges_flag = 1: the organiser pays them apart
    int qualiteId = 0;               // the organiser's legal form when the proposition was made
};

// One line of a proposition (table `propositions`): one service.
struct LigneProposition
{
    int id = 0;
    int propositionId = 0;
    int employeurId = 0;
    int remiseId = TarifsPropositions::kAucuneRemise;
    int prestationId = 0; // a key of `prestationstypes`
    int delaiId = 0;
    QDate date;
    int personnes = 0;
};

// How a proposition's total is made up. The discount is the one of the last line read.
struct DecompteProposition
{
    double lignes = 0.0;  // the services, per-person ones times the number of people
    double charges = 0.0; // the charges when they are added, else 0
    double remise = 0.0;  // the discount taken off, in euros
    double total = 0.0;   // lignes + charges - remise, not rounded
    int nombreDeLignes = 0;
    Remise remiseAppliquee; // id 0 when there is no line
    Delai delai;            // the last line's delay, id 0 when there is no line
};

// The business manager's propositions (quotes): headings and lines, their statuses, their total,
// and their deletion while no event uses them.
class Propositions : public Intermittent
{
public:
    explicit Propositions(const QString& chemin = QString()) : Intermittent(chemin) {}
    explicit Propositions(BaseDeDonnees& connexion) : Intermittent(connexion) {}

    // Status codes.
    static constexpr int kPreparation = 0;
    static constexpr int kEnvoyee = 2;
    static constexpr int kAcceptee = 1;
    static constexpr int kRefusee = -1;
    static constexpr int kFacturee = 3;
    // The codes in the order of the status pop-up: 0, 2, 1, -1, 3.
    static const QList<int>& statutsDuMenu();
    static int statutDeLIndex(int index); // -1 … 3, or kPreparation out of range
    static int indexDuStatut(int statut); // 0 … 4, 0 for an unknown code
    // The label of the pop-up: "En préparation", "Envoyée", "Acceptée", "Refusée", "Facturée".
    static QString libelleStatut(int statut);
    // The list's image name: "" for a proposition in preparation, "ENVOYEE", "ACCEPTEE", …
    static QString imageStatut(int statut);
    // The command line's words: "preparation", "envoyee", "acceptee", "refusee", "facturee".
    static const QStringList& motsStatuts();

    // A service for several people: "%@ (%@ personnes)".
    static QString libelleParPersonne(const QString& prestation, int personnes);
    static constexpr int kPersonnesMaximum = 1000;

    // Titles and messages.
    static QString titreAlertes();            // "Propositions"
    static QString titreGestion();            // "Gestion des Propositions"
    static QString titreEmployeurs();         // "Gestion des employeurs"
    static QString messageFacturee();         // the law forbids changing an invoiced proposition
    static QString messageLieeAUnEvenement(); // deletion refused
    static QString messageAucuneSelection();  // "Aucune proposition n'est sélectionnée..."
    static QString messageLigneSansSelection();
    static QString messageOrganisateurIncomplet(); // "Veuillez renseigner le nom et la commune."
    static QString messageOrganisateurExistant();  // "Cet établissement existe déjà..."

    // --- Headings ---------------------------------------------------------------------------
    bool propositionExiste(int id);
    std::optional<EnteteProposition> entete(int id);
    // "" or why the heading may not be saved: no title, an unknown organiser, a date, an amount
    // of charges out of bounds.
    QString refusEntete(const EnteteProposition& entete);
    // The key written, or 0 on refusal or failure. The status is left to changeStatut.
    int enregistreProposition(const EnteteProposition& entete);
    bool modifieProposition(const EnteteProposition& entete);

    // Writes the status. A proposition already invoiced is changed all the same, deliberately;
    // the notice the user must be shown first is returned (else ""). False in *ecrit when the
    // status could not be written (unknown proposition or code).
    QString changeStatut(int id, int statut, bool* ecrit = nullptr);

    // "" when the proposition may be deleted, else the refusal: an event names it (the test is a
    // text match on the events' proposition, kept as it is: an event of proposition 12 keeps
    // proposition 1).
    QString refusSuppression(int id);
    // Its lines, then its heading; false on refusal or failure.
    bool supprimeProposition(int id);

    // "Id", "Libellé", "Organisateur", "Date", "Date SQLite", "Commune", "Statut", "Montant",
    // newest first.
    static const QStringList& clesListe();
    Table listeDesPropositions();

    // --- Lines ------------------------------------------------------------------------------
    QString refusLigne(const LigneProposition& ligne);
    // The line's key, or 0; its organiser is the proposition's.
    int ajouteLigne(const LigneProposition& ligne);
    bool supprimeLigne(int id);
    // Every line, the discount and delay of each, as the total reads them: "Id", "Date",
    // "Date SQLite", "Groupe", "Prestation" (with its people), "Prix", "Par personne",
    // "Personnes", "Montant", "Id Remise", "Remise", "Id Délai", "Délai", "Note".
    static const QStringList& clesLignes();
    Table lignesDeLaProposition(int id);
    QList<LigneProposition> lignes(int id);
    // Replaces the lines of the proposition (the proposition window saves them whole).
    bool remplaceLignes(int id, const QList<LigneProposition>& lignes);
    // The heading (new when its id is 0) and its lines, all or nothing; the key, or 0 with the
    // refusal in *refus.
    int enregistreAvecLignes(const EnteteProposition& entete, const QList<LigneProposition>& lignes,
                             QString* refus = nullptr);

    // --- Total ------------------------------------------------------------------------------
    DecompteProposition decompte(int id);
    // The discount taken off `lignes` (the services' sum): none for "Aucune remise", the amount
    // of a fixed discount, the rate of a percentage applied to the services only.
    static double montantRemise(double lignes, const Remise& remise);
    double calculatesTotalAmount(int id) { return decompte(id).total; }

    // --- Organisers -------------------------------------------------------------------------
    // Choosing an organiser fills its town and legal form ("" and 0 when there is none).
    QPair<QString, int> communeEtQualiteOrganisateur(const QString& raisonSociale);
    QString refusOrganisateur(const QString& nom, const QString& commune);
    // A new organiser, recorded as a prospect; its key or 0.
    int ajouteOrganisateur(const QString& nom, const QString& commune);

    // --- Events -----------------------------------------------------------------------------
    // The event's organiser and proposition, read from the event itself (0 when none).
    int employeurDeLEvenement(int evenementId);
    int propositionDeLEvenement(int evenementId);
    bool evenementExiste(int evenementId);
};

} // namespace corvane
