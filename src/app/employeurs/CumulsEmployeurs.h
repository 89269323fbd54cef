#pragma once

#include <QWidget>

class QChartView;
class QLabel;

namespace corvane {
class Employeurs;
}

namespace corvane::app {

// The totals of the selected employer (days, hours, gross and net pay), and the chart of
// the gross, net and net-to-pay sums of every employer.
class CumulsEmployeurs : public QWidget
{
    Q_OBJECT

public:
    explicit CumulsEmployeurs(QWidget* parent = nullptr);

    // No employer (id 0): the totals are blank.
    void afficherCumuls(Employeurs* employeurs, int id, const QString& nom);
    void afficherGraphique(Employeurs* employeurs);

private:
    QLabel* m_titre = nullptr;
    QLabel* m_journees = nullptr;
    QLabel* m_heures = nullptr;
    QLabel* m_bruts = nullptr;
    QLabel* m_nets = nullptr;
    QChartView* m_graphique = nullptr;
};

} // namespace corvane::app
