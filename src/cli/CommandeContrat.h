#pragma once

#include "cli/Commande.h"

namespace corvane {
class Contrats;
struct FiltreContrats;
} // namespace corvane

namespace corvane::cli {

// The actions of `contrat`, one class each.
std::unique_ptr<Commande> commandeContratAjouter();
std::unique_ptr<Commande> commandeContratLister();
std::unique_ptr<Commande> commandeContratSupprimer();

// The filter options of `contrat lister`, which `pdf --rapport contrats` takes too.
const QList<OptionAttendue>& optionsFiltreContrats();
QString usageFiltreContrats();
// A refused filter: the exit code (MauvaisUsage or ErreurUtilisateur) and the message.
struct ErreurFiltre
{
    int code = Succes;
    QString message;
};
// The checks that need no document.
ErreurFiltre verifierFiltreContrats(Arguments& arguments);
// The filter, once the document is known (types and employers are looked up in it).
ErreurFiltre lireFiltreContrats(Arguments& arguments, Contrats& contrats, FiltreContrats& filtre);

} // namespace corvane::cli
