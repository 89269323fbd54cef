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
    return liste;
}

} // namespace corvane::cli
