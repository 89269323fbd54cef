#pragma once

#include "store/Intermittent.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <optional>

namespace corvane {

// One event as the form holds it: a day, a name, the organiser (an employer), the structure
// that plays, and the proposition it comes from (0 for none).
struct Evenement
{
    QDate date;
    QString nom;
    int propositionId = 0;
    int employeurId = 0;
    int structureId = 0;
};

// The events (table `evenements`) and, for each, who worked and who has been paid
// (`evenementspaiements`: `ep_salaries` and `ep_payes`, two id lists). An event and its
// payment row are written and deleted together.
class Evenements : public Intermittent
{
public:
    explicit Evenements(const QString& chemin = QString()) : Intermittent(chemin) {}
    explicit Evenements(BaseDeDonnees& connexion) : Intermittent(connexion) {}

    // "Id", "date" (dd/MM/yyyy), "nom", "propositionId", "employeurId", "structureId",
    // "dateSQLite" (as stored), "employeur", "structure", "nonPayes" (the staff not paid yet),
    // then "proposition" (its label), "salaries" and "payes" (the stored lists); newest first.
    static const QStringList& clesListe();
    // "id", "prenom", "nom", "paye" ("1" paid, "0" not): one row per employee of the staff.
    static const QStringList& clesPaiements();

    static QString titreAlertes(); // "Gestion des Événements"

    // The propositions an event may come from, as (id, label).
    Choix choixPropositions();

    // Why an event may not be saved ("" when it may).
    QString refusValeurs(const Evenement& evenement);
    bool evenementExiste(int id);
    std::optional<Evenement> evenement(int id);
    // The staff a structure brings to an event: every employee whose list of structures
    // matches the structure's id as text (structure 1 also brings those of structures 10 to
    // 19), by key, joined with ",".
    QString personnelDeLaStructure(int structureId);
    // The event and its staff; the key written, or 0 on refusal or failure.
    int enregistreEvenement(const Evenement& evenement);
    // The event and its staff read again from its structure (who has been paid is kept).
    bool modifieEvenement(int id, const Evenement& evenement);
    bool supprimeEvenement(int id);

    QString salaries(int id);
    QString payes(int id);
    // The "paye" tick of one employee of the staff: paid when it was not, unpaid when it was.
    // The new list of those paid, or nothing when the employee is not on the event's staff.
    std::optional<QString> basculePaye(int evenementId, int employeId);
    // How many of the staff are not paid yet.
    int nonPayes(int id);

    Table listeLesEvenements();
    // The staff of an event in the order of its list; an employee deleted since has empty names.
    Table paiements(int id);
};

} // namespace corvane
