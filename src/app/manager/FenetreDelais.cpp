#include "app/manager/FenetreDelais.h"

#include "app/Environnement.h"
#include "app/kit/ChampChiffre.h"
#include "manager/TarifsPropositions.h"
#include "store/Dialogues.h"
#include "store/Document.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace corvane::app {

FenetreDelais::FenetreDelais(Environnement& environnement, Document& document, QWidget* parent)
    : QDialog(parent), m_environnement(environnement), m_tarifs(std::make_unique<TarifsPropositions>(document.base()))
{
    setObjectName(QStringLiteral("fenetreDelais"));
    setWindowTitle(TarifsPropositions::titreDelais());
    auto* mise = new QVBoxLayout(this);

    m_liste = new QTableWidget(0, 1, this);
    m_liste->setObjectName(QStringLiteral("listeDelais"));
    m_liste->setHorizontalHeaderLabels({QStringLiteral("Délai")});
    m_liste->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_liste->setSelectionMode(QAbstractItemView::SingleSelection);
    m_liste->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_liste->verticalHeader()->hide();
    m_liste->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    mise->addWidget(m_liste, 1);

    auto* ajout = new QHBoxLayout;
    m_nombre = new ChampNombre(1, TarifsPropositions::kNombreMaximumJours, this);
    m_nombre->setObjectName(QStringLiteral("nombreNouveauDelai"));
    m_nombre->setMaximumWidth(90);
    m_unite = new QComboBox(this);
    m_unite->setObjectName(QStringLiteral("uniteNouveauDelai"));
    m_unite->addItem(TarifsPropositions::uniteDelai(0), 0);
    m_unite->addItem(TarifsPropositions::uniteDelai(1), 1);
    auto* ajouterBouton = new QPushButton(QStringLiteral("Ajouter"), this);
    ajouterBouton->setObjectName(QStringLiteral("boutonAjouterDelai"));
    ajouterBouton->setAutoDefault(false);
    ajout->addWidget(m_nombre);
    ajout->addWidget(m_unite);
    ajout->addStretch(1);
    ajout->addWidget(ajouterBouton);
    mise->addLayout(ajout);

    auto* boutons = new QHBoxLayout;
    m_supprimer = new QPushButton(QStringLiteral("Supprimer"), this);
    m_supprimer->setObjectName(QStringLiteral("boutonSupprimerDelai"));
    m_supprimer->setAutoDefault(false);
    auto* fermer = new QPushButton(QStringLiteral("Fermer"), this);
    fermer->setObjectName(QStringLiteral("boutonFermerDelais"));
    fermer->setAutoDefault(false);
    boutons->addWidget(m_supprimer);
    boutons->addStretch(1);
    boutons->addWidget(fermer);
    mise->addLayout(boutons);

    connect(ajouterBouton, &QPushButton::clicked, this, &FenetreDelais::ajouter);
    connect(m_supprimer, &QPushButton::clicked, this, &FenetreDelais::supprimer);
    connect(fermer, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_unite, &QComboBox::currentIndexChanged, this, [this] {
        m_nombre->setRange(1, m_unite->currentData().toInt() == 0 ? TarifsPropositions::kNombreMaximumJours
                                                                  : TarifsPropositions::kNombreMaximumMois);
    });
    connect(m_liste, &QTableWidget::itemSelectionChanged, this,
            [this] { m_supprimer->setEnabled(idSelectionne() != 0); });
    resize(320, 360);
    recharger();
}

FenetreDelais::~FenetreDelais() = default;

void FenetreDelais::recharger(int idASelectionner)
{
    const QList<Delai> delais = m_tarifs->delais();
    m_liste->setRowCount(int(delais.size()));
    for (int rangee = 0; rangee < delais.size(); ++rangee) {
        auto* libelle = new QTableWidgetItem(TarifsPropositions::libelleDelai(delais.at(rangee)));
        libelle->setData(Qt::UserRole, delais.at(rangee).id);
        m_liste->setItem(rangee, 0, libelle);
        if (delais.at(rangee).id == idASelectionner)
            m_liste->selectRow(rangee);
    }
    m_supprimer->setEnabled(idSelectionne() != 0);
}

int FenetreDelais::idSelectionne() const
{
    const QModelIndexList rangees = m_liste->selectionModel()->selectedRows();
    if (rangees.isEmpty())
        return 0;
    const QTableWidgetItem* item = m_liste->item(rangees.first().row(), 0);
    return item ? item->data(Qt::UserRole).toInt() : 0;
}

void FenetreDelais::alerter(const QString& message)
{
    m_environnement.dialogues.information(TarifsPropositions::titreDelais(), message, QStringLiteral("Fermer"));
}

int FenetreDelais::ajouter()
{
    const std::optional<int> nombre = m_nombre->entier();
    if (!nombre) {
        alerter(QStringLiteral("Délai : %1.").arg(m_nombre->erreur()));
        return 0;
    }
    const Delai delai{0, *nombre, m_unite->currentData().toInt()};
    if (const QString refus = m_tarifs->refusDelai(delai); !refus.isEmpty()) {
        alerter(refus);
        return 0;
    }
    const int id = m_tarifs->ajouteDelai(delai);
    if (id == 0) {
        alerter(QStringLiteral("Le délai n'a pas pu être enregistré."));
        return 0;
    }
    m_nombre->clear();
    recharger(id);
    emit delaisModifies(id);
    return id;
}

bool FenetreDelais::supprimer()
{
    const int id = idSelectionne();
    if (id == 0)
        return false;
    if (const QString refus = m_tarifs->refusSuppressionDelai(id); !refus.isEmpty()) {
        alerter(refus);
        return false;
    }
    if (!m_tarifs->supprimeDelai(id))
        return false;
    recharger();
    emit delaisModifies(0);
    return true;
}

} // namespace corvane::app
