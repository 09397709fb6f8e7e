// The routine file: a Routine as JSON. Its keys are told in docs/routine-file.md.
#pragma once

#include "tools/lvprop/Routine.h"

#include <string>
#include <string_view>

/// Unknown keys, wrong kinds, doubled ids and parents that do not stand ahead are refused with line, key and reason.
/// @param name  how messages call the text: a file name.
Routine ParseRoutine(const std::string& name, std::string_view json);

/// Writes what differs from the defaults; ParseRoutine gives back an equal Routine.
std::string WriteRoutine(const Routine& routine);
