#pragma once

#include "cli/Commande.h"

namespace corvane::cli {

// One factory per command; each lives in the command's own file.
std::unique_ptr<Commande> commandeNouveau();
std::unique_ptr<Commande> commandeInfo();
std::unique_ptr<Commande> commandeOuvrir();
std::unique_ptr<Commande> commandeSauvegarder();
std::unique_ptr<Commande> commandeParametres();
std::unique_ptr<Commande> commandeBaremeKm();
std::unique_ptr<Commande> commandeChargesAe();
std::unique_ptr<Commande> commandeProfil();
std::unique_ptr<Commande> commandeEmployeur();
std::unique_ptr<Commande> commandeModele();
std::unique_ptr<Commande> commandePeriode();
std::unique_ptr<Commande> commandeContrat();
std::unique_ptr<Commande> commandePdf();
std::unique_ptr<Commande> commandeCsv();
std::unique_ptr<Commande> commandePeriodeReference();
std::unique_ptr<Commande> commandeHeures();
std::unique_ptr<Commande> commandeSimulation();
std::unique_ptr<Commande> commandeTableauDeBord();
std::unique_ptr<Commande> commandeConges();
std::unique_ptr<Commande> commandeVersementConges();
std::unique_ptr<Commande> commandeFiscalite();
std::unique_ptr<Commande> commandeVersementImpots();
std::unique_ptr<Commande> commandeJoursIndemnises();
std::unique_ptr<Commande> commandeVersementAre();
std::unique_ptr<Commande> commandeMaladie();
std::unique_ptr<Commande> commandeFrais();
std::unique_ptr<Commande> commandeCategorieFrais();
std::unique_ptr<Commande> commandeDroitsVoisins();
std::unique_ptr<Commande> commandeCategorieDv();
std::unique_ptr<Commande> commandePrestation();
std::unique_ptr<Commande> commandeRemise();
std::unique_ptr<Commande> commandeDelai();
std::unique_ptr<Commande> commandeProposition();
std::unique_ptr<Commande> commandeStructure();
std::unique_ptr<Commande> commandeEmploye();
std::unique_ptr<Commande> commandeEvenement();

// Every command, in the order the help lists them.
Commandes toutesLesCommandes();

} // namespace corvane::cli
