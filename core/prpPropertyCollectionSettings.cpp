// Plain settings of a collection. Most of them need no transaction and take any value.
#include "core/prpPropertyCollection.h"

#include "core/SavedRecord.h"
#include "core/VariantBool.h"
#include "core/prpEventHelper.h"

namespace {

/// String resource that a missing default module is reported with.
constexpr UINT kDefaultModuleString = 32015;

} // namespace

/// Selects the helper that publishes events of other threads. The helper belongs to the thread that first used the
/// number, which must run a message loop (natively: pump its queue).
STDMETHODIMP CprpPropertyCollection::SetUniqueNumber(GUID Guuid)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::SetUniqueNumber"), [&](const Checks&) {
        m_guidUnique = Guuid;
        g_EventHelperList.Register(Guuid);
    });
}

/// Module of resources for properties that have none. Raises, in this order: no open transaction; for a null handle
/// the error of a string resource.
STDMETHODIMP CprpPropertyCollection::SetDefaultResourceInstance(LONG_PTR hModule)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::SetDefaultResourceInstance"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        if (!hModule)
            ThrowResource(kDefaultModuleString, 0); // the string counts path points elsewhere; its number is 0 here
        m_hDefaultResInstance = hModule;
    });
}

/// Id of the collection, written into each event; 0 until set. Raises, in this order: null pointer, no open
/// transaction.
STDMETHODIMP CprpPropertyCollection::GetCollectionID(LONG* PropCollectionID)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::GetCollectionID"), [&](const Checks& require) {
        require.Pointer(PropCollectionID, OLESTR("pnPropCollectionID"));
        require.Transaction(InTransaction());
        *PropCollectionID = m_nCollectionID;
    });
}

/// Raises, in this order: no open transaction, an id below 1 (with the message on negative parameters).
STDMETHODIMP CprpPropertyCollection::SetCollectionID(LONG PropCollectionID)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::SetCollectionID"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        require.NotNegative(PropCollectionID - (PropCollectionID == 0)); // 0 is refused as well
        m_nCollectionID = PropCollectionID;
    });
}

/// State that selects help texts and pictures; a number of the host's making.
STDMETHODIMP CprpPropertyCollection::SetState(LONG NewState)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::SetState"), [&](const Checks&) { m_nState = NewState; });
}

/// Decimals for saving and showing numbers; any value is stored. Raises: null pointer (internal error).
STDMETHODIMP CprpPropertyCollection::get_Precision(LONG* Precision)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::get_Precision"), [&](const Checks&) {
        if (!Precision)
            ThrowInternal();
        *Precision = m_nPrecision;
    });
}

STDMETHODIMP CprpPropertyCollection::put_Precision(LONG Precision)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::put_Precision"),
                   [&](const Checks&) { m_nPrecision = Precision; });
}

/// Multiplies all lengths by the factor of the target mode, also when that is the present mode, and stores the mode.
/// Needs no transaction and announces nothing. Raises: an internal error for a tolerance of a bad type, with a part
/// of the tree multiplied and the mode not stored.
STDMETHODIMP CprpPropertyCollection::ConvertUnit(EprpUnitMode UnitMode)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::ConvertUnit"), [&](const Checks&) {
        for (CprpProperty* property = m_listTopLevel.First(); property;) {
            const bool descend = property->ConvertPropertyUnit(UnitMode);
            property = descend ? NextOnLists(*property) : NextBesideOnLists(*property);
        }
        m_eUnitMode = static_cast<LONG>(UnitMode);
    });
}

/// Limit of typed numbers, symmetric around zero; only the viewers apply it.
STDMETHODIMP CprpPropertyCollection::SetMaxInputValue(double MaxValue)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::SetMaxInputValue"),
                   [&](const Checks&) { m_dbMaxInputValue = MaxValue; });
}

/// Raises: null pointer.
STDMETHODIMP CprpPropertyCollection::GetMaxInputValue(double* MaxValue)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::GetMaxInputValue"), [&](const Checks& require) {
        require.Pointer(MaxValue, OLESTR("pdbMaxValue"));
        *MaxValue = m_dbMaxInputValue;
    });
}

