#include "exchange/PageCarte.h"

#include "store/Reglages.h"

#include <QRegularExpression>

#include <cmath>

namespace corvane {

namespace {

QString nombre(double valeur)
{
    // "%f" in the C locale, whatever the user's: 48.856600.
    return QString::asprintf("%f", std::isfinite(valeur) ? valeur : 0.0);
}

QString position(double latitude, double longitude)
{
    return QStringLiteral("[%1, %2]").arg(nombre(latitude), nombre(longitude));
}

// The document around a page's own script: the map fills the whole page, a message box floats over it.
QString page(const FournisseurCarte& fournisseur, const QString& titre, const QString& enTete, const QString& script)
{
    const QString configuration =
        QStringLiteral("var fournisseur = {tuiles: %1, mention: %2, geocodeur: %3, "
                       "itineraire: %4};\n")
            .arg(texteJavaScript(fournisseur.tuiles.trimmed()), texteJavaScript(fournisseur.mention),
                 texteJavaScript(fournisseur.geocodeur.trimmed()), texteJavaScript(fournisseur.itineraire.trimmed()));
    return QStringLiteral("<!DOCTYPE html>\n<html lang=\"fr\">\n<head>\n<meta charset=\"utf-8\">\n<title>") +
           titre.toHtmlEscaped() +
           QStringLiteral("</title>\n"
                          "<link rel=\"stylesheet\" href=\"leaflet.css\">\n"
                          "<style>\n"
                          "html, body, #map-canvas { height: 100%; margin: 0; padding: 0; }\n"
                          "#message { position: absolute; z-index: 1000; top: 12px; left: 50%; "
                          "transform: translateX(-50%); max-width: 80%; background: #ffffff; color: #a40000; "
                          "padding: 8px 14px; border-radius: 6px; font: 14px sans-serif; "
                          "box-shadow: 0 1px 4px rgba(0, 0, 0, 0.3); }\n"
                          "</style>\n"
                          "<script src=\"leaflet.js\"></script>\n"
                          "<script src=\"") +
           fournisseur.adresseScript().toHtmlEscaped() + QStringLiteral("\"></script>\n") + enTete +
           QStringLiteral("</head>\n"
                          "<body id=\"body\">\n"
                          "<div id=\"map-canvas\"></div>\n"
                          "<div id=\"message\" hidden></div>\n"
                          "<script>\n") +
           configuration +
           QStringLiteral(
               R"(var corps = document.getElementById('body');
var enPanne = false;
function message(texte) {
    var cadre = document.getElementById('message');
    cadre.textContent = texte;
    cadre.hidden = false;
}
function echec(texte) {
    message(texte);
    corps.setAttribute('etat', 'erreur');
}
function service() {
    return typeof CorvaneService === 'undefined' ? null : CorvaneService;
}
function introuvable(quoi, adresse) {
    if (!service() || enPanne)
        return 'Le service de cartes ne répond pas : vérifiez la connexion à Internet.';
    if (!adresse)
        return quoi + ' : aucune adresse n\'est renseignée.';
    return 'Adresse introuvable : ' + adresse;
}
// The address's first result; the position known beside it when the address cannot be found.
function localiser(adresse, connu) {
    var repli = (connu[0] !== 0 || connu[1] !== 0) ? L.latLng(connu[0], connu[1]) : null;
    if (!adresse || !service())
        return Promise.resolve(repli);
    return service().geocoder(fournisseur, adresse).then(function (point) {
        return point || repli;
    }, function () {
        enPanne = true;
        return repli;
    });
}
// The tiles with their credit, and the zoom buttons in French; no link that would lead the view away.
function fond(carte) {
    carte.attributionControl.setPrefix(false);
    carte.zoomControl.remove();
    L.control.zoom({zoomInTitle: 'Zoom avant', zoomOutTitle: 'Zoom arrière'}).addTo(carte);
    if (fournisseur.tuiles)
        L.tileLayer(fournisseur.tuiles, {maxZoom: 19, attribution: fournisseur.mention}).addTo(carte);
}
)") + script +
           QStringLiteral("</script>\n</body>\n</html>\n");
}

} // namespace

FournisseurCarte FournisseurCarte::depuis(const Reglages& reglages)
{
    using C = Reglages::Cle;
    return {reglages.texte(C::CartesScript),    reglages.texte(C::CartesTuiles),     reglages.texte(C::CartesTrafic),
            reglages.texte(C::CartesGeocodeur), reglages.texte(C::CartesItineraire), reglages.texte(C::CartesMention)};
}

QString FournisseurCarte::adresseScript() const
{
    return script.trimmed().isEmpty() ? QStringLiteral("osm.js") : script.trimmed();
}

QString adressePostale(const QString& adresse, const QString& codePostal, const QString& commune, const QString& pays)
{
    QStringList parties;
    for (const QString& ligne : adresse.split(QRegularExpression(QStringLiteral("[\r\n]+"))))
        if (!ligne.trimmed().isEmpty())
            parties << ligne.trimmed();
    const QString ville = QStringList{codePostal.trimmed(), commune.trimmed()}.join(u' ').trimmed();
    if (!ville.isEmpty())
        parties << ville;
    if (!pays.trimmed().isEmpty())
        parties << pays.trimmed();
    return parties.join(QStringLiteral(", "));
}

QString texteJavaScript(const QString& texte)
{
    QString litteral = QStringLiteral("\"");
    for (const QChar c : texte) {
        switch (c.unicode()) {
        case '\\':
            litteral += QStringLiteral("\\\\");
            break;
        case '"':
            litteral += QStringLiteral("\\\"");
            break;
        case '\'':
            litteral += QStringLiteral("\\'");
            break;
        case '\n':
            litteral += QStringLiteral("\\n");
            break;
        case '\r':
            litteral += QStringLiteral("\\r");
            break;
        case '\t':
            litteral += QStringLiteral("\\t");
            break;
        // "</script>" or "<!--" would end or change the script element around the text.
        case '<':
            litteral += QStringLiteral("\\u003c");
            break;
        case '>':
            litteral += QStringLiteral("\\u003e");
            break;
        case '&':
            litteral += QStringLiteral("\\u0026");
            break;
        // Line ends for JavaScript, though not for JSON.
        case 0x2028:
            litteral += QStringLiteral("\\u2028");
            break;
        case 0x2029:
            litteral += QStringLiteral("\\u2029");
            break;
        default:
            if (c.unicode() < 0x20)
                litteral += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
            else
                litteral += c;
        }
    }
    return litteral + QLatin1Char('"');
}

QString pageAdresse(const FournisseurCarte& fournisseur, const QString& adresse, double latitude, double longitude)
{
    const QString script = QStringLiteral("var adresse = ") + texteJavaScript(adresse) +
                           QStringLiteral(";\nvar connu = ") + position(latitude, longitude) + QStringLiteral(R"(;
var carte = L.map('map-canvas', {center: [46.6, 2.4], zoom: 5});
fond(carte);
localiser(adresse, connu).then(function (point) {
    if (!point) {
        echec(introuvable('Carte', adresse));
        return;
    }
    carte.setView(point, 15);
    L.marker(point, {title: adresse}).addTo(carte);
    corps.setAttribute('etat', 'termine');
});
)");
    return page(fournisseur, QStringLiteral("Carte"), QString(), script);
}

QString pageItineraire(const FournisseurCarte& fournisseur, const Trajet& trajet)
{
    // The weather layer's library stays out of the page: the switch is kept, it shows nothing.
    const QString enTete = QStringLiteral("<!-- <script src=\"couche-meteo.js\"></script> -->\n");
    QString script =
        QStringLiteral("var depart = L.latLng(%1,%2);\n").arg(nombre(trajet.latitude), nombre(trajet.longitude));
    script += QStringLiteral("var domicile = ") + texteJavaScript(trajet.domicile) + QStringLiteral(";\n");
    script += QStringLiteral("var destination = ") + texteJavaScript(trajet.destination) + QStringLiteral(";\n");
    script += QStringLiteral("var connuDestination = ") +
              position(trajet.latitudeDestination, trajet.longitudeDestination) + QStringLiteral(";\n");
    script += QStringLiteral("var meteo = %1;\n").arg(trajet.meteo ? QStringLiteral("true") : QStringLiteral("false"));
    script += QStringLiteral(R"(var inconnu = depart.lat === 0 && depart.lng === 0;
var carte = L.map('map-canvas').setView(inconnu ? L.latLng(46.6, 2.4) : depart, 7);
fond(carte);
)");
    if (trajet.trafic && fournisseur.aUnTrafic())
        script += QStringLiteral("L.tileLayer(") + texteJavaScript(fournisseur.trafic.trimmed()) +
                  QStringLiteral(", {maxZoom: 19, opacity: 0.8}).addTo(carte);\n");
    script += QStringLiteral(R"(if (meteo && typeof CoucheMeteo !== 'undefined')
    new CoucheMeteo().addTo(carte);
function kilometres(metres) {
    return (metres / 1000).toFixed(1).replace('.', ',') + ' km';
}
function duree(secondes) {
    var minutes = Math.round(secondes / 60);
    var heures = Math.floor(minutes / 60);
    minutes = minutes % 60;
    if (heures === 0)
        return minutes + ' min';
    return heures + ' h ' + (minutes < 10 ? '0' : '') + minutes;
}
localiser(domicile, [depart.lat, depart.lng]).then(function (debut) {
    if (!debut) {
        echec(introuvable('Domicile', domicile));
        return;
    }
    depart = debut;
    return localiser(destination, connuDestination).then(function (fin) {
        if (!fin) {
            echec(introuvable('Destination', destination));
            return;
        }
        L.marker(depart, {title: domicile}).addTo(carte);
        L.marker(fin, {title: destination}).addTo(carte);
        carte.fitBounds(L.latLngBounds([depart, fin]), {padding: [40, 40]});
        if (!service()) {
            echec(introuvable('Destination', destination));
            return;
        }
        return service().itineraire(fournisseur, depart, fin).then(function (route) {
            if (!route) {
                echec('Aucun itinéraire routier n\'a été trouvé entre ces deux adresses.');
                return;
            }
            var trace = L.polyline(route.trace, {color: '#3465a4', weight: 5, opacity: 0.8}).addTo(carte);
            carte.fitBounds(trace.getBounds(), {padding: [40, 40]});
            corps.setAttribute('distance', kilometres(route.distance));
            corps.setAttribute('temps', duree(route.duree));
            corps.setAttribute('etat', 'termine');
        });
    });
}).catch(function () {
    echec('Le service de cartes ne répond pas : vérifiez la connexion à Internet.');
});
)");
    return page(fournisseur, QStringLiteral("Trajets"), enTete, script);
}

} // namespace corvane
