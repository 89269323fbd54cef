#include "app/periodes/AssistantNouvellePeriode.h"

#include "store/Document.h"

#include "app/Environnement.h"
#include "app/kit/ChampChiffre.h"
#include "app/kit/ChampDate.h"
#include "app/kit/MessageSaisie.h"
#include "app/periodes/ChampsPeriode.h"
#include "app/kit/Raccourcis.h"
#include "store/Dialogues.h"
#include "store/FormatFrancais.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

ChampMontant* montant(QWidget* parent, const QString& nom)
{
    auto* champ = new ChampMontant(parent);
    champ->setObjectName(nom);
    champ->setMaximumWidth(140);
    return champ;
}

} // namespace

AssistantNouvellePeriode::AssistantNouvellePeriode(Environnement& environnement, Document& document, QWidget* parent)
    : QDialog(parent), m_environnement(environnement), m_assistant(document.base())
{
    setObjectName(QStringLiteral("assistantNouvellePeriode"));
    setWindowTitle(QStringLiteral("Nouvelle période"));
    auto* mise = new QVBoxLayout(this);
    auto* explication = new QLabel(QStringLiteral("Une période correspond à une ouverture de droits. Sa durée par "
                                                  "défaut est celle de la période de référence de votre annexe."),
                                   this);
    explication->setWordWrap(true);
    mise->addWidget(explication);

    auto* forme = new QFormLayout;
    forme->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    forme->setLabelAlignment(Qt::AlignRight);
    forme->addRow(QStringLiteral("Début"), m_debut = champDatePeriode(this, QStringLiteral("champDebut")));
    forme->addRow(QStringLiteral("Fin"), m_fin = champDatePeriode(this, QStringLiteral("champFin")));
    m_libelle = new QLineEdit(this);
    m_libelle->setObjectName(QStringLiteral("champLibelle"));
    forme->addRow(QStringLiteral("Libellé"), m_libelle);
    m_notes = new QPlainTextEdit(this);
    m_notes->setObjectName(QStringLiteral("champNotes"));
    m_notes->setTabChangesFocus(true);
    m_notes->setFixedHeight(60);
    forme->addRow(QStringLiteral("Notes"), m_notes);
    forme->addRow(QStringLiteral("Congés"), m_conges = champJoursPeriode(this, QStringLiteral("champConges")));
    forme->addRow(QStringLiteral("Franchise salaires"),
                  m_franchise = champJoursPeriode(this, QStringLiteral("champFranchise")));
    forme->addRow(QStringLiteral("Délai d'attente"),
                  m_attente = champJoursPeriode(this, QStringLiteral("champAttente")));
    m_maj = new QCheckBox(QStringLiteral("Mettre à jour mon profil avec cette ouverture de droits"), this);
    m_maj->setObjectName(QStringLiteral("champMajProfil"));
    forme->addRow(QString(), m_maj);
    m_srj = montant(this, QStringLiteral("champSrj"));
    m_libelleSrj = new QLabel(QStringLiteral("Salaire de référence journalier"), this);
    forme->addRow(m_libelleSrj, m_srj);
    forme->addRow(QStringLiteral("Allocation journalière"), m_taux = montant(this, QStringLiteral("champTaux")));
    mise->addLayout(forme);
    m_message = new MessageSaisie(this);
    m_message->surveiller(m_conges, QStringLiteral("Congés"));
    m_message->surveiller(m_franchise, QStringLiteral("Franchise salaires"));
    m_message->surveiller(m_attente, QStringLiteral("Délai d'attente"));
    m_message->surveiller(m_srj, QStringLiteral("Salaire de référence journalier"));
    m_message->surveiller(m_taux, QStringLiteral("Allocation journalière"));
    mise->addWidget(m_message);

    auto* boutons = new QDialogButtonBox(this);
    auto* enregistrer = boutons->addButton(QStringLiteral("Enregistrer"), QDialogButtonBox::AcceptRole);
    enregistrer->setObjectName(QStringLiteral("boutonEnregistrerPeriode"));
    auto* annuler = boutons->addButton(QStringLiteral("Annuler"), QDialogButtonBox::RejectRole);
    annuler->setObjectName(QStringLiteral("boutonAnnulerPeriode"));
    mise->addWidget(boutons);
    connect(boutons, &QDialogButtonBox::accepted, this, &AssistantNouvellePeriode::enregistrer);
    connect(boutons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    // The reference daily wage counts only for rights opened before 1 April 2007.
    m_libelleSrj->setVisible(m_assistant.srjDemande());
    m_srj->setVisible(m_assistant.srjDemande());
    connect(m_maj, &QCheckBox::toggled, this, [this](bool actif) {
        m_srj->setEnabled(actif);
        m_taux->setEnabled(actif);
    });
    m_srj->setEnabled(false);
    m_taux->setEnabled(false);

    connect(m_debut, &ChampDate::dateChanged, this, [this](const QDate& jour) {
        lireSaisie();
        m_assistant.changeDebut(jour);
        afficher();
    });
    connect(m_fin, &ChampDate::dateChanged, this, [this](const QDate& jour) {
        lireSaisie();
        m_assistant.changeFin(jour);
        afficher();
    });
    afficher();
    setMinimumWidth(460);
    attribuerRaccourcis(this, QString());
}

void AssistantNouvellePeriode::afficher()
{
    const Periode& p = m_assistant.periode();
    const QSignalBlocker b1(m_debut), b2(m_fin);
    m_debut->setDate(p.debut);
    m_fin->setMinimumDate(p.debut);
    m_fin->setDate(p.fin);
    m_libelle->setText(p.libelle);
    m_conges->actualiser(p.conges);
    m_franchise->actualiser(p.franchiseSalaires);
    m_attente->actualiser(p.attente);
    m_srj->actualiser(m_assistant.srj());
    m_taux->actualiser(m_assistant.taux());
    m_maj->setChecked(m_assistant.majAutomatique());
}

void AssistantNouvellePeriode::lireSaisie()
{
    m_assistant.changeLibelle(m_libelle->text());
    m_assistant.changeNotes(m_notes->toPlainText());
    // A figure that cannot be read leaves the assistant's value; the save refuses it first.
    const Periode& p = m_assistant.periode();
    m_assistant.changeJours(m_conges->entier().value_or(p.conges), m_franchise->entier().value_or(p.franchiseSalaires),
                            m_attente->entier().value_or(p.attente));
    m_assistant.changeSrj(m_srj->nombre().value_or(m_assistant.srj()));
    m_assistant.changeTaux(m_taux->nombre().value_or(m_assistant.taux()));
    m_assistant.changeMajAutomatique(m_maj->isChecked());
}

bool AssistantNouvellePeriode::enregistrer()
{
    lireSaisie();
    QString refus = m_message->refus();
    if (!refus.isEmpty()) {
        m_environnement.dialogues.information(NouvellePeriode::titre(), refus, QStringLiteral("Fermer"));
        return false;
    }
    const int id = m_assistant.enregistre(&refus);
    if (id == 0) {
        m_environnement.dialogues.information(
            NouvellePeriode::titre(),
            refus.isEmpty() ? QStringLiteral("La période n'a pas pu être enregistrée.") : refus,
            QStringLiteral("Fermer"));
        return false;
    }
    emit periodeEnregistree(id);
    accept();
    return true;
}

} // namespace corvane::app
