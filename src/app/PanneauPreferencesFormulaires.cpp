#include "app/PanneauPreferencesFormulaires.h"

#include "manager/FormulairesOfficiels.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvane::app {

using Cle = Reglages::Cle;

namespace {

// Each form's file, ticked when the folder holds it.
QString etatDesFormulaires(const QString& dossier)
{
    QStringList lignes;
    for (const FormulaireOfficiel& f : FormulairesOfficiels::tous()) {
        const QString chemin = FormulairesOfficiels::chemin(dossier, f);
        const bool present = !chemin.isEmpty() && QFileInfo(chemin).isFile();
        lignes << QStringLiteral("%1 %2 — %3")
                      .arg(present ? QStringLiteral("✓") : QStringLiteral("✗"), f.nom + QStringLiteral(".pdf"), f.menu);
    }
    return lignes.join(QLatin1Char('\n'));
}

} // namespace

PanneauPreferencesFormulaires::PanneauPreferencesFormulaires(Reglages& reglages, QWidget* parent)
    : QWidget(parent), m_reglages(reglages)
{
    setObjectName(QStringLiteral("panneauFormulaires"));
    m_choixDossier = [this](const QString& titre, const QString& dossier) {
        return QFileDialog::getExistingDirectory(this, titre, dossier);
    };
    auto* disposition = new QVBoxLayout(this);
    auto* explication = new QLabel(
        QStringLiteral("Le menu PDF des propositions et des événements ouvre les formulaires officiels que vous "
                       "enregistrez dans ce dossier, tels que l'administration et les syndicats les publient. "
                       "Chacun y porte le nom indiqué ci-dessous."),
        this);
    explication->setWordWrap(true);
    disposition->addWidget(explication);
    m_dossier = new QLineEdit(m_reglages.texte(Cle::FormulairesOfficielsDossier), this);
    m_dossier->setObjectName(Reglages::nom(Cle::FormulairesOfficielsDossier));
    m_dossier->setMinimumWidth(260);
    auto* choisir = new QPushButton(QStringLiteral("Choisir…"), this);
    choisir->setObjectName(QStringLiteral("boutonChoisirFormulaires"));
    auto* ligne = new QHBoxLayout;
    ligne->addWidget(m_dossier, 1);
    ligne->addWidget(choisir);
    disposition->addLayout(ligne);
    m_erreur = new QLabel(this);
    m_erreur->setObjectName(QStringLiteral("erreurFormulaires"));
    m_erreur->setWordWrap(true);
    m_erreur->setStyleSheet(QStringLiteral("color: #c01c28;"));
    m_erreur->hide();
    disposition->addWidget(m_erreur);
    m_presents = new QLabel(etatDesFormulaires(m_dossier->text()), this);
    m_presents->setObjectName(QStringLiteral("etatFormulaires"));
    disposition->addWidget(m_presents);
    disposition->addStretch(1);

    connect(choisir, &QPushButton::clicked, this, [this] {
        const QString actuel = m_reglages.texte(Cle::FormulairesOfficielsDossier);
        const QString choisi = m_choixDossier(QStringLiteral("Choisir le dossier des formulaires officiels"),
                                              QFileInfo(actuel).isDir() ? actuel : QDir::homePath());
        if (!choisi.isEmpty())
            choisirDossier(choisi);
    });
    connect(m_dossier, &QLineEdit::editingFinished, this, [this] {
        if (m_dossier->text() != m_reglages.texte(Cle::FormulairesOfficielsDossier) || m_erreur->isVisible())
            choisirDossier(m_dossier->text());
    });
}

bool PanneauPreferencesFormulaires::choisirDossier(const QString& dossier)
{
    const QString chemin = dossier.trimmed();
    if (!chemin.isEmpty() && !QFileInfo(chemin).isDir()) {
        m_erreur->setText(QStringLiteral("Le dossier « %1 » n'existe pas : choisissez un dossier existant.")
                              .arg(QDir::toNativeSeparators(chemin)));
        m_erreur->show();
        return false;
    }
    m_erreur->hide();
    const QString absolu = chemin.isEmpty() ? QString() : QDir::cleanPath(QFileInfo(chemin).absoluteFilePath());
    m_dossier->setText(absolu);
    m_presents->setText(etatDesFormulaires(absolu));
    if (absolu != m_reglages.texte(Cle::FormulairesOfficielsDossier)) {
        m_reglages.ecrire(Cle::FormulairesOfficielsDossier, absolu);
        m_reglages.synchroniser();
        emit modifie();
    }
    return true;
}

} // namespace corvane::app
