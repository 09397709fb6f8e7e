// Reference counting, construction and class factories for component classes, under their well-known names.
// A class derives from CComObjectRootEx<model> and its interfaces, names them in `Interfaces`, and is
// instantiated as CComObject<Class>.
#pragma once

#include "platform/atl/InterfaceList.h"
#include "platform/atl/Module.h"
#include "platform/com/Ole.h"

#include <atomic>
#include <new>

/// Counts of objects that stay in one apartment, or that move between threads under a lock.
struct CComSingleThreadModel {
    using Count = ULONG;
    static ULONG Increment(Count& count) { return ++count; }
    static ULONG Decrement(Count& count) { return --count; }
};

/// Counts of objects whose references are taken and given on any thread.
struct CComMultiThreadModel {
    using Count = std::atomic<ULONG>;
    static ULONG Increment(Count& count) { return count.fetch_add(1, std::memory_order_relaxed) + 1; }
    static ULONG Decrement(Count& count) { return count.fetch_sub(1, std::memory_order_acq_rel) - 1; }
};

template <class ThreadModel>
class CComObjectRootEx {
public:
    CComObjectRootEx() = default;
    CComObjectRootEx(const CComObjectRootEx&) = delete;
    CComObjectRootEx& operator=(const CComObjectRootEx&) = delete;

    /// Last step of creation, with one reference held; a failure destroys the object.
    HRESULT FinalConstruct() { return S_OK; }
    /// First step of destruction, with no reference left.
    void FinalRelease() {}

    ULONG InternalAddRef() { return ThreadModel::Increment(m_dwRef); }
    ULONG InternalRelease() { return ThreadModel::Decrement(m_dwRef); }

protected:
    ~CComObjectRootEx() = default;

    ULONG ReferenceCount() const { return m_dwRef; }

private:
    typename ThreadModel::Count m_dwRef{0};
};

/// Names the class id of a component class.
template <const CLSID* pclsid>
class CComCoClass {
public:
    static const CLSID& GetObjectCLSID() { return *pclsid; }
};

/// The most derived class: it alone implements IUnknown.
template <class Base, bool LocksModule>
class ComObjectOf final : public Base {
public:
    ComObjectOf()
    {
        if constexpr (LocksModule)
            Module::Lock();
    }
    ~ComObjectOf()
    {
        if constexpr (LocksModule)
            Module::Unlock();
    }

    STDMETHODIMP QueryInterface(REFIID iid, void** out) override
    {
        return QueryList<Base>(this, typename Base::Interfaces{}, iid, out);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return this->InternalAddRef(); }
    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = this->InternalRelease();
        if (left == 0) {
            this->InternalAddRef(); // a release inside FinalRelease must not destroy the object a second time
            this->FinalRelease();
            delete this;
        }
        return left;
    }

    /// Makes an object with one reference, which the caller owns.
    static HRESULT CreateInstance(ComObjectOf** out)
    {
        *out = nullptr;
        auto* object = new (std::nothrow) ComObjectOf;
        if (!object)
            return E_OUTOFMEMORY;
        object->InternalAddRef();
        const HRESULT hr = object->FinalConstruct();
        if (FAILED(hr)) {
            object->Release();
            return hr;
        }
        *out = object;
        return S_OK;
    }
};

/// An object that keeps the module loaded while it lives.
template <class Base>
using CComObject = ComObjectOf<Base, true>;

/// An object that leaves that to its owner.
template <class Base>
using CComObjectNoLock = ComObjectOf<Base, false>;

/// Makes objects of one class. Factories are never aggregated and hold no state beside their count.
template <class Class>
class ClassFactory final : public IClassFactory {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override
    {
        return QueryList<ClassFactory>(this, InterfaceList<IClassFactory>{}, iid, out);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return m_count.fetch_add(1) + 1; }
    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = m_count.fetch_sub(1) - 1;
        if (left == 0)
            delete this;
        return left;
    }
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) override
    {
        if (!out)
            return E_POINTER;
        *out = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        CComObject<Class>* object = nullptr;
        HRESULT hr = CComObject<Class>::CreateInstance(&object);
        if (FAILED(hr))
            return hr;
        hr = object->QueryInterface(iid, out);
        object->Release();
        return hr;
    }
    STDMETHODIMP LockServer(BOOL lock) override
    {
        lock ? Module::Lock() : Module::Unlock();
        return S_OK;
    }

    /// The class object as the class table asks for it.
    static HRESULT Get(REFIID iid, void** out)
    {
        if (!out)
            return E_POINTER;
        auto* factory = new (std::nothrow) ClassFactory;
        if (!factory)
            return E_OUTOFMEMORY;
        factory->AddRef();
        const HRESULT hr = factory->QueryInterface(iid, out);
        factory->Release();
        return hr;
    }

private:
    ClassFactory() { Module::Lock(); }
    ~ClassFactory() { Module::Unlock(); }

    std::atomic<ULONG> m_count{0};
};

/// Answers for error descriptions of one interface.
template <class Interface>
class ISupportErrorInfoImpl : public ISupportErrorInfo {
public:
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override { return iid == IidOf<Interface> ? S_OK : S_FALSE; }
};
