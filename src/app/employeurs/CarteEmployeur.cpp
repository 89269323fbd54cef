#include "app/employeurs/CarteEmployeur.h"

#include "app/Environnement.h"
#include "app/VueCarte.h"
#include "exchange/PageCarte.h"
#include "records/Employeurs.h"

#include <QLabel>
#include <QVBoxLayout>

namespace corvane::app {

CarteEmployeur::CarteEmployeur(Environnement& environnement, QWidget* parent)
    : QWidget(parent), m_environnement(environnement)
{
    setObjectName(QStringLiteral("carteEmployeur"));
    auto* mise = new QVBoxLayout(this);
    m_adresse = new QLabel(this);
    m_adresse->setObjectName(QStringLiteral("adresseCarteEmployeur"));
    m_adresse->setWordWrap(true);
    m_adresse->setTextInteractionFlags(Qt::TextSelectableByMouse);
    mise->addWidget(m_adresse);
    m_vue = new VueCarte(this);
    mise->addWidget(m_vue, 1);
    vider();
}

void CarteEmployeur::afficher(const Employeur& employeur)
{
    const QString adresse = adressePostale(employeur.adresse, employeur.codePostal, employeur.commune);
    m_adresse->setText(employeur.id == 0 ? QStringLiteral("Choisissez un employeur dans la liste.")
                       : adresse.isEmpty()
                           ? QStringLiteral("L'adresse de %1 n'est pas renseignée.").arg(employeur.raisonSociale)
                           : adresse);
    const QString page = employeur.id == 0 ? QString()
                                           : pageAdresse(FournisseurCarte::depuis(m_environnement.reglages), adresse,
                                                         employeur.latitude, employeur.longitude);
    if (page == m_page)
        return;
    m_page = page;
    m_chargee = false;
    if (isVisible())
        charger();
}

void CarteEmployeur::vider()
{
    afficher(Employeur());
}

void CarteEmployeur::showEvent(QShowEvent* evenement)
{
    QWidget::showEvent(evenement);
    if (!m_chargee)
        charger();
}

void CarteEmployeur::charger()
{
    m_chargee = true;
    m_vue->afficher(m_page);
}

} // namespace corvane::app
