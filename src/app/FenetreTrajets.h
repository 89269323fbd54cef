#pragma once

#include <QDialog>
#include <QPointer>
#include <QString>
#include <QVariant>

#include <functional>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QRadioButton;

namespace corvane {
class Document;
}

namespace corvane::app {

struct Environnement;
class VueCarte;

// "Trajets": the map of the user's home, or the driving route from home to an employer with its
// distance and duration. The addresses come from the profile and the employers' records; the
// maps service is a setting of the preferences ("Cartes").
class FenetreTrajets : public QDialog
{
    Q_OBJECT

public:
    enum class Carte
    {
        Domicile,
        Itineraire,
    };

    // The route to that employer, or the home map when `employeurId` is 0 or unknown.
    FenetreTrajets(Environnement& environnement, Document& document, int employeurId = 0, QWidget* parent = nullptr);

    // The window opened over `parent`; without an open document, the alert instead (nullptr).
    static FenetreTrajets* ouvrir(Environnement& environnement, Document* document, int employeurId, QWidget* parent);
    static QString titre();

    // Between the two pages; the home map clears the traffic and weather switches.
    void choisirCarte(Carte carte);
    Carte carte() const { return m_carte; }
    void choisirDestination(int employeurId);
    int destination() const;
    const QString& adresseDomicile() const { return m_domicile; }
    QString adresseDestination() const;
    VueCarte* vue() const { return m_vue; }

private:
    void lireProfil();
    void remplirDestinations(int employeurId);
    // The page of the current choice, shown anew.
    void afficherPage();
    // Once the route page has loaded: its distance and time, read until the page has them.
    void lireDistanceTemps(int page, int essai);
    void attendreLaPage(int page, int essai);
    // Runs `script` in the page, and `suite` with its value unless another page was shown since.
    void evaluerPourLaPage(int page, const QString& script, std::function<void(const QVariant&)> suite);
    void montrerResultat(const QString& distance, const QString& temps);

    Environnement& m_environnement;
    QPointer<Document> m_document;
    QString m_domicile;
    double m_latitude = 0.0, m_longitude = 0.0;
    Carte m_carte = Carte::Domicile;
    int m_page = 0; // counts the pages shown, so that a late answer of an older one is dropped

    QRadioButton* m_choixDomicile = nullptr;
    QRadioButton* m_choixItineraire = nullptr;
    QComboBox* m_destinations = nullptr;
    QCheckBox* m_trafic = nullptr;
    QCheckBox* m_meteo = nullptr;
    QLabel* m_legende = nullptr;
    QLabel* m_distance = nullptr;
    QLabel* m_temps = nullptr;
    QWidget* m_resultats = nullptr;
    VueCarte* m_vue = nullptr;
};

} // namespace corvane::app
