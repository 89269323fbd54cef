#pragma once

#include "manager/Propositions.h"

#include <QDialog>
#include <memory>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QTableWidget;
class QTimeEdit;

namespace corvane {
class Document;
} // namespace corvane

namespace corvane::app {

struct Environnement;
class ChampDate;
class ChampMontant;
class ChampNombre;

// The window of a new proposition (id 0) or of one being changed: its title, organiser (among
// the employers, with its town and legal form filled in; a new one may be added by name and
// town), date, time and duration, charges, discount and delay, and its lines of services. The
// last organiser, discount, delay and charges are remembered for the next new proposition.
// Nothing is written before "Enregistrer", which writes the heading and its lines together.
class FenetreProposition : public QDialog
{
    Q_OBJECT

public:
    FenetreProposition(Environnement& environnement, Document& document, int propositionId, QWidget* parent = nullptr);
    ~FenetreProposition() override;

    int propositionId() const { return m_id; }
    // Each refuses with an alert that says why.
    bool ajouterLigne();
    bool supprimerLigne();
    bool ajouterOrganisateur();
    bool enregistrer();
    // The total as the list will show it once saved.
    double total() const;

signals:
    void enregistree(int id);
    // Something was written besides the proposition (an organiser, a discount).
    void documentModifie();

private:
    struct LigneEnCours
    {
        LigneProposition ligne;
        QString libelle;
        double montant = 0.0;
    };

    void construire();
    void charger();
    void remplirOrganisateurs(const QString& choisi);
    void remplirRemises(int choisie);
    void remplirDelais(int choisi);
    void remplirPrestations();
    void organisateurChoisi();
    void prestationChoisie();
    void remiseChoisie();
    void ouvrirRemises();
    void majLignes();
    EnteteProposition entete() const;
    void alerter(const QString& titre, const QString& message);

    Environnement& m_environnement;
    Document& m_document;
    std::unique_ptr<Propositions> m_propositions;
    std::unique_ptr<TarifsPropositions> m_tarifs;
    int m_id = 0;
    int m_statut = Propositions::kPreparation;
    QList<LigneEnCours> m_lignes;

    QLineEdit* m_libelle = nullptr;
    QComboBox* m_organisateur = nullptr;
    QLineEdit* m_nouvelOrganisateur = nullptr;
    QLineEdit* m_communeNouvelOrganisateur = nullptr;
    QLineEdit* m_commune = nullptr;
    QComboBox* m_qualite = nullptr;
    ChampDate* m_date = nullptr;
    QCheckBox* m_heureDonnee = nullptr;
    QTimeEdit* m_heure = nullptr;
    QCheckBox* m_dureeDonnee = nullptr;
    QTimeEdit* m_duree = nullptr;
    ChampMontant* m_charges = nullptr;
    QCheckBox* m_chargesNonAjoutees = nullptr;
    QComboBox* m_remise = nullptr;
    QLabel* m_noteRemise = nullptr;
    QComboBox* m_delai = nullptr;
    QComboBox* m_groupe = nullptr;
    QComboBox* m_prestation = nullptr;
    QLabel* m_prix = nullptr;
    QLabel* m_notePrestation = nullptr;
    ChampNombre* m_personnes = nullptr;
    ChampDate* m_dateLigne = nullptr;
    QTableWidget* m_tableLignes = nullptr;
    QLabel* m_total = nullptr;
};

} // namespace corvane::app
