// What a row shows, readable without painting: for tests and for accessibility.
#pragma once

#include "platform/com/Ole.h"
#include "platform/draw/Rect.h"

struct RowFacts {
    Text name;
    Text data;
    Rect row; ///< client pixels of the list
    int level = 1;
    bool hasChildren = false;
    bool collapsed = true;
    bool selected = false;
    bool readOnly = false;
    bool invalid = false;
    bool warning = false;

    friend bool operator==(const RowFacts&, const RowFacts&) = default;
};
