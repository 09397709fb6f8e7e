// A hidden window that carries pairs of interface pointers to the thread that made it, one pair at a time and in
// order of posting. On Windows it is a window and the thread's message loop delivers; natively it is a place in the
// thread's queue and PumpThreadQueue delivers.
#pragma once

#include "platform/com/Ole.h"

#include <memory>

/// Takes what was posted to an EventWindow. Called on the window's own thread, from its message loop or pump.
class EventReceiver {
public:
    /// Both references are the receiver's to release.
    virtual void OnPosted(IUnknown* first, IUnknown* second) noexcept = 0;

protected:
    ~EventReceiver() = default;
};

/// Belongs to the thread that made it: it dies with that thread, and later posts fail.
class EventWindow {
public:
    /// @param receiver  must outlive the window.
    /// @param message   number of the window message that carries a pair: the pointers are its wParam and lParam.
    /// @return null when the system can make no window.
    static std::unique_ptr<EventWindow> Create(EventReceiver& receiver, const OLECHAR* title, UINT message);

    EventWindow(const EventWindow&) = delete;
    EventWindow& operator=(const EventWindow&) = delete;
    virtual ~EventWindow() = default;

    /// Any thread. Takes over one reference of each pointer when it returns true. When it returns false, as it does
    /// once the window is gone, both references stay with the caller.
    virtual bool Post(IUnknown* first, IUnknown* second) noexcept = 0;

    /// False after Destroy and after the end of the thread that made the window.
    virtual bool Exists() const noexcept = 0;

    /// Ends the window; the receiver is not called any more once this returns. On the creating thread the window is
    /// destroyed. On any other the destruction is sent to it: that waits until the creating thread is not inside a
    /// delivery, and on Windows until it looks at its messages.
    /// Pairs that were not delivered are released natively; on Windows they are lost with the messages.
    virtual void Destroy() noexcept = 0;

protected:
    EventWindow() = default;
};
