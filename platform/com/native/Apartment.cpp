// Native bodies of CoInitialize, CoInitializeEx and CoUninitialize.
#include "platform/com/native/Apartment.h"

#include "platform/com/Ole.h"

#include <atomic>

namespace {

struct Membership {
    ULONG depth = 0;
    bool multithreaded = false;
};

constinit thread_local Membership t_membership;
constinit std::atomic<ULONG> g_multithreadedMembers{0};

} // namespace

bool ThreadIsInApartment() noexcept
{
    return t_membership.depth != 0 || g_multithreadedMembers.load(std::memory_order_relaxed) != 0;
}

HRESULT WINAPI CoInitialize(LPVOID reserved)
{
    return CoInitializeEx(reserved, COINIT_APARTMENTTHREADED);
}

HRESULT WINAPI CoInitializeEx(LPVOID reserved, DWORD kind)
{
    if (reserved)
        return E_INVALIDARG;
    const bool multithreaded = !(kind & COINIT_APARTMENTTHREADED);
    if (t_membership.depth != 0) {
        if (t_membership.multithreaded != multithreaded)
            return RPC_E_CHANGED_MODE;
        ++t_membership.depth;
        return S_FALSE;
    }
    t_membership = {1, multithreaded};
    if (multithreaded)
        ++g_multithreadedMembers;
    return S_OK;
}

void WINAPI CoUninitialize()
{
    if (t_membership.depth == 0)
        return;
    if (--t_membership.depth == 0 && t_membership.multithreaded)
        --g_multithreadedMembers;
}
