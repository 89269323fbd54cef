#pragma once

#include <QDate>
#include <QString>

namespace corvane::bench {

// A realistic document: an intermittent performer's whole career over a number of
// years, drawn from a seed, so that the same arguments give the same content.

struct ParametresCarriere
{
    QString chemin;
    int annees = 20;
    int contrats = 5000;
    quint32 graine = 20240615;
    QDate fin; // the career's "today"; invalid: the real today
    // A small business-manager back office too: two structures and their staff, propositions
    // to some of the employers, events. Off by default, so that measured documents keep their content.
    bool manager = false;
};

struct BilanCarriere
{
    QDate debut, fin;
    int employeurs = 0, modeles = 0, contrats = 0, periodes = 0, frais = 0, fraisLies = 0, arrets = 0;
    int allocations = 0, conges = 0, impots = 0, droitsVoisins = 0;
    int structures = 0, employes = 0, propositions = 0, evenements = 0;
    QString erreur;
};

// Creates the document at `parametres.chemin` (refusing an existing path) and fills it
// in one transaction. On failure, `bilan.erreur` says why and no file is left behind.
bool genererCarriere(const ParametresCarriere& parametres, BilanCarriere& bilan);

} // namespace corvane::bench
