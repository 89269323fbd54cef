#include "app/ActionsRapport.h"

#include "app/ApercuPdf.h"
#include "app/Environnement.h"
#include "exchange/ExportPdf.h"
#include "exchange/Rapport.h"
#include "store/Dialogues.h"

#include <QBoxLayout>
#include <QKeySequence>
#include <QPushButton>

namespace corvane::app {

namespace {

// The report, or nothing after telling the user why.
bool composer(Environnement& environnement, const RapportEcran& rapport, Rapport& compose)
{
    const QString fermer = QStringLiteral("Fermer");
    if (rapport.document.isEmpty()) {
        environnement.dialogues.information(rapport.titreAlertes, ExportPdf::messageSansDocument(), fermer);
        return false;
    }
    if (!rapport.composer || !rapport.composer(compose)) {
        environnement.dialogues.information(rapport.titreAlertes, QStringLiteral("Le document ne peut pas être lu."),
                                            fermer);
        return false;
    }
    return true;
}

} // namespace

QString exporterRapportEcran(Environnement& environnement, const RapportEcran& rapport, QWidget* parent)
{
    Rapport compose;
    if (!composer(environnement, rapport, compose))
        return {};
    ExportPdf export_(environnement.reglages, environnement.dialogues, rapport.document);
    const QString chemin = export_.exportPDF(compose.document(), rapport.nomFichier, DestinationPdf::Choisie);
    proposerAffichage(chemin, environnement.dialogues, parent);
    return chemin;
}

bool imprimerRapportEcran(Environnement& environnement, const RapportEcran& rapport, QWidget* parent)
{
    Rapport compose;
    return composer(environnement, rapport, compose) && imprimerRapport(compose.document(), parent);
}

void ajouterBoutonsRapport(QBoxLayout* mise, QWidget* parent, Environnement& environnement,
                           std::function<RapportEcran()> rapport, const QString& suffixe)
{
    auto* imprimer = new QPushButton(QStringLiteral("Imprimer…"), parent);
    imprimer->setObjectName(QStringLiteral("boutonImprimer") + suffixe);
    // Ctrl+P prints the screen on display: a button's shortcut works only while the button is
    // visible in the active window, so the hidden sections' buttons stay out of the way.
    imprimer->setShortcut(QKeySequence::Print);
    imprimer->setToolTip(QStringLiteral("Imprimer (%1)").arg(imprimer->shortcut().toString(QKeySequence::NativeText)));
    auto* exporter = new QPushButton(QStringLiteral("Exporter en PDF…"), parent);
    exporter->setObjectName(QStringLiteral("boutonExporterPdf") + suffixe);
    mise->addWidget(imprimer);
    mise->addWidget(exporter);
    QObject::connect(imprimer, &QPushButton::clicked, parent,
                     [&environnement, rapport, parent] { imprimerRapportEcran(environnement, rapport(), parent); });
    QObject::connect(exporter, &QPushButton::clicked, parent,
                     [&environnement, rapport, parent] { exporterRapportEcran(environnement, rapport(), parent); });
}

} // namespace corvane::app
