#pragma once

#include "app/PageSection.h"

class QStackedWidget;

namespace corvane::app {

struct Environnement;
class FormulaireSecuriteSociale;
class ListeSecuriteSociale;

// The "Sécurité Sociale" section: the list of leaves and medical expenses with the rights
// check, and the form that replaces it while a record is entered ("ajout") or changed ("modif").
class SectionSecuriteSociale : public PageSection
{
    Q_OBJECT

public:
    SectionSecuriteSociale(Environnement& environnement, QWidget* parent = nullptr);

    void afficherListe();
    void nouvellePeriode();
    void modifierPeriode(int id);
    void dupliquerPeriode(int id);
    bool enEdition() const;

    ListeSecuriteSociale* liste() const { return m_liste; }
    FormulaireSecuriteSociale* formulaire() const { return m_formulaire; }

protected:
    QSet<QString> tablesLues() const override;
    void recharger() override;

private:
    Document* m_documentAffiche = nullptr;
    QStackedWidget* m_etats = nullptr;
    ListeSecuriteSociale* m_liste = nullptr;
    FormulaireSecuriteSociale* m_formulaire = nullptr;
};

} // namespace corvane::app
