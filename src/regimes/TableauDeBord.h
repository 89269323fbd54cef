#pragma once

#include "store/Dialogues.h"
#include "store/Intermittent.h"

#include <QDate>
#include <QList>
#include <QString>

namespace corvane {

// The dashboard's figures: this month's and the reference period's activity, the hours
// gauge, the benefit timeline, the reference-period gauge, and the list of the done
// contracts and sickness periods of the period with its totals. Nothing starting after
// tomorrow ever counts.
class TableauDeBord_v4 : public Intermittent
{
public:
    explicit TableauDeBord_v4(const QString& chemin = QString()) : Intermittent(chemin) {}
    explicit TableauDeBord_v4(BaseDeDonnees& connexion) : Intermittent(connexion) {}

    // Stops the "Période" figures and the list at the end of the current period instead of today.
    bool bloquePeriode = false;

    // "Libellé", "Jours", "Heures", "Bruts", "Net imposable", "Net", "Pôle Emploi", "Jours SS",
    // "Jours suspendus".
    static const QStringList& clesStatistiques();
    // "Date Debut", "Date Fin", "Type", "Note", "Paye", "Nombre Jours", "Nombre Heures", "Bruts",
    // "Net imposable", "Net", "Raison Sociale", "GUSO".
    static const QStringList& clesContrats();

    // The two rows, "Ce mois-ci" and "Période"; fills the gauges below.
    Table statistiques();

    // The hours gauge (drawn dark blue). The status is shown in the negative-amount colour
    // while hours are missing, in blue once they are reached.
    int heuresBarre = 0;
    int heuresRequises = 0;
    QString heuresBarreLbl;
    QString dossierValidable;
    bool heuresManquantes = false;
    QString jaugeHeures() const; // "%u heures\nsur %u"

    // The benefit timeline, filled by droits().
    QDate ouvertureDesDroits;
    QDate finDesDroits;
    int joursDepuisLOuverture = 0; // A, the opening day included
    int joursIndemnises = 0;       // U
    QString joursRestants;          // "%u jours d'ARE restants", empty once the rights have ended
    QString joursAllocations;       // "%u jours d'ARE (%u allocations)", or "Période indemnisée"
    bool periodeIndemniseeTerminee = false;
    void droits();
    QString libelleOuverture() const; // "Ouverture des droits au …"
    QString libelleFinDeDroits() const; // "Fin de droits au …"

    // The reference-period gauge, filled by periodeDeReference().
    int joursEcoules = 0;
    int joursDeLaPeriode = 0;
    bool periodeTerminee = false;  // shown in the negative-amount colour, the gauge full
    QString periodeReferenceLbl;   // "Terminée !" or "%u jours restants\ndans la PRA"
    QString allongementLbl;        // "Allongement possible jusqu'au …", or empty
    void periodeDeReference();

    // The done contracts and sickness periods of the period, by start ("ASC" or "DESC"), then
    // the "Totaux" row (its "Date Debut"). `arrets` says which rows are sickness periods.
    Table listeContrats(const QString& sens, QList<bool>* arrets = nullptr);

    // The "année blanche": offered when the current period ends between 2020-03-01 and
    // 2021-08-31 and the measure is not active yet.
    bool anneeBlancheProposee();
    // Takes it: the measure marked active, the period extended to 2021-08-31 with its label
    // saying so, in one transaction.
    bool accepteAnneeBlanche();
    static QString questionAnneeBlanche();
    static QString detailAnneeBlanche();
    enum class AnneeBlanche
    {
        NonProposee,
        Proposee, // asked, neither "Oui" nor "Non" answered: nothing written
        Acceptee,
        Refusee,  // asked again at the next opening
    };
    // At a document's opening: asks when it is offered, and takes it on "Oui".
    AnneeBlanche proposeAnneeBlanche(Dialogues& dialogues);

private:
    QDate finDesStatistiques();
};

} // namespace corvane
