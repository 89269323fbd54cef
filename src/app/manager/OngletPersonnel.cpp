#include "app/manager/OngletPersonnel.h"

#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/manager/FormulaireEmploye.h"
#include "app/manager/ModelesPersonnel.h"
#include "manager/Employes.h"
#include "manager/Structures.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/Reglages.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QSplitter>
#include <QStackedWidget>
#include <QTableView>
#include <QTimer>
#include <QTreeView>
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

OngletPersonnel::OngletPersonnel(Environnement& environnement, QWidget* parent)
    : OngletManager(parent), m_environnement(environnement)
{
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(0, 0, 0, 0);
    m_etats = new QStackedWidget(this);
    m_etats->setObjectName(QStringLiteral("etatsPersonnel"));
    mise->addWidget(m_etats);

    m_liste = new QWidget(m_etats);
    auto* miseListe = new QVBoxLayout(m_liste);
    miseListe->setContentsMargins(0, 0, 0, 0);
    auto* partage = new QSplitter(Qt::Horizontal, m_liste);
    partage->setChildrenCollapsible(false);
    partage->addWidget(construireStructures());
    partage->addWidget(construireEmployes());
    partage->setStretchFactor(0, 2);
    partage->setStretchFactor(1, 3);
    miseListe->addWidget(partage, 1);
    auto* aide =
        new QLabel(QStringLiteral("Glissez des employés de la liste sur une structure pour les y rattacher."), m_liste);
    aide->setEnabled(false);
    miseListe->addWidget(aide);

    m_formulaire = new FormulaireEmploye(environnement, m_etats);
    m_formulaire->setObjectName(QStringLiteral("formulaireEmploye"));
    m_etats->addWidget(m_liste);
    m_etats->addWidget(m_formulaire);

    connect(m_formulaire, &FormulaireEmploye::enregistre, this, [this](int id) {
        afficherListe();
        if (const int rangee = m_employes->rangeeDe(id); rangee >= 0) {
            auto* tri = static_cast<QSortFilterProxyModel*>(m_tableEmployes->model());
            m_tableEmployes->selectRow(tri->mapFromSource(m_employes->index(rangee, 0)).row());
        }
        emit ecrit();
    });
    connect(m_formulaire, &FormulaireEmploye::termine, this, &OngletPersonnel::afficherListe);
    majBoutons();
}

OngletPersonnel::~OngletPersonnel() = default;

