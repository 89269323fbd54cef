#include "unemployment/DemandeDroits.h"

#include "store/Dates.h"
#include "unemployment/Simulation.h"

namespace corvane {

IssueDroits lanceDemande(Simulation& simulation, const DemandeDroits& demande)
{
    simulation.setSecuriteSociale(demande.indemnitesJournalieres);
    if (demande.analyse)
        return simulation.analyse() ? IssueDroits::Calculee : IssueDroits::SansPeriode;
    const QStringList& conditions = ComptageHeures::conditionsDesContrats();
    simulation.setTriDesContrats(conditions.at(qBound(0, demande.contrats, int(conditions.size()) - 1)));
    // The engine is silent both without any contract and before 2007; only the second
    // silence is wanted.
    if (!simulation.dernierJourDernierContratCompte().isValid())
        return IssueDroits::AucunContrat;
    return simulation.lance() ? IssueDroits::Calculee : IssueDroits::SansProtocole;
}

QString messageIssue(IssueDroits issue, const DemandeDroits& demande)
{
    switch (issue) {
    case IssueDroits::Calculee:
        return {};
    case IssueDroits::AucunContrat: {
        static const QStringList quels{QString(), QStringLiteral(" effectué"), QStringLiteral(" prévu")};
        return QStringLiteral("Aucun contrat%1 pris en compte pour vos droits ne commence entre le %2 et le %3 : "
                              "seuls comptent les prestations, les formations et les enseignements chez un employeur "
                              "conventionné.")
            .arg(quels.value(demande.contrats), Dates::versAffichage(demande.du), Dates::versAffichage(demande.au));
    }
    case IssueDroits::SansProtocole:
        return QStringLiteral("Aucune simulation : le dernier contrat pris en compte dans cette période s'achève "
                              "avant le 1er avril 2007.");
    case IssueDroits::SansPeriode:
        return QStringLiteral("Aucune période de référence n'est en cours : choisissez-en une dans le menu Dossier, "
                              "« Périodes d'indemnisation… ».");
    }
    return {};
}

} // namespace corvane
