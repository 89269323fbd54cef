#pragma once

#include <QDate>
#include <QString>

namespace corvane {

class Rapport;
class Reglages;
struct DonneesProfil;
struct FiltreContrats;

// The parts of the record reports the user wants printed (the "…_Impressions…"
// settings), so that the reports can be composed without the settings store.
struct ChoixImpressions
{
    // The dashboard's report: the period's figures, today's situation (hours, rights, reference
    // period), the list of the period's activity, and the days and hours of each line of it.
    bool compteRenduTdb = true;
    bool jourJTdb = true;
    bool listeTdb = true;
    bool joursHeuresTdb = true;
    // The printed summary of the profile.
    bool photo = true;
    bool etatCivil = true;
    bool personnelles = true;
    bool administratives = true;
    bool autoEntrepreneur = true;
    bool rib = true;
    // The employers' report.
    bool listeEmployeurs = true;
    bool cumulsEmployeurs = true;
    // The contracts' report.
    bool listeContrats = true;
    // The social-security report.
    bool verificationDroits = true;
    bool listePeriodes = true;
    // The paid-leave fund's report.
    bool congesCompteRendu = true;
    bool congesListeContrats = true;
    // The income-tax report.
    bool fiscaliteCompteRendu = true;
    bool fiscaliteTotauxEmployeurs = true;
    bool fiscaliteListeContrats = true;
    // The expenses' report.
    bool listeFrais = true;
    bool categoriesFrais = true;
    // The neighbouring-rights report.
    bool compteRenduDroitsVoisins = true;
    bool listeVersementsDroitsVoisins = true;

    static ChoixImpressions depuis(const Reglages& reglages);
};

// The file names the reports are exported under (without ".pdf").
// "Relevé d'informations 21 11 2026": day, month and year, without zeros in front.
QString nomRapportProfil(const QDate& jour);
QString nomRapportEmployeurs(); // "Liste des employeurs"
QString nomRapportContrats();   // "Liste des contrats"

// The user's name as the reports print it (stamp, footer): first name, last name.
QString nomDuTitulaire(const DonneesProfil& profil);

// Each composes its report into `rapport` from the document at `document`, and
// returns false (nothing composed) when the document cannot be read.

// The printed summary of the profile, ending with the stamp bearing the user's name.
bool composerRapportProfil(Rapport& rapport, const QString& document, const ChoixImpressions& choix);
// The employers' list and each employer's totals.
bool composerRapportEmployeurs(Rapport& rapport, const QString& document, const ChoixImpressions& choix);
// The contracts the filter lists, in its order, with their totals.
bool composerRapportContrats(Rapport& rapport, const QString& document, const ChoixImpressions& choix,
                             const FiltreContrats& filtre);

} // namespace corvane
