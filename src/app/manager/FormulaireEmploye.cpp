#include "app/manager/FormulaireEmploye.h"

#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/kit/ChampDate.h"
#include "app/kit/Raccourcis.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/Horloge.h"
#include "store/SaisieFrancaise.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

QLineEdit* champ(QWidget* parent, const QString& nom, int largeur = 0)
{
    auto* c = new QLineEdit(parent);
    c->setObjectName(nom);
    if (largeur > 0)
        c->setMinimumWidth(c->fontMetrics().horizontalAdvance(QLatin1Char('M')) * largeur);
    return c;
}

} // namespace

FormulaireEmploye::FormulaireEmploye(Environnement& environnement, QWidget* parent)
    : QWidget(parent), m_environnement(environnement)
{
    construire();
    attribuerRaccourcis(this);
}

FormulaireEmploye::~FormulaireEmploye() = default;

void FormulaireEmploye::construire()
{
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(0, 0, 0, 0);
    m_titre = new QLabel(this);
    m_titre->setObjectName(QStringLiteral("titreFormulaireEmploye"));
    QFont police = m_titre->font();
    police.setPointSizeF(police.pointSizeF() * 1.2);
    police.setBold(true);
    m_titre->setFont(police);
    mise->addWidget(m_titre);

    auto* boite = new QGroupBox(QStringLiteral("Employé"), this);
    auto* formulaire = new QFormLayout(boite);
    m_prenom = champ(boite, QStringLiteral("champPrenomEmploye"), 22);
    m_nom = champ(boite, QStringLiteral("champNomEmploye"), 22);
    m_adresse = champ(boite, QStringLiteral("champAdresseEmploye"), 30);
    m_codePostal = champ(boite, QStringLiteral("champCodePostalEmploye"));
    m_codePostal->setMaximumWidth(m_codePostal->fontMetrics().horizontalAdvance(QStringLiteral("000000")) + 24);
    m_ville = champ(boite, QStringLiteral("champVilleEmploye"), 22);
    auto* naissance = new QHBoxLayout;
    m_naissanceConnue = new QCheckBox(QStringLiteral("Connue"), boite);
    m_naissanceConnue->setObjectName(QStringLiteral("caseNaissanceEmploye"));
    m_naissance = new ChampDate(boite);
    m_naissance->setObjectName(QStringLiteral("dateNaissanceEmploye"));
    naissance->addWidget(m_naissanceConnue);
    naissance->addWidget(m_naissance);
    naissance->addStretch(1);
    m_lieuNaissance = champ(boite, QStringLiteral("champLieuNaissanceEmploye"), 22);
    m_nir = champ(boite, QStringLiteral("champNirEmploye"), 18);
    m_fonction = champ(boite, QStringLiteral("champFonctionEmploye"), 22);
    formulaire->addRow(QStringLiteral("Prénom :"), m_prenom);
    formulaire->addRow(QStringLiteral("Nom :"), m_nom);
    formulaire->addRow(QStringLiteral("Adresse :"), m_adresse);
    formulaire->addRow(QStringLiteral("Code postal :"), m_codePostal);
    formulaire->addRow(QStringLiteral("Ville :"), m_ville);
    formulaire->addRow(QStringLiteral("Date de naissance :"), naissance);
    formulaire->addRow(QStringLiteral("Lieu de naissance :"), m_lieuNaissance);
    formulaire->addRow(QStringLiteral("NIR :"), m_nir);
    formulaire->addRow(QStringLiteral("Fonction :"), m_fonction);
    auto* haut = new QHBoxLayout;
    haut->addWidget(boite);
    haut->addStretch(1);
    mise->addLayout(haut);
    mise->addStretch(1);

    auto* boutons = new QHBoxLayout;
    boutons->addStretch(1);
    auto* annulerBouton = new QPushButton(QStringLiteral("Annuler"), this);
    annulerBouton->setObjectName(QStringLiteral("boutonAnnulerEmploye"));
    auto* enregistrerBouton = new QPushButton(QStringLiteral("Enregistrer"), this);
    enregistrerBouton->setObjectName(QStringLiteral("boutonEnregistrerEmploye"));
    enregistrerBouton->setDefault(true);
    boutons->addWidget(annulerBouton);
    boutons->addWidget(enregistrerBouton);
    mise->addLayout(boutons);

    connect(m_naissanceConnue, &QCheckBox::toggled, m_naissance, &QWidget::setEnabled);
    connect(enregistrerBouton, &QPushButton::clicked, this, &FormulaireEmploye::enregistrer);
    connect(annulerBouton, &QPushButton::clicked, this, &FormulaireEmploye::annuler);
}

void FormulaireEmploye::setDocument(Document* document)
{
    m_employes = document && document->estOuvert() ? std::make_unique<Employes>(document->base()) : nullptr;
}

void FormulaireEmploye::nouveau()
{
    m_id = 0;
    m_titre->setText(QStringLiteral("Nouvel employé"));
    charger({});
}

bool FormulaireEmploye::modifier(int id)
{
    const std::optional<Employe> employe = m_employes ? m_employes->employe(id) : std::nullopt;
    if (!employe)
        return false;
    m_id = id;
    m_titre->setText(QStringLiteral("Modification"));
    charger(*employe);
    return true;
}

void FormulaireEmploye::charger(const Employe& e)
{
    m_naissance->setBornes(Limites::premiereNaissance(), Horloge::aujourdhui());
    m_prenom->setText(e.prenom);
    m_nom->setText(e.nom);
    m_adresse->setText(e.adresse);
    m_codePostal->setText(e.codePostal);
    m_ville->setText(e.ville);
    m_naissanceConnue->setChecked(e.naissance.isValid());
    m_naissance->setEnabled(e.naissance.isValid());
    m_naissance->setDate(e.naissance.isValid() ? e.naissance : Horloge::aujourdhui().addYears(-30));
    m_lieuNaissance->setText(e.lieuNaissance);
    m_nir->setText(e.nir);
    m_fonction->setText(e.fonction);
    m_prenom->setFocus();
}

Employe FormulaireEmploye::valeurs() const
{
    return {m_prenom->text(),        m_nom->text(),   m_adresse->text(),
            m_codePostal->text(),    m_ville->text(), m_naissanceConnue->isChecked() ? m_naissance->date() : QDate(),
            m_lieuNaissance->text(), m_nir->text(),   m_fonction->text()};
}

bool FormulaireEmploye::enregistrer()
{
    const auto refuser = [this](const QString& message) {
        m_environnement.dialogues.information(Employes::titreAlertes(), message, QStringLiteral("Fermer"));
        return false;
    };
    if (!m_employes)
        return refuser(ControleurApplication::messageSansDocument());
    const Employe employe = valeurs();
    if (const QString refus = m_employes->refusValeurs(employe, m_id); !refus.isEmpty())
        return refuser(refus);
    const int id =
        m_id > 0 ? (m_employes->modifieEmploye(m_id, employe) ? m_id : 0) : m_employes->enregistreEmploye(employe);
    if (id == 0)
        return refuser(QStringLiteral("L'employé n'a pas pu être enregistré."));
    emit enregistre(id);
    emit termine();
    return true;
}

void FormulaireEmploye::annuler()
{
    emit termine();
}

void FormulaireEmploye::keyPressEvent(QKeyEvent* evenement)
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
