#include "app/frais/FormulaireFrais.h"

#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/frais/Justificatif.h"
#include "app/kit/ChampChiffre.h"
#include "app/kit/ChampDate.h"
#include "app/kit/MessageSaisie.h"
#include "app/kit/Raccourcis.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/Horloge.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
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

QPushButton* bouton(QWidget* parent, const QString& texte, const QString& nom)
{
    auto* b = new QPushButton(texte, parent);
    b->setObjectName(nom);
    b->setAutoDefault(false);
    return b;
}

} // namespace

FormulaireFrais::FormulaireFrais(Environnement& environnement, QWidget* parent)
    : QWidget(parent), m_environnement(environnement)
{
    construire();
    attribuerRaccourcis(this);
}

FormulaireFrais::~FormulaireFrais() = default;

void FormulaireFrais::construire()
{
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(0, 0, 0, 0);
    m_titre = new QLabel(this);
    m_titre->setObjectName(QStringLiteral("titreFormulaireFrais"));
    QFont police = m_titre->font();
    police.setPointSizeF(police.pointSizeF() * 1.2);
    police.setBold(true);
    m_titre->setFont(police);
    mise->addWidget(m_titre);

    auto* colonnes = new QHBoxLayout;
    colonnes->addWidget(construireDepense(), 1);
    colonnes->addWidget(construireRattachement(), 1);
    mise->addLayout(colonnes);

    auto* boiteNote = new QGroupBox(QStringLiteral("Note"), this);
    auto* miseNote = new QVBoxLayout(boiteNote);
    m_note = new QPlainTextEdit(boiteNote);
    m_note->setObjectName(QStringLiteral("champNoteFrais"));
    m_note->setTabChangesFocus(true);
    miseNote->addWidget(m_note);
    mise->addWidget(boiteNote, 1);

    m_message = new MessageSaisie(this);
    m_message->surveiller(m_montant, QStringLiteral("Montant"));
    mise->addWidget(m_message);

    auto* boutons = new QHBoxLayout;
    boutons->addStretch(1);
    m_annuler = new QPushButton(QStringLiteral("Annuler"), this);
    m_annuler->setObjectName(QStringLiteral("boutonAnnulerFrais"));
    m_enregistrer = new QPushButton(QStringLiteral("Enregistrer"), this);
    m_enregistrer->setObjectName(QStringLiteral("boutonEnregistrerFrais"));
    m_enregistrer->setDefault(true);
    boutons->addWidget(m_annuler);
    boutons->addWidget(m_enregistrer);
    mise->addLayout(boutons);

    connect(m_categorie, &QComboBox::activated, this, &FormulaireFrais::categorieChoisie);
    connect(m_choisir, &QPushButton::clicked, this, &FormulaireFrais::choisirJustificatif);
    connect(m_voir, &QPushButton::clicked, this, &FormulaireFrais::voirJustificatif);
    connect(m_retirer, &QPushButton::clicked, this, &FormulaireFrais::retirerJustificatif);
    connect(m_enregistrer, &QPushButton::clicked, this, &FormulaireFrais::enregistrer);
    connect(m_annuler, &QPushButton::clicked, this, &FormulaireFrais::annuler);
}

QWidget* FormulaireFrais::construireDepense()
{
    auto* boite = new QGroupBox(QStringLiteral("Dépense"), this);
    auto* formulaire = new QFormLayout(boite);
    m_categorie = new QComboBox(boite);
    m_categorie->setObjectName(QStringLiteral("choixCategorieFrais"));
    m_categorie->setMinimumContentsLength(18);
    m_categorie->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_date = new ChampDate(boite);
    m_date->setObjectName(QStringLiteral("dateFrais"));
    m_montant = new ChampMontant(boite);
    m_montant->setObjectName(QStringLiteral("champMontantFrais"));
    m_montant->setMaximumWidth(140);
    m_unite = new QLabel(boite);
    m_unite->setObjectName(QStringLiteral("uniteFrais"));
    auto* montant = new QHBoxLayout;
    montant->addWidget(m_montant);
    montant->addWidget(m_unite);
    montant->addStretch(1);
    m_rembourse = new QCheckBox(QStringLiteral("Remboursé"), boite);
    m_rembourse->setObjectName(QStringLiteral("caseRembourseFrais"));
    m_rembourse->setToolTip(QStringLiteral("La dépense vous a été remboursée"));

    formulaire->addRow(QStringLiteral("Catégorie :"), m_categorie);
    formulaire->addRow(QStringLiteral("Date :"), m_date);
    m_libelleMontant = new QLabel(QStringLiteral("Montant :"), boite);
    formulaire->addRow(m_libelleMontant, montant);
    formulaire->addRow(QString(), m_rembourse);
    return boite;
}

