#include "cli/Commandes.h"

namespace corvane::cli {

Commandes toutesLesCommandes()
{
    Commandes liste;
    liste.push_back(commandeNouveau());
    liste.push_back(commandeInfo());
    liste.push_back(commandeOuvrir());
    return liste;
}

} // namespace corvane::cli
