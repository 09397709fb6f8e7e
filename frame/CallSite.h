// Where a check stands: file and line, taken by a default argument at the place of the call.
#pragma once

/// Source place of a raising check. Stands in for std::source_location, which clang 14 lacks.
struct CallSite {
    const char* file;
    unsigned line;

    static constexpr CallSite current(const char* file = __builtin_FILE(), unsigned line = __builtin_LINE()) noexcept
    {
        return {file, line};
    }
};
