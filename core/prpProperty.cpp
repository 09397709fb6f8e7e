// The property as an object: its life, its place in the tree and its typed accessors.
#include "core/prpProperty.h"

#include "core/DataTypes.h"
#include "core/NumberRules.h"
#include "core/prpPropertyCollection.h"
#include "frame/NumberText.h"

#include <cmath>

const Origin CprpProperty::kOrigin{CLSID_prpProperty, IID_IqorProperty};

namespace {

bool HoldsLong(LONG type)
{
    return type == E_PROP_DT_LONG || type == E_PROP_DT_DWORD || type == E_PROP_DT_ENUM;
}

bool HoldsDouble(LONG type)
{
    return type == E_PROP_DT_DOUBLE || type == E_PROP_DT_ANGLE || type == E_PROP_DT_LINEAR ||
           type == E_PROP_DT_FULL_PRECISION || type == E_PROP_DT_FORM;
}

/// Hands a property out with a reference for the caller; null stays null.
IqorProperty* Handed(CprpProperty* property)
{
    if (property)
        static_cast<IqorProperty*>(property)->AddRef();
    return property;
}

} // namespace

ULONG CprpProperty::InternalAddRef()
{
    if (m_pCollection)
        m_pCollection->CountReference(1);
    return CComObjectRootEx::InternalAddRef();
}

ULONG CprpProperty::InternalRelease()
{
    if (m_pCollection)
        m_pCollection->CountReference(-1);
    return CComObjectRootEx::InternalRelease();
}

void CprpProperty::FinalRelease()
{
    if (!Children().IsEmpty())
        ReleaseAll(ChildrenToChange());
    if (m_pCollection)
        m_pCollection->Forget(*this);
    m_pCollection = nullptr;
    m_pExtras.Clear();
}

void CprpProperty::ReleaseAll(SiblingList<CprpProperty>& list)
{
    while (CprpProperty* first = list.First()) {
        if (first->ReferenceCount() == 1 && !first->Children().IsEmpty()) {
            list.TakeOverAhead(first->ChildrenToChange());
        } else {
            list.Unlink(*first);
            static_cast<IqorProperty*>(first)->Release();
        }
    }
}

void CprpProperty::Name(LONG id, LONG parentId) noexcept
{
    m_nPropID = id;
    m_nParentID = parentId;
}

void CprpProperty::Initialise(bool alwaysSave, LONG editFlags, LONG dataType, LONG_PTR hModule, LONG linkedId)
{
    m_bAlwaysSave = alwaysSave;
    m_nEditFlags = editFlags;
    PutDataType(dataType);
    if (hModule != 0)
        MakeExtras().hResModule = hModule;
    if (linkedId > 0)
        MakeExtras().linkedPropID = linkedId;
}

void CprpProperty::InitialiseName(LONG nameResID)
{
    // On purpose: -1, which the setter refuses, is what a property has whose name is given as text.
    if (nameResID == -1)
        MakeExtras().nameResID = nameResID;
    else if (nameResID != 0)
        Must(SetPropertyNameResID(nameResID));
}

void CprpProperty::InitialiseDisplay(bool visible, bool readOnly) noexcept
{
    // On purpose: the flag of post-processing stays set, so that a property added hidden still has its error text.
    m_bVisible = visible;
    m_bReadOnly = readOnly;
}

bool CprpProperty::InTransaction() const noexcept
{
    return m_pCollection && m_pCollection->InTransaction();
}

CprpPropertyCollection& CprpProperty::Owner(CallSite at) const
{
    if (!m_pCollection)
        ThrowInternal(at);
    return *m_pCollection;
}

CprpProperty::UnitRule CprpProperty::UnitRuleOfMode(CallSite at) const
{
    switch (Owner(at).UnitMode()) {
    case E_METRIC: return {kMetricThreshold, false};
    case E_IMPERIAL: return {kImperialThreshold, true};
    default: ThrowInternal(at);
    }
}

void CprpProperty::QueueStateEdit(bool visibilityChanged)
{
    Owner().QueueEvent(m_nPropID, E_PROP_EVENT_PROP_EDITED, visibilityChanged);
}

void CprpProperty::QueueValueEdit(const ValueText& oldText)
{
    Owner().QueueDataEvent(m_nPropID, E_PROP_EVENT_PROP_EDITED, oldText, false);
}

void CprpProperty::PutDataType(LONG type)
{
    if (type >= kDataTypeCount)
        MakeExtras().dataType = type;
    m_eDataType = type < kDataTypeCount ? static_cast<uint8_t>(type) : kUnknownType;
}

void CprpProperty::ReportParent(LONG parentId)
{
    if (parentId == m_nParentID)
        return;
    if (!m_bRedirected)
        MakeExtras().listOwnerID = m_nParentID;
    m_bRedirected = parentId != Extras().listOwnerID;
    m_nParentID = parentId;
}

