#include "app/profil/FenetreProfil.h"

#include "store/Document.h"

#include "app/ActionsRapport.h"
#include "app/Environnement.h"
#include "app/kit/Raccourcis.h"
#include "exchange/RapportsEnregistrements.h"
#include "store/Dialogues.h"
#include "store/Horloge.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>

namespace corvane::app {

FenetreProfil::FenetreProfil(Environnement& environnement, Document* document, QWidget* parent)
    : QDialog(parent), m_environnement(environnement), m_chemin(document ? document->chemin() : QString()),
      m_profil(document ? std::make_unique<Profil>(document->base()) : std::make_unique<Profil>())
{
    setObjectName(QStringLiteral("fenetreProfil"));
    setWindowTitle(QStringLiteral("Profil"));
    auto* mise = new QVBoxLayout(this);
    m_onglets = new QTabWidget(this);
    m_onglets->setObjectName(QStringLiteral("ongletsProfil"));
    m_onglets->addTab(pageEtatCivil(), QStringLiteral("État civil"));
    m_onglets->addTab(pageCoordonnees(), QStringLiteral("Coordonnées"));
    m_onglets->addTab(pageNumeros(), QStringLiteral("Numéros administratifs"));
    m_onglets->addTab(pageBanque(), QStringLiteral("Banque"));
    m_onglets->addTab(pageAutres(), QStringLiteral("Véhicule, impôt, auto-entreprise"));
    mise->addWidget(m_onglets, 1);

    // The printed summary, as the "Impressions" settings choose its parts.
    auto* impression = new QHBoxLayout;
    ajouterBoutonsRapport(
        impression, this, m_environnement,
        [this] {
            const QString document = m_chemin;
            const ChoixImpressions choix = ChoixImpressions::depuis(m_environnement.reglages);
            return RapportEcran{
                document, nomRapportProfil(Horloge::aujourdhui()), QStringLiteral("Gestion des PDF"),
                [document, choix](Rapport& rapport) { return composerRapportProfil(rapport, document, choix); }};
        },
        QStringLiteral("Profil"));
    impression->addStretch(1);
    mise->addLayout(impression);

    auto* boutons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    boutons->button(QDialogButtonBox::Close)->setText(QStringLiteral("Fermer"));
    boutons->button(QDialogButtonBox::Close)->setObjectName(QStringLiteral("boutonFermerProfil"));
    connect(boutons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    mise->addWidget(boutons);

    // Enter ends the field being typed (and saves it); it never closes the window.
    for (QPushButton* bouton : findChildren<QPushButton*>()) {
        bouton->setAutoDefault(false);
        bouton->setDefault(false);
    }
    setMinimumWidth(740);
    recharger();
    attribuerRaccourcis(this, QString());
}

FenetreProfil::~FenetreProfil()
{
    // The field being typed is saved while the profile is still there.
    if (QWidget* champ = focusWidget())
        champ->clearFocus();
}

void FenetreProfil::recharger()
{
    const bool lu = !m_chemin.isEmpty() && m_profil->initDepuisLaTableV4();
    m_onglets->setEnabled(lu);
    for (const auto& charger : m_chargeurs)
        charger();
    afficherPhoto();
}

void FenetreProfil::done(int resultat)
{
    // The field being typed is left, and so saved, before the window goes.
    if (QWidget* champ = focusWidget())
        champ->clearFocus();
    QDialog::done(resultat);
}

void FenetreProfil::apresEnregistrement()
{
    emit profilModifie();
}

QLineEdit* FenetreProfil::champTexte(QFormLayout* forme, const QString& libelle, const QString& nom,
                                     SauvegardeTexte sauvegarde, QString DonneesProfil::*champ, bool secret)
{
    auto* edition = new QLineEdit(this);
    edition->setObjectName(nom);
    if (secret)
        edition->setEchoMode(QLineEdit::PasswordEchoOnEdit);
    forme->addRow(libelle, edition);
    connect(edition, &QLineEdit::editingFinished, this, [this, edition, sauvegarde, champ] {
        QString& valeur = m_profil->donnees().*champ;
        if (edition->text() == valeur)
            return;
        if ((m_profil.get()->*sauvegarde)(edition->text())) {
            valeur = edition->text();
            apresEnregistrement();
        }
    });
    m_chargeurs << [this, edition, champ] {
        const QSignalBlocker blocage(edition);
        edition->setText(m_profil->donnees().*champ);
    };
    return edition;
}

QComboBox* FenetreProfil::champChoix(QFormLayout* forme, const QString& libelle, const QString& nom,
                                     const QList<QPair<QString, int>>& choix, SauvegardeEntier sauvegarde,
                                     int DonneesProfil::*champ)
{
    auto* liste = new QComboBox(this);
    liste->setObjectName(nom);
    for (const auto& [texte, valeur] : choix)
        liste->addItem(texte, valeur);
    forme->addRow(libelle, liste);
    connect(liste, &QComboBox::activated, this, [this, liste, sauvegarde, champ](int) {
        const int valeur = liste->currentData().toInt();
        if ((m_profil.get()->*sauvegarde)(valeur)) {
            m_profil->donnees().*champ = valeur;
            apresEnregistrement();
        }
    });
    m_chargeurs << [this, liste, champ] {
        const QSignalBlocker blocage(liste);
        liste->setCurrentIndex(liste->findData(m_profil->donnees().*champ));
    };
    return liste;
}

QCheckBox* FenetreProfil::champCoche(QFormLayout* forme, const QString& texte, const QString& nom,
                                     SauvegardeEntier sauvegarde, int DonneesProfil::*champ)
{
    auto* coche = new QCheckBox(texte, this);
    coche->setObjectName(nom);
    forme->addRow(QString(), coche);
    connect(coche, &QCheckBox::clicked, this, [this, sauvegarde, champ](bool coche) {
        if ((m_profil.get()->*sauvegarde)(coche ? 1 : 0)) {
            m_profil->donnees().*champ = coche ? 1 : 0;
            apresEnregistrement();
        }
    });
    m_chargeurs << [this, coche, champ] {
        const QSignalBlocker blocage(coche);
        coche->setChecked(m_profil->donnees().*champ != 0);
    };
    return coche;
}

void FenetreProfil::majAbattement(int abattementId)
{
    m_profil->donnees().abattementId = abattementId;
    const QSignalBlocker blocageListe(m_abattement);
    const QSignalBlocker blocageCoche(m_renoncer);
    m_abattement->setCurrentIndex(m_abattement->findData(abattementId));
    m_renoncer->setChecked(abattementId == 1);
}

// --- Photo -----------------------------------------------------------------------------------

QWidget* FenetreProfil::cadrePhoto()
{
    auto* cadre = new QWidget(this);
    auto* mise = new QVBoxLayout(cadre);
    mise->setContentsMargins(0, 0, 0, 0);
    m_photo = new QLabel(cadre);
    m_photo->setObjectName(QStringLiteral("photoProfil"));
    m_photo->setFixedSize(120, 150);
    m_photo->setAlignment(Qt::AlignCenter);
    m_photo->setFrameShape(QFrame::StyledPanel);
    mise->addWidget(m_photo, 0, Qt::AlignHCenter);
    auto* choisir = new QPushButton(QStringLiteral("Choisir…"), cadre);
    choisir->setObjectName(QStringLiteral("boutonChoisirPhoto"));
    auto* retirer = new QPushButton(QStringLiteral("Retirer"), cadre);
    retirer->setObjectName(QStringLiteral("boutonRetirerPhoto"));
    mise->addWidget(choisir);
    mise->addWidget(retirer);
    mise->addStretch(1);
    connect(choisir, &QPushButton::clicked, this, &FenetreProfil::choisirPhoto);
    connect(retirer, &QPushButton::clicked, this, [this] {
        if (m_profil->supprimeLaPhoto()) {
            m_profil->donnees().photo.clear();
            afficherPhoto();
            apresEnregistrement();
        }
    });
    return cadre;
}

void FenetreProfil::choisirPhoto()
{
    const QString dossier = QFileInfo(m_chemin).absolutePath();
    const QString chemin = m_environnement.dialogues.choisirFichierAOuvrir(QStringLiteral("Choisir une photo"), dossier,
                                                                           {"jpg", "jpeg", "png"});
    if (chemin.isEmpty())
        return;
    if (QImage(chemin).isNull()) {
        m_environnement.dialogues.information(QStringLiteral("Profil"),
                                              QStringLiteral("Ce fichier n'est pas une image lisible."),
                                              QStringLiteral("Fermer"));
        return;
    }
    if (m_profil->ajouteUnePhoto(chemin)) {
        m_profil->donnees().photo = chemin;
        afficherPhoto();
        apresEnregistrement();
    }
}

void FenetreProfil::afficherPhoto()
{
    const QSize taille = m_photo->size();
    const QString chemin = m_profil->donnees().photo;
    const QImage image = chemin.isEmpty() ? QImage() : QImage(chemin);
    if (!image.isNull()) {
        m_photo->setPixmap(QPixmap::fromImage(image.scaled(taille, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
        m_photo->setToolTip(chemin);
        return;
    }
    // Without a photo, a plain silhouette in the civility's colour.
    QPixmap dessin(taille);
    dessin.fill(palette().color(QPalette::Base));
    QPainter peintre(&dessin);
    peintre.setRenderHint(QPainter::Antialiasing);
    peintre.setPen(Qt::NoPen);
    peintre.setBrush(m_profil->donnees().civiliteId == 3 ? QColor(0x72, 0x9f, 0xcf) : QColor(0xc7, 0x7f, 0xb5));
    const int l = taille.width();
    const int h = taille.height();
    peintre.drawEllipse(QPoint(l / 2, h * 2 / 5), l / 5, l / 5);
    peintre.drawChord(QRect(l / 6, h * 3 / 5, l * 2 / 3, h * 4 / 5), 0, 180 * 16);
    peintre.end();
    m_photo->setPixmap(dessin);
    m_photo->setToolTip(QStringLiteral("Aucune photo"));
}

} // namespace corvane::app
