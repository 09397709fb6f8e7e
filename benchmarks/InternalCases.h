// Cases that look into the model; only a program that links the model itself has them.
#pragma once

#include "benchmarks/Cases.h"

void AddInternalCases(std::vector<Case>& cases);
