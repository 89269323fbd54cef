#pragma once

#include "app/FenetrePrincipale.h"
#include "app/Sections.h"

#include <QObject>
#include <QPalette>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

class QDialog;

namespace corvane {
class Dialogues;
class Document;
class Reglages;
} // namespace corvane

namespace corvane::app {

class AssistantNouveauDocument;
class FenetrePreferences;
class FeuilleMotDePasse;
class PopoverVerrou;

// Owns the open document's path for the whole run: prepares the settings and the
// storage folder at start-up, opens, creates and closes documents, switches sections,
// raises the reminders, guards the lock, and offers a backup at quit.
class ControleurApplication : public QObject
{
    Q_OBJECT

public:
    ControleurApplication(Reglages& reglages, Dialogues& dialogues, FenetrePrincipale& fenetre);
    ~ControleurApplication() override;

    // The start-up sequence; false when the user chose to quit.
    bool demarrer(const QString& documentDemande = QString());

    const QString& document() const { return m_document; }
    // The open document's object, which every screen works through (none: nullptr).
    Document* documentOuvert() const { return m_documentOuvert.get(); }

    // Opening from the files section, the platform or the command line; true when
    // another document is now open.
    bool ouvrir(const QString& chemin);
    // The open panel of the files section; false when the user cancels.
    bool ouvrirAutreDocument();
    void didOpenFile(const QString& chemin);
    void didCreateNewFile(const QString& chemin);
    void fileWillClose();
    // A document handed over by another launch of the program (a double-click in the file
    // manager while Corvane runs): the window comes forward and the document opens as with
    // "Ouvrir…", once no dialog is waiting for an answer. "" only brings the window forward.
    void documentTransmis(const QString& chemin);

    void afficherSection(Section section);
    void majAlertes();
    // The backup offer at quit; the application quits whatever the answer.
    void applicationShouldTerminate();

    // The new-document assistant, kept above the main window.
    AssistantNouveauDocument* showAssistant();
    FenetrePreferences* showPreferences();
    // The profile, periods and templates windows, over the open document.
    QDialog* ouvrirFenetre(FenetreDossier quoi);
    // The backup copy made now, from the files section or the menu.
    void sauvegarderMaintenant();
    // "Exporter tout le dossier en PDF": the three reports into the document's folder of the
    // storage folder, which is then opened in the file manager. Returns that folder ("" when
    // nothing was written).
    QString exportPDFDossier();
    // How a folder is shown in the file manager; tests replace it, so that nothing opens.
    void setOuvreurDeDossier(std::function<void(const QString&)> ouvreur) { m_ouvrirDossier = std::move(ouvreur); }

    // The lock panel under the toolbar button, and the password change it leads to.
    PopoverVerrou* showLockPopOver();
    FeuilleMotDePasse* showPasswordChange();

    static QString messageSansDocument();

private:
    bool preparerDossierStockage();
    void reprendreAncienDocument();
    void proposerSauvegardePrevue();
    void appliquerApparence();
    void connecter();
    void majSectionFichiers();
    void ouvrirDocumentsTransmis();

    Reglages& m_reglages;
    Dialogues& m_dialogues;
    FenetrePrincipale& m_fenetre;
    QString m_document;
    std::unique_ptr<Document> m_documentOuvert;
    bool m_verrouille = false;
    QStringList m_documentsTransmis;
    bool m_transmissionPrevue = false;
    std::function<void(const QString&)> m_ouvrirDossier;
    // The palette the platform gave, restored when the user goes back to the system's appearance.
    QPalette m_paletteSysteme;
};

} // namespace corvane::app
