// What an import found, kept and could not keep. Nothing of a document goes missing without an entry here.
#pragma once

#include "tools/lvprop/QifKinds.h"

#include <map>
#include <string>
#include <vector>

struct QifKindCount {
    std::string kind;
    QifFamily family = QifFamily::None;
    size_t count = 0;
};

struct QifReport {
    std::string version;
    std::string unit; ///< the document's linear unit as it calls it, and what became of it

    std::vector<QifKindCount> definitions; ///< by kind, in order of first appearance
    std::map<std::string, size_t> carried; ///< what the tree now holds
    std::map<std::string, size_t> altered; ///< what the tree holds in another form, and why
    std::map<std::string, size_t> left;    ///< what has no counterpart, by kind
    std::vector<std::string> faults;       ///< one by one, with line

    size_t CountOf(QifFamily family) const
    {
        size_t count = 0;
        for (const QifKindCount& entry : definitions)
            if (entry.family == family)
                count += entry.count;
        return count;
    }
};
