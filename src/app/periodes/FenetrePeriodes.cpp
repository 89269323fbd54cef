#include "app/periodes/FenetrePeriodes.h"

#include "store/Document.h"
#include "store/Horloge.h"

#include "app/Environnement.h"
#include "app/MemoireColonnes.h"
#include "app/kit/ChampChiffre.h"
#include "app/kit/ChampDate.h"
#include "app/kit/MessageSaisie.h"
#include "app/periodes/AssistantNouvellePeriode.h"
#include "app/periodes/ChampsPeriode.h"
#include "app/periodes/ModelePeriodes.h"
#include "app/kit/Raccourcis.h"
#include "records/NouvellePeriode.h"
#include "records/Periodes.h"
#include "store/Dialogues.h"
#include "store/FormatFrancais.h"
#include "store/Reglages.h"

#include <QAction>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
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

FenetrePeriodes::FenetrePeriodes(Environnement& environnement, Document& document, QWidget* parent)
    : QDialog(parent), m_environnement(environnement), m_document(document),
      m_periodes(std::make_unique<Periodes>(document.base()))
{
    setObjectName(QStringLiteral("fenetrePeriodes"));
    setWindowTitle(NouvellePeriode::titre());
    auto* mise = new QVBoxLayout(this);

    m_modele = new ModelePeriodes(this);
    m_liste = new QTableView(this);
    m_liste->setObjectName(QStringLiteral("listePeriodes"));
    m_liste->setModel(m_modele);
    m_liste->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_liste->setSelectionMode(QAbstractItemView::SingleSelection);
    m_liste->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_liste->verticalHeader()->hide();
    m_liste->horizontalHeader()->setStretchLastSection(true);
    auto* effacer = new QAction(QStringLiteral("Supprimer"), m_liste);
    effacer->setShortcut(QKeySequence::Delete);
    effacer->setShortcutContext(Qt::WidgetShortcut);
    m_liste->addAction(effacer);
    connect(effacer, &QAction::triggered, this, &FenetrePeriodes::supprimer);
    mise->addWidget(m_liste, 1);

    auto* forme = new QFormLayout;
    forme->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    forme->setLabelAlignment(Qt::AlignRight);
    m_libelle = new QLineEdit(this);
    m_libelle->setObjectName(QStringLiteral("champLibelle"));
    forme->addRow(QStringLiteral("Libellé"), m_libelle);
    auto* dates = new QHBoxLayout;
    dates->addWidget(m_debut = champDatePeriode(this, QStringLiteral("champDebut")));
    dates->addWidget(m_fin = champDatePeriode(this, QStringLiteral("champFin")));
    dates->addStretch(1);
    forme->addRow(QStringLiteral("Du, au"), dates);
    auto* compteurs = new QHBoxLayout;
    compteurs->addWidget(m_conges = champJoursPeriode(this, QStringLiteral("champConges")));
    compteurs->addWidget(m_franchise = champJoursPeriode(this, QStringLiteral("champFranchise")));
    compteurs->addWidget(m_attente = champJoursPeriode(this, QStringLiteral("champAttente")));
    compteurs->addStretch(1);
    forme->addRow(QStringLiteral("Congés, franchise salaires, délai d'attente"), compteurs);
    m_notes = new QPlainTextEdit(this);
    m_notes->setObjectName(QStringLiteral("champNotes"));
    m_notes->setTabChangesFocus(true);
    m_notes->setFixedHeight(56);
    forme->addRow(QStringLiteral("Notes"), m_notes);
    mise->addLayout(forme);
    m_message = new MessageSaisie(this);
    m_message->surveiller(m_conges, QStringLiteral("Congés"));
    m_message->surveiller(m_franchise, QStringLiteral("Franchise salaires"));
    m_message->surveiller(m_attente, QStringLiteral("Délai d'attente"));
    mise->addWidget(m_message);

    auto* boutons = new QHBoxLayout;
    auto* nouvelle = bouton(this, QStringLiteral("Nouvelle période…"), QStringLiteral("boutonNouvellePeriode"));
    m_activer = bouton(this, QStringLiteral("Rendre active"), QStringLiteral("boutonActiverPeriode"));
    m_supprimer = bouton(this, QStringLiteral("Supprimer"), QStringLiteral("boutonSupprimerPeriode"));
    m_enregistrer = bouton(this, QStringLiteral("Enregistrer"), QStringLiteral("boutonEnregistrerPeriode"));
    auto* fermer = bouton(this, QStringLiteral("Fermer"), QStringLiteral("boutonFermerPeriodes"));
    boutons->addWidget(nouvelle);
    boutons->addWidget(m_activer);
    boutons->addWidget(m_supprimer);
    boutons->addStretch(1);
    boutons->addWidget(m_enregistrer);
    boutons->addWidget(fermer);
    mise->addLayout(boutons);

    connect(nouvelle, &QPushButton::clicked, this, &FenetrePeriodes::nouvellePeriode);
    connect(m_activer, &QPushButton::clicked, this, [this] { activer(idSelectionne()); });
    connect(m_supprimer, &QPushButton::clicked, this, &FenetrePeriodes::supprimer);
    connect(m_enregistrer, &QPushButton::clicked, this, &FenetrePeriodes::enregistrer);
    connect(fermer, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_libelle, &QLineEdit::returnPressed, this, &FenetrePeriodes::enregistrer);
    connect(m_modele, &ModelePeriodes::activationDemandee, this, &FenetrePeriodes::activer);
    connect(m_modele, &ModelePeriodes::desactivationDemandee, this, &FenetrePeriodes::desactiver);
    connect(m_liste->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &FenetrePeriodes::selectionChangee);
    resize(860, 520);
    recharger();
    // Columns fitted to their contents until the user sets them.
    m_liste->resizeColumnsToContents();
    memoriserColonnes(m_liste, environnement.reglages, Reglages::Cle::PeriodesColonnes);
    attribuerRaccourcis(this, QString());
}

