// The collection as an object: its life, its tree, its walks and look-ups.
#include "core/prpPropertyCollection.h"

#include "core/prpEventHelper.h"
#include "frame/TextTools.h"

#include <limits>
#include <memory>

const Origin CprpPropertyCollection::kOrigin{CLSID_prpPropertyCollection, IID_IqorPropertyCollection};

std::atomic<DWORD> g_dwMainThreadId{0};

namespace {

constexpr const OLECHAR* kIdNotFoundText = OLESTR("PropertyID %d was not found in the collection.");
constexpr const OLECHAR* kInvalidParameterIdText =
    OLESTR("Invalid property ID passed in parameter \"%s\" to the function \"%s\"");

/// Hands a property out with a reference for the caller; null stays null.
IqorProperty* Handed(CprpProperty* property)
{
    if (property)
        static_cast<IqorProperty*>(property)->AddRef();
    return property;
}

} // namespace

CprpPropertyCollection::CprpPropertyCollection() : m_dbMaxInputValue(std::numeric_limits<double>::max())
{
    DWORD unset = 0;
    g_dwMainThreadId.compare_exchange_strong(unset, GetCurrentThreadId());
    g_EventHelperList.Register(m_guidUnique);
}

HRESULT CprpPropertyCollection::FinalConstruct()
{
    return m_Queue.Create();
}

void CprpPropertyCollection::FinalRelease()
{
    while (CprpProperty* property = m_listTopLevel.TakeFirst())
        static_cast<IqorProperty*>(property)->Release();
    // What a host still holds lives on without a collection.
    m_mapProperties.ForEach([](CprpProperty& property) { property.Detach(); });
    m_mapProperties.Clear();
    m_pIHelpInfo.Release();
    m_Queue.Release();
    m_Events.DropSinks();
}

STDMETHODIMP CprpPropertyCollection::EnumConnectionPoints(IEnumConnectionPoints** points)
{
    return EnumerateConnectionPoints({&m_Events}, points);
}

STDMETHODIMP CprpPropertyCollection::FindConnectionPoint(REFIID iid, IConnectionPoint** point)
{
    if (!point)
        return E_POINTER;
    *point = nullptr;
    if (iid != DIID__IqorPropertyCollectionEvents)
        return CONNECT_E_NOCONNECTION;
    *point = &m_Events;
    m_Events.AddRef();
    return S_OK;
}

void CprpPropertyCollection::RequireMainThread(CallSite at) const
{
    if (GetCurrentThreadId() != g_dwMainThreadId.load(std::memory_order_relaxed))
        ThrowInternal(at);
}

CprpProperty* CprpPropertyCollection::NextInWalk(CprpProperty& property)
{
    CprpProperty* child = property.Children().First();
    return child ? child : property.GetNextSiblingOrUp();
}

CprpProperty* CprpPropertyCollection::NextOnLists(const CprpProperty& property) const
{
    CprpProperty* child = property.Children().First();
    return child ? child : NextBesideOnLists(property);
}

CprpProperty* CprpPropertyCollection::NextBesideOnLists(const CprpProperty& property) const
{
    for (const CprpProperty* node = &property; node; node = Find(node->ListOwnerId())) {
        if (CprpProperty* next = node->NextSibling())
            return next;
    }
    return nullptr;
}

