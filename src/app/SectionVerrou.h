#pragma once

#include "app/PageSection.h"

class QLabel;
class QLineEdit;

namespace corvane::app {

// Shown instead of every other section while the open document is locked.
class SectionVerrou : public PageSection
{
    Q_OBJECT

public:
    explicit SectionVerrou(QWidget* parent = nullptr);
    // Checks the typed password; a wrong one turns the field light red.
    void deverrouiller();

signals:
    void deverrouille();

protected:
    QSet<QString> tablesLues() const override { return {"utilisateur"}; }
    void recharger() override;

private:
    QLabel* m_fichier = nullptr;
    QLabel* m_utilisateur = nullptr;
    QLineEdit* m_motDePasse = nullptr;
};

// A password field that shows a wrong answer in light red until the user types again.
void signalerErreur(QLineEdit* champ, bool erreur);

} // namespace corvane::app
