#pragma once

#include <QString>

namespace corvane {

// The tax administration's kilometric scale, for the years 2012 to 2015: the deductible
// amount in euros of a year's distance, by vehicle type (1 car, 2 motorcycle, 3 moped)
// and power index (0 to 7). An unknown type or power index, or a year without a scale,
// gives 0. The amount is not rounded.
namespace BaremeKilometrique {

enum TypeVehicule
{
    Voiture = 1,
    Moto = 2,
    Cyclomoteur = 3,
};

// 2012, 2013 and 2014 each have their own scale; 2015 uses the 2014 one.
double calculeFraisKmReelsAnnee(int annee, double km, int typeVehicule, int puissance);
// The same with the vehicle read from the document's profile (u_vehicule_type, u_vehicule_puissance).
double calculeFraisKmReelsAnnee(int annee, double km, const QString& chemin);

double calculeFraisKmReels2012(double km, const QString& chemin);
double calculeFraisKmReels2013(double km, const QString& chemin);
double calculeFraisKmReels2014(double km, const QString& chemin);
double calculeFraisKmReels2015(double km, const QString& chemin);

} // namespace BaremeKilometrique
} // namespace corvane
