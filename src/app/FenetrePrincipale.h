#pragma once

#include "app/Environnement.h"
#include "app/Sections.h"
#include "store/Rappels.h"

#include <QMainWindow>
#include <QPointer>

class QAction;
class QLabel;
class QListWidget;
class QStackedWidget;
class QToolButton;

namespace corvane {
class Document;
}

namespace corvane::app {

class FenetreGuide;
class PageSection;
class SectionFichiers;
class SectionVerrou;

// The main window: the navigation bar, the stack of sections and the toolbar (alerts
// menu with its badge, lock button). It shows what the controller tells it and
// passes the user's choices back as signals.
// The windows that edit the document beside the sections.
enum class FenetreDossier
{
    Profil,
    Periodes,
    NouvellePeriode,
    ModelesContrats,
    AutoEntrepreneur,
    ExportCsv,
    ImportCsv,
    Trajets,
};

class FenetrePrincipale : public QMainWindow
{
    Q_OBJECT

public:
    explicit FenetrePrincipale(Environnement& environnement, QWidget* parent = nullptr);
    Environnement& environnement() const { return m_environnement; }

    void setTitreDocument(const QString& chemin);
    // Every page shows this document from now on (none: nullptr); only the visible one reads it now.
    void setDocument(Document* document);
    void afficherSection(Section section);
    Section sectionAffichee() const;
    void majAlertes(const Rappels& rappels);
    // While locked, the lock section replaces every other one.
    void setVerrouille(bool verrouille);
    void setBoutonVerrou(bool verrouille);

    SectionFichiers* sectionFichiers() const { return m_fichiers; }
    SectionVerrou* sectionVerrou() const { return m_verrou; }
    QAction* actionAlerte(int item) const;
    // A menu bar command, by object name ("actionPreferences", "actionNouveau", …).
    QAction* action(const QString& nom) const;
    QToolButton* boutonVerrou() const { return m_boutonVerrou; }

signals:
    void sectionDemandee(corvane::app::Section section);
    void alerteChoisie(int item);
    void verrouDemande();
    void fermeture();
    // The menu bar's commands.
    void nouveauDocumentDemande();
    void autreDocumentDemande();
    void fermetureDocumentDemandee();
    void sauvegardeDemandee();
    void exportDossierDemande();
    void preferencesDemandees();
    void fenetreDemandee(corvane::app::FenetreDossier fenetre);

protected:
    void closeEvent(QCloseEvent* evenement) override;

private:
    void construireBarreOutils();
    void construireMenus();
    // "Aide": the user guide (F1) and "À propos de Corvane".
    void construireMenuAide();
    void afficherGuide();
    PageSection* page(Section section) const;

    Environnement& m_environnement;
    QListWidget* m_navigation = nullptr;
    QStackedWidget* m_pile = nullptr;
    QList<PageSection*> m_pages;
    SectionFichiers* m_fichiers = nullptr;
    SectionVerrou* m_verrou = nullptr;
    QToolButton* m_boutonAlertes = nullptr;
    QLabel* m_badge = nullptr;
    QAction* m_actionBadge = nullptr;
    QToolButton* m_boutonVerrou = nullptr;
    QList<QAction*> m_alertes;
    QPointer<FenetreGuide> m_guide;
};

} // namespace corvane::app
