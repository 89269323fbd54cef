// A maps service for the tests, without network: every address is found at a fixed point, except
// one containing "Introuvable"; every route is 465.3 km long and takes 4 h 31 min. The addresses
// asked are kept in the body's attribute "geocodees", as a JSON list.
var CorvaneService = {
    demandees: [],
    geocoder: function (fournisseur, adresse) {
        this.demandees.push(adresse);
        document.getElementById('body').setAttribute('geocodees', JSON.stringify(this.demandees));
        if (adresse.indexOf('Introuvable') >= 0)
            return Promise.resolve(null);
        var point = this.demandees.length === 1 ? L.latLng(48.8566, 2.3522) : L.latLng(45.764, 4.8357);
        return Promise.resolve(point);
    },
    itineraire: function (fournisseur, depart, arrivee) {
        return Promise.resolve({distance: 465300, duree: 16260, trace: [[depart.lat, depart.lng], [arrivee.lat, arrivee.lng]]});
    }
};
