#pragma once

#include "app/kit/ChampChiffre.h"
#include "app/kit/ChampDate.h"
#include "store/SaisieFrancaise.h"

namespace corvane::app {

// The fields a period is made of, the same in the assistant and the management window.
inline ChampDate* champDatePeriode(QWidget* parent, const QString& nom)
{
    auto* champ = new ChampDate(parent);
    champ->setObjectName(nom);
    return champ;
}

// Leave, wage-deferral and waiting days.
inline ChampNombre* champJoursPeriode(QWidget* parent, const QString& nom)
{
    auto* champ = new ChampNombre(0, Limites::kJoursPeriodeMaximum, parent);
    champ->setObjectName(nom);
    return champ;
}

} // namespace corvane::app
