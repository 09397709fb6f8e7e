// Which parts of a tolerance its type selects: one table for comparing, writing, reading and scaling.
#pragma once

#include "core/prpTolerance.h"

#include <cstddef>
#include <iterator>
#include <span>

inline constexpr std::size_t kAxes = 3;
inline constexpr std::size_t kDatums = 3;

/// What a tolerance type selects: so many of the linear and of the geometric parts, from X on.
struct PartsRule {
    EprpToleranceType type;
    std::size_t linear;
    std::size_t gdt;
    bool lengths; ///< its numbers are lengths, which a change of the unit multiplies
};

inline constexpr PartsRule kPartsRules[] = {
    {E_TOL_TYPE_NONE, 0, 0, false},       {E_TOL_TYPE_LINEAR, 1, 0, true},     {E_TOL_TYPE_ANGULAR, 1, 0, false},
    {E_TOL_TYPE_RECTANGULAR, 3, 0, true}, {E_TOL_TYPE_GDT_LINEAR, 0, 1, true}, {E_TOL_TYPE_GDT_RECTANGULAR, 0, 3, true},
};

constexpr bool IsOrderedByType(std::span<const PartsRule> rules)
{
    for (std::size_t i = 0; i < rules.size(); ++i) {
        if (static_cast<std::size_t>(rules[i].type) != i)
            return false;
    }
    return true;
}
static_assert(IsOrderedByType(kPartsRules));

/// The rule of a type; an internal error for a number that is none.
inline const PartsRule& PartsOf(LONG type)
{
    CprpTolerance::RequireType(type);
    return kPartsRules[type];
}
