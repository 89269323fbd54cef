// The contract form's behaviour: what each edit does to the contract being edited, how
// the widgets show it, and the save with its alerts.

#include "app/contrats/FormulaireContrat.h"

#include "store/Document.h"

#include "app/Environnement.h"
#include "app/kit/ChampChiffre.h"
#include "app/kit/ChampDate.h"
#include "app/kit/MessageSaisie.h"
#include "records/Contrats.h"
#include "records/ContratsModeles.h"
#include "store/Dates.h"
#include "store/Dialogues.h"
#include "store/FormatFrancais.h"
#include "store/Functions.h"
#include "store/Reglages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>

namespace corvane::app {

namespace {

// A contract as the user knows it: "du 12/03/2025 chez Théâtre du Rond-Point".
QString designationContrat(const QDate& debut, const QString& employeur)
{
    QString texte = QStringLiteral("du %1").arg(Dates::versAffichage(debut));
    if (!employeur.isEmpty())
        texte += QStringLiteral(" chez %1").arg(employeur);
    return texte;
}

} // namespace

namespace {

// A figure that reads goes into the contract; one that does not leaves it as it was (the
// save is then refused with the reason).
void lire(const ChampChiffre* champ, double& valeur)
{
    if (const auto lu = champ->nombre())
        valeur = *lu;
}

void lire(const ChampNombre* champ, int& valeur)
{
    if (const auto lu = champ->entier())
        valeur = *lu;
}

void choisirDonnee(QComboBox* combo, const QVariant& donnee)
{
    const int index = combo->findData(donnee);
    combo->setCurrentIndex(index < 0 ? 0 : index);
}

} // namespace

void FormulaireContrat::setDocument(Document* document)
{
    m_contrats = document && document->estOuvert() ? std::make_unique<Contrats>(document->base()) : nullptr;
}

void FormulaireContrat::remplirListes()
{
    const QSignalBlocker b1(m_employeur), b2(m_emploi), b3(m_abattement);
    m_employeur->clear();
    m_emploi->clear();
    m_abattement->clear();
    m_employeur->addItem(QStringLiteral("Choisir un employeur…"), 0);
    if (!m_contrats)
        return;
    for (const auto& [id, raisonSociale] : m_contrats->choixEmployeurs())
        m_employeur->addItem(raisonSociale, id);
    for (const auto& [id, emploi] : m_contrats->choixEmplois())
        m_emploi->addItem(emploi, id);
    for (const auto& [id, pourcentage] : m_contrats->choixAbattements())
        m_abattement->addItem(QStringLiteral("%1 %").arg(pourcentage.toInt()), id);

    m_frais->clear();
    for (const Ligne& l : m_contrats->tousLesFrais()) {
        const QString lie = l.value("f_contrat_lie").toString();
        QString texte =
            QStringLiteral("%1 — %2 — %3")
                .arg(Dates::versAffichage(Dates::depuisSQLite(l.value("f_date").toString())),
                     l.value("f_details").toString().simplified(), enEuros(l.value("f_montant").toDouble()));
        if (!lie.isEmpty() && lie.toInt() != m_id)
            texte += QStringLiteral(" (lié au contrat %1)").arg(designationContrat(
                Dates::depuisSQLite(l.value("lie_debut").toString()), l.value("lie_employeur").toString()));
        auto* element = new QListWidgetItem(texte, m_frais);
        element->setToolTip(texte);
        element->setData(Qt::UserRole, l.value("f_id").toInt());
        element->setFlags(element->flags() | Qt::ItemIsUserCheckable);
        element->setCheckState(Qt::Unchecked);
    }
}

void FormulaireContrat::remplirTypes()
{
    const QSignalBlocker bloque(m_type);
    m_type->clear();
    if (!m_contrats)
        return;
    ContratsModeles modeles(m_contrats->db());
    for (const QString& libelle : modeles.typesPourEmploi(m_saisie.emploiId))
        m_type->addItem(libelle, modeles.typeIdPourEmploi(m_saisie.emploiId, libelle));
}

void FormulaireContrat::nouveau()
{
    m_mode = QStringLiteral("ajout");
    m_id = 0;
    m_saisie = SaisieContrat();
    if (m_contrats)
        m_saisie.nouveau(*m_contrats);
    m_titre->setText(QStringLiteral("Nouveau contrat"));
    remplirListes();
    afficher();
    m_employeur->setFocus();
}

bool FormulaireContrat::modifier(int id)
{
    if (!m_contrats)
        return false;
    SaisieContrat saisie;
    if (!saisie.charger(*m_contrats, id))
        return false;
    m_mode = QStringLiteral("modif");
    m_id = id;
    m_saisie = saisie;
    remplirListes();
    m_titre->setText(QStringLiteral("Modification du contrat %1")
                         .arg(designationContrat(saisie.debut,
                                                 m_employeur->itemText(m_employeur->findData(saisie.employeurId)))));
    afficher();
    m_employeur->setFocus();
    return true;
}

void FormulaireContrat::afficher()
{
    const SaisieContrat& s = m_saisie;
    const QList<QObject*> champs{m_employeur, m_emploi,     m_type, m_debut,     m_fin,  m_jours, m_heures,   m_ap,
                                 m_brut,      m_abattement, m_net,  m_netAPayer, m_pas,  m_annee, m_effectue, m_paye,
                                 m_conges,    m_aemFp,      m_lieu, m_fonction,  m_note, m_frais};
    QList<std::shared_ptr<QSignalBlocker>> bloques;
    for (QObject* champ : champs)
        bloques << std::make_shared<QSignalBlocker>(champ);

    choisirDonnee(m_employeur, s.employeurId);
    choisirDonnee(m_emploi, s.emploiId);
    remplirTypes();
    choisirDonnee(m_type, s.type);
    m_debut->setDate(s.debut);
    m_fin->setDate(s.fin);
    m_jours->actualiser(s.jours);
    m_uniteJours->setText(s.jours > 1 ? QStringLiteral("jours") : QStringLiteral("jour"));
    m_heures->actualiser(s.heures);
    // Before 2016, five days or more were a grouped period: its hours are shown in their colour.
    m_heures->setCouleur(s.periodeGroupee ? m_environnement.reglages.texte(Reglages::Cle::CouleursContratsGroupes)
                                          : QString());
    m_heures->setBulle(s.periodeGroupee ? QStringLiteral("Période groupée : 8 heures par jour") : QString());
    m_ap->setChecked(s.ap);
    m_brut->actualiser(s.brut);
    choisirDonnee(m_abattement, s.abattementId);
    m_net->actualiser(s.net);
    m_netAPayer->actualiser(s.netAPayer);
    m_pas->actualiser(s.pas);
    m_annee->clear();
    for (const int annee : s.anneesEncaissement)
        m_annee->addItem(QString::number(annee), annee);
    choisirDonnee(m_annee, s.anneeEncaissement);
    m_effectue->setChecked(s.effectue);
    m_paye->setChecked(s.paye);
    m_conges->setChecked(s.conges);
    m_aemFp->setChecked(s.aemFp);
    m_lieu->setText(s.lieu);
    m_fonction->setText(s.fonction);
    if (m_note->toPlainText() != s.note)
        m_note->setPlainText(s.note);
    for (int i = 0; i < m_frais->count(); ++i) {
        QListWidgetItem* element = m_frais->item(i);
        element->setCheckState(s.fraisLies.contains(element->data(Qt::UserRole).toInt()) ? Qt::Checked : Qt::Unchecked);
    }
    majBrutAbattu();
    m_message->actualiser();
}

void FormulaireContrat::majBrutAbattu()
{
    const bool autoEntrepreneur = m_saisie.emploiId == SaisieContrat::kEmploiAutoEntrepreneur;
    m_abattement->setEnabled(!autoEntrepreneur);
    const double montant = autoEntrepreneur ? m_saisie.brutAbattuAE : m_saisie.brutApresAbattement();
    // Nothing is worked out from a gross that cannot be read.
    m_brutAbattu->setText(m_brut->estValide() ? enEuros(montant) : QStringLiteral("—"));
}

void FormulaireContrat::lireChamps()
{
    SaisieContrat& s = m_saisie;
    s.employeurId = m_employeur->currentData().toInt();
    lire(m_jours, s.jours);
    lire(m_heures, s.heures);
    lire(m_brut, s.brut);
    s.abattementId = m_abattement->currentData().toInt();
    lire(m_net, s.net);
    lire(m_netAPayer, s.netAPayer);
    lire(m_pas, s.pas);
    if (m_annee->currentIndex() >= 0)
        s.anneeEncaissement = m_annee->currentData().toInt();
    s.effectue = m_effectue->isChecked();
    s.paye = m_paye->isChecked();
    s.conges = m_conges->isChecked();
    s.aemFp = m_aemFp->isChecked();
    s.lieu = m_lieu->text();
    s.fonction = m_fonction->text();
    s.note = m_note->toPlainText();
    s.fraisLies.clear();
    for (int i = 0; i < m_frais->count(); ++i)
        if (m_frais->item(i)->checkState() == Qt::Checked)
            s.fraisLies << m_frais->item(i)->data(Qt::UserRole).toInt();
}

void FormulaireContrat::datesChoisies(bool depuisDebut)
{
    lireChamps();
    const QDate debut = m_debut->date();
    // Picking a start alone makes a one-day contract; the end then widens it. Once the user has
    // picked the end, a new start keeps it, unless the start passes it.
    if (!depuisDebut)
        m_saisie.finChoisie = true;
    const bool finGardee = m_saisie.finChoisie && m_fin->date() >= debut;
    const QDate fin = depuisDebut && !finGardee ? debut : m_fin->date();
    m_saisie.choisirDates(SaisieContrat::instantDuSelecteur(debut), SaisieContrat::instantDuSelecteur(fin));
    afficher();
}

void FormulaireContrat::employeurChoisi()
{
    if (!m_contrats || m_saisie.employeurId == 0) {
        m_saisie.retirerModele();
        return;
    }
    ContratsModeles modeles(m_contrats->db());
    if (const auto modele = modeles.contenuDuModeleDepuisEmployeurId(m_saisie.employeurId))
        m_saisie.appliquerModele(*modele);
    else
        m_saisie.retirerModele();
}

bool FormulaireContrat::enregistrer()
{
    lireChamps();
    // A figure that cannot be read is never saved, nor saved as 0.
    if (const QString refus = m_message->refus(); !refus.isEmpty()) {
        m_environnement.dialogues.information(QStringLiteral("Gestion des contrats"), refus, QStringLiteral("Fermer"));
        return false;
    }
    Contrats sansDocument;
    const EnregistrementContrat resultat = m_saisie.enregistrer(m_contrats ? *m_contrats : sansDocument, m_id);
    if (resultat.refus.estRefuse()) {
        m_environnement.dialogues.information(resultat.refus.titre, resultat.refus.message, QStringLiteral("Fermer"));
        return false;
    }
    if (!resultat.avertissement.isEmpty())
        m_environnement.dialogues.information(QStringLiteral("Gestion des contrats"), resultat.avertissement,
                                              QStringLiteral("Fermer"));
    emit termine();
    return true;
}

void FormulaireContrat::annuler()
{
    emit termine();
}

} // namespace corvane::app
