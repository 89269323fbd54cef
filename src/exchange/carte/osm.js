// The maps service of Corvane's map pages: geocoding with Nominatim and driving routes with OSRM,
// at the addresses the page declares in `fournisseur` (the preferences' "Cartes" pane).
// A service is a `CorvaneService` object with these two functions, each giving a promise.
var CorvaneService = {
    // The first result for the address, as a Leaflet position; null when nothing is found.
    geocoder: function (fournisseur, adresse) {
        var modele = fournisseur.geocodeur;
        var url = modele.indexOf('{adresse}') >= 0 ? modele.replace('{adresse}', encodeURIComponent(adresse))
                                                   : modele + encodeURIComponent(adresse);
        return fetch(url, {headers: {'Accept-Language': 'fr'}}).then(function (reponse) {
            if (!reponse.ok)
                throw new Error(reponse.status);
            return reponse.json();
        }).then(function (resultats) {
            if (!Array.isArray(resultats) || resultats.length === 0)
                return null;
            var lat = parseFloat(resultats[0].lat), lon = parseFloat(resultats[0].lon);
            return isFinite(lat) && isFinite(lon) ? L.latLng(lat, lon) : null;
        });
    },

    // The driving route between two positions: {distance: metres, duree: seconds, trace: [[lat, lon], …]};
    // null when the service finds none.
    itineraire: function (fournisseur, depart, arrivee) {
        var url = fournisseur.itineraire.replace('{depart}', depart.lng + ',' + depart.lat)
                                        .replace('{arrivee}', arrivee.lng + ',' + arrivee.lat);
        return fetch(url).then(function (reponse) {
            return reponse.json();
        }).then(function (resultat) {
            if (!resultat || resultat.code !== 'Ok' || !resultat.routes || resultat.routes.length === 0)
                return null;
            var route = resultat.routes[0];
            var trace = route.geometry && route.geometry.coordinates ? route.geometry.coordinates : [];
            return {
                distance: route.distance,
                duree: route.duration,
                trace: trace.map(function (point) { return [point[1], point[0]]; })
            };
        });
    }
};
