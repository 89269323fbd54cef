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
#include <QStackedWidget>
#include <QTableWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace corvane::app {

SectionFichiers::SectionFichiers(QWidget* parent) : PageSection(Section::Fichiers, parent)
{
    m_pages = new QStackedWidget(this);
    m_pages->setObjectName(QStringLiteral("pagesFichiers"));
    m_pages->addWidget(construireAccueil());
    auto* pageListe = new QWidget(m_pages);
    auto* miseListe = new QVBoxLayout(pageListe);
    miseListe->setContentsMargins(0, 0, 0, 0);
    miseListe->addWidget(
        new QLabel(QStringLiteral("Les fichiers de travail que vous avez déjà ouverts avec Corvane."), pageListe));
    m_pages->addWidget(pageListe);
    contenu()->addWidget(m_pages, 1);

    m_liste = new QTableWidget(0, 3, pageListe);
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
    miseListe->addWidget(m_liste, 1);

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
    miseListe->addLayout(boutons);

    auto* cadre = m_cadreSauvegarde = new QGroupBox(QStringLiteral("Copie de sauvegarde"), this);
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

QWidget* SectionFichiers::construireAccueil()
{
    auto* accueil = new QWidget(this);
    accueil->setObjectName(QStringLiteral("accueilFichiers"));
    auto* mise = new QVBoxLayout(accueil);
    mise->addStretch(1);
    auto* titre = new QLabel(QStringLiteral("Bienvenue dans Corvane"), accueil);
    QFont police = titre->font();
    police.setPointSizeF(police.pointSizeF() * 1.5);
    police.setBold(true);
    titre->setFont(police);
    titre->setAlignment(Qt::AlignCenter);
    auto* texte = new QLabel(
        QStringLiteral("Corvane garde toute votre activité dans un seul fichier de travail : vos employeurs, vos "
                       "contrats, vos périodes. Il l'enregistre à chaque modification, sans que vous ayez à y penser."
                       "\n\nPour commencer, créez votre fichier : un assistant vous demande votre nom, votre emploi "
                       "et la date d'ouverture de vos droits. Si vous avez déjà un fichier Corvane, ouvrez-le."),
        accueil);
    texte->setWordWrap(true);
    texte->setAlignment(Qt::AlignCenter);
    texte->setFixedWidth(560);
    auto* creer = new QPushButton(QStringLiteral("Créer mon fichier de travail…"), accueil);
    creer->setObjectName(QStringLiteral("boutonAccueilNouveau"));
    creer->setDefault(true);
    auto* ouvrir = new QPushButton(QStringLiteral("Ouvrir un fichier existant…"), accueil);
    ouvrir->setObjectName(QStringLiteral("boutonAccueilOuvrir"));
    connect(creer, &QPushButton::clicked, this, &SectionFichiers::nouveauDocumentDemande);
    connect(ouvrir, &QPushButton::clicked, this, &SectionFichiers::autreDocumentDemande);
    auto* boutons = new QHBoxLayout;
    boutons->addStretch(1);
    boutons->addWidget(creer);
    boutons->addWidget(ouvrir);
    boutons->addStretch(1);
    mise->addWidget(titre);
    mise->addSpacing(12);
    mise->addWidget(texte, 0, Qt::AlignHCenter);
    mise->addSpacing(16);
    mise->addLayout(boutons);
    mise->addStretch(2);
    return accueil;
}

void SectionFichiers::afficherFichiersConnus(const QStringList& chemins)
{
    // A first run has no file yet: the section says how to begin instead of showing an empty list.
    m_pages->setCurrentIndex(chemins.isEmpty() ? 0 : 1);
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
    // A backup is of the open document: without one, the frame has nothing to offer.
    m_cadreSauvegarde->setVisible(document() != nullptr);
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
