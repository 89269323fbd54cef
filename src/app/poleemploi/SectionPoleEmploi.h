#pragma once

#include "app/PageSection.h"
#include "unemployment/DemandeDroits.h"

class QCheckBox;
class QComboBox;
class QPushButton;
class QStackedWidget;
class QWidget;

namespace corvane::app {

struct Environnement;
class ChampDate;
class VueDeclaration;
class VueDroits;

// The "Pôle Emploi" section: the rights simulation over two dates (remembered in the document),
// the analysis of the current reference period, or the monthly declaration; the payments
// received in their own window; the report printed. The figures are computed again whenever
// a contract, a period, a sickness record or the profile changes.
class SectionPoleEmploi : public PageSection
{
    Q_OBJECT

public:
    enum Mode
    {
        Simulation = 0,
        Analyse,
        Declaration,
    };

    SectionPoleEmploi(Environnement& environnement, QWidget* parent = nullptr);

    Mode mode() const;
    void choisirMode(Mode mode);
    // "Calculer": remembers the simulation's dates, then computes with the choices on screen.
    void calculer();
    void ouvrirVersements();
    // What the screen asks for with its current choices.
    DemandeDroits demande() const;

    VueDroits* vueDroits() const { return m_droits; }
    VueDeclaration* vueDeclaration() const { return m_declaration; }

protected:
    QSet<QString> tablesLues() const override;
    void recharger() override;

private:
    void modeChange();
    // Computes the current mode without writing anything.
    void lancer();

    Environnement& m_environnement;
    Document* m_documentAffiche = nullptr;
    // The simulation's dates, kept while the analysis shows the current period's.
    QDate m_debutSimulation;
    QDate m_finSimulation;
    Mode m_modeAffiche = Simulation;

    QComboBox* m_mode = nullptr;
    QWidget* m_plage = nullptr;
    ChampDate* m_du = nullptr;
    ChampDate* m_au = nullptr;
    QComboBox* m_contrats = nullptr;
    QCheckBox* m_indemnites = nullptr;
    QPushButton* m_calculer = nullptr;
    QStackedWidget* m_pages = nullptr;
    VueDroits* m_droits = nullptr;
    VueDeclaration* m_declaration = nullptr;
    QPushButton* m_imprimer = nullptr;
    QPushButton* m_exporter = nullptr;
};

} // namespace corvane::app
