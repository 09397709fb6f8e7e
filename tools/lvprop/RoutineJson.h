// One property in the form of the routine file, for commands that write JSON of their own.
#pragma once

#include "tools/lvprop/JsonText.h"
#include "tools/lvprop/Routine.h"

/// Keys in the order of the file; what is as usual is left out.
Json PropertyJson(const RoutineProperty& property);
