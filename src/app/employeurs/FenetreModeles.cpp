#include "app/employeurs/FenetreModeles.h"

#include "store/Document.h"

#include "app/Environnement.h"
#include "app/MemoireColonnes.h"
#include "app/kit/ChampChiffre.h"
#include "app/kit/MessageSaisie.h"
#include "app/kit/Raccourcis.h"
#include "records/Employeurs.h"
#include "store/Dialogues.h"
#include "store/FormatFrancais.h"
#include "store/Reglages.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace corvane::app {

namespace {

const QString kTitre = QStringLiteral("Modèles de contrat");

ChampMontant* montant(QWidget* parent, const QString& nom)
{
    auto* champ = new ChampMontant(parent);
    champ->setObjectName(nom);
    return champ;
}

} // namespace

FenetreModeles::FenetreModeles(Environnement& environnement, Document& document, QWidget* parent)
    : QDialog(parent), m_environnement(environnement), m_modeles(std::make_unique<ContratsModeles>(document.base()))
{
    setObjectName(QStringLiteral("fenetreModeles"));
    setWindowTitle(kTitre);
    auto* mise = new QHBoxLayout(this);

    auto* gauche = new QVBoxLayout;
    m_liste = new QTableWidget(0, 5, this);
    m_liste->setObjectName(QStringLiteral("listeModeles"));
    m_liste->setHorizontalHeaderLabels({QStringLiteral("Nom du modèle"), QStringLiteral("Type"),
                                        QStringLiteral("Jours"), QStringLiteral("Salaire brut"),
                                        QStringLiteral("Employeur")});
    m_liste->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_liste->setSelectionMode(QAbstractItemView::SingleSelection);
    m_liste->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_liste->verticalHeader()->hide();
    m_liste->horizontalHeader()->setStretchLastSection(true);
    auto* effacer = new QAction(QStringLiteral("Supprimer"), m_liste);
    effacer->setShortcut(QKeySequence::Delete);
    effacer->setShortcutContext(Qt::WidgetShortcut);
    m_liste->addAction(effacer);
    connect(effacer, &QAction::triggered, this, &FenetreModeles::supprimer);
    gauche->addWidget(m_liste, 1);
    auto* nouveau = new QPushButton(QStringLiteral("Nouveau modèle"), this);
    nouveau->setObjectName(QStringLiteral("boutonNouveauModele"));
    gauche->addWidget(nouveau, 0, Qt::AlignLeft);
    mise->addLayout(gauche, 3);

    auto* droite = new QVBoxLayout;
    auto* forme = new QFormLayout;
    forme->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    forme->setLabelAlignment(Qt::AlignRight);
    m_libelle = new QLineEdit(this);
    m_libelle->setObjectName(QStringLiteral("champLibelleModele"));
    forme->addRow(QStringLiteral("Nom du modèle"), m_libelle);
    m_emploi = new QComboBox(this);
    m_emploi->setObjectName(QStringLiteral("champEmploiModele"));
    const QStringList emplois = m_modeles->tousLesEmplois();
    for (int i = 0; i < emplois.size(); ++i)
        m_emploi->addItem(emplois[i], i + 1);
    forme->addRow(QStringLiteral("Emploi"), m_emploi);
    m_type = new QComboBox(this);
    m_type->setObjectName(QStringLiteral("champTypeModele"));
    forme->addRow(QStringLiteral("Type"), m_type);
    m_jours = new ChampNombre(0, Limites::kJoursContratMaximum, this);
    m_jours->setObjectName(QStringLiteral("champJoursModele"));
    forme->addRow(QStringLiteral("Jours"), m_jours);
    m_heures = new ChampNombre(0, Limites::kHeuresContratMaximum, this);
    m_heures->setObjectName(QStringLiteral("champHeuresModele"));
    forme->addRow(QStringLiteral("Heures"), m_heures);
    forme->addRow(QStringLiteral("Salaire brut"), m_brut = montant(this, QStringLiteral("champBrutModele")));
    forme->addRow(QStringLiteral("Salaire net"), m_net = montant(this, QStringLiteral("champNetModele")));
    forme->addRow(QStringLiteral("Salaire net à payer"),
                  m_netAPayer = montant(this, QStringLiteral("champNetAPayerModele")));
    m_employeur = new QComboBox(this);
    m_employeur->setObjectName(QStringLiteral("champEmployeurModele"));
    const Table employeurs = Employeurs(m_modeles->db()).listeLesEmployeurs();
    for (qsizetype i = 0; i < employeurs.size(); ++i) {
        const QString enseigne = employeurs.valeur(i, "Enseigne").toString();
        const QString commune = employeurs.valeur(i, "Commune").toString();
        m_employeur->addItem(commune.isEmpty() ? enseigne : QStringLiteral("%1 (%2)").arg(enseigne, commune),
                             employeurs.valeur(i, "Id"));
    }
    forme->addRow(QStringLiteral("Employeur"), m_employeur);
    m_associerFrais = new QCheckBox(QStringLiteral("Créer aussi une dépense avec le contrat"), this);
    m_associerFrais->setObjectName(QStringLiteral("champAssocierFrais"));
    forme->addRow(QString(), m_associerFrais);
    m_fraisType = new QComboBox(this);
    m_fraisType->setObjectName(QStringLiteral("champFraisType"));
    for (const auto& [id, type] : m_modeles->choixTypesDeFrais())
        m_fraisType->addItem(type, id);
    forme->addRow(QStringLiteral("Catégorie de la dépense"), m_fraisType);
    forme->addRow(QStringLiteral("Montant de la dépense"),
                  m_fraisMontant = montant(this, QStringLiteral("champFraisMontant")));
    m_fraisNote = new QLineEdit(this);
    m_fraisNote->setObjectName(QStringLiteral("champFraisNote"));
    forme->addRow(QStringLiteral("Détails de la dépense"), m_fraisNote);
    droite->addLayout(forme);
    m_message = new MessageSaisie(this);
    m_message->surveiller(m_jours, QStringLiteral("Jours"));
    m_message->surveiller(m_heures, QStringLiteral("Heures"));
    m_message->surveiller(m_brut, QStringLiteral("Salaire brut"));
    m_message->surveiller(m_net, QStringLiteral("Salaire net"));
    m_message->surveiller(m_netAPayer, QStringLiteral("Salaire net à payer"));
    m_message->surveiller(m_fraisMontant, QStringLiteral("Montant de la dépense"));
    droite->addWidget(m_message);
    droite->addStretch(1);

    auto* boutons = new QHBoxLayout;
    m_supprimer = new QPushButton(QStringLiteral("Supprimer"), this);
    m_supprimer->setObjectName(QStringLiteral("boutonSupprimerModele"));
    auto* enregistrer = new QPushButton(QStringLiteral("Enregistrer"), this);
    enregistrer->setObjectName(QStringLiteral("boutonEnregistrerModele"));
    auto* fermer = new QPushButton(QStringLiteral("Fermer"), this);
    fermer->setObjectName(QStringLiteral("boutonFermerModeles"));
    boutons->addWidget(m_supprimer);
    boutons->addStretch(1);
    boutons->addWidget(enregistrer);
    boutons->addWidget(fermer);
    droite->addLayout(boutons);
    mise->addLayout(droite, 2);
    for (QPushButton* b : findChildren<QPushButton*>())
        b->setAutoDefault(false);

    connect(nouveau, &QPushButton::clicked, this, &FenetreModeles::nouveauModele);
    connect(enregistrer, &QPushButton::clicked, this, &FenetreModeles::enregistrer);
    connect(m_supprimer, &QPushButton::clicked, this, &FenetreModeles::supprimer);
    connect(fermer, &QPushButton::clicked, this, &QDialog::accept);
    for (QLineEdit* champ : {m_libelle, m_fraisNote})
        connect(champ, &QLineEdit::returnPressed, this, &FenetreModeles::enregistrer);
    connect(m_emploi, &QComboBox::activated, this, [this] { remplirTypes(m_emploi->currentData().toInt(), 0); });
    connect(m_associerFrais, &QCheckBox::toggled, this, [this](bool coche) {
        m_fraisType->setEnabled(coche);
        m_fraisMontant->setEnabled(coche);
        m_fraisNote->setEnabled(coche);
    });
    connect(m_liste, &QTableWidget::itemSelectionChanged, this, &FenetreModeles::selectionChangee);
    resize(940, 520);
    recharger();
    // Columns fitted to their contents until the user sets them.
    m_liste->resizeColumnsToContents();
    memoriserColonnes(m_liste, environnement.reglages, Reglages::Cle::ContratsModelesColonnes);
    attribuerRaccourcis(this, QString());
}

