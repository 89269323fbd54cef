#include "app/manager/FenetreProposition.h"

#include "app/Environnement.h"
#include "app/kit/ChampChiffre.h"
#include "app/kit/ChampDate.h"
#include "app/manager/FenetreRemises.h"
#include "records/Employeurs.h"
#include "store/Dates.h"
#include "store/Dialogues.h"
#include "store/Document.h"
#include "store/FormatFrancais.h"
#include "store/Horloge.h"
#include "store/Reglages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QTimeEdit>
#include <QVBoxLayout>

namespace corvane::app {

using Cle = Reglages::Cle;

namespace {

QPushButton* bouton(QWidget* parent, const QString& texte, const QString& nom)
{
    auto* b = new QPushButton(texte, parent);
    b->setObjectName(nom);
    b->setAutoDefault(false);
    return b;
}

template <typename T>
T* nomme(T* widget, const QString& nom)
{
    widget->setObjectName(nom);
    return widget;
}

// An entry of a pop-up by its data, the first one when none has it.
void choisirDonnee(QComboBox* liste, const QVariant& donnee)
{
    const int index = liste->findData(donnee);
    liste->setCurrentIndex(index >= 0 ? index : (liste->count() > 0 ? 0 : -1));
}

} // namespace

FenetreProposition::FenetreProposition(Environnement& environnement, Document& document, int propositionId,
                                       QWidget* parent)
    : QDialog(parent), m_environnement(environnement), m_document(document),
      m_propositions(std::make_unique<Propositions>(document.base())),
      m_tarifs(std::make_unique<TarifsPropositions>(document.base())), m_id(propositionId)
{
    setObjectName(QStringLiteral("fenetreProposition"));
    setWindowTitle(m_id > 0 ? QStringLiteral("Modifier la proposition") : QStringLiteral("Nouvelle proposition"));
    construire();
    charger();
    resize(760, 720);
}

FenetreProposition::~FenetreProposition() = default;

void FenetreProposition::construire()
{
    auto* mise = new QVBoxLayout(this);

    // The heading.
    auto* entete = new QGroupBox(QStringLiteral("Proposition"), this);
    auto* forme = new QFormLayout(entete);
    m_libelle = nomme(new QLineEdit(entete), QStringLiteral("champLibelleProposition"));
    forme->addRow(QStringLiteral("Libellé :"), m_libelle);
    m_organisateur = nomme(new QComboBox(entete), QStringLiteral("choixOrganisateur"));
    forme->addRow(QStringLiteral("Organisateur :"), m_organisateur);
    auto* nouveau = new QHBoxLayout;
    m_nouvelOrganisateur = nomme(new QLineEdit(entete), QStringLiteral("champNouvelOrganisateur"));
    m_nouvelOrganisateur->setPlaceholderText(QStringLiteral("Nom du nouvel organisateur"));
    m_communeNouvelOrganisateur = nomme(new QLineEdit(entete), QStringLiteral("champCommuneNouvelOrganisateur"));
    m_communeNouvelOrganisateur->setPlaceholderText(QStringLiteral("Commune"));
    auto* ajouterOrganisateurBouton =
        bouton(entete, QStringLiteral("Ajouter l'organisateur"), QStringLiteral("boutonAjouterOrganisateur"));
    nouveau->addWidget(m_nouvelOrganisateur, 2);
    nouveau->addWidget(m_communeNouvelOrganisateur, 1);
    nouveau->addWidget(ajouterOrganisateurBouton);
    forme->addRow(QString(), nouveau);
    m_qualite = nomme(new QComboBox(entete), QStringLiteral("choixQualiteProposition"));
    for (const auto& [id, libelle] : Employeurs(m_document.base()).qualites())
        m_qualite->addItem(libelle, id);
    forme->addRow(QStringLiteral("Qualité :"), m_qualite);
    m_commune = nomme(new QLineEdit(entete), QStringLiteral("champCommuneProposition"));
    forme->addRow(QStringLiteral("Lieu :"), m_commune);
    m_date = nomme(new ChampDate(entete), QStringLiteral("dateProposition"));
    forme->addRow(QStringLiteral("Date :"), m_date);
    auto* horaires = new QHBoxLayout;
    m_heureDonnee = nomme(new QCheckBox(QStringLiteral("Heure :"), entete), QStringLiteral("caseHeureProposition"));
    m_heure = nomme(new QTimeEdit(entete), QStringLiteral("heureProposition"));
    m_heure->setDisplayFormat(QStringLiteral("HH:mm"));
    m_dureeDonnee = nomme(new QCheckBox(QStringLiteral("Durée :"), entete), QStringLiteral("caseDureeProposition"));
    m_duree = nomme(new QTimeEdit(entete), QStringLiteral("dureeProposition"));
    m_duree->setDisplayFormat(QStringLiteral("HH:mm"));
    horaires->addWidget(m_heureDonnee);
    horaires->addWidget(m_heure);
    horaires->addSpacing(16);
    horaires->addWidget(m_dureeDonnee);
    horaires->addWidget(m_duree);
    horaires->addStretch(1);
    forme->addRow(QString(), horaires);
    auto* charges = new QHBoxLayout;
    m_charges = nomme(new ChampMontant(entete), QStringLiteral("chargesProposition"));
    m_charges->setVideVautZero(true);
    m_chargesNonAjoutees =
        nomme(new QCheckBox(QStringLiteral("Charges non ajoutées"), entete), QStringLiteral("caseChargesNonAjoutees"));
    m_chargesNonAjoutees->setToolTip(
        QStringLiteral("Les charges sont réglées à part par l'organisateur : elles ne s'ajoutent pas au montant."));
    charges->addWidget(m_charges);
    charges->addWidget(m_chargesNonAjoutees);
    charges->addStretch(1);
    forme->addRow(QStringLiteral("Charges :"), charges);
    auto* remise = new QHBoxLayout;
    m_remise = nomme(new QComboBox(entete), QStringLiteral("choixRemise"));
    m_noteRemise = nomme(new QLabel(entete), QStringLiteral("noteRemise"));
    m_noteRemise->setEnabled(false);
    auto* remisesBouton = bouton(entete, QStringLiteral("Remises…"), QStringLiteral("boutonRemisesProposition"));
    remise->addWidget(m_remise);
    remise->addWidget(m_noteRemise, 1);
    remise->addWidget(remisesBouton);
    forme->addRow(QStringLiteral("Remise :"), remise);
    m_delai = nomme(new QComboBox(entete), QStringLiteral("choixDelai"));
    forme->addRow(QStringLiteral("Validité :"), m_delai);
    mise->addWidget(entete);

    // The lines.
    auto* lignes = new QGroupBox(QStringLiteral("Prestations"), this);
    auto* miseLignes = new QVBoxLayout(lignes);
    auto* choix = new QHBoxLayout;
    m_groupe = nomme(new QComboBox(lignes), QStringLiteral("choixGroupe"));
    m_prestation = nomme(new QComboBox(lignes), QStringLiteral("choixPrestation"));
    m_prestation->setMinimumContentsLength(18);
    m_prix = nomme(new QLabel(lignes), QStringLiteral("prixPrestation"));
    m_personnes =
        nomme(new ChampNombre(0, Propositions::kPersonnesMaximum, lignes), QStringLiteral("personnesPrestation"));
    m_personnes->setMaximumWidth(70);
    m_dateLigne = nomme(new ChampDate(lignes), QStringLiteral("dateLigne"));
    auto* ajouterLigneBouton = bouton(lignes, QStringLiteral("Ajouter"), QStringLiteral("boutonAjouterLigne"));
    choix->addWidget(m_groupe);
    choix->addWidget(m_prestation, 1);
    choix->addWidget(m_prix);
    choix->addWidget(new QLabel(QStringLiteral("Personnes :"), lignes));
    choix->addWidget(m_personnes);
    choix->addWidget(m_dateLigne);
    choix->addWidget(ajouterLigneBouton);
    miseLignes->addLayout(choix);
    m_notePrestation = nomme(new QLabel(lignes), QStringLiteral("notePrestation"));
    m_notePrestation->setEnabled(false);
    miseLignes->addWidget(m_notePrestation);
    m_tableLignes = nomme(new QTableWidget(0, 3, lignes), QStringLiteral("lignesFenetreProposition"));
    m_tableLignes->setHorizontalHeaderLabels(
        {QStringLiteral("Date"), QStringLiteral("Prestation"), QStringLiteral("Montant")});
    m_tableLignes->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_tableLignes->setSelectionMode(QAbstractItemView::SingleSelection);
    m_tableLignes->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tableLignes->verticalHeader()->hide();
    m_tableLignes->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    miseLignes->addWidget(m_tableLignes, 1);
    auto* pied = new QHBoxLayout;
    auto* supprimerLigneBouton =
        bouton(lignes, QStringLiteral("Supprimer la ligne"), QStringLiteral("boutonSupprimerLigne"));
    m_total = nomme(new QLabel(lignes), QStringLiteral("totalProposition"));
    m_total->setMinimumWidth(
        m_total->fontMetrics().horizontalAdvance(QStringLiteral("Montant à régler : 00 000 000,00 €")));
    m_total->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    pied->addWidget(supprimerLigneBouton);
    pied->addStretch(1);
    pied->addWidget(m_total);
    miseLignes->addLayout(pied);
    mise->addWidget(lignes, 1);

    auto* boutons = new QHBoxLayout;
    auto* annuler = bouton(this, QStringLiteral("Annuler"), QStringLiteral("boutonAnnulerProposition"));
    auto* enregistrerBouton =
        bouton(this, QStringLiteral("Enregistrer"), QStringLiteral("boutonEnregistrerProposition"));
    boutons->addStretch(1);
    boutons->addWidget(annuler);
    boutons->addWidget(enregistrerBouton);
    mise->addLayout(boutons);

    connect(m_organisateur, &QComboBox::activated, this, &FenetreProposition::organisateurChoisi);
    connect(ajouterOrganisateurBouton, &QPushButton::clicked, this, &FenetreProposition::ajouterOrganisateur);
    connect(m_remise, &QComboBox::currentIndexChanged, this, &FenetreProposition::remiseChoisie);
    connect(remisesBouton, &QPushButton::clicked, this, &FenetreProposition::ouvrirRemises);
    connect(m_groupe, &QComboBox::currentIndexChanged, this, &FenetreProposition::remplirPrestations);
    connect(m_prestation, &QComboBox::currentIndexChanged, this, &FenetreProposition::prestationChoisie);
    connect(ajouterLigneBouton, &QPushButton::clicked, this, &FenetreProposition::ajouterLigne);
    connect(supprimerLigneBouton, &QPushButton::clicked, this, &FenetreProposition::supprimerLigne);
    connect(m_charges, &QLineEdit::textChanged, this, &FenetreProposition::majLignes);
    connect(m_chargesNonAjoutees, &QCheckBox::toggled, this, &FenetreProposition::majLignes);
    connect(m_heureDonnee, &QCheckBox::toggled, m_heure, &QWidget::setEnabled);
    connect(m_dureeDonnee, &QCheckBox::toggled, m_duree, &QWidget::setEnabled);
    connect(annuler, &QPushButton::clicked, this, &QDialog::reject);
    connect(enregistrerBouton, &QPushButton::clicked, this, &FenetreProposition::enregistrer);
}

void FenetreProposition::charger()
{
    const Reglages& reglages = m_environnement.reglages;
    {
        const QSignalBlocker bloque(m_groupe);
        for (const auto& [id, libelle] : m_tarifs->groupes())
            m_groupe->addItem(libelle, id);
    }
    remplirPrestations();
    const std::optional<EnteteProposition> stockee = m_id > 0 ? m_propositions->entete(m_id) : std::nullopt;
    if (!stockee) {
        // A new proposition starts from the last one's choices.
        m_id = 0;
        remplirOrganisateurs(reglages.texte(Cle::PropositionsEmployeur));
        organisateurChoisi();
        remplirRemises(reglages.entier(Cle::PropositionsRemise));
        remplirDelais(reglages.entier(Cle::PropositionsDelai));
        m_charges->setValue(
            qBound(0.0, reglages.valeur(Cle::PropositionsCharges).toDouble(), Limites::kMontantMaximum));
        m_date->setDate(Horloge::aujourdhui());
        m_dateLigne->setDate(Horloge::aujourdhui());
        m_heureDonnee->setChecked(false);
        m_dureeDonnee->setChecked(false);
        m_heure->setEnabled(false);
        m_duree->setEnabled(false);
        majLignes();
        return;
    }
    const EnteteProposition& e = *stockee;
    m_statut = e.statut;
    m_libelle->setText(e.libelle);
    remplirOrganisateurs(m_propositions->retrouveEmployeurDepuisId(e.employeurId));
    m_commune->setText(e.commune);
    choisirDonnee(m_qualite, e.qualiteId);
    m_date->setDate(e.date);
    m_dateLigne->setDate(e.date);
    m_heureDonnee->setChecked(e.heureDonnee);
    m_heure->setTime(e.heure.isValid() ? e.heure : QTime(0, 0));
    m_heure->setEnabled(e.heureDonnee);
    m_dureeDonnee->setChecked(e.dureeDonnee);
    m_duree->setTime(e.duree.isValid() ? e.duree : QTime(0, 0));
    m_duree->setEnabled(e.dureeDonnee);
    m_charges->setValue(e.charges);
    m_chargesNonAjoutees->setChecked(e.chargesNonAjoutees);
    const QList<LigneProposition> lignes = m_propositions->lignes(m_id);
    // One discount and one delay for the proposition: the last line's, as the total reads them.
    remplirRemises(lignes.isEmpty() ? reglages.entier(Cle::PropositionsRemise) : lignes.last().remiseId);
    remplirDelais(lignes.isEmpty() ? reglages.entier(Cle::PropositionsDelai) : lignes.last().delaiId);
    const Table table = m_propositions->lignesDeLaProposition(m_id);
    for (const LigneProposition& l : lignes) {
        LigneEnCours enCours{l, QString(), 0.0};
        for (qsizetype i = 0; i < table.size(); ++i)
            if (table.valeur(i, "Id").toInt() == l.id) {
                enCours.libelle = table.valeur(i, "Prestation").toString();
                enCours.montant = table.valeur(i, "Montant").toDouble();
            }
        if (enCours.libelle.isEmpty())
            continue; // a line the total leaves out (its service is gone): not kept
        m_lignes.append(enCours);
    }
    majLignes();
}

void FenetreProposition::remplirOrganisateurs(const QString& choisi)
{
    const QSignalBlocker bloque(m_organisateur);
    m_organisateur->clear();
    for (const auto& [id, nom] : m_propositions->choixEmployeurs())
        m_organisateur->addItem(nom, id);
    const int index = m_organisateur->findText(choisi);
    m_organisateur->setCurrentIndex(index >= 0 ? index : (m_organisateur->count() > 0 ? 0 : -1));
}

void FenetreProposition::organisateurChoisi()
{
    const auto [commune, qualite] = m_propositions->communeEtQualiteOrganisateur(m_organisateur->currentText());
    m_commune->setText(commune);
    if (qualite > 0)
        choisirDonnee(m_qualite, qualite);
}

void FenetreProposition::remplirRemises(int choisie)
{
    {
        const QSignalBlocker bloque(m_remise);
        m_remise->clear();
        if (const std::optional<Remise> aucune = m_tarifs->remise(TarifsPropositions::kAucuneRemise))
            m_remise->addItem(TarifsPropositions::libelleRemise(*aucune), aucune->id);
        for (const Remise& r : m_tarifs->remisesProposees())
            m_remise->addItem(TarifsPropositions::libelleRemise(r), r.id);
        choisirDonnee(m_remise, choisie);
    }
    remiseChoisie();
}

void FenetreProposition::remplirDelais(int choisi)
{
    m_delai->clear();
    for (const Delai& d : m_tarifs->delais())
        m_delai->addItem(TarifsPropositions::libelleDelai(d), d.id);
    choisirDonnee(m_delai, choisi);
}

void FenetreProposition::remplirPrestations()
{
    {
        const QSignalBlocker bloque(m_prestation);
        m_prestation->clear();
        for (const Prestation& p : m_tarifs->prestations(m_groupe->currentData().toInt()))
            m_prestation->addItem(p.libelle, p.id);
    }
    prestationChoisie();
}

void FenetreProposition::prestationChoisie()
{
    // The service's price, note and per-person flag, read by its label.
    const std::optional<Prestation> p = m_tarifs->prestationParLibelle(m_prestation->currentText());
    m_prix->setText(p ? enEuros(p->montant) + (p->parPersonne ? QStringLiteral(" par personne") : QString())
                      : QString());
    m_notePrestation->setText(p ? p->note : QString());
    const bool parPersonne = p && p->parPersonne;
    m_personnes->setEnabled(parPersonne);
    m_personnes->setRange(parPersonne ? 1 : 0, Propositions::kPersonnesMaximum);
    m_personnes->setValue(parPersonne ? qMax(1, m_personnes->value()) : 0);
}

void FenetreProposition::remiseChoisie()
{
    m_noteRemise->setText(m_tarifs->noteRemise(m_remise->currentData().toInt()));
    majLignes();
}

void FenetreProposition::ouvrirRemises()
{
    FenetreRemises fenetre(m_environnement, m_document, TarifsPropositions::titreRemisesProposition(), this);
    int ajoutee = 0;
    connect(&fenetre, &FenetreRemises::remisesModifiees, this, [this, &ajoutee](int id) {
        if (id > 0)
            ajoutee = id;
        emit documentModifie();
    });
    fenetre.exec();
    remplirRemises(ajoutee > 0 ? ajoutee : m_remise->currentData().toInt());
}

bool FenetreProposition::ajouterOrganisateur()
{
    const QString nom = m_nouvelOrganisateur->text().trimmed();
    const QString commune = m_communeNouvelOrganisateur->text().trimmed();
    if (const QString refus = m_propositions->refusOrganisateur(nom, commune); !refus.isEmpty()) {
        alerter(Propositions::titreEmployeurs(), refus);
        return false;
    }
    if (m_propositions->ajouteOrganisateur(nom, commune) == 0) {
        alerter(Propositions::titreEmployeurs(), QStringLiteral("L'organisateur n'a pas pu être enregistré."));
        return false;
    }
    m_nouvelOrganisateur->clear();
    m_communeNouvelOrganisateur->clear();
    remplirOrganisateurs(nom);
    organisateurChoisi();
    emit documentModifie();
    return true;
}

bool FenetreProposition::ajouterLigne()
{
    const std::optional<Prestation> p = m_tarifs->prestation(m_prestation->currentData().toInt());
    if (!p) {
        alerter(TarifsPropositions::titrePrestations(), QStringLiteral("Veuillez choisir une prestation."));
        return false;
    }
    const std::optional<int> personnes = p->parPersonne ? m_personnes->entier() : std::optional<int>(0);
    if (!personnes) {
        alerter(TarifsPropositions::titrePrestations(),
                QStringLiteral("Nombre de personnes : %1.").arg(m_personnes->erreur()));
        return false;
    }
    LigneEnCours l;
    l.ligne.prestationId = p->id;
    l.ligne.personnes = *personnes;
    l.ligne.date = m_dateLigne->date();
    l.libelle = p->parPersonne ? Propositions::libelleParPersonne(p->libelle, *personnes) : p->libelle;
    l.montant = p->parPersonne ? p->montant * *personnes : p->montant;
    m_lignes.append(l);
    majLignes();
    m_tableLignes->selectRow(int(m_lignes.size()) - 1);
    return true;
}

bool FenetreProposition::supprimerLigne()
{
    const QModelIndexList rangees = m_tableLignes->selectionModel()->selectedRows();
    if (rangees.isEmpty()) {
        alerter(TarifsPropositions::titrePrestations(), Propositions::messageLigneSansSelection());
        return false;
    }
    m_lignes.removeAt(rangees.first().row());
    majLignes();
    return true;
}

double FenetreProposition::total() const
{
    double lignes = 0.0;
    for (const LigneEnCours& l : m_lignes)
        lignes += l.montant;
    const double charges = m_chargesNonAjoutees->isChecked() ? 0.0 : m_charges->value();
    const Remise remise =
        m_tarifs->remise(m_remise->currentData().toInt())
            .value_or(Remise{TarifsPropositions::kAucuneRemise, 0.0, TarifsPropositions::kTypeSansRemise, QString()});
    return lignes + charges - (m_lignes.isEmpty() ? 0.0 : Propositions::montantRemise(lignes, remise));
}

void FenetreProposition::majLignes()
{
    m_tableLignes->setRowCount(int(m_lignes.size()));
    for (int r = 0; r < m_lignes.size(); ++r) {
        const LigneEnCours& l = m_lignes.at(r);
        m_tableLignes->setItem(r, 0, new QTableWidgetItem(Dates::versAffichage(l.ligne.date)));
        m_tableLignes->setItem(r, 1, new QTableWidgetItem(l.libelle));
        auto* montant = new QTableWidgetItem(enEuros(l.montant));
        montant->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        m_tableLignes->setItem(r, 2, montant);
    }
    m_total->setText(QStringLiteral("Montant à régler : %1").arg(enEuros(total())));
}

EnteteProposition FenetreProposition::entete() const
{
    EnteteProposition e;
    e.id = m_id;
    e.libelle = m_libelle->text().trimmed();
    e.employeurId = m_organisateur->currentData().toInt();
    e.date = m_date->date();
    e.statut = m_statut;
    e.commune = m_commune->text().trimmed();
    e.heureDonnee = m_heureDonnee->isChecked();
    e.heure = m_heure->time();
    e.dureeDonnee = m_dureeDonnee->isChecked();
    e.duree = m_duree->time();
    e.charges = m_charges->nombre().value_or(-1.0);
    e.chargesNonAjoutees = m_chargesNonAjoutees->isChecked();
    e.qualiteId = m_qualite->currentData().toInt();
    return e;
}

bool FenetreProposition::enregistrer()
{
    if (!m_charges->estValide()) {
        alerter(Propositions::titreAlertes(), QStringLiteral("Charges : %1.").arg(m_charges->erreur()));
        return false;
    }
    const EnteteProposition e = entete();
    QList<LigneProposition> lignes;
    for (const LigneEnCours& l : m_lignes) {
        LigneProposition ligne = l.ligne;
        ligne.remiseId = m_remise->currentData().toInt();
        ligne.delaiId = m_delai->currentData().toInt();
        lignes << ligne;
    }
    QString refus;
    const int id = m_propositions->enregistreAvecLignes(e, lignes, &refus);
    if (id == 0) {
        alerter(Propositions::titreAlertes(), refus);
        return false;
    }
    m_id = id;
    Reglages& reglages = m_environnement.reglages;
    reglages.ecrire(Cle::PropositionsEmployeur, m_organisateur->currentText());
    reglages.ecrire(Cle::PropositionsRemise, m_remise->currentData().toInt());
    reglages.ecrire(Cle::PropositionsDelai, m_delai->currentData().toInt());
    reglages.ecrire(Cle::PropositionsCharges, e.charges);
    emit enregistree(id);
    accept();
    return true;
}

void FenetreProposition::alerter(const QString& titre, const QString& message)
{
    m_environnement.dialogues.information(titre, message, QStringLiteral("Fermer"));
}

} // namespace corvane::app
