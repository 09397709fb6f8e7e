// Native bodies for identifiers: equality, their text, and the ProgIDs of the class table.
#include "platform/com/ClassTable.h"

#include <array>
#include <cstring>

namespace {

// "{00000000-0000-0000-0000-000000000000}": which byte of the GUID each pair of digits tells, and 255 for a character
// that stands as it is. The first three fields are numbers, so their bytes come in reverse order.
constexpr TextView kPattern = OLESTR("{33221100-5544-7766-8899-AABBCCDDEEFF}");
constexpr int kTextUnits = 39; // with the terminator

constexpr int DigitOf(OLECHAR c)
{
    if (c >= OLESTR('0') && c <= OLESTR('9'))
        return c - OLESTR('0');
    if (c >= OLESTR('A') && c <= OLESTR('F'))
        return c - OLESTR('A') + 10;
    if (c >= OLESTR('a') && c <= OLESTR('f'))
        return c - OLESTR('a') + 10;
    return -1;
}

bool ParseGuid(TextView text, GUID& guid)
{
    if (text.size() != kPattern.size())
        return false;
    std::array<unsigned char, sizeof(GUID)> bytes{};
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int place = DigitOf(kPattern[i]);
        if (place < 0) {
            if (text[i] != kPattern[i])
                return false;
            continue;
        }
        const int digit = DigitOf(text[i]);
        if (digit < 0)
            return false;
        unsigned char& byte = bytes[static_cast<std::size_t>(place)];
        byte = static_cast<unsigned char>(byte << 4 | digit);
    }
    std::memcpy(&guid, bytes.data(), sizeof guid);
    return true;
}

} // namespace

int RPC_ENTRY UuidEqual(UUID* first, UUID* second, RPC_STATUS* status)
{
    *status = RPC_S_OK;
    static constexpr UUID kNil{};
    return IsEqualGUID(first ? *first : kNil, second ? *second : kNil) ? TRUE : FALSE; // null stands for all zeros
}

INT WINAPI StringFromGUID2(REFGUID guid, LPOLESTR text, INT units)
{
    if (!text || units < kTextUnits)
        return 0;
    std::array<unsigned char, sizeof(GUID)> bytes{};
    std::memcpy(bytes.data(), &guid, sizeof guid);
    bool highDigit = true;
    for (const OLECHAR c : kPattern) {
        const int place = DigitOf(c);
        if (place < 0) {
            *text++ = c;
            continue;
        }
        const int value = bytes[static_cast<std::size_t>(place)];
        *text++ = OLESTR("0123456789ABCDEF")[highDigit ? value >> 4 : value & 15];
        highDigit = !highDigit;
    }
    *text = 0;
    return kTextUnits;
}

HRESULT WINAPI CLSIDFromString(LPCOLESTR text, LPCLSID clsid)
{
    if (!clsid)
        return E_INVALIDARG;
    *clsid = CLSID_NULL;
    if (!text)
        return S_OK;
    if (*text != OLESTR('{'))
        return CLSIDFromProgID(text, clsid);
    return ParseGuid(text, *clsid) ? S_OK : CO_E_CLASSSTRING;
}

HRESULT WINAPI CLSIDFromProgID(LPCOLESTR progId, LPCLSID clsid)
{
    if (!progId || !clsid)
        return E_INVALIDARG;
    *clsid = CLSID_NULL;
    const RegisteredClass* const entry = RegisteredClass::FindProgId(progId);
    if (!entry)
        return CO_E_CLASSSTRING;
    *clsid = entry->ClassId();
    return S_OK;
}

/// The text is the caller's, to be freed by CoTaskMemFree.
HRESULT WINAPI ProgIDFromCLSID(REFCLSID clsid, LPOLESTR* out)
{
    if (!out)
        return E_INVALIDARG;
    *out = nullptr;
    const RegisteredClass* const entry = RegisteredClass::Find(clsid);
    if (!entry || !entry->ProgId())
        return REGDB_E_CLASSNOTREG;
    const TextView progId = entry->ProgId();
    OLECHAR* const copy = static_cast<OLECHAR*>(CoTaskMemAlloc((progId.size() + 1) * sizeof(OLECHAR)));
    if (!copy)
        return E_OUTOFMEMORY;
    progId.copy(copy, progId.size());
    copy[progId.size()] = 0;
    *out = copy;
    return S_OK;
}
