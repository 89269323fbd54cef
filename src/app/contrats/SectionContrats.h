#pragma once

#include "app/PageSection.h"

class QStackedWidget;

namespace corvane::app {

struct Environnement;
class FormulaireContrat;
class ListeContrats;

// The "Contrats" section: the list, and the form that replaces it while a contract is
// being entered ("ajout") or changed ("modif").
class SectionContrats : public PageSection
{
    Q_OBJECT

public:
    SectionContrats(Environnement& environnement, QWidget* parent = nullptr);

    void afficherListe();
    void nouveauContrat();
    void modifierContrat(int id);
    bool enEdition() const;

    ListeContrats* liste() const { return m_liste; }
    FormulaireContrat* formulaire() const { return m_formulaire; }

protected:
    QSet<QString> tablesLues() const override;
    void recharger() override;

private:
    Environnement& m_environnement;
    Document* m_documentAffiche = nullptr;
    QStackedWidget* m_etats = nullptr;
    ListeContrats* m_liste = nullptr;
    FormulaireContrat* m_formulaire = nullptr;
};

} // namespace corvane::app
