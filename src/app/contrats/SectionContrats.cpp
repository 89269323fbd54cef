#include "app/contrats/SectionContrats.h"

#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/contrats/FormulaireContrat.h"
#include "app/contrats/ListeContrats.h"
#include "store/Dialogues.h"

#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace corvane::app {

SectionContrats::SectionContrats(Environnement& environnement, QWidget* parent)
    : PageSection(Section::Contrats, parent), m_environnement(environnement)
{
    m_etats = new QStackedWidget(this);
    m_etats->setObjectName(QStringLiteral("etatsContrats"));
    m_liste = new ListeContrats(environnement, m_etats);
    m_liste->setObjectName(QStringLiteral("listeContrats"));
    m_formulaire = new FormulaireContrat(environnement, m_etats);
    m_formulaire->setObjectName(QStringLiteral("formulaireContrat"));
    m_etats->addWidget(m_liste);
    m_etats->addWidget(m_formulaire);
    contenu()->addWidget(m_etats, 1);

    connect(m_liste, &ListeContrats::nouveauDemande, this, &SectionContrats::nouveauContrat);
    connect(m_liste, &ListeContrats::modificationDemandee, this, &SectionContrats::modifierContrat);
    connect(m_formulaire, &FormulaireContrat::termine, this, &SectionContrats::afficherListe);
}

void SectionContrats::setFile(const QString& chemin)
{
    PageSection::setFile(chemin);
    m_formulaire->setFile(chemin);
    m_liste->setFile(chemin);
    m_etats->setCurrentWidget(m_liste);
}

void SectionContrats::afficherListe()
{
    m_etats->setCurrentWidget(m_liste);
    m_liste->recharger();
    m_liste->table()->setFocus();
}

void SectionContrats::nouveauContrat()
{
    if (cheminDuFichier().isEmpty()) {
        m_environnement.dialogues.information(QStringLiteral("Gestion des contrats"),
                                              ControleurApplication::messageSansDocument(), QStringLiteral("Fermer"));
        return;
    }
    m_formulaire->nouveau();
    m_etats->setCurrentWidget(m_formulaire);
}

void SectionContrats::modifierContrat(int id)
{
    if (m_formulaire->modifier(id))
        m_etats->setCurrentWidget(m_formulaire);
}

void SectionContrats::showEvent(QShowEvent* evenement)
{
    // Employers and contracts may have changed in another section meanwhile.
    PageSection::showEvent(evenement);
    if (!enEdition() && !cheminDuFichier().isEmpty())
        m_liste->actualiser();
}

bool SectionContrats::enEdition() const
{
    return m_etats->currentWidget() == m_formulaire;
}

} // namespace corvane::app
