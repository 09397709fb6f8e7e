// Names wider than their column lose their tail to three dots.
#pragma once

#include "list/Metrics.h"
#include "platform/com/Ole.h"

#include <algorithm>

/// @param fitting  how many leading characters fit into the column, measured without the dots. At least one
///                 character of the name stays, so that a very narrow column may show more than fits.
inline Text ShortenName(TextView name, std::size_t fitting, const ListMetrics& m = kListMetrics)
{
    if (fitting >= name.size())
        return Text(name);
    const std::size_t shortest = static_cast<std::size_t>(m.shortNameMinimum);
    const std::size_t dots = static_cast<std::size_t>(m.shortNameDots);
    const std::size_t kept = std::min(std::max(fitting, shortest), name.size());
    return Text(name.substr(0, kept > dots ? kept - dots : 1)).append(OLESTR("..."));
}
