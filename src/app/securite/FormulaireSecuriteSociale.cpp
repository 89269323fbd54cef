#include "app/securite/FormulaireSecuriteSociale.h"

#include "app/ControleurApplication.h"
#include "app/Environnement.h"
#include "app/kit/ChampChiffre.h"
#include "app/kit/ChampDate.h"
#include "app/kit/MessageSaisie.h"
#include "app/kit/Raccourcis.h"
#include "store/Dates.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/Horloge.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

const QString kTitreAlertes = QStringLiteral("Gestion des périodes");

QString jours(int nombre)
{
    return QStringLiteral("%1 %2").arg(nombre).arg(nombre > 1 ? QStringLiteral("jours") : QStringLiteral("jour"));
}

QCheckBox* case_(QWidget* parent, const QString& texte, const QString& nom)
{
    auto* c = new QCheckBox(texte, parent);
    c->setObjectName(nom);
    return c;
}

} // namespace

FormulaireSecuriteSociale::FormulaireSecuriteSociale(Environnement& environnement, QWidget* parent)
    : QWidget(parent), m_environnement(environnement)
{
    construire();
    attribuerRaccourcis(this);
}

FormulaireSecuriteSociale::~FormulaireSecuriteSociale() = default;

void FormulaireSecuriteSociale::construire()
{
    auto* mise = new QVBoxLayout(this);
    mise->setContentsMargins(0, 0, 0, 0);
    m_titre = new QLabel(this);
    m_titre->setObjectName(QStringLiteral("titreFormulaireSS"));
    QFont police = m_titre->font();
    police.setPointSizeF(police.pointSizeF() * 1.2);
    police.setBold(true);
    m_titre->setFont(police);
    mise->addWidget(m_titre);

    auto* colonnes = new QHBoxLayout;
    colonnes->addWidget(construirePeriode(), 1);
    auto* droite = new QVBoxLayout;
    droite->addWidget(construireIndemnisation());
    droite->addWidget(construireIncidences());
    colonnes->addLayout(droite, 1);
    mise->addLayout(colonnes);

    auto* boiteNote = new QGroupBox(QStringLiteral("Note"), this);
    auto* miseNote = new QVBoxLayout(boiteNote);
    m_note = new QPlainTextEdit(boiteNote);
    m_note->setObjectName(QStringLiteral("champNoteSS"));
    m_note->setTabChangesFocus(true);
    miseNote->addWidget(m_note);
    mise->addWidget(boiteNote, 1);

    m_message = new MessageSaisie(this);
    m_message->surveiller(m_suspendus, QStringLiteral("Journées suspendues"));
    m_message->surveiller(m_totalIJ, QStringLiteral("Total des indemnités journalières"));
    mise->addWidget(m_message);

    auto* boutons = new QHBoxLayout;
    boutons->addStretch(1);
    m_annuler = new QPushButton(QStringLiteral("Annuler"), this);
    m_annuler->setObjectName(QStringLiteral("boutonAnnulerSS"));
    m_enregistrer = new QPushButton(QStringLiteral("Enregistrer"), this);
    m_enregistrer->setObjectName(QStringLiteral("boutonEnregistrerSS"));
    m_enregistrer->setDefault(true);
    boutons->addWidget(m_annuler);
    boutons->addWidget(m_enregistrer);
    mise->addLayout(boutons);

    connect(m_type, &QComboBox::activated, this, &FormulaireSecuriteSociale::recalculer);
    connect(m_debut, &ChampDate::userDateChanged, this, [this] {
        // A start past the end makes a one-day period; the end is then moved by the user.
        if (m_fin->date() < m_debut->date()) {
            const QSignalBlocker bloque(m_fin);
            m_fin->setDate(m_debut->date());
        }
        recalculer();
    });
    connect(m_fin, &ChampDate::userDateChanged, this, &FormulaireSecuriteSociale::recalculer);
    connect(m_suspendus, &QLineEdit::textEdited, this, &FormulaireSecuriteSociale::recalculer);
    connect(m_ald, &QCheckBox::clicked, this, &FormulaireSecuriteSociale::recalculer);
    connect(m_enregistrer, &QPushButton::clicked, this, &FormulaireSecuriteSociale::enregistrer);
    connect(m_annuler, &QPushButton::clicked, this, &FormulaireSecuriteSociale::annuler);
}

