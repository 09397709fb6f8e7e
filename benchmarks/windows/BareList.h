// The floor: the platform's list box with the same rows, drawn from ready texts by the fewest calls.
#pragma once

#include "benchmarks/windows/GridData.h"
#include "benchmarks/windows/ListWindow.h"

class BareList {
public:
    explicit BareList(const GridData& data);
    ~BareList();
    BareList(const BareList&) = delete;
    BareList& operator=(const BareList&) = delete;

    void Fill();
    void Repaint() { RepaintList(m_list); }
    int PaintedRows() const { return RowsInSight(m_list); }
    /// Gives the changing rows new texts, counting up from a value, and paints.
    void Change(double start);

private:
    bool OnMessage(UINT message, LPARAM lParam, LRESULT& answer);
    void Draw(const DRAWITEMSTRUCT& item) const;

    std::vector<GridRow> m_rows;
    const std::vector<std::size_t>& m_changing;
    ParentWindow m_parent;
    HFONT m_font;
    HWND m_list;
};
