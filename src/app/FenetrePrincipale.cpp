#include "app/FenetrePrincipale.h"

#include "app/FenetreGuide.h"
#include "app/PagesSections.h"
#include "app/SectionFichiers.h"
#include "app/SectionVerrou.h"
#include "store/Dialogues.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QToolBar>
#include <QToolButton>

namespace corvane::app {

FenetrePrincipale::FenetrePrincipale(Environnement& environnement, QWidget* parent)
    : QMainWindow(parent), m_environnement(environnement)
{
    setObjectName(QStringLiteral("fenetrePrincipale"));
    resize(1180, 760);

    m_navigation = new QListWidget(this);
    m_navigation->setObjectName(QStringLiteral("navigation"));
    m_navigation->setFixedWidth(190);
    m_navigation->setSpacing(2);
    m_navigation->setStyleSheet(QStringLiteral("QListWidget#navigation::item { padding-left: 12px; }"));
    m_pile = new QStackedWidget(this);
    m_pile->setObjectName(QStringLiteral("sections"));

    for (const DescriptionSection& d : sectionsNavigation()) {
        auto* element = new QListWidgetItem(d.titre, m_navigation);
        element->setData(Qt::UserRole, int(d.section));
        element->setSizeHint(QSize(0, 34));
        PageSection* p = creerPage(d.section, environnement, this);
        if (d.section == Section::Fichiers)
            m_fichiers = static_cast<SectionFichiers*>(p);
        m_pages << p;
        m_pile->addWidget(p);
    }
    m_verrou = new SectionVerrou(this);
    m_pages << m_verrou;
    m_pile->addWidget(m_verrou);

    connect(m_navigation, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* element) { emit sectionDemandee(Section(element->data(Qt::UserRole).toInt())); });

    auto* centre = new QWidget(this);
    auto* mise = new QHBoxLayout(centre);
    mise->setContentsMargins(0, 0, 0, 0);
    mise->setSpacing(0);
    mise->addWidget(m_navigation);
    mise->addWidget(m_pile, 1);
    setCentralWidget(centre);

    construireBarreOutils();
    construireMenus();
    construireMenuAide();
    setTitreDocument(QString());
}

void FenetrePrincipale::construireBarreOutils()
{
    auto* barre = addToolBar(QStringLiteral("Barre d'outils"));
    barre->setObjectName(QStringLiteral("barreOutils"));
    barre->setMovable(false);
    barre->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);

    QAction* profil = barre->addAction(QIcon::fromTheme(QStringLiteral("user-identity")), QStringLiteral("Profil"));
    profil->setObjectName(QStringLiteral("boutonProfil"));
    profil->setToolTip(QStringLiteral("Votre profil : état civil, coordonnées, numéros administratifs"));
    connect(profil, &QAction::triggered, this, [this] { emit fenetreDemandee(FenetreDossier::Profil); });

    QAction* autoEntrepreneur = barre->addAction(QIcon::fromTheme(QStringLiteral("accessories-calculator")),
                                                 QStringLiteral("Auto-entrepreneur"));
    autoEntrepreneur->setObjectName(QStringLiteral("boutonAutoEntrepreneur"));
    autoEntrepreneur->setToolTip(QStringLiteral("Vos réglages d'auto-entrepreneur et le site des déclarations"));
    connect(autoEntrepreneur, &QAction::triggered, this,
            [this] { emit fenetreDemandee(FenetreDossier::AutoEntrepreneur); });

    auto* espace = new QWidget(barre);
    espace->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    barre->addWidget(espace);

    m_boutonAlertes = new QToolButton(barre);
    m_boutonAlertes->setObjectName(QStringLiteral("boutonAlertes"));
    m_boutonAlertes->setText(QStringLiteral("Alertes"));
    m_boutonAlertes->setIcon(QIcon::fromTheme(QStringLiteral("dialog-information")));
    m_boutonAlertes->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(m_boutonAlertes);
    const QStringList libelles{QStringLiteral("Actualisation mensuelle à effectuer"),
                               QStringLiteral("Déclaration de revenus à remplir"),
                               QStringLiteral("Copie de sauvegarde conseillée"), QStringLiteral("Contrats non payés")};
    for (int i = 0; i < libelles.size(); ++i) {
        QAction* action = menu->addAction(libelles[i]);
        action->setEnabled(false);
        connect(action, &QAction::triggered, this, [this, i] { emit alerteChoisie(i); });
        m_alertes << action;
    }
    m_boutonAlertes->setMenu(menu);
    barre->addWidget(m_boutonAlertes);

    m_badge = new QLabel(barre);
    m_badge->setObjectName(QStringLiteral("badgeAlertes"));
    m_badge->setAlignment(Qt::AlignCenter);
    m_badge->setMinimumWidth(22);
    m_badge->setStyleSheet(QStringLiteral("QLabel { background: #c0392b; color: white; border-radius: 11px; "
                                          "font-weight: bold; padding: 2px 6px; }"));
    // A toolbar shows or hides its widgets through their actions.
    m_actionBadge = barre->addWidget(m_badge);
    m_actionBadge->setVisible(false);

    m_boutonVerrou = new QToolButton(barre);
    m_boutonVerrou->setObjectName(QStringLiteral("boutonVerrou"));
    connect(m_boutonVerrou, &QToolButton::clicked, this, &FenetrePrincipale::verrouDemande);
    barre->addWidget(m_boutonVerrou);
    setBoutonVerrou(false);
}