QWidget* FormulaireSecuriteSociale::construirePeriode()
{
    auto* boite = new QGroupBox(QStringLiteral("Période"), this);
    auto* formulaire = new QFormLayout(boite);
    m_type = new QComboBox(boite);
    m_type->setObjectName(QStringLiteral("choixTypeSS"));
    m_type->setMinimumContentsLength(22);
    m_type->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_debut = new ChampDate(boite);
    m_debut->setObjectName(QStringLiteral("debutSS"));
    m_fin = new ChampDate(boite);
    m_fin->setObjectName(QStringLiteral("finSS"));
    m_duree = new QLabel(boite);
    m_duree->setObjectName(QStringLiteral("dureeSS"));
    m_suspendus = new ChampNombre(0, Limites::kJoursContratMaximum, boite);
    m_suspendus->setObjectName(QStringLiteral("champJoursSuspendus"));
    m_suspendus->setToolTip(QStringLiteral("Journées de travail suspendues par l'arrêt"));
    m_ald = case_(boite, QStringLiteral("Affection de longue durée (ALD)"), QStringLiteral("caseAld"));

    formulaire->addRow(QStringLiteral("Type :"), m_type);
    formulaire->addRow(QStringLiteral("Du :"), m_debut);
    formulaire->addRow(QStringLiteral("Au :"), m_fin);
    formulaire->addRow(QStringLiteral("Durée :"), m_duree);
    formulaire->addRow(QStringLiteral("Journées suspendues :"), m_suspendus);
    formulaire->addRow(QString(), m_ald);
    return boite;
}

QWidget* FormulaireSecuriteSociale::construireIndemnisation()
{
    auto* boite = new QGroupBox(QStringLiteral("Indemnisation"), this);
    auto* formulaire = new QFormLayout(boite);
    m_totalIJ = new ChampMontant(boite);
    m_totalIJ->setObjectName(QStringLiteral("champTotalIJ"));
    m_totalIJ->setMaximumWidth(140);
    m_rembourse = case_(boite, QStringLiteral("Remboursé par la Sécurité Sociale"), QStringLiteral("caseRembourseSS"));
    m_mutuelle = case_(boite, QStringLiteral("Remboursé par la mutuelle"), QStringLiteral("caseMutuelleSS"));
    formulaire->addRow(QStringLiteral("Indemnités journalières reçues :"), m_totalIJ);
    formulaire->addRow(QString(), m_rembourse);
    formulaire->addRow(QString(), m_mutuelle);
    return boite;
}

QWidget* FormulaireSecuriteSociale::construireIncidences()
{
    auto* boite = new QGroupBox(QStringLiteral("Incidences sur l'assurance chômage"), this);
    auto* formulaire = new QFormLayout(boite);
    m_incidenceHeures = new QLabel(boite);
    m_incidenceHeures->setObjectName(QStringLiteral("incidenceHeures"));
    m_incidencePeriode = new QLabel(boite);
    m_incidencePeriode->setObjectName(QStringLiteral("incidencePeriode"));
    m_regles = new QLabel(boite);
    m_regles->setObjectName(QStringLiteral("finDesDroitsSS"));
    m_regles->setWordWrap(true);
    m_regles->setEnabled(false);
    formulaire->addRow(QStringLiteral("Journées comptées comme travaillées :"), m_incidenceHeures);
    formulaire->addRow(QStringLiteral("Allongement de la période de référence :"), m_incidencePeriode);
    formulaire->addRow(m_regles);
    return boite;
}

