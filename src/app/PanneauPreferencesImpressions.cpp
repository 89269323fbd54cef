#include "app/PanneauPreferencesImpressions.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

namespace corvane::app {

using Cle = Reglages::Cle;

const QList<PanneauPreferencesImpressions::Groupe>& PanneauPreferencesImpressions::groupes()
{
    static const QList<Groupe> liste{
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

    for (const Groupe& g : groupes()) {
        auto* groupe = new QGroupBox(g.titre, this);
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
        disposition->addWidget(groupe);
    }
    disposition->addStretch(1);
}

} // namespace corvane::app