void FenetrePrincipale::construireMenus()
{
    auto ajouter = [this](QMenu* menu, const QString& nom, const QString& libelle, const QKeySequence& raccourci,
                          void (FenetrePrincipale::*signal)()) {
        QAction* action = menu->addAction(libelle);
        action->setObjectName(nom);
        action->setShortcut(raccourci);
        connect(action, &QAction::triggered, this, signal);
        return action;
    };
    QMenu* fichier = menuBar()->addMenu(QStringLiteral("&Fichier"));
    ajouter(fichier, QStringLiteral("actionNouveau"), QStringLiteral("&Nouveau fichier…"), QKeySequence::New,
            &FenetrePrincipale::nouveauDocumentDemande);
    ajouter(fichier, QStringLiteral("actionOuvrir"), QStringLiteral("&Ouvrir…"), QKeySequence::Open,
            &FenetrePrincipale::autreDocumentDemande);
    ajouter(fichier, QStringLiteral("actionFermerDocument"), QStringLiteral("&Fermer le document"),
            QKeySequence(QStringLiteral("Ctrl+W")), &FenetrePrincipale::fermetureDocumentDemandee);
    fichier->addSeparator();
    ajouter(fichier, QStringLiteral("actionSauvegarder"), QStringLiteral("Faire une &copie de sauvegarde"),
            QKeySequence(), &FenetrePrincipale::sauvegardeDemandee);
    ajouter(fichier, QStringLiteral("actionExporterDossier"), QStringLiteral("&Exporter tout le dossier en PDF"),
            QKeySequence(), &FenetrePrincipale::exportDossierDemande);
    // The CSV windows, beside the PDF export.
    const auto ajouterFenetre = [this, fichier](const char* nom, const QString& libelle, FenetreDossier fenetre) {
        QAction* action = fichier->addAction(libelle);
        action->setObjectName(QLatin1String(nom));
        connect(action, &QAction::triggered, this, [this, fenetre] { emit fenetreDemandee(fenetre); });
    };
    ajouterFenetre("actionExportCsv", QStringLiteral("Exporter une liste en CS&V…"), FenetreDossier::ExportCsv);
    ajouterFenetre("actionImportCsv", QStringLiteral("&Importer des employeurs depuis un fichier CSV…"),
                   FenetreDossier::ImportCsv);
    fichier->addSeparator();
    ajouter(fichier, QStringLiteral("actionPreferences"), QStringLiteral("&Préférences…"),
            QKeySequence(QStringLiteral("Ctrl+,")), &FenetrePrincipale::preferencesDemandees)
        ->setMenuRole(QAction::PreferencesRole);
    fichier->addSeparator();
    QAction* quitter = fichier->addAction(QStringLiteral("&Quitter"));
    quitter->setObjectName(QStringLiteral("actionQuitter"));
    quitter->setShortcut(QKeySequence::Quit);
    quitter->setMenuRole(QAction::QuitRole);
    connect(quitter, &QAction::triggered, this, &QWidget::close);

    QMenu* dossier = menuBar()->addMenu(QStringLiteral("&Dossier"));
    const struct
    {
        const char* nom;
        QString libelle;
        QKeySequence raccourci;
        FenetreDossier fenetre;
    } fenetres[] = {
        {"actionProfil", QStringLiteral("&Profil…"), QKeySequence(QStringLiteral("Ctrl+Shift+P")),
         FenetreDossier::Profil},
        {"actionPeriodes", QStringLiteral("Pé&riodes d'indemnisation…"), QKeySequence(), FenetreDossier::Periodes},
        {"actionNouvellePeriode", QStringLiteral("&Nouvelle période…"), QKeySequence(),
         FenetreDossier::NouvellePeriode},
        {"actionModeles", QStringLiteral("&Modèles de contrat…"), QKeySequence(), FenetreDossier::ModelesContrats},
        {"actionTrajets", QStringLiteral("&Trajets…"), QKeySequence(), FenetreDossier::Trajets},
    };
    for (const auto& f : fenetres) {
        QAction* action = dossier->addAction(f.libelle);
        action->setObjectName(QLatin1String(f.nom));
        action->setShortcut(f.raccourci);
        const FenetreDossier fenetre = f.fenetre;
        connect(action, &QAction::triggered, this, [this, fenetre] { emit fenetreDemandee(fenetre); });
    }

    // Ctrl+1 … Ctrl+0: the first ten sections from the keyboard.
    QMenu* aller = menuBar()->addMenu(QStringLiteral("&Sections"));
    int rang = 0;
    for (const DescriptionSection& d : sectionsNavigation()) {
        QAction* action = aller->addAction(d.titre);
        ++rang;
        if (rang <= 10)
            action->setShortcut(QKeySequence(QStringLiteral("Ctrl+%1").arg(rang % 10)));
        const Section section = d.section;
        connect(action, &QAction::triggered, this, [this, section] { emit sectionDemandee(section); });
    }
}

