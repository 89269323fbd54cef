#include "app/droitsvoisins/FormulaireDroitVoisin.h"

#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/kit/ChampChiffre.h"
#include "app/kit/ChampDate.h"
#include "app/kit/MessageSaisie.h"
#include "app/kit/Raccourcis.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/Horloge.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

void remplir(QComboBox* liste, const Intermittent::Choix& choix)
{
    const QSignalBlocker bloque(liste);
    const QVariant choisi = liste->currentData();
    liste->clear();
    for (const auto& [id, libelle] : choix)
        liste->addItem(libelle, id);
    liste->setCurrentIndex(qMax(0, liste->findData(choisi)));
}

} // namespace

FormulaireDroitVoisin::FormulaireDroitVoisin(Environnement& environnement, QWidget* parent)
    : QWidget(parent), m_environnement(environnement)
{
    construire();
    attribuerRaccourcis(this);
}

FormulaireDroitVoisin::~FormulaireDroitVoisin() = default;

void FormulaireDroitVoisin::construire()
{
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(0, 0, 0, 0);
    m_titre = new QLabel(this);
    m_titre->setObjectName(QStringLiteral("titreFormulaireDv"));
    QFont police = m_titre->font();
    police.setPointSizeF(police.pointSizeF() * 1.2);
    police.setBold(true);
    m_titre->setFont(police);
    mise->addWidget(m_titre);

    auto* boite = new QGroupBox(QStringLiteral("Versement"), this);
    auto* formulaire = new QFormLayout(boite);
    m_date = new ChampDate(boite);
    m_date->setObjectName(QStringLiteral("dateDv"));
    m_organisme = new QComboBox(boite);
    m_organisme->setObjectName(QStringLiteral("choixOrganismeDv"));
    m_organisme->setMinimumContentsLength(18);
    m_organisme->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_categorie = new QComboBox(boite);
    m_categorie->setObjectName(QStringLiteral("choixCategorieDv"));
    m_categorie->setMinimumContentsLength(18);
    m_categorie->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto* creation = new QHBoxLayout;
    m_nouvelleCategorie = new QLineEdit(boite);
    m_nouvelleCategorie->setObjectName(QStringLiteral("champCategorieRapideDv"));
    m_nouvelleCategorie->setPlaceholderText(QStringLiteral("Nom de la catégorie"));
    m_nouvelleCategorie->setMinimumWidth(
        m_nouvelleCategorie->fontMetrics().horizontalAdvance(m_nouvelleCategorie->placeholderText()) + 24);
    auto* creer = new QPushButton(QStringLiteral("Créer"), boite);
    creer->setObjectName(QStringLiteral("boutonCreerCategorieDv"));
    creer->setAutoDefault(false);
    creation->addWidget(m_nouvelleCategorie, 1);
    creation->addWidget(creer);
    m_montant = new ChampMontant(boite);
    m_montant->setObjectName(QStringLiteral("montantDv"));
    m_montant->setMaximumWidth(160);
    formulaire->addRow(QStringLiteral("Date :"), m_date);
    formulaire->addRow(QStringLiteral("Organisme :"), m_organisme);
    formulaire->addRow(QStringLiteral("Catégorie :"), m_categorie);
    formulaire->addRow(QStringLiteral("Nouvelle catégorie :"), creation);
    formulaire->addRow(QStringLiteral("Montant :"), m_montant);
    auto* haut = new QHBoxLayout;
    haut->addWidget(boite);
    haut->addStretch(1);
    mise->addLayout(haut);

    auto* boiteDetails = new QGroupBox(QStringLiteral("Détails"), this);
    auto* miseDetails = new QVBoxLayout(boiteDetails);
    m_details = new QPlainTextEdit(boiteDetails);
    m_details->setObjectName(QStringLiteral("champDetailsDv"));
    m_details->setTabChangesFocus(true);
    // A few lines: the details of a payment are a reference or a short note.
    m_details->setFixedHeight(m_details->fontMetrics().lineSpacing() * 6 + 12);
    miseDetails->addWidget(m_details);
    mise->addWidget(boiteDetails);

    m_message = new MessageSaisie(this);
    m_message->surveiller(m_montant, QStringLiteral("Montant"));
    mise->addWidget(m_message);
    mise->addStretch(1);

    auto* boutons = new QHBoxLayout;
    boutons->addStretch(1);
    auto* annulerBouton = new QPushButton(QStringLiteral("Annuler"), this);
    annulerBouton->setObjectName(QStringLiteral("boutonAnnulerDv"));
    auto* enregistrerBouton = new QPushButton(QStringLiteral("Enregistrer"), this);
    enregistrerBouton->setObjectName(QStringLiteral("boutonEnregistrerDv"));
    enregistrerBouton->setDefault(true);
    boutons->addWidget(annulerBouton);
    boutons->addWidget(enregistrerBouton);
    mise->addLayout(boutons);

    connect(creer, &QPushButton::clicked, this, &FormulaireDroitVoisin::creerCategorie);
    connect(m_nouvelleCategorie, &QLineEdit::returnPressed, this, &FormulaireDroitVoisin::creerCategorie);
    connect(enregistrerBouton, &QPushButton::clicked, this, &FormulaireDroitVoisin::enregistrer);
    connect(annulerBouton, &QPushButton::clicked, this, &FormulaireDroitVoisin::annuler);
}