/// Adds a property under a parent (-2: at the top level). The id must be 1 or greater and unknown, the parent known;
/// a name resource of -1 stands for a name that will be given as text. Queues one event.
/// @param PropError  never written; null is fine.
/// Raises, in this order: a thread other than that of the first collection (internal error), no open transaction,
/// invalid id, negative name resource (below -1), link, module, edit flags or type, unknown parent, known id
/// (internal error). A name resource that does not parse raises with the property added and events switched off.
STDMETHODIMP CprpPropertyCollection::AddProperty(LONG PropID, LONG ParentPropID, LONG NameResID, LONG LinkedID,
                                                 LONG_PTR hModule, LONG EditFlags, EprpPropDataType DataType,
                                                 VARIANT_BOOL Visible, VARIANT_BOOL ReadOnly, VARIANT_BOOL AlwaysSave,
                                                 EprpPropError*)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::AddProperty"), [&](const Checks& require) {
        RequireMainThread();
        require.Transaction(InTransaction());
        require.PropertyId(PropID);
        require.NotNegative(NameResID + (NameResID == -1));
        require.NotNegative(LinkedID);
        require.NotNegative(hModule);
        require.NotNegative(EditFlags);
        require.NotNegative(static_cast<LONG>(DataType));

        CprpProperty& property = AddInternal(PropID, ParentPropID);
        m_bFireEvents = false;
        property.Initialise(AlwaysSave != VARIANT_FALSE, EditFlags, DataType, hModule, LinkedID);
        property.InitialiseName(NameResID);
        property.InitialiseDisplay(Visible != VARIANT_FALSE, ReadOnly != VARIANT_FALSE);
        m_bFireEvents = true;
    });
}

CprpProperty& CprpPropertyCollection::AddInternal(LONG id, LONG parentId)
{
    SiblingList<CprpProperty>* list = &m_listTopLevel;
    if (parentId != E_PROP_ID_TOP_LEVEL) {
        CprpProperty* parent = parentId < 1 ? nullptr : Find(parentId);
        if (!parent)
            ThrowFormatted(CallSite::current(), kInvalidParameterIdText, OLESTR("nParentPropID"),
                           OLESTR("CprpPropertyCollection::AddProperty"));
        list = &parent->ChildrenToChange();
    }
    if (Find(id))
        ThrowInternal();

    std::unique_ptr<PooledProperty> fresh(new (m_Pool) PooledProperty);
    fresh->Name(id, parentId);
    m_mapProperties.Insert(*fresh);
    CprpProperty& property = *fresh.release();
    property.InternalAddRef(); // of the list
    property.Enter(*this);
    list->Append(property);
    QueueAddEvent(id, parentId);
    return property;
}

/// Takes a property out of the tree. Its children go with it, unannounced, once nobody holds it any more; until then
/// its id stays in use. Queues one event.
/// @param PropError  out, E_PROP_ERROR_PROP_ID_NOT_FOUND for an unknown id, E_PROP_ERROR_PARENT_PROP_ID_NOT_FOUND,
/// with nothing removed, when the parent is gone.
/// Raises, in this order: a thread other than that of the first collection (internal error), null pointer, invalid
/// id, no open transaction; an internal error for a property that was removed before.
STDMETHODIMP CprpPropertyCollection::RemoveProperty(LONG PropID, EprpPropError* PropError)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::RemoveProperty"), [&](const Checks& require) {
        RequireMainThread();
        require.Pointer(PropError, OLESTR("pePropError"));
        require.PropertyId(PropID);
        *PropError = E_PROP_ERROR_NONE;
        require.Transaction(InTransaction());

        CprpProperty* property = Find(PropID);
        if (!property) {
            *PropError = E_PROP_ERROR_PROP_ID_NOT_FOUND;
            return;
        }
        SiblingList<CprpProperty>* list = &m_listTopLevel;
        if (property->ParentId() >= 1) {
            CprpProperty* parent = Find(property->ParentId());
            if (!parent) {
                *PropError = E_PROP_ERROR_PARENT_PROP_ID_NOT_FOUND;
                return;
            }
            list = &parent->ChildrenToChange();
        }
        if (!property->IsOnListOf(property->ParentId()))
            ThrowInternal();
        list->Unlink(*property);
        static_cast<IqorProperty*>(property)->Release();
        QueueEvent(PropID, E_PROP_EVENT_PROP_DELETED, false);
    });
}

