// Owner of a VARIANT, under its well-known name.
#pragma once

#include "platform/com/Ole.h"

/// Starts empty; clears what it holds. Not copied.
class CComVariant : public VARIANT {
public:
    CComVariant() { VariantInit(this); }
    ~CComVariant() { VariantClear(this); }
    CComVariant(const CComVariant&) = delete;
    CComVariant& operator=(const CComVariant&) = delete;
};
