#pragma once

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

namespace corvane {
class Fiscalite;
}

namespace corvane::app {

class GrilleValeurs;

// The figures of the declaration beside the lists: the ten-line summary, the self-employment
// turnovers with the charges due (and the sub-period they may be limited to), the actual
// mileage costs and the neighbouring-rights income per collecting society.
class RecapitulatifFiscalite : public QWidget
{
    Q_OBJECT

public:
    explicit RecapitulatifFiscalite(QWidget* parent = nullptr);

    // Shows the figures computed (nothing when there is no document).
    void afficher(const Fiscalite* fiscalite);

    GrilleValeurs* resume() const { return m_resume; }
    GrilleValeurs* autoEntrepreneur() const { return m_autoEntrepreneur; }
    GrilleValeurs* fraisReels() const { return m_fraisReels; }
    GrilleValeurs* droitsVoisins() const { return m_droitsVoisins; }
    QLabel* charges() const { return m_charges; }
    QCheckBox* limiter() const { return m_limiter; }
    QComboBox* periodeAE() const { return m_periodeAE; }
    QPushButton* site() const { return m_site; }

private:
    GrilleValeurs* m_resume = nullptr;
    GrilleValeurs* m_autoEntrepreneur = nullptr;
    GrilleValeurs* m_fraisReels = nullptr;
    GrilleValeurs* m_droitsVoisins = nullptr;
    QLabel* m_charges = nullptr;
    QCheckBox* m_limiter = nullptr;
    QComboBox* m_periodeAE = nullptr;
    QPushButton* m_site = nullptr;
};

} // namespace corvane::app
