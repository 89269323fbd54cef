#pragma once

#include <QDialog>
#include <memory>

class QLineEdit;
class QPushButton;
class QTableWidget;
class QTableWidgetItem;

namespace corvane {
class Document;
class DroitsVoisins;
} // namespace corvane

namespace corvane::app {

struct Environnement;

// "Gestion des catégories de droits voisins": the categories with the number of payments of
// each, renamed in place, a new one added by name, one deleted (with its payments when the
// user says so).
class FenetreCategoriesDroitsVoisins : public QDialog
{
    Q_OBJECT

public:
    FenetreCategoriesDroitsVoisins(Environnement& environnement, Document& document, QWidget* parent = nullptr);
    ~FenetreCategoriesDroitsVoisins() override;

    void recharger(int idASelectionner = 0);
    int idSelectionne() const;
    // Each refuses with an alert that says why; true when the document was written.
    bool ajouter();
    bool renommer(int id, const QString& nom);
    bool supprimer();

signals:
    void categoriesModifiees();

private:
    void nomModifie(QTableWidgetItem* item);
    void alerter(const QString& titre, const QString& message);

    Environnement& m_environnement;
    std::unique_ptr<DroitsVoisins> m_modele;
    QTableWidget* m_liste = nullptr;
    QLineEdit* m_nouvelle = nullptr;
    QPushButton* m_supprimer = nullptr;
};

} // namespace corvane::app
