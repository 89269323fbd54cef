#include "app/PopoverVerrou.h"

#include "app/SectionVerrou.h"
#include "store/Verrou.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

QLineEdit* champMotDePasse(const QString& nom, QWidget* parent)
{
    auto* champ = new QLineEdit(parent);
    champ->setObjectName(nom);
    champ->setEchoMode(QLineEdit::Password);
    champ->setMinimumWidth(220);
    QObject::connect(champ, &QLineEdit::textEdited, champ, [champ] { signalerErreur(champ, false); });
    return champ;
}

} // namespace

QString texteProtectionVerrou()
{
    return QStringLiteral("Le mot de passe cache le contenu du document à qui l'ouvre avec Corvane sans le "
                          "connaître. Il ne chiffre pas le fichier : n'importe quel outil SQLite peut le lire, mot "
                          "de passe compris. Pour protéger vraiment vos données, gardez le document dans un dossier "
                          "chiffré ou sur un disque chiffré.");
}

PopoverVerrou::PopoverVerrou(const QString& chemin, QWidget* parent)
    : QFrame(parent, Qt::Popup), m_chemin(chemin), m_verrouille(Verrou::isFileLocked(chemin))
{
    setObjectName(QStringLiteral("popoverVerrou"));
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(QFrame::StyledPanel);

    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(16, 14, 16, 14);
    m_etat = new QLabel(this);
    m_etat->setObjectName(QStringLiteral("verrouEtat"));
    m_etat->setWordWrap(true);
    m_etat->setMinimumWidth(300);
    mise->addWidget(m_etat);

    // What the password does and does not do, so that nobody takes it for encryption.
    auto* portee = new QLabel(texteProtectionVerrou(), this);
    portee->setObjectName(QStringLiteral("verrouPortee"));
    portee->setWordWrap(true);
    portee->setMinimumWidth(300);
    mise->addWidget(portee);

    auto* formulaire = new QFormLayout;
    m_motDePasse = champMotDePasse(QStringLiteral("popoverMotDePasse"), this);
    formulaire->addRow(QStringLiteral("Mot de passe :"), m_motDePasse);
    mise->addLayout(formulaire);

    auto* boutons = new QHBoxLayout;
    auto* changer = new QPushButton(QStringLiteral("Changer le mot de passe…"), this);
    changer->setObjectName(QStringLiteral("boutonChangerMotDePasse"));
    m_bouton = new QPushButton(this);
    m_bouton->setObjectName(QStringLiteral("boutonEnregistrerVerrou"));
    m_bouton->setDefault(true);
    boutons->addWidget(changer);
    boutons->addStretch(1);
    boutons->addWidget(m_bouton);
    mise->addLayout(boutons);

    connect(m_bouton, &QPushButton::clicked, this, &PopoverVerrou::saveLockStatus);
    connect(m_motDePasse, &QLineEdit::returnPressed, this, &PopoverVerrou::saveLockStatus);
    connect(changer, &QPushButton::clicked, this, [this] {
        emit changementMotDePasseDemande();
        close();
    });
    majTextes();
}

void PopoverVerrou::majTextes()
{
    m_etat->setText(m_verrouille ? QStringLiteral("Ce fichier est protégé par un mot de passe. Saisissez-le pour "
                                                  "lever la protection.")
                                 : QStringLiteral("Ce fichier n'est pas protégé. Saisissez votre mot de passe pour "
                                                  "le protéger à sa prochaine ouverture."));
    m_bouton->setText(m_verrouille ? QStringLiteral("Ne plus protéger") : QStringLiteral("Protéger"));
}

void PopoverVerrou::afficherSous(QWidget* ancre)
{
    adjustSize();
    QPoint position = ancre->mapToGlobal(QPoint(ancre->width() - width(), ancre->height()));
    move(position.x() < 0 ? 0 : position.x(), position.y());
    show();
    m_motDePasse->setFocus();
}

bool PopoverVerrou::saveLockStatus()
{
    if (!Verrou::estLeMotDePasse(m_chemin, m_motDePasse->text())) {
        signalerErreur(m_motDePasse, true);
        return false;
    }
    m_verrouille = !m_verrouille;
    Verrou::enregistrerVerrouillage(m_chemin, m_verrouille);
    emit verrouillageModifie(m_verrouille);
    close();
    return true;
}

FeuilleMotDePasse::FeuilleMotDePasse(const QString& chemin, QWidget* parent) : QDialog(parent), m_chemin(chemin)
{
    setObjectName(QStringLiteral("feuilleMotDePasse"));
    setWindowTitle(QStringLiteral("Changer le mot de passe"));
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);

    auto* mise = new QVBoxLayout(this);
    auto* explication = new QLabel(QStringLiteral("Saisissez le mot de passe actuel (laissez le champ vide si le "
                                                  "fichier n'en a pas encore), puis le nouveau deux fois."),
                                   this);
    explication->setWordWrap(true);
    mise->addWidget(explication);
    auto* formulaire = new QFormLayout;
    m_actuel = champMotDePasse(QStringLiteral("motDePasseActuel"), this);
    m_nouveau = champMotDePasse(QStringLiteral("motDePasseNouveau"), this);
    m_confirmation = champMotDePasse(QStringLiteral("motDePasseConfirmation"), this);
    formulaire->addRow(QStringLiteral("Mot de passe actuel :"), m_actuel);
    formulaire->addRow(QStringLiteral("Nouveau mot de passe :"), m_nouveau);
    formulaire->addRow(QStringLiteral("Confirmation :"), m_confirmation);
    mise->addLayout(formulaire);

    auto* boutons = new QDialogButtonBox(this);
    boutons->addButton(QStringLiteral("Annuler"), QDialogButtonBox::RejectRole);
    QPushButton* enregistrer = boutons->addButton(QStringLiteral("Enregistrer"), QDialogButtonBox::AcceptRole);
    enregistrer->setObjectName(QStringLiteral("boutonEnregistrerMotDePasse"));
    enregistrer->setDefault(true);
    mise->addWidget(boutons);
    connect(boutons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(boutons, &QDialogButtonBox::accepted, this, &FeuilleMotDePasse::changePassword);
}

bool FeuilleMotDePasse::changePassword()
{
    if (!Verrou::estLeMotDePasse(m_chemin, m_actuel->text())) {
        signalerErreur(m_actuel, true);
        return false;
    }
    if (m_nouveau->text() != m_confirmation->text()) {
        signalerErreur(m_confirmation, true);
        return false;
    }
    Verrou::changerMotDePasse(m_chemin, m_nouveau->text());
    accept();
    return true;
}

} // namespace corvane::app
