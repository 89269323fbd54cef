#include "app/poleemploi/FenetreVersementsPoleEmploi.h"

#include "app/Environnement.h"
#include "app/kit/ChampChiffre.h"
#include "app/kit/ChampDate.h"
#include "app/kit/MessageSaisie.h"
#include "app/kit/Raccourcis.h"
#include "app/poleemploi/ModeleVersementsPoleEmploi.h"
#include "store/Dates.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"
#include "store/Reglages.h"
#include "unemployment/PoleEmploiVersements.h"

#include <QAction>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>

namespace corvane::app {

namespace {

const QString kDebut = QStringLiteral("assedichistorique_debut");
const QString kFin = QStringLiteral("assedichistorique_fin");

QPushButton* bouton(QWidget* parent, const QString& texte, const QString& nom)
{
    auto* b = new QPushButton(texte, parent);
    b->setObjectName(nom);
    b->setAutoDefault(false);
    return b;
}

} // namespace

QString FenetreVersementsPoleEmploi::titre()
{
    return QStringLiteral("Versements Pôle Emploi");
}

FenetreVersementsPoleEmploi::FenetreVersementsPoleEmploi(Environnement& environnement, Document& document, QWidget* parent)
    : QDialog(parent), m_environnement(environnement),
      m_versements(std::make_unique<PoleEmploiVersements>(document.base()))
{
    setObjectName(QStringLiteral("fenetreVersements"));
    setWindowTitle(titre());
    auto* mise = new QVBoxLayout(this);

    auto* filtres = new QHBoxLayout;
    m_periode = new QComboBox(this);
    m_periode->setObjectName(QStringLiteral("filtreVersements"));
    m_periode->addItem(QStringLiteral("Tous les versements"), QStringLiteral("tous"));
    m_periode->addItem(QStringLiteral("Période de référence"), QStringLiteral("periode_reference"));
    m_periode->addItem(QStringLiteral("Année en cours"), QStringLiteral("annee"));
    m_periode->addItem(QStringLiteral("Période choisie"), QStringLiteral("periode"));
    m_du = new ChampDate(this);
    m_du->setObjectName(QStringLiteral("versementsDu"));
    m_au = new ChampDate(this);
    m_au->setObjectName(QStringLiteral("versementsAu"));
    m_tri = new QToolButton(this);
    m_tri->setObjectName(QStringLiteral("boutonTriVersements"));
    m_tri->setToolTip(QStringLiteral("Inverser l'ordre de la liste"));
    filtres->addWidget(new QLabel(QStringLiteral("Afficher :"), this));
    filtres->addWidget(m_periode);
    filtres->addSpacing(8);
    filtres->addWidget(new QLabel(QStringLiteral("du"), this));
    filtres->addWidget(m_du);
    filtres->addWidget(new QLabel(QStringLiteral("au"), this));
    filtres->addWidget(m_au);
    filtres->addStretch(1);
    filtres->addWidget(m_tri);
    mise->addLayout(filtres);

    m_modele = new ModeleVersementsPoleEmploi(this);
    m_liste = new QTableView(this);
    m_liste->setObjectName(QStringLiteral("listeVersements"));
    m_liste->setModel(m_modele);
    m_liste->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_liste->setSelectionMode(QAbstractItemView::SingleSelection);
    m_liste->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_liste->setAlternatingRowColors(true);
    m_liste->verticalHeader()->hide();
    m_liste->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_liste->verticalHeader()->setDefaultSectionSize(m_liste->fontMetrics().height() + 10);
    // A statement's layout: the date on the left, the amount on the right.
    m_liste->horizontalHeader()->setSectionResizeMode(ModeleVersementsPoleEmploi::Date, QHeaderView::Stretch);
    m_liste->horizontalHeader()->setSectionResizeMode(ModeleVersementsPoleEmploi::Montant, QHeaderView::ResizeToContents);
    auto* effacer = new QAction(QStringLiteral("Supprimer"), m_liste);
    effacer->setShortcut(QKeySequence::Delete);
    effacer->setShortcutContext(Qt::WidgetShortcut);
    m_liste->addAction(effacer);
    connect(effacer, &QAction::triggered, this, &FenetreVersementsPoleEmploi::supprimer);
    mise->addWidget(m_liste, 1);
    m_cumul = new QLabel(this);
    m_cumul->setObjectName(QStringLiteral("cumulVersements"));
    mise->addWidget(m_cumul);

    m_titreFormulaire = new QLabel(this);
    m_titreFormulaire->setObjectName(QStringLiteral("titreFormulaireVersement"));
    QFont gras = m_titreFormulaire->font();
    gras.setBold(true);
    m_titreFormulaire->setFont(gras);
    mise->addSpacing(6);
    mise->addWidget(m_titreFormulaire);
    auto* forme = new QFormLayout;
    forme->setLabelAlignment(Qt::AlignRight);
    m_date = new ChampDate(this);
    m_date->setObjectName(QStringLiteral("champDateVersement"));
    m_montant = new ChampMontant(this);
    m_montant->setObjectName(QStringLiteral("champMontantVersement"));
    m_montant->setMaximumWidth(m_montant->fontMetrics().horizontalAdvance(QStringLiteral("000 000 000,00 €")) + 16);
    forme->addRow(QStringLiteral("Date"), m_date);
    forme->addRow(QStringLiteral("Montant"), m_montant);
    mise->addLayout(forme);
    m_message = new MessageSaisie(this);
    m_message->surveiller(m_montant, QStringLiteral("Montant"));
    mise->addWidget(m_message);

    auto* boutons = new QHBoxLayout;
    auto* nouveau = bouton(this, QStringLiteral("Nouveau versement"), QStringLiteral("boutonNouveauVersement"));
    m_supprimer = bouton(this, QStringLiteral("Supprimer"), QStringLiteral("boutonSupprimerVersement"));
    auto* enregistrer = bouton(this, QStringLiteral("Enregistrer"), QStringLiteral("boutonEnregistrerVersement"));
    auto* fermer = bouton(this, QStringLiteral("Fermer"), QStringLiteral("boutonFermerVersements"));
    boutons->addWidget(nouveau);
    boutons->addWidget(m_supprimer);
    boutons->addStretch(1);
    boutons->addWidget(enregistrer);
    boutons->addWidget(fermer);
    mise->addLayout(boutons);

    {
        const QDate debut = m_versements->retrouveDatePreferee(kDebut).date();
        const QDate fin = m_versements->retrouveDatePreferee(kFin).date();
        m_debutChoisi = debut.isValid() ? debut : QDate(Horloge::aujourdhui().year(), 1, 1);
        m_finChoisi = fin.isValid() ? fin : QDate(Horloge::aujourdhui().year(), 12, 31);
    }
    connect(m_periode, &QComboBox::activated, this, [this] { recharger(idSelectionne()); });
    connect(m_du, &QDateEdit::userDateChanged, this, &FenetreVersementsPoleEmploi::datesModifiees);
    connect(m_au, &QDateEdit::userDateChanged, this, &FenetreVersementsPoleEmploi::datesModifiees);
    connect(m_tri, &QToolButton::clicked, this, [this] {
        const Reglages::Cle cle = Reglages::Cle::PoleEmploiHistoriqueSens;
        const bool recentsDabord = m_environnement.reglages.texte(cle) == QStringLiteral("ASC");
        m_environnement.reglages.ecrire(cle, recentsDabord ? QStringLiteral("DESC") : QStringLiteral("ASC"));
        majTri();
        recharger(idSelectionne());
    });
    connect(nouveau, &QPushButton::clicked, this, &FenetreVersementsPoleEmploi::nouveau);
    connect(m_supprimer, &QPushButton::clicked, this, &FenetreVersementsPoleEmploi::supprimer);
    connect(enregistrer, &QPushButton::clicked, this, &FenetreVersementsPoleEmploi::enregistrer);
    connect(fermer, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_montant, &QLineEdit::returnPressed, this, &FenetreVersementsPoleEmploi::enregistrer);
    connect(m_liste->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &FenetreVersementsPoleEmploi::selectionChangee);

    majTri();
    resize(640, 520);
    recharger();
    FenetreVersementsPoleEmploi::nouveau();
    attribuerRaccourcis(this, QString());
}

FenetreVersementsPoleEmploi::~FenetreVersementsPoleEmploi() = default;

void FenetreVersementsPoleEmploi::majTri()
{
    // The preference is applied inverted by the listing: "ASC" lists the latest payment first.
    const bool recentsDabord =
        m_environnement.reglages.texte(Reglages::Cle::PoleEmploiHistoriqueSens) == QStringLiteral("ASC");
    m_tri->setText(recentsDabord ? QStringLiteral("Les plus récents d'abord")
                                 : QStringLiteral("Les plus anciens d'abord"));
}

void FenetreVersementsPoleEmploi::datesModifiees()
{
    m_debutChoisi = m_du->date();
    m_finChoisi = m_au->date();
    m_versements->enregistreDatePreferee(kDebut, m_debutChoisi);
    m_versements->enregistreDatePreferee(kFin, m_finChoisi);
    recharger(idSelectionne());
}

void FenetreVersementsPoleEmploi::recharger(int idASelectionner)
{
    const QString tri = m_periode->currentData().toString();
    const bool choisie = tri == QStringLiteral("periode");
    m_du->setEnabled(choisie);
    m_au->setEnabled(choisie);
    {
        // Greyed, the fields show the span listed; the chosen period's dates stay remembered.
        const QSignalBlocker bloqueDu(m_du), bloqueAu(m_au);
        const QDate aujourdhui = Horloge::aujourdhui();
        if (tri == QStringLiteral("periode_reference")) {
            m_du->setDate(m_versements->retrouveDateOuvertureDroits().date());
            m_au->setDate(m_versements->retrouveDateFinDePeriodeEnCours());
        } else if (tri == QStringLiteral("annee")) {
            m_du->setDate(QDate(aujourdhui.year(), 1, 1));
            m_au->setDate(QDate(aujourdhui.year(), 12, 31));
        } else {
            m_du->setDate(m_debutChoisi);
            m_au->setDate(m_finChoisi);
        }
    }
    const Table table = m_versements->listeLesVersementsDu(
        m_du->date(), m_au->date(), tri, m_environnement.reglages.texte(Reglages::Cle::PoleEmploiHistoriqueSens));
    {
        const QSignalBlocker bloque(m_liste->selectionModel());
        m_modele->setTable(table);
    }
    // Every amount is a whole number of cents: so is their total.
    const double cumul = std::round(m_versements->cumulAssedic() * 100.0) / 100.0;
    const qsizetype nombre = table.size();
    m_cumul->setText(
        QStringLiteral("Cumul : %1 — %2")
            .arg(nombre > 1 ? QStringLiteral("%1 versements").arg(nombre) : QStringLiteral("%1 versement").arg(nombre),
                 enEuros(cumul)));
    const int rangee = m_modele->rangeeDeLId(idASelectionner);
    if (rangee >= 0)
        m_liste->selectRow(rangee);
    selectionChangee();
}

int FenetreVersementsPoleEmploi::idSelectionne() const
{
    const QModelIndexList lignes = m_liste->selectionModel()->selectedRows();
    return lignes.isEmpty() ? 0 : m_modele->idDeLaLigne(lignes.first().row());
}

void FenetreVersementsPoleEmploi::selectionChangee()
{
    const QModelIndexList lignes = m_liste->selectionModel()->selectedRows();
    const bool choisi = !lignes.isEmpty();
    m_supprimer->setEnabled(choisi);
    if (!choisi) {
        m_titreFormulaire->setText(QStringLiteral("Nouveau versement"));
        return;
    }
    const int rangee = lignes.first().row();
    m_titreFormulaire->setText(QStringLiteral("Versement du %1").arg(Dates::versAffichage(m_modele->date(rangee))));
    m_date->setDate(m_modele->date(rangee));
    m_montant->setValue(m_modele->montant(rangee));
    m_message->actualiser();
}

void FenetreVersementsPoleEmploi::nouveau()
{
    m_liste->clearSelection();
    m_date->setDate(Horloge::aujourdhui());
    m_montant->clear();
    m_message->actualiser();
    m_montant->setFocus();
}

void FenetreVersementsPoleEmploi::enregistrer()
{
    QString refus = m_message->refus();
    const double montant = m_montant->nombre().value_or(0.0);
    // A payment of no amount is not one: an empty field is asked for, not saved as 0,00 €.
    if (refus.isEmpty() && montant == 0.0)
        refus = QStringLiteral("Montant : indiquez la somme reçue.");
    if (refus.isEmpty())
        refus = PoleEmploiVersements::refusValeurs(m_date->date(), montant);
    if (!refus.isEmpty()) {
        m_environnement.dialogues.information(titre(), refus, QStringLiteral("Fermer"));
        return;
    }
    m_versements->date = m_date->date();
    m_versements->montant = montant;
    const int id = idSelectionne();
    const int ecrit = id != 0 ? (m_versements->modifiePoleEmploiVersement(id) ? id : 0)
                              : m_versements->enregistrePoleEmploiVersement();
    if (ecrit == 0) {
        m_environnement.dialogues.information(titre(), QStringLiteral("Le versement n'a pas pu être enregistré."),
                                              QStringLiteral("Fermer"));
        return;
    }
    recharger(ecrit);
}

void FenetreVersementsPoleEmploi::supprimer()
{
    const QModelIndexList lignes = m_liste->selectionModel()->selectedRows();
    if (lignes.isEmpty())
        return;
    const int rangee = lignes.first().row();
    const int id = m_modele->idDeLaLigne(rangee);
    if (m_environnement.reglages.booleen(Reglages::Cle::DeleteAlerts) &&
        m_environnement.dialogues.question(
            titre(),
            QStringLiteral("Souhaitez-vous supprimer le versement du %1 (%2) ?")
                .arg(m_modele->data(m_modele->index(rangee, ModeleVersementsPoleEmploi::Date)).toString(),
                     enEuros(m_modele->montant(rangee))),
            {QStringLiteral("Supprimer"), QStringLiteral("Annuler")}) != QStringLiteral("Supprimer"))
        return;
    if (!m_versements->supprimePoleEmploiVersement(id)) {
        m_environnement.dialogues.information(titre(), QStringLiteral("Le versement n'a pas pu être supprimé."),
                                              QStringLiteral("Fermer"));
        return;
    }
    recharger();
    nouveau();
}

} // namespace corvane::app
