#include "app/periodes/AssistantNouvellePeriode.h"

#include "store/Document.h"

#include "app/Environnement.h"
#include "store/Dialogues.h"
#include "store/FormatFrancais.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

QDateEdit* date(QWidget* parent, const QString& nom)
{
    auto* edition = new QDateEdit(parent);
    edition->setObjectName(nom);
    edition->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    edition->setCalendarPopup(true);
    edition->setLocale(localeFrancaise());
    return edition;
}

QSpinBox* jours(QWidget* parent, const QString& nom)
{
    auto* boite = new QSpinBox(parent);
    boite->setObjectName(nom);
    boite->setRange(0, 255);
    boite->setSuffix(QStringLiteral(" j"));
    return boite;
}

QDoubleSpinBox* montant(QWidget* parent, const QString& nom)
{
    auto* boite = new QDoubleSpinBox(parent);
    boite->setObjectName(nom);
    boite->setLocale(localeFrancaise());
    boite->setRange(0.0, 100000.0);
    boite->setDecimals(2);
    boite->setSuffix(QStringLiteral(" €"));
    return boite;
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
    forme->addRow(QStringLiteral("Début"), m_debut = date(this, QStringLiteral("champDebut")));
    forme->addRow(QStringLiteral("Fin"), m_fin = date(this, QStringLiteral("champFin")));
    m_libelle = new QLineEdit(this);
    m_libelle->setObjectName(QStringLiteral("champLibelle"));
    forme->addRow(QStringLiteral("Libellé"), m_libelle);
    m_notes = new QPlainTextEdit(this);
    m_notes->setObjectName(QStringLiteral("champNotes"));
    m_notes->setTabChangesFocus(true);
    m_notes->setFixedHeight(60);
    forme->addRow(QStringLiteral("Notes"), m_notes);
    forme->addRow(QStringLiteral("Congés"), m_conges = jours(this, QStringLiteral("champConges")));
    forme->addRow(QStringLiteral("Franchise salaires"), m_franchise = jours(this, QStringLiteral("champFranchise")));
    forme->addRow(QStringLiteral("Délai d'attente"), m_attente = jours(this, QStringLiteral("champAttente")));
    m_maj = new QCheckBox(QStringLiteral("Mettre à jour mon profil avec cette ouverture de droits"), this);
    m_maj->setObjectName(QStringLiteral("champMajProfil"));
    forme->addRow(QString(), m_maj);
    m_srj = montant(this, QStringLiteral("champSrj"));
    m_libelleSrj = new QLabel(QStringLiteral("Salaire de référence journalier"), this);
    forme->addRow(m_libelleSrj, m_srj);
    forme->addRow(QStringLiteral("Allocation journalière"), m_taux = montant(this, QStringLiteral("champTaux")));
    mise->addLayout(forme);

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

    connect(m_debut, &QDateEdit::dateChanged, this, [this](const QDate& jour) {
        lireSaisie();
        m_assistant.changeDebut(jour);
        afficher();
    });
    connect(m_fin, &QDateEdit::dateChanged, this, [this](const QDate& jour) {
        lireSaisie();
        m_assistant.changeFin(jour);
        afficher();
    });
    afficher();
    setMinimumWidth(460);
}

void AssistantNouvellePeriode::afficher()
{
    const Periode& p = m_assistant.periode();
    const QSignalBlocker b1(m_debut), b2(m_fin);
    m_debut->setDate(p.debut);
    m_fin->setMinimumDate(p.debut);
    m_fin->setDate(p.fin);
    m_libelle->setText(p.libelle);
    m_conges->setValue(p.conges);
    m_franchise->setValue(p.franchiseSalaires);
    m_attente->setValue(p.attente);
    m_srj->setValue(m_assistant.srj());
    m_taux->setValue(m_assistant.taux());
    m_maj->setChecked(m_assistant.majAutomatique());
}

void AssistantNouvellePeriode::lireSaisie()
{
    m_assistant.changeLibelle(m_libelle->text());
    m_assistant.changeNotes(m_notes->toPlainText());
    m_assistant.changeJours(m_conges->value(), m_franchise->value(), m_attente->value());
    m_assistant.changeSrj(m_srj->value());
    m_assistant.changeTaux(m_taux->value());
    m_assistant.changeMajAutomatique(m_maj->isChecked());
}

bool AssistantNouvellePeriode::enregistrer()
{
    lireSaisie();
    QString refus;
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
