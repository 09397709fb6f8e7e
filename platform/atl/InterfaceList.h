// A component class is a list of interfaces and one generic QueryInterface that walks it.
#pragma once

#include "platform/com/Ole.h"

/// The interfaces that a class answers for, its identity first.
template <class... Interfaces>
struct InterfaceList {
};

/// Interface identifier of an interface class.
template <class Interface>
inline const IID& IidOf = __uuidof(Interface);

/// Base that an interface pointer of the list is taken through when a class inherits it twice.
template <class Interface, class Through>
struct InterfaceBy {
};

namespace detail {

template <class T, class Entry>
struct EntryCast {
    static const IID& Iid() { return IidOf<Entry>; }
    static void* Cast(T* self) { return static_cast<Entry*>(self); }
};

template <class T, class Interface, class Through>
struct EntryCast<T, InterfaceBy<Interface, Through>> {
    static const IID& Iid() { return IidOf<Interface>; }
    static void* Cast(T* self) { return static_cast<Interface*>(static_cast<Through*>(self)); }
};

} // namespace detail

/// The one QueryInterface. The first interface is also the identity.
/// @param out  receives a counted reference, or null with E_NOINTERFACE; a null pointer gives E_POINTER.
template <class T, class First, class... Rest>
HRESULT QueryList(T* self, InterfaceList<First, Rest...>, REFIID iid, void** out)
{
    if (!out)
        return E_POINTER;
    *out = nullptr;
    if (iid == IID_IUnknown || iid == detail::EntryCast<T, First>::Iid())
        *out = detail::EntryCast<T, First>::Cast(self);
    else
        (void)((iid == detail::EntryCast<T, Rest>::Iid() && ((*out = detail::EntryCast<T, Rest>::Cast(self)), true)) ||
               ...);
    if (!*out)
        return E_NOINTERFACE;
    static_cast<IUnknown*>(*out)->AddRef(); // a class with several interfaces has several AddRef
    return S_OK;
}
