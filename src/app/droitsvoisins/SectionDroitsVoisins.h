#pragma once

#include "app/PageSection.h"

class QStackedWidget;

namespace corvane::app {

struct Environnement;
class FenetreCategoriesDroitsVoisins;
class FormulaireDroitVoisin;
class ListeDroitsVoisins;

// The "Droits Voisins" section: the payments with the totals per body, and the form that
// replaces the list while a payment is entered ("ajout") or changed ("modif"); the categories
// window opens from the list.
class SectionDroitsVoisins : public PageSection
{
    Q_OBJECT

public:
    SectionDroitsVoisins(Environnement& environnement, QWidget* parent = nullptr);

    void afficherListe();
    void nouveauVersement();
    void modifierVersement(int id);
    // The categories window, modal; nullptr without a document.
    FenetreCategoriesDroitsVoisins* ouvrirCategories();
    bool enEdition() const;

    ListeDroitsVoisins* liste() const { return m_liste; }
    FormulaireDroitVoisin* formulaire() const { return m_formulaire; }

protected:
    QSet<QString> tablesLues() const override;
    void recharger() override;

private:
    Environnement& m_environnement;
    Document* m_documentAffiche = nullptr;
    QStackedWidget* m_etats = nullptr;
    ListeDroitsVoisins* m_liste = nullptr;
    FormulaireDroitVoisin* m_formulaire = nullptr;
};

} // namespace corvane::app
