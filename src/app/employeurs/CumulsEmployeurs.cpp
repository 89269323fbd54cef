#include "app/employeurs/CumulsEmployeurs.h"

#include "records/Employeurs.h"
#include "store/FormatFrancais.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QVBoxLayout>
#include <QValueAxis>

namespace corvane::app {

namespace {

QLabel* valeur(QWidget* parent, const QString& nom)
{
    auto* etiquette = new QLabel(parent);
    etiquette->setObjectName(nom);
    etiquette->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    etiquette->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return etiquette;
}

} // namespace

CumulsEmployeurs::CumulsEmployeurs(QWidget* parent) : QWidget(parent)
{
    auto* mise = new QVBoxLayout(this);
    auto* cadre = new QGroupBox(QStringLiteral("Cumuls de l'employeur"), this);
    auto* forme = new QFormLayout(cadre);
    m_titre = new QLabel(cadre);
    m_titre->setObjectName(QStringLiteral("cumulEmployeur"));
    forme->addRow(m_titre);
    forme->addRow(QStringLiteral("Journées"), m_journees = valeur(cadre, QStringLiteral("cumulJournees")));
    forme->addRow(QStringLiteral("Heures"), m_heures = valeur(cadre, QStringLiteral("cumulHeures")));
    forme->addRow(QStringLiteral("Salaires bruts"), m_bruts = valeur(cadre, QStringLiteral("cumulBruts")));
    forme->addRow(QStringLiteral("Salaires nets"), m_nets = valeur(cadre, QStringLiteral("cumulNets")));
    mise->addWidget(cadre);

    m_graphique = new QChartView(this);
    m_graphique->setObjectName(QStringLiteral("graphiqueEmployeurs"));
    m_graphique->setRenderHint(QPainter::Antialiasing);
    m_graphique->setMinimumHeight(260);
    mise->addWidget(m_graphique, 1);
    afficherCumuls(nullptr, 0, QString());
}

void CumulsEmployeurs::afficherCumuls(Employeurs* employeurs, int id, const QString& nom)
{
    if (!employeurs || id == 0) {
        m_titre->setText(QStringLiteral("Aucun employeur choisi."));
        for (QLabel* l : {m_journees, m_heures, m_bruts, m_nets})
            l->clear();
        return;
    }
    const Ligne cumuls = employeurs->cumulsPourEmployeur(id);
    m_titre->setText(nom);
    m_journees->setText(enEntier(cumuls.value("Journées").toLongLong()));
    m_heures->setText(enEntier(cumuls.value("Heures").toLongLong()));
    m_bruts->setText(enEuros(cumuls.value("Salaires bruts").toDouble()));
    m_nets->setText(enEuros(cumuls.value("Salaires nets").toDouble()));
}

void CumulsEmployeurs::afficherGraphique(Employeurs* employeurs)
{
    auto* chart = new QChart;
    chart->setTitle(QStringLiteral("Salaires par employeur"));
    chart->legend()->setAlignment(Qt::AlignBottom);
    chart->setLocalizeNumbers(true);
    chart->setLocale(localeFrancaise());
    const GraphiqueEmployeurs donnees = employeurs ? employeurs->graphiqueDesSalaires().principaux(10) : GraphiqueEmployeurs();
    auto* serie = new QBarSeries(chart);
    QStringList noms;
    double maximum = 0.0;
    const QList<QPair<QString, const Lignes*>> ensembles{{QStringLiteral("Brut"), &donnees.bruts},
                                                         {QStringLiteral("Net"), &donnees.nets},
                                                         {QStringLiteral("Net à payer"), &donnees.netsAPayer}};
    for (const auto& [libelle, lignes] : ensembles) {
        auto* ensemble = new QBarSet(libelle, serie);
        for (const Ligne& l : *lignes) {
            ensemble->append(l.value("Amount").toDouble());
            maximum = qMax(maximum, l.value("Amount").toDouble());
        }
        serie->append(ensemble);
    }
    for (const Ligne& l : donnees.bruts)
        noms << l.value("Label").toString();
    chart->addSeries(serie);
    auto* axeX = new QBarCategoryAxis(chart);
    axeX->append(noms);
    chart->addAxis(axeX, Qt::AlignBottom);
    serie->attachAxis(axeX);
    auto* axeY = new QValueAxis(chart);
    axeY->setRange(0.0, maximum > 0.0 ? maximum * 1.1 : 1.0);
    axeY->applyNiceNumbers();
    axeY->setLabelFormat(QStringLiteral("%.0f €"));
    chart->addAxis(axeY, Qt::AlignLeft);
    serie->attachAxis(axeY);
    if (noms.isEmpty())
        chart->setTitle(QStringLiteral("Salaires par employeur (aucun contrat)"));

    QChart* ancien = m_graphique->chart();
    m_graphique->setChart(chart);
    delete ancien;
}

} // namespace corvane::app
