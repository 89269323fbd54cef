// The contract form's widgets and their connections; what they do to the contract being
// edited is in FormulaireContratSaisie.cpp.

#include "app/contrats/FormulaireContrat.h"

#include "app/Environnement.h"
#include "app/kit/ChampChiffre.h"
#include "app/kit/ChampDate.h"
#include "app/kit/ListeRetourALaLigne.h"
#include "app/kit/MessageSaisie.h"
#include "app/kit/Raccourcis.h"
#include "records/Contrats.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

ChampMontant* champMontant(QWidget* parent, const QString& nom, const Bornes& bornes = Limites::kMontant)
{
    auto* champ = new ChampMontant(parent, bornes);
    champ->setObjectName(nom);
    champ->setMaximumWidth(140);
    return champ;
}

QComboBox* liste(QWidget* parent, const QString& nom)
{
    auto* combo = new QComboBox(parent);
    combo->setObjectName(nom);
    combo->setMinimumContentsLength(18);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return combo;
}

QCheckBox* case_(QWidget* parent, const QString& texte, const QString& nom)
{
    auto* c = new QCheckBox(texte, parent);
    c->setObjectName(nom);
    return c;
}

} // namespace

FormulaireContrat::FormulaireContrat(Environnement& environnement, QWidget* parent)
    : QWidget(parent), m_environnement(environnement)
{
    construire();
    connecter();
    attribuerRaccourcis(this);
}

FormulaireContrat::~FormulaireContrat() = default;

void FormulaireContrat::construire()
{
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(0, 0, 0, 0);
    m_titre = new QLabel(this);
    m_titre->setObjectName(QStringLiteral("titreFormulaireContrat"));
    QFont police = m_titre->font();
    police.setPointSizeF(police.pointSizeF() * 1.2);
    police.setBold(true);
    m_titre->setFont(police);
    mise->addWidget(m_titre);

    auto* colonnes = new QHBoxLayout;
    colonnes->addWidget(construireColonneGauche(), 1);
    colonnes->addWidget(construireColonneDroite(), 1);
    mise->addLayout(colonnes);

    auto* bas = new QHBoxLayout;
    auto* boiteNote = new QGroupBox(QStringLiteral("Note"), this);
    auto* miseNote = new QVBoxLayout(boiteNote);
    m_note = new QPlainTextEdit(boiteNote);
    m_note->setObjectName(QStringLiteral("champNote"));
    m_note->setTabChangesFocus(true);
    miseNote->addWidget(m_note);
    auto* boiteFrais = new QGroupBox(QStringLiteral("Frais liés au contrat"), this);
    auto* miseFrais = new QVBoxLayout(boiteFrais);
    m_frais = new QListWidget(boiteFrais);
    m_frais->setObjectName(QStringLiteral("listeFraisLies"));
    retourALaLigne(m_frais);
    miseFrais->addWidget(m_frais);
    bas->addWidget(boiteNote, 1);
    bas->addWidget(boiteFrais, 1);
    mise->addLayout(bas, 1);

    m_message = new MessageSaisie(this);
    m_message->surveiller(m_brut, QStringLiteral("Salaire brut"));
    m_message->surveiller(m_net, QStringLiteral("Salaire net"));
    m_message->surveiller(m_pas, QStringLiteral("Taux du prélèvement à la source"));
    m_message->surveiller(m_netAPayer, QStringLiteral("Net à payer"));
    m_message->surveiller(m_jours, QStringLiteral("Durée"));
    m_message->surveiller(m_heures, QStringLiteral("Heures"));
    mise->addWidget(m_message);

    auto* boutons = new QHBoxLayout;
    boutons->addStretch(1);
    m_annuler = new QPushButton(QStringLiteral("Annuler"), this);
    m_annuler->setObjectName(QStringLiteral("boutonAnnulerContrat"));
    m_enregistrer = new QPushButton(QStringLiteral("Enregistrer"), this);
    m_enregistrer->setObjectName(QStringLiteral("boutonEnregistrerContrat"));
    m_enregistrer->setDefault(true);
    boutons->addWidget(m_annuler);
    boutons->addWidget(m_enregistrer);
    mise->addLayout(boutons);
}

QWidget* FormulaireContrat::construireColonneGauche()
{
    auto* boite = new QGroupBox(QStringLiteral("Engagement"), this);
    auto* formulaire = new QFormLayout(boite);
    m_employeur = liste(boite, QStringLiteral("choixEmployeur"));
    m_emploi = liste(boite, QStringLiteral("choixEmploi"));
    m_type = liste(boite, QStringLiteral("choixType"));
    m_debut = new ChampDate(boite);
    m_debut->setObjectName(QStringLiteral("dateDebut"));
    m_fin = new ChampDate(boite);
    m_fin->setObjectName(QStringLiteral("dateFin"));
    m_jours = new ChampNombre(0, Limites::kJoursContratMaximum, boite);
    m_jours->setObjectName(QStringLiteral("champJours"));
    m_uniteJours = new QLabel(QStringLiteral("jour"), boite);
    m_uniteJours->setObjectName(QStringLiteral("uniteJours"));
    m_heures = new ChampNombre(0, Limites::kHeuresContratMaximum, boite);
    m_heures->setObjectName(QStringLiteral("champHeures"));
    m_ap = case_(boite, QStringLiteral("AP (7 heures par jour)"), QStringLiteral("caseAP"));
    m_lieu = new QLineEdit(boite);
    m_lieu->setObjectName(QStringLiteral("champLieu"));
    m_fonction = new QLineEdit(boite);
    m_fonction->setObjectName(QStringLiteral("champFonction"));

    auto* jours = new QHBoxLayout;
    jours->addWidget(m_jours);
    jours->addWidget(m_uniteJours);
    jours->addStretch(1);
    auto* heures = new QHBoxLayout;
    heures->addWidget(m_heures);
    heures->addWidget(m_ap);
    heures->addStretch(1);
    formulaire->addRow(QStringLiteral("Employeur :"), m_employeur);
    formulaire->addRow(QStringLiteral("Emploi :"), m_emploi);
    formulaire->addRow(QStringLiteral("Type :"), m_type);
    formulaire->addRow(QStringLiteral("Du :"), m_debut);
    formulaire->addRow(QStringLiteral("Au :"), m_fin);
    formulaire->addRow(QStringLiteral("Durée :"), jours);
    formulaire->addRow(QStringLiteral("Heures :"), heures);
    formulaire->addRow(QStringLiteral("Lieu :"), m_lieu);
    formulaire->addRow(QStringLiteral("Fonction :"), m_fonction);
    return boite;
}

