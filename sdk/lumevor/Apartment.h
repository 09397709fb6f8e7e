// The COM apartment of a thread as a scope.
#pragma once

#include <lumevor/Error.h>
#include <lumevor/Pump.h>

namespace lumevor {

/// Put one at the top of a thread's function; everything of the kit on that thread must end before it does.
class Apartment {
public:
    /// Single-threaded unless told otherwise: collections and controls are made for that.
    explicit Apartment(DWORD model = COINIT_APARTMENTTHREADED) { Check(CoInitializeEx(nullptr, model)); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

} // namespace lumevor
