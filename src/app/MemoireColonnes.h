#pragma once

#include "store/Reglages.h"

class QTableView;

namespace corvane::app {

// A list's column widths, order and sort column, kept in the settings under `cle`:
// restored now, written again each time the user changes them.
void memoriserColonnes(QTableView* vue, Reglages& reglages, Reglages::Cle cle);

} // namespace corvane::app
