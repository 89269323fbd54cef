#pragma once

#include "app/PageSection.h"

#include <memory>

class QSortFilterProxyModel;
class QTableView;
class QLabel;

namespace corvane {
class Employeurs;
}

namespace corvane::app {

struct Environnement;
class CarteEmployeur;
class CumulsEmployeurs;
class ModeleEmployeurs;
class PanneauEmployeur;

// The employers: the list sorted by name (its "conventionné" box written at once), the
// employer's form, its totals and the chart of every employer's pay; importing the
// employers of another document and managing the contract templates.
class SectionEmployeurs : public PageSection
{
    Q_OBJECT

public:
    SectionEmployeurs(Environnement& environnement, QWidget* parent = nullptr);
    ~SectionEmployeurs() override;

    int idSelectionne() const;
    void selectionner(int id);
    void nouvelEmployeur();
    void enregistrer();
    void supprimer();
    void importer();
    void gererModeles();
    // "Trajets": the route from home to the chosen employer.
    void ouvrirTrajets();

protected:
    QSet<QString> tablesLues() const override;
    void recharger() override;

private:
    bool documentOuvert();
    void afficherListe(int idASelectionner);
    void selectionChangee();
    void majCumuls();

    Environnement& m_environnement;
    Document* m_documentAffiche = nullptr;
    std::unique_ptr<Employeurs> m_employeurs;
    ModeleEmployeurs* m_modele = nullptr;
    QSortFilterProxyModel* m_tri = nullptr;
    QTableView* m_liste = nullptr;
    QLabel* m_nombre = nullptr;
    PanneauEmployeur* m_panneau = nullptr;
    CumulsEmployeurs* m_cumuls = nullptr;
    CarteEmployeur* m_carte = nullptr;
};

} // namespace corvane::app
