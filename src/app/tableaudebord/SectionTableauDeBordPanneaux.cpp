// The dashboard's panels, laid out once; SectionTableauDeBord.cpp fills them.

#include "app/tableaudebord/SectionTableauDeBord.h"

#include "app/Environnement.h"
#include "app/MemoireColonnes.h"
#include "app/tableaudebord/GraphiqueNets.h"
#include "app/tableaudebord/Jauges.h"
#include "app/tableaudebord/ModeleActivite.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QTableView>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace corvane::app {

using Cle = Reglages::Cle;

namespace {

QLabel* titreCarte(const QString& texte, QWidget* parent, bool retourALaLigne = false)
{
    auto* titre = new QLabel(texte, parent);
    titre->setWordWrap(retourALaLigne);
    QFont police = titre->font();
    police.setBold(true);
    police.setPointSizeF(police.pointSizeF() * 1.08);
    titre->setFont(police);
    return titre;
}

QLabel* texte(QWidget* parent, const QString& nom, bool retourALaLigne = false)
{
    auto* etiquette = new QLabel(parent);
    etiquette->setObjectName(nom);
    etiquette->setWordWrap(retourALaLigne);
    return etiquette;
}

} // namespace

SectionTableauDeBord::SectionTableauDeBord(Environnement& environnement, QWidget* parent)
    : PageSection(Section::TableauDeBord, parent), m_environnement(environnement)
{
    auto* entete = new QHBoxLayout;
    m_etendue = texte(this, QStringLiteral("etenduePeriode"));
    m_discrets << m_etendue;
    entete->addWidget(m_etendue);
    entete->addStretch(1);
    m_bloque = new QCheckBox(QStringLiteral("Limiter à la période en cours"), this);
    m_bloque->setObjectName(QStringLiteral("caseBloquePeriode"));
    m_bloque->setToolTip(QStringLiteral("Les chiffres de la période et la liste s'arrêtent à la fin de la période en "
                                        "cours plutôt qu'à aujourd'hui."));
    m_bloque->setChecked(m_environnement.reglages.booleen(Cle::TdbBloquePeriode));
    connect(m_bloque, &QCheckBox::toggled, this, [this](bool coche) {
        m_environnement.reglages.ecrire(Cle::TdbBloquePeriode, coche);
        perimer();
    });
    entete->addWidget(m_bloque);
    entete->addSpacing(12);
    ajouterBoutonsRapport(
        entete, this, m_environnement, [this] { return rapport(); }, QStringLiteral("TableauDeBord"));
    contenu()->addLayout(entete);

    contenu()->addWidget(construireStatistiques());
    auto* jauges = new QHBoxLayout;
    jauges->setSpacing(10);
    jauges->addWidget(construireHeures());
    jauges->addWidget(construireDroits(), 1);
    jauges->addWidget(construirePeriode());
    contenu()->addLayout(jauges);
    contenu()->addWidget(construireActivite(), 1);

    m_minuit = new QTimer(this);
    m_minuit->setObjectName(QStringLiteral("minuterieMinuit"));
    m_minuit->setSingleShot(true);
    m_minuit->setTimerType(Qt::VeryCoarseTimer);
    connect(m_minuit, &QTimer::timeout, this, [this] {
        if (Horloge::aujourdhui() != m_jour)
            perimer();
        if (!m_minuit->isActive())
            programmerMinuit();
    });
    majTri();
    vider();
}

QWidget* SectionTableauDeBord::construireStatistiques()
{
    auto* carte = new Carte(this);
    carte->setObjectName(QStringLiteral("carteStatistiques"));
    auto* grille = new QGridLayout(carte);
    grille->setHorizontalSpacing(14);
    grille->setVerticalSpacing(6);
    for (int c = 0; c < clesAffichees().size(); ++c) {
        auto* entete = new QLabel(clesAffichees()[c], carte);
        m_discrets << entete;
        entete->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grille->addWidget(entete, 0, c + 1);
        grille->setColumnStretch(c + 1, 1);
    }
    for (int r = 0; r < libellesStatistiques().size(); ++r) {
        auto* libelle = titreCarte(libellesStatistiques()[r], carte);
        grille->addWidget(libelle, r + 1, 0);
        for (int c = 0; c < clesAffichees().size(); ++c) {
            auto* valeur = new QLabel(carte);
            valeur->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            valeur->setTextInteractionFlags(Qt::TextSelectableByMouse);
            QFont police = valeur->font();
            police.setPointSizeF(police.pointSizeF() * 1.1);
            valeur->setFont(police);
            grille->addWidget(valeur, r + 1, c + 1);
            m_statistiques.insert(libellesStatistiques()[r] + QLatin1Char('/') + clesAffichees()[c], valeur);
        }
    }
    return carte;
}

QWidget* SectionTableauDeBord::construireHeures()
{
    auto* carte = new Carte(this);
    carte->setObjectName(QStringLiteral("carteHeures"));
    auto* mise = new QHBoxLayout(carte);
    m_jaugeHeures = new JaugeCirculaire(carte);
    m_jaugeHeures->setObjectName(QStringLiteral("jaugeHeures"));
    mise->addWidget(m_jaugeHeures);
    auto* textes = new QVBoxLayout;
    textes->addWidget(titreCarte(QStringLiteral("Heures"), carte, true));
    m_etatHeures = texte(carte, QStringLiteral("etatHeures"), true);
    m_etatHeures->setMinimumWidth(130);
    textes->addWidget(m_etatHeures);
    textes->addStretch(1);
    mise->addLayout(textes, 1);
    carte->setMaximumWidth(300);
    return carte;
}

