#pragma once

#include "records/NouvellePeriode.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace corvane {
class Document;
}

namespace corvane::app {

struct Environnement;
class ChampDate;
class ChampMontant;
class ChampNombre;
class MessageSaisie;

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
    ChampDate* m_debut = nullptr;
    ChampDate* m_fin = nullptr;
    QLineEdit* m_libelle = nullptr;
    QPlainTextEdit* m_notes = nullptr;
    ChampNombre* m_conges = nullptr;
    ChampNombre* m_franchise = nullptr;
    ChampNombre* m_attente = nullptr;
    QCheckBox* m_maj = nullptr;
    QLabel* m_libelleSrj = nullptr;
    ChampMontant* m_srj = nullptr;
    ChampMontant* m_taux = nullptr;
    MessageSaisie* m_message = nullptr;
};

} // namespace corvane::app
