#pragma once

#include "store/Reglages.h"

class QTableView;

namespace corvane::app {

// A list's column widths, order and sort column, kept in the settings under `cle`:
// restored now, written again each time the user changes them. Until the user sets a width,
// the columns are fitted to their header and contents each time the list is filled again,
// so that names are not cut.
void memoriserColonnes(QTableView* vue, Reglages& reglages, Reglages::Cle cle);

// Fits each column to its header and to the rows in view (at most a few hundred are measured),
// up to a width past which the text is better elided with its whole value in a tooltip.
void ajusterColonnes(QTableView* vue);

} // namespace corvane::app
