#pragma once

#include "records/NouvellePeriode.h"

#include <QDialog>

class QCheckBox;
class QDateEdit;
class QDoubleSpinBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QSpinBox;

namespace corvane {
class Document;
}

namespace corvane::app {

struct Environnement;

// The new-period assistant: start today, the end and the label that follow the start,
// the deferral and waiting days, and the switch that carries the new rights into the
// profile. A period with the dates of an existing one is refused.
class AssistantNouvellePeriode : public QDialog
{
    Q_OBJECT

public:
    AssistantNouvellePeriode(Environnement& environnement, Document& document, QWidget* parent = nullptr);

    // Checks and saves; on success the window closes. False when refused (the window stays).
    bool enregistrer();

signals:
    // A period was saved: the dashboard refreshes, the periods window reloads.
    void periodeEnregistree(int id);

private:
    void afficher();
    void lireSaisie();

    Environnement& m_environnement;
    NouvellePeriode m_assistant;
    QDateEdit* m_debut = nullptr;
    QDateEdit* m_fin = nullptr;
    QLineEdit* m_libelle = nullptr;
    QPlainTextEdit* m_notes = nullptr;
    QSpinBox* m_conges = nullptr;
    QSpinBox* m_franchise = nullptr;
    QSpinBox* m_attente = nullptr;
    QCheckBox* m_maj = nullptr;
    QLabel* m_libelleSrj = nullptr;
    QDoubleSpinBox* m_srj = nullptr;
    QDoubleSpinBox* m_taux = nullptr;
};

} // namespace corvane::app
