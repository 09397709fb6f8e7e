// The place that messages of the collection viewer name: one source for all of its files.
#pragma once

#include "frame/CallSite.h"

inline constexpr const char* kViewerSource = ".\\prpCollectionViewerCtrl";

/// The line of the check, under the viewer's name.
constexpr CallSite InViewer(unsigned line = __builtin_LINE())
{
    return {kViewerSource, line};
}
