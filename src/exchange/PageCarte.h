#pragma once

#include <QString>

namespace corvane {

class Reglages;

// The maps service the pages ask: a script that geocodes and finds driving routes (its
// `CorvaneService` object), the map tiles, an optional traffic layer and the data's credit.
// The pages load "leaflet.js", "leaflet.css" and the built-in script "osm.js" beside them
// (qrc:/carte/ in the program).
struct FournisseurCarte
{
    QString script;     // "" for the built-in script, which asks the two addresses below
    QString tuiles;     // "https://…/{z}/{x}/{y}.png"
    QString trafic;     // tiles drawn over the map when the traffic switch is on; "" for none
    QString geocodeur;  // "…{adresse}…"
    QString itineraire; // "…{depart};{arrivee}…", each "longitude,latitude"
    QString mention;

    static FournisseurCarte depuis(const Reglages& reglages);
    // The script the pages load: the setting, or the built-in one.
    QString adresseScript() const;
    bool aUnTrafic() const { return !trafic.trimmed().isEmpty(); }
};

// The destination and the switches of the route page.
struct Trajet
{
    QString domicile;                                             // the user's address, from the profile
    double latitude = 0.0, longitude = 0.0;                       // the user's position kept with the profile (0: none)
    QString destination;                                          // the employer's address
    double latitudeDestination = 0.0, longitudeDestination = 0.0; // the employer's (0: none)
    bool trafic = false;
    bool meteo = false;
};

// "12 rue des Lilas, 69001 Lyon": the lines of the street address joined, then the postal code and
// the town, then the country; empty parts left out.
QString adressePostale(const QString& adresse, const QString& codePostal, const QString& commune,
                       const QString& pays = QString());

// `texte` as a JavaScript string literal in double quotes, safe inside a <script> element.
QString texteJavaScript(const QString& texte);

// The page of one address: a map filling the page, centred on the address's first geocoding
// result with a marker there. Where the address cannot be found, the known position (not 0, 0) is
// shown instead, else the page says so.
QString pageAdresse(const FournisseurCarte& fournisseur, const QString& adresse, double latitude = 0.0,
                    double longitude = 0.0);

// The page of the driving route from home to the destination: the map at zoom 7 on the home
// position, home and destination geocoded, the route drawn, and its length and duration written
// as the attributes "distance" and "temps" of the body ("etat" becomes "termine", or "erreur" when
// no route could be found, and the page says why).
QString pageItineraire(const FournisseurCarte& fournisseur, const Trajet& trajet);

} // namespace corvane
