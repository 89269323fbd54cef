#include "app/frais/SectionFrais.h"

#include "app/frais/FormulaireFrais.h"
#include "app/frais/ListeFrais.h"

#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace corvane::app {

SectionFrais::SectionFrais(Environnement& environnement, QWidget* parent) : PageSection(Section::Frais, parent)
{
    m_etats = new QStackedWidget(this);
    m_etats->setObjectName(QStringLiteral("etatsFrais"));
    m_liste = new ListeFrais(environnement, m_etats);
    m_liste->setObjectName(QStringLiteral("listeFrais"));
    m_formulaire = new FormulaireFrais(environnement, m_etats);
    m_formulaire->setObjectName(QStringLiteral("formulaireFrais"));
    m_etats->addWidget(m_liste);
    m_etats->addWidget(m_formulaire);
    contenu()->addWidget(m_etats, 1);

    connect(m_liste, &ListeFrais::nouveauDemande, this, &SectionFrais::nouveauFrais);
    connect(m_liste, &ListeFrais::modificationDemandee, this, &SectionFrais::modifierFrais);
    connect(m_liste, &ListeFrais::duplicationDemandee, this, &SectionFrais::dupliquerFrais);
    connect(m_formulaire, &FormulaireFrais::termine, this, &SectionFrais::afficherListe);
    // The list is read again as the form closes: the news of the save is old by then.
    connect(m_formulaire, &FormulaireFrais::enregistre, this, &PageSection::ignorerProchainesModifications);
    // The list reads itself again after what it writes (a deletion, a date): that news is old.
    connect(m_liste, &ListeFrais::ecrit, this, &PageSection::ignorerProchainesModifications);
}

QSet<QString> SectionFrais::tablesLues() const
{
    // The expenses and their categories, and the contracts they are linked to (named by their
    // start and employer).
    return {"frais", "fraistypes", "contrats", "contrats_frais", "employeurs"};
}

void SectionFrais::recharger()
{
    if (document() != m_documentAffiche) {
        m_documentAffiche = document();
        m_formulaire->setDocument(document());
        m_liste->setDocument(document());
        m_etats->setCurrentWidget(m_liste);
        return;
    }
    // An expense being typed keeps what was typed; only the choices it offers follow. The list
    // is read again when the form closes.
    if (enEdition())
        m_formulaire->actualiserListes();
    else
        m_liste->actualiser();
}

void SectionFrais::afficherListe()
{
    m_etats->setCurrentWidget(m_liste);
    m_liste->actualiser();
    m_liste->table()->setFocus();
}

void SectionFrais::nouveauFrais()
{
    m_formulaire->nouveau();
    m_etats->setCurrentWidget(m_formulaire);
}

void SectionFrais::modifierFrais(int id)
{
    if (m_formulaire->modifier(id))
        m_etats->setCurrentWidget(m_formulaire);
}

void SectionFrais::dupliquerFrais(int id)
{
    if (m_formulaire->dupliquer(id))
        m_etats->setCurrentWidget(m_formulaire);
}

bool SectionFrais::enEdition() const
{
    return m_etats->currentWidget() == m_formulaire;
}

} // namespace corvane::app
