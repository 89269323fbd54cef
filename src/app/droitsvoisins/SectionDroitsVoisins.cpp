#include "app/droitsvoisins/SectionDroitsVoisins.h"

#include "app/droitsvoisins/FenetreCategoriesDroitsVoisins.h"
#include "app/droitsvoisins/FormulaireDroitVoisin.h"
#include "app/droitsvoisins/ListeDroitsVoisins.h"

#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace corvane::app {

SectionDroitsVoisins::SectionDroitsVoisins(Environnement& environnement, QWidget* parent)
    : PageSection(Section::DroitsVoisins, parent), m_environnement(environnement)
{
    m_etats = new QStackedWidget(this);
    m_etats->setObjectName(QStringLiteral("etatsDroitsVoisins"));
    m_liste = new ListeDroitsVoisins(environnement, m_etats);
    m_liste->setObjectName(QStringLiteral("listeDroitsVoisins"));
    m_formulaire = new FormulaireDroitVoisin(environnement, m_etats);
    m_formulaire->setObjectName(QStringLiteral("formulaireDroitVoisin"));
    m_etats->addWidget(m_liste);
    m_etats->addWidget(m_formulaire);
    contenu()->addWidget(m_etats, 1);

    connect(m_liste, &ListeDroitsVoisins::nouveauDemande, this, &SectionDroitsVoisins::nouveauVersement);
    connect(m_liste, &ListeDroitsVoisins::modificationDemandee, this, &SectionDroitsVoisins::modifierVersement);
    connect(m_liste, &ListeDroitsVoisins::categoriesDemandees, this, &SectionDroitsVoisins::ouvrirCategories);
    connect(m_formulaire, &FormulaireDroitVoisin::termine, this, &SectionDroitsVoisins::afficherListe);
    // The list is read again as the form closes: the news of the save is old by then.
    connect(m_formulaire, &FormulaireDroitVoisin::enregistre, this, &PageSection::ignorerProchainesModifications);
    // The list reads itself again after what it writes: that news is old.
    connect(m_liste, &ListeDroitsVoisins::ecrit, this, &PageSection::ignorerProchainesModifications);
}

QSet<QString> SectionDroitsVoisins::tablesLues() const
{
    return {"droitsvoisins", "droitsvoisinstypes", "droitsvoisinsorganismes"};
}

void SectionDroitsVoisins::recharger()
{
    if (document() != m_documentAffiche) {
        m_documentAffiche = document();
        m_formulaire->setDocument(document());
        m_liste->setDocument(document());
        m_etats->setCurrentWidget(m_liste);
        return;
    }
    // A payment being typed keeps what was typed; only its lists follow. The list is read
    // again when the form closes.
    if (enEdition())
        m_formulaire->actualiserChoix();
    else
        m_liste->actualiser();
}

void SectionDroitsVoisins::afficherListe()
{
    m_etats->setCurrentWidget(m_liste);
    m_liste->actualiser();
    m_liste->table()->setFocus();
}

void SectionDroitsVoisins::nouveauVersement()
{
    m_formulaire->nouveau();
    m_etats->setCurrentWidget(m_formulaire);
}

void SectionDroitsVoisins::modifierVersement(int id)
{
    if (m_formulaire->modifier(id))
        m_etats->setCurrentWidget(m_formulaire);
}

FenetreCategoriesDroitsVoisins* SectionDroitsVoisins::ouvrirCategories()
{
    if (!document() || !document()->estOuvert())
        return nullptr;
    auto* fenetre = new FenetreCategoriesDroitsVoisins(m_environnement, *document(), this);
    fenetre->setAttribute(Qt::WA_DeleteOnClose);
    // Read again at once, rather than at the document's news, which a write of the list's own
    // in the same turn of the event loop would hide.
    connect(fenetre, &FenetreCategoriesDroitsVoisins::categoriesModifiees, this, [this] {
        if (enEdition())
            m_formulaire->actualiserChoix();
        else
            m_liste->actualiser();
    });
    fenetre->open();
    return fenetre;
}

bool SectionDroitsVoisins::enEdition() const
{
    return m_etats->currentWidget() == m_formulaire;
}

} // namespace corvane::app
