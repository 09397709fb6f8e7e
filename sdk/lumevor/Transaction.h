// A transaction as a scope: what starts in the constructor ends in the destructor, also when an exception passes.
//
//     {
//         lumevor::Transaction transaction(collection);
//         ...                       // read and change properties
//     }                             // ends here and publishes the changes
//
// A scope inside another one of the same thread and collection joins it: one transaction, ended by the outer scope.
// Without that, the inner start would fail and leave the collection's lock taken one level too deep.
#pragma once

#include <lumevor/Error.h>

namespace lumevor {

class Transaction {
public:
    /// Waits for the collection's lock; throws Error when the time is over.
    /// @param milliseconds  -1 waits without limit, 0 only tries.
    explicit Transaction(IqorPropertyCollection* collection, LONG milliseconds = -1)
        : m_collection(collection), m_joined(OpenScopeOf(collection))
    {
        if (!m_joined)
            Check(m_collection->StartTransaction(milliseconds));
        m_outer = std::exchange(s_innermost, this);
    }
    explicit Transaction(const Ref<IqorPropertyCollection>& collection, LONG milliseconds = -1)
        : Transaction(collection.Get(), milliseconds)
    {
    }
    /// A failing end can't be told from here; call End() where it matters.
    ~Transaction()
    {
        s_innermost = m_outer;
        if (IsOpen())
            m_collection->EndTransaction(m_drop ? VARIANT_FALSE : VARIANT_TRUE);
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// The queued events are thrown away at the end instead of published. The changes stay.
    void DropEvents() noexcept { (m_joined ? m_joined : this)->m_drop = true; }

    /// Ends now rather than with the scope. Without effect in a scope that has joined another.
    void End()
    {
        if (!IsOpen())
            return;
        m_open = false; // sinks that run in the call may start a transaction of their own
        Check(m_collection->EndTransaction(m_drop ? VARIANT_FALSE : VARIANT_TRUE));
    }

private:
    bool IsOpen() const noexcept { return m_open && !m_joined; }

    static Transaction* OpenScopeOf(IqorPropertyCollection* collection) noexcept
    {
        for (Transaction* scope = s_innermost; scope; scope = scope->m_outer) {
            if (scope->IsOpen() && scope->m_collection.Get() == collection)
                return scope;
        }
        return nullptr;
    }

    // The open scopes of the thread, innermost first. A plain pointer: it needs no destructor at a thread's end.
    static inline thread_local Transaction* s_innermost = nullptr;

    Ref<IqorPropertyCollection> m_collection;
    Transaction* m_joined = nullptr;
    Transaction* m_outer = nullptr;
    bool m_open = true;
    bool m_drop = false;
};

} // namespace lumevor
