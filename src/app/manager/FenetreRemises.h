#pragma once

#include <QDialog>
#include <memory>

class QComboBox;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace corvane {
class Document;
class TarifsPropositions;
} // namespace corvane

namespace corvane::app {

struct Environnement;
class ChampChiffre;

// "Gestion des remises": the discounts with their notes; a new one by amount, unit ("%" or "€")
// and note; one deleted while no proposition uses it. `titreAlertes` is the title of its refusals
// ("Gestion des remises" from the list, "Gestion des Remises" from the proposition window).
class FenetreRemises : public QDialog
{
    Q_OBJECT

public:
    FenetreRemises(Environnement& environnement, Document& document, const QString& titreAlertes,
                   QWidget* parent = nullptr);
    ~FenetreRemises() override;

    void recharger(int idASelectionner = 0);
    int idSelectionne() const;
    // Each refuses with an alert that says why; the new key, or true, when the document was written.
    int ajouter();
    bool supprimer();

signals:
    void remisesModifiees(int idAjoute);

private:
    void alerter(const QString& message);

    Environnement& m_environnement;
    QString m_titreAlertes;
    std::unique_ptr<TarifsPropositions> m_tarifs;
    QTableWidget* m_liste = nullptr;
    ChampChiffre* m_montant = nullptr;
    QComboBox* m_type = nullptr;
    QLineEdit* m_note = nullptr;
    QPushButton* m_supprimer = nullptr;
};

} // namespace corvane::app
