// The one object map of the server: which classes it makes, and the state that belongs to the loaded library.
#pragma once

#include "module/LanguageResources.h"
#include "platform/com/Ole.h"

/// The application object of the library.
class CLV_prpPropCollectionApp final : public LanguageServices {
public:
    // LanguageServices, on the real system
    HRESULT CreateSettings(IqorSettings** settings) override;
    void Beep() override;
    void ShowMessage(const Text& message) override;
    /// Beside the server first, so that another program's library of the same name is not taken; then by name alone.
    LONG_PTR LoadLibraryNamed(const Text& name) override;
    LONG_PTR CurrentResourceHandle() override;
    void SetResourceHandle(LONG_PTR module) override;
};

/// The component module of the library: class objects, registration, unloading. The four exported functions call it.
class CLV_prpPropCollectionModule {
public:
    /// Selects the language library first. The classes of the four value viewers are known to the scripts and to the
    /// manifest, but not made by this build: asking for one gives CLASS_E_CLASSNOTAVAILABLE.
    HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** out);
    /// S_OK when no object, class object or lock is left, and no event helper of another thread. The helpers outlive
    /// their collections: those of the calling thread go with the library, and one of another thread keeps the library
    /// until that thread has ended.
    HRESULT CanUnloadNow() const;
    HRESULT RegisterServer();
    HRESULT UnregisterServer();

private:
    CLV_prpPropCollectionApp m_app;
    LanguageResources m_language{m_app};
};

extern CLV_prpPropCollectionModule g_module;
