#pragma once

#include <QDate>
#include <QDialog>
#include <memory>

class QComboBox;
class QLabel;
class QPushButton;
class QTableView;
class QToolButton;

namespace corvane {
class Document;
class PoleEmploiVersements;
} // namespace corvane

namespace corvane::app {

struct Environnement;
class ChampDate;
class ChampMontant;
class MessageSaisie;
class ModeleVersementsPoleEmploi;

// "Versements Pôle Emploi": the allowances received for a chosen span, their total, and the
// form that adds, changes or deletes one. A date or an amount that cannot be read is refused
// with its reason, never saved as something else.
class FenetreVersementsPoleEmploi : public QDialog
{
    Q_OBJECT

public:
    FenetreVersementsPoleEmploi(Environnement& environnement, Document& document, QWidget* parent = nullptr);
    ~FenetreVersementsPoleEmploi() override;

    static QString titre();

    void recharger(int idASelectionner = 0);
    int idSelectionne() const;
    void nouveau();
    void enregistrer();
    void supprimer();

private:
    void selectionChangee();
    void datesModifiees();
    void majTri();

    Environnement& m_environnement;
    std::unique_ptr<PoleEmploiVersements> m_versements;
    QComboBox* m_periode = nullptr;
    ChampDate* m_du = nullptr;
    ChampDate* m_au = nullptr;
    // The dates of "Période choisie", remembered in the document.
    QDate m_debutChoisi;
    QDate m_finChoisi;
    QToolButton* m_tri = nullptr;
    ModeleVersementsPoleEmploi* m_modele = nullptr;
    QTableView* m_liste = nullptr;
    QLabel* m_cumul = nullptr;
    QLabel* m_titreFormulaire = nullptr;
    ChampDate* m_date = nullptr;
    ChampMontant* m_montant = nullptr;
    MessageSaisie* m_message = nullptr;
    QPushButton* m_supprimer = nullptr;
};

} // namespace corvane::app