/// Walks the top level in the order of adding.
/// @param PropID        -1 for the first property, else the one whose successor is wanted.
/// @param NextPropID    out, id of the property found, -1 at the end and for a child.
/// @param PropError     out, E_PROP_ERROR_PROP_ID_NOT_FOUND for an id that the collection does not know.
/// @param NextProperty  out, a reference for the caller, or null.
/// Raises, in this order: null pointers, no open transaction.
STDMETHODIMP CprpPropertyCollection::GetNextProperty(LONG PropID, LONG* NextPropID, EprpPropError* PropError,
                                                     IqorProperty** NextProperty)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::GetNextProperty"), [&](const Checks& require) {
        require.Pointer(NextPropID, OLESTR("pnNextPropID"));
        require.Pointer(NextProperty, OLESTR("ppIProperty"));
        require.Pointer(PropError, OLESTR("pePropError"));
        require.Transaction(InTransaction());

        *PropError = E_PROP_ERROR_NONE;
        CprpProperty* next = m_listTopLevel.First();
        if (PropID != E_PROP_ID_INVALID) {
            const CprpProperty* known = Find(PropID);
            if (!known)
                *PropError = E_PROP_ERROR_PROP_ID_NOT_FOUND;
            next = known && known->IsOnListOf(E_PROP_ID_TOP_LEVEL) ? known->NextSibling() : nullptr;
        }
        *NextPropID = next ? next->Id() : LONG{E_PROP_ID_INVALID};
        *NextProperty = Handed(next);
    });
}

/// Walks the whole tree depth first, parents ahead of their children.
/// @param NextPropID  in, -1 to start, else the id to hand out now; out, the id to hand out next, E_PROP_ID_LAST with
///                    the last property, and -1 for a call behind that.
/// @param PropError   out, E_PROP_ERROR_PROP_ID_NOT_FOUND when nothing was handed out.
/// @param RetVal      out, a reference for the caller; not written for an empty collection.
/// Raises, in this order: null pointers, no open transaction, an unknown id; an internal error for a property that
/// is not on the list it should be on, with the reference already handed out.
STDMETHODIMP CprpPropertyCollection::GetNextPropertyAll(LONG* NextPropID, EprpPropError* PropError,
                                                        IqorProperty** RetVal)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::GetNextPropertyAll"), [&](const Checks& require) {
        require.Pointer(NextPropID, OLESTR("pnNextPropID"));
        require.Pointer(PropError, OLESTR("pePropError"));
        require.Pointer(RetVal, OLESTR("ppRetVal"));
        require.Transaction(InTransaction());

        *PropError = E_PROP_ERROR_PROP_ID_NOT_FOUND;
        if (*NextPropID == E_PROP_ID_LAST) {
            *NextPropID = E_PROP_ID_INVALID;
            *RetVal = nullptr;
            return;
        }
        CprpProperty* current = m_listTopLevel.First();
        if (*NextPropID != E_PROP_ID_INVALID) {
            current = Find(*NextPropID);
            if (!current)
                ThrowFormatted(CallSite::current(), kIdNotFoundText, *NextPropID);
        }
        if (!current)
            return; // an empty collection: the id is -1 already, and RetVal stays as it came
        *RetVal = Handed(current);
        *PropError = E_PROP_ERROR_NONE;
        const CprpProperty* next = NextInWalk(*current);
        *NextPropID = next ? next->Id() : LONG{E_PROP_ID_LAST};
    });
}

/// Finds a property at any depth.
/// @param PropError  out, E_PROP_ERROR_PROP_ID_NOT_FOUND for an unknown id.
/// @param Property   out, a reference for the caller, or null.
/// Raises, in this order: null pointers, invalid id, no open transaction.
STDMETHODIMP CprpPropertyCollection::GetProperty(LONG PropID, EprpPropError* PropError, IqorProperty** Property)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::GetProperty"), [&](const Checks& require) {
        require.Pointer(PropError, OLESTR("peError"));
        require.Pointer(Property, OLESTR("ppIProperty"));
        require.PropertyId(PropID);
        require.Transaction(InTransaction());

        CprpProperty* found = Find(PropID);
        *PropError = found ? E_PROP_ERROR_NONE : E_PROP_ERROR_PROP_ID_NOT_FOUND;
        *Property = Handed(found);
    });
}

