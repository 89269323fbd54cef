#include "app/AssistantNouveauDocument.h"

#include "app/SectionVerrou.h"
#include "app/kit/ChampChiffre.h"
#include "app/kit/ChampDate.h"
#include "app/kit/Raccourcis.h"
#include "store/Dialogues.h"
#include "store/Fichiers.h"
#include "store/FormatFrancais.h"
#include "store/Functions.h"
#include "store/Horloge.h"
#include "store/Intermittent.h"
#include "store/Reglages.h"
#include "store/Schema.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

const QString kTitre = QStringLiteral("Nouveau document");
const QString kExtension = QStringLiteral("cv4");

QLineEdit* champ(const QString& nom, QWidget* parent)
{
    auto* ligne = new QLineEdit(parent);
    ligne->setObjectName(nom);
    return ligne;
}

} // namespace

AssistantNouveauDocument::AssistantNouveauDocument(Reglages& reglages, Dialogues& dialogues, QWidget* parent)
    : QWizard(parent), m_reglages(reglages), m_dialogues(dialogues)
{
    setObjectName(QStringLiteral("assistantNouveauDocument"));
    setWindowTitle(kTitre);
    setOption(QWizard::NoBackButtonOnStartPage);
    setMinimumWidth(620);
    setButtonText(QWizard::BackButton, QStringLiteral("< Précédent"));
    setButtonText(QWizard::NextButton, QStringLiteral("Suivant >"));
    setButtonText(QWizard::CommitButton, QStringLiteral("Valider"));
    setButtonText(QWizard::FinishButton, QStringLiteral("Créer le document"));
    setButtonText(QWizard::CancelButton, QStringLiteral("Annuler"));
    setButtonText(QWizard::HelpButton, QStringLiteral("Aide"));

    setPage(PageIdentite, construirePageIdentite());
    setPage(PageSituation, construirePageSituation());
    setPage(PageDocument, construirePageDocument());
    majCheminPropose();
    attribuerRaccourcis(this, QString());
}

QWizardPage* AssistantNouveauDocument::construirePageIdentite()
{
    auto* page = new QWizardPage(this);
    page->setTitle(QStringLiteral("Vous"));
    page->setSubTitle(QStringLiteral("Ces informations ouvrent votre profil ; vous pourrez le compléter ensuite."));
    m_civilite = new QComboBox(page);
    m_civilite->setObjectName(QStringLiteral("civilite"));
    m_civilite->addItems(Intermittent::sexes()); // ids 1, 2, 3 in `civilites`
    m_prenom = champ(QStringLiteral("prenom"), page);
    m_nom = champ(QStringLiteral("nom"), page);
    auto* formulaire = new QFormLayout(page);
    formulaire->addRow(QStringLiteral("Civilité :"), m_civilite);
    formulaire->addRow(QStringLiteral("Prénom :"), m_prenom);
    formulaire->addRow(QStringLiteral("Nom :"), m_nom);
    connect(m_prenom, &QLineEdit::textChanged, this, &AssistantNouveauDocument::majCheminPropose);
    connect(m_nom, &QLineEdit::textChanged, this, &AssistantNouveauDocument::majCheminPropose);
    return page;
}

QWizardPage* AssistantNouveauDocument::construirePageSituation()
{
    auto* page = new QWizardPage(this);
    page->setTitle(QStringLiteral("Vos droits"));
    page->setSubTitle(QStringLiteral("Votre emploi et les droits ouverts par votre dernière admission."));
    m_emploi = new QComboBox(page);
    m_emploi->setObjectName(QStringLiteral("emploi"));
    m_emploi->addItems(Schema::emplois()); // ids 1 to 5 in `emplois`
    m_ouverture = new ChampDate(page);
    m_ouverture->setDate(Horloge::aujourdhui());
    m_ouverture->setObjectName(QStringLiteral("dateOuvertureDroits"));
    m_taux = new ChampMontant(page);
    m_taux->setObjectName(QStringLiteral("tauxValide"));
    auto* taux = new QHBoxLayout;
    taux->addWidget(m_taux);
    taux->addWidget(new QLabel(QStringLiteral("€ par jour"), page));
    m_renonceAbattement = new QCheckBox(QStringLiteral("Je renonce à l'abattement pour frais professionnels"), page);
    m_renonceAbattement->setObjectName(QStringLiteral("renonceAbattement"));
    m_autoEntrepreneur = new QCheckBox(QStringLiteral("J'exerce aussi une activité d'auto-entrepreneur"), page);
    m_autoEntrepreneur->setObjectName(QStringLiteral("autoEntrepreneur"));
    auto* formulaire = new QFormLayout(page);
    formulaire->addRow(QStringLiteral("Emploi :"), m_emploi);
    formulaire->addRow(QStringLiteral("Ouverture des droits :"), m_ouverture);
    formulaire->addRow(QStringLiteral("Taux journalier validé :"), taux);
    formulaire->addRow(m_renonceAbattement);
    formulaire->addRow(m_autoEntrepreneur);
    return page;
}