/// Stores the unit mode without conversion. Raises: E_UNITMODE_NONE (internal error).
STDMETHODIMP CprpPropertyCollection::SetUnitMode(EprpUnitMode UnitMode)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::SetUnitMode"), [&](const Checks&) {
        if (UnitMode == E_UNITMODE_NONE)
            ThrowInternal();
        m_eUnitMode = static_cast<LONG>(UnitMode);
    });
}

/// Raises: null pointer (internal error).
STDMETHODIMP CprpPropertyCollection::GetUnitMode(EprpUnitMode* UnitMode)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::GetUnitMode"), [&](const Checks&) {
        if (!UnitMode)
            ThrowInternal();
        *UnitMode = CprpPropertyCollection::UnitMode();
    });
}

/// Format of the next load: 0 or 1. It must be set before the first load. Raises: any other value (internal error).
STDMETHODIMP CprpPropertyCollection::put_LoadVersion(LONG LoadVersion)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::put_LoadVersion"), [&](const Checks&) {
        if (LoadVersion < 0 || LoadVersion > 1)
            ThrowInternal();
        m_nLoadVersion = LoadVersion;
    });
}

/// Marker that opens each saved record.
/// @param StartMarker  out, must come in null; the caller frees it.
/// Raises, in this order: null pointer, non-null out string.
STDMETHODIMP CprpPropertyCollection::get_StartMarker(BSTR* StartMarker)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::get_StartMarker"), [&](const Checks& require) {
        require.Pointer(StartMarker, OLESTR("pbstrStartMarker"));
        require.EmptyString(StartMarker, OLESTR("pbstrStartMarker"));
        *StartMarker = NewBstr(g_strStartMarker);
    });
}

/// Id of the category that keeps saved data without a property; -1 until a load has made it. Raises: null pointer.
STDMETHODIMP CprpPropertyCollection::GetUnusedSaveDataCategoryID(LONG* UnusedCategoryID)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::GetUnusedSaveDataCategoryID"), [&](const Checks& require) {
        require.Pointer(UnusedCategoryID, OLESTR("pnUnusedCategoryID"));
        *UnusedCategoryID = m_nUnusedCategoryID;
    });
}

/// Id of the category that keeps saved data of another type; -1 until a load has made it. Raises: null pointer.
STDMETHODIMP CprpPropertyCollection::GetMismatchedSaveDataCategoryID(LONG* MismatchedCategoryID)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::GetMismatchedSaveDataCategoryID"),
                   [&](const Checks& require) {
                       require.Pointer(MismatchedCategoryID, OLESTR("pnMismatchedCategoryID"));
                       *MismatchedCategoryID = m_nMismatchedCategoryID;
                   });
}

/// Whether saved records carry the read-only flag; on at first.
STDMETHODIMP CprpPropertyCollection::put_SaveReadOnlyStates(VARIANT_BOOL SaveReadOnlyStates)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::put_SaveReadOnlyStates"),
                   [&](const Checks&) { m_bSaveReadOnlyStates = SaveReadOnlyStates != VARIANT_FALSE; });
}

/// Raises: null pointer.
STDMETHODIMP CprpPropertyCollection::get_SaveReadOnlyStates(VARIANT_BOOL* SaveReadOnlyStates)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::get_SaveReadOnlyStates"), [&](const Checks& require) {
        require.Pointer(SaveReadOnlyStates, OLESTR("pbSaveReadOnlyStates"));
        *SaveReadOnlyStates = Out(m_bSaveReadOnlyStates);
    });
}

/// Whether saved records carry the edit flags; on at first.
STDMETHODIMP CprpPropertyCollection::put_SaveEditFlags(VARIANT_BOOL SaveEditFlags)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::put_SaveEditFlags"),
                   [&](const Checks&) { m_bSaveEditFlags = SaveEditFlags != VARIANT_FALSE; });
}

/// Raises: null pointer.
STDMETHODIMP CprpPropertyCollection::get_SaveEditFlags(VARIANT_BOOL* SaveEditFlags)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::get_SaveEditFlags"), [&](const Checks& require) {
        require.Pointer(SaveEditFlags, OLESTR("pbSaveEditFlags"));
        *SaveEditFlags = Out(m_bSaveEditFlags);
    });
}
