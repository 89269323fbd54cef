#include "app/frais/FenetreCategoriesFrais.h"

#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "records/FraisTypes.h"
#include "store/Dialogues.h"
#include "store/Document.h"

#include <QAction>
#include <QFormLayout>
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

FenetreCategoriesFrais::FenetreCategoriesFrais(Environnement& environnement, QWidget* parent)
    : QDialog(parent), m_environnement(environnement)
{
    setObjectName(QStringLiteral("fenetreCategoriesFrais"));
    setWindowTitle(FraisTypes::titreFenetre());
    auto* mise = new QVBoxLayout(this);

    m_liste = new QTableWidget(0, 2, this);
    m_liste->setObjectName(QStringLiteral("listeCategoriesFrais"));
    m_liste->setHorizontalHeaderLabels({QStringLiteral("Catégorie"), QStringLiteral("Frais")});
    m_liste->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_liste->setSelectionMode(QAbstractItemView::SingleSelection);
    m_liste->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_liste->setAlternatingRowColors(true);
    m_liste->verticalHeader()->hide();
    m_liste->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_liste->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    auto* effacer = new QAction(QStringLiteral("Supprimer"), m_liste);
    effacer->setShortcut(QKeySequence::Delete);
    effacer->setShortcutContext(Qt::WidgetShortcut);
    m_liste->addAction(effacer);
    connect(effacer, &QAction::triggered, this, &FenetreCategoriesFrais::supprimer);
    mise->addWidget(m_liste, 1);

    auto* forme = new QFormLayout;
    m_nom = new QLineEdit(this);
    m_nom->setObjectName(QStringLiteral("champNomCategorie"));
    m_nom->setPlaceholderText(QStringLiteral("Nom de la catégorie"));
    forme->addRow(QStringLiteral("&Nom :"), m_nom);
    mise->addLayout(forme);

    auto* boutons = new QHBoxLayout;
    m_ajouter = bouton(this, QStringLiteral("Ajouter"), QStringLiteral("boutonAjouterCategorie"));
    m_renommer = bouton(this, QStringLiteral("Renommer"), QStringLiteral("boutonRenommerCategorie"));
    m_supprimer = bouton(this, QStringLiteral("Supprimer"), QStringLiteral("boutonSupprimerCategorie"));
    auto* fermer = bouton(this, QStringLiteral("Fermer"), QStringLiteral("boutonFermerCategories"));
    boutons->addWidget(m_ajouter);
    boutons->addWidget(m_renommer);
    boutons->addWidget(m_supprimer);
    boutons->addStretch(1);
    boutons->addWidget(fermer);
    mise->addLayout(boutons);

    connect(m_ajouter, &QPushButton::clicked, this, &FenetreCategoriesFrais::ajouter);
    connect(m_renommer, &QPushButton::clicked, this, &FenetreCategoriesFrais::renommer);
    connect(m_supprimer, &QPushButton::clicked, this, &FenetreCategoriesFrais::supprimer);
    connect(fermer, &QPushButton::clicked, this, &QDialog::close);
    // Enter in the name field adds it.
    connect(m_nom, &QLineEdit::returnPressed, this, &FenetreCategoriesFrais::ajouter);
    connect(m_liste, &QTableWidget::itemSelectionChanged, this, &FenetreCategoriesFrais::selectionChangee);
    resize(420, 460);
    selectionChangee();
}

FenetreCategoriesFrais::~FenetreCategoriesFrais() = default;

void FenetreCategoriesFrais::setDocument(Document* document)
{
    m_categories = document && document->estOuvert() ? std::make_unique<FraisTypes>(document->base()) : nullptr;
    recharger();
}

void FenetreCategoriesFrais::recharger(int idASelectionner)
{
    const int garde = idASelectionner > 0 ? idASelectionner : idSelectionne();
    const QSignalBlocker bloque(m_liste);
    m_liste->setRowCount(0);
    if (m_categories) {
        const Table table = m_categories->listeLesCategories();
        m_liste->setRowCount(int(table.size()));
        for (int i = 0; i < table.size(); ++i) {
            auto* libelle = new QTableWidgetItem(table.rangees.at(i).at(1).toString());
            libelle->setData(Qt::UserRole, table.rangees.at(i).at(0));
            auto* nombre = new QTableWidgetItem(QString::number(table.rangees.at(i).at(2).toInt()));
            nombre->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            m_liste->setItem(i, 0, libelle);
            m_liste->setItem(i, 1, nombre);
        }
    }
    selectionner(garde);
    selectionChangee();
}

int FenetreCategoriesFrais::idSelectionne() const
{
    const QList<QTableWidgetItem*> choisis = m_liste->selectedItems();
    return choisis.isEmpty() ? 0 : m_liste->item(choisis.first()->row(), 0)->data(Qt::UserRole).toInt();
}

void FenetreCategoriesFrais::selectionner(int id)
{
    for (int i = 0; i < m_liste->rowCount(); ++i)
        if (m_liste->item(i, 0)->data(Qt::UserRole).toInt() == id) {
            m_liste->selectRow(i);
            return;
        }
    m_liste->clearSelection();
}

void FenetreCategoriesFrais::selectionChangee()
{
    const int id = idSelectionne();
    m_renommer->setEnabled(id > 0);
    m_supprimer->setEnabled(id > 0);
    // The selected category's name, ready to be changed.
    if (id > 0)
        m_nom->setText(m_liste->item(m_liste->selectedItems().first()->row(), 0)->text());
}

bool FenetreCategoriesFrais::refuser(const QString& message)
{
    m_environnement.dialogues.information(FraisTypes::titreFenetre(), message, FraisTypes::boutonFermer());
    return false;
}

bool FenetreCategoriesFrais::ajouter()
{
    if (!m_categories)
        return refuser(ControleurApplication::messageSansDocument());
    if (const QString refus = m_categories->refusNom(m_nom->text()); !refus.isEmpty())
        return refuser(refus);
    const int id = m_categories->enregistreCategorie(m_nom->text());
    if (id == 0)
        return refuser(QStringLiteral("La catégorie n'a pas pu être enregistrée."));
    recharger(id);
    return true;
}

bool FenetreCategoriesFrais::renommer()
{
    const int id = idSelectionne();
    if (!m_categories)
        return refuser(ControleurApplication::messageSansDocument());
    if (id == 0)
        return false;
    if (const QString refus = m_categories->refusNom(m_nom->text(), id); !refus.isEmpty())
        return refuser(refus);
    if (!m_categories->renommeCategorie(id, m_nom->text()))
        return refuser(QStringLiteral("La catégorie n'a pas pu être renommée."));
    recharger(id);
    return true;
}

bool FenetreCategoriesFrais::supprimer()
{
    const int id = idSelectionne();
    if (!m_categories)
        return refuser(ControleurApplication::messageSansDocument());
    if (id == 0 || !m_categories->supprimeCategorieAvecVerification(id, m_environnement.dialogues))
        return false;
    m_nom->clear();
    recharger();
    return true;
}

} // namespace corvane::app
