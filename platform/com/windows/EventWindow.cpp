// Windows body: a hidden popup window without a parent.
#include "platform/com/EventWindow.h"

#include <atomic>
#include <utility>

namespace {

constexpr const OLECHAR* kClassName = OLESTR("LV_EventWindow");

HINSTANCE ThisModule()
{
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const OLECHAR*>(&ThisModule), &module);
    return module;
}

/// The class carries the system's default procedure and each window is given its own one: a window or class that
/// outlives this module never calls into it.
void RegisterWindowClass()
{
    WNDCLASSW description{};
    description.lpfnWndProc = DefWindowProcW;
    description.hInstance = ThisModule();
    description.lpszClassName = kClassName;
    RegisterClassW(&description); // fails harmlessly when it has been done before
}

class PopupEventWindow final : public EventWindow {
public:
    PopupEventWindow(EventReceiver& receiver, UINT message) : m_receiver(receiver), m_message(message) {}
    ~PopupEventWindow() override { PopupEventWindow::Destroy(); }

    bool Open(const OLECHAR* title)
    {
        RegisterWindowClass();
        m_hWnd = CreateWindowExW(0, kClassName, title, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, ThisModule(), nullptr);
        if (!m_hWnd)
            return false;
        SetWindowLongPtrW(m_hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WindowProcedure));
        return true;
    }

    bool Post(IUnknown* first, IUnknown* second) noexcept override
    {
        const HWND window = m_hWnd;
        return window &&
               PostMessageW(window, m_message, reinterpret_cast<WPARAM>(first), reinterpret_cast<LPARAM>(second));
    }

    bool Exists() const noexcept override
    {
        const HWND window = m_hWnd;
        return window && IsWindow(window);
    }

    void Destroy() noexcept override
    {
        const HWND window = m_hWnd;
        if (!window || !IsWindow(window))
            return;
        if (GetCurrentThreadId() == m_dwCreatorThread) {
            DestroyWindow(window);
        } else {
            // Another thread's window can't be destroyed; it is told that it is, and then leads nowhere.
            SendMessageW(window, WM_DESTROY, 0, 0);
            SendMessageW(window, WM_NCDESTROY, 0, 0);
        }
    }

private:
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        auto* const self = reinterpret_cast<PopupEventWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message == self->m_message) {
            self->m_receiver.OnPosted(reinterpret_cast<IUnknown*>(wParam), reinterpret_cast<IUnknown*>(lParam));
            return 0;
        }
        if (message == WM_NCDESTROY) {
            SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DefWindowProcW));
            self->m_hWnd = nullptr;
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }

    EventReceiver& m_receiver;
    const UINT m_message;
    const DWORD m_dwCreatorThread = GetCurrentThreadId();
    std::atomic<HWND> m_hWnd{nullptr}; // null once the window has heard of its end
};

} // namespace

std::unique_ptr<EventWindow> EventWindow::Create(EventReceiver& receiver, const OLECHAR* title, UINT message)
{
    auto window = std::make_unique<PopupEventWindow>(receiver, message);
    return window->Open(title) ? std::move(window) : nullptr;
}