QWidget* SectionTableauDeBord::construireDroits()
{
    auto* carte = new Carte(this);
    carte->setObjectName(QStringLiteral("carteDroits"));
    auto* mise = new QVBoxLayout(carte);
    mise->addWidget(titreCarte(QStringLiteral("Droits à l'ARE"), carte));
    mise->addStretch(1);
    auto* dates = new QHBoxLayout;
    m_ouverture = texte(carte, QStringLiteral("ouvertureDroits"), true);
    m_finDroits = texte(carte, QStringLiteral("finDroits"), true);
    m_finDroits->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    dates->addWidget(m_ouverture, 1);
    dates->addWidget(m_finDroits, 1);
    mise->addLayout(dates);
    m_barreDroits = new BarreDroits(carte);
    m_barreDroits->setObjectName(QStringLiteral("barreDroits"));
    mise->addWidget(m_barreDroits);
    auto* jours = new QHBoxLayout;
    m_allocations = texte(carte, QStringLiteral("joursAllocations"), true);
    m_restants = texte(carte, QStringLiteral("joursRestants"), true);
    m_restants->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QFont gras = m_restants->font();
    gras.setBold(true);
    m_restants->setFont(gras);
    jours->addWidget(m_allocations, 1);
    jours->addWidget(m_restants, 1);
    mise->addLayout(jours);
    mise->addStretch(1);
    return carte;
}

QWidget* SectionTableauDeBord::construirePeriode()
{
    auto* carte = new Carte(this);
    carte->setObjectName(QStringLiteral("cartePeriode"));
    auto* mise = new QHBoxLayout(carte);
    m_jaugePeriode = new JaugeCirculaire(carte);
    m_jaugePeriode->setObjectName(QStringLiteral("jaugePeriode"));
    mise->addWidget(m_jaugePeriode);
    auto* textes = new QVBoxLayout;
    textes->addWidget(titreCarte(QStringLiteral("Période de référence"), carte, true));
    m_allongement = texte(carte, QStringLiteral("allongementPeriode"), true);
    m_allongement->setMinimumWidth(130);
    textes->addWidget(m_allongement);
    textes->addStretch(1);
    mise->addLayout(textes, 1);
    carte->setMaximumWidth(300);
    return carte;
}

QWidget* SectionTableauDeBord::construireActivite()
{
    auto* partage = new QSplitter(Qt::Horizontal, this);
    partage->setObjectName(QStringLiteral("partageActivite"));
    partage->setChildrenCollapsible(false);

    auto* liste = new Carte(partage);
    auto* mise = new QVBoxLayout(liste);
    auto* entete = new QHBoxLayout;
    entete->addWidget(titreCarte(QStringLiteral("Contrats et arrêts de la période"), liste));
    entete->addStretch(1);
    m_tri = new QToolButton(liste);
    m_tri->setObjectName(QStringLiteral("boutonTriTableauDeBord"));
    m_tri->setAutoRaise(true);
    m_tri->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    connect(m_tri, &QToolButton::clicked, this, [this] {
        const bool ancien = m_environnement.reglages.texte(Cle::TdbSens) == QStringLiteral("DESC");
        m_environnement.reglages.ecrire(Cle::TdbSens, ancien ? QStringLiteral("ASC") : QStringLiteral("DESC"));
        majTri();
        perimer();
    });
    entete->addWidget(m_tri);
    mise->addLayout(entete);
    m_modele = new ModeleActivite(this);
    m_table = new QTableView(liste);
    m_table->setObjectName(QStringLiteral("tableActivite"));
    m_table->setModel(m_modele);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setAlternatingRowColors(true);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setWordWrap(false);
    m_table->setTextElideMode(Qt::ElideRight);
    m_table->setFrameShape(QFrame::NoFrame);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 8);
    m_table->horizontalHeader()->setStretchLastSection(true);
    memoriserColonnes(m_table, m_environnement.reglages, Cle::TdbColonnes);
    mise->addWidget(m_table, 1);

    auto* graphique = new Carte(partage);
    auto* miseGraphique = new QVBoxLayout(graphique);
    m_titreGraphique = titreCarte(QString(), graphique);
    // As tall as the list's title row, which holds the sort button.
    m_titreGraphique->setMinimumHeight(m_tri->sizeHint().height());
    miseGraphique->addWidget(m_titreGraphique);
    m_graphique = new GraphiqueNets(graphique);
    m_graphique->setObjectName(QStringLiteral("graphiqueNets"));
    m_graphique->setFrameShape(QFrame::NoFrame);
    miseGraphique->addWidget(m_graphique, 1);

    partage->addWidget(liste);
    partage->addWidget(graphique);
    partage->setStretchFactor(0, 3);
    partage->setStretchFactor(1, 2);
    return partage;
}

} // namespace corvane::app
