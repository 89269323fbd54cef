#pragma once

#include "app/frais/FenetreCategoriesFrais.h"
#include "records/Frais.h"

#include <QPointer>
#include <QWidget>
#include <memory>

class QComboBox;
class QLabel;
class QPushButton;
class QTableView;
class QToolButton;

namespace corvane {
class Document;
} // namespace corvane

namespace corvane::app {

struct Environnement;
class ChampDate;
class ModeleFrais;

// The expenses list: the span and category filters, the sort, the expenses with their total
// ("cumul"), the buttons that lead to the form, duplicate, open the receipt or delete, the
// report, and the categories window.
class ListeFrais : public QWidget
{
    Q_OBJECT

public:
    explicit ListeFrais(Environnement& environnement, QWidget* parent = nullptr);
    ~ListeFrais() override;

    void setDocument(Document* document);
    // Reads the list with the current filters.
    void recharger();
    // Also reads the categories and the remembered dates again.
    void actualiser();
    void supprimerSelection();
    // The receipt of the selected expense, in the system's viewer.
    void ouvrirJustificatif();
    void ouvrirCategories();
    QList<int> idsSelectionnes() const;
    // The filter the list applies now (the report prints the same).
    FiltreFrais filtre() const;

    ModeleFrais* modele() const { return m_modele; }
    QTableView* table() const { return m_table; }
    FenetreCategoriesFrais* fenetreCategories() const { return m_categories; }

signals:
    void nouveauDemande();
    void modificationDemandee(int id);
    void duplicationDemandee(int id);
    // The list wrote to the document and has read itself again.
    void ecrit();

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    QWidget* construireFiltres();
    void remplirCategories();
    void filtreChoisi();
    void datesModifiees();
    void majTri();
    void majBoutons();
    bool documentOuvert();

    Environnement& m_environnement;
    Document* m_document = nullptr;
    std::unique_ptr<Frais> m_frais;

    QComboBox* m_periode = nullptr;
    ChampDate* m_du = nullptr;
    ChampDate* m_au = nullptr;
    QComboBox* m_categorie = nullptr;
    QToolButton* m_tri = nullptr;
    QPushButton* m_boutonCategories = nullptr;
    QTableView* m_table = nullptr;
    ModeleFrais* m_modele = nullptr;
    QLabel* m_cumul = nullptr;
    QPushButton* m_nouveau = nullptr;
    QPushButton* m_modifier = nullptr;
    QPushButton* m_dupliquer = nullptr;
    QPushButton* m_justificatif = nullptr;
    QPushButton* m_supprimer = nullptr;
    QPointer<FenetreCategoriesFrais> m_categories;
};

} // namespace corvane::app
