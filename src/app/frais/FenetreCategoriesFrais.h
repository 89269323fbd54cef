#pragma once

#include <QDialog>
#include <QPointer>
#include <memory>

class QLineEdit;
class QPushButton;
class QTableWidget;

namespace corvane {
class Document;
class FraisTypes;
} // namespace corvane

namespace corvane::app {

struct Environnement;

// "Gestion des catégories de frais": the categories by name with the number of expenses in each,
// and a name to add one or to rename the selected one. A name is required and names no other
// category; deleting a category with expenses asks first and takes them with it; the mileage
// category stays. Each change is written at once.
class FenetreCategoriesFrais : public QDialog
{
    Q_OBJECT

public:
    explicit FenetreCategoriesFrais(Environnement& environnement, QWidget* parent = nullptr);
    ~FenetreCategoriesFrais() override;

    void setDocument(Document* document);
    void recharger(int idASelectionner = 0);
    int idSelectionne() const;
    void selectionner(int id);
    // Each tells the user why it refused; true when the document was written.
    bool ajouter();
    bool renommer();
    bool supprimer();

private:
    void selectionChangee();
    bool refuser(const QString& message);

    Environnement& m_environnement;
    std::unique_ptr<FraisTypes> m_categories;
    QTableWidget* m_liste = nullptr;
    QLineEdit* m_nom = nullptr;
    QPushButton* m_ajouter = nullptr;
    QPushButton* m_renommer = nullptr;
    QPushButton* m_supprimer = nullptr;
};

} // namespace corvane::app
