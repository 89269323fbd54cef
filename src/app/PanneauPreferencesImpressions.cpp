#include "app/PanneauPreferencesImpressions.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

namespace corvane::app {

using Cle = Reglages::Cle;

const QList<PanneauPreferencesImpressions::Groupe>& PanneauPreferencesImpressions::groupes()
{
    static const QList<Groupe> liste{
        {QStringLiteral("Tableau de bord"),
         {{Cle::TdbImpressionsCompteRendu, QStringLiteral("Compte rendu de la période")},
          {Cle::TdbImpressionsJourJ, QStringLiteral("Situation au jour de l'impression")},
          {Cle::TdbImpressionsListeContrats, QStringLiteral("Activité détaillée sur la période")},
          {Cle::TdbImpressionsJoursHeures, QStringLiteral("Jours et heures de chaque ligne")}}},
        {QStringLiteral("Relevé d'informations"),
         {{Cle::ProfilImpressionsPhoto, QStringLiteral("Photo")},
          {Cle::ProfilImpressionsEtatCivil, QStringLiteral("État civil")},
          {Cle::ProfilImpressionsPersonnelles, QStringLiteral("Informations personnelles")},
          {Cle::ProfilImpressionsAdministratives, QStringLiteral("Coordonnées administratives")},
          {Cle::ProfilImpressionsAe, QStringLiteral("Auto-entrepreneur")},
          {Cle::ProfilImpressionsRib, QStringLiteral("Relevé d'identité bancaire")}}},
        {QStringLiteral("Employeurs"),
         {{Cle::EmployeursImpressionsListe, QStringLiteral("Liste des employeurs")},
          {Cle::EmployeursImpressionsCumuls, QStringLiteral("Cumuls par employeur")}}},
        {QStringLiteral("Contrats"), {{Cle::ContratsImpressionsListe, QStringLiteral("Liste des contrats")}}},
        {QStringLiteral("Sécurité Sociale"),
         {{Cle::SecuriteSocialeImpressionsVerificationDroits, QStringLiteral("Vérification des droits")},
          {Cle::SecuriteSocialeImpressionsListePeriodes, QStringLiteral("Liste de toutes les périodes")}}},
        {QStringLiteral("Pôle Emploi"),
         {{Cle::PoleEmploiImpressionsCompteRendu, QStringLiteral("Compte rendu")},
          {Cle::PoleEmploiImpressionsAllocations, QStringLiteral("Allocation journalière")},
          {Cle::PoleEmploiImpressionsPeriode, QStringLiteral("Période analysée")},
          {Cle::PoleEmploiImpressionsHeures, QStringLiteral("Heures par emploi")}}},
        {QStringLiteral("Congés Spectacles"),
         {{Cle::CongesImpressionsCompteRendu, QStringLiteral("Compte rendu")},
          {Cle::CongesImpressionsListeContrats, QStringLiteral("Liste des contrats")}}},
        {QStringLiteral("Fiscalité"),
         {{Cle::FiscaliteImpressionsCompteRendu, QStringLiteral("Compte rendu")},
          {Cle::FiscaliteImpressionsTotauxParEmployeurs, QStringLiteral("Cumuls par employeur")},
          {Cle::FiscaliteImpressionsListeContrats, QStringLiteral("Liste des contrats")}}},
        {QStringLiteral("Frais"),
         {{Cle::FraisImpressionsListe, QStringLiteral("Liste des frais")},
          {Cle::FraisImpressionsCategories, QStringLiteral("Totaux par catégorie")}}},
        {QStringLiteral("Droits voisins"),
         {{Cle::DroitsVoisinsImpressionsCompteRendu, QStringLiteral("Compte rendu")},
          {Cle::DroitsVoisinsImpressionsListeVersements, QStringLiteral("Liste des versements")}}},
    };
    return liste;
}

PanneauPreferencesImpressions::PanneauPreferencesImpressions(Reglages& reglages, QWidget* parent)
    : QWidget(parent), m_reglages(reglages)
{
    setObjectName(QStringLiteral("panneauImpressions"));
    auto* disposition = new QVBoxLayout(this);
    auto* explication = new QLabel(QStringLiteral("Parties imprimées et exportées en PDF :"), this);
    explication->setWordWrap(true);
    disposition->addWidget(explication);

    // One group per report, two groups a row, so that the pane stays short as reports are added.
    auto* grille = new QGridLayout;
    grille->setHorizontalSpacing(12);
    grille->setVerticalSpacing(8);
    disposition->addLayout(grille);
    int rang = 0;
    for (const Groupe& g : groupes()) {
        auto* groupe = new QGroupBox(g.titre, this);
        groupe->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
        auto* cases = new QVBoxLayout(groupe);
        for (const Interrupteur& i : g.interrupteurs) {
            auto* boite = new QCheckBox(i.libelle, groupe);
            boite->setObjectName(Reglages::nom(i.cle));
            boite->setChecked(m_reglages.booleen(i.cle));
            const Cle cle = i.cle;
            connect(boite, &QCheckBox::toggled, this, [this, cle](bool coche) {
                m_reglages.ecrire(cle, coche);
                m_reglages.synchroniser();
                emit modifie();
            });
            cases->addWidget(boite);
        }
        cases->addStretch(1);
        grille->addWidget(groupe, rang / 2, rang % 2, Qt::AlignTop);
        ++rang;
    }
    disposition->addStretch(1);
}

} // namespace corvane::app
