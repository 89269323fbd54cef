#include "app/SectionFichiers.h"

#include "store/Dates.h"

#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace corvane::app {

SectionFichiers::SectionFichiers(QWidget* parent) : PageSection(Section::Fichiers, parent)
{
    auto* explication =
        new QLabel(QStringLiteral("Les fichiers de travail que vous avez déjà ouverts avec Corvane."), this);
    contenu()->addWidget(explication);

    m_liste = new QTableWidget(0, 3, this);
    m_liste->setObjectName(QStringLiteral("listeFichiers"));
    m_liste->setHorizontalHeaderLabels(
        {QStringLiteral("Fichier"), QStringLiteral("Dossier"), QStringLiteral("Dernière modification")});
    m_liste->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_liste->setSelectionMode(QAbstractItemView::SingleSelection);
    m_liste->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_liste->verticalHeader()->hide();
    m_liste->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_liste->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    m_liste->horizontalHeader()->setSectionResizeMode(2, QHeaderView::ResizeToContents);
    contenu()->addWidget(m_liste, 1);

    auto* boutons = new QHBoxLayout;
    m_ouvrir = new QPushButton(QStringLiteral("Ouvrir"), this);
    m_ouvrir->setObjectName(QStringLiteral("boutonOuvrirConnu"));
    m_retirer = new QPushButton(QStringLiteral("Retirer de la liste"), this);
    m_retirer->setObjectName(QStringLiteral("boutonRetirer"));
    m_montrer = new QPushButton(QStringLiteral("Afficher dans le dossier"), this);
    m_montrer->setObjectName(QStringLiteral("boutonMontrer"));
    auto* nouveau = new QPushButton(QStringLiteral("Nouveau fichier…"), this);
    nouveau->setObjectName(QStringLiteral("boutonNouveau"));
    auto* autre = new QPushButton(QStringLiteral("Ouvrir un autre fichier…"), this);
    autre->setObjectName(QStringLiteral("boutonOuvrirAutre"));
    for (QPushButton* b : {m_ouvrir, m_retirer, m_montrer})
        boutons->addWidget(b);
    boutons->addStretch(1);
    boutons->addWidget(nouveau);
    boutons->addWidget(autre);
    contenu()->addLayout(boutons);

    auto* cadre = new QGroupBox(QStringLiteral("Copie de sauvegarde"), this);
    auto* miseCadre = new QHBoxLayout(cadre);
    m_derniereSauvegarde = new QLabel(cadre);
    m_derniereSauvegarde->setObjectName(QStringLiteral("derniereSauvegarde"));
    m_sauvegarder = new QPushButton(QStringLiteral("Faire une copie de sauvegarde…"), cadre);
    m_sauvegarder->setObjectName(QStringLiteral("boutonSauvegarder"));
    miseCadre->addWidget(m_derniereSauvegarde, 1);
    miseCadre->addWidget(m_sauvegarder);
    contenu()->addWidget(cadre);

    connect(m_liste, &QTableWidget::itemSelectionChanged, this, &SectionFichiers::majBoutons);
    connect(m_liste, &QTableWidget::cellDoubleClicked, this, [this] {
        if (!fichierSelectionne().isEmpty())
            emit ouvertureDemandee(fichierSelectionne());
    });
    connect(m_ouvrir, &QPushButton::clicked, this, [this] { emit ouvertureDemandee(fichierSelectionne()); });
    connect(m_retirer, &QPushButton::clicked, this, [this] { emit retraitDemande(fichierSelectionne()); });
    connect(m_montrer, &QPushButton::clicked, this,
            [this] { QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(fichierSelectionne()).absolutePath())); });
    connect(nouveau, &QPushButton::clicked, this, &SectionFichiers::nouveauDocumentDemande);
    connect(autre, &QPushButton::clicked, this, &SectionFichiers::autreDocumentDemande);
    connect(m_sauvegarder, &QPushButton::clicked, this, &SectionFichiers::sauvegardeDemandee);
    setDerniereSauvegarde(QDate());
    majBoutons();
}

void SectionFichiers::afficherFichiersConnus(const QStringList& chemins)
{
    m_liste->setRowCount(0);
    for (const QString& chemin : chemins) {
        const QFileInfo info(chemin);
        const int ligne = m_liste->rowCount();
        m_liste->insertRow(ligne);
        auto* nom = new QTableWidgetItem(info.fileName());
        nom->setData(Qt::UserRole, chemin);
        nom->setToolTip(QDir::toNativeSeparators(chemin));
        auto* dossier = new QTableWidgetItem(QDir::toNativeSeparators(info.absolutePath()));
        auto* modification =
            new QTableWidgetItem(info.exists() ? info.lastModified().toString(QStringLiteral("dd/MM/yyyy HH:mm"))
                                               : QStringLiteral("introuvable"));
        if (!info.exists()) {
            for (QTableWidgetItem* element : {nom, dossier, modification})
                element->setForeground(palette().color(QPalette::Disabled, QPalette::Text));
        }
        m_liste->setItem(ligne, 0, nom);
        m_liste->setItem(ligne, 1, dossier);
        m_liste->setItem(ligne, 2, modification);
    }
    majBoutons();
}

void SectionFichiers::setDerniereSauvegarde(const QDate& date)
{
    m_derniereSauvegarde->setText(date.isValid()
                                      ? QStringLiteral("Dernière sauvegarde : %1").arg(Dates::versAffichage(date))
                                      : QStringLiteral("Aucune copie de sauvegarde n'a encore été faite."));
}

void SectionFichiers::recharger()
{
    m_sauvegarder->setEnabled(document() != nullptr);
    if (!document())
        m_derniereSauvegarde->setText(QStringLiteral("Aucun fichier ouvert."));
}

QString SectionFichiers::fichierSelectionne() const
{
    const QList<QTableWidgetItem*> choix = m_liste->selectedItems();
    return choix.isEmpty() ? QString() : m_liste->item(choix.first()->row(), 0)->data(Qt::UserRole).toString();
}

void SectionFichiers::majBoutons()
{
    const QString chemin = fichierSelectionne();
    m_ouvrir->setEnabled(!chemin.isEmpty() && QFileInfo::exists(chemin));
    m_retirer->setEnabled(!chemin.isEmpty());
    m_montrer->setEnabled(!chemin.isEmpty() && QFileInfo::exists(chemin));
}

} // namespace corvane::app
