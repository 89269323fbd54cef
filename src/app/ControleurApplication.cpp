#include "app/ControleurApplication.h"

#include "app/AssistantNouveauDocument.h"
#include "app/ExportDossierPdf.h"
#include "app/FenetrePreferences.h"
#include "app/FenetrePrincipale.h"
#include "app/PanneauPreferencesFormulaires.h"
#include "app/FenetreTrajets.h"
#include "app/PanneauPreferencesCartes.h"
#include "app/PanneauPreferencesImpressions.h"
#include "app/PanneauPreferencesSites.h"
#include "app/PopoverVerrou.h"
#include "app/SectionFichiers.h"
#include "app/SectionVerrou.h"
#include "app/csv/FenetreExportCsv.h"
#include "app/csv/FenetreImportCsv.h"
#include "app/employeurs/FenetreModeles.h"
#include "app/fiscalite/FenetreAutoEntrepreneur.h"
#include "app/periodes/AssistantNouvellePeriode.h"
#include "app/periodes/FenetrePeriodes.h"
#include "app/profil/FenetreProfil.h"

#include "exchange/ExportCsv.h"
#include "exchange/ImportCsv.h"
#include "regimes/TableauDeBord.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/Fichiers.h"
#include "store/Horloge.h"
#include "store/Rappels.h"
#include "store/Reglages.h"
#include "store/Sauvegardes.h"
#include "store/Verrou.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QPalette>
#include <QStandardPaths>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QUrl>

