// The list behind RegisteredClass: entries are only ever added, so readers need no lock.
#include "platform/com/ClassTable.h"

#include <algorithm>
#include <atomic>

namespace {

// Initialised before any constructor runs, since entries add themselves during static initialisation.
constinit std::atomic<const RegisteredClass*> g_newest{nullptr};

constexpr OLECHAR FoldAscii(OLECHAR c)
{
    return c >= OLESTR('A') && c <= OLESTR('Z') ? static_cast<OLECHAR>(c - OLESTR('A') + OLESTR('a')) : c;
}

bool EqualFolded(TextView a, TextView b)
{
    return std::ranges::equal(a, b, {}, FoldAscii, FoldAscii);
}

/// "Vendor.Class.1" without ".1"; a ProgID that has no version number stays whole.
TextView WithoutVersion(TextView progId)
{
    const std::size_t point = progId.rfind(OLESTR('.'));
    if (point == TextView::npos || point + 1 == progId.size())
        return progId;
    const TextView tail = progId.substr(point + 1);
    const bool isNumber = std::ranges::all_of(tail, [](OLECHAR c) { return c >= OLESTR('0') && c <= OLESTR('9'); });
    return isNumber ? progId.substr(0, point) : progId;
}

} // namespace

RegisteredClass::RegisteredClass(const CLSID& clsid, const OLECHAR* progId, ClassObjectFunction getClassObject) noexcept
    : m_clsid(clsid), m_progId(progId), m_getClassObject(getClassObject),
      m_next(g_newest.load(std::memory_order_relaxed))
{
    while (!g_newest.compare_exchange_weak(m_next, this, std::memory_order_release, std::memory_order_relaxed)) {
    }
}

const RegisteredClass* RegisteredClass::Find(REFCLSID clsid) noexcept
{
    const RegisteredClass* entry = g_newest.load(std::memory_order_acquire);
    while (entry && !IsEqualGUID(entry->m_clsid, clsid))
        entry = entry->m_next;
    return entry;
}

const RegisteredClass* RegisteredClass::FindProgId(TextView progId) noexcept
{
    const RegisteredClass* entry = g_newest.load(std::memory_order_acquire);
    const auto matches = [progId](TextView known) {
        return EqualFolded(progId, known) || EqualFolded(progId, WithoutVersion(known));
    };
    while (entry && !(entry->m_progId && matches(entry->m_progId)))
        entry = entry->m_next;
    return entry;
}
