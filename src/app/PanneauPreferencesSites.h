#pragma once

#include "store/Reglages.h"

#include <QWidget>

namespace corvane::app {

// "Sites internet": the address each screen's site button opens in the browser. An address
// is written when its field is left, unless it is not one (then the field says why); an
// emptied field goes back to the default address.
class PanneauPreferencesSites : public QWidget
{
    Q_OBJECT

public:
    explicit PanneauPreferencesSites(Reglages& reglages, QWidget* parent = nullptr);

signals:
    void modifie();

private:
    Reglages& m_reglages;
};

} // namespace corvane::app
