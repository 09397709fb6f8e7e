#include "platform/atl/windows/Registrar.h"

#include <vector>

/// The registrar's interface in the platform's slot order; only the scripts in resources are used here.
struct IRegistrar : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE AddReplacement(LPCOLESTR key, LPCOLESTR item) = 0;
    virtual HRESULT STDMETHODCALLTYPE ClearReplacements() = 0;
    virtual HRESULT STDMETHODCALLTYPE ResourceRegisterSz(LPCOLESTR file, LPCOLESTR id, LPCOLESTR type) = 0;
    virtual HRESULT STDMETHODCALLTYPE ResourceUnregisterSz(LPCOLESTR file, LPCOLESTR id, LPCOLESTR type) = 0;
    virtual HRESULT STDMETHODCALLTYPE FileRegister(LPCOLESTR file) = 0;
    virtual HRESULT STDMETHODCALLTYPE FileUnregister(LPCOLESTR file) = 0;
    virtual HRESULT STDMETHODCALLTYPE StringRegister(LPCOLESTR script) = 0;
    virtual HRESULT STDMETHODCALLTYPE StringUnregister(LPCOLESTR script) = 0;
    virtual HRESULT STDMETHODCALLTYPE ResourceRegister(LPCOLESTR file, UINT id, LPCOLESTR type) = 0;
    virtual HRESULT STDMETHODCALLTYPE ResourceUnregister(LPCOLESTR file, UINT id, LPCOLESTR type) = 0;

protected:
    ~IRegistrar() = default;
};

namespace {

constexpr CLSID kRegistrarClass = {0x44EC053A, 0x400F, 0x11D0, {0x9D, 0xCD, 0x00, 0xA0, 0xC9, 0x03, 0x91, 0xD3}};
constexpr IID kRegistrarInterface = {0x44EC053B, 0x400F, 0x11D0, {0x9D, 0xCD, 0x00, 0xA0, 0xC9, 0x03, 0x91, 0xD3}};
constexpr const OLECHAR* kResourceType = OLESTR("REGISTRY");

Text PathOf(HMODULE module)
{
    std::vector<OLECHAR> path(32768);
    const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    return {path.data(), length};
}

/// By registration where there is one; else straight from atl.dll, which also serves a caller without an apartment.
HRESULT CreateRegistrar(IRegistrar** out)
{
    HRESULT hr = CoCreateInstance(kRegistrarClass, nullptr, CLSCTX_INPROC_SERVER, kRegistrarInterface,
                                  reinterpret_cast<void**>(out));
    if (SUCCEEDED(hr))
        return hr;
    const HMODULE library = LoadLibraryExW(L"atl.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (!library)
        return hr;
    // The library stays loaded: the registrar lives in it.
    const FARPROC entry = GetProcAddress(library, "DllGetClassObject");
    if (!entry)
        return hr;
    const auto getClassObject =
        reinterpret_cast<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>(reinterpret_cast<void*>(entry));
    CComPtr<IClassFactory> factory;
    hr = getClassObject(kRegistrarClass, IID_IClassFactory, reinterpret_cast<void**>(&factory));
    return FAILED(hr) ? hr : factory->CreateInstance(nullptr, kRegistrarInterface, reinterpret_cast<void**>(out));
}

} // namespace

Registrar::Registrar(HMODULE module) : m_path(PathOf(module))
{
    m_state = CreateRegistrar(&m_registrar);
    // A quote in a path would end the script's text there, so it is doubled.
    Text scripted;
    for (const OLECHAR c : m_path)
        scripted.append(c == L'\'' ? 2 : 1, c);
    Replace(L"MODULE", scripted);
}

Registrar::~Registrar() = default;

void Registrar::Replace(const OLECHAR* key, TextView text)
{
    if (SUCCEEDED(m_state))
        m_state = m_registrar->AddReplacement(key, Text(text).c_str());
}

HRESULT Registrar::Register(UINT script)
{
    return FAILED(m_state) ? m_state : m_registrar->ResourceRegister(m_path.c_str(), script, kResourceType);
}

HRESULT Registrar::Unregister(UINT script)
{
    return FAILED(m_state) ? m_state : m_registrar->ResourceUnregister(m_path.c_str(), script, kResourceType);
}
