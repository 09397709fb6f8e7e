// Text and width of a row's tooltip.
#pragma once

#include "list/Metrics.h"
#include "list/RowLayout.h"
#include "platform/com/Ole.h"

/// The four tip texts of a row. Help texts of property rows arrive in `error`, which they share.
struct TipTexts {
    TextView error = {};
    TextView warning = {};
    TextView help = {};
    TextView fallback = {};
};

/// @param warningPrefix  stands before a warning in a property list
Text TipTextOf(const TipTexts& texts, ListType type, TextView warningPrefix);

/// Widest tip for a width of the list.
constexpr int MaxTipWidth(int listWidth, const ListMetrics& m = kListMetrics)
{
    return static_cast<int>(listWidth * m.tipWidthFactor);
}
