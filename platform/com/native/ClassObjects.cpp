// Native bodies of CoCreateInstance, CoGetClassObject, CoRegisterClassObject and CoRevokeClassObject. Class objects
// that the process has registered itself come first, then the table of the modules' classes. Both serve all threads.
#include "platform/com/ClassTable.h"
#include "platform/com/native/Apartment.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <new>
#include <vector>

namespace {

struct ClassObject {
    DWORD cookie;
    CLSID clsid;
    IUnknown* object; // one reference is owned until the class is revoked
    bool singleUse;   // served once, then hidden until revoked
};

/// What CoRegisterClassObject has entered and CoRevokeClassObject not yet taken out.
class ClassObjects {
public:
    DWORD Add(REFCLSID clsid, IUnknown* object, bool singleUse)
    {
        const std::lock_guard guard(m_mutex);
        m_objects.push_back({++m_lastCookie, clsid, object, singleUse});
        object->AddRef();
        m_size.store(m_objects.size(), std::memory_order_release);
        return m_lastCookie;
    }

    /// The reference that the entry owned, or null for an unknown cookie.
    IUnknown* Remove(DWORD cookie)
    {
        const std::lock_guard guard(m_mutex);
        const auto found = std::ranges::find(m_objects, cookie, &ClassObject::cookie);
        if (found == m_objects.end())
            return nullptr;
        IUnknown* const object = found->object;
        m_objects.erase(found);
        m_size.store(m_objects.size(), std::memory_order_release);
        return object;
    }

    /// A reference of the caller's own, or null.
    IUnknown* Find(REFCLSID clsid)
    {
        if (m_size.load(std::memory_order_acquire) == 0)
            return nullptr; // nearly always so: the lock is for those who registered something
        const std::lock_guard guard(m_mutex);
        const auto found = std::ranges::find_if(m_objects, [&](const ClassObject& c) { return c.clsid == clsid; });
        if (found == m_objects.end())
            return nullptr;
        if (found->singleUse)
            found->clsid = CLSID_NULL;
        found->object->AddRef();
        return found->object;
    }

private:
    std::mutex m_mutex;
    std::vector<ClassObject> m_objects;
    std::atomic<std::size_t> m_size{0};
    DWORD m_lastCookie = 0;
};

/// Never destroyed: objects with static storage may still create and revoke while the process ends.
ClassObjects& RegisteredObjects()
{
    static ClassObjects* const objects = new ClassObjects;
    return *objects;
}

} // namespace

HRESULT WINAPI CoGetClassObject(REFCLSID clsid, DWORD context, COSERVERINFO* server, REFIID iid, LPVOID* out)
{
    if (!out || server)
        return E_INVALIDARG;
    *out = nullptr;
    if (!ThreadIsInApartment())
        return CO_E_NOTINITIALIZED;
    if (!(context & CLSCTX_INPROC_SERVER))
        return REGDB_E_CLASSNOTREG;
    if (IUnknown* const object = RegisteredObjects().Find(clsid)) {
        const HRESULT hr = object->QueryInterface(iid, out);
        object->Release();
        return hr;
    }
    const RegisteredClass* const entry = RegisteredClass::Find(clsid);
    return entry ? entry->GetClassObject(iid, out) : REGDB_E_CLASSNOTREG;
}

HRESULT WINAPI CoCreateInstance(REFCLSID clsid, LPUNKNOWN outer, DWORD context, REFIID iid, LPVOID* out)
{
    if (!out)
        return E_POINTER;
    *out = nullptr;
    void* object = nullptr;
    HRESULT hr = CoGetClassObject(clsid, context, nullptr, IID_IClassFactory, &object);
    if (FAILED(hr))
        return hr;
    IClassFactory* const factory = static_cast<IClassFactory*>(object);
    hr = factory->CreateInstance(outer, iid, out);
    factory->Release();
    return hr;
}

HRESULT WINAPI CoRegisterClassObject(REFCLSID clsid, LPUNKNOWN object, DWORD context, DWORD flags, LPDWORD cookie)
{
    if (!object || !cookie || !(context & CLSCTX_INPROC_SERVER))
        return E_INVALIDARG;
    *cookie = 0;
    if (!ThreadIsInApartment())
        return CO_E_NOTINITIALIZED;
    constexpr DWORD kManyUses = REGCLS_MULTIPLEUSE | REGCLS_MULTI_SEPARATE;
    try {
        *cookie = RegisteredObjects().Add(clsid, object, !(flags & kManyUses));
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
    return S_OK;
}

HRESULT WINAPI CoRevokeClassObject(DWORD cookie)
{
    IUnknown* const object = RegisteredObjects().Remove(cookie);
    if (!object)
        return E_INVALIDARG;
    object->Release();
    return S_OK;
}
