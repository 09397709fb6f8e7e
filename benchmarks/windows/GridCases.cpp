#include "benchmarks/windows/GridCases.h"

#include "benchmarks/windows/BareList.h"
#include "benchmarks/windows/ControlGrid.h"
#include "benchmarks/windows/GridData.h"
#include "benchmarks/windows/RowList.h"

namespace {

/// The list that a page and a refresh are measured on, filled.
template <class List>
struct FilledList {
    explicit FilledList(int64_t size) : data(Shared<GridData>(size)), list(*data) { list.Fill(); }
    std::shared_ptr<GridData> data;
    List list;
};

template <class List>
Prepared PrepareFill(int64_t size)
{
    const auto data = Shared<GridData>(size);
    const auto run = [data] {
        List list(*data);
        return Timed([&] { list.Fill(); });
    };
    return {run, static_cast<double>(data->Rows().size())};
}

template <class List>
Prepared PreparePage(int64_t size)
{
    const auto filled = std::make_shared<FilledList<List>>(size);
    const auto run = [filled] { return Timed([&] { filled->list.Repaint(); }); };
    return {run, static_cast<double>(filled->list.PaintedRows())};
}

template <class List>
Prepared PrepareRefresh(int64_t size)
{
    const auto filled = std::make_shared<FilledList<List>>(size);
    const auto run = [filled] {
        const double start = NextStartValue();
        return Timed([&] { filled->list.Change(start); });
    };
    return {run, static_cast<double>(kBatchSize)};
}

template <class List>
void AddCasesOf(std::vector<Case>& cases, const std::string& who)
{
    cases.push_back({"W10fill", who, &PrepareFill<List>});
    cases.push_back({"W10page", who, &PreparePage<List>});
    cases.push_back({"W10refresh", who, &PrepareRefresh<List>});
}

} // namespace

void AddGridCases(std::vector<Case>& cases)
{
    AddCasesOf<BareList>(cases, "limit_listbox");
    AddCasesOf<RowList>(cases, "ours_list");
    AddCasesOf<ControlGrid>(cases, "ours");
}
