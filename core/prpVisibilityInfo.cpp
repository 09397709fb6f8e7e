#include "core/prpVisibilityInfo.h"

#include "platform/atl/ComPtr.h"

#include <algorithm>

const Origin CprpVisibilityInfo::kOrigin{CLSID_prpVisibilityInfo, IID_IprpVisibilityInfo};

namespace {

/// In a row: matches every value. So a control's own -1 cannot be singled out.
constexpr LONG kAnyValue = -1;

/// A row shorter than the controls does not match; values beyond them are ignored.
bool Matches(const std::vector<LONG>& row, const std::vector<LONG>& values)
{
    return row.size() >= values.size() &&
           std::equal(values.begin(), values.end(), row.begin(),
                      [](LONG value, LONG wanted) { return wanted == value || wanted == kAnyValue; });
}

} // namespace

/// Evaluates the rule on the present values of a collection.
/// @param IsVisible  out, true when a row matches or when there are no controlling properties; false without rows, and
///                   when a raise ends the evaluation.
/// Raises, in this order: null pointers; what GetProperty raises, as without an open transaction; a controlling
/// property that the collection does not have.
STDMETHODIMP CprpVisibilityInfo::IsVisible(IqorPropertyCollection* PropCollection, VARIANT_BOOL* IsVisible)
{
    return InFrame(kOrigin, OLESTR("CprpVisibilityInfo::IsVisible"), [&](const Checks& require) {
        require.Pointer(PropCollection, OLESTR("pIPropCollection"));
        require.Pointer(IsVisible, OLESTR("pbIsVisible"));
        *IsVisible = VARIANT_TRUE;
        if (m_ControlPropIDs.empty())
            return;
        *IsVisible = VARIANT_FALSE;
        const std::vector<LONG> values = ControlValues(*PropCollection);
        if (std::any_of(m_ValueRows.begin(), m_ValueRows.end(),
                        [&](const std::vector<LONG>& row) { return Matches(row, values); }))
            *IsVisible = VARIANT_TRUE;
    });
}

std::vector<LONG> CprpVisibilityInfo::ControlValues(IqorPropertyCollection& collection) const
{
    std::vector<LONG> values;
    values.reserve(m_ControlPropIDs.size());
    for (const LONG id : m_ControlPropIDs) {
        EprpPropError error = E_PROP_ERROR_NONE;
        CComPtr<IqorProperty> property;
        Must(collection.GetProperty(id, &error, &property));
        if (error != E_PROP_ERROR_NONE || !property)
            ThrowFormatted(CallSite::current(), OLESTR("PropertyID %d was not found in the collection."), id);
        // On purpose the error is not looked at: a control without an integer value counts as 0.
        LONG value = 0;
        Must(property->GetPropertyLong(&error, &value));
        values.push_back(value);
    }
    return values;
}

/// Names the controlling properties in place of the present ones. Rows that were added stay as they are.
/// @param NumPropIDs  a negative count is 0: the rule then always answers visible.
/// Raises: null pointer with a positive count.
STDMETHODIMP CprpVisibilityInfo::AddControlProperties(LONG* PropIDs, LONG NumPropIDs)
{
    return InFrame(kOrigin, OLESTR("CprpVisibilityInfo::AddControlProperties"), [&](const Checks& require) {
        if (NumPropIDs <= 0) {
            m_ControlPropIDs.clear();
            return;
        }
        require.Pointer(PropIDs, OLESTR("pnPropIDs"));
        m_ControlPropIDs.assign(PropIDs, PropIDs + NumPropIDs);
    });
}

/// Adds a row: one value for each controlling property, -1 for any value. A row of another length is ignored without
/// a report, and so is every row while there are no controls.
/// Raises: null pointer with a fitting count.
STDMETHODIMP CprpVisibilityInfo::AddCtrlPropValues(LONG* PropValues, LONG NumPropValues)
{
    return InFrame(kOrigin, OLESTR("CprpVisibilityInfo::AddCtrlPropValues"), [&](const Checks& require) {
        if (NumPropValues <= 0 || static_cast<std::size_t>(NumPropValues) != m_ControlPropIDs.size())
            return;
        require.Pointer(PropValues, OLESTR("pnPropValues"));
        m_ValueRows.emplace_back(PropValues, PropValues + NumPropValues);
    });
}
