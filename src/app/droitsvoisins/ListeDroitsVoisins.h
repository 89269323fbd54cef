#pragma once

#include <QWidget>
#include <memory>

class QComboBox;
class QLabel;
class QPushButton;
class QTableView;
class QTableWidget;
class QToolButton;

namespace corvane {
class Document;
class DroitsVoisins;
} // namespace corvane

namespace corvane::app {

struct Environnement;
class ModeleDroitsVoisins;

// The neighbouring-rights list: the body filter, the payments, the totals of every body, and
// the buttons that lead to the form, duplicate or delete, manage the categories and print.
class ListeDroitsVoisins : public QWidget
{
    Q_OBJECT

public:
    explicit ListeDroitsVoisins(Environnement& environnement, QWidget* parent = nullptr);
    ~ListeDroitsVoisins() override;

    void setDocument(Document* document);
    // Reads the bodies, the list and the totals again.
    void actualiser();
    // Deletes the selected payments, after asking when the settings say so.
    void supprimerSelection();
    // Inserts a copy of the selected payment and selects it.
    void dupliquerSelection();
    QList<int> idsSelectionnes() const;
    void selectionner(int id);

    ModeleDroitsVoisins* modele() const { return m_modele; }
    QTableView* table() const { return m_table; }
    QTableWidget* totaux() const { return m_totauxOrganismes; }

signals:
    void nouveauDemande();
    void modificationDemandee(int id);
    void categoriesDemandees();
    // The list wrote to the document and has read itself again.
    void ecrit();

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    QWidget* construireFiltres();
    QWidget* construireTotaux();
    void remplirOrganismes();
    void filtreChoisi();
    void recharger();
    void rechargerTotaux();
    void majTri();
    void majBoutons();
    bool documentOuvert();

    Environnement& m_environnement;
    QString m_chemin;
    std::unique_ptr<DroitsVoisins> m_droits;

    QComboBox* m_organisme = nullptr;
    QToolButton* m_tri = nullptr;
    QTableView* m_table = nullptr;
    ModeleDroitsVoisins* m_modele = nullptr;
    QLabel* m_resume = nullptr;
    QTableWidget* m_totauxOrganismes = nullptr;
    QLabel* m_totalGeneral = nullptr;
    QPushButton* m_modifier = nullptr;
    QPushButton* m_dupliquer = nullptr;
    QPushButton* m_supprimer = nullptr;
};

} // namespace corvane::app
