// Tells hosts around the writing of one value to several collections; the end comes even when the writing fails.
#pragma once

#include "list/GridHost.h"

class MultiEditScope {
public:
    /// @param viewer  may be null
    explicit MultiEditScope(GridHost* viewer) : m_viewer(viewer)
    {
        if (m_viewer)
            m_viewer->FireMultiEditStart();
    }
    ~MultiEditScope()
    {
        if (m_viewer)
            m_viewer->FireMultiEditEnd();
    }
    MultiEditScope(const MultiEditScope&) = delete;
    MultiEditScope& operator=(const MultiEditScope&) = delete;

private:
    GridHost* m_viewer;
};