void FormulaireSecuriteSociale::setDocument(Document* document)
{
    m_modele = document && document->estOuvert() ? std::make_unique<SecuriteSociale>(document->base()) : nullptr;
    remplirTypes();
}

void FormulaireSecuriteSociale::remplirTypes()
{
    const QSignalBlocker bloque(m_type);
    m_type->clear();
    if (!m_modele)
        return;
    const QStringList types = m_modele->tousLesTypes();
    for (int i = 0; i < types.size(); ++i)
        m_type->addItem(types.at(i), i + 1);
}

void FormulaireSecuriteSociale::nouveau()
{
    PeriodeSecuriteSociale periode;
    periode.debut = periode.fin = Horloge::aujourdhui();
    m_mode = QStringLiteral("ajout");
    m_id = 0;
    m_anciennesHeures = m_anciennesPeriode = 0;
    m_titre->setText(QStringLiteral("Nouveau"));
    charger(periode);
}

bool FormulaireSecuriteSociale::modifier(int id)
{
    if (!m_modele || !m_modele->securiteSocialeExiste(id))
        return false;
    const PeriodeSecuriteSociale periode = m_modele->retrouveSecuriteSociale(id);
    m_mode = QStringLiteral("modif");
    m_id = id;
    m_anciennesHeures = periode.incidenceHeures;
    m_anciennesPeriode = periode.incidencePeriode;
    m_titre->setText(QStringLiteral("Modification"));
    charger(periode);
    return true;
}

bool FormulaireSecuriteSociale::dupliquer(int id)
{
    if (!m_modele || !m_modele->securiteSocialeExiste(id))
        return false;
    PeriodeSecuriteSociale periode = m_modele->retrouveSecuriteSociale(id);
    // The copy follows the original, as long: the same dates would overlap it. Its
    // reimbursements are still to come.
    const qint64 duree = periode.debut.daysTo(periode.fin);
    periode.debut = periode.fin.addDays(1);
    periode.fin = periode.debut.addDays(duree);
    periode.rembourse = periode.rembourseMutuelle = false;
    m_mode = QStringLiteral("ajout");
    m_id = 0;
    m_anciennesHeures = m_anciennesPeriode = 0;
    m_titre->setText(QStringLiteral("Nouveau"));
    charger(periode);
    return true;
}

void FormulaireSecuriteSociale::charger(const PeriodeSecuriteSociale& periode)
{
    if (m_type->count() == 0)
        remplirTypes();
    m_periode = periode;
    m_finDesDroits = m_modele ? m_modele->retrouveDateFinDePeriodeEnCours() : QDate();
    const QList<QObject*> champs{m_type,    m_debut,     m_fin,      m_suspendus, m_ald,
                                 m_totalIJ, m_rembourse, m_mutuelle, m_note};
    QList<std::shared_ptr<QSignalBlocker>> bloques;
    for (QObject* champ : champs)
        bloques << std::make_shared<QSignalBlocker>(champ);
    m_type->setCurrentIndex(qMax(0, m_type->findData(periode.typeId)));
    m_debut->setDate(periode.debut);
    m_fin->setDate(periode.fin);
    m_suspendus->afficher(periode.joursSuspendus);
    m_ald->setChecked(periode.ald);
    m_totalIJ->afficher(periode.totalIJ);
    m_rembourse->setChecked(periode.rembourse);
    m_mutuelle->setChecked(periode.rembourseMutuelle);
    m_note->setPlainText(periode.note);
    recalculer();
    m_type->setFocus();
}

void FormulaireSecuriteSociale::lireChamps()
{
    PeriodeSecuriteSociale& p = m_periode;
    p.typeId = m_type->currentData().toInt();
    p.debut = m_debut->date();
    p.fin = m_fin->date();
    // A figure that cannot be read leaves the record as it was; the save is then refused with the reason.
    if (const auto lu = m_suspendus->entier())
        p.joursSuspendus = *lu;
    if (const auto lu = m_totalIJ->nombre())
        p.totalIJ = *lu;
    p.ald = m_ald->isChecked();
    p.rembourse = m_rembourse->isChecked();
    p.rembourseMutuelle = m_mutuelle->isChecked();
    p.note = m_note->toPlainText();
}

