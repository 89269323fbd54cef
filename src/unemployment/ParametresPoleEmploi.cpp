#include "unemployment/ParametresPoleEmploi.h"

namespace corvane {

void ParametresPoleEmploi::determineLeProtocole()
{
    const QString protocole = protocolePour(dernierJourDernierContrat);
    if (!protocole.isEmpty())
        protocoleAccord = protocole;
}

QString ParametresPoleEmploi::protocolePour(const QDate& dernierJour)
{
    if (!dernierJour.isValid())
        return {};
    // Later tests overwrite earlier ones: a last day on a switch date takes the newer rule set.
    QString protocole;
    if (dernierJour < QDate(2007, 4, 1))
        protocole = Protocoles::juin2003;
    if (dernierJour >= QDate(2007, 4, 1))
        protocole = Protocoles::avril2007;
    if (dernierJour >= QDate(2016, 8, 1))
        protocole = Protocoles::aout2016;
    return protocole;
}

QString ParametresPoleEmploi::protocolePour(const QDateTime& dernierJour)
{
    return protocolePour(jourLegal(dernierJour));
}

PeriodeEtPaliers ParametresPoleEmploi::periodeEtPaliersPour(const Annexe& annexe, const QString& protocole)
{
    if (protocole == Protocoles::aout2016)
        return {annexe.periodeDeReference_2016,
                {annexe.palier1_2016, annexe.palier2_2016, annexe.palier3_2016, annexe.palier4_2016},
                annexe.tableauPaliers_2016};
    return {annexe.periodeDeReference,
            {annexe.palier1, annexe.palier2, annexe.palier3, annexe.palier4},
            annexe.tableauPaliers};
}

QString ParametresPoleEmploi::messagePeriodeAuDelaDuDernierPalier(const QString& protocole)
{
    const int jours = protocole == Protocoles::aout2016 ? 485 : 425;
    return QStringLiteral("Actuellement, Corvane ne peut calculer vos droits au-delà d'une période de référence de "
                          "%1 jours.\n")
        .arg(jours);
}

} // namespace corvane