namespace corvane::app {

using Cle = Reglages::Cle;

namespace {

const QString kSauvegardePlanifiee =
    QStringLiteral("Vous avez planifié une sauvegarde pour aujourd'hui.\nSouhaitez-vous l'effectuer maintenant ?");

QString documents()
{
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

} // namespace

ControleurApplication::ControleurApplication(Reglages& reglages, Dialogues& dialogues, FenetrePrincipale& fenetre)
    : QObject(&fenetre), m_reglages(reglages), m_dialogues(dialogues), m_fenetre(fenetre),
      m_ouvrirDossier([](const QString& dossier) { QDesktopServices::openUrl(QUrl::fromLocalFile(dossier)); }),
      m_paletteSysteme(QApplication::palette())
{
    connecter();
}

ControleurApplication::~ControleurApplication()
{
    m_fenetre.setDocument(nullptr);
}

QString ControleurApplication::messageSansDocument()
{
    return QStringLiteral("Avant toute nouvelle opération, il est nécessaire de créer un nouveau fichier, ou d'en "
                          "ouvrir un.");
}

void ControleurApplication::connecter()
{
    connect(&m_fenetre, &FenetrePrincipale::sectionDemandee, this, &ControleurApplication::afficherSection);
    connect(&m_fenetre, &FenetrePrincipale::alerteChoisie, this, [this](int item) {
        static const Section destinations[] = {Section::PoleEmploi, Section::Fiscalite, Section::Fichiers,
                                               Section::Contrats};
        afficherSection(destinations[qBound(0, item, 3)]);
    });
    connect(&m_fenetre, &FenetrePrincipale::fermeture, this, &ControleurApplication::applicationShouldTerminate);

    SectionFichiers* fichiers = m_fenetre.sectionFichiers();
    connect(fichiers, &SectionFichiers::ouvertureDemandee, this, [this](const QString& chemin) { ouvrir(chemin); });
    connect(fichiers, &SectionFichiers::autreDocumentDemande, this, &ControleurApplication::ouvrirAutreDocument);
    connect(fichiers, &SectionFichiers::retraitDemande, this, [this](const QString& chemin) {
        Sauvegardes::removeFileFromPreferences(chemin, m_reglages);
        majSectionFichiers();
    });
    connect(fichiers, &SectionFichiers::sauvegardeDemandee, this, &ControleurApplication::sauvegarderMaintenant);
    connect(fichiers, &SectionFichiers::nouveauDocumentDemande, this, &ControleurApplication::showAssistant);
    connect(&m_fenetre, &FenetrePrincipale::nouveauDocumentDemande, this, &ControleurApplication::showAssistant);
    connect(&m_fenetre, &FenetrePrincipale::autreDocumentDemande, this, &ControleurApplication::ouvrirAutreDocument);
    connect(&m_fenetre, &FenetrePrincipale::fermetureDocumentDemandee, this, &ControleurApplication::fileWillClose);
    connect(&m_fenetre, &FenetrePrincipale::sauvegardeDemandee, this, &ControleurApplication::sauvegarderMaintenant);
    connect(&m_fenetre, &FenetrePrincipale::exportDossierDemande, this, &ControleurApplication::exportPDFDossier);
    connect(&m_fenetre, &FenetrePrincipale::preferencesDemandees, this, &ControleurApplication::showPreferences);
    connect(&m_fenetre, &FenetrePrincipale::fenetreDemandee, this, &ControleurApplication::ouvrirFenetre);
    connect(m_fenetre.sectionVerrou(), &SectionVerrou::deverrouille, this, [this] {
        m_verrouille = false;
        m_fenetre.setVerrouille(false);
        afficherSection(Section(m_reglages.entier(Cle::LastTabUsed)));
        majAlertes();
    });
    connect(&m_fenetre, &FenetrePrincipale::verrouDemande, this, &ControleurApplication::showLockPopOver);
}

PopoverVerrou* ControleurApplication::showLockPopOver()
{
    if (m_document.isEmpty()) {
        m_dialogues.information(QStringLiteral("Protection du fichier"), messageSansDocument(),
                                QStringLiteral("Fermer"));
        return nullptr;
    }
    auto* popover = new PopoverVerrou(m_document, &m_fenetre);
    connect(popover, &PopoverVerrou::verrouillageModifie, &m_fenetre, &FenetrePrincipale::setBoutonVerrou);
    connect(popover, &PopoverVerrou::changementMotDePasseDemande, this, &ControleurApplication::showPasswordChange);
    popover->afficherSous(m_fenetre.boutonVerrou());
    return popover;
}

FeuilleMotDePasse* ControleurApplication::showPasswordChange()
{
    if (m_document.isEmpty())
        return nullptr;
    auto* feuille = new FeuilleMotDePasse(m_document, &m_fenetre);
    feuille->open();
    return feuille;
}

bool ControleurApplication::demarrer(const QString& documentDemande)
{
    // 1 and 2: launches and setting defaults.
    m_reglages.ecrire(Cle::Launches, m_reglages.entier(Cle::Launches) + 1);
    m_reglages.enregistrerDefauts();
    // 3 and 4: the storage folder and the earlier product's document.
    if (!preparerDossierStockage())
        return false;
    reprendreAncienDocument();
    // 5: the document to open.
    if (m_reglages.texte(Cle::FichiersRoot) == QStringLiteral("LOCAL") &&
        m_reglages.texte(Cle::FichierPath) != Intermittent::fichierTravailParDefaut())
        m_reglages.ecrire(Cle::FichierPath, QString());
    const QString enregistre = m_reglages.texte(Cle::FichierPath);
    if (!documentDemande.isEmpty())
        ouvrir(documentDemande);
    else if (!enregistre.isEmpty() && QFileInfo::exists(enregistre) && m_reglages.entier(Cle::PrefsDemarrage) == 1)
        ouvrir(enregistre);
    // 6: the assistant, when asked for and nothing is open.
    if (m_document.isEmpty() && m_reglages.entier(Cle::ShowAssistant) == 1)
        showAssistant();
    // 7 and 8: title and section.
    m_fenetre.setTitreDocument(m_document);
    if (!m_verrouille) {
        if (m_document.isEmpty())
            m_fenetre.afficherSection(Section::Fichiers);
        else if (!m_reglages.booleen(Cle::OpenLastTab))
            m_fenetre.afficherSection(Section::TableauDeBord);
        else
            afficherSection(Section(m_reglages.entier(Cle::LastTabUsed)));
    }
    majSectionFichiers();
    // 9: the backup planned for today.
    proposerSauvegardePrevue();
    // 11 and 12: the reminders and the appearance.
    majAlertes();
    appliquerApparence();
    return true;
}

bool ControleurApplication::preparerDossierStockage()
{
    const QString corvane = documents() + QStringLiteral("/Corvane");
    const QString stockage = m_reglages.texte(Cle::PrefsStockage);
    if (stockage.isEmpty() || !QFileInfo(stockage).isDir())
        m_reglages.ecrire(Cle::PrefsStockage, corvane);
    if (QFileInfo::exists(corvane))
        return true;
    const QString orvia = documents() + QStringLiteral("/Orvia");
    if (!QFileInfo::exists(orvia)) {
        QDir().mkpath(corvane);
        return true;
    }
    const QString reponse = m_dialogues.question(
        QStringLiteral("Version précédente détectée"),
        QStringLiteral("Pour un meilleur fonctionnement de l'application, le dossier 'Orvia', pouvant contenir des "
                       "fichiers de travail, sera renommé en 'Corvane'."),
        {QStringLiteral("Continuer"), QStringLiteral("Fermer l'application")});
    if (reponse != QStringLiteral("Continuer"))
        return false;
    QDir().rename(orvia, corvane);
    return true;
}

void ControleurApplication::reprendreAncienDocument()
{
    const QString ancien = Intermittent::ancienFichierTravailParDefaut();
    if (!QFileInfo::exists(ancien))
        return;
    m_dialogues.information(QStringLiteral("Gestion des fichiers"),
                            QStringLiteral("Un fichier de travail existe dans votre dossier utilisateur\n\nAfin "
                                           "d'assurer une meilleure compatibilité, ce fichier doit être déplacé ou "
                                           "supprimé."),
                            QStringLiteral("Fermer"));
    const QString defaut = Intermittent::fichierTravailParDefaut();
    if (QFileInfo::exists(defaut)) {
        const QString reponse = m_dialogues.question(
            QStringLiteral("Gestion des fichiers"),
            QStringLiteral("La copie n'a pas pu être réalisée, car vous utilisez déjà un fichier de travail.\n\n"
                           "Souhaitez-vous supprimer l'ancien fichier ?"),
            {QStringLiteral("Oui"), QStringLiteral("Non")});
        if (reponse == QStringLiteral("Oui"))
            QFile::remove(ancien);
        return;
    }
    QDir().mkpath(QFileInfo(defaut).absolutePath());
    if (!QFile::copy(ancien, defaut))
        return;
    m_dialogues.information(QStringLiteral("Gestion des fichiers"),
                            QStringLiteral("La copie est terminée.\n\nVotre fichier de travail va être ouvert par "
                                           "Corvane."),
                            QStringLiteral("Fermer"));
    QFile::remove(ancien);
    m_reglages.ecrire(Cle::FichierPath, defaut);
}

void ControleurApplication::sauvegarderMaintenant()
{
    if (m_document.isEmpty()) {
        m_dialogues.information(QStringLiteral("Sauvegardes"), messageSansDocument(), QStringLiteral("Fermer"));
        return;
    }
    Sauvegardes::copieDeSauvegardeWithFile(m_document, m_dialogues, m_reglages);
    majSectionFichiers();
    majAlertes();
}

QString ControleurApplication::exportPDFDossier()
{
    if (m_verrouille)
        return {};
    // The reports are read from the document, not from the screens: the section shown stays.
    const Section affichee = m_fenetre.sectionAffichee();
    const QString dossier = exporterDossierPdf(m_fenetre.environnement(), m_document);
    m_fenetre.afficherSection(affichee);
    if (!dossier.isEmpty() && m_ouvrirDossier)
        m_ouvrirDossier(dossier);
    return dossier;
}

AssistantNouveauDocument* ControleurApplication::showAssistant()
{
    // Parented to the main window, so that it stays above it and is centred on it.
    auto* assistant = new AssistantNouveauDocument(m_reglages, m_dialogues, &m_fenetre);
    assistant->setAttribute(Qt::WA_DeleteOnClose);
    connect(assistant, &AssistantNouveauDocument::documentCree, this, &ControleurApplication::didCreateNewFile);
    assistant->open();
    return assistant;
}

FenetrePreferences* ControleurApplication::showPreferences()
{
    auto* preferences = new FenetrePreferences(m_reglages, &m_fenetre);
    preferences->setAttribute(Qt::WA_DeleteOnClose);
    preferences->setFile(m_document);
    preferences->ajouterPanneau(QStringLiteral("Impressions"), new PanneauPreferencesImpressions(m_reglages));
    preferences->ajouterPanneau(QStringLiteral("Sites internet"), new PanneauPreferencesSites(m_reglages));
    preferences->ajouterPanneau(QStringLiteral("Formulaires officiels"), new PanneauPreferencesFormulaires(m_reglages));
    preferences->ajouterPanneau(QStringLiteral("Cartes"), new PanneauPreferencesCartes(m_reglages));
    connect(preferences, &FenetrePreferences::reglagesModifies, this, [this] {
        majAlertes();
        appliquerApparence();
    });
    preferences->open();
    return preferences;
}

QDialog* ControleurApplication::ouvrirFenetre(FenetreDossier quoi)
{
    static const QHash<FenetreDossier, QString> titres{
        {FenetreDossier::Profil, QStringLiteral("Profil")},
        {FenetreDossier::Periodes, QStringLiteral("Gestion des périodes")},
        {FenetreDossier::NouvellePeriode, QStringLiteral("Gestion des périodes")},
        {FenetreDossier::ModelesContrats, QStringLiteral("Modèles de contrat")},
        {FenetreDossier::AutoEntrepreneur, QStringLiteral("Auto-entrepreneur")},
        {FenetreDossier::ExportCsv, ExportCsv::titre()},
        {FenetreDossier::ImportCsv, ImportCsv::titre()},
        {FenetreDossier::Trajets, FenetreTrajets::titre()},
    };
    if (m_document.isEmpty() || m_verrouille) {
        if (m_document.isEmpty())
            m_dialogues.information(titres.value(quoi), messageSansDocument(), QStringLiteral("Fermer"));
        return nullptr;
    }
    Environnement& environnement = m_fenetre.environnement();
    QDialog* fenetre = nullptr;
    switch (quoi) {
    case FenetreDossier::Profil:
        fenetre = new FenetreProfil(environnement, m_documentOuvert.get(), &m_fenetre);
        break;
    case FenetreDossier::Periodes:
        fenetre = new FenetrePeriodes(environnement, *m_documentOuvert, &m_fenetre);
        break;
    case FenetreDossier::NouvellePeriode:
        fenetre = new AssistantNouvellePeriode(environnement, *m_documentOuvert, &m_fenetre);
        break;
    case FenetreDossier::ModelesContrats:
        fenetre = new FenetreModeles(environnement, *m_documentOuvert, &m_fenetre);
        break;
    case FenetreDossier::AutoEntrepreneur:
        fenetre = new FenetreAutoEntrepreneur(environnement, m_documentOuvert.get(), &m_fenetre);
        break;
    case FenetreDossier::ExportCsv:
        fenetre = new FenetreExportCsv(environnement, *m_documentOuvert, &m_fenetre);
        break;
    case FenetreDossier::ImportCsv:
        fenetre = new FenetreImportCsv(environnement, *m_documentOuvert, &m_fenetre);
        break;
    case FenetreDossier::Trajets:
        fenetre = new FenetreTrajets(environnement, *m_documentOuvert, 0, &m_fenetre);
        break;
    }
    fenetre->setAttribute(Qt::WA_DeleteOnClose);
    fenetre->open();
    return fenetre;
}

bool ControleurApplication::ouvrirAutreDocument()
{
    // Earlier generations are offered too: opening them leads to their conversion.
    const QString chemin = m_dialogues.choisirFichierAOuvrir(
        QStringLiteral("Ouvrir un fichier de travail"), m_reglages.texte(Cle::PrefsStockage), {"cv4", "or3", "orv"});
    return !chemin.isEmpty() && ouvrir(chemin);
}

bool ControleurApplication::ouvrir(const QString& chemin)
{
    Fichiers fichiers;
    const QString ouvert = fichiers.ouvertureSQLite(QFileInfo(chemin).absoluteFilePath(), m_document, m_dialogues);
    if (!fichiers.erreur().isEmpty()) {
        m_dialogues.information(QStringLiteral("Ouverture de fichier"), fichiers.erreur(), QStringLiteral("Fermer"));
        return false;
    }
    if (ouvert.isEmpty() || ouvert == m_document)
        return false;
    didOpenFile(ouvert);
    return true;
}

void ControleurApplication::didOpenFile(const QString& chemin)
{
    auto document = std::make_unique<Document>();
    if (!document->ouvrir(chemin)) {
        m_dialogues.information(QStringLiteral("Ouverture de fichier"),
                                QStringLiteral("Le fichier « %1 » ne peut pas être ouvert.").arg(chemin),
                                QStringLiteral("Fermer"));
        return;
    }
    // What any screen or window writes may change the reminders.
    connect(document.get(), &Document::tablesModifiees, this, &ControleurApplication::majAlertes);
    // The pages leave the previous document before it closes.
    m_fenetre.setDocument(document.get());
    m_documentOuvert = std::move(document);
    m_document = chemin;
    Sauvegardes::addFileToPreferences(chemin, m_reglages);
    m_reglages.ecrire(Cle::FichierPath, chemin);
    m_fenetre.setTitreDocument(chemin);
    m_verrouille = Verrou::isFileLocked(chemin);
    m_fenetre.setBoutonVerrou(m_verrouille);
    m_fenetre.setVerrouille(m_verrouille);
    if (!m_verrouille) {
        TableauDeBord_v4(m_documentOuvert->base()).proposeAnneeBlanche(m_dialogues);
        afficherSection(Section(m_reglages.entier(Cle::LastTabUsed)));
    }
    majSectionFichiers();
    majAlertes();
}

void ControleurApplication::didCreateNewFile(const QString& chemin)
{
    didOpenFile(chemin);
}

void ControleurApplication::documentTransmis(const QString& chemin)
{
    if (m_fenetre.isMinimized())
        m_fenetre.showNormal();
    m_fenetre.show();
    m_fenetre.raise();
    m_fenetre.activateWindow();
    if (chemin.isEmpty())
        return;
    m_documentsTransmis << chemin;
    ouvrirDocumentsTransmis();
}

void ControleurApplication::ouvrirDocumentsTransmis()
{
    // A dialog waiting for an answer may be in the middle of an opening, or hold the open
    // document: the documents handed over wait until it is closed.
    if (QApplication::activeModalWidget()) {
        if (!m_transmissionPrevue) {
            m_transmissionPrevue = true;
            QTimer::singleShot(250, this, [this] {
                m_transmissionPrevue = false;
                ouvrirDocumentsTransmis();
            });
        }
        return;
    }
    while (!m_documentsTransmis.isEmpty() && !QApplication::activeModalWidget())
        ouvrir(m_documentsTransmis.takeFirst());
    if (!m_documentsTransmis.isEmpty())
        ouvrirDocumentsTransmis();
}

void ControleurApplication::fileWillClose()
{
    // What was written last reaches the screens while the document is still there.
    if (m_documentOuvert)
        m_documentOuvert->annoncerMaintenant();
    m_document.clear();
    m_verrouille = false;
    m_fenetre.setTitreDocument(QString());
    m_fenetre.setDocument(nullptr);
    m_documentOuvert.reset();
    m_fenetre.setVerrouille(false);
    m_fenetre.setBoutonVerrou(false);
    m_fenetre.afficherSection(Section::Fichiers);
    majSectionFichiers();
    majAlertes();
}

void ControleurApplication::afficherSection(Section section)
{
    if (m_verrouille)
        return;
    const bool connue = section >= Section::TableauDeBord && section <= Section::Fichiers;
    if (!connue)
        section = Section::Fichiers;
    if (section != Section::Fichiers && m_document.isEmpty()) {
        m_dialogues.information(QStringLiteral("Corvane"), messageSansDocument(), QStringLiteral("Fermer"));
        m_fenetre.afficherSection(Section::Fichiers);
        return;
    }
    m_reglages.ecrire(Cle::LastTabUsed, int(section));
    m_fenetre.afficherSection(section);
}

void ControleurApplication::majAlertes()
{
    // A locked document has its reminders too; the menu stays out of reach until it is unlocked.
    m_fenetre.majAlertes(Rappels::calculer(m_document, m_reglages));
}

void ControleurApplication::majSectionFichiers()
{
    m_fenetre.sectionFichiers()->afficherFichiersConnus(m_reglages.liste(Cle::Files));
    if (!m_document.isEmpty())
        m_fenetre.sectionFichiers()->setDerniereSauvegarde(Sauvegardes::dateDerniereSauvegarde(m_document));
}

void ControleurApplication::proposerSauvegardePrevue()
{
    if (m_document.isEmpty() || !m_reglages.booleen(Cle::FichierSauvegardeAuto) ||
        !Sauvegardes::sauvegardePrevueAujourdhui(m_document, m_reglages))
        return;
    const QString reponse = m_dialogues.question(QStringLiteral("Gestion des sauvegardes"), kSauvegardePlanifiee,
                                                 {QStringLiteral("Oui"), QStringLiteral("Non")});
    if (reponse != QStringLiteral("Oui"))
        return;
    // A locked document shows the files section once the password is given.
    if (m_verrouille)
        m_reglages.ecrire(Cle::LastTabUsed, int(Section::Fichiers));
    else
        afficherSection(Section::Fichiers);
}

void ControleurApplication::applicationShouldTerminate()
{
    if (m_document.isEmpty() || !m_reglages.booleen(Cle::FichierSauvegardeAuto))
        return;
    QString question;
    if (Sauvegardes::dateDerniereSauvegarde(m_document).isValid()) {
        if (Sauvegardes::sauvegardePrevueAujourdhui(m_document, m_reglages))
            question = kSauvegardePlanifiee;
    } else {
        question = QStringLiteral("Bien que Corvane enregistre vos informations automatiquement, il est conseillé "
                                  "d'effectuer régulièrement une copie de sauvegarde de votre fichier de travail.\n\n"
                                  "Souhaitez-vous l'effectuer maintenant ?");
    }
    if (question.isEmpty())
        return;
    if (m_dialogues.question(QStringLiteral("Gestion des sauvegardes"), question,
                             {QStringLiteral("Oui"), QStringLiteral("Non")}) == QStringLiteral("Oui"))
        Sauvegardes::copieDeSauvegardeWithFile(m_document, m_dialogues, m_reglages);
}

void ControleurApplication::appliquerApparence()
{
    const QString apparence = m_reglages.texte(Cle::Apparence);
    if (apparence == QStringLiteral("systeme")) {
        QApplication::setPalette(m_paletteSysteme);
        return;
    }
    QPalette palette = QApplication::style()->standardPalette();
    if (apparence == QStringLiteral("sombre")) {
        palette.setColor(QPalette::Window, QColor(45, 45, 48));
        palette.setColor(QPalette::WindowText, QColor(230, 230, 230));
        palette.setColor(QPalette::Base, QColor(30, 30, 32));
        palette.setColor(QPalette::AlternateBase, QColor(50, 50, 54));
        palette.setColor(QPalette::Text, QColor(230, 230, 230));
        palette.setColor(QPalette::Button, QColor(55, 55, 60));
        palette.setColor(QPalette::ButtonText, QColor(230, 230, 230));
        palette.setColor(QPalette::Highlight, QColor(52, 101, 164));
        palette.setColor(QPalette::HighlightedText, Qt::white);
    }
    QApplication::setPalette(palette);
}

} // namespace corvane::app
