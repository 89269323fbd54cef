#pragma once

#include <QDate>
#include <QString>

namespace corvane {

class Fiscalite;
class Rapport;
struct ChoixImpressions;

// What the income-tax figures are asked for: a tax year, or a defined period, with the
// screen's switches.
struct DemandeFiscalite
{
    int annee = 0; // "Revenus de A" when du is not valid
    QDate du, au;  // "Période définie"
    bool arrondir = false;
    bool primeEmploi = false;
    bool autoEntrepreneurSeul = false;
    int periodeAE = -1; // the sub-period the self-employment charges are limited to, -1 for none

    bool parPeriode() const { return du.isValid() && au.isValid(); }
    // Sets the options and computes the figures.
    void calculer(Fiscalite& fiscalite) const;
};

// "Fiscalité 2026 11 21": year, month and day, without zeros in front.
QString nomRapportFiscalite(const QDate& jour);

// "Fiscalité": the summary, the totals per employer and the contracts of the year or period,
// as `choix` asks, then the stamp. False (nothing composed) when the document cannot be read.
bool composerRapportFiscalite(Rapport& rapport, const QString& document, const ChoixImpressions& choix,
                              const DemandeFiscalite& demande);

} // namespace corvane
