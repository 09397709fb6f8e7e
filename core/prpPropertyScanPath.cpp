// The scan path of a property: a list of points, exchanged one at a time or as text. Points are doubles in the
// collection's unit mode and pass through single precision on their way to and from text. Every property owns a
// list, whatever its data type.
#include "core/NumberRules.h"
#include "core/PositionRules.h"
#include "core/VariantBool.h"
#include "core/prpProperty.h"
#include "core/prpPropertyCollection.h"
#include "frame/NumberScan.h"
#include "frame/NumberText.h"
#include "frame/TextTools.h"

#include <stdexcept>
#include <utility>

namespace {

/// Points that a list may have: as many as fit into 32 bits of bytes.
constexpr std::size_t kMostPoints = 178956970;

constexpr TextView kLineEnd = OLESTR("\r\n");

/// Three columns of ten, two commas and the line end; wider numbers take more.
constexpr std::size_t kUnitsOfLine = 34;

constexpr int kMetricDecimals = 4;
constexpr int kImperialDecimals = 5;

/// Unlike elsewhere a mode that is neither metric nor imperial is no error here: it reads as imperial.
bool IsMetric(const CprpPropertyCollection& collection)
{
    return collection.UnitMode() == E_METRIC;
}

void AppendCoordinate(Text& out, double value, int decimals)
{
    AppendColumn(out, static_cast<float>(value), decimals);
}

/// False, with the point untouched, when the line does not start with three numbers between commas.
bool ReadLine(TextView line, SprpPosition& point)
{
    constexpr OLECHAR comma = ',';
    TextScanner scanner(line);
    float x = 0;
    float y = 0;
    float z = 0;
    if (!scanner.ReadFloat(x) || !scanner.ReadLiteral(comma) || !scanner.ReadFloat(y) || !scanner.ReadLiteral(comma) ||
        !scanner.ReadFloat(z))
        return false;
    point = {x, y, z};
    return true;
}

} // namespace

/// Number of points. Raises, in this order: null pointer, no open transaction.
STDMETHODIMP CprpProperty::GetScanPathListCount(LONG* Count)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetScanPathListCount"), [&](const Checks& require) {
        require.Pointer(Count, OLESTR("pnCount"));
        require.Transaction(InTransaction());
        *Count = static_cast<LONG>(Extras().scanPath->size());
    });
}

/// Replaces or appends a point. A point that is closer to the stored one than 0.0001 (metric) or 0.00001 (other
/// modes) in each coordinate changes nothing; otherwise all three coordinates are taken.
/// @param Index                zero-based; beyond the end the gap is filled with copies of the new point, and -1
///                             empties the list.
/// @param vbSupressEditEvents  a change is not announced.
/// @param pvbDataChanged       out, whether the list grew or the point changed.
/// Raises, in this order: no open transaction, null pointer, more points than a list may have.
STDMETHODIMP CprpProperty::SetScanPathPointAt(LONG Index, SprgScanPathPoint NewScanPathPoint,
                                              VARIANT_BOOL vbSupressEditEvents, VARIANT_BOOL* pvbDataChanged)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetScanPathPointAt"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        require.Pointer(pvbDataChanged, OLESTR("pvbDataChanged"));
        *pvbDataChanged = VARIANT_FALSE;
        if (vbSupressEditEvents) {
            *pvbDataChanged = Out(PutScanPathPoint(Index, NewScanPathPoint.Position));
            return;
        }
        const ValueText old = RenderForEdit();
        if (!PutScanPathPoint(Index, NewScanPathPoint.Position))
            return;
        *pvbDataChanged = VARIANT_TRUE;
        QueueValueEdit(old);
    });
}

