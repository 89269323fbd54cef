#pragma once

#include "store/BaseDeDonnees.h"

#include <QWidget>

class QChartView;

namespace corvane::app {

// The taxable net of each contract of the declaration, one bar per contract in date order. The
// chart is drawn when it is shown, not each time the figures change.
class GraphiqueFiscalite : public QWidget
{
    Q_OBJECT

public:
    explicit GraphiqueFiscalite(QWidget* parent = nullptr);

    // The contracts' rows ("Enseigne", "Du", "Au", "Net imposable") and the largest net.
    void setContrats(const Table& contrats, double maxNets);
    // Bars drawn so far (for the tests): one per contract.
    int nombreBarres() const;

protected:
    void showEvent(QShowEvent* evenement) override;

private:
    void dessiner();

    QChartView* m_vue = nullptr;
    Table m_contrats;
    double m_maxNets = 0.0;
    bool m_aJour = false;
};

} // namespace corvane::app
