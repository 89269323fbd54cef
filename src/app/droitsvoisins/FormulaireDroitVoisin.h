#pragma once

#include "records/DroitsVoisins.h"

#include <QWidget>
#include <memory>

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

// The form of a payment, in mode "ajout" (titled "Nouveau") or "modif" ("Modification"), with
// the quick creation of a category.
class FormulaireDroitVoisin : public QWidget
{
    Q_OBJECT

public:
    explicit FormulaireDroitVoisin(Environnement& environnement, QWidget* parent = nullptr);
    ~FormulaireDroitVoisin() override;

    void setDocument(Document* document);
    void nouveau();
    bool modifier(int id);
    // Checks, refuses with the alert that says why, or saves; true when the payment was written.
    bool enregistrer();
    void annuler();
    // Adds the category typed beside the list and chooses it; refused when it exists already.
    bool creerCategorie();
    // The bodies or categories may have changed: the lists are read again, the choices kept.
    void actualiserChoix();

    const QString& mode() const { return m_mode; }

signals:
    // The payment was written (termine() follows).
    void enregistre();
    // Saved or cancelled: the list takes over again.
    void termine();
    // A category was added from the form.
    void categorieCreee();

protected:
    void keyPressEvent(QKeyEvent* evenement) override;

private:
    void construire();
    void charger(const DroitVoisin& droit);
    void refuser(const QString& message, const QString& titre = QString());

    Environnement& m_environnement;
    std::unique_ptr<DroitsVoisins> m_modele;
    QString m_mode = QStringLiteral("ajout");
    int m_id = 0;

    QLabel* m_titre = nullptr;
    ChampDate* m_date = nullptr;
    QComboBox* m_organisme = nullptr;
    QComboBox* m_categorie = nullptr;
    QLineEdit* m_nouvelleCategorie = nullptr;
    ChampMontant* m_montant = nullptr;
    QPlainTextEdit* m_details = nullptr;
    MessageSaisie* m_message = nullptr;
};

} // namespace corvane::app
