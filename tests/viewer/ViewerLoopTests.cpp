// Showing changing collections over and over leaves nothing behind: no window, no handle, no object, no byte.
//
// LV_VIEWER_ROUNDS in the environment sets the number of rounds.
#include "tests/support/windows/HeapCount.h"
#include "tests/viewer/ViewerHost.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <functional>

namespace {

struct Holdings {
    int windows = SubclassedWindow::LivingWindows();
    int controls = ControlBase::LivingWindows();
    int handles = LivingHandles::Count();
    LONG objects = Module::LockCount();
    std::size_t bytes = LivingBytes();

    friend bool operator==(const Holdings&, const Holdings&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Holdings& h)
    {
        return out << h.windows << " windows, " << h.controls << " controls, " << h.handles << " handles, " << h.objects
                   << " objects, " << h.bytes << " bytes";
    }
};

unsigned Rounds()
{
    const char* const value = std::getenv("LV_VIEWER_ROUNDS");
    return value ? static_cast<unsigned>(std::strtoul(value, nullptr, 10)) : 300;
}

/// A collection whose size and types change with the round.
CComPtr<IqorPropertyCollection> CollectionOf(unsigned round)
{
    constexpr EprpPropDataType kTypes[] = {E_PROP_DT_DOUBLE, E_PROP_DT_STRING_UNICODE, E_PROP_DT_LONG, E_PROP_DT_ENUM,
                                           E_PROP_DT_POSITION};
    auto collection = MakeObject<IqorPropertyCollection>(CLSID_prpPropertyCollection);
    Transact(collection, [&] {
        const LONG count = 4 + static_cast<LONG>(round % 9);
        EXPECT_EQ(AddTo(collection, {.id = 1, .type = E_PROP_DT_CATEGORY}), S_OK);
        for (LONG id = 2; id < count; ++id)
            EXPECT_EQ(AddTo(collection, {.id = id,
                                         .type = kTypes[(round + static_cast<unsigned>(id)) % std::size(kTypes)],
                                         .parent = id % 2 ? 1 : LONG{E_PROP_ID_TOP_LEVEL},
                                         .editFlags = E_PROP_EDIT_VALUE | E_PROP_EDIT_SHOW_EXTENDED_INFO}),
                      S_OK);
        EXPECT_EQ(AddTo(collection, {.id = 20, .type = E_PROP_DT_DOUBLE, .editFlags = E_PROP_EDIT_VALUE}), S_OK);
    });
    return collection;
}

/// Shows, paints, edits, closes.
void RunRound(ViewerHost& host, unsigned round)
{
    const auto first = CollectionOf(round);
    const auto second = CollectionOf(round + round % 3);
    IqorPropertyCollection* pointers[] = {first, second};
    ASSERT_EQ(host.control->ShowProperties(pointers, round % 2 ? 2 : 1), S_OK);
    ASSERT_GT(host.List().RowCount(), 1);
    ASSERT_TRUE(host.Edit(20));
    TypeCharacters(std::to_wstring(round));
    if (round % 4 == 0)
        host.control->EndInPlaceEdit();
    if (round % 5 == 0)
        host.control->CancelInPlaceEdit();
    if (round % 7 == 0)
        host.control->ExpandCollapseProperty(1, VARIANT_FALSE);
    Pump();
    host.sink->heard.clear();
}

} // namespace

TEST(ViewerLoop, LeavesNothingBehind)
{
    const unsigned rounds = Rounds();
    constexpr unsigned kWarmUp = 50;
    ViewerHost host;
    for (unsigned round = 0; round < kWarmUp; ++round)
        RunRound(host, round);
    host.control->Clear();
    Pump();
    const Holdings before;
    const std::size_t heapBefore = HeapBytes();
    for (unsigned round = 0; round < rounds; ++round)
        RunRound(host, round);
    host.control->Clear();
    Pump();
    const Holdings after;
    const std::size_t heapAfter = HeapBytes();
    EXPECT_EQ(after, before);
    // The system's own libraries may keep a table or a cache that has grown, but nothing for each round.
    EXPECT_LT(heapAfter, heapBefore + 8 * rounds + 0x8000);
    std::printf("%u rounds: %zu bytes of ours then and now, %zu and %zu bytes on all heaps\n", rounds, before.bytes,
                heapBefore, heapAfter);
}

TEST(ViewerLoop, LeavesNothingBehindOfWholeControls)
{
    const unsigned rounds = Rounds() / 10 + 5;
    const auto run = [](unsigned round) {
        ViewerHost host;
        RunRound(host, round);
    };
    for (unsigned round = 0; round < 5; ++round)
        run(round);
    Pump();
    const Holdings before;
    for (unsigned round = 0; round < rounds; ++round)
        run(round);
    Pump();
    EXPECT_EQ(Holdings(), before);
}

namespace {

double MedianMilliseconds(const std::function<void()>& run)
{
    std::vector<double> times;
    for (int i = 0; i < 5; ++i) {
        LARGE_INTEGER start{}, end{}, perSecond{};
        QueryPerformanceFrequency(&perSecond);
        QueryPerformanceCounter(&start);
        run();
        QueryPerformanceCounter(&end);
        times.push_back(1000.0 * static_cast<double>(end.QuadPart - start.QuadPart) /
                        static_cast<double>(perSecond.QuadPart));
    }
    std::ranges::sort(times);
    return times[times.size() / 2];
}

} // namespace

/// The figures are for reading; what a loaded machine does to them must not fail a test.
TEST(ViewerLoop, ShowsTenThousandRows)
{
    constexpr int kRows = 10000;
    ViewerHost host;
    auto collection = MakeObject<IqorPropertyCollection>(CLSID_prpPropertyCollection);
    Transact(collection, [&] {
        for (LONG id = 1; id <= kRows; ++id)
            EXPECT_EQ(AddTo(collection, {.id = id, .type = E_PROP_DT_DOUBLE, .editFlags = E_PROP_EDIT_VALUE}), S_OK);
    });
    IqorPropertyCollection* pointers[] = {collection};
    const double shown = MedianMilliseconds([&] {
        EXPECT_EQ(host.control->Clear(), S_OK);
        EXPECT_EQ(host.control->ShowProperties(pointers, 1), S_OK);
    });
    EXPECT_EQ(host.List().RowCount(), kRows);

    const HWND bare = CreateWindowW(L"ListBox", L"", WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_OWNERDRAWVARIABLE, 0, 0,
                                    300, 200, host.window.Handle(), nullptr, nullptr, nullptr);
    const double inserted = MedianMilliseconds([&] {
        SendMessageW(bare, LB_RESETCONTENT, 0, 0);
        SendMessageW(bare, WM_SETREDRAW, FALSE, 0);
        for (LPARAM i = 0; i < kRows; ++i)
            SendMessageW(bare, LB_INSERTSTRING, static_cast<WPARAM>(-1), i + 1);
        SendMessageW(bare, WM_SETREDRAW, TRUE, 0);
        RedrawWindow(bare, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    });
    EXPECT_EQ(SendMessageW(bare, LB_GETCOUNT, 0, 0), kRows);
    std::printf("%d rows: shown in %.1f ms, inserted into a bare list box in %.1f ms\n", kRows, shown, inserted);
}
