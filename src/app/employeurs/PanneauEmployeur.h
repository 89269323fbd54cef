#pragma once

#include "store/Document.h"

#include <QPointer>

#include "records/Employeurs.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;

namespace corvane::app {

class ChampMontant;

struct Environnement;

// Every field of one employer, with its template, and the buttons that save or delete it.
// Enter in a field saves.
class PanneauEmployeur : public QWidget
{
    Q_OBJECT

public:
    PanneauEmployeur(Environnement& environnement, QWidget* parent = nullptr);

    // The document the qualities and templates are read from.
    void setDocument(Document* document);
    void afficher(const Employeur& employeur);
    // A blank form for a new employer.
    void vider();
    // The employer as the form holds it (id 0 for a new one).
    Employeur saisie() const;
    int idAffiche() const { return m_employeur.id; }

    // "Associer un modèle de contrat": the template labels, or the alert when there is none.
    void proposerModeles();
    void associerModele(int modeleId);

signals:
    void enregistrementDemande();
    void suppressionDemandee();

private:
    QLineEdit* champ(const QString& nom);
    void afficherModele();
    void choisirCouleur();
    void montrerCouleur();

    Environnement& m_environnement;
    QPointer<Document> m_document;
    Employeur m_employeur;
    int m_modeleId = 0;
    QString m_couleur;

    QLineEdit* m_raisonSociale = nullptr;
    QLineEdit* m_adresse = nullptr;
    QLineEdit* m_codePostal = nullptr;
    QLineEdit* m_commune = nullptr;
    QLineEdit* m_email = nullptr;
    QLineEdit* m_interlocuteur = nullptr;
    QLineEdit* m_telephone = nullptr;
    QLineEdit* m_fax = nullptr;
    QLineEdit* m_siret = nullptr;
    QLineEdit* m_licence = nullptr;
    QLineEdit* m_numeroGuso = nullptr;
    QLineEdit* m_codeApe = nullptr;
    QCheckBox* m_conventionne = nullptr;
    QCheckBox* m_guso = nullptr;
    QCheckBox* m_prospect = nullptr;
    QComboBox* m_qualite = nullptr;
    ChampMontant* m_latitude = nullptr;
    ChampMontant* m_longitude = nullptr;
    QPushButton* m_boutonCouleur = nullptr;
    QLabel* m_modele = nullptr;
    QMenu* m_menuModeles = nullptr;
    QPushButton* m_supprimer = nullptr;
};

} // namespace corvane::app
