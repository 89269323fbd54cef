#pragma once

#include "app/manager/OngletManager.h"

#include <memory>

class QLineEdit;
class QModelIndex;
class QPoint;
class QPushButton;
class QStackedWidget;
class QTableView;
class QTreeView;

namespace corvane {
class Employes;
class Structures;
} // namespace corvane

namespace corvane::app {

class FormulaireEmploye;
class ModeleEmployes;
class ModeleStructures;

// The Manager tab of the structures and their employees: the outline of the structures with
// their employees beside the list of every employee. Employees are dragged from the list onto
// a structure to join it, and taken out of it from the outline; the employee form replaces
// both while an employee is typed.
class OngletPersonnel : public OngletManager
{
    Q_OBJECT

public:
    OngletPersonnel(Environnement& environnement, QWidget* parent = nullptr);
    ~OngletPersonnel() override;

    void setDocument(Document* document) override;
    void actualiser() override;
    QSet<QString> tablesLues() const override;

    // The structure named in the field beside the outline; refused with its message.
    bool ajouterStructure();
    bool renommerStructure(int id, const QString& nom);
    bool supprimerStructure();
    // The employees selected in the list join the structure selected in the outline.
    bool rattacherSelection();
    bool rattacher(int structureId, const QList<int>& employes);
    // The employee selected in the outline leaves its structure.
    bool retirerDeLaStructure();
    void nouvelEmploye();
    void modifierEmploye();
    bool supprimerEmploye();

    QTreeView* arbre() const { return m_arbre; }
    QTableView* tableEmployes() const { return m_tableEmployes; }
    ModeleStructures* modeleStructures() const { return m_structures; }
    ModeleEmployes* modeleEmployes() const { return m_employes; }
    FormulaireEmploye* formulaire() const { return m_formulaire; }
    bool enEdition() const;

protected:
    void showEvent(QShowEvent* evenement) override;

private:
    QWidget* construireStructures();
    QWidget* construireEmployes();
    void afficherListe();
    void menuArbre(const QPoint& position);
    void majBoutons();
    bool documentOuvert(const QString& titre);
    void refuser(const QString& titre, const QString& message);
    bool demander(const QString& titre, const QString& message);
    QList<int> employesSelectionnes() const;
    int structureSelectionnee() const;
    void selectionnerStructure(int id);

    Environnement& m_environnement;
    Document* m_document = nullptr;
    std::unique_ptr<Structures> m_modeleStructures;
    std::unique_ptr<Employes> m_modeleEmployes;

    QStackedWidget* m_etats = nullptr;
    QWidget* m_liste = nullptr;
    FormulaireEmploye* m_formulaire = nullptr;
    QTreeView* m_arbre = nullptr;
    ModeleStructures* m_structures = nullptr;
    QLineEdit* m_nomStructure = nullptr;
    QPushButton* m_renommer = nullptr;
    QPushButton* m_supprimerStructure = nullptr;
    QPushButton* m_retirer = nullptr;
    QTableView* m_tableEmployes = nullptr;
    ModeleEmployes* m_employes = nullptr;
    QPushButton* m_modifierEmploye = nullptr;
    QPushButton* m_rattacher = nullptr;
    QPushButton* m_supprimerEmploye = nullptr;
};

} // namespace corvane::app
