#include "regimes/CalculateurAutoEntrepreneur.h"

#include <array>

namespace corvane {

namespace {

struct TauxDeLAnnee
{
    int depuis; // first year of the row
    TauxDeCharges taux;
};

// Latest first: the first row whose year is reached applies; the last row takes every earlier year.
constexpr std::array<TauxDeLAnnee, 5> tauxParAnnee{{
    {2016, {13.4, 23.1, 23.1}},
    {2015, {13.3, 22.9, 22.9}},
    {2014, {14.1, 24.6, 24.6}},
    {2013, {14.0, 24.6, 24.6}},
    {0, {12.0, 21.3, 21.3}},
}};

constexpr TauxDeCharges supplementLiberatoire{1.0, 1.7, 2.2};

struct TauxRegional
{
    double general;
    double alsace;
    double moselle;
};

// Indexed by activity 1 to 5. Where a department has no rate of its own, the general one applies.
constexpr std::array<TauxRegional, 5> fraisDeChambreParActivite{{
    {0.044, 0.044, 0.044}, // services
    {0.48, 0.65, 0.83},    // craft services
    {0.015, 0.015, 0.015}, // sales, catering, lodging
    {0.22, 0.29, 0.37},    // purchase for resale by a craftsman
    {0.007, 0.007, 0.007}, // craftsman registered with both chambers
}};

} // namespace

TauxDeCharges CalculateurAutoEntrepreneur::tauxDeCharges(int annee, bool isPrelevementLiberatoire)
{
    TauxDeCharges taux = tauxParAnnee.back().taux;
    for (const TauxDeLAnnee& ligne : tauxParAnnee) {
        if (annee >= ligne.depuis) {
            taux = ligne.taux;
            break;
        }
    }
    if (isPrelevementLiberatoire) {
        taux.ventes += supplementLiberatoire.ventes;
        taux.servicesBIC += supplementLiberatoire.servicesBIC;
        taux.servicesBNC += supplementLiberatoire.servicesBNC;
    }
    return taux;
}

double CalculateurAutoEntrepreneur::tauxCFE(int idCategoriePro, bool isAlsace)
{
    switch (idCategoriePro) {
    case 1:
        return 0.1;
    case 2:
        return isAlsace ? 0.17 : 0.3;
    case 3:
        return 0.2;
    default:
        return 0.0;
    }
}

double CalculateurAutoEntrepreneur::taxePourFraisDeChambre(int idActivite, bool isAlsace, bool isMoselle)
{
    if (idActivite < 1 || idActivite > int(fraisDeChambreParActivite.size()))
        return 0.0;
    const TauxRegional& taux = fraisDeChambreParActivite[std::size_t(idActivite - 1)];
    if (isMoselle)
        return taux.moselle;
    if (isAlsace)
        return taux.alsace;
    return taux.general;
}

double CalculateurAutoEntrepreneur::calculeLesCharges() const
{
    const double ventes = m_caVentesDeMarchandisesBIC;
    const double servicesBIC = m_caPrestationsDeServicesBIC;
    const double servicesBNC = m_caPrestationsDeServicesBNC;
    const double total = ventes + servicesBIC + servicesBNC;
    return ventes * tauxChargesVentes() / 100 + servicesBIC * tauxChargesServicesBIC() / 100 +
           servicesBNC * tauxChargesServicesBNC() / 100 + total * tauxCFE() / 100 + total * tauxFraisDeChambre() / 100;
}

} // namespace corvane
