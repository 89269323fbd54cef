#include "app/PanneauPreferencesGeneral.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvane::app {

using Cle = Reglages::Cle;

PanneauPreferencesGeneral::PanneauPreferencesGeneral(Reglages& reglages, QWidget* parent)
    : QWidget(parent), m_reglages(reglages)
{
    setObjectName(QStringLiteral("panneauGeneral"));
    m_choixDossier = [this](const QString& titre, const QString& dossier) {
        return QFileDialog::getExistingDirectory(this, titre, dossier);
    };

    auto* stockage = new QGroupBox(QStringLiteral("Dossier de stockage"), this);
    auto* explication =
        new QLabel(QStringLiteral("Le dossier où Corvane propose d'enregistrer vos nouveaux documents."), stockage);
    explication->setWordWrap(true);
    m_stockage = new QLineEdit(m_reglages.texte(Cle::PrefsStockage), stockage);
    m_stockage->setObjectName(QStringLiteral("prefsStockage"));
    m_stockage->setMinimumWidth(260);
    auto* choisir = new QPushButton(QStringLiteral("Choisir…"), stockage);
    choisir->setObjectName(QStringLiteral("boutonChoisirStockage"));
    m_erreurStockage = new QLabel(stockage);
    m_erreurStockage->setObjectName(QStringLiteral("erreurStockage"));
    m_erreurStockage->setWordWrap(true);
    m_erreurStockage->setStyleSheet(QStringLiteral("color: #c01c28;"));
    m_erreurStockage->hide();
    auto* ligne = new QHBoxLayout;
    ligne->addWidget(m_stockage, 1);
    ligne->addWidget(choisir);
    auto* dispositionStockage = new QVBoxLayout(stockage);
    dispositionStockage->addWidget(explication);
    dispositionStockage->addLayout(ligne);
    dispositionStockage->addWidget(m_erreurStockage);

    auto* demarrage = new QGroupBox(QStringLiteral("Au démarrage"), this);
    m_demarrage = new QCheckBox(QStringLiteral("Ouvrir le dernier document utilisé"), demarrage);
    m_demarrage->setObjectName(QStringLiteral("prefsDemarrage"));
    m_demarrage->setChecked(m_reglages.entier(Cle::PrefsDemarrage) == 1);
    m_derniereSection = new QCheckBox(QStringLiteral("Afficher la dernière section consultée"), demarrage);
    m_derniereSection->setObjectName(QStringLiteral("OpenLastTab"));
    m_derniereSection->setChecked(m_reglages.booleen(Cle::OpenLastTab));
    m_assistant = new QCheckBox(
        QStringLiteral("Proposer l'assistant de création de document quand aucun document n'est ouvert"), demarrage);
    m_assistant->setObjectName(QStringLiteral("ShowAssistant"));
    m_assistant->setChecked(m_reglages.booleen(Cle::ShowAssistant));
    auto* dispositionDemarrage = new QVBoxLayout(demarrage);
    dispositionDemarrage->addWidget(m_demarrage);
    dispositionDemarrage->addWidget(m_derniereSection);
    dispositionDemarrage->addWidget(m_assistant);

    m_apparence = new QComboBox(this);
    m_apparence->setObjectName(QStringLiteral("Apparence"));
    m_apparence->addItem(QStringLiteral("Claire"), QStringLiteral("clair"));
    m_apparence->addItem(QStringLiteral("Sombre"), QStringLiteral("sombre"));
    m_apparence->addItem(QStringLiteral("Celle du système"), QStringLiteral("systeme"));
    const int apparence = m_apparence->findData(m_reglages.texte(Cle::Apparence));
    m_apparence->setCurrentIndex(apparence < 0 ? 2 : apparence);
    auto* formulaire = new QFormLayout;
    formulaire->addRow(QStringLiteral("Apparence :"), m_apparence);

    auto* disposition = new QVBoxLayout(this);
    disposition->addWidget(stockage);
    disposition->addWidget(demarrage);
    disposition->addLayout(formulaire);
    disposition->addStretch(1);

    // Connected after the values are shown, so that showing them writes nothing.
    connect(choisir, &QPushButton::clicked, this, &PanneauPreferencesGeneral::choisirDossier);
    connect(m_stockage, &QLineEdit::editingFinished, this, [this] {
        if (m_stockage->text() != m_reglages.texte(Cle::PrefsStockage) || m_erreurStockage->isVisible())
            choisirStockage(m_stockage->text());
    });
    // "prefsDemarrage" and "ShowAssistant" are read as numbers, "OpenLastTab" as a switch.
    connect(m_demarrage, &QCheckBox::toggled, this, [this](bool coche) { ecrire(Cle::PrefsDemarrage, coche ? 1 : 0); });
    connect(m_derniereSection, &QCheckBox::toggled, this, [this](bool coche) { ecrire(Cle::OpenLastTab, coche); });
    connect(m_assistant, &QCheckBox::toggled, this, [this](bool coche) { ecrire(Cle::ShowAssistant, coche ? 1 : 0); });
    connect(m_apparence, &QComboBox::currentIndexChanged, this,
            [this] { ecrire(Cle::Apparence, m_apparence->currentData()); });
}

bool PanneauPreferencesGeneral::choisirStockage(const QString& dossier)
{
    const QString chemin = dossier.trimmed();
    if (chemin.isEmpty() || !QFileInfo(chemin).isDir()) {
        m_erreurStockage->setText(
            chemin.isEmpty() ? QStringLiteral("Indiquez un dossier existant.")
                             : QStringLiteral("Le dossier « %1 » n'existe pas : choisissez un dossier existant.")
                                   .arg(QDir::toNativeSeparators(chemin)));
        m_erreurStockage->show();
        return false;
    }
    m_erreurStockage->hide();
    const QString absolu = QDir::cleanPath(QFileInfo(chemin).absoluteFilePath());
    m_stockage->setText(absolu);
    if (absolu != m_reglages.texte(Cle::PrefsStockage))
        ecrire(Cle::PrefsStockage, absolu);
    return true;
}

void PanneauPreferencesGeneral::choisirDossier()
{
    const QString actuel = m_reglages.texte(Cle::PrefsStockage);
    const QString choisi = m_choixDossier(QStringLiteral("Choisir le dossier de stockage"),
                                          QFileInfo(actuel).isDir() ? actuel : QDir::homePath());
    if (!choisi.isEmpty())
        choisirStockage(choisi);
}

void PanneauPreferencesGeneral::ecrire(Cle cle, const QVariant& valeur)
{
    m_reglages.ecrire(cle, valeur);
    m_reglages.synchroniser();
    emit modifie();
}

} // namespace corvane::app