QWidget* OngletPersonnel::construireStructures()
{
    auto* boite = new QGroupBox(QStringLiteral("Structures"), m_liste);
    auto* mise = new QVBoxLayout(boite);

    auto* ajout = new QHBoxLayout;
    m_nomStructure = new QLineEdit(boite);
    m_nomStructure->setObjectName(QStringLiteral("champNomStructure"));
    m_nomStructure->setPlaceholderText(QStringLiteral("Nom de la nouvelle structure"));
    auto* ajouter = bouton(boite, QStringLiteral("Ajouter"), QStringLiteral("boutonAjouterStructure"));
    ajout->addWidget(m_nomStructure, 1);
    ajout->addWidget(ajouter);
    mise->addLayout(ajout);

    m_structures = new ModeleStructures(this);
    m_arbre = new QTreeView(boite);
    m_arbre->setObjectName(QStringLiteral("arbreStructures"));
    m_arbre->setModel(m_structures);
    m_arbre->setHeaderHidden(true);
    m_arbre->setSelectionMode(QAbstractItemView::SingleSelection);
    m_arbre->setEditTriggers(QAbstractItemView::EditKeyPressed);
    // A drop always lands on the row under the pointer: the structure, or the employee's structure.
    m_arbre->setDragDropMode(QAbstractItemView::DropOnly);
    m_arbre->setDragDropOverwriteMode(true);
    m_arbre->setDefaultDropAction(Qt::CopyAction);
    m_arbre->setDropIndicatorShown(true);
    m_arbre->setAcceptDrops(true);
    m_arbre->setContextMenuPolicy(Qt::CustomContextMenu);
    mise->addWidget(m_arbre, 1);

    auto* boutons = new QHBoxLayout;
    m_renommer = bouton(boite, QStringLiteral("Renommer"), QStringLiteral("boutonRenommerStructure"));
    m_retirer = bouton(boite, QStringLiteral("Retirer de la structure"), QStringLiteral("boutonRetirerDeLaStructure"));
    m_supprimerStructure = bouton(boite, QStringLiteral("Supprimer"), QStringLiteral("boutonSupprimerStructure"));
    boutons->addWidget(m_renommer);
    boutons->addWidget(m_retirer);
    boutons->addStretch(1);
    boutons->addWidget(m_supprimerStructure);
    mise->addLayout(boutons);

    connect(ajouter, &QPushButton::clicked, this, &OngletPersonnel::ajouterStructure);
    connect(m_nomStructure, &QLineEdit::returnPressed, this, &OngletPersonnel::ajouterStructure);
    connect(m_renommer, &QPushButton::clicked, this, [this] {
        if (const int id = structureSelectionnee(); id > 0)
            m_arbre->edit(m_structures->indexStructure(id));
    });
    connect(m_retirer, &QPushButton::clicked, this, &OngletPersonnel::retirerDeLaStructure);
    connect(m_supprimerStructure, &QPushButton::clicked, this, &OngletPersonnel::supprimerStructure);
    connect(m_arbre, &QWidget::customContextMenuRequested, this, &OngletPersonnel::menuArbre);
    connect(m_structures, &ModeleStructures::rattachementDemande, this, &OngletPersonnel::rattacher);
    // The outline is read again once the editor is closed, not while it still writes.
    connect(m_structures, &ModeleStructures::renommageDemande, this, [this](int id, const QString& nom) {
        QTimer::singleShot(0, this, [this, id, nom] { renommerStructure(id, nom); });
    });
    connect(m_arbre->selectionModel(), &QItemSelectionModel::selectionChanged, this, &OngletPersonnel::majBoutons);
    connect(m_structures, &QAbstractItemModel::modelReset, this, &OngletPersonnel::majBoutons);
    return boite;
}

QWidget* OngletPersonnel::construireEmployes()
{
    auto* boite = new QGroupBox(QStringLiteral("Employés"), m_liste);
    auto* mise = new QVBoxLayout(boite);
    m_employes = new ModeleEmployes(this);
    m_tableEmployes = vueTriee(m_employes, boite, QStringLiteral("tableEmployes"), 0);
    // A function such as "Metteur en scène" is read whole.
    m_tableEmployes->horizontalHeader()->setSectionResizeMode(2, QHeaderView::ResizeToContents);
    m_tableEmployes->setDragEnabled(true);
    m_tableEmployes->setDragDropMode(QAbstractItemView::DragOnly);
    m_tableEmployes->setDefaultDropAction(Qt::CopyAction);
    mise->addWidget(m_tableEmployes, 1);

    auto* boutons = new QHBoxLayout;
    auto* nouveau = bouton(boite, QStringLiteral("Nouvel employé"), QStringLiteral("boutonNouvelEmploye"));
    m_modifierEmploye = bouton(boite, QStringLiteral("Modifier"), QStringLiteral("boutonModifierEmploye"));
    m_rattacher = bouton(boite, QStringLiteral("Rattacher à la structure"), QStringLiteral("boutonRattacherEmployes"));
    m_rattacher->setToolTip(QStringLiteral("Rattache les employés choisis à la structure choisie à gauche"));
    m_supprimerEmploye = bouton(boite, QStringLiteral("Supprimer"), QStringLiteral("boutonSupprimerEmploye"));
    boutons->addWidget(nouveau);
    boutons->addWidget(m_modifierEmploye);
    boutons->addWidget(m_rattacher);
    boutons->addStretch(1);
    boutons->addWidget(m_supprimerEmploye);
    mise->addLayout(boutons);

    connect(nouveau, &QPushButton::clicked, this, &OngletPersonnel::nouvelEmploye);
    connect(m_modifierEmploye, &QPushButton::clicked, this, &OngletPersonnel::modifierEmploye);
    connect(m_tableEmployes, &QTableView::doubleClicked, this, &OngletPersonnel::modifierEmploye);
    connect(m_rattacher, &QPushButton::clicked, this, &OngletPersonnel::rattacherSelection);
    connect(m_supprimerEmploye, &QPushButton::clicked, this, &OngletPersonnel::supprimerEmploye);
    connect(m_tableEmployes->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &OngletPersonnel::majBoutons);
    connect(m_employes, &QAbstractItemModel::modelReset, this, &OngletPersonnel::majBoutons);
    return boite;
}

