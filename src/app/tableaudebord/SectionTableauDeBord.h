#pragma once

#include "app/ActionsRapport.h"
#include "app/PageSection.h"

#include <QDate>
#include <QHash>

class QCheckBox;
class QLabel;
class QTableView;
class QTimer;
class QToolButton;

namespace corvane::app {

struct Environnement;
class BarreDroits;
class GraphiqueNets;
class JaugeCirculaire;
class ModeleActivite;

// "Tableau de bord": this month's and the reference period's activity, the hours gauge, the
// benefit timeline, the reference-period gauge, and the period's contracts and sickness periods
// with a chart of their net pay. It reads again when one of its tables is written and when the
// day changes while it is open.
class SectionTableauDeBord : public PageSection
{
    Q_OBJECT

public:
    SectionTableauDeBord(Environnement& environnement, QWidget* parent = nullptr);

    // The text shown for a statistics figure: `libelle` "Ce mois-ci" or "Période", `cle` one of
    // the statistics keys ("Jours", "Bruts", …).
    QString statistique(const QString& libelle, const QString& cle) const;
    ModeleActivite* modele() const { return m_modele; }
    GraphiqueNets* graphique() const { return m_graphique; }
    // The report the print and export buttons compose, as the screen shows it.
    RapportEcran rapport() const;

protected:
    QSet<QString> tablesLues() const override;
    void recharger() override;
    void showEvent(QShowEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;

private:
    // The statistics columns, in their order, and the two rows.
    static const QStringList& clesAffichees();
    static const QStringList& libellesStatistiques();
    QWidget* construireStatistiques();
    QWidget* construireHeures();
    QWidget* construireDroits();
    QWidget* construirePeriode();
    QWidget* construireActivite();
    void vider();
    void majTri();
    void appliquerCouleurs();
    void programmerMinuit();

    Environnement& m_environnement;
    QLabel* m_etendue = nullptr;
    QCheckBox* m_bloque = nullptr;
    QHash<QString, QLabel*> m_statistiques; // "Libellé/clé"
    QList<QLabel*> m_discrets;              // column titles and the span, in a softer colour
    JaugeCirculaire* m_jaugeHeures = nullptr;
    QLabel* m_etatHeures = nullptr;
    QLabel* m_ouverture = nullptr;
    QLabel* m_finDroits = nullptr;
    BarreDroits* m_barreDroits = nullptr;
    QLabel* m_allocations = nullptr;
    QLabel* m_restants = nullptr;
    JaugeCirculaire* m_jaugePeriode = nullptr;
    QLabel* m_allongement = nullptr;
    QToolButton* m_tri = nullptr;
    QTableView* m_table = nullptr;
    ModeleActivite* m_modele = nullptr;
    GraphiqueNets* m_graphique = nullptr;
    QLabel* m_titreGraphique = nullptr;
    QTimer* m_minuit = nullptr;
    // What the colours depend on, kept for a change of appearance.
    QDate m_jour;
    bool m_heuresManquantes = false;
    bool m_periodeTerminee = false;
    double m_proportionHeures = 0;
    double m_proportionPeriode = 0;
};

} // namespace corvane::app
