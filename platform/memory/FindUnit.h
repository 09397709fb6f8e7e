// Looks for one 16-bit unit in a text, eight units at a time where the processor can: std::find and the string
// classes go unit by unit.
#pragma once

#include "platform/com/Ole.h"

#include <algorithm>
#include <bit>

#if __has_include(<emmintrin.h>)
#include <emmintrin.h>

/// The first place of the unit; `end` when there is none.
inline const OLECHAR* FindUnit(const OLECHAR* at, const OLECHAR* end, OLECHAR unit) noexcept
{
    constexpr std::ptrdiff_t kUnits = sizeof(__m128i) / sizeof(OLECHAR);
    const __m128i wanted = _mm_set1_epi16(static_cast<short>(unit));
    const auto hitsFrom = [wanted](const OLECHAR* from) {
        const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi16(units, wanted))); // two bits to a unit
    };
    if (end - at < kUnits)
        return std::find(at, end, unit);
    for (; end - at >= kUnits; at += kUnits) {
        if (const unsigned hits = hitsFrom(at))
            return at + std::countr_zero(hits) / 2;
    }
    // The last units together with some that were looked at before.
    const unsigned hits = at != end ? hitsFrom(end - kUnits) : 0;
    return hits != 0 ? end - kUnits + std::countr_zero(hits) / 2 : end;
}
#else
inline const OLECHAR* FindUnit(const OLECHAR* at, const OLECHAR* end, OLECHAR unit) noexcept
{
    return std::find(at, end, unit);
}
#endif

inline bool Contains(TextView text, OLECHAR unit) noexcept
{
    const OLECHAR* const end = text.data() + text.size();
    return FindUnit(text.data(), end, unit) != end;
}
