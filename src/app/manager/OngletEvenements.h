#pragma once

#include "app/manager/OngletManager.h"

#include <memory>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTableView;

namespace corvane {
class Evenements;
}

namespace corvane::app {

class FormulaireEvenement;
class MenuDocumentsManager;
class ModelePaiements;
class ModeleTableau;

// The Manager tab of the events, who worked and who has been paid: the events newest first,
// and under them the staff of the one selected, each with its "Payé" box. The event form
// replaces both while an event is typed.
class OngletEvenements : public OngletManager
{
    Q_OBJECT

public:
    OngletEvenements(Environnement& environnement, QWidget* parent = nullptr);
    ~OngletEvenements() override;

    void setDocument(Document* document) override;
    void actualiser() override;
    QSet<QString> tablesLues() const override;

    void nouvelEvenement();
    void modifierEvenement();
    bool supprimerEvenement();
    // The "Payé" tick of one employee of the selected event.
    bool basculerPaye(int employeId);
    int evenementSelectionne() const;
    void selectionner(int id);

    QTableView* table() const { return m_table; }
    ModeleTableau* modele() const { return m_modele; }
    QTableView* tablePaiements() const { return m_tablePaiements; }
    ModelePaiements* paiements() const { return m_paiements; }
    FormulaireEvenement* formulaire() const { return m_formulaire; }
    bool enEdition() const;

protected:
    void showEvent(QShowEvent* evenement) override;

private:
    void afficherListe();
    void rechargerPaiements();
    void majBoutons();
    bool documentOuvert();
    void refuser(const QString& message);

    Environnement& m_environnement;
    Document* m_document = nullptr;
    MenuDocumentsManager* m_menu = nullptr;
    std::unique_ptr<Evenements> m_evenements;

    QStackedWidget* m_etats = nullptr;
    QWidget* m_liste = nullptr;
    FormulaireEvenement* m_formulaire = nullptr;
    QTableView* m_table = nullptr;
    ModeleTableau* m_modele = nullptr;
    QTableView* m_tablePaiements = nullptr;
    ModelePaiements* m_paiements = nullptr;
    QLabel* m_resume = nullptr;
    QPushButton* m_modifier = nullptr;
    QPushButton* m_supprimer = nullptr;
};

} // namespace corvane::app
