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
    // The list reads itself again after what it writes (a tick, a deletion): the news of that write is old.
    connect(m_liste, &ListeContrats::ecrit, this, &PageSection::ignorerProchainesModifications);
}

QSet<QString> SectionContrats::tablesLues() const
{
    // The list, its filters' choices, and what the reference period is made of.
    return {
        "contrats", "employeurs", "contrats_frais", "frais",           "contratstypes",         "autoentrepreneurtypes",
        "emplois",  "periodes",   "utilisateur",    "securitesociale", "datesPeriodesPreferees"};
}

void SectionContrats::recharger()
{
    if (document() != m_documentAffiche) {
        // Another document: the list's model (and its grouped count) starts anew.
        m_documentAffiche = document();
        m_formulaire->setDocument(document());
        m_liste->setDocument(document());
        m_etats->setCurrentWidget(m_liste);
        return;
    }
    // A contract being typed is left alone: the list is read again when the form closes.
    if (!enEdition())
        m_liste->actualiser();
}

void SectionContrats::afficherListe()
{
    m_etats->setCurrentWidget(m_liste);
    m_liste->actualiser();
    ignorerProchainesModifications();
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

bool SectionContrats::enEdition() const
{
    return m_etats->currentWidget() == m_formulaire;
}

} // namespace corvane::app
