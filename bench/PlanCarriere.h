#pragma once

#include "CatalogueCarriere.h"

#include <QDate>
#include <QList>
#include <QMap>
#include <QString>

namespace corvane::bench {

// A whole career, drawn in memory before a single row is written.

struct EmployeurPlan
{
    Genre genre;
    Ville ville;
    QString raisonSociale, adresse, email, interlocuteur, telephone, siret, licence, noGuso, codeApe, couleur;
    int conventionne = 1;
    int guso = 0;
    QString qualite;    // label in `qualites`
    double cachet = 0;  // usual gross of a one-day engagement (hourly for schools)
    double tauxNet = 0; // net over gross
    double poids = 1;   // how often the user works there
    int modele = -1;    // index of its template, -1 when none
};

struct ModelePlan
{
    QString libelle;
    int employeur = -1; // -1: the catch-all employer
    int type = 1;
    int jours = 1, heures = 12;
    double brut = 0, net = 0, netAPayer = 0;
    bool associerFrais = false;
    double fraisMontant = 0;
    QString fraisDetails;
};

enum class Sorte
{
    Cachet,
    Court,
    Groupe,
    Enseignement,
    Formation,
    RegimeGeneral
};

struct ContratPlan
{
    int employeur = 0; // index in the plan's employers
    int emploi = 1, type = 1, abattement = 1;
    QList<QDate> dates; // worked days, in order
    int heures = 0;
    double brut = 0, net = 0, netAPayer = 0, pas = 0;
    int effectue = 1, paye = 1, conges = 1, aemFp = 1, anneeEncaissement = 0;
    QString fonction, lieu, note;
    double distance = 0; // km from home (Paris)
    QDate debut() const { return dates.first(); }
    QDate fin() const { return dates.last(); }
};

struct FraisPlan
{
    QString categorie; // label in `fraistypes`
    QString details;
    double montant = 0;
    QDate date;
    int contrat = -1; // index of the linked contract
    int rembourse = 0;
};

struct ArretPlan
{
    QDate debut, fin;
    int type = 2;
    QString note;
    int rembourse = 1, nbreJours = 1, joursSuspendus = 0, incidenceHeures = 0, incidencePeriode = 0;
    double totalIj = 0;
    int ald = 0, rembourseMutuelle = 0;
};

struct PeriodePlan
{
    QDate debut, fin;
    QString notes;
    int conges = 0, franchise = 0, attente = 7;
    double srj = 0, taux = 0;
};

struct VersementPlan
{
    QDate date;
    double montant = 0;
    int drapeau = 0; // cashed, or a refund for taxes
};

struct DroitVoisinPlan
{
    QString categorie, organisme, details;
    double montant = 0;
    QDate date;
};

struct PlanCarriere
{
    QDate debut, fin;
    QList<EmployeurPlan> employeurs;
    QList<ModelePlan> modeles;
    QList<ContratPlan> contrats; // by start date
    QList<FraisPlan> frais;      // by date
    QList<ArretPlan> arrets;
    QList<PeriodePlan> periodes;
    QList<VersementPlan> allocations, conges, impots;
    QList<DroitVoisinPlan> droitsVoisins;
    QMap<int, double> tauxPas; // withholding rate per year, percent (none before 2019)
    int enfants = 0;
};

struct ParametresCarriere;

PlanCarriere planifierCarriere(const ParametresCarriere& parametres);

// Employers, their templates and the rights periods.
QList<EmployeurPlan> creerEmployeurs(int nombre, const QDate& fin, Hasard& hasard);
QList<PeriodePlan> creerPeriodes(const QDate& debut, const QDate& fin, Hasard& hasard);
void creerModeles(PlanCarriere& plan, Hasard& hasard);
// Pay follows the years a little.
double facteurAnnee(int annee);

// Parts of the plan drawn once the contracts are in place.
void planifierFrais(PlanCarriere& plan, Hasard& hasard);
void planifierVersements(PlanCarriere& plan, Hasard& hasard);
void planifierDroitsVoisins(PlanCarriere& plan, Hasard& hasard);
// Sickness leaves and medical expenses; their days are kept free of contracts.
void planifierArrets(PlanCarriere& plan, Hasard& hasard);

// To the cent, halves away from zero.
double arrondi(double montant);

} // namespace corvane::bench