void FormulaireDroitVoisin::setDocument(Document* document)
{
    m_modele = document && document->estOuvert() ? std::make_unique<DroitsVoisins>(document->base()) : nullptr;
    actualiserChoix();
}

void FormulaireDroitVoisin::actualiserChoix()
{
    remplir(m_organisme, m_modele ? m_modele->organismes() : Intermittent::Choix());
    remplir(m_categorie, m_modele ? m_modele->categories() : Intermittent::Choix());
}

void FormulaireDroitVoisin::nouveau()
{
    m_mode = QStringLiteral("ajout");
    m_id = 0;
    m_titre->setText(QStringLiteral("Nouveau"));
    // The body and category of the last payment typed stay chosen.
    DroitVoisin droit;
    droit.date = Horloge::aujourdhui();
    droit.organismeId = m_organisme->currentData().toInt();
    droit.categorieId = m_categorie->currentData().toInt();
    charger(droit);
}

bool FormulaireDroitVoisin::modifier(int id)
{
    const std::optional<DroitVoisin> droit = m_modele ? m_modele->droitVoisin(id) : std::nullopt;
    if (!droit)
        return false;
    m_mode = QStringLiteral("modif");
    m_id = id;
    m_titre->setText(QStringLiteral("Modification"));
    charger(*droit);
    return true;
}

void FormulaireDroitVoisin::charger(const DroitVoisin& droit)
{
    actualiserChoix();
    m_date->setDate(droit.date.isValid() ? droit.date : Horloge::aujourdhui());
    m_organisme->setCurrentIndex(qMax(0, m_organisme->findData(droit.organismeId)));
    m_categorie->setCurrentIndex(qMax(0, m_categorie->findData(droit.categorieId)));
    m_nouvelleCategorie->clear();
    m_montant->afficher(droit.montant);
    m_details->setPlainText(droit.details);
    m_message->actualiser();
    m_date->setFocus();
}

void FormulaireDroitVoisin::refuser(const QString& message, const QString& titre)
{
    m_environnement.dialogues.information(titre.isEmpty() ? DroitsVoisins::titreAlertes() : titre, message,
                                          QStringLiteral("Fermer"));
}

bool FormulaireDroitVoisin::creerCategorie()
{
    if (!m_modele) {
        refuser(ControleurApplication::messageSansDocument());
        return false;
    }
    const QString nom = m_nouvelleCategorie->text();
    if (const QString refus = m_modele->refusCategorie(nom); !refus.isEmpty()) {
        refuser(refus, refus == DroitsVoisins::messageCategorieExistante() ? DroitsVoisins::titreDoublon()
                                                                           : DroitsVoisins::titreCategories());
        return false;
    }
    const int id = m_modele->ajouteCategorie(nom);
    if (id == 0) {
        refuser(QStringLiteral("La catégorie n'a pas pu être enregistrée."));
        return false;
    }
    actualiserChoix();
    m_categorie->setCurrentIndex(qMax(0, m_categorie->findData(id)));
    m_nouvelleCategorie->clear();
    emit categorieCreee();
    return true;
}

bool FormulaireDroitVoisin::enregistrer()
{
    if (!m_modele) {
        refuser(ControleurApplication::messageSansDocument());
        return false;
    }
    // An amount that cannot be read is never saved, nor saved as 0.
    if (const QString refus = m_message->refus(); !refus.isEmpty()) {
        refuser(refus);
        return false;
    }
    const DroitVoisin droit{m_date->date(), m_organisme->currentData().toInt(), m_categorie->currentData().toInt(),
                            m_montant->nombre().value_or(0.0), m_details->toPlainText()};
    if (const QString refus = m_modele->refusValeurs(droit); !refus.isEmpty()) {
        refuser(refus);
        return false;
    }
    const bool ecrit = m_mode == QStringLiteral("modif") ? m_modele->modifieDroitVoisin(m_id, droit)
                                                         : m_modele->enregistreDroitVoisin(droit) > 0;
    if (!ecrit) {
        refuser(QStringLiteral("Le versement n'a pas pu être enregistré."));
        return false;
    }
    emit enregistre();
    emit termine();
    return true;
}

void FormulaireDroitVoisin::annuler()
{
    emit termine();
}

void FormulaireDroitVoisin::keyPressEvent(QKeyEvent* evenement)
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
