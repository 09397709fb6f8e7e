// A control in the small: a window with the list in it, collections, their rows, and what the control does for their
// events. Writes down everything that a host would hear of.
#pragma once

#include "list/prpPropItem.h"
#include "list/qorODListBox.h"
#include "tests/core/ModelFixture.h"
#include "tests/support/windows/WindowTools.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

/// Colours that no two states share, so that a pixel tells its state.
struct TestColours {
    static constexpr COLORREF background = 0xFEFEFE;
    static constexpr COLORREF highlight = 0xC06030;
    static constexpr COLORREF normalText = 0x101010;
    static constexpr COLORREF invalidText = 0x0000F0;
    static constexpr COLORREF invalidItem = 0x2020E0;
    static constexpr COLORREF highlightedText = 0xF0F0E0;
    static constexpr COLORREF gridLine = 0xC4C4C4;
    static constexpr COLORREF inactiveHighlight = 0xD2D2D2;
    static constexpr COLORREF inactiveHighlightedText = 0x400000;
    static constexpr COLORREF readOnlyData = 0x787878;
    static constexpr COLORREF category = 0xFFF5F5;
};

class TestGrid : public GridHost {
public:
    explicit TestGrid(DWORD extraStyle = 0);
    virtual ~TestGrid();
    TestGrid(const TestGrid&) = delete;
    TestGrid& operator=(const TestGrid&) = delete;

    // GridHost
    void AddGridReference() noexcept override { ++references; }
    void ReleaseGridReference() noexcept override { --references; }
    void FireExtendedInfoButtonClicked(CprpPropItem& item) override;
    void FireMultiEditStart() override { Heard("MultiEditStart"); }
    void FireMultiEditEnd() override { Heard("MultiEditEnd"); }
    COLORREF CategoryBackground() const override { return TestColours::category; }

    /// Another collection, the first one first; all of them get what is added.
    IqorPropertyCollection& AddCollection();
    IqorPropertyCollection& Collection(std::size_t index = 0) { return *collections[index]; }
    /// Adds a property to all collections, with the editing flags of a plain editable value by default.
    void Add(LONG id, EprpPropDataType type, LONG parent = E_PROP_ID_TOP_LEVEL, LONG editFlags = E_PROP_EDIT_VALUE);
    /// Changes a property in a transaction, with its events.
    void Change(LONG id, const std::function<void(IqorProperty*)>& change, std::size_t collection = 0);
    Text ValueOf(LONG id, std::size_t collection = 0);

    /// Makes the rows of everything that was added.
    void Show();
    void Clear();
    CprpPropItem& Item(LONG id) { return *m_nodes.at(id)->m_pItem; }
    bool HasItem(LONG id) const { return m_nodes.count(id) && m_nodes.at(id)->m_pItem; }
    int RowOf(LONG id) { return list.FindRow(Item(id)); }
    /// -1 for no item.
    LONG IdOf(const CqorLBItem* item) const;
    /// Selects as a click on the name does.
    void Click(LONG id, WPARAM keys = 0) { ClickAt(list.Handle(), NamePoint(id), keys); }
    Point NamePoint(LONG id);
    Point DataPoint(LONG id);
    Point BoxPoint(LONG id);
    RowRects Rects(LONG id) { return list.RectsOf(RowOf(id)); }
    Picture Look();
    /// What a host heard since it was last asked.
    std::vector<std::string> Sounds();

    HWND window = nullptr;
    CqorODListBox list;
    std::vector<CComPtr<IqorPropertyCollection>> collections;
    std::vector<std::string> heard;
    /// Called inside each event of the name, once per event.
    std::map<std::string, std::function<void()>> reactions;
    int references = 0;
    Point rightDownAt;         ///< of the last WM_RBUTTONDOWN
    LRESULT messageAnswer = 0; ///< to WM_CUT, WM_COPY, WM_PASTE and the registered messages

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void Heard(std::string event);
    void OnEvents(IqorStream* stream);
    void OnEdited(LONG id, bool visibilityChanged);
    void OnDeleted(LONG id);
    void ForgetRowsOf(CprpMultiplePropInfo& node);
    CprpPropItem* MakeRow(CprpMultiplePropInfo& node, CqorLBItem* parent);

    std::vector<std::unique_ptr<ConnectedSink>> m_sinks;
    std::map<LONG, CprpMultiplePropInfo*> m_nodes;
    std::vector<std::unique_ptr<CprpMultiplePropInfo>> m_roots;
};