QWizardPage* AssistantNouveauDocument::construirePageDocument()
{
    auto* page = new QWizardPage(this);
    page->setTitle(QStringLiteral("Votre document"));
    page->setSubTitle(QStringLiteral("Un mot de passe, si vous le souhaitez, protège l'ouverture du document."));
    m_motDePasse = champ(QStringLiteral("motDePasse"), page);
    m_motDePasse->setEchoMode(QLineEdit::Password);
    m_confirmation = champ(QStringLiteral("confirmationMotDePasse"), page);
    m_confirmation->setEchoMode(QLineEdit::Password);
    m_chemin = champ(QStringLiteral("cheminDocument"), page);
    m_chemin->setMinimumWidth(300);
    auto* choisir = new QPushButton(QStringLiteral("Choisir…"), page);
    choisir->setObjectName(QStringLiteral("boutonChoisirChemin"));
    auto* chemin = new QHBoxLayout;
    chemin->addWidget(m_chemin, 1);
    chemin->addWidget(choisir);
    auto* formulaire = new QFormLayout(page);
    formulaire->addRow(QStringLiteral("Mot de passe (facultatif) :"), m_motDePasse);
    formulaire->addRow(QStringLiteral("Confirmation :"), m_confirmation);
    formulaire->addRow(QStringLiteral("Enregistrer sous :"), chemin);
    connect(choisir, &QPushButton::clicked, this, &AssistantNouveauDocument::choisirChemin);
    // Once the user has set the path, the name no longer follows the profile.
    connect(m_chemin, &QLineEdit::textEdited, this, [this] { m_cheminChoisi = true; });
    connect(m_confirmation, &QLineEdit::textEdited, this, [this] { signalerErreur(m_confirmation, false); });
    return page;
}

QString AssistantNouveauDocument::dossierParDefaut() const
{
    const QString stockage = m_reglages.texte(Reglages::Cle::PrefsStockage);
    if (!stockage.isEmpty() && QFileInfo(stockage).isDir())
        return stockage;
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + QStringLiteral("/Corvane");
}

QString AssistantNouveauDocument::nomPropose() const
{
    QString nom = QStringList{m_prenom->text().simplified(), m_nom->text().simplified()}.join(QLatin1Char(' '));
    nom = nom.trimmed();
    // A name is not a path.
    for (const QChar interdit : {QLatin1Char('/'), QLatin1Char('\\'), QLatin1Char(':')})
        nom.replace(interdit, QLatin1Char('-'));
    return nom.isEmpty() ? QStringLiteral("Corvane") : nom;
}

void AssistantNouveauDocument::majCheminPropose()
{
    if (!m_cheminChoisi)
        m_chemin->setText(QDir(dossierParDefaut()).filePath(nomPropose() + QLatin1Char('.') + kExtension));
}

void AssistantNouveauDocument::choisirChemin()
{
    const QFileInfo actuel(cheminFinal());
    const QString dossier = actuel.absoluteDir().exists() ? actuel.absolutePath() : dossierParDefaut();
    const QString nom = actuel.fileName().isEmpty() ? nomPropose() : actuel.completeBaseName();
    const QString choisi = m_dialogues.choisirFichierAEnregistrer(QStringLiteral("Enregistrer le nouveau document"),
                                                                  dossier, nom, kExtension);
    if (choisi.isEmpty())
        return;
    m_cheminChoisi = true;
    m_chemin->setText(choisi);
    m_chemin->setText(cheminFinal());
}

QString AssistantNouveauDocument::cheminFinal() const
{
    QString chemin = m_chemin->text().trimmed();
    if (chemin.isEmpty())
        return chemin;
    if (!chemin.endsWith(QLatin1Char('.') + kExtension, Qt::CaseInsensitive))
        chemin += QLatin1Char('.') + kExtension;
    return QDir::cleanPath(QDir(dossierParDefaut()).absoluteFilePath(chemin));
}

bool AssistantNouveauDocument::validateCurrentPage()
{
    switch (currentId()) {
    case PageSituation:
        if (!m_taux->estValide()) {
            refuser(QStringLiteral("Taux journalier validé : %1.").arg(m_taux->erreur()), m_taux);
            return false;
        }
        return true;
    case PageDocument:
        return creer();
    default:
        return true;
    }
}

bool AssistantNouveauDocument::creer()
{
    if (m_motDePasse->text() != m_confirmation->text()) {
        signalerErreur(m_confirmation, true);
        refuser(QStringLiteral("Le mot de passe et sa confirmation sont différents."), m_confirmation);
        return false;
    }
    const QString chemin = cheminFinal();
    if (chemin.isEmpty()) {
        refuser(QStringLiteral("Indiquez où enregistrer le nouveau document."), m_chemin);
        return false;
    }
    const std::optional<double> taux = m_taux->nombre();
    if (!taux) {
        refuser(QStringLiteral("Taux journalier validé : %1.").arg(m_taux->erreur()), m_taux);
        return false;
    }

    NouveauDocument parametres;
    parametres.nomDuFichier = chemin;
    parametres.abattementState = m_renonceAbattement->isChecked() ? 1 : 0;
    parametres.taux = *taux;
    parametres.emploiId = m_emploi->currentIndex() + 1;
    parametres.dateOuvertureDesDroits = m_ouverture->date();
    parametres.civiliteId = m_civilite->currentIndex() + 1;
    parametres.prenom = m_prenom->text().trimmed();
    parametres.nom = m_nom->text().trimmed();
    parametres.isAutoEntrepreneur = m_autoEntrepreneur->isChecked();
    parametres.password = m_motDePasse->text();
    parametres.isLocked = m_motDePasse->text().isEmpty() ? 0 : 1;

    // The creation refuses an existing file and leaves nothing behind when it fails.
    Fichiers fichiers(parametres);
    if (!fichiers.nouveauV4()) {
        refuser(fichiers.erreur(), m_chemin);
        return false;
    }
    m_chemin->setText(chemin);
    m_cheminCree = chemin;
    emit documentCree(chemin);
    return true;
}

void AssistantNouveauDocument::refuser(const QString& message, QWidget* champ)
{
    m_dialogues.information(kTitre, message, QStringLiteral("Fermer"));
    if (champ && champ->isVisible())
        champ->setFocus();
}

} // namespace corvane::app
