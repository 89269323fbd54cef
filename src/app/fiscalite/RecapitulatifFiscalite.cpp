#include "app/fiscalite/RecapitulatifFiscalite.h"

#include "app/kit/GrilleValeurs.h"
#include "regimes/Fiscalite.h"
#include "store/FormatFrancais.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

GrilleValeurs* grille(QWidget* parent, const QString& nom)
{
    auto* g = new GrilleValeurs(parent);
    g->setObjectName(nom);
    return g;
}

} // namespace

RecapitulatifFiscalite::RecapitulatifFiscalite(QWidget* parent) : QWidget(parent)
{
    // Two columns: the declaration's lines and the mileage costs, then self-employment and the
    // neighbouring rights.
    auto* colonnes = new QHBoxLayout(this);
    auto* mise = new QVBoxLayout;
    auto* droite = new QVBoxLayout;
    colonnes->addLayout(mise, 1);
    colonnes->addSpacing(12);
    colonnes->addLayout(droite, 1);

    auto* declaration = new QGroupBox(QStringLiteral("Déclaration"), this);
    auto* miseDeclaration = new QVBoxLayout(declaration);
    m_resume = grille(declaration, QStringLiteral("resumeFiscalite"));
    miseDeclaration->addWidget(m_resume);
    mise->addWidget(declaration);

    auto* frais = new QGroupBox(QStringLiteral("Frais réels"), this);
    auto* miseFrais = new QVBoxLayout(frais);
    m_fraisReels = grille(frais, QStringLiteral("grilleFraisReels"));
    m_fraisReels->setToolTip(
        QStringLiteral("La distance parcourue au barème kilométrique du véhicule de votre profil"));
    miseFrais->addWidget(m_fraisReels);
    mise->addWidget(frais);
    mise->addStretch(1);

    auto* ae = new QGroupBox(QStringLiteral("Auto-entrepreneur"), this);
    auto* miseAe = new QVBoxLayout(ae);
    m_autoEntrepreneur = grille(ae, QStringLiteral("grilleAutoEntrepreneur"));
    miseAe->addWidget(m_autoEntrepreneur);
    auto* limite = new QHBoxLayout;
    m_limiter = new QCheckBox(QStringLiteral("Seulement :"), ae);
    m_limiter->setObjectName(QStringLiteral("caseLimiterAE"));
    m_limiter->setToolTip(QStringLiteral("Le chiffre d'affaires et les charges d'une partie de l'année seulement, "
                                         "pour une déclaration mensuelle ou trimestrielle"));
    m_periodeAE = new QComboBox(ae);
    m_periodeAE->setObjectName(QStringLiteral("periodeAE"));
    m_periodeAE->addItems(Fiscalite::periodesAE());
    limite->addWidget(m_limiter);
    limite->addWidget(m_periodeAE, 1);
    miseAe->addLayout(limite);
    m_charges = new QLabel(ae);
    m_charges->setObjectName(QStringLiteral("chargesAE"));
    m_charges->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont gras = m_charges->font();
    gras.setBold(true);
    m_charges->setFont(gras);
    m_charges->setToolTip(QStringLiteral("Selon la catégorie, l'activité et le versement libératoire choisis dans "
                                         "la fenêtre Auto-entrepreneur"));
    miseAe->addWidget(m_charges);
    m_site = new QPushButton(QStringLiteral("Déclarer en ligne…"), ae);
    m_site->setObjectName(QStringLiteral("boutonSiteAutoEntrepreneur"));
    m_site->setToolTip(QStringLiteral("Ouvre le site des déclarations d'auto-entrepreneur dans votre navigateur"));
    miseAe->addWidget(m_site, 0, Qt::AlignLeft);
    droite->addWidget(ae);

    auto* droits = new QGroupBox(QStringLiteral("Droits voisins"), this);
    auto* miseDroits = new QVBoxLayout(droits);
    m_droitsVoisins = grille(droits, QStringLiteral("grilleDroitsVoisins"));
    miseDroits->addWidget(m_droitsVoisins);
    droite->addWidget(droits);
    droite->addStretch(1);

    connect(m_limiter, &QCheckBox::toggled, m_periodeAE, &QWidget::setEnabled);
    m_periodeAE->setEnabled(false);
    afficher(nullptr);
}

void RecapitulatifFiscalite::afficher(const Fiscalite* f)
{
    if (!f) {
        for (GrilleValeurs* g : {m_resume, m_autoEntrepreneur, m_fraisReels, m_droitsVoisins})
            g->setLignes({});
        m_charges->clear();
        return;
    }
    m_resume->setLignes(f->resume);
    // Liberal activities (type 103) are in the taxable net but in none of these lines.
    m_autoEntrepreneur->setLignes({{QStringLiteral("Achat Revente"), enEuros(f->totalRevenusRevente)},
                                   {QStringLiteral("Commerciaux"), enEuros(f->totalRevenusCommerciaux)},
                                   {QStringLiteral("Non commerciaux"), enEuros(f->totalRevenusNonCommerciaux)}});
    m_charges->setText(QStringLiteral("Charges à payer : %1").arg(enEuros(f->chargesAE)));
    m_fraisReels->setLignes({{QStringLiteral("Frais réels (km)"), enEuros(f->fraisReels)}});
    QList<QPair<QString, QString>> droits;
    for (const auto& [organisme, montant] : f->droitsVoisins)
        droits << qMakePair(organisme, enEuros(montant));
    m_droitsVoisins->setLignes(droits);
}

} // namespace corvane::app
