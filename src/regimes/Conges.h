#pragma once

#include "regimes/HistoriqueVersements.h"
#include "store/Intermittent.h"

#include <QDate>
#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

namespace corvane {

// The paid-leave fund's estimate for a leave year (1 April to 31 March) or a free period:
// the qualifying contracts, whole-euro totals, the days earned and the two allowances.
class Conges : public Intermittent
{
public:
    explicit Conges(const QString& chemin = QString()) : Intermittent(chemin) {}
    explicit Conges(BaseDeDonnees& connexion) : Intermittent(connexion) {}

    int nombreCachetsMinimum = 24; // kept, not applied: any day gives a result

    // The leave year that holds a day.
    static QPair<QDate, QDate> anneeDeConges(const QDate& jour);

    // "Du", "Au", "Salaire brut", "Salaire net", "Salaire net à payer", "CP", "Enseigne",
    // "Heures", "Jours", "Emploi", "Du SQLite".
    static const QStringList& clesContrats();

    struct Resultat
    {
        QDate du;
        QDate au;
        Table contrats;
        int nombreCachets = 0; // days retained
        int revenusBruts = 0;  // whole euros, cut after every addition
        int revenusNets = 0;
        double nombreJoursConges = 0; // days earned, at most 30
        int indemniteBrute = 0;
        int indemniteNette = 0;
        // "Du", "Au", "Salaires bruts", "Journées retenues", "Journées acquises", "Indemnité
        // brute", "Indemnité nette estimée" as (label, value); empty without any day retained.
        QList<QPair<QString, QString>> resume;
    };
    // "COMPLET": the current leave year (from today); "PERIODE": du to au. Only contracts with
    // both days inside, done, subject to the fund, and not general-regime or self-employment work.
    Resultat congesSpectacles(const QString& type, const QDate& du = {}, const QDate& au = {});
};

// The payments the fund made (table `congeshistorique`), with their cashed tick ("Encaissé").
class CongesVersements : public HistoriqueVersements
{
public:
    explicit CongesVersements(const QString& chemin = QString()) : HistoriqueVersements(chemin, description()) {}
    explicit CongesVersements(BaseDeDonnees& connexion) : HistoriqueVersements(connexion, description()) {}

private:
    static Description description()
    {
        return {QStringLiteral("congeshistorique"), QStringLiteral("ch_"), QStringLiteral("encaisse"),
                QStringLiteral("Encaissé")};
    }
};

} // namespace corvane
