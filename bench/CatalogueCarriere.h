#pragma once

#include <QDate>
#include <QList>
#include <QRandomGenerator>
#include <QString>
#include <QStringList>

namespace corvane::bench {

// Seeded draws: the same seed gives the same career on every machine.
class Hasard
{
public:
    explicit Hasard(quint32 graine) : m_generateur(graine) {}

    // Inclusive on both ends.
    int entre(int min, int max) { return min + int(m_generateur.bounded(quint32(max - min + 1))); }
    double reel(double min, double max) { return min + (max - min) * m_generateur.generateDouble(); }
    bool chance(double probabilite) { return m_generateur.generateDouble() < probabilite; }
    template <typename T>
    const T& choisir(const QList<T>& liste)
    {
        return liste.at(entre(0, int(liste.size()) - 1));
    }

private:
    QRandomGenerator m_generateur;
};

// Picks an index with a probability proportional to its weight.
class Tirage
{
public:
    void ajouter(double poids);
    bool estVide() const { return m_total <= 0.0; }
    int tirer(Hasard& hasard) const;

private:
    QList<double> m_cumuls;
    double m_total = 0.0;
};

struct Ville
{
    QString nom;
    QString codePostal;
    double latitude;
    double longitude;
    QString indicatif; // first two digits of a landline number
    bool ileDeFrance;
};

// Kinds of employers: each has its own names, pay and season.
enum class Genre
{
    Theatre,
    Compagnie,
    Festival,
    Production,
    Orchestre,
    Salle,
    Association,
    Ecole,
    Formation,
    RegimeGeneral
};

namespace Catalogue {

// Towns where the user works, with their postal codes and positions; Paris first (home).
const QList<Ville>& villes();
Ville villeAuHasard(Hasard& hasard);
const Ville& paris();

// An employer's name for a kind, in a town.
QString raisonSociale(Genre genre, const Ville& ville, Hasard& hasard);
QString adresse(Hasard& hasard);
QString personne(Hasard& hasard);
QString telephone(const Ville& ville, Hasard& hasard);
QString email(const QString& raisonSociale, Hasard& hasard);
// A SIRET whose digits pass the Luhn check, as the register's numbers do.
QString siret(Hasard& hasard);
QString licenceSpectacle(int annee, Hasard& hasard);
QString codeApe(Genre genre, Hasard& hasard);

QString fonction(Genre genre, Hasard& hasard);
QString note(Genre genre, int jours, Hasard& hasard);
QString titreSpectacle(Hasard& hasard);

// "de Lyon", "d'Avignon", "du Mans".
QString deVille(const QString& ville);
// Great-circle distance in kilometres.
double distanceKm(const Ville& a, const Ville& b);

// Gross hourly minimum wage of a year, to the cent or near it.
double smicHoraire(int annee);

} // namespace Catalogue
} // namespace corvane::bench
