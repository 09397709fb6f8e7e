// The whole control in a container: rows by ShowProperties, refreshed by the events of the collection.
#pragma once

#include "benchmarks/windows/GridData.h"
#include "benchmarks/windows/ListWindow.h"
#include "tests/support/windows/ControlContainer.h"
#include "viewer/prpCollectionViewerCtrl.h"

class ControlGrid {
public:
    explicit ControlGrid(const GridData& data);
    ~ControlGrid();
    ControlGrid(const ControlGrid&) = delete;
    ControlGrid& operator=(const ControlGrid&) = delete;

    void Fill();
    void Repaint() { RepaintList(m_list); }
    int PaintedRows() const { return RowsInSight(m_list); }
    /// Gives the changing properties new values, counting up from one, in a transaction that fires, and paints.
    void Change(double start);

private:
    const GridData& m_data;
    ParentWindow m_parent;
    CComPtr<IOleClientSite> m_site;
    CComPtr<IprpCollectionViewerCtrl> m_control;
    HWND m_list = nullptr;
};
