#include "app/ExportDossierPdf.h"

#include "app/Environnement.h"
#include "exchange/ExportPdf.h"
#include "exchange/Rapport.h"
#include "exchange/RapportsDossier.h"
#include "exchange/RapportsEnregistrements.h"
#include "store/Dialogues.h"
#include "store/Reglages.h"

namespace corvane::app {

QString exporterDossierPdf(Environnement& environnement, const QString& document)
{
    const QString fermer = QStringLiteral("Fermer");
    if (document.isEmpty()) {
        environnement.dialogues.information(ExportPdf::titreAlertes(), ExportPdf::messageSansDocument(), fermer);
        return {};
    }
    Reglages& reglages = environnement.reglages;
    ExportPdf export_(reglages, environnement.dialogues, document);
    // The reports are composed from the document itself, so no screen has to be shown for them;
    // the dashboard's is locked and sorted as the screen shows it.
    const QList<RapportDuDossier> rapports =
        rapportsDuDossier(document, ChoixImpressions::depuis(reglages),
                          reglages.booleen(Reglages::Cle::TdbBloquePeriode), reglages.texte(Reglages::Cle::TdbSens));
    for (const RapportDuDossier& r : rapports) {
        Rapport compose;
        if (!r.composer(compose)) {
            environnement.dialogues.information(ExportPdf::titreAlertes(),
                                                QStringLiteral("Le document ne peut pas être lu."), fermer);
            return {};
        }
        // The first failure (no storage folder, a folder or file that cannot be written) has
        // been told: the others would only repeat it.
        if (export_.exportPDF(compose.document(), r.nom, DestinationPdf::DossierDuDocument).isEmpty())
            return {};
    }
    return export_.dossierDuDocument();
}

} // namespace corvane::app
