// The whole kit: everything that a host needs to hold a property collection.
#pragma once

#include <lumevor/Apartment.h>
#include <lumevor/Collection.h>
#include <lumevor/Events.h>