CprpProperty* CprpProperty::GetNextSiblingOrUp() const
{
    for (const CprpProperty* node = this;;) {
        const CprpPropertyCollection& collection = node->Owner();
        if (!node->IsOnListOf(node->m_nParentID))
            ThrowInternal();
        if (CprpProperty* next = node->NextSibling())
            return next;
        if (node->m_nParentID == E_PROP_ID_TOP_LEVEL)
            return nullptr;
        node = collection.Find(node->m_nParentID);
    }
}

/// Walks the direct children in order of insertion.
/// @param PropID             -1 for the first child, else the child whose successor is wanted.
/// @param NextPropID         out, id of the child found, -1 at the end and for an id that is no child.
/// @param PropError          out, E_PROP_ERROR_PROP_ID_NOT_FOUND for an id that the collection does not know.
/// @param NextChildProperty  out, a reference for the caller, or null.
/// Raises, in this order: null pointers, no open transaction.
STDMETHODIMP CprpProperty::GetNextChildProperty(LONG PropID, LONG* NextPropID, EprpPropError* PropError,
                                                IqorProperty** NextChildProperty)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetNextChildProperty"), [&](const Checks& require) {
        require.Pointer(NextPropID, OLESTR("pnNextPropID"));
        require.Pointer(PropError, OLESTR("pePropError"));
        require.Pointer(NextChildProperty, OLESTR("ppIProperty"));
        require.Transaction(InTransaction());

        *PropError = E_PROP_ERROR_NONE;
        *NextPropID = E_PROP_ID_INVALID;
        *NextChildProperty = nullptr;
        CprpProperty* next = Children().First();
        if (PropID != E_PROP_ID_INVALID) {
            const CprpProperty* known = Owner().Find(PropID);
            if (!known)
                *PropError = E_PROP_ERROR_PROP_ID_NOT_FOUND;
            next = known && known->IsOnListOf(Id()) ? known->NextSibling() : nullptr;
        }
        if (next) {
            *NextPropID = next->Id();
            *NextChildProperty = Handed(next);
        }
    });
}

/// Finds any property of the whole collection, not only a child.
/// @param PropError  out, E_PROP_ERROR_PROP_ID_NOT_FOUND for an unknown id.
/// @param Property   out, a reference for the caller, or null.
/// Raises, in this order: null pointers, no open transaction, negative id.
STDMETHODIMP CprpProperty::GetProperty(LONG PropID, EprpPropError* PropError, IqorProperty** Property)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetProperty"), [&](const Checks& require) {
        if (PropError)
            *PropError = E_PROP_ERROR_NONE;
        require.Pointer(PropError, OLESTR("pePropError"));
        require.Pointer(Property, OLESTR("ppIProperty"));
        require.Transaction(InTransaction());
        require.NotNegative(PropID);

        CprpProperty* found = Owner().Find(PropID);
        *Property = Handed(found);
        if (!found)
            *PropError = E_PROP_ERROR_PROP_ID_NOT_FOUND;
    });
}

/// Id of the property, unique in its collection. Needs no transaction. Raises: null pointer.
STDMETHODIMP CprpProperty::GetPropertyID(LONG* PropertyID)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetPropertyID"), [&](const Checks& require) {
        require.Pointer(PropertyID, OLESTR("pnPropertyID"));
        *PropertyID = m_nPropID;
    });
}

/// Number of direct children. Raises, in this order: null pointer, no open transaction.
STDMETHODIMP CprpProperty::GetCount(LONG* Count)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetCount"), [&](const Checks& require) {
        require.Pointer(Count, OLESTR("pnCount"));
        require.Transaction(InTransaction());
        *Count = static_cast<LONG>(Children().Count());
    });
}

/// Id of the parent, -2 at the top level. A child that outlives its parent keeps the parent's id.
/// Raises, in this order: null pointer, no open transaction.
STDMETHODIMP CprpProperty::GetParentProperty(LONG* ParentPropID)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetParentProperty"), [&](const Checks& require) {
        require.Pointer(ParentPropID, OLESTR("pnParentPropID"));
        require.Transaction(InTransaction());
        *ParentPropID = m_nParentID;
    });
}

/// Points at another parent; an unknown id, -2 included, clears the parent. Raises: no open transaction.
STDMETHODIMP CprpProperty::SetParentProperty(LONG ParentPropID)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetParentProperty"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        // On purpose: the child lists stay as they are and nothing is announced; hosts use it to redirect a walk.
        ReportParent(Owner().Find(ParentPropID) ? ParentPropID : LONG{E_PROP_ID_TOP_LEVEL});
    });
}

/// Type of the value. Raises, in this order: null pointer, no open transaction.
STDMETHODIMP CprpProperty::GetDataType(EprpPropDataType* DataType)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetDataType"), [&](const Checks& require) {
        require.Pointer(DataType, OLESTR("peDataType"));
        require.Transaction(InTransaction());
        *DataType = CprpProperty::DataType();
    });
}

