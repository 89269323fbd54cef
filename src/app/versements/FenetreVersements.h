#pragma once

#include <QDialog>
#include <QPointer>
#include <memory>

class QCheckBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QTableView;
class QToolButton;

namespace corvane {
class Document;
class HistoriqueVersements;
} // namespace corvane

namespace corvane::app {

struct Environnement;
class ChampDate;
class ChampMontant;
class MessageSaisie;
class ModeleVersements;

// The payments history of the paid-leave fund ("Encaissé": the payment reached the account)
// or of the tax office ("Crédit": a refund rather than a payment): the list in the order the
// settings keep, its tick written in place, and a small form that adds ("ajout") or changes
// ("modif") one payment. One window per section, moved to whatever document is open.
class FenetreVersements : public QDialog
{
    Q_OBJECT

public:
    enum class Genre
    {
        Conges,
        Fiscalite
    };

    FenetreVersements(Environnement& environnement, Genre genre, QWidget* parent = nullptr);
    ~FenetreVersements() override;

    void setDocument(Document* document);
    void recharger();

    void nouveau();
    void modifier();
    // Saves the form; false (and the user told why) when it is refused.
    bool enregistrer();
    void annuler();
    void supprimerSelection();
    bool enEdition() const;
    QList<int> idsSelectionnes() const;

    ModeleVersements* modele() const { return m_modele; }
    QTableView* table() const { return m_table; }

signals:
    // The history was written.
    void ecrit();

protected:
    void keyPressEvent(QKeyEvent* evenement) override;

private:
    QWidget* construireFormulaire();
    void ouvrirFormulaire(const QString& titre);
    void majTri();
    void majBoutons();
    void majTotaux();
    void refuser(const QString& message);
    bool documentOuvert();

    Environnement& m_environnement;
    Genre m_genre;
    QPointer<Document> m_document;
    std::unique_ptr<HistoriqueVersements> m_historique;
    int m_idModifie = 0; // 0 while adding

    ModeleVersements* m_modele = nullptr;
    QTableView* m_table = nullptr;
    QToolButton* m_tri = nullptr;
    QLabel* m_totaux = nullptr;
    QPushButton* m_ajouter = nullptr;
    QPushButton* m_modifier = nullptr;
    QPushButton* m_supprimer = nullptr;
    QGroupBox* m_formulaire = nullptr;
    ChampDate* m_date = nullptr;
    ChampMontant* m_montant = nullptr;
    QCheckBox* m_coche = nullptr;
    MessageSaisie* m_message = nullptr;
};

} // namespace corvane::app