FenetrePeriodes::~FenetrePeriodes()
{
    m_modele->setPeriodes(nullptr);
}

void FenetrePeriodes::recharger(int idASelectionner)
{
    m_modele->setPeriodes(m_periodes.get());
    if (idASelectionner != 0)
        selectionner(idASelectionner);
    else if (m_modele->rowCount() > 0)
        m_liste->selectRow(0);
    selectionChangee();
}

int FenetrePeriodes::idSelectionne() const
{
    const QModelIndexList lignes = m_liste->selectionModel()->selectedRows();
    return lignes.isEmpty() ? 0 : m_modele->idDeLaLigne(lignes.first().row());
}

void FenetrePeriodes::selectionner(int id)
{
    const int rangee = m_modele->rangeeDeLId(id);
    if (rangee >= 0)
        m_liste->selectRow(rangee);
}

void FenetrePeriodes::selectionChangee()
{
    const int id = idSelectionne();
    const std::optional<Periode> p = id == 0 ? std::nullopt : m_periodes->periode(id);
    for (QWidget* w : std::initializer_list<QWidget*>{m_libelle, m_debut, m_fin, m_notes, m_conges, m_franchise,
                                                      m_attente, m_enregistrer, m_supprimer, m_activer})
        w->setEnabled(p.has_value());
    const Periode periode = p.value_or(Periode());
    m_libelle->setText(periode.libelle);
    m_debut->setDate(periode.debut.isValid() ? periode.debut : Horloge::aujourdhui());
    m_fin->setDate(periode.fin.isValid() ? periode.fin : Horloge::aujourdhui());
    m_notes->setPlainText(periode.notes);
    m_conges->setValue(periode.conges);
    m_franchise->setValue(periode.franchiseSalaires);
    m_attente->setValue(periode.attente);
    m_activer->setEnabled(p.has_value() && id != m_modele->idActif());
}

void FenetrePeriodes::enregistrer()
{
    const int id = idSelectionne();
    if (id == 0)
        return;
    const QString avertissement = m_periodes->avertissementModification(id);
    if (!avertissement.isEmpty() &&
        m_environnement.dialogues.question(NouvellePeriode::titre(), avertissement,
                                           {QStringLiteral("Modifier"), QStringLiteral("Annuler")}) !=
            QStringLiteral("Modifier"))
        return;
    if (m_fin->date() < m_debut->date()) {
        m_environnement.dialogues.information(NouvellePeriode::titre(), NouvellePeriode::messageFinAvantDebut(),
                                              QStringLiteral("Fermer"));
        return;
    }
    // A count that cannot be read is never saved, nor saved as 0.
    QString refus = m_message->refus();
    Periode p = *m_periodes->periode(id);
    p.libelle = m_libelle->text();
    p.debut = m_debut->date();
    p.fin = m_fin->date();
    p.notes = m_notes->toPlainText();
    p.conges = m_conges->entier().value_or(p.conges);
    p.franchiseSalaires = m_franchise->entier().value_or(p.franchiseSalaires);
    p.attente = m_attente->entier().value_or(p.attente);
    if (refus.isEmpty())
        refus = Periodes::refusValeurs(p);
    if (!refus.isEmpty()) {
        m_environnement.dialogues.information(NouvellePeriode::titre(), refus, QStringLiteral("Fermer"));
        return;
    }
    m_periodes->modifiePeriode(p);
    recharger(id);
    emit periodesModifiees();
}

void FenetrePeriodes::supprimer()
{
    const int id = idSelectionne();
    if (id == 0)
        return;
    const QString refus = m_periodes->refusSuppression(id);
    if (!refus.isEmpty()) {
        m_environnement.dialogues.information(NouvellePeriode::titre(), refus, QStringLiteral("Fermer"));
        return;
    }
    if (m_environnement.reglages.booleen(Reglages::Cle::DeleteAlerts) &&
        m_environnement.dialogues.question(
            NouvellePeriode::titre(),
            QStringLiteral("Souhaitez-vous supprimer la période « %1 » ?").arg(m_periodes->periode(id)->libelle),
            {QStringLiteral("Supprimer"), QStringLiteral("Annuler")}) != QStringLiteral("Supprimer"))
        return;
    m_periodes->supprimePeriode(id);
    recharger();
    emit periodesModifiees();
}

void FenetrePeriodes::activer(int id)
{
    if (id == 0 || id == m_modele->idActif())
        return;
    m_periodes->activePeriodeAvecId(id);
    recharger(id);
    emit periodesModifiees();
}

void FenetrePeriodes::desactiver(int id)
{
    // Clearing the box of the active period would leave none active.
    const QString refus = m_periodes->refusDesactivation(id);
    if (!refus.isEmpty())
        m_environnement.dialogues.information(NouvellePeriode::titre(), refus, QStringLiteral("Fermer"));
}

void FenetrePeriodes::nouvellePeriode()
{
    auto* assistant = new AssistantNouvellePeriode(m_environnement, m_document, this);
    assistant->setAttribute(Qt::WA_DeleteOnClose);
    connect(assistant, &AssistantNouvellePeriode::periodeEnregistree, this, [this](int id) {
        recharger(id);
        emit periodesModifiees();
    });
    assistant->open();
}

} // namespace corvane::app
