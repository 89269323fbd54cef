#pragma once

// Figures for a person, in the French format ("1 234,56 €", "14,4"): enEuros, enNombre.
#include "store/FormatFrancais.h"
