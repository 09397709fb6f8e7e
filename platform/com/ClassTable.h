// The classes that the modules of a process bring, known without a registry. A module states each of its classes in
// one object of static storage; the native CoCreateInstance reads the table, and a Windows module may serve its
// exported DllGetClassObject from it.
#pragma once

#include "platform/com/Ole.h"

/// Gives the class object; ClassFactory<Class>::Get is one.
using ClassObjectFunction = HRESULT (*)(REFIID iid, void** out);

/// One class of a module, entered in the process's table for good: it must have static storage, and its module must
/// not leave the process. In a static library it must stand in a translation unit that something else pulls in.
class RegisteredClass {
public:
    /// @param progId  with its version number, "Vendor.Class.1"; null when the class has none. Not copied.
    RegisteredClass(const CLSID& clsid, const OLECHAR* progId, ClassObjectFunction getClassObject) noexcept;
    RegisteredClass(const RegisteredClass&) = delete;
    RegisteredClass& operator=(const RegisteredClass&) = delete;

    const CLSID& ClassId() const { return m_clsid; }
    const OLECHAR* ProgId() const { return m_progId; }
    HRESULT GetClassObject(REFIID iid, void** out) const { return m_getClassObject(iid, out); }

    /// Null when no module of the process has the class. Safe from any thread, takes no lock.
    static const RegisteredClass* Find(REFCLSID clsid) noexcept;

    /// Takes the ProgID with or without its version number; ASCII case does not count.
    static const RegisteredClass* FindProgId(TextView progId) noexcept;

private:
    const CLSID m_clsid;
    const OLECHAR* const m_progId;
    const ClassObjectFunction m_getClassObject;
    const RegisteredClass* m_next = nullptr;
};
