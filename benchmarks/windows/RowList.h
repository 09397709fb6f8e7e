// The row list of the control alone, with rows for a collection: what of the control's work the list does.
#pragma once

#include "benchmarks/windows/GridData.h"
#include "benchmarks/windows/ListWindow.h"
#include "list/prpPropItem.h"
#include "list/qorODListBox.h"

#include <memory>
#include <vector>

class RowList : private GridHost {
public:
    explicit RowList(const GridData& data);
    virtual ~RowList();
    RowList(const RowList&) = delete;
    RowList& operator=(const RowList&) = delete;

    /// Makes the rows, reads them, shows them.
    void Fill();
    void Repaint() { RepaintList(m_list.Handle()); }
    int PaintedRows() const { return RowsInSight(m_list.Handle()); }
    /// Gives the changing properties new values, counting up from one, refreshes their rows and paints.
    void Change(double start);

private:
    void AddGridReference() noexcept override {}
    void ReleaseGridReference() noexcept override {}
    void FireExtendedInfoButtonClicked(CprpPropItem&) override {}
    void FireMultiEditStart() override {}
    void FireMultiEditEnd() override {}
    COLORREF CategoryBackground() const override { return 0xFFF5F5; }

    const GridData& m_data;
    std::vector<std::unique_ptr<CprpMultiplePropInfo>> m_nodes; ///< one for each setting
    ParentWindow m_parent;
    CqorODListBox m_list;
};
