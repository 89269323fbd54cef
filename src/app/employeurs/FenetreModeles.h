#pragma once

#include "records/ContratsModeles.h"

#include <QDialog>
#include <memory>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace corvane {
class Document;
}

namespace corvane::app {

struct Environnement;
class ChampMontant;
class ChampNombre;
class MessageSaisie;

// The contract templates: the list by name, the form of the selected one (or of a new
// one), saving and deleting (with the question when employers carry the template).
class FenetreModeles : public QDialog
{
    Q_OBJECT

public:
    FenetreModeles(Environnement& environnement, Document& document, QWidget* parent = nullptr);

    void recharger(int idASelectionner = 0);
    void nouveauModele();
    void enregistrer();
    void supprimer();
    int idAffiche() const { return m_modele.id; }

private:
    void afficher(const ContratModele& modele);
    ContratModele saisie() const;
    void remplirTypes(int emploiId, int typeId);
    void selectionChangee();

    Environnement& m_environnement;
    std::unique_ptr<ContratsModeles> m_modeles;
    ContratModele m_modele;

    QTableWidget* m_liste = nullptr;
    QLineEdit* m_libelle = nullptr;
    QComboBox* m_emploi = nullptr;
    QComboBox* m_type = nullptr;
    ChampNombre* m_jours = nullptr;
    ChampNombre* m_heures = nullptr;
    ChampMontant* m_brut = nullptr;
    ChampMontant* m_net = nullptr;
    ChampMontant* m_netAPayer = nullptr;
    QComboBox* m_employeur = nullptr;
    QCheckBox* m_associerFrais = nullptr;
    QComboBox* m_fraisType = nullptr;
    ChampMontant* m_fraisMontant = nullptr;
    MessageSaisie* m_message = nullptr;
    QLineEdit* m_fraisNote = nullptr;
    QPushButton* m_supprimer = nullptr;
};

} // namespace corvane::app
