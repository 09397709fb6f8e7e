// When two positions are the same.
#pragma once

#include "LV_prpPropCollection.h"
#include "core/NumberRules.h"

#include <cmath>

/// Each coordinate is closer to its counterpart than the threshold.
inline bool SamePlace(const SprpPosition& left, const SprpPosition& right, double threshold)
{
    return NearlyEqual(std::fabs(left.X - right.X), threshold) && NearlyEqual(std::fabs(left.Y - right.Y), threshold) &&
           NearlyEqual(std::fabs(left.Z - right.Z), threshold);
}
