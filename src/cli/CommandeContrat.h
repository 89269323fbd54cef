#pragma once

#include "cli/Commande.h"

namespace corvane::cli {

// The actions of `contrat`, one class each.
std::unique_ptr<Commande> commandeContratAjouter();
std::unique_ptr<Commande> commandeContratLister();
std::unique_ptr<Commande> commandeContratSupprimer();

} // namespace corvane::cli