QWidget* FormulaireFrais::construireRattachement()
{
    auto* boite = new QGroupBox(QStringLiteral("Contrat et justificatif"), this);
    auto* formulaire = new QFormLayout(boite);
    m_contrat = new QComboBox(boite);
    m_contrat->setObjectName(QStringLiteral("choixContratFrais"));
    m_contrat->setMinimumContentsLength(24);
    m_contrat->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_contrat->setToolTip(QStringLiteral("Le contrat pour lequel la dépense a été faite"));
    m_justificatif = new QLineEdit(boite);
    m_justificatif->setObjectName(QStringLiteral("champJustificatif"));
    m_justificatif->setReadOnly(true);
    m_justificatif->setPlaceholderText(QStringLiteral("Aucun justificatif"));
    auto* boutons = new QHBoxLayout;
    m_choisir = bouton(boite, QStringLiteral("Choisir…"), QStringLiteral("boutonChoisirJustificatif"));
    m_voir = bouton(boite, QStringLiteral("Voir"), QStringLiteral("boutonVoirJustificatif"));
    m_retirer = bouton(boite, QStringLiteral("Retirer"), QStringLiteral("boutonRetirerJustificatif"));
    boutons->addWidget(m_choisir);
    boutons->addWidget(m_voir);
    boutons->addWidget(m_retirer);
    boutons->addStretch(1);

    formulaire->addRow(QStringLiteral("Contrat lié :"), m_contrat);
    formulaire->addRow(QStringLiteral("Justificatif :"), m_justificatif);
    formulaire->addRow(QString(), boutons);
    return boite;
}

void FormulaireFrais::setDocument(Document* document)
{
    m_frais = document && document->estOuvert() ? std::make_unique<Frais>(document->base()) : nullptr;
    actualiserListes();
}

void FormulaireFrais::remplirCategories()
{
    const int garde = m_categorie->currentData().toInt();
    const QSignalBlocker bloque(m_categorie);
    m_categorie->clear();
    if (!m_frais)
        return;
    for (const auto& [id, libelle] : m_frais->choixTypesDeFrais())
        m_categorie->addItem(libelle, id);
    m_categorie->setCurrentIndex(qMax(0, m_categorie->findData(garde)));
}

void FormulaireFrais::remplirContrats()
{
    const int garde = m_contrat->currentData().toInt();
    const QSignalBlocker bloque(m_contrat);
    m_contrat->clear();
    m_contrat->addItem(QStringLiteral("Aucun contrat"), 0);
    if (!m_frais)
        return;
    for (const auto& [id, designation] : m_frais->contratsProposes())
        m_contrat->addItem(designation, id);
    m_contrat->setCurrentIndex(qMax(0, m_contrat->findData(garde)));
}

void FormulaireFrais::actualiserListes()
{
    remplirCategories();
    remplirContrats();
    categorieChoisie();
}

void FormulaireFrais::nouveau()
{
    Depense depense;
    depense.date = Horloge::aujourdhui();
    // The category last chosen stays, for a series of the same kind.
    depense.categorieId = m_categorie->currentData().toInt();
    m_mode = QStringLiteral("ajout");
    m_id = 0;
    m_titre->setText(QStringLiteral("Nouvelle dépense"));
    charger(depense);
}

bool FormulaireFrais::modifier(int id)
{
    const std::optional<Depense> depense = m_frais ? m_frais->chargeFrais(id) : std::nullopt;
    if (!depense)
        return false;
    m_mode = QStringLiteral("modif");
    m_id = id;
    m_titre->setText(QStringLiteral("Modification"));
    charger(*depense);
    return true;
}

bool FormulaireFrais::dupliquer(int id)
{
    std::optional<Depense> depense = m_frais ? m_frais->chargeFrais(id) : std::nullopt;
    if (!depense)
        return false;
    // The copy is another expense: the reimbursement and the contract are its own to set.
    depense->id = 0;
    depense->rembourse = false;
    depense->contratLie = 0;
    m_mode = QStringLiteral("ajout");
    m_id = 0;
    m_titre->setText(QStringLiteral("Nouvelle dépense"));
    charger(*depense);
    return true;
}

