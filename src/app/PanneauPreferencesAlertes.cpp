#include "app/PanneauPreferencesAlertes.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

namespace corvane::app {

using Cle = Reglages::Cle;

namespace {

QSpinBox* jourDuMois(const QString& nom, int valeur, QWidget* parent)
{
    auto* jour = new QSpinBox(parent);
    jour->setObjectName(nom);
    jour->setRange(1, 31);
    jour->setValue(valeur);
    return jour;
}

} // namespace

const QStringList& PanneauPreferencesAlertes::delaisContrats()
{
    static const QStringList delais{QStringLiteral("7 jours"), QStringLiteral("15 jours"), QStringLiteral("1 mois"),
                                    QStringLiteral("2 mois")};
    return delais;
}

PanneauPreferencesAlertes::PanneauPreferencesAlertes(Reglages& reglages, QWidget* parent)
    : QWidget(parent), m_reglages(reglages)
{
    setObjectName(QStringLiteral("panneauAlertes"));

    m_activer = new QCheckBox(QStringLiteral("Activer les alertes"), this);
    m_activer->setObjectName(Reglages::nom(Cle::ActiverAlertes));
    m_activer->setChecked(m_reglages.booleen(Cle::ActiverAlertes));

    auto* actualisation = new QGroupBox(QStringLiteral("Actualisation mensuelle"), this);
    auto* explication = new QLabel(QStringLiteral("Le rappel de l'actualisation s'affiche à partir du premier jour "
                                                  "indiqué jusqu'au second jour du mois suivant."),
                                   actualisation);
    explication->setWordWrap(true);
    m_debut = jourDuMois(Reglages::nom(Cle::AlerteActualisationDebut), m_reglages.entier(Cle::AlerteActualisationDebut),
                         actualisation);
    m_fin = jourDuMois(Reglages::nom(Cle::AlerteActualisationFin), m_reglages.entier(Cle::AlerteActualisationFin),
                       actualisation);
    auto* formulaireActualisation = new QFormLayout;
    formulaireActualisation->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    formulaireActualisation->addRow(QStringLiteral("À partir du jour :"), m_debut);
    formulaireActualisation->addRow(QStringLiteral("Jusqu'au jour (mois suivant) :"), m_fin);
    auto* dispositionActualisation = new QVBoxLayout(actualisation);
    dispositionActualisation->addWidget(explication);
    dispositionActualisation->addLayout(formulaireActualisation);

    auto* contrats = new QGroupBox(QStringLiteral("Contrats non payés"), this);
    m_delai = new QComboBox(contrats);
    m_delai->setObjectName(Reglages::nom(Cle::ContractsAlertRate));
    m_delai->addItems(delaisContrats());
    // Any other stored value counts as the first delay, as the alert itself does.
    const int delai = m_reglages.entier(Cle::ContractsAlertRate);
    m_delai->setCurrentIndex(delai >= 0 && delai < delaisContrats().size() ? delai : 0);
    auto* formulaireContrats = new QFormLayout(contrats);
    formulaireContrats->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    formulaireContrats->addRow(QStringLiteral("Signaler un contrat non payé après :"), m_delai);

    auto* disposition = new QVBoxLayout(this);
    disposition->addWidget(m_activer);
    disposition->addWidget(actualisation);
    disposition->addWidget(contrats);
    disposition->addStretch(1);

    const auto activer = [actualisation, contrats](bool actif) {
        actualisation->setEnabled(actif);
        contrats->setEnabled(actif);
    };
    activer(m_activer->isChecked());

    connect(m_activer, &QCheckBox::toggled, this, [this, activer](bool coche) {
        activer(coche);
        ecrire(Cle::ActiverAlertes, coche);
    });
    connect(m_debut, &QSpinBox::valueChanged, this, [this](int jour) { ecrire(Cle::AlerteActualisationDebut, jour); });
    connect(m_fin, &QSpinBox::valueChanged, this, [this](int jour) { ecrire(Cle::AlerteActualisationFin, jour); });
    connect(m_delai, &QComboBox::currentIndexChanged, this,
            [this](int index) { ecrire(Cle::ContractsAlertRate, index); });
}

void PanneauPreferencesAlertes::ecrire(Cle cle, const QVariant& valeur)
{
    m_reglages.ecrire(cle, valeur);
    m_reglages.synchroniser();
    emit modifie();
}

} // namespace corvane::app
