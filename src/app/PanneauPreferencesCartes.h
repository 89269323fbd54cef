#pragma once

#include "store/Reglages.h"

#include <QWidget>

namespace corvane::app {

// "Cartes": the maps service of the employers' map and of the "Trajets" window — the map tiles,
// an optional traffic layer, the address search, the driving routes and the data's credit. A
// field is written when it is left, unless it is not right (then it says why); an emptied field
// goes back to the default.
class PanneauPreferencesCartes : public QWidget
{
    Q_OBJECT

public:
    explicit PanneauPreferencesCartes(Reglages& reglages, QWidget* parent = nullptr);

    // "" when `texte` may be kept for `cle`, else why not, in French.
    static QString refus(Reglages::Cle cle, const QString& texte);

signals:
    void modifie();

private:
    Reglages& m_reglages;
};

} // namespace corvane::app
