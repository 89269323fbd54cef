#pragma once

#include "store/Annexes.h"
#include "unemployment/ParametresIntermittent.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <array>

namespace corvane {

// The rule sets ("protocoles"), compared by equality everywhere.
namespace Protocoles {
inline const QString juin2003 = QStringLiteral("06_2003");
inline const QString avril2007 = QStringLiteral("04_2007");
inline const QString aout2016 = QStringLiteral("08_2016");
} // namespace Protocoles

// The reference period and its extension steps that a rule set takes from an annex.
struct PeriodeEtPaliers
{
    quint32 periodeDeReference;
    std::array<quint32, 4> paliers; // hours required in extension steps 1 to 4
    TableauPaliers tableauPaliers;
};

// The unemployment-rights object's defaults, and the choice of its rule set.
class ParametresPoleEmploi : public ParametresIntermittent
{
public:
    quint32 nbreHeuresMaxiParMois = 208;
    quint32 nbreHeuresMaxiParMoisParDerogation = 260;
    quint32 plafondHeuresEnseignement = 55;
    quint32 heuresMaxiEnseignement = 55; // the same ceiling, as the hours table uses it
    quint32 plafondHeuresFormations = 338;
    quint32 nombreJoursARE_2016 = 365; // allowance days of a 2016 opening of rights
    bool allocationTransitoire = false;
    bool securiteSociale = true; // sickness-type periods are taken into account
    QString numeroTelephone = QStringLiteral("3949");
    // Filled by the rule-set engine.
    QString protocoleAccord;
    QString annexe;
    QString no_annexe;
    QDate dernierJourDernierContrat;

    // Sets protocoleAccord from dernierJourDernierContrat; without a last day it stays as it is.
    void determineLeProtocole();

    // The rule set in force for a last day of the last contract: "06_2003" before
    // 2007-04-01, "04_2007" from it, "08_2016" from 2016-08-01. Empty for an invalid day.
    static QString protocolePour(const QDate& dernierJourDernierContrat);
    static QString protocolePour(const QDateTime& dernierJourDernierContrat);

    // The reference period and steps an annex gives under a rule set: the 2016 ones
    // under "08_2016", the earlier ones under "04_2007" and "06_2003".
    static PeriodeEtPaliers periodeEtPaliersPour(const Annexe& annexe, const QString& protocole);
    // What the rights computations report when the reference period they need lies
    // beyond the last step of the rule set's table.
    static QString messagePeriodeAuDelaDuDernierPalier(const QString& protocole);
};

} // namespace corvane