void FenetrePrincipale::construireMenuAide()
{
    QMenu* aide = menuBar()->addMenu(QStringLiteral("&Aide"));
    QAction* guide = aide->addAction(QStringLiteral("&Guide d'utilisation"));
    guide->setObjectName(QStringLiteral("actionGuide"));
    guide->setShortcut(QKeySequence::HelpContents);
    connect(guide, &QAction::triggered, this, &FenetrePrincipale::afficherGuide);

    QAction* aPropos = aide->addAction(QStringLiteral("À &propos de Corvane"));
    aPropos->setObjectName(QStringLiteral("actionAPropos"));
    aPropos->setMenuRole(QAction::AboutRole);
    connect(aPropos, &QAction::triggered, this, [this] {
        m_environnement.dialogues.information(
            QStringLiteral("À propos de Corvane"),
            QStringLiteral("Corvane %1\n\nCorvane tient le registre de votre activité d'intermittent du spectacle : "
                           "votre profil, vos employeurs, vos contrats et vos périodes d'indemnisation.\n\n"
                           "Logiciel libre, distribué sous la licence publique générale GNU (GPL), version 3 ou "
                           "ultérieure.")
                .arg(QStringLiteral(CORVANE_VERSION)),
            QStringLiteral("Fermer"));
    });
}

void FenetrePrincipale::afficherGuide()
{
    // One guide window, brought back to the front when asked again.
    if (!m_guide) {
        m_guide = new FenetreGuide(this);
        m_guide->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_guide->show();
    m_guide->raise();
    m_guide->activateWindow();
}

QAction* FenetrePrincipale::action(const QString& nom) const
{
    return findChild<QAction*>(nom);
}

void FenetrePrincipale::setTitreDocument(const QString& chemin)
{
    setWindowTitle(chemin.isEmpty() ? QStringLiteral("Aucun fichier ouvert...") : QFileInfo(chemin).fileName());
    m_boutonVerrou->setEnabled(!chemin.isEmpty());
    action(QStringLiteral("actionFermerDocument"))->setEnabled(!chemin.isEmpty());
}

void FenetrePrincipale::setDocument(Document* document)
{
    for (PageSection* p : m_pages)
        p->setDocument(document);
}

PageSection* FenetrePrincipale::page(Section section) const
{
    for (PageSection* p : m_pages)
        if (p->section() == section)
            return p;
    return nullptr;
}

void FenetrePrincipale::afficherSection(Section section)
{
    m_pile->setCurrentWidget(page(section));
    for (int i = 0; i < m_navigation->count(); ++i)
        if (m_navigation->item(i)->data(Qt::UserRole).toInt() == int(section))
            m_navigation->setCurrentRow(i);
}

Section FenetrePrincipale::sectionAffichee() const
{
    return static_cast<PageSection*>(m_pile->currentWidget())->section();
}

void FenetrePrincipale::majAlertes(const Rappels& rappels)
{
    const bool etats[] = {rappels.actualisation, rappels.declarationImpots, rappels.sauvegarde,
                          rappels.contratsImpayes};
    for (int i = 0; i < m_alertes.size(); ++i)
        m_alertes[i]->setEnabled(etats[i]);
    m_badge->setText(QString::number(rappels.compteur()));
    m_actionBadge->setVisible(rappels.compteur() > 0);
}

void FenetrePrincipale::setVerrouille(bool verrouille)
{
    m_navigation->setEnabled(!verrouille);
    m_boutonAlertes->setEnabled(!verrouille);
    if (verrouille)
        afficherSection(Section::Verrou);
}

void FenetrePrincipale::setBoutonVerrou(bool verrouille)
{
    m_boutonVerrou->setText(verrouille ? QStringLiteral("Protégé") : QStringLiteral("Non protégé"));
    m_boutonVerrou->setToolTip(QStringLiteral("Protection du fichier par mot de passe"));
    m_boutonVerrou->setIcon(
        QIcon::fromTheme(verrouille ? QStringLiteral("changes-prevent") : QStringLiteral("changes-allow")));
}

QAction* FenetrePrincipale::actionAlerte(int item) const
{
    return m_alertes.value(item);
}

void FenetrePrincipale::closeEvent(QCloseEvent* evenement)
{
    emit fermeture();
    evenement->accept();
}

} // namespace corvane::app
