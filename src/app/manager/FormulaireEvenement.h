#pragma once

#include "manager/Evenements.h"

#include <QWidget>
#include <memory>

class QComboBox;
class QKeyEvent;
class QLabel;
class QLineEdit;

namespace corvane {
class Document;
}

namespace corvane::app {

struct Environnement;
class ChampDate;

// The form of an event, new ("Nouvel événement") or changed ("Modification"): its day and
// name, the organiser among the employers, the structure that plays, and the proposition it
// comes from ("Aucune" for none). Saving reads the event's staff from the structure.
class FormulaireEvenement : public QWidget
{
    Q_OBJECT

public:
    explicit FormulaireEvenement(Environnement& environnement, QWidget* parent = nullptr);
    ~FormulaireEvenement() override;

    void setDocument(Document* document);
    void nouveau();
    bool modifier(int id);
    // Refuses with the alert that says why, or saves; true when the event was written.
    bool enregistrer();
    void annuler();
    // The employers, structures or propositions may have changed: read again, choices kept.
    void actualiserChoix();

signals:
    void enregistre(int id);
    void termine();

protected:
    void keyPressEvent(QKeyEvent* evenement) override;

private:
    void construire();
    void charger(const Evenement& evenement);

    Environnement& m_environnement;
    std::unique_ptr<Evenements> m_evenements;
    int m_id = 0;

    QLabel* m_titre = nullptr;
    ChampDate* m_date = nullptr;
    QLineEdit* m_nom = nullptr;
    QComboBox* m_organisateur = nullptr;
    QComboBox* m_structure = nullptr;
    QComboBox* m_proposition = nullptr;
};

} // namespace corvane::app