void FenetreModeles::recharger(int idASelectionner)
{
    const QSignalBlocker blocage(m_liste);
    m_liste->setRowCount(0);
    int rangeeChoisie = -1;
    for (const Ligne& l : m_modeles->listeLesModeles_v4()) {
        const ContratModele m = ContratsModeles::depuisLigne(l);
        const int rangee = m_liste->rowCount();
        m_liste->insertRow(rangee);
        auto* nom = new QTableWidgetItem(m.libelle);
        nom->setData(Qt::UserRole, m.id);
        m_liste->setItem(rangee, 0, nom);
        m_liste->setItem(rangee, 1, new QTableWidgetItem(m_modeles->typePourEmploi(m.emploiId, m.typeId)));
        m_liste->setItem(rangee, 2, new QTableWidgetItem(QString::number(m.jours)));
        m_liste->setItem(rangee, 3, new QTableWidgetItem(enEuros(m.salaireBrut)));
        m_liste->setItem(rangee, 4, new QTableWidgetItem(m_modeles->retrouveEmployeurDepuisId(m.employeurId)));
        if (m.id == idASelectionner)
            rangeeChoisie = rangee;
    }
    if (rangeeChoisie < 0 && m_liste->rowCount() > 0 && idASelectionner == 0)
        rangeeChoisie = 0;
    if (rangeeChoisie >= 0)
        m_liste->selectRow(rangeeChoisie);
    selectionChangee();
}