bool CprpProperty::PutScanPathPoint(LONG index, const SprpPosition& point)
{
    const double threshold = IsMetric(Owner()) ? kMetricThreshold : kImperialThreshold;
    std::vector<SprpPosition>& points = MakeExtras().scanPath.Make();
    // On purpose unsigned: -1 is beyond every end and asks for a list of no points at all.
    const auto at = static_cast<std::size_t>(index);
    if (at < points.size()) {
        if (SamePlace(points[at], point, threshold))
            return false;
        points[at] = point;
        return true;
    }
    const std::size_t count = at + 1;
    if (count > kMostPoints)
        throw std::length_error("scan path");
    points.resize(count, point);
    return true;
}

/// Copies a point. Needs no transaction.
/// @param Index     zero-based; the number of points itself is let through and reads a zero point.
/// @param Position  out, in the collection's unit mode.
/// Raises, in this order: null pointer, index out of range.
STDMETHODIMP CprpProperty::GetScanPathPointAt(LONG Index, SprgScanPathPoint* Position)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetScanPathPointAt"), [&](const Checks& require) {
        require.Pointer(Position, OLESTR("PropertyString"));
        const std::vector<SprpPosition>& points = *Extras().scanPath;
        const auto at = static_cast<std::size_t>(Index);
        if (at > points.size())
            ThrowFormatted(CallSite::current(), OLESTR("The index (%i) passeed to %s is out of bounds (0 to %i)"),
                           Index, require.method, static_cast<LONG>(points.size()) - 1);
        Position->Position = at < points.size() ? points[at] : SprpPosition{};
    });
}

/// All points as text, one to a line, three columns of 4 decimals (metric) or 5 (other modes), no line end at the end.
/// @param PropertyString  out, must come in null; the caller frees it.
/// Raises, in this order: null pointer, non-null out string, no open transaction.
STDMETHODIMP CprpProperty::GetScanPathString(BSTR* PropertyString)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetScanPathString"), [&](const Checks& require) {
        require.Pointer(PropertyString, OLESTR("PropertyString"));
        require.EmptyString(PropertyString, OLESTR("PropertyString"));
        require.Transaction(InTransaction());
        Text text;
        AppendScanPath(text);
        *PropertyString = NewBstr(text);
    });
}

void CprpProperty::AppendScanPath(Text& out) const
{
    const int decimals = IsMetric(Owner()) ? kMetricDecimals : kImperialDecimals;
    const std::vector<SprpPosition>& points = *Extras().scanPath;
    out.reserve(out.size() + points.size() * kUnitsOfLine);
    bool first = true;
    for (const SprpPosition& point : points) {
        if (!std::exchange(first, false))
            out += kLineEnd;
        AppendCoordinate(out, point.X, decimals);
        out += OLESTR(',');
        AppendCoordinate(out, point.Y, decimals);
        out += OLESTR(',');
        AppendCoordinate(out, point.Z, decimals);
    }
}

/// Takes all points from text; null counts as empty. Lines that do not start with three numbers are skipped and take
/// no index. Always announces one change, which carries the former points as text. Raises: no open transaction.
STDMETHODIMP CprpProperty::InitialiseScanPathFromString(BSTR PropertyString)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::InitialiseScanPathFromString"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        StoreScanPathText(ViewOf(PropertyString));
    });
}

void CprpProperty::StoreScanPathText(TextView text)
{
    Text old;
    AppendScanPath(old);
    std::vector<SprpPosition> points;
    for (const TextView line : SplitAt(text, kLineEnd)) {
        SprpPosition point;
        if (ReadLine(TrimWhiteSpace(line), point))
            points.push_back(point);
    }
    if (Extras().scanPath || !points.empty())
        MakeExtras().scanPath.Make() = std::move(points);
    QueueValueEdit(ValueText::OfText(old));
}

/// Empties the list and announces a change, also on an empty list. Raises: no open transaction.
STDMETHODIMP CprpProperty::RemoveAllPathPoints()
{
    return InFrame(kOrigin, OLESTR("CprpProperty::RemoveAllPathPoints"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        StoreScanPathText({});
    });
}