QWidget* FormulaireContrat::construireColonneDroite()
{
    auto* boite = new QGroupBox(QStringLiteral("Rémunération"), this);
    auto* formulaire = new QFormLayout(boite);
    m_brut = champMontant(boite, QStringLiteral("champBrut"));
    m_abattement = liste(boite, QStringLiteral("choixAbattement"));
    m_abattement->setMinimumContentsLength(6);
    m_abattement->setMaximumWidth(140);
    m_brutAbattu = new QLabel(boite);
    m_brutAbattu->setObjectName(QStringLiteral("brutApresAbattement"));
    m_net = champMontant(boite, QStringLiteral("champNet"));
    m_netAPayer = champMontant(boite, QStringLiteral("champNetAPayer"));
    m_pas = champMontant(boite, QStringLiteral("champPas"), Limites::kPourcentage);
    m_annee = liste(boite, QStringLiteral("choixAnneeEncaissement"));
    m_annee->setMinimumContentsLength(6);
    m_annee->setMaximumWidth(140);
    m_effectue = case_(boite, QStringLiteral("Effectué"), QStringLiteral("caseEffectue"));
    m_paye = case_(boite, QStringLiteral("Payé"), QStringLiteral("casePaye"));
    m_conges = case_(boite, QStringLiteral("Compte pour les congés spectacles"), QStringLiteral("caseConges"));
    m_aemFp = case_(boite, QStringLiteral("AEM reçue"), QStringLiteral("caseAemFp"));

    formulaire->addRow(QStringLiteral("Salaire brut :"), m_brut);
    formulaire->addRow(QStringLiteral("Abattement :"), m_abattement);
    formulaire->addRow(QStringLiteral("Brut après abattement :"), m_brutAbattu);
    formulaire->addRow(QStringLiteral("Salaire net :"), m_net);
    formulaire->addRow(QStringLiteral("Taux du prélèvement à la source (%) :"), m_pas);
    formulaire->addRow(QStringLiteral("Net à payer :"), m_netAPayer);
    formulaire->addRow(QStringLiteral("Année d'encaissement :"), m_annee);
    auto* cases = new QVBoxLayout;
    for (QCheckBox* c : {m_effectue, m_paye, m_conges, m_aemFp})
        cases->addWidget(c);
    formulaire->addRow(QString(), cases);
    return boite;
}

void FormulaireContrat::connecter()
{
    connect(m_debut, &ChampDate::userDateChanged, this, [this] { datesChoisies(true); });
    connect(m_fin, &ChampDate::userDateChanged, this, [this] { datesChoisies(false); });
    connect(m_employeur, &QComboBox::activated, this, [this] {
        lireChamps();
        employeurChoisi();
        afficher();
    });
    connect(m_emploi, &QComboBox::activated, this, [this] {
        lireChamps();
        m_saisie.choisirEmploi(m_emploi->currentData().toInt());
        afficher();
    });
    connect(m_type, &QComboBox::activated, this, [this] {
        lireChamps();
        m_saisie.choisirType(m_type->currentData().toInt());
        afficher();
    });
    connect(m_ap, &QCheckBox::clicked, this, [this](bool coche) {
        lireChamps();
        m_saisie.cocherAP(coche);
        afficher();
    });
    connect(m_brut, &QLineEdit::textEdited, this, [this] {
        // The derivations follow an amount that reads; one that does not leaves them as they were.
        if (!m_brut->estValide()) {
            majBrutAbattu();
            return;
        }
        lireChamps();
        m_saisie.choisirBrut(m_saisie.brut);
        majBrutAbattu();
        if (m_saisie.emploiId == SaisieContrat::kEmploiAutoEntrepreneur)
            m_heures->actualiser(m_saisie.heures);
    });
    connect(m_abattement, &QComboBox::activated, this, [this] {
        m_saisie.abattementId = m_abattement->currentData().toInt();
        majBrutAbattu();
    });
    connect(m_enregistrer, &QPushButton::clicked, this, &FormulaireContrat::enregistrer);
    connect(m_annuler, &QPushButton::clicked, this, &FormulaireContrat::annuler);
}

void FormulaireContrat::keyPressEvent(QKeyEvent* evenement)
{
    // Fields that do not use Enter themselves pass it here: it saves; Escape cancels.
    if (evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter) {
        enregistrer();
        return;
    }
    if (evenement->key() == Qt::Key_Escape) {
        annuler();
        return;
    }
    QWidget::keyPressEvent(evenement);
}

} // namespace corvane::app
