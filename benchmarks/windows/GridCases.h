// The property grid beside a bare list box of the platform in the same process.
#pragma once

#include "benchmarks/Cases.h"

/// W10fill: rows from an empty control, the first page painted. W10page: forced repaint of the visible page, per
/// painted row. W10refresh: a thousand changed values while drawing is held, then one paint.
void AddGridCases(std::vector<Case>& cases);
