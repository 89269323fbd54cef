#include "app/csv/FenetreExportCsv.h"

#include "app/Environnement.h"
#include "exchange/ExportCsv.h"
#include "store/Dialogues.h"
#include "store/Document.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

namespace corvane::app {

FenetreExportCsv::FenetreExportCsv(Environnement& environnement, Document& document, QWidget* parent)
    : QDialog(parent), m_environnement(environnement), m_document(document)
{
    setObjectName(QStringLiteral("fenetreExportCsv"));
    setWindowTitle(ExportCsv::titre());
    auto* mise = new QVBoxLayout(this);
    auto* forme = new QFormLayout;

    m_source = new QComboBox(this);
    m_source->setObjectName(QStringLiteral("listeSourcesCsv"));
    m_source->addItems(ExportCsv::sources());
    forme->addRow(QStringLiteral("&Données :"), m_source);

    m_entetes = new QCheckBox(QStringLiteral("Écrire le nom des colonnes sur la première ligne"), this);
    m_entetes->setObjectName(QStringLiteral("caseEntetesCsv"));
    m_entetes->setChecked(true);
    forme->addRow(QString(), m_entetes);

    auto* ligneDossier = new QHBoxLayout;
    m_dossier = new QLineEdit(
        QDir::toNativeSeparators(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)), this);
    m_dossier->setObjectName(QStringLiteral("champDossierCsv"));
    auto* choisir = new QPushButton(QStringLiteral("Choisir…"), this);
    choisir->setObjectName(QStringLiteral("boutonDossierCsv"));
    choisir->setAutoDefault(false);
    ligneDossier->addWidget(m_dossier, 1);
    ligneDossier->addWidget(choisir);
    forme->addRow(QStringLiteral("Dossier :"), ligneDossier);
    mise->addLayout(forme);
    mise->addStretch(1);

    auto* boutons = new QHBoxLayout;
    auto* annuler = new QPushButton(QStringLiteral("Annuler"), this);
    annuler->setObjectName(QStringLiteral("boutonAnnulerExportCsv"));
    annuler->setAutoDefault(false);
    auto* exporter = new QPushButton(QStringLiteral("Exporter"), this);
    exporter->setObjectName(QStringLiteral("boutonExporterCsv"));
    exporter->setDefault(true);
    boutons->addStretch(1);
    boutons->addWidget(annuler);
    boutons->addWidget(exporter);
    mise->addLayout(boutons);

    connect(choisir, &QPushButton::clicked, this, &FenetreExportCsv::choisirDossier);
    connect(annuler, &QPushButton::clicked, this, &QDialog::reject);
    connect(exporter, &QPushButton::clicked, this, &FenetreExportCsv::exporter);
    resize(520, 180);
}

void FenetreExportCsv::choisirDossier()
{
    const QString dossier =
        QFileDialog::getExistingDirectory(this, QStringLiteral("Dossier de l'export"), m_dossier->text());
    if (!dossier.isEmpty())
        m_dossier->setText(QDir::toNativeSeparators(dossier));
}

bool FenetreExportCsv::exporter()
{
    const QString dossier = QDir::fromNativeSeparators(m_dossier->text().trimmed());
    if (dossier.isEmpty()) {
        m_environnement.dialogues.information(ExportCsv::titre(),
                                              QStringLiteral("Veuillez choisir le dossier où écrire le fichier."),
                                              QStringLiteral("Fermer"));
        return false;
    }
    const ResultatExportCsv resultat =
        ExportCsv(m_document.base()).exporter(m_source->currentText(), dossier, m_entetes->isChecked());
    if (!resultat.reussi()) {
        m_environnement.dialogues.information(ExportCsv::titre(), resultat.erreur, QStringLiteral("Fermer"));
        return false;
    }
    m_environnement.dialogues.information(
        ExportCsv::titre(),
        QStringLiteral("%1 %2 dans le fichier « %3 ».")
            .arg(resultat.lignes)
            .arg(resultat.lignes > 1 ? QStringLiteral("lignes exportées") : QStringLiteral("ligne exportée"),
                 QDir::toNativeSeparators(resultat.fichier)),
        QStringLiteral("Fermer"));
    accept();
    return true;
}

} // namespace corvane::app
