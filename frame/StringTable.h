// The server's own table of user-visible texts, in English: what stands in for a language library that is not there.
// The rows are made from lang/strings.txt, sorted by id; the same rows are the string table resource of the DLL.
#pragma once

#include "platform/com/Ole.h"

struct StringRow {
    uint32_t id;
    const OLECHAR* text;
};

extern const StringRow kOwnStrings[];
extern const std::size_t kOwnStringCount;
