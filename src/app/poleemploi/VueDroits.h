#pragma once

#include "unemployment/PoleEmploi.h"

#include <QWidget>

class QTableWidget;
class QTextBrowser;

namespace corvane {
class Simulation;
}

namespace corvane::app {

// The rights computed: the report in its colours, the allocation table, the period table,
// and the hours by job and kind with what the ceilings kept and rejected.
class VueDroits : public QWidget
{
    Q_OBJECT

public:
    explicit VueDroits(QWidget* parent = nullptr);

    void afficher(const Simulation& simulation);
    // Nothing computed: the report area says why, the tables are emptied.
    void afficherMessage(const QString& message);

    QTextBrowser* compteRendu() const { return m_compteRendu; }
    QTableWidget* allocations() const { return m_allocations; }
    QTableWidget* periode() const { return m_periode; }
    QTableWidget* heures() const { return m_heures; }
    QTableWidget* decompte() const { return m_decompte; }

    // A report line's colour on a background: readable on light and on dark ones.
    static QColor couleur(LigneCompteRendu::Couleur couleur, const QColor& fond);

protected:
    void changeEvent(QEvent* evenement) override;

private:
    void rendreCompteRendu();

    CompteRendu m_lignes;
    QString m_message;
    QTextBrowser* m_compteRendu = nullptr;
    QTableWidget* m_allocations = nullptr;
    QTableWidget* m_periode = nullptr;
    QTableWidget* m_heures = nullptr;
    QTableWidget* m_decompte = nullptr;
};

} // namespace corvane::app
