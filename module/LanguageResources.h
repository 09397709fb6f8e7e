// Selects the language library of the process, once, when the first class object is asked for: the settings component
// names the language, a table gives the file name's suffix, and the loaded library becomes the first place where
// strings and bitmaps are looked up. What this needs of Windows stands behind LanguageServices.
#pragma once

#include "platform/atl/ComPtr.h"
#include "platform/com/Ole.h"

#include "LV_setSettings.h"

#include <atomic>

/// A language that can be selected, by its number in the settings.
struct Language {
    LONG setting;
    const OLECHAR* suffix; ///< goes in front of ".dll"
};

inline constexpr Language kLanguages[] = {
    {7014, OLESTR("_EN")}, {7015, OLESTR("_DE")}, {7016, OLESTR("_FR")}, {7017, OLESTR("_IT")}, {7031, OLESTR("_ES")},
    {7039, OLESTR("_JP")}, {7058, OLESTR("_KO")}, {7059, OLESTR("_TC")}, {7060, OLESTR("_SC")}, {7061, OLESTR("_CZ")},
};

/// Caption and flags of both messages.
inline constexpr const OLECHAR* kLanguageMessageCaption = OLESTR("Lumevor Error");
inline constexpr UINT kLanguageMessageFlags = 0x40030; // MB_ICONEXCLAMATION | MB_TOPMOST

/// What the selection asks of its surroundings.
class LanguageServices {
public:
    virtual HRESULT CreateSettings(IqorSettings** settings) = 0;
    virtual void Beep() = 0;
    virtual void ShowMessage(const Text& message) = 0;
    /// Handle of the library, 0 when it can't be loaded; an empty name never can.
    virtual LONG_PTR LoadLibraryNamed(const Text& name) = 0;
    virtual LONG_PTR CurrentResourceHandle() = 0;
    virtual void SetResourceHandle(LONG_PTR module) = 0;

protected:
    ~LanguageServices() = default;
};

/// The language state of the process.
class LanguageResources {
public:
    explicit LanguageResources(LanguageServices& services) : m_services(services) {}

    /// Runs ahead of every class object; does its work only while no library is loaded. Any thread, without a lock:
    /// the handle is written last. A library that can't be loaded is tried again the next time, but told once.
    /// @param requestedName  file name of the library without a suffix; empty takes the default.
    void LoadLanguageResources();

    LONG_PTR Library() const noexcept { return m_hResDll.load(); }
    /// The resource handle from before; 0 until the first run.
    LONG_PTR OwnInstance() const noexcept { return m_hOwnInstance; }

    Text m_strResDllName; ///< requested file name of the library; empty means the default

private:
    Text SelectName(bool& selected);
    Text NameWithSuffix(const OLECHAR* suffix) const;

    LanguageServices& m_services;
    std::atomic<LONG_PTR> m_hResDll{0};
    std::atomic<LONG_PTR> m_hOwnInstance{0};
    std::atomic<bool> m_bMissingTold{false};
    std::atomic<bool> m_bUnknownTold{false};
};
