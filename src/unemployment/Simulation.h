#pragma once

#include "unemployment/PoleEmploi.h"

#include <QDate>
#include <QList>
#include <QString>
#include <array>

namespace corvane {

struct LignePeriode
{
    QString libelle;
    QString valeur;
};

// The rights simulation of the unemployment screen: the contracts of a range, the rule set
// their last day chooses, the hours required by the range's length, the hours counted by job
// and kind, the totals of the carried-out contracts, then the computation and the report.
// The analysis is the same computation over the current reference period, on carried-out
// contracts only.
class Simulation : public PoleEmploi
{
public:
    Simulation(const QString& chemin, const QDate& debut, const QDate& fin);
    Simulation(BaseDeDonnees& connexion, const QDate& debut, const QDate& fin);

    enum class Mode
    {
        Simulation,
        Analyse,
    };

    // The range searched.
    QDate dateDebut;
    QDate dateFin;
    // The SQL condition on the contracts' done flag (one of ComptageHeures::conditionsDesContrats).
    QString triDesContrats;
    // Days by which sickness-type leave stretched the range; taken off its length when the
    // hours required are chosen.
    int joursAllongementPRA = 0;
    // Adds the sickness daily allowances of the range to the pay.
    bool ajouteIndemnitesJournalieres = false;

    // The reference period and steps of the annex under the rule set.
    quint32 periodeDeReference = 0;
    std::array<quint32, 4> paliers{};
    TableauPaliers tableauPaliers{};
    int PRA_Palier = 507; // hours required
    int numeroPalier = 1; // 1 for the base period, 2 to 5 for the steps, 0 beyond the last

    QDate dateFinDeDossier;
    int nbrePeriodesGroupees = 0;
    TableauHeures tableauHeures{};
    int nbreHeuresArtiste = 0;
    int nbreHeuresOuvrier = 0;
    int nbreHeuresTechnicien = 0;
    int nbreHeuresEnseignements = 0;
    int nbreHeuresEnseignementsRejetees = 0;
    int nbreHeuresFormations = 0;
    int nbreHeuresFormationsRejetees = 0;
    int nbreHeuresSecuriteSociale = 0;
    int nombreCachetsDuDossier = 0;
    int nombreHeuresDuDossier = 0;
    double salaireBrutDossierTotal = 0.0;
    double salaireBrutAbattuDossierTotal = 0.0;
    double totalIJ = 0.0;

    void setTriDesContrats(const QString& condition) { triDesContrats = condition; }
    void setSecuriteSociale(bool ajoute) { ajouteIndemnitesJournalieres = ajoute; }

    // The end of the latest-starting contract of the range that counts: performances,
    // training, and teaching at an approved employer. Invalid when there is none.
    QDate dernierJourDernierContratCompte();
    // The reference-period length and the steps of the user's annex under the rule set;
    // an unknown profession leaves them as they are.
    void determineDureePeriodeDeReference(const QString& protocole);
    // The hours required for the range's length (and its step), by rule set.
    void determineLePalier();
    // The hours of the range by job and kind, the capped teaching and training, and the
    // hours credited for sickness, maternity and paternity leave; their sum is nbreHeures.
    void dispatcheLesHeures();
    // Days, gross and abated gross pay of the carried-out contracts that count; the pay retained.
    void totaux();

    // Runs the whole computation and writes the report. False, with nothing changed, when no
    // rule set applies: no counted contract in the range, or the last one ended before
    // 1 April 2007.
    bool lance(Mode mode = Mode::Simulation);
    // The current reference period (its end stretched by sickness-type leave), carried-out
    // contracts only.
    bool analyse();

    bool simulee = false;
    bool rechercheAuDelaDesPaliers() const { return numeroPalier < 1; }
    bool droitsOuverts() const { return numeroPalier >= 1 && nbreHeures >= PRA_Palier; }

    // "Depuis le", "Jusqu'au", "Journées analysées", "Journées retenues", "Périodes groupées".
    QList<LignePeriode> affichePeriode() const;
};

} // namespace corvane
