#include "app/manager/MenuDocumentsManager.h"

#include "app/ActionsRapport.h"
#include "app/ApercuPdf.h"
#include "app/Environnement.h"
#include "exchange/ExportPdf.h"
#include "exchange/RapportProposition.h"
#include "manager/FormulairesOfficiels.h"
#include "manager/Propositions.h"
#include "store/Dialogues.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QToolButton>

namespace corvane::app {

MenuDocumentsManager::MenuDocumentsManager(Environnement& environnement, std::function<QString()> document,
                                           std::function<int()> selection, Origine origine, QWidget* parent)
    : QMenu(parent), m_environnement(environnement), m_document(std::move(document)), m_selection(std::move(selection)),
      m_origine(origine)
{
    setObjectName(QStringLiteral("menuDocumentsManager"));
    setTitle(QStringLiteral("PDF"));
    m_afficheur = [this](const QString& chemin) { afficherPdf(chemin, parentWidget()); };

    QAction* proposition = addAction(QStringLiteral("Proposition"));
    proposition->setObjectName(QStringLiteral("actionPdfProposition"));
    connect(proposition, &QAction::triggered, this, [this] { exporterProposition(); });
    QAction* contrat = addAction(QStringLiteral("Contrat d'engagement"));
    contrat->setObjectName(QStringLiteral("actionPdfContratEngagement"));
    connect(contrat, &QAction::triggered, this, [this] { exporterContrat(); });
    addSeparator();
    const QList<FormulaireOfficiel>& formulaires = FormulairesOfficiels::tous();
    for (int i = 0; i < formulaires.size(); ++i) {
        QAction* action = addAction(formulaires.at(i).menu);
        action->setObjectName(QStringLiteral("actionFormulaire_") + formulaires.at(i).nom);
        connect(action, &QAction::triggered, this, [this, i] { ouvrirFormulaire(i); });
    }
}

QToolButton* MenuDocumentsManager::bouton(const QString& nomObjet, QWidget* parent)
{
    auto* pdf = new QToolButton(parent);
    pdf->setObjectName(nomObjet);
    pdf->setText(QStringLiteral("PDF"));
    pdf->setPopupMode(QToolButton::InstantPopup);
    pdf->setMenu(this);
    return pdf;
}

void MenuDocumentsManager::alerter(const QString& message)
{
    m_environnement.dialogues.information(Propositions::titreAlertes(), message, QStringLiteral("Fermer"));
}

bool MenuDocumentsManager::documentEtSelection(int* selection)
{
    if (m_document().isEmpty()) {
        alerter(ExportPdf::messageSansDocument());
        return false;
    }
    *selection = m_selection ? m_selection() : 0;
    if (*selection <= 0) {
        alerter(m_origine == Origine::Propositions ? Propositions::messageAucuneSelection()
                                                   : QStringLiteral("Aucun événement n'est sélectionné..."));
        return false;
    }
    return true;
}

int MenuDocumentsManager::propositionChoisie()
{
    int selection = 0;
    if (!documentEtSelection(&selection))
        return 0;
    Propositions propositions(m_document());
    const int id = m_origine == Origine::Propositions ? selection : propositions.propositionDeLEvenement(selection);
    if (!propositions.propositionExiste(id)) {
        alerter(m_origine == Origine::Propositions ? Propositions::messageAucuneSelection()
                                                   : QStringLiteral("Aucune proposition n'est liée à cet événement."));
        return 0;
    }
    return id;
}

int MenuDocumentsManager::organisateurChoisi()
{
    int selection = 0;
    if (!documentEtSelection(&selection))
        return 0;
    Propositions propositions(m_document());
    int employeur = 0;
    if (m_origine == Origine::Evenements) {
        employeur = propositions.employeurDeLEvenement(selection);
    } else if (const std::optional<EnteteProposition> entete = propositions.entete(selection)) {
        employeur = entete->employeurId;
    } else {
        alerter(Propositions::messageAucuneSelection());
        return 0;
    }
    if (propositions.retrouveEmployeurDepuisId(employeur).isEmpty()) {
        alerter(QStringLiteral("L'organisateur n'est plus dans la liste des employeurs."));
        return 0;
    }
    return employeur;
}

QString MenuDocumentsManager::exporterProposition()
{
    const int id = propositionChoisie();
    if (id == 0)
        return {};
    const QString document = m_document();
    return exporterRapportEcran(
        m_environnement,
        {document, nomLettreProposition(Horloge::aujourdhui()), Propositions::titreAlertes(),
         [document, id](Rapport& rapport) { return composerLettreProposition(rapport, document, id); }},
        parentWidget());
}

QString MenuDocumentsManager::exporterContrat()
{
    const int employeur = organisateurChoisi();
    if (employeur == 0)
        return {};
    const QString document = m_document();
    return exporterRapportEcran(
        m_environnement,
        {document, nomContratEngagement(Horloge::aujourdhui()), Propositions::titreAlertes(),
         [document, employeur](Rapport& rapport) { return composerContratEngagement(rapport, document, employeur); }},
        parentWidget());
}

QString MenuDocumentsManager::ouvrirFormulaire(int index)
{
    if (index < 0 || index >= FormulairesOfficiels::tous().size())
        return {};
    QString absent;
    const QString chemin =
        FormulairesOfficiels::trouver(m_environnement.reglages.texte(Reglages::Cle::FormulairesOfficielsDossier),
                                      FormulairesOfficiels::tous().at(index), &absent);
    if (chemin.isEmpty()) {
        m_environnement.dialogues.information(FormulairesOfficiels::titreAlertes(), absent, QStringLiteral("Fermer"));
        return {};
    }
    if (m_afficheur)
        m_afficheur(chemin);
    return chemin;
}

} // namespace corvane::app
