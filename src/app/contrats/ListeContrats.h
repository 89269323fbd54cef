#pragma once

#include "records/Contrats.h"

#include <QWidget>
#include <memory>

class QComboBox;
class QDateEdit;
class QLabel;
class QLayout;
class QPushButton;
class QTableView;
class QToolButton;

namespace corvane {
class Document;
}

namespace corvane::app {

struct Environnement;
class ModeleTableContrats;

// The contracts list: the filters, the list with its check boxes, the totals under it,
// and the buttons that lead to the form, duplicate or delete.
class ListeContrats : public QWidget
{
    Q_OBJECT

public:
    explicit ListeContrats(Environnement& environnement, QWidget* parent = nullptr);
    ~ListeContrats() override;

    void setDocument(Document* document);
    // Rebuilds the list with the current filters.
    void recharger();
    // Also re-reads the employers, types and jobs the filters offer, and the remembered dates.
    void actualiser();
    // Deletes the selected contracts, after asking when the settings say so.
    void supprimerSelection();
    void dupliquerSelection();
    QList<int> idsSelectionnes() const;

    ModeleTableContrats* modele() const { return m_modele; }
    QTableView* table() const { return m_table; }

signals:
    void nouveauDemande();
    // The list wrote to the document and has read itself again.
    void ecrit();
    void modificationDemandee(int id);

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    QLayout* construireFiltres();
    void remplirListes();
    void majTri();
    void majBoutons();
    void datesPeriodeModifiees();
    FiltreContrats filtre() const;
    bool documentOuvert();

    Environnement& m_environnement;
    QString m_chemin;
    // Kept for the document's life: the grouped count carries over from one listing to the next.
    std::unique_ptr<Contrats> m_contrats;
    QMap<int, QString> m_types;

    QComboBox* m_periode = nullptr;
    QDateEdit* m_du = nullptr;
    QDateEdit* m_au = nullptr;
    QComboBox* m_effectue = nullptr;
    QComboBox* m_paye = nullptr;
    QComboBox* m_type = nullptr;
    QComboBox* m_employeur = nullptr;
    QComboBox* m_emploi = nullptr;
    QToolButton* m_tri = nullptr;
    QTableView* m_table = nullptr;
    ModeleTableContrats* m_modele = nullptr;
    QLabel* m_totaux = nullptr;
    QPushButton* m_nouveau = nullptr;
    QPushButton* m_modifier = nullptr;
    QPushButton* m_dupliquer = nullptr;
    QPushButton* m_supprimer = nullptr;
};

} // namespace corvane::app
