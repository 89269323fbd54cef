#pragma once

#include "regimes/HistoriqueVersements.h"
#include "store/Intermittent.h"

#include <QDate>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

namespace corvane {

// The figures of the yearly income declaration for a tax year (by the year the pay was
// received) or a defined period (by the contracts' dates): taxable net pay, days and hours,
// expenses and kilometres, the benefits received, the sickness allowances (long illness
// left out), the self-employment turnovers with their charges, the actual mileage costs and
// the neighbouring-rights income per collecting society.
class Fiscalite : public Intermittent
{
public:
    explicit Fiscalite(const QString& chemin = QString()) : Intermittent(chemin) {}
    explicit Fiscalite(BaseDeDonnees& connexion) : Intermittent(connexion) {}

    // The options of the screen.
    bool arrondirMontants = false;     // every amount to whole euros, each net before it is added
    bool primeEmploi = false;          // "Heures" shown as "0"
    bool autoEntrepreneurSeul = false; // self-employment contracts only
    int periodeAE = -1;                // the sub-period the charges are limited to, -1 for none

    // "Revenus de Y" for the current year and the five before, then "Période définie".
    static QStringList periodes(const QDate& aujourdhui);
    // The six sub-periods of a tax year the self-employment charges may be limited to: the
    // month before today and today's month, then the four quarters of the year.
    static QStringList periodesAE();
    static QPair<QDate, QDate> bornesPeriodeAE(int index, int annee, const QDate& aujourdhui);

    // "Du", "Du SQLite", "Au", "Net imposable", "CP", "Enseigne", "Jours", "Heures", "Emploi".
    static const QStringList& clesContrats();
    // "Employeurs", "Heures", "Montants", "PAS".
    static const QStringList& clesEmployeurs();

    // A whole tax year (the year the pay was received) or, with two dates, a defined period.
    void declarationAnnee(int annee);
    void declarationPeriode(const QDate& du, const QDate& au);

    QDate dateDebut;
    QDate dateFin;
    bool parAnnee = true;
    Table contrats;
    Table employeurs;
    int nombreCachets = 0;
    int nombreHeuresTotal = 0;
    double revenusNet = 0;
    double totalFrais = 0;
    double totalKm = 0;
    double cumulAssedic = 0;
    double cumulConges = 0;
    double totalIJ = 0;
    double maxNets = 0;
    double totalRevenusRevente = 0;          // type 100
    double totalRevenusCommerciaux = 0;      // type 101
    double totalRevenusNonCommerciaux = 0;   // type 102
    double totalRevenusActiviteLiberale = 0; // type 103: in the net, shown nowhere else
    double chargesAE = 0;                    // rounded down to the euro
    double fraisReels = 0;
    // The ten rows "Du" … "Dist. parcourue" as (label, value).
    QList<QPair<QString, QString>> resume;
    // "Adami", "Sacem", "Scpp", "Spedidam", "Sppf", "Spré" by position, then the other bodies.
    QList<QPair<QString, double>> droitsVoisins;

    // An amount as the declaration adds it: to the cent, or to the euro (half away from zero)
    // with the rounding option.
    double montant(double valeur) const;

private:
    void calcule();
    QString conditionContrats() const;
    QVariantList parametresContrats() const;
};

// The tax office's payments and refunds (table `fiscalitehistorique`), with their credit
// tick ("Crédit").
class FiscaliteVersements : public HistoriqueVersements
{
public:
    explicit FiscaliteVersements(const QString& chemin = QString()) : HistoriqueVersements(chemin, description()) {}
    explicit FiscaliteVersements(BaseDeDonnees& connexion) : HistoriqueVersements(connexion, description()) {}

private:
    static Description description()
    {
        return {QStringLiteral("fiscalitehistorique"), QStringLiteral("fh_"), QStringLiteral("credit"),
                QStringLiteral("Crédit")};
    }
};

} // namespace corvane
