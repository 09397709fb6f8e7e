// Registration scripts run by the platform's own registrar: REGISTRY resources of a module, with keys such as %MODULE%
// replaced. The registrar is a class of atl.dll, which every Windows has.
#pragma once

#include "platform/atl/ComPtr.h"
#include "platform/com/Ole.h"

struct IRegistrar;

class Registrar {
public:
    /// @param module  whose scripts are run; its own path becomes %MODULE%.
    explicit Registrar(HMODULE module);
    ~Registrar();
    Registrar(const Registrar&) = delete;
    Registrar& operator=(const Registrar&) = delete;

    /// A key without its percent signs; the text stands for it in all scripts that follow.
    void Replace(const OLECHAR* key, TextView text);
    HRESULT Register(UINT script);
    HRESULT Unregister(UINT script);

    /// S_OK, or why there is no registrar; the other calls then give the same code.
    HRESULT State() const noexcept { return m_state; }
    /// Full path of the module.
    const Text& ModulePath() const noexcept { return m_path; }

private:
    Text m_path;
    CComPtr<IRegistrar> m_registrar;
    HRESULT m_state = S_OK;
};