/// Finds the first property, in the order of the depth-first walk, whose full name is the given one; ASCII case does
/// not count. Names that wait in resources are loaded on the way.
/// @param PropError  out, E_PROP_ERROR_NONE in any case.
/// @param Property   out, a reference for the caller; not written without a match.
/// Raises, in this order: null pointers, no open transaction; what parsing a name raises.
STDMETHODIMP CprpPropertyCollection::GetPropertyFromName(BSTR PropName, EprpPropError* PropError,
                                                         IqorProperty** Property)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::GetPropertyFromName"), [&](const Checks& require) {
        require.Pointer(PropError, OLESTR("PropError"));
        require.Pointer(Property, OLESTR("Property"));
        require.Transaction(InTransaction());

        *PropError = E_PROP_ERROR_NONE;
        const TextView wanted = ViewOf(PropName);
        CprpProperty* next = nullptr;
        for (CprpProperty* property = m_listTopLevel.First(); property; property = next) {
            next = NextInWalk(*property);
            if (EqualsIgnoringCase(property->FullName(), wanted)) {
                *Property = Handed(property);
                return;
            }
        }
    });
}

/// Number of top-level properties.
/// @param IterationType  E_PROP_ITERATION_CURRENT_LEVEL; for any other value the count is left unwritten.
/// Raises, in this order: null pointer, no open transaction.
STDMETHODIMP CprpPropertyCollection::GetCount(EprpIterationType IterationType, LONG* Count)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::GetCount"), [&](const Checks& require) {
        require.Pointer(Count, OLESTR("pnCount"));
        require.Transaction(InTransaction());
        // On purpose: E_PROP_ITERATION_ALL succeeds without an answer; hosts preset the count and rely on it.
        if (IterationType == E_PROP_ITERATION_CURRENT_LEVEL)
            *Count = static_cast<LONG>(m_listTopLevel.Count());
    });
}

/// True when any living property has the id, at any depth. Needs no transaction. Raises: null pointer.
STDMETHODIMP CprpPropertyCollection::PropertyExists(LONG PropertyID, VARIANT_BOOL* Success)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::PropertyExists"), [&](const Checks& require) {
        require.Pointer(Success, OLESTR("pbSuccess"));
        *Success = Find(PropertyID) ? VARIANT_TRUE : VARIANT_FALSE;
    });
}

/// Copies the tree, the state, the help object, the unit mode and the precision into a new collection; everything
/// else of the copy has its default..
/// @param NewCollectionID  id of the copy, 1 or greater.
/// @param Clone            out, a reference for the caller.
/// Raises, in this order: null pointer, the new id, no open transaction of the source.
STDMETHODIMP CprpPropertyCollection::Clone(LONG NewCollectionID, IqorPropertyCollection** Clone)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::Clone"), [&](const Checks& require) {
        require.Pointer(Clone, OLESTR("ppIClone"));
        CComObject<CprpPropertyCollection>* object = nullptr;
        Must(CComObject<CprpPropertyCollection>::CreateInstance(&object));
        CComPtr<IqorPropertyCollection> clone;
        clone.Attach(object);
        Must(clone->StartTransaction(-1));
        Must(clone->SetCollectionID(NewCollectionID));
        object->m_nState = m_nState;
        object->m_pIHelpInfo = m_pIHelpInfo;
        object->m_eUnitMode = m_eUnitMode;
        object->m_nPrecision = m_nPrecision;

        require.Transaction(InTransaction());
        object->m_mapProperties.ReserveLike(m_mapProperties);
        object->m_bFireEvents = false; // the events of a clone being made are dropped in any case
        for (const CprpProperty* property = m_listTopLevel.First(); property; property = NextOnLists(*property))
            object->AddInternal(property->Id(), property->ListOwnerId()).CopyFrom(*property, *object);
        object->m_bFireEvents = true;
        if (!m_listTopLevel.IsEmpty()) // one stands for all of them: the end evaluates rules only behind an event
            object->QueueAddEvent(m_listTopLevel.First()->Id(), E_PROP_ID_TOP_LEVEL);
        Must(clone->EndTransaction(VARIANT_FALSE));
        *Clone = clone.Detach();
    });
}
