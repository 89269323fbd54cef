#include "cli/Commandes.h"

namespace corvane::cli {

Commandes toutesLesCommandes()
{
    Commandes liste;
    liste.push_back(commandeNouveau());
    liste.push_back(commandeInfo());
    liste.push_back(commandeOuvrir());
    liste.push_back(commandeSauvegarder());
    liste.push_back(commandeParametres());
    liste.push_back(commandeBaremeKm());
    liste.push_back(commandeChargesAe());
    liste.push_back(commandeProfil());
    liste.push_back(commandeEmployeur());
    liste.push_back(commandeModele());
    liste.push_back(commandePeriode());
    liste.push_back(commandeContrat());
    liste.push_back(commandePdf());
    liste.push_back(commandeCsv());
    liste.push_back(commandePeriodeReference());
    liste.push_back(commandeHeures());
    liste.push_back(commandeSimulation());
    liste.push_back(commandeTableauDeBord());
    liste.push_back(commandeJoursIndemnises());
    liste.push_back(commandeVersementAre());
    liste.push_back(commandeMaladie());
    liste.push_back(commandeFrais());
    liste.push_back(commandeCategorieFrais());
    liste.push_back(commandeConges());
    liste.push_back(commandeVersementConges());
    liste.push_back(commandeFiscalite());
    liste.push_back(commandeVersementImpots());
    liste.push_back(commandeDroitsVoisins());
    liste.push_back(commandeCategorieDv());
    liste.push_back(commandePrestation());
    liste.push_back(commandeRemise());
    liste.push_back(commandeDelai());
    liste.push_back(commandeProposition());
    liste.push_back(commandeStructure());
    liste.push_back(commandeEmploye());
    liste.push_back(commandeEvenement());
    return liste;
}

} // namespace corvane::cli
