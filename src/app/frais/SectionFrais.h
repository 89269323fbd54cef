#pragma once

#include "app/PageSection.h"

class QStackedWidget;

namespace corvane::app {

struct Environnement;
class FormulaireFrais;
class ListeFrais;

// The "Frais" section: the list of professional expenses with their total, and the form that
// replaces it while an expense is entered ("ajout") or changed ("modif").
class SectionFrais : public PageSection
{
    Q_OBJECT

public:
    SectionFrais(Environnement& environnement, QWidget* parent = nullptr);

    void afficherListe();
    void nouveauFrais();
    void modifierFrais(int id);
    void dupliquerFrais(int id);
    bool enEdition() const;

    ListeFrais* liste() const { return m_liste; }
    FormulaireFrais* formulaire() const { return m_formulaire; }

protected:
    QSet<QString> tablesLues() const override;
    void recharger() override;

private:
    Document* m_documentAffiche = nullptr;
    QStackedWidget* m_etats = nullptr;
    ListeFrais* m_liste = nullptr;
    FormulaireFrais* m_formulaire = nullptr;
};

} // namespace corvane::app
