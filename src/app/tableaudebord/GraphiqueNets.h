#pragma once

#include "store/BaseDeDonnees.h"

#include <QChartView>
#include <QDate>
#include <QList>

class QBarCategoryAxis;
class QBarSet;
class QValueAxis;

namespace corvane::app {

// The bar chart beside the dashboard's list: the net pay of the period's contracts, oldest on
// the left whatever the list's order. One bar per contract while their dates can be read under
// them; past that, one bar per month. A bar's details show on hovering it.
class GraphiqueNets : public QChartView
{
    Q_OBJECT

public:
    explicit GraphiqueNets(QWidget* parent = nullptr);

    // One bar: a contract, or a month of contracts.
    struct Barre
    {
        QDate debut;     // the contract's first day, or the month's
        QString libelle; // the employer, or "3 contrats"
        double net = 0;
    };

    // The contracts of a dashboard list (sickness rows and the totals row are left out).
    void setListe(const Table& liste, const QList<bool>& arrets);
    const QList<Barre>& barres() const { return m_barres; }
    bool parMois() const { return m_parMois; }
    // "Salaire net par contrat" or "Salaire net par mois".
    QString titre() const;
    // Follows the palette (light or dark) and the dashboard's blue.
    void appliquerCouleurs();

    // Past this many contracts the chart shows months.
    static constexpr int kContratsLisibles = 24;

protected:
    void changeEvent(QEvent* evenement) override;
    void resizeEvent(QResizeEvent* evenement) override;

private:
    void survol(bool dessus, int index);
    // The dates under the bars, when there is room for them.
    void majEtiquettes();

    QList<Barre> m_barres;
    bool m_parMois = false;
    // The dates under the bars: whole ("déc.", "14/12"), or a month's initial when the bars are narrow.
    QStringList m_etiquettes;
    QStringList m_initiales;
    double m_largeurEtiquette = 0;
    double m_largeurInitiale = 0;
    int m_etiquettesAffichees = -1; // 0 none, 1 whole, 2 initials
    QBarSet* m_serie = nullptr;
    QBarCategoryAxis* m_axeX = nullptr;
    QValueAxis* m_axeY = nullptr;
};

} // namespace corvane::app
