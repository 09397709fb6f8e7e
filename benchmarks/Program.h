// What differs between the programs: which cases they have, and what must be up before the first one runs.
#pragma once

#include "benchmarks/Cases.h"

/// Brings COM up on this thread and gives the cases of this program.
std::vector<Case> StartProgram();
