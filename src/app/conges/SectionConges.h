#pragma once

#include "app/PageSection.h"

#include <QPointer>
#include <memory>

class QComboBox;
class QLabel;
class QPushButton;
class QTableView;

namespace corvane::app {

struct Environnement;
class ChampDate;
class FenetreVersements;
class GrilleValeurs;
class ModeleTableau;

// The "Congés" section: the paid-leave fund's estimate for the current leave year or a chosen
// period (the qualifying contracts and the seven-line summary), the payments history, the
// fund's member site and the report.
class SectionConges : public PageSection
{
    Q_OBJECT

public:
    SectionConges(Environnement& environnement, QWidget* parent = nullptr);
    ~SectionConges() override;

    // "COMPLET" (the leave year from today) or "PERIODE" (the two dates).
    QString typeConges() const;
    // Computes again with the period shown.
    void calculer();
    // The payments history, opened over the document shown (one window for the section).
    FenetreVersements* afficherHistorique();

    ModeleTableau* contrats() const { return m_contrats; }
    GrilleValeurs* resume() const { return m_resume; }

protected:
    QSet<QString> tablesLues() const override;
    void recharger() override;

private:
    QWidget* construireBarre();
    void periodeChoisie();
    void datesModifiees();
    void majPeriodes();
    void majIdentifiant();

    Environnement& m_environnement;
    QComboBox* m_periode = nullptr;
    QWidget* m_dates = nullptr;
    ChampDate* m_du = nullptr;
    ChampDate* m_au = nullptr;
    QTableView* m_liste = nullptr;
    ModeleTableau* m_contrats = nullptr;
    QLabel* m_nombreContrats = nullptr;
    GrilleValeurs* m_resume = nullptr;
    QLabel* m_identifiant = nullptr;
    QPushButton* m_copier = nullptr;
    QPointer<FenetreVersements> m_historique;
};

} // namespace corvane::app
