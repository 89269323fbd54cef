#include "app/PanneauPreferencesSauvegardes.h"

#include "store/Sauvegardes.h"

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

QCheckBox* caseACocher(const QString& texte, const QString& nom, bool coche, QWidget* parent)
{
    auto* boite = new QCheckBox(texte, parent);
    boite->setObjectName(nom);
    boite->setChecked(coche);
    return boite;
}

} // namespace

PanneauPreferencesSauvegardes::PanneauPreferencesSauvegardes(Reglages& reglages, QWidget* parent)
    : QWidget(parent), m_reglages(reglages)
{
    setObjectName(QStringLiteral("panneauSauvegardes"));

    auto* nom = new QGroupBox(QStringLiteral("Nom proposé pour une copie de sauvegarde"), this);
    m_prefixe = caseACocher(QStringLiteral("Commencer par « Corvane »"), Reglages::nom(Cle::FichierSauvegardePrefixe),
                            m_reglages.booleen(Cle::FichierSauvegardePrefixe), nom);
    m_nom = caseACocher(QStringLiteral("Ajouter le nom de l'utilisateur"), Reglages::nom(Cle::FichierSauvegardeNom),
                        m_reglages.booleen(Cle::FichierSauvegardeNom), nom);
    m_date = caseACocher(QStringLiteral("Ajouter la date du jour"), Reglages::nom(Cle::FichierSauvegardeDate),
                         m_reglages.booleen(Cle::FichierSauvegardeDate), nom);
    m_formatDate = new QComboBox(nom);
    m_formatDate->setObjectName(Reglages::nom(Cle::SaveDateFormat));
    m_formatDate->addItem(QStringLiteral("année, mois, jour (aaaammjj)"));
    m_formatDate->addItem(QStringLiteral("jour, mois, année (jjmmaaaa)"));
    const int format = m_reglages.entier(Cle::SaveDateFormat);
    m_formatDate->setCurrentIndex(format == 1 ? 1 : 0);
    m_formatDate->setEnabled(m_date->isChecked());
    m_apercu = new QLabel(nom);
    m_apercu->setObjectName(QStringLiteral("apercuNomSauvegarde"));
    m_apercu->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* formulaireNom = new QFormLayout;
    formulaireNom->addRow(QStringLiteral("Présentation de la date :"), m_formatDate);
    formulaireNom->addRow(QStringLiteral("Exemple :"), m_apercu);
    auto* dispositionNom = new QVBoxLayout(nom);
    dispositionNom->addWidget(m_prefixe);
    dispositionNom->addWidget(m_nom);
    dispositionNom->addWidget(m_date);
    dispositionNom->addLayout(formulaireNom);

    auto* regulier = new QGroupBox(QStringLiteral("Sauvegarde régulière"), this);
    m_jours = new QSpinBox(regulier);
    m_jours->setObjectName(Reglages::nom(Cle::FichierSauvegardeJours));
    m_jours->setRange(1, 365);
    m_jours->setSuffix(QStringLiteral(" jours"));
    m_jours->setValue(m_reglages.entier(Cle::FichierSauvegardeJours));
    m_auto = caseACocher(QStringLiteral("Proposer la sauvegarde prévue au démarrage et en quittant"),
                         Reglages::nom(Cle::FichierSauvegardeAuto), m_reglages.booleen(Cle::FichierSauvegardeAuto),
                         regulier);
    auto* formulaireRegulier = new QFormLayout;
    formulaireRegulier->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    formulaireRegulier->addRow(QStringLiteral("Une sauvegarde tous les :"), m_jours);
    auto* dispositionRegulier = new QVBoxLayout(regulier);
    dispositionRegulier->addLayout(formulaireRegulier);
    dispositionRegulier->addWidget(m_auto);

    auto* disposition = new QVBoxLayout(this);
    disposition->addWidget(nom);
    disposition->addWidget(regulier);
    disposition->addStretch(1);
    majApercu();

    connect(m_prefixe, &QCheckBox::toggled, this, [this](bool c) { ecrire(Cle::FichierSauvegardePrefixe, c); });
    connect(m_nom, &QCheckBox::toggled, this, [this](bool c) { ecrire(Cle::FichierSauvegardeNom, c); });
    connect(m_date, &QCheckBox::toggled, this, [this](bool c) {
        m_formatDate->setEnabled(c);
        ecrire(Cle::FichierSauvegardeDate, c);
    });
    connect(m_formatDate, &QComboBox::currentIndexChanged, this,
            [this](int index) { ecrire(Cle::SaveDateFormat, index); });
    connect(m_jours, &QSpinBox::valueChanged, this, [this](int jours) { ecrire(Cle::FichierSauvegardeJours, jours); });
    connect(m_auto, &QCheckBox::toggled, this, [this](bool c) { ecrire(Cle::FichierSauvegardeAuto, c); });
}

void PanneauPreferencesSauvegardes::setFile(const QString& chemin)
{
    m_chemin = chemin;
    majApercu();
}

QString PanneauPreferencesSauvegardes::apercu() const
{
    return m_apercu->text();
}

void PanneauPreferencesSauvegardes::ecrire(Cle cle, const QVariant& valeur)
{
    m_reglages.ecrire(cle, valeur);
    m_reglages.synchroniser();
    majApercu();
    emit modifie();
}

void PanneauPreferencesSauvegardes::majApercu()
{
    // The same rule as the backup itself, from the settings as stored.
    const QString nom = Sauvegardes::constructionNomFichierSauvegarde(
        m_reglages.booleen(Cle::FichierSauvegardePrefixe), m_reglages.booleen(Cle::FichierSauvegardeNom),
        m_reglages.booleen(Cle::FichierSauvegardeDate), m_chemin, m_reglages.entier(Cle::SaveDateFormat));
    m_apercu->setText(m_chemin.isEmpty() ? nom : nom + QStringLiteral(".cv4"));
}

} // namespace corvane::app