void FenetreModeles::selectionChangee()
{
    const QList<QTableWidgetItem*> choix = m_liste->selectedItems();
    if (choix.isEmpty()) {
        nouveauModele();
        return;
    }
    const int id = m_liste->item(choix.first()->row(), 0)->data(Qt::UserRole).toInt();
    for (const Ligne& l : m_modeles->listeLesModeles_v4()) {
        if (l.value("Id").toInt() == id) {
            afficher(ContratsModeles::depuisLigne(l));
            return;
        }
    }
}

void FenetreModeles::remplirTypes(int emploiId, int typeId)
{
    m_type->clear();
    for (const QString& type : m_modeles->typesPourEmploi(emploiId))
        m_type->addItem(type, m_modeles->typeIdPourEmploi(emploiId, type));
    const int index = m_type->findData(typeId);
    m_type->setCurrentIndex(index < 0 ? 0 : index);
}

void FenetreModeles::afficher(const ContratModele& m)
{
    m_modele = m;
    m_libelle->setText(m.libelle);
    m_emploi->setCurrentIndex(qMax(0, m_emploi->findData(m.emploiId)));
    remplirTypes(m_emploi->currentData().toInt(), m.typeId);
    m_jours->setValue(m.jours);
    m_heures->setValue(m.heures);
    m_brut->setValue(m.salaireBrut);
    m_net->setValue(m.salaireNet);
    m_netAPayer->setValue(m.salaireNetAPayer);
    m_employeur->setCurrentIndex(qMax(0, m_employeur->findData(m.employeurId)));
    m_associerFrais->setChecked(m.associerFrais != 0);
    m_fraisType->setEnabled(m.associerFrais != 0);
    m_fraisMontant->setEnabled(m.associerFrais != 0);
    m_fraisNote->setEnabled(m.associerFrais != 0);
    m_fraisType->setCurrentIndex(qMax(0, m_fraisType->findData(m.fraisTypeId)));
    m_fraisMontant->setValue(m.fraisMontant);
    m_fraisNote->setText(m.fraisDetails);
    m_supprimer->setEnabled(m.id != 0);
    m_message->actualiser();
}

