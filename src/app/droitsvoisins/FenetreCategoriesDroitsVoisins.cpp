#include "app/droitsvoisins/FenetreCategoriesDroitsVoisins.h"

#include "app/Environnement.h"
#include "records/DroitsVoisins.h"
#include "store/Dialogues.h"
#include "store/Document.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
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

FenetreCategoriesDroitsVoisins::FenetreCategoriesDroitsVoisins(Environnement& environnement, Document& document,
                                                               QWidget* parent)
    : QDialog(parent), m_environnement(environnement), m_modele(std::make_unique<DroitsVoisins>(document.base()))
{
    setObjectName(QStringLiteral("fenetreCategoriesDv"));
    setWindowTitle(DroitsVoisins::titreCategories());
    auto* mise = new QVBoxLayout(this);

    m_liste = new QTableWidget(0, 2, this);
    m_liste->setObjectName(QStringLiteral("listeCategoriesDv"));
    m_liste->setHorizontalHeaderLabels({QStringLiteral("Catégorie"), QStringLiteral("Versements")});
    m_liste->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_liste->setSelectionMode(QAbstractItemView::SingleSelection);
    m_liste->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    m_liste->verticalHeader()->hide();
    m_liste->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_liste->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    mise->addWidget(m_liste, 1);
    auto* aide = new QLabel(QStringLiteral("Double-cliquez sur une catégorie pour la renommer."), this);
    aide->setEnabled(false);
    mise->addWidget(aide);

    auto* ajout = new QHBoxLayout;
    m_nouvelle = new QLineEdit(this);
    m_nouvelle->setObjectName(QStringLiteral("champNouvelleCategorieDv"));
    m_nouvelle->setPlaceholderText(QStringLiteral("Nouvelle catégorie"));
    auto* ajouterBouton = bouton(this, QStringLiteral("Ajouter"), QStringLiteral("boutonAjouterCategorieDv"));
    ajout->addWidget(m_nouvelle, 1);
    ajout->addWidget(ajouterBouton);
    mise->addLayout(ajout);

    auto* boutons = new QHBoxLayout;
    m_supprimer = bouton(this, QStringLiteral("Supprimer"), QStringLiteral("boutonSupprimerCategorieDv"));
    auto* fermer = bouton(this, QStringLiteral("Fermer"), QStringLiteral("boutonFermerCategoriesDv"));
    boutons->addWidget(m_supprimer);
    boutons->addStretch(1);
    boutons->addWidget(fermer);
    mise->addLayout(boutons);

    connect(ajouterBouton, &QPushButton::clicked, this, &FenetreCategoriesDroitsVoisins::ajouter);
    connect(m_nouvelle, &QLineEdit::returnPressed, this, &FenetreCategoriesDroitsVoisins::ajouter);
    connect(m_supprimer, &QPushButton::clicked, this, &FenetreCategoriesDroitsVoisins::supprimer);
    connect(fermer, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_liste, &QTableWidget::itemChanged, this, &FenetreCategoriesDroitsVoisins::nomModifie);
    connect(m_liste, &QTableWidget::itemSelectionChanged, this,
            [this] { m_supprimer->setEnabled(idSelectionne() != 0); });
    resize(440, 420);
    recharger();
}

FenetreCategoriesDroitsVoisins::~FenetreCategoriesDroitsVoisins() = default;

void FenetreCategoriesDroitsVoisins::recharger(int idASelectionner)
{
    const QSignalBlocker bloque(m_liste);
    m_liste->setRowCount(0);
    const Intermittent::Choix categories = m_modele->categories();
    m_liste->setRowCount(int(categories.size()));
    for (int rangee = 0; rangee < categories.size(); ++rangee) {
        const auto& [id, nom] = categories.at(rangee);
        auto* libelle = new QTableWidgetItem(nom);
        libelle->setData(Qt::UserRole, id);
        auto* nombre = new QTableWidgetItem(QString::number(m_modele->compteLesDroitsDeLaCategorie(id)));
        nombre->setFlags(nombre->flags() & ~Qt::ItemIsEditable);
        nombre->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        m_liste->setItem(rangee, 0, libelle);
        m_liste->setItem(rangee, 1, nombre);
        if (id == idASelectionner)
            m_liste->selectRow(rangee);
    }
    m_supprimer->setEnabled(idSelectionne() != 0);
}

int FenetreCategoriesDroitsVoisins::idSelectionne() const
{
    const QModelIndexList rangees = m_liste->selectionModel()->selectedRows();
    if (rangees.isEmpty())
        return 0;
    const QTableWidgetItem* item = m_liste->item(rangees.first().row(), 0);
    return item ? item->data(Qt::UserRole).toInt() : 0;
}

void FenetreCategoriesDroitsVoisins::alerter(const QString& titre, const QString& message)
{
    m_environnement.dialogues.information(titre, message, QStringLiteral("Fermer"));
}

bool FenetreCategoriesDroitsVoisins::ajouter()
{
    const QString nom = m_nouvelle->text();
    if (const QString refus = m_modele->refusCategorie(nom); !refus.isEmpty()) {
        alerter(refus == DroitsVoisins::messageCategorieExistante() ? DroitsVoisins::titreDoublon()
                                                                    : DroitsVoisins::titreCategories(),
                refus);
        return false;
    }
    const int id = m_modele->ajouteCategorie(nom);
    if (id == 0) {
        alerter(DroitsVoisins::titreCategories(), QStringLiteral("La catégorie n'a pas pu être enregistrée."));
        return false;
    }
    m_nouvelle->clear();
    recharger(id);
    emit categoriesModifiees();
    return true;
}

bool FenetreCategoriesDroitsVoisins::renommer(int id, const QString& nom)
{
    const QString refus = m_modele->refusCategorie(nom, id);
    const bool ecrit = refus.isEmpty() && m_modele->renommeCategorie(id, nom);
    // The row shows the stored name again: the new one, or the old one after a refusal. It is
    // set in place, since this may run while the row's own edit is being committed.
    for (int rangee = 0; rangee < m_liste->rowCount(); ++rangee)
        if (QTableWidgetItem* item = m_liste->item(rangee, 0); item && item->data(Qt::UserRole).toInt() == id) {
            const QSignalBlocker bloque(m_liste);
            item->setText(m_modele->findDvCategoryFromId(id));
        }
    if (!refus.isEmpty())
        alerter(refus == DroitsVoisins::messageCategorieExistante() ? DroitsVoisins::titreDoublon()
                                                                    : DroitsVoisins::titreCategories(),
                refus);
    if (ecrit)
        emit categoriesModifiees();
    return ecrit;
}

void FenetreCategoriesDroitsVoisins::nomModifie(QTableWidgetItem* item)
{
    if (item && item->column() == 0)
        renommer(item->data(Qt::UserRole).toInt(), item->text());
}

bool FenetreCategoriesDroitsVoisins::supprimer()
{
    const int id = idSelectionne();
    if (id == 0 || !m_modele->supprimeCategorieAvecVerification(id, m_environnement.dialogues))
        return false;
    recharger();
    emit categoriesModifiees();
    return true;
}

} // namespace corvane::app
