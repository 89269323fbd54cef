#include "app/manager/FormulaireEvenement.h"

#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/kit/ChampDate.h"
#include "app/kit/Raccourcis.h"
#include "manager/Structures.h"
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
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

void remplir(QComboBox* liste, const Intermittent::Choix& choix, const QString& premier = QString())
{
    const QSignalBlocker bloque(liste);
    const QVariant choisi = liste->currentData();
    liste->clear();
    if (!premier.isEmpty())
        liste->addItem(premier, 0);
    for (const auto& [id, libelle] : choix)
        liste->addItem(libelle, id);
    liste->setCurrentIndex(qMax(0, liste->findData(choisi)));
}

QComboBox* liste(QWidget* parent, const QString& nom)
{
    auto* l = new QComboBox(parent);
    l->setObjectName(nom);
    l->setMinimumContentsLength(24);
    l->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return l;
}

} // namespace

FormulaireEvenement::FormulaireEvenement(Environnement& environnement, QWidget* parent)
    : QWidget(parent), m_environnement(environnement)
{
    construire();
    attribuerRaccourcis(this);
}

FormulaireEvenement::~FormulaireEvenement() = default;

void FormulaireEvenement::construire()
{
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(0, 0, 0, 0);
    m_titre = new QLabel(this);
    m_titre->setObjectName(QStringLiteral("titreFormulaireEvenement"));
    QFont police = m_titre->font();
    police.setPointSizeF(police.pointSizeF() * 1.2);
    police.setBold(true);
    m_titre->setFont(police);
    mise->addWidget(m_titre);

    auto* boite = new QGroupBox(QStringLiteral("Événement"), this);
    auto* formulaire = new QFormLayout(boite);
    m_date = new ChampDate(boite);
    m_date->setObjectName(QStringLiteral("dateEvenement"));
    m_nom = new QLineEdit(boite);
    m_nom->setObjectName(QStringLiteral("champNomEvenement"));
    m_nom->setMinimumWidth(m_nom->fontMetrics().horizontalAdvance(QLatin1Char('M')) * 24);
    m_organisateur = liste(boite, QStringLiteral("choixOrganisateur"));
    m_structure = liste(boite, QStringLiteral("choixStructureEvenement"));
    m_proposition = liste(boite, QStringLiteral("choixPropositionEvenement"));
    formulaire->addRow(QStringLiteral("Date :"), m_date);
    formulaire->addRow(QStringLiteral("Nom :"), m_nom);
    formulaire->addRow(QStringLiteral("Organisateur :"), m_organisateur);
    formulaire->addRow(QStringLiteral("Structure :"), m_structure);
    formulaire->addRow(QStringLiteral("Proposition :"), m_proposition);
    auto* haut = new QHBoxLayout;
    haut->addWidget(boite);
    haut->addStretch(1);
    mise->addLayout(haut);
    auto* note = new QLabel(QStringLiteral("Le personnel de l'événement est celui de la structure au moment de "
                                           "l'enregistrement."),
                            this);
    note->setEnabled(false);
    mise->addWidget(note);
    mise->addStretch(1);

    auto* boutons = new QHBoxLayout;
    boutons->addStretch(1);
    auto* annulerBouton = new QPushButton(QStringLiteral("Annuler"), this);
    annulerBouton->setObjectName(QStringLiteral("boutonAnnulerEvenement"));
    auto* enregistrerBouton = new QPushButton(QStringLiteral("Enregistrer"), this);
    enregistrerBouton->setObjectName(QStringLiteral("boutonEnregistrerEvenement"));
    enregistrerBouton->setDefault(true);
    boutons->addWidget(annulerBouton);
    boutons->addWidget(enregistrerBouton);
    mise->addLayout(boutons);

    connect(enregistrerBouton, &QPushButton::clicked, this, &FormulaireEvenement::enregistrer);
    connect(annulerBouton, &QPushButton::clicked, this, &FormulaireEvenement::annuler);
}

void FormulaireEvenement::setDocument(Document* document)
{
    m_evenements = document && document->estOuvert() ? std::make_unique<Evenements>(document->base()) : nullptr;
    actualiserChoix();
}

void FormulaireEvenement::actualiserChoix()
{
    remplir(m_organisateur, m_evenements ? m_evenements->choixEmployeurs() : Intermittent::Choix());
    remplir(m_structure, m_evenements ? Structures(m_evenements->db()).choixStructures() : Intermittent::Choix());
    remplir(m_proposition, m_evenements ? m_evenements->choixPropositions() : Intermittent::Choix(),
            QStringLiteral("Aucune"));
}

void FormulaireEvenement::nouveau()
{
    m_id = 0;
    m_titre->setText(QStringLiteral("Nouvel événement"));
    // The organiser and structure of the last event typed stay chosen.
    Evenement evenement;
    evenement.date = Horloge::aujourdhui();
    evenement.employeurId = m_organisateur->currentData().toInt();
    evenement.structureId = m_structure->currentData().toInt();
    charger(evenement);
}

bool FormulaireEvenement::modifier(int id)
{
    const std::optional<Evenement> evenement = m_evenements ? m_evenements->evenement(id) : std::nullopt;
    if (!evenement)
        return false;
    m_id = id;
    m_titre->setText(QStringLiteral("Modification"));
    charger(*evenement);
    return true;
}

void FormulaireEvenement::charger(const Evenement& e)
{
    actualiserChoix();
    m_date->setDate(e.date.isValid() ? e.date : Horloge::aujourdhui());
    m_nom->setText(e.nom);
    m_organisateur->setCurrentIndex(qMax(0, m_organisateur->findData(e.employeurId)));
    m_structure->setCurrentIndex(qMax(0, m_structure->findData(e.structureId)));
    m_proposition->setCurrentIndex(qMax(0, m_proposition->findData(e.propositionId)));
    m_nom->setFocus();
}

bool FormulaireEvenement::enregistrer()
{
    const auto refuser = [this](const QString& message) {
        m_environnement.dialogues.information(Evenements::titreAlertes(), message, QStringLiteral("Fermer"));
        return false;
    };
    if (!m_evenements)
        return refuser(ControleurApplication::messageSansDocument());
    const Evenement evenement{m_date->date(), m_nom->text(), m_proposition->currentData().toInt(),
                              m_organisateur->currentData().toInt(), m_structure->currentData().toInt()};
    if (const QString refus = m_evenements->refusValeurs(evenement); !refus.isEmpty())
        return refuser(refus);
    const int id = m_id > 0 ? (m_evenements->modifieEvenement(m_id, evenement) ? m_id : 0)
                            : m_evenements->enregistreEvenement(evenement);
    if (id == 0)
        return refuser(QStringLiteral("L'événement n'a pas pu être enregistré."));
    emit enregistre(id);
    emit termine();
    return true;
}

void FormulaireEvenement::annuler()
{
    emit termine();
}

void FormulaireEvenement::keyPressEvent(QKeyEvent* evenement)
{
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