void OngletPersonnel::setDocument(Document* document)
{
    m_document = document;
    const bool ouvert = document && document->estOuvert();
    m_modeleStructures = ouvert ? std::make_unique<Structures>(document->base()) : nullptr;
    m_modeleEmployes = ouvert ? std::make_unique<Employes>(document->base()) : nullptr;
    m_formulaire->setDocument(document);
    m_etats->setCurrentWidget(m_liste);
    actualiser();
}

void OngletPersonnel::actualiser()
{
    // An employee being typed keeps what was typed; the lists are read when the form closes.
    if (enEdition())
        return;
    const int structure = structureSelectionnee();
    const int employe = m_structures->employeId(m_arbre->currentIndex());
    const QList<int> selection = employesSelectionnes();
    QSet<int> ouvertes;
    for (int rangee = 0; rangee < m_structures->rowCount(); ++rangee)
        if (m_arbre->isExpanded(m_structures->index(rangee, 0)))
            ouvertes.insert(m_structures->structureId(m_structures->index(rangee, 0)));

    const Table employes = m_modeleEmployes ? m_modeleEmployes->listeLesEmployes() : Table();
    m_structures->charger(m_modeleStructures ? m_modeleStructures->listeLesStructures() : Table(), employes);
    m_employes->setTable(employes);

    for (const int id : ouvertes)
        m_arbre->expand(m_structures->indexStructure(id));
    const QModelIndex courant =
        employe > 0 ? m_structures->indexEmploye(structure, employe) : m_structures->indexStructure(structure);
    if (courant.isValid())
        m_arbre->setCurrentIndex(courant);
    auto* tri = static_cast<QSortFilterProxyModel*>(m_tableEmployes->model());
    for (const int id : selection)
        if (const int rangee = m_employes->rangeeDe(id); rangee >= 0)
            m_tableEmployes->selectionModel()->select(tri->mapFromSource(m_employes->index(rangee, 0)),
                                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
    majBoutons();
}

QSet<QString> OngletPersonnel::tablesLues() const
{
    return {"structures", "employes"};
}

void OngletPersonnel::showEvent(QShowEvent* evenement)
{
    // The other tabs may have written while this one was hidden.
    OngletManager::showEvent(evenement);
    actualiser();
}

bool OngletPersonnel::enEdition() const
{
    return m_etats->currentWidget() == m_formulaire;
}

void OngletPersonnel::afficherListe()
{
    m_etats->setCurrentWidget(m_liste);
    actualiser();
    m_tableEmployes->setFocus();
}

bool OngletPersonnel::documentOuvert(const QString& titre)
{
    if (m_modeleStructures)
        return true;
    refuser(titre, ControleurApplication::messageSansDocument());
    return false;
}

void OngletPersonnel::refuser(const QString& titre, const QString& message)
{
    m_environnement.dialogues.information(titre, message, QStringLiteral("Fermer"));
}

bool OngletPersonnel::demander(const QString& titre, const QString& message)
{
    if (!m_environnement.reglages.booleen(Reglages::Cle::DeleteAlerts))
        return true;
    return m_environnement.dialogues.question(titre, message, {QStringLiteral("Oui"), QStringLiteral("Non")}) ==
           QStringLiteral("Oui");
}

QList<int> OngletPersonnel::employesSelectionnes() const
{
    QList<int> ids;
    auto* tri = static_cast<QSortFilterProxyModel*>(m_tableEmployes->model());
    for (const QModelIndex& index : m_tableEmployes->selectionModel()->selectedRows())
        ids << m_employes->idEmploye(tri->mapToSource(index).row());
    return ids;
}

int OngletPersonnel::structureSelectionnee() const
{
    return m_structures->structureId(m_arbre->currentIndex());
}

void OngletPersonnel::selectionnerStructure(int id)
{
    if (const QModelIndex index = m_structures->indexStructure(id); index.isValid())
        m_arbre->setCurrentIndex(index);
}

void OngletPersonnel::majBoutons()
{
    const QModelIndex courant = m_arbre->currentIndex();
    const bool structure = courant.isValid() && m_structures->employeId(courant) == 0;
    m_renommer->setEnabled(structure);
    m_supprimerStructure->setEnabled(structure);
    m_retirer->setEnabled(m_structures->employeId(courant) > 0);
    const qsizetype employes = m_tableEmployes->selectionModel()->selectedRows().size();
    m_modifierEmploye->setEnabled(employes == 1);
    m_supprimerEmploye->setEnabled(employes == 1);
    m_rattacher->setEnabled(employes > 0 && courant.isValid());
}

void OngletPersonnel::menuArbre(const QPoint& position)
{
    const QModelIndex index = m_arbre->indexAt(position);
    if (!index.isValid())
        return;
    m_arbre->setCurrentIndex(index);
    QMenu menu(this);
    if (m_structures->employeId(index) > 0) {
        connect(menu.addAction(QStringLiteral("Retirer de la structure")), &QAction::triggered, this,
                &OngletPersonnel::retirerDeLaStructure);
    } else {
        connect(menu.addAction(QStringLiteral("Renommer")), &QAction::triggered, this,
                [this, index] { m_arbre->edit(index); });
        connect(menu.addAction(QStringLiteral("Supprimer la structure")), &QAction::triggered, this,
                &OngletPersonnel::supprimerStructure);
    }
    menu.exec(m_arbre->viewport()->mapToGlobal(position));
}

// --- Structures ---------------------------------------------------------------------------------------

bool OngletPersonnel::ajouterStructure()
{
    if (!documentOuvert(Structures::titreAlertes()))
        return false;
    const QString nom = m_nomStructure->text();
    if (const QString refus = m_modeleStructures->refusNom(nom); !refus.isEmpty()) {
        refuser(Structures::titreAlertes(), refus);
        return false;
    }
    const int id = m_modeleStructures->ajouteStructure(nom);
    if (id == 0) {
        refuser(Structures::titreAlertes(), QStringLiteral("La structure n'a pas pu être enregistrée."));
        return false;
    }
    m_nomStructure->clear();
    actualiser();
    selectionnerStructure(id);
    emit ecrit();
    return true;
}

bool OngletPersonnel::renommerStructure(int id, const QString& nom)
{
    if (!documentOuvert(Structures::titreAlertes()))
        return false;
    bool renommee = false;
    if (const QString refus = m_modeleStructures->refusNom(nom, id); !refus.isEmpty())
        refuser(Structures::titreAlertes(), refus);
    else if (!(renommee = m_modeleStructures->renommeStructure(id, nom)))
        refuser(Structures::titreAlertes(), QStringLiteral("La structure n'a pas pu être renommée."));
    // Read again either way: a refused name gives way to the stored one.
    actualiser();
    if (renommee)
        emit ecrit();
    return renommee;
}

bool OngletPersonnel::supprimerStructure()
{
    if (!documentOuvert(Structures::titreAlertes()))
        return false;
    const int id = structureSelectionnee();
    if (id == 0 || m_structures->employeId(m_arbre->currentIndex()) > 0)
        return false;
    if (const QString refus = m_modeleStructures->refusSuppression(id); !refus.isEmpty()) {
        refuser(Structures::titreAlertes(), refus);
        return false;
    }
    if (!demander(Structures::titreAlertes(),
                  QStringLiteral("Souhaitez-vous réellement supprimer la structure « %1 » ?")
                      .arg(m_modeleStructures->nomStructure(id))))
        return false;
    if (!m_modeleStructures->supprimeStructure(id)) {
        refuser(Structures::titreAlertes(), QStringLiteral("La structure n'a pas pu être supprimée."));
        return false;
    }
    actualiser();
    emit ecrit();
    return true;
}

bool OngletPersonnel::rattacherSelection()
{
    if (!documentOuvert(Structures::titreAlertes()))
        return false;
    const QList<int> employes = employesSelectionnes();
    const int structure = structureSelectionnee();
    if (employes.isEmpty() || structure == 0)
        return false;
    return rattacher(structure, employes);
}

bool OngletPersonnel::rattacher(int structureId, const QList<int>& employes)
{
    if (!documentOuvert(Structures::titreAlertes()))
        return false;
    if (!m_modeleStructures->rattacheEmployes(structureId, employes)) {
        refuser(Structures::titreAlertes(), QStringLiteral("Les employés n'ont pas pu être rattachés à la structure."));
        return false;
    }
    actualiser();
    const QModelIndex index = m_structures->indexStructure(structureId);
    m_arbre->expand(index);
    m_arbre->setCurrentIndex(index);
    emit ecrit();
    return true;
}

bool OngletPersonnel::retirerDeLaStructure()
{
    if (!documentOuvert(Structures::titreAlertes()))
        return false;
    const QModelIndex courant = m_arbre->currentIndex();
    const int employe = m_structures->employeId(courant);
    const int structure = m_structures->structureId(courant);
    if (employe == 0 || structure == 0)
        return false;
    if (!m_modeleStructures->detacheEmploye(structure, employe)) {
        refuser(Structures::titreAlertes(), QStringLiteral("L'employé n'a pas pu être retiré de la structure."));
        return false;
    }
    actualiser();
    selectionnerStructure(structure);
    emit ecrit();
    return true;
}

// --- Employees ----------------------------------------------------------------------------------------

void OngletPersonnel::nouvelEmploye()
{
    if (!documentOuvert(Employes::titreAlertes()))
        return;
    m_formulaire->nouveau();
    m_etats->setCurrentWidget(m_formulaire);
}

void OngletPersonnel::modifierEmploye()
{
    if (!documentOuvert(Employes::titreAlertes()))
        return;
    const QList<int> ids = employesSelectionnes();
    if (ids.size() == 1 && m_formulaire->modifier(ids.first()))
        m_etats->setCurrentWidget(m_formulaire);
}

bool OngletPersonnel::supprimerEmploye()
{
    if (!documentOuvert(Employes::titreAlertes()))
        return false;
    const QList<int> ids = employesSelectionnes();
    if (ids.size() != 1)
        return false;
    const int id = ids.first();
    if (const QString refus = m_modeleEmployes->refusSuppression(id); !refus.isEmpty()) {
        refuser(Employes::titreAlertes(), refus);
        return false;
    }
    const std::optional<Employe> employe = m_modeleEmployes->employe(id);
    if (!employe || !demander(Employes::titreAlertes(), QStringLiteral("Souhaitez-vous réellement supprimer "
                                                                       "l'employé « %1 %2 » ?")
                                                            .arg(employe->prenom, employe->nom)))
        return false;
    if (!m_modeleEmployes->supprimeEmploye(id)) {
        refuser(Employes::titreAlertes(), QStringLiteral("L'employé n'a pas pu être supprimé."));
        return false;
    }
    m_tableEmployes->clearSelection();
    actualiser();
    emit ecrit();
    return true;
}

} // namespace corvane::app