void FormulaireSecuriteSociale::actualiserDroits()
{
    m_finDesDroits = m_modele ? m_modele->retrouveDateFinDePeriodeEnCours() : QDate();
    recalculer();
}

void FormulaireSecuriteSociale::recalculer()
{
    lireChamps();
    const int nombreJours =
        m_periode.fin >= m_periode.debut ? int(Dates::joursEntre(m_periode.debut, m_periode.fin)) + 1 : 0;
    // No more suspended days than the period has.
    m_suspendus->setRange(0, qBound(0, nombreJours, Limites::kJoursContratMaximum));
    m_message->actualiser();
    afficher();
}

void FormulaireSecuriteSociale::afficher()
{
    const bool dates = m_periode.fin >= m_periode.debut;
    m_duree->setText(dates ? jours(int(Dates::joursEntre(m_periode.debut, m_periode.fin)) + 1)
                           : QStringLiteral("la fin précède le début"));
    m_regles->setText(m_finDesDroits.isValid()
                          ? QStringLiteral("Selon les règles en vigueur à la fin de vos droits, le %1.")
                                .arg(Dates::versAffichage(m_finDesDroits))
                          : QStringLiteral("Selon les règles en vigueur : la fin de vos droits n'est pas connue."));
    // Nothing is worked out from what cannot be read.
    if (!dates || !m_suspendus->estValide()) {
        m_incidenceHeures->setText(QStringLiteral("—"));
        m_incidencePeriode->setText(QStringLiteral("—"));
        return;
    }
    PeriodeSecuriteSociale calcul = m_periode;
    SecuriteSociale::calculeIncidences(calcul, m_finDesDroits, m_anciennesHeures, m_anciennesPeriode);
    m_periode.nombreJours = calcul.nombreJours;
    m_periode.incidenceHeures = calcul.incidenceHeures;
    m_periode.incidencePeriode = calcul.incidencePeriode;
    m_incidenceHeures->setText(jours(calcul.incidenceHeures));
    m_incidencePeriode->setText(jours(calcul.incidencePeriode));
}

void FormulaireSecuriteSociale::refuser(const QString& message)
{
    m_environnement.dialogues.information(kTitreAlertes, message, QStringLiteral("Fermer"));
}

bool FormulaireSecuriteSociale::enregistrer()
{
    lireChamps();
    if (!m_modele) {
        refuser(ControleurApplication::messageSansDocument());
        return false;
    }
    // A figure that cannot be read is never saved, nor saved as 0.
    if (const QString refus = m_message->refus(); !refus.isEmpty()) {
        refuser(refus);
        return false;
    }
    if (const QString refus = m_modele->refusValeurs(m_periode); !refus.isEmpty()) {
        refuser(refus);
        return false;
    }
    if (const QString refus = m_modele->refusSuperpositions(m_periode.debut, m_periode.fin, m_id); !refus.isEmpty()) {
        refuser(refus);
        return false;
    }
    PeriodeSecuriteSociale periode = m_periode;
    const bool ecrit = m_mode == QStringLiteral("modif") ? m_modele->modifieSecuriteSociale(m_id, periode)
                                                         : m_modele->enregistreSecuriteSociale(periode) > 0;
    if (!ecrit) {
        refuser(QStringLiteral("La période n'a pas pu être enregistrée."));
        return false;
    }
    emit enregistre();
    emit termine();
    return true;
}

void FormulaireSecuriteSociale::annuler()
{
    emit termine();
}

void FormulaireSecuriteSociale::keyPressEvent(QKeyEvent* evenement)
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
