// What the grid benchmarks show: a collection of values, sixteen to a category, with names; and the same as texts for
// a bare list box.
#pragma once

#include "benchmarks/Host.h"

#include <vector>

struct GridRow {
    bool isCategory;
    Text name;
    Text data;
};

class GridData {
public:
    explicit GridData(int64_t values);

    IqorPropertyCollection& Collection() const { return *m_collection; }
    const std::vector<Setting>& Settings() const { return m_data.Data().settings; }
    /// One for each setting, in the same order.
    const std::vector<GridRow>& Rows() const { return m_rows; }
    /// Places of a thousand reals to change together, drawn over the whole data.
    const std::vector<std::size_t>& Changing() const { return m_changing; }

private:
    HostData m_data;
    CComPtr<IqorPropertyCollection> m_collection;
    std::vector<GridRow> m_rows;
    std::vector<std::size_t> m_changing;
};

/// Gives the changing properties new values, counting up from one, in a transaction that the caller has open.
void GiveValues(const GridData& data, double start);
