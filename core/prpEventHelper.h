// Helpers that publish the events of transactions which end on another thread than the main one. There is one helper
// for each GUID that a collection was given, and one for all collections without; it lives on the thread that first
// used the GUID, and outlives the collections.
#pragma once

#include "platform/com/EventWindow.h"
#include "platform/com/Ole.h"
#include "platform/mfc/Mutex.h"

#include <list>
#include <memory>
#include <mutex>

class CprpPropertyCollection;
struct IqorStream;

/// Message of the helper's window: wParam the collection, lParam the stream.
inline constexpr UINT WM_PRP_FIRE_EVENTS = 37379;

class CprpEventHelper final : public EventReceiver {
public:
    CprpEventHelper();
    ~CprpEventHelper();

    /// Hands a stream to the helper's thread. Any thread. The pointers get their own references.
    void Post(CprpPropertyCollection& collection, IqorStream& stream);

    void OnPosted(IUnknown* collection, IUnknown* stream) noexcept override;

    /// True while the window lives on a thread that is not the calling one.
    bool LivesOnAnotherThread() const noexcept;

private:
    const DWORD m_dwCreatorThread = GetCurrentThreadId();
    CMutex m_Mutex; ///< orders firing against the helper's own destruction
    std::unique_ptr<EventWindow> m_pWindow;
};

class CprpEventHelperList {
public:
    /// Makes a helper for a GUID that has none, on the calling thread.
    void Register(const GUID& guid);
    /// Hands a stream to the helper of a GUID; without one the events are lost.
    void Post(const GUID& guid, CprpPropertyCollection& collection, IqorStream& stream);
    /// True while the library must stay loaded: only its own thread can destroy a helper's window, so unloading would
    /// have to wait for a thread that may be waiting for this one.
    bool HasHelperOnAnotherThread();

private:
    struct SprpEventHelperInfo {
        GUID guid;
        std::unique_ptr<CprpEventHelper> pHelper;
    };
    CprpEventHelper* Find(const GUID& guid);

    std::mutex m_gate; ///< threads register while others post
    std::list<SprpEventHelperInfo> m_list;
};

extern CprpEventHelperList g_EventHelperList;
