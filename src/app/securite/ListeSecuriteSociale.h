#pragma once

#include <QWidget>
#include <memory>

class QComboBox;
class QLabel;
class QPushButton;
class QTableView;
class QToolButton;

namespace corvane {
class Document;
class SecuriteSociale;
} // namespace corvane

namespace corvane::app {

struct Environnement;
class ChampDate;
class GrilleDroits;
class ModeleSecuriteSociale;

// The social-security list: the span and kind filters, the records with their ticks, the
// buttons that lead to the form, duplicate or delete, the report, and the rights check.
class ListeSecuriteSociale : public QWidget
{
    Q_OBJECT

public:
    explicit ListeSecuriteSociale(Environnement& environnement, QWidget* parent = nullptr);
    ~ListeSecuriteSociale() override;

    void setDocument(Document* document);
    // Reads the list with the current filters.
    void recharger();
    // Also reads the kinds, the remembered dates and the rights again.
    void actualiser();
    // Deletes the selected records, after asking when the settings say so.
    void supprimerSelection();
    QList<int> idsSelectionnes() const;

    ModeleSecuriteSociale* modele() const { return m_modele; }
    QTableView* table() const { return m_table; }
    GrilleDroits* droits() const { return m_droits; }

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
    void remplirTypes();
    void filtreChoisi();
    void datesModifiees();
    void majTri();
    void majBoutons();
    void ecrireCoche(int id, int colonne, bool coche);
    bool documentOuvert();

    Environnement& m_environnement;
    QString m_chemin;
    std::unique_ptr<SecuriteSociale> m_modeleSS;

    QComboBox* m_periode = nullptr;
    ChampDate* m_du = nullptr;
    ChampDate* m_au = nullptr;
    QComboBox* m_type = nullptr;
    QToolButton* m_tri = nullptr;
    QTableView* m_table = nullptr;
    ModeleSecuriteSociale* m_modele = nullptr;
    QLabel* m_totaux = nullptr;
    QPushButton* m_nouveau = nullptr;
    QPushButton* m_modifier = nullptr;
    QPushButton* m_dupliquer = nullptr;
    QPushButton* m_supprimer = nullptr;
    GrilleDroits* m_droits = nullptr;
};

} // namespace corvane::app
