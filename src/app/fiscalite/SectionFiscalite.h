#pragma once

#include "app/PageSection.h"
#include "exchange/RapportFiscalite.h"

#include <QPointer>

class QCheckBox;
class QComboBox;
class QLabel;
class QTabWidget;
class QTableView;

namespace corvane::app {

struct Environnement;
class ChampDate;
class FenetreVersements;
class GraphiqueFiscalite;
class ModeleTableau;
class RecapitulatifFiscalite;

// The "Fiscalité" section: the figures of the income declaration for a tax year or a defined
// period, with the switches that shape them; the contracts, the totals per employer with the tax
// withheld and the chart; the summary, self-employment, mileage and neighbouring-rights figures;
// the tax payments history, the self-employed declaration site and the report.
class SectionFiscalite : public PageSection
{
    Q_OBJECT

public:
    SectionFiscalite(Environnement& environnement, QWidget* parent = nullptr);
    ~SectionFiscalite() override;

    // What the screen asks for now: the year or period and the switches.
    DemandeFiscalite demande() const;
    // Computes again and shows every figure.
    void calculer();
    FenetreVersements* afficherHistorique();

    RecapitulatifFiscalite* recapitulatif() const { return m_recapitulatif; }
    ModeleTableau* contrats() const { return m_contrats; }
    ModeleTableau* employeurs() const { return m_employeurs; }
    GraphiqueFiscalite* graphique() const { return m_graphique; }

protected:
    QSet<QString> tablesLues() const override;
    void recharger() override;

private:
    QWidget* construireBarre();
    QWidget* construireListes();
    void periodeChoisie();
    void datesModifiees();
    void optionModifiee();

    Environnement& m_environnement;
    QComboBox* m_periode = nullptr;
    QWidget* m_dates = nullptr;
    ChampDate* m_du = nullptr;
    ChampDate* m_au = nullptr;
    QCheckBox* m_arrondir = nullptr;
    QCheckBox* m_primeEmploi = nullptr;
    QCheckBox* m_autoEntrepreneur = nullptr;
    RecapitulatifFiscalite* m_recapitulatif = nullptr;
    QTabWidget* m_onglets = nullptr;
    ModeleTableau* m_contrats = nullptr;
    ModeleTableau* m_employeurs = nullptr;
    QLabel* m_nombreContrats = nullptr;
    QLabel* m_totauxEmployeurs = nullptr;
    GraphiqueFiscalite* m_graphique = nullptr;
    QPointer<FenetreVersements> m_historique;
};

} // namespace corvane::app
