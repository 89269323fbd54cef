#include "app/fiscalite/GraphiqueFiscalite.h"

#include "store/FormatFrancais.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QCursor>
#include <QToolTip>
#include <QVBoxLayout>
#include <QValueAxis>

namespace corvane::app {

namespace {

// Past this many bars their numbers under the axis would overlap.
constexpr int kEtiquettesMaximum = 40;

} // namespace

GraphiqueFiscalite::GraphiqueFiscalite(QWidget* parent) : QWidget(parent)
{
    auto* mise = new QVBoxLayout(this);
    m_vue = new QChartView(this);
    m_vue->setObjectName(QStringLiteral("graphiqueFiscalite"));
    m_vue->setRenderHint(QPainter::Antialiasing);
    mise->addWidget(m_vue);
}

void GraphiqueFiscalite::setContrats(const Table& contrats, double maxNets)
{
    m_contrats = contrats;
    m_maxNets = maxNets;
    m_aJour = false;
    if (isVisible())
        dessiner();
}

void GraphiqueFiscalite::showEvent(QShowEvent* evenement)
{
    QWidget::showEvent(evenement);
    if (!m_aJour)
        dessiner();
}

int GraphiqueFiscalite::nombreBarres() const
{
    const QChart* chart = m_vue->chart();
    if (!chart || chart->series().isEmpty())
        return 0;
    const auto* serie = static_cast<const QBarSeries*>(chart->series().first());
    return serie->barSets().isEmpty() ? 0 : int(serie->barSets().first()->count());
}

void GraphiqueFiscalite::dessiner()
{
    m_aJour = true;
    auto* chart = new QChart;
    chart->setLocalizeNumbers(true);
    chart->setLocale(localeFrancaise());
    chart->legend()->hide();
    const int n = int(m_contrats.size());
    chart->setTitle(n == 0 ? QStringLiteral("Net imposable par contrat (aucun contrat)")
                           : QStringLiteral("Net imposable par contrat, dans l'ordre des dates"));
    auto* serie = new QBarSeries(chart);
    auto* nets = new QBarSet(QStringLiteral("Net imposable"), serie);
    nets->setColor(palette().color(QPalette::Highlight));
    QStringList numeros;
    const int net = m_contrats.colonne("Net imposable");
    for (int i = 0; i < n; ++i) {
        nets->append(m_contrats.valeur(i, net).toDouble());
        numeros << QString::number(i + 1);
    }
    serie->append(nets);
    chart->addSeries(serie);
    auto* axeX = new QBarCategoryAxis(chart);
    axeX->append(numeros);
    axeX->setLabelsVisible(n <= kEtiquettesMaximum);
    chart->addAxis(axeX, Qt::AlignBottom);
    serie->attachAxis(axeX);
    auto* axeY = new QValueAxis(chart);
    axeY->setRange(0.0, m_maxNets > 0.0 ? m_maxNets * 1.1 : 1.0);
    axeY->applyNiceNumbers();
    axeY->setLabelFormat(QStringLiteral("%.0f €"));
    chart->addAxis(axeY, Qt::AlignLeft);
    serie->attachAxis(axeY);
    // A bar names its contract when the pointer rests on it.
    const Table contrats = m_contrats;
    connect(serie, &QBarSeries::hovered, this, [contrats](bool dessus, int index, QBarSet*) {
        if (!dessus || index < 0 || index >= contrats.size()) {
            QToolTip::hideText();
            return;
        }
        QToolTip::showText(QCursor::pos(),
                           QStringLiteral("%1\ndu %2 au %3 : %4")
                               .arg(contrats.valeur(index, "Enseigne").toString(),
                                    contrats.valeur(index, "Du").toString(), contrats.valeur(index, "Au").toString(),
                                    enEuros(contrats.valeur(index, "Net imposable").toDouble())));
    });
    QChart* ancien = m_vue->chart();
    m_vue->setChart(chart);
    delete ancien;
}

} // namespace corvane::app
