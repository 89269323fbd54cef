#include "app/manager/FenetreRemises.h"

#include "app/Environnement.h"
#include "app/kit/ChampChiffre.h"
#include "manager/TarifsPropositions.h"
#include "store/Dialogues.h"
#include "store/Document.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
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

FenetreRemises::FenetreRemises(Environnement& environnement, Document& document, const QString& titreAlertes,
                               QWidget* parent)
    : QDialog(parent), m_environnement(environnement), m_titreAlertes(titreAlertes),
      m_tarifs(std::make_unique<TarifsPropositions>(document.base()))
{
    setObjectName(QStringLiteral("fenetreRemises"));
    setWindowTitle(TarifsPropositions::titreRemises());
    auto* mise = new QVBoxLayout(this);

    m_liste = new QTableWidget(0, 2, this);
    m_liste->setObjectName(QStringLiteral("listeRemises"));
    m_liste->setHorizontalHeaderLabels({QStringLiteral("Remise"), QStringLiteral("Note")});
    m_liste->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_liste->setSelectionMode(QAbstractItemView::SingleSelection);
    m_liste->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_liste->verticalHeader()->hide();
    m_liste->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_liste->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    mise->addWidget(m_liste, 1);

    auto* ajout = new QHBoxLayout;
    m_montant = new ChampChiffre(Bornes{0.0, Limites::kMontantMaximum, 2, false}, this);
    m_montant->setObjectName(QStringLiteral("montantNouvelleRemise"));
    m_montant->setPlaceholderText(QStringLiteral("10"));
    m_montant->setMaximumWidth(110);
    m_type = new QComboBox(this);
    m_type->setObjectName(QStringLiteral("typeNouvelleRemise"));
    m_type->addItem(QStringLiteral("%"), TarifsPropositions::kTypePourcentage);
    m_type->addItem(QStringLiteral("€"), TarifsPropositions::kTypeMontant);
    m_note = new QLineEdit(this);
    m_note->setObjectName(QStringLiteral("noteNouvelleRemise"));
    m_note->setPlaceholderText(QStringLiteral("Note"));
    auto* ajouterBouton = bouton(this, QStringLiteral("Ajouter"), QStringLiteral("boutonAjouterRemise"));
    ajout->addWidget(m_montant);
    ajout->addWidget(m_type);
    ajout->addWidget(m_note, 1);
    ajout->addWidget(ajouterBouton);
    mise->addLayout(ajout);

    auto* boutons = new QHBoxLayout;
    m_supprimer = bouton(this, QStringLiteral("Supprimer"), QStringLiteral("boutonSupprimerRemise"));
    auto* fermer = bouton(this, QStringLiteral("Fermer"), QStringLiteral("boutonFermerRemises"));
    boutons->addWidget(m_supprimer);
    boutons->addStretch(1);
    boutons->addWidget(fermer);
    mise->addLayout(boutons);

    connect(ajouterBouton, &QPushButton::clicked, this, &FenetreRemises::ajouter);
    connect(m_note, &QLineEdit::returnPressed, this, &FenetreRemises::ajouter);
    connect(m_supprimer, &QPushButton::clicked, this, &FenetreRemises::supprimer);
    connect(fermer, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_liste, &QTableWidget::itemSelectionChanged, this,
            [this] { m_supprimer->setEnabled(idSelectionne() > TarifsPropositions::kAucuneRemise); });
    resize(460, 400);
    recharger();
}

FenetreRemises::~FenetreRemises() = default;

void FenetreRemises::recharger(int idASelectionner)
{
    const QList<Remise> remises = m_tarifs->remises();
    m_liste->setRowCount(int(remises.size()));
    for (int rangee = 0; rangee < remises.size(); ++rangee) {
        const Remise& r = remises.at(rangee);
        auto* libelle = new QTableWidgetItem(TarifsPropositions::libelleRemise(r));
        libelle->setData(Qt::UserRole, r.id);
        m_liste->setItem(rangee, 0, libelle);
        m_liste->setItem(rangee, 1, new QTableWidgetItem(r.note));
        if (r.id == idASelectionner)
            m_liste->selectRow(rangee);
    }
    m_supprimer->setEnabled(idSelectionne() > TarifsPropositions::kAucuneRemise);
}

int FenetreRemises::idSelectionne() const
{
    const QModelIndexList rangees = m_liste->selectionModel()->selectedRows();
    if (rangees.isEmpty())
        return 0;
    const QTableWidgetItem* item = m_liste->item(rangees.first().row(), 0);
    return item ? item->data(Qt::UserRole).toInt() : 0;
}

void FenetreRemises::alerter(const QString& message)
{
    m_environnement.dialogues.information(m_titreAlertes, message, QStringLiteral("Fermer"));
}

int FenetreRemises::ajouter()
{
    const int type = m_type->currentData().toInt();
    const Bornes bornes =
        type == TarifsPropositions::kTypePourcentage ? Limites::kPourcentage : TarifsPropositions::kPrix;
    const Lecture<double> montant = SaisieFrancaise::nombre(m_montant->text(), bornes);
    if (!montant.ok()) {
        alerter(QStringLiteral("Remise : %1.").arg(montant.erreur));
        return 0;
    }
    const Remise remise{0, *montant.valeur, type, m_note->text().trimmed()};
    if (const QString refus = m_tarifs->refusRemise(remise); !refus.isEmpty()) {
        alerter(refus);
        return 0;
    }
    const int id = m_tarifs->ajouteRemise(remise);
    if (id == 0) {
        alerter(QStringLiteral("La remise n'a pas pu être enregistrée."));
        return 0;
    }
    m_montant->clear();
    m_note->clear();
    recharger(id);
    emit remisesModifiees(id);
    return id;
}

bool FenetreRemises::supprimer()
{
    const int id = idSelectionne();
    if (id == 0)
        return false;
    if (const QString refus = m_tarifs->refusSuppressionRemise(id); !refus.isEmpty()) {
        alerter(refus);
        return false;
    }
    if (!m_tarifs->supprimeRemise(id))
        return false;
    recharger();
    emit remisesModifiees(0);
    return true;
}

} // namespace corvane::app
