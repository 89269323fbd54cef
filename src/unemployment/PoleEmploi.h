#pragma once

#include "unemployment/ComptageHeures.h"

#include <QDate>
#include <QList>
#include <QString>

namespace corvane {

// One line of a rights report, as the screen styles it: bold black (white in dark mode)
// unless coloured.
struct LigneCompteRendu
{
    enum Couleur
    {
        Normale,
        Rouge,
        Verte,
    };
    QString texte; // ends with its own line break when it has one
    Couleur couleur = Normale;
    bool gras = true;
};
using CompteRendu = QList<LigneCompteRendu>;

// The report as plain text, lines as they follow each other.
QString texteDuCompteRendu(const CompteRendu& compteRendu);

struct LigneAllocation
{
    QString libelle;
    double montant;
};

// The unemployment-rights object: from the hours and pay of a reference period, the daily
// allowance under the rule set in force (the 2016 computation; the earlier rule sets'
// allowance is not computed), its deductions, the paid-leave franchise and deferment, and
// the report shown to the user with its allocation table.
class PoleEmploi : public ComptageHeures
{
public:
    explicit PoleEmploi(const QString& chemin = QString());
    explicit PoleEmploi(BaseDeDonnees& connexion);

    // Rounded to the cent, halves away from zero.
    static double arrondi(double montant);

    // Inputs of the computation (dernierJourDernierContrat and annexe are the base's).
    double salaires_2016 = 0.0;    // gross pay of the reference period
    int nbreHeures = 0;            // hours counted
    int nbreJours = 0;             // days worked
    int nbreMaterPaterALD = 0;     // days of maternity, paternity or long illness in the period
    int joursPeriodeDeReference = 0; // days of the period, first and last included
    QDate PRA_Debut;
    QDate PRA_Fin;
    QString codePostal;

    // Results of the 2016 computation.
    double SMIC_Horaire = 0.0;
    double CGS_CRDS_Plafond = 0.0;
    double salairesRetenus = 0.0; // the pay after the scaling over leave days
    double salairesAuDessus = 0.0;
    double heuresAuDessus = 0.0;
    double A_2016 = 0.0;
    double B_2016 = 0.0;
    double C_2016 = 0.0;
    double AJ_2016 = 0.0;
    int joursSJR = 0;
    double SJR_2016 = 0.0;
    double retRetraiteComp_08_2016 = 0.0;
    float csg_2016 = 0.0f;
    float crds_2016 = 0.0f;
    double retCsgRds_2016 = 0.0;
    double supAlsaceMoselle_08_2016 = 0.0;
    double AJ_2016_Net = 0.0;
    int franchiseCongesPayes = 0;
    int franchiseCongesPayesParMois = 0;
    double differeIndemnisation = 0.0;

    CompteRendu compteRendu;
    QList<LigneAllocation> tableauAllocations;

    // The 2016 allowance, its deductions, the franchise and the deferment, from the inputs.
    void calculs_2016();

    // The reports. `palier` is the step of the step table the period falls in, from 1 for the
    // base period; below 1 no step applies. `heuresRequises` are the hours to reach.
    void protocole_2016_simulation_OK(int palier);
    void protocole_2016_simulation_HS(int palier, int heuresRequises);
    void protocole_2016_analyses_OK(int palier);
    void protocole_2016_analyses_HS(int palier, int heuresRequises);
    // The earlier rule set: what is known, and that its allowance is not computed.
    void protocole_2007(const QString& mode, int palier, int heuresRequises, double salairesBruts);

    // The months over the ceiling of worked hours, for workers and technicians, and only up to
    // 18 February 2009 (today's date): silent on any later day.
    QString verifiePlafondHeuresMensuel(const QDate& debut, const QDate& fin, const QString& mode);

protected:
    void ajoute(const QString& texte, LigneCompteRendu::Couleur couleur = LigneCompteRendu::Normale,
                bool gras = true);
    void ajouteAuDelaDuDernierPalier();
    void ajouteEnTeteDePeriode();
    void ajouteSuiteOuverture_2016();
    void remplitTableauAllocations_2016();
};

} // namespace corvane
