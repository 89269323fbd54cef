#pragma once

#include "app/manager/OngletManager.h"

#include <memory>

class QComboBox;
class QTableView;
class QToolButton;

namespace corvane {
class Propositions;
} // namespace corvane

namespace corvane::app {

class FenetreDelais;
class FenetreProposition;
class FenetreRemises;
class MenuDocumentsManager;
class ModelePropositions;
class ModeleTableau;

// The Manager tab of the propositions sent to organisers: the list with each one's status and
// total, the status pop-up, the lines of the one selected, the proposition window, the discounts
// and delays windows, and the PDF menu (letter, engagement contract, official forms).
class OngletPropositions : public OngletManager
{
    Q_OBJECT

public:
    OngletPropositions(Environnement& environnement, QWidget* parent = nullptr);
    ~OngletPropositions() override;

    void setDocument(Document* document) override;
    void actualiser() override;
    QSet<QString> tablesLues() const override;

    // The selected proposition's id, 0 when none.
    int idSelectionne() const;
    void selectionner(int id);
    // The windows, modal; nullptr without a document (the user is told).
    FenetreProposition* nouvelleProposition();
    FenetreProposition* modifierProposition();
    FenetreRemises* gererRemises();
    FenetreDelais* gererDelais();
    // Writes the status of the pop-up's entry `index` (0, 2, 1, -1, 3) on the selected proposition;
    // an invoiced one is changed after the notice the law calls for.
    bool changerStatut(int index);
    // Refused, with the reason, while an event names the proposition.
    bool supprimerProposition();

    ModelePropositions* modele() const { return m_modele; }
    MenuDocumentsManager* menuDocuments() const { return m_menu; }

private:
    bool documentOuvert(const QString& titre);
    void selectionChangee();
    void ouvrir(FenetreProposition* fenetre);
    void aEcrit(int idASelectionner);

    Environnement& m_environnement;
    Document* m_document = nullptr;
    std::unique_ptr<Propositions> m_propositions;
    ModelePropositions* m_modele = nullptr;
    ModeleTableau* m_modeleLignes = nullptr;
    QTableView* m_liste = nullptr;
    QComboBox* m_statut = nullptr;
    MenuDocumentsManager* m_menu = nullptr;
};

} // namespace corvane::app