ContratModele FenetreModeles::saisie() const
{
    ContratModele m = m_modele;
    m.libelle = m_libelle->text().trimmed();
    m.emploiId = m_emploi->currentData().toInt();
    m.typeId = m_type->currentData().toInt();
    // Figures that cannot be read keep the template's values; the save refuses them first.
    m.jours = m_jours->entier().value_or(m.jours);
    m.heures = m_heures->entier().value_or(m.heures);
    m.salaireBrut = m_brut->nombre().value_or(m.salaireBrut);
    m.salaireNet = m_net->nombre().value_or(m.salaireNet);
    m.salaireNetAPayer = m_netAPayer->nombre().value_or(m.salaireNetAPayer);
    m.employeurId = m_employeur->currentIndex() < 0 ? 1 : m_employeur->currentData().toInt();
    m.associerFrais = m_associerFrais->isChecked() ? 1 : 0;
    m.fraisTypeId = m_fraisType->currentData().toInt();
    m.fraisMontant = m_fraisMontant->nombre().value_or(m.fraisMontant);
    m.fraisDetails = m_fraisNote->text();
    return m;
}

void FenetreModeles::nouveauModele()
{
    {
        const QSignalBlocker blocage(m_liste);
        m_liste->clearSelection();
    }
    ContratModele m;
    // A new template takes the profile's job.
    const int emploi = m_modeles->retrouveEmploiId(m_modeles->retrouveEmploiUtilisateur());
    m.emploiId = emploi == 0 ? 1 : emploi;
    m.typeId = m_modeles->typeIdPourEmploi(m.emploiId, m_modeles->typesPourEmploi(m.emploiId).value(0));
    afficher(m);
    m_libelle->setFocus();
}

void FenetreModeles::enregistrer()
{
    // A figure that cannot be read is never saved, nor saved as 0.
    QString refus = m_message->refus();
    if (!refus.isEmpty()) {
        m_environnement.dialogues.information(kTitre, refus, QStringLiteral("Fermer"));
        return;
    }
    ContratModele m = saisie();
    refus = m_modeles->refusEnregistrement(m);
    if (!refus.isEmpty()) {
        m_environnement.dialogues.information(kTitre, refus, QStringLiteral("Fermer"));
        return;
    }
    if (m.id == 0) {
        m.id = m_modeles->enregistreContratsModele(m);
        if (m.id == 0)
            return;
    } else {
        m_modeles->modifieContratsModele(m);
    }
    m_modeles->enregistreComplements(m);
    recharger(m.id);
}

void FenetreModeles::supprimer()
{
    const int id = m_modele.id;
    if (id == 0)
        return;
    // When employers carry it, the template's own question is the confirmation.
    const bool utilise = Employeurs(m_modeles->db()).compteLesEmployeursParModeleDeContrat(id) > 0;
    if (!utilise && m_environnement.reglages.booleen(Reglages::Cle::DeleteAlerts)) {
        const QString reponse = m_environnement.dialogues.question(
            kTitre, QStringLiteral("Souhaitez-vous supprimer le modèle « %1 » ?").arg(m_modele.libelle),
            {QStringLiteral("Supprimer"), QStringLiteral("Annuler")});
        if (reponse != QStringLiteral("Supprimer"))
            return;
    }
    if (m_modeles->supprimeContratsModeleAvecVerification(id, m_environnement.dialogues))
        recharger();
}

} // namespace corvane::app
