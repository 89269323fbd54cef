#include "app/securite/SectionSecuriteSociale.h"

#include "app/securite/FormulaireSecuriteSociale.h"
#include "app/securite/ListeSecuriteSociale.h"

#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace corvane::app {

SectionSecuriteSociale::SectionSecuriteSociale(Environnement& environnement, QWidget* parent)
    : PageSection(Section::SecuriteSociale, parent)
{
    m_etats = new QStackedWidget(this);
    m_etats->setObjectName(QStringLiteral("etatsSecuriteSociale"));
    m_liste = new ListeSecuriteSociale(environnement, m_etats);
    m_liste->setObjectName(QStringLiteral("listeSecuriteSociale"));
    m_formulaire = new FormulaireSecuriteSociale(environnement, m_etats);
    m_formulaire->setObjectName(QStringLiteral("formulaireSecuriteSociale"));
    m_etats->addWidget(m_liste);
    m_etats->addWidget(m_formulaire);
    contenu()->addWidget(m_etats, 1);

    connect(m_liste, &ListeSecuriteSociale::nouveauDemande, this, &SectionSecuriteSociale::nouvellePeriode);
    connect(m_liste, &ListeSecuriteSociale::modificationDemandee, this, &SectionSecuriteSociale::modifierPeriode);
    connect(m_liste, &ListeSecuriteSociale::duplicationDemandee, this, &SectionSecuriteSociale::dupliquerPeriode);
    connect(m_formulaire, &FormulaireSecuriteSociale::termine, this, &SectionSecuriteSociale::afficherListe);
    // The list is read again as the form closes: the news of the save is old by then.
    connect(m_formulaire, &FormulaireSecuriteSociale::enregistre, this, &PageSection::ignorerProchainesModifications);
    // The list reads itself again after what it writes (a tick, a deletion, a date): that news is old.
    connect(m_liste, &ListeSecuriteSociale::ecrit, this, &PageSection::ignorerProchainesModifications);
}

QSet<QString> SectionSecuriteSociale::tablesLues() const
{
    // The list and its kinds, the rights (contracts), the remembered dates, and what the
    // reference period and the end of rights are made of.
    return {"securitesociale", "securitesocialetypes", "contrats", "utilisateur", "periodes", "datesPeriodesPreferees"};
}

void SectionSecuriteSociale::recharger()
{
    if (document() != m_documentAffiche) {
        m_documentAffiche = document();
        m_formulaire->setDocument(document());
        m_liste->setDocument(document());
        m_etats->setCurrentWidget(m_liste);
        return;
    }
    // A record being typed keeps what was typed; only its incidences follow. The list is read
    // again when the form closes.
    if (enEdition())
        m_formulaire->actualiserDroits();
    else
        m_liste->actualiser();
}

void SectionSecuriteSociale::afficherListe()
{
    m_etats->setCurrentWidget(m_liste);
    m_liste->actualiser();
    m_liste->table()->setFocus();
}

void SectionSecuriteSociale::nouvellePeriode()
{
    m_formulaire->nouveau();
    m_etats->setCurrentWidget(m_formulaire);
}

void SectionSecuriteSociale::modifierPeriode(int id)
{
    if (m_formulaire->modifier(id))
        m_etats->setCurrentWidget(m_formulaire);
}

void SectionSecuriteSociale::dupliquerPeriode(int id)
{
    if (m_formulaire->dupliquer(id))
        m_etats->setCurrentWidget(m_formulaire);
}

bool SectionSecuriteSociale::enEdition() const
{
    return m_etats->currentWidget() == m_formulaire;
}

} // namespace corvane::app
