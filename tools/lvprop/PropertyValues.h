// Values between a routine and a property, both ways, through the typed accessors of the interface.
#pragma once

#include "tools/lvprop/Routine.h"

#include <lumevor/Property.h>

/// Sets value or value text; a routine property without one leaves the property as it is.
void SetPropertyValue(const lumevor::Property& property, const RoutineProperty& routine);

RoutineValue GetPropertyValue(const lumevor::Property& property, EprpPropDataType type);