/// Type of the value; converts nothing and announces nothing. Types outside the enumeration are stored and behave
/// like E_PROP_DT_NONE. Raises, in this order: negative type, no open transaction.
STDMETHODIMP CprpProperty::SetDataType(EprpPropDataType DataType)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetDataType"), [&](const Checks& require) {
        require.NotNegative(static_cast<LONG>(DataType));
        require.Transaction(InTransaction());
        PutDataType(static_cast<LONG>(DataType));
    });
}

/// Value of an integer, unsigned or enumerated property.
/// @param PropError  out, E_PROP_ERROR_WRONG_DATA_TYPE for any other type; untouched on success.
/// Raises, in this order: null pointers. Needs no transaction.
STDMETHODIMP CprpProperty::GetPropertyLong(EprpPropError* PropError, LONG* LongData)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetPropertyLong"), [&](const Checks& require) {
        require.Pointer(PropError, OLESTR("pePropError"));
        require.Pointer(LongData, OLESTR("pnLongData"));
        if (HoldsLong(m_eDataType))
            *LongData = m_nLong;
        else
            *PropError = E_PROP_ERROR_WRONG_DATA_TYPE;
    });
}

/// Value of an integer, unsigned or enumerated property. An equal value announces nothing.
/// @param PropError  out, E_PROP_ERROR_WRONG_DATA_TYPE for any other type.
/// Raises, in this order: null pointer; for a differing value: no open transaction.
STDMETHODIMP CprpProperty::SetPropertyLong(LONG LongData, EprpPropError* PropError)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetPropertyLong"), [&](const Checks& require) {
        require.Pointer(PropError, OLESTR("pePropError"));
        *PropError = E_PROP_ERROR_NONE;
        if (!HoldsLong(m_eDataType)) {
            *PropError = E_PROP_ERROR_WRONG_DATA_TYPE;
            return;
        }
        StoreLong(LongData);
    });
}

void CprpProperty::StoreLong(LONG value)
{
    if (value == m_nLong)
        return;
    const ValueText& old = RenderForEdit();
    m_nLong = value;
    QueueValueEdit(old);
}

/// Value of a real property in the collection's unit mode. A date is written as a number and not read as one.
/// @param PropError  out, E_PROP_ERROR_WRONG_DATA_TYPE for any other type; untouched on success.
/// Raises, in this order: null pointers. Needs no transaction.
STDMETHODIMP CprpProperty::GetPropertyDouble(EprpPropError* PropError, double* DoubleData)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetPropertyDouble"), [&](const Checks& require) {
        require.Pointer(PropError, OLESTR("pePropError"));
        require.Pointer(DoubleData, OLESTR("pdbDoubleData"));
        if (HoldsDouble(m_eDataType))
            *DoubleData = m_dbDouble;
        else
            *PropError = E_PROP_ERROR_WRONG_DATA_TYPE;
    });
}

/// Value of a real property or a date, in the collection's unit mode. Values above 1e14 become 1e14. A value closer
/// to the present one than 0.0001 (metric) or 0.00001 (imperial) changes nothing.
/// @param PropError  out, E_PROP_ERROR_WRONG_DATA_TYPE for any other type; untouched on success.
/// Raises, in this order: null pointer; a unit mode that is neither metric nor imperial (internal error); for a
/// differing value: no open transaction.
STDMETHODIMP CprpProperty::SetPropertyDouble(double DoubleData, EprpPropError* PropError)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetPropertyDouble"), [&](const Checks& require) {
        require.Pointer(PropError, OLESTR("pePropError"));
        if (!HoldsDouble(m_eDataType) && m_eDataType != E_PROP_DT_DATE) {
            *PropError = E_PROP_ERROR_WRONG_DATA_TYPE;
            return;
        }
        const UnitRule rule = UnitRuleOfMode();
        double value = DoubleData;
        if (IsGreaterAt(value, kValueLimit, DecimalsFor(NumberKind::Plain, rule.imperial))) {
            value = kValueLimit;
            // On purpose ahead of the comparison: the shown text of a date so changes without an event.
            m_Value = ValueText::OfText(FormatGeneral(value));
        }
        if (NearlyEqual(std::fabs(m_dbDouble - value), rule.threshold))
            return;
        const ValueText& old = RenderForEdit();
        m_dbDouble = value;
        QueueValueEdit(old);
        if (m_eDataType == E_PROP_DT_FULL_PRECISION || m_eDataType == E_PROP_DT_DATE)
            m_Value = ValueText::OfText(FormatGeneral(value));
    });
}

/// Refused with E_NOTIMPL and without an error object: there is no font of a property.
/// Raises, in this order: null pointer, no open transaction.
STDMETHODIMP CprpProperty::SetFont(IFontDisp* Font)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetFont"), [&](const Checks& require) -> HRESULT {
        require.Pointer(Font, OLESTR("pIFont"));
        require.Transaction(InTransaction());
        return E_NOTIMPL;
    });
}
