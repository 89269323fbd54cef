#pragma once

#include "records/Frais.h"

#include <QWidget>
#include <memory>

class QCheckBox;
class QComboBox;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace corvane {
class Document;
}

namespace corvane::app {

struct Environnement;
class ChampDate;
class ChampMontant;
class MessageSaisie;

// The form of an expense, in mode "ajout" (titled "Nouvelle dépense") or "modif"
// ("Modification"): its category, date and amount (a distance in kilometres for the mileage
// category), whether it was reimbursed, the contract it is linked to, its receipt and a note.
class FormulaireFrais : public QWidget
{
    Q_OBJECT

public:
    explicit FormulaireFrais(Environnement& environnement, QWidget* parent = nullptr);
    ~FormulaireFrais() override;

    void setDocument(Document* document);
    void nouveau();
    bool modifier(int id);
    // A new expense filled from the one with key `id`; its link and reimbursement are left out.
    bool dupliquer(int id);
    // Checks, refuses with the alert that says why, or saves; true when the expense was written.
    bool enregistrer();
    void annuler();
    // The categories and contracts offered are read again; what is typed stays.
    void actualiserListes();
    // The receipt chosen in a file panel, shown, or taken away.
    void choisirJustificatif();
    void voirJustificatif();
    void retirerJustificatif();

    const QString& mode() const { return m_mode; }
    // The expense as the form now holds it.
    Depense depense() const;

signals:
    // The expense was written (termine() follows).
    void enregistre();
    // Saved or cancelled: the list takes over again.
    void termine();

protected:
    void keyPressEvent(QKeyEvent* evenement) override;

private:
    void construire();
    QWidget* construireDepense();
    QWidget* construireRattachement();
    void remplirCategories();
    void remplirContrats();
    void charger(const Depense& depense);
    void categorieChoisie();
    void majJustificatif();
    void refuser(const QString& message);

    Environnement& m_environnement;
    std::unique_ptr<Frais> m_frais;
    QString m_mode = QStringLiteral("ajout");
    int m_id = 0;
    QString m_fichier;

    QLabel* m_titre = nullptr;
    QComboBox* m_categorie = nullptr;
    ChampDate* m_date = nullptr;
    QLabel* m_libelleMontant = nullptr;
    ChampMontant* m_montant = nullptr;
    QLabel* m_unite = nullptr;
    QCheckBox* m_rembourse = nullptr;
    QComboBox* m_contrat = nullptr;
    QLineEdit* m_justificatif = nullptr;
    QPushButton* m_choisir = nullptr;
    QPushButton* m_voir = nullptr;
    QPushButton* m_retirer = nullptr;
    QPlainTextEdit* m_note = nullptr;
    MessageSaisie* m_message = nullptr;
    QPushButton* m_enregistrer = nullptr;
    QPushButton* m_annuler = nullptr;
};

} // namespace corvane::app
