#pragma once

#include <QDialog>
#include <memory>

class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTableView;

namespace corvane {
class Periodes;
}

namespace corvane {
class Document;
}

namespace corvane::app {

class ChampDate;
class ChampNombre;
class MessageSaisie;

struct Environnement;
class ModelePeriodes;

// The periods' management window: the list newest first with the active period ticked,
// the form of the selected period, a new period through the assistant, activating and
// deleting. The active period cannot be deleted nor left without a successor, and
// editing it is confirmed first.
class FenetrePeriodes : public QDialog
{
    Q_OBJECT

public:
    FenetrePeriodes(Environnement& environnement, Document& document, QWidget* parent = nullptr);
    ~FenetrePeriodes() override;

    void recharger(int idASelectionner = 0);
    int idSelectionne() const;
    void selectionner(int id);
    void enregistrer();
    void supprimer();
    void activer(int id);
    void desactiver(int id);
    void nouvellePeriode();

signals:
    // The periods changed (the dashboard refreshes).
    void periodesModifiees();

private:
    void selectionChangee();

    Environnement& m_environnement;
    Document& m_document;
    std::unique_ptr<Periodes> m_periodes;
    ModelePeriodes* m_modele = nullptr;
    QTableView* m_liste = nullptr;
    QLineEdit* m_libelle = nullptr;
    ChampDate* m_debut = nullptr;
    ChampDate* m_fin = nullptr;
    QPlainTextEdit* m_notes = nullptr;
    ChampNombre* m_conges = nullptr;
    ChampNombre* m_franchise = nullptr;
    ChampNombre* m_attente = nullptr;
    MessageSaisie* m_message = nullptr;
    QPushButton* m_enregistrer = nullptr;
    QPushButton* m_supprimer = nullptr;
    QPushButton* m_activer = nullptr;
};

} // namespace corvane::app
