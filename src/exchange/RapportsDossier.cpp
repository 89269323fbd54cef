#include "exchange/RapportsDossier.h"

#include "exchange/RapportTableauDeBord.h"
#include "exchange/RapportsEnregistrements.h"

namespace corvane {

QList<RapportDuDossier> rapportsDuDossier(const QString& document, const ChoixImpressions& choix, bool bloquePeriode,
                                          const QString& sens)
{
    // The files carry no date: exported again, they replace the previous ones.
    return {
        {titreRapportTableauDeBord(),
         [=](Rapport& r) { return composerRapportTableauDeBord(r, document, choix, bloquePeriode, sens); }},
        {QStringLiteral("Relevé d'informations"),
         [=](Rapport& r) { return composerRapportProfil(r, document, choix); }},
        {nomRapportEmployeurs(), [=](Rapport& r) { return composerRapportEmployeurs(r, document, choix); }},
    };
}

} // namespace corvane
