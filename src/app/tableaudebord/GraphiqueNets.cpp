#include "app/tableaudebord/GraphiqueNets.h"

#include "app/tableaudebord/Jauges.h"
#include "store/Dates.h"
#include "store/FormatFrancais.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QCursor>
#include <QEvent>
#include <QToolTip>
#include <QValueAxis>

#include <algorithm>
#include <cmath>

namespace corvane::app {

GraphiqueNets::GraphiqueNets(QWidget* parent) : QChartView(parent)
{
    setRenderHint(QPainter::Antialiasing);
    setMinimumSize(220, 160);
    auto* graphique = new QChart;
    graphique->legend()->hide();
    graphique->setBackgroundVisible(false);
    graphique->setMargins(QMargins(2, 2, 2, 2));
    graphique->setAnimationOptions(QChart::NoAnimation);
    setChart(graphique);

    // Built once; a new list only replaces the values and the categories.
    auto* series = new QBarSeries(graphique);
    m_serie = new QBarSet(QStringLiteral("Salaire net"), series);
    series->append(m_serie);
    graphique->addSeries(series);
    m_axeX = new QBarCategoryAxis(graphique);
    m_axeX->setGridLineVisible(false);
    QFont petite = m_axeX->labelsFont();
    petite.setPointSizeF(petite.pointSizeF() * 0.85);
    m_axeX->setLabelsFont(petite);
    graphique->addAxis(m_axeX, Qt::AlignBottom);
    series->attachAxis(m_axeX);
    m_axeY = new QValueAxis(graphique);
    m_axeY->setTickCount(5);
    // Whole euros; the unit is in the title (a "€" in the format comes out garbled).
    m_axeY->setLabelFormat(QStringLiteral("%.0f"));
    graphique->addAxis(m_axeY, Qt::AlignLeft);
    series->attachAxis(m_axeY);
    connect(m_serie, &QBarSet::hovered, this, &GraphiqueNets::survol);
    setListe({}, {});
}

QString GraphiqueNets::titre() const
{
    return m_parMois ? QStringLiteral("Salaire net par mois (€)") : QStringLiteral("Salaire net par contrat (€)");
}

void GraphiqueNets::setListe(const Table& liste, const QList<bool>& arrets)
{
    QList<Barre> contrats;
    const int debut = liste.colonne(QStringLiteral("Date Debut"));
    const int employeur = liste.colonne(QStringLiteral("Raison Sociale"));
    const int net = liste.colonne(QStringLiteral("Net imposable"));
    // The last row is the totals.
    for (qsizetype i = 0; i + 1 < liste.size(); ++i) {
        if (arrets.value(i))
            continue;
        const QVariantList& r = liste.rangees.at(i);
        contrats.append({Dates::depuisAffichage(r.value(debut).toString()), r.value(employeur).toString(),
                         r.value(net).toDouble()});
    }
    std::stable_sort(contrats.begin(), contrats.end(),
                     [](const Barre& a, const Barre& b) { return a.debut < b.debut; });

    m_parMois = contrats.size() > kContratsLisibles;
    m_barres.clear();
    if (!m_parMois) {
        m_barres = contrats;
    } else {
        // Every month from the first contract's to the last one's, empty months included.
        QDate mois(contrats.first().debut.year(), contrats.first().debut.month(), 1);
        const QDate dernier(contrats.last().debut.year(), contrats.last().debut.month(), 1);
        qsizetype i = 0;
        for (; mois <= dernier; mois = mois.addMonths(1)) {
            Barre b{mois, QString(), 0};
            int nombre = 0;
            for (; i < contrats.size() && contrats[i].debut < mois.addMonths(1); ++i, ++nombre)
                b.net += contrats[i].net;
            b.libelle = nombre == 1 ? QStringLiteral("1 contrat") : QStringLiteral("%1 contrats").arg(nombre);
            m_barres.append(b);
        }
    }

    QList<qreal> valeurs;
    double maximum = 0;
    m_etiquettes.clear();
    m_initiales.clear();
    m_largeurEtiquette = m_largeurInitiale = 0;
    const QFontMetricsF mesure(m_axeX->labelsFont());
    for (int i = 0; i < m_barres.size(); ++i) {
        valeurs << m_barres[i].net;
        maximum = std::max(maximum, m_barres[i].net);
        const QString texte = m_parMois ? localeFrancaise().toString(m_barres[i].debut, QStringLiteral("MMM"))
                                        : m_barres[i].debut.toString(QStringLiteral("dd/MM"));
        const QString initiale = texte.left(1).toUpper();
        m_largeurEtiquette = std::max(m_largeurEtiquette, mesure.horizontalAdvance(texte));
        m_largeurInitiale = std::max(m_largeurInitiale, mesure.horizontalAdvance(initiale));
        // Categories must differ: invisible spaces tell two bars of the same label apart.
        m_etiquettes << texte + QString(i, QChar(0x200b));
        m_initiales << initiale + QString(i, QChar(0x200b));
    }
    m_serie->remove(0, m_serie->count());
    m_serie->append(valeurs);
    m_etiquettesAffichees = -1;
    majEtiquettes();
    const double pas = maximum <= 0 ? 100 : std::pow(10.0, std::floor(std::log10(maximum)));
    m_axeY->setRange(0, maximum <= 0 ? 100 : std::ceil(maximum / pas) * pas);
    appliquerCouleurs();
}

void GraphiqueNets::appliquerCouleurs()
{
    const QColor texte = palette().color(QPalette::Text);
    QColor grille = texte;
    grille.setAlpha(40);
    for (QAbstractAxis* axe : {static_cast<QAbstractAxis*>(m_axeX), static_cast<QAbstractAxis*>(m_axeY)}) {
        axe->setLabelsColor(texte);
        axe->setLinePenColor(grille);
        axe->setGridLineColor(grille);
    }
    const QColor bleu = CouleursTdb::bleuJauge(palette());
    m_serie->setColor(bleu);
    m_serie->setBorderColor(bleu);
    setBackgroundBrush(palette().color(QPalette::Base));
}

void GraphiqueNets::changeEvent(QEvent* evenement)
{
    QChartView::changeEvent(evenement);
    if (evenement->type() == QEvent::PaletteChange)
        appliquerCouleurs();
}

void GraphiqueNets::resizeEvent(QResizeEvent* evenement)
{
    QChartView::resizeEvent(evenement);
    majEtiquettes();
}

void GraphiqueNets::majEtiquettes()
{
    // The width of the plot (once laid out; before, the view's less the amounts' axis), shared by the
    // bars; a label also needs the margins of its text item, or the chart elides it.
    const double largeur = chart()->plotArea().width() > 0 ? chart()->plotArea().width() : width() - 60.0;
    const double place = largeur / std::max<qsizetype>(1, m_barres.size());
    int choix = 0;
    if (!m_barres.isEmpty() && m_largeurEtiquette + 14 <= place)
        choix = 1;
    else if (m_parMois && m_largeurInitiale + 10 <= place)
        choix = 2;
    if (choix == m_etiquettesAffichees)
        return;
    m_etiquettesAffichees = choix;
    m_axeX->clear();
    m_axeX->append(choix == 2 ? m_initiales : m_etiquettes);
    m_axeX->setLabelsVisible(choix != 0);
}

void GraphiqueNets::survol(bool dessus, int index)
{
    if (!dessus || index < 0 || index >= m_barres.size()) {
        QToolTip::hideText();
        return;
    }
    const Barre& b = m_barres.at(index);
    const QString quand = m_parMois ? localeFrancaise().toString(b.debut, QStringLiteral("MMMM yyyy"))
                                    : b.debut.toString(QStringLiteral("dd/MM/yyyy"));
    QToolTip::showText(QCursor::pos(), QStringLiteral("%1 — %2 : %3").arg(quand, b.libelle, enEuros(b.net)), this);
}

} // namespace corvane::app
