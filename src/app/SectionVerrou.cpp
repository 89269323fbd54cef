#include "app/SectionVerrou.h"

#include "records/Profil.h"
#include "store/Document.h"
#include "store/Verrou.h"

#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace corvane::app {

void signalerErreur(QLineEdit* champ, bool erreur)
{
    QPalette palette = champ->palette();
    palette.setColor(QPalette::Text, erreur ? QColor::fromRgbF(1.0f, 0.5109f, 0.5109f) : QColor(Qt::black));
    palette.setColor(QPalette::Base, erreur ? QColor(255, 240, 240) : QColor(Qt::white));
    champ->setPalette(palette);
    champ->setProperty("erreur", erreur);
}

SectionVerrou::SectionVerrou(QWidget* parent) : PageSection(Section::Verrou, parent)
{
    auto* explication = new QLabel(QStringLiteral("Ce fichier est protégé par un mot de passe. Saisissez-le pour "
                                                  "accéder à vos informations."),
                                   this);
    explication->setWordWrap(true);
    contenu()->addWidget(explication);

    auto* formulaire = new QFormLayout;
    m_fichier = new QLabel(this);
    m_fichier->setObjectName(QStringLiteral("verrouFichier"));
    m_utilisateur = new QLabel(this);
    m_utilisateur->setObjectName(QStringLiteral("verrouUtilisateur"));
    m_motDePasse = new QLineEdit(this);
    m_motDePasse->setObjectName(QStringLiteral("verrouMotDePasse"));
    m_motDePasse->setEchoMode(QLineEdit::Password);
    m_motDePasse->setMaximumWidth(320);
    formulaire->addRow(QStringLiteral("Fichier :"), m_fichier);
    formulaire->addRow(QStringLiteral("Utilisateur :"), m_utilisateur);
    formulaire->addRow(QStringLiteral("Mot de passe :"), m_motDePasse);
    contenu()->addLayout(formulaire);

    auto* bouton = new QPushButton(QStringLiteral("Déverrouiller"), this);
    bouton->setObjectName(QStringLiteral("boutonDeverrouiller"));
    bouton->setDefault(true);
    bouton->setMaximumWidth(200);
    contenu()->addWidget(bouton);
    contenu()->addStretch(1);

    connect(bouton, &QPushButton::clicked, this, &SectionVerrou::deverrouiller);
    connect(m_motDePasse, &QLineEdit::returnPressed, this, &SectionVerrou::deverrouiller);
    connect(m_motDePasse, &QLineEdit::textEdited, this, [this] { signalerErreur(m_motDePasse, false); });
}

void SectionVerrou::recharger()
{
    m_motDePasse->clear();
    signalerErreur(m_motDePasse, false);
    m_fichier->setText(QFileInfo(cheminDuFichier()).fileName());
    if (!document()) {
        m_utilisateur->clear();
        return;
    }
    Profil profil(document()->base());
    profil.initDepuisLaTableV4();
    const QString prenom = profil.donnees().prenom;
    const QString nom = profil.donnees().nom;
    if (prenom.isEmpty() && nom.isEmpty())
        m_utilisateur->setText(QStringLiteral("Profil incomplet"));
    else if (prenom.isEmpty() || nom.isEmpty())
        m_utilisateur->setText(prenom.isEmpty() ? nom : prenom);
    else
        m_utilisateur->setText(QStringLiteral("%1 %2").arg(prenom, nom));
}

void SectionVerrou::deverrouiller()
{
    if (Verrou::estLeMotDePasse(cheminDuFichier(), m_motDePasse->text())) {
        m_motDePasse->clear();
        emit deverrouille();
    } else {
        signalerErreur(m_motDePasse, true);
    }
}

} // namespace corvane::app