void FormulaireFrais::charger(const Depense& d)
{
    if (m_categorie->count() == 0)
        actualiserListes();
    const QList<QObject*> champs{m_categorie, m_date, m_montant, m_rembourse, m_contrat, m_note};
    QList<std::shared_ptr<QSignalBlocker>> bloques;
    for (QObject* champ : champs)
        bloques << std::make_shared<QSignalBlocker>(champ);
    m_categorie->setCurrentIndex(qMax(0, m_categorie->findData(d.categorieId)));
    m_date->setDate(d.date.isValid() ? d.date : Horloge::aujourdhui());
    m_montant->afficher(d.montant);
    m_rembourse->setChecked(d.rembourse);
    m_contrat->setCurrentIndex(qMax(0, m_contrat->findData(d.contratLie)));
    m_note->setPlainText(d.details);
    m_fichier = d.fichier;
    majJustificatif();
    bloques.clear();
    categorieChoisie();
    m_categorie->setFocus();
}

void FormulaireFrais::categorieChoisie()
{
    // The mileage category records a distance, in kilometres, with its own bounds.
    const bool km = Frais::estKilometrage(m_categorie->currentData().toInt());
    m_libelleMontant->setText(km ? QStringLiteral("Distance :") : QStringLiteral("Montant :"));
    m_unite->setText(km ? QStringLiteral("km") : QStringLiteral("€"));
    m_montant->setBornes(km ? Frais::kDistance : Limites::kMontant);
    m_montant->setPlaceholderText(km ? QStringLiteral("0") : QStringLiteral("0,00"));
    m_message->renommer(m_montant, km ? QStringLiteral("Distance") : QStringLiteral("Montant"));
}

void FormulaireFrais::majJustificatif()
{
    m_justificatif->setText(QDir::toNativeSeparators(m_fichier));
    m_justificatif->setToolTip(QDir::toNativeSeparators(m_fichier));
    m_voir->setEnabled(!m_fichier.isEmpty());
    m_retirer->setEnabled(!m_fichier.isEmpty());
}

void FormulaireFrais::choisirJustificatif()
{
    const QString dossier = m_fichier.isEmpty() ? QDir::homePath() : QFileInfo(m_fichier).absolutePath();
    const QString chemin = m_environnement.dialogues.choisirFichierAOuvrir(QStringLiteral("Choisir un justificatif"),
                                                                           dossier, {"pdf", "jpg", "jpeg", "png"});
    if (chemin.isEmpty())
        return;
    m_fichier = QFileInfo(chemin).absoluteFilePath();
    majJustificatif();
}

void FormulaireFrais::voirJustificatif()
{
    ouvrirJustificatif(m_fichier, m_environnement.dialogues);
}

void FormulaireFrais::retirerJustificatif()
{
    m_fichier.clear();
    majJustificatif();
}

Depense FormulaireFrais::depense() const
{
    Depense d;
    d.id = m_id;
    d.categorieId = m_categorie->currentData().toInt();
    d.date = m_date->date();
    d.montant = m_montant->nombre().value_or(0.0);
    d.rembourse = m_rembourse->isChecked();
    d.contratLie = m_contrat->currentData().toInt();
    d.fichier = m_fichier;
    d.details = m_note->toPlainText();
    return d;
}

void FormulaireFrais::refuser(const QString& message)
{
    m_environnement.dialogues.information(kTitreAlertesFrais, message, QStringLiteral("Fermer"));
}

bool FormulaireFrais::enregistrer()
{
    if (!m_frais) {
        refuser(ControleurApplication::messageSansDocument());
        return false;
    }
    // A figure that cannot be read is never saved, nor saved as 0.
    if (const QString refus = m_message->refus(); !refus.isEmpty()) {
        refuser(refus);
        return false;
    }
    const Depense d = depense();
    if (const QString refus = m_frais->refusValeurs(d); !refus.isEmpty()) {
        refuser(refus);
        return false;
    }
    const bool ecrit = m_mode == QStringLiteral("modif") ? m_frais->modifieFrais(d) : m_frais->enregistreFrais(d) > 0;
    if (!ecrit) {
        refuser(QStringLiteral("La dépense n'a pas pu être enregistrée."));
        return false;
    }
    emit enregistre();
    emit termine();
    return true;
}

void FormulaireFrais::annuler()
{
    emit termine();
}

void FormulaireFrais::keyPressEvent(QKeyEvent* evenement)
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
