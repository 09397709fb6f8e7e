// Transactions and what they publish: the lock, the rules at the end, the queue of events and its way to the sinks.
#include "core/prpEventHelper.h"
#include "core/prpPropertyCollection.h"

/// Takes the collection's lock and opens a transaction. Transactions do not nest.
/// @param Timeout  milliseconds; -1 waits without limit, 0 only asks.
/// Raises: a lock that another thread keeps; a transaction of the same thread. The second leaves the lock one level
/// deeper, so that one more EndTransaction is due.
STDMETHODIMP CprpPropertyCollection::StartTransaction(LONG Timeout)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::StartTransaction"), [&](const Checks&) {
        if (!m_Mutex.Lock(static_cast<uint32_t>(Timeout)))
            ThrowFormatted(CallSite::current(),
                           OLESTR("Failed to start a transaction for the thread %x due to a lock by thread %X"),
                           GetCurrentThreadId(), m_dwTransactionThread.load(std::memory_order_relaxed));
        m_dwTransactionThread.store(GetCurrentThreadId(), std::memory_order_relaxed);
        // On purpose the lock is not given back here: the host's recovery is one more EndTransaction.
        if (InTransaction())
            ThrowFormatted(CallSite::current(),
                           OLESTR("A transaction is already in progress! Memory leaks may occur."));
        m_bInTransaction.store(true, std::memory_order_relaxed); // the lock orders what a transaction touches
    });
}

/// Ends the transaction: evaluates the visibility rules if anything was queued, then publishes the queued events or
/// drops them. On the main thread the sinks run before the lock is given back, and may start a transaction; from any
/// other thread the events are posted to the helper of the collection's unique number.
/// @param FireEvents  false drops what was queued, but not what the rules then queue.
/// Tests nothing. Raises what the stream or a rule's SetVisible reports; the lock is then still held.
STDMETHODIMP CprpPropertyCollection::EndTransaction(VARIANT_BOOL FireEvents)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::EndTransaction"), [&](const Checks&) {
        m_dwTransactionThread.store(0, std::memory_order_relaxed);
        const LONG items = m_Queue.ItemCount();
        if (!FireEvents)
            m_Queue.Clear();
        if (items != 0)
            ApplyVisibilityRules();
        if (FireEvents && items != 0) {
            const CComPtr<IqorPropertyCollection> living(this); // a sink may release the last reference of a host
            const CComPtr<IqorStream> stream = TakeQueue();
            Publish(stream);
            CloseTransaction();
        } else {
            m_bInTransaction.store(false, std::memory_order_relaxed);
            CloseTransaction();
        }
    });
}

CComPtr<IqorStream> CprpPropertyCollection::TakeQueue()
{
    m_bInTransaction.store(false,
                           std::memory_order_relaxed); // first, so that a sink may start a transaction of its own
    CComPtr<IqorStream> stream = m_Queue.Take();
    StampEvent(E_PROP_ID_INVALID, E_PROP_EVENT_NONE);
    return stream;
}

void CprpPropertyCollection::CloseTransaction()
{
    StampEvent(E_PROP_ID_INVALID, E_PROP_EVENT_NONE);
    m_Mutex.Unlock();
}

void CprpPropertyCollection::ApplyVisibilityRules()
{
    // A rule may call out, so the walk runs over ids and skips what is gone meanwhile.
    for (const LONG id : m_Rules.IdsInMapOrder(m_mapProperties)) {
        if (CprpProperty* property = Find(id))
            property->ApplyRules();
    }
}

void CprpPropertyCollection::Publish(const CComPtr<IqorStream>& stream)
{
    if (GetCurrentThreadId() == g_dwMainThreadId.load(std::memory_order_relaxed))
        Fire_PropertyEventStream(stream);
    else
        g_EventHelperList.Post(m_guidUnique, *this, *stream);
}

void CprpPropertyCollection::StampEvent(LONG id, EprpEventType type) noexcept
{
    m_nLastEventPropID = id;
    m_eLastEventType = type;
}

SprpEventInfo CprpPropertyCollection::EventRecord(LONG id, EprpEventType type, bool visibilityChanged) const
{
    SprpEventInfo record{};
    record.eEventType = type;
    record.nPropID = id;
    record.nPropCollectionID = m_nCollectionID;
    record.nLong1 = E_PROP_ID_INVALID;
    record.bVisiblityChanged = visibilityChanged ? VARIANT_TRUE : VARIANT_FALSE;
    record.bDataChanged = VARIANT_FALSE;
    return record;
}

void CprpPropertyCollection::QueueEvent(LONG id, EprpEventType type, bool visibilityChanged)
{
    if (!m_bFireEvents)
        return;
    StampEvent(id, type);
    m_Queue.Append(EventRecord(id, type, visibilityChanged));
}

void CprpPropertyCollection::QueueAddEvent(LONG id, LONG parentId)
{
    if (!m_bFireEvents)
        return;
    StampEvent(id, E_PROP_EVENT_PROP_ADDED);
    SprpEventInfo record = EventRecord(id, E_PROP_EVENT_PROP_ADDED, false);
    record.nLong1 = parentId;
    m_Queue.Append(record);
}

void CprpPropertyCollection::QueueDataEvent(LONG id, EprpEventType type, const ValueText& text, bool visibilityChanged)
{
    if (!m_bFireEvents)
        return;
    StampEvent(id, type);
    SprpEventInfo record = EventRecord(id, type, visibilityChanged);
    record.bDataChanged = VARIANT_TRUE;
    m_Queue.Append(record, text);
}

void CprpPropertyCollection::QueueLoadEvent()
{
    StampEvent(E_PROP_ID_INVALID, E_PROP_EVENT_COLLECTION_LOADED);
    m_Queue.Append(EventRecord(E_PROP_ID_INVALID, E_PROP_EVENT_COLLECTION_LOADED, true));
}
