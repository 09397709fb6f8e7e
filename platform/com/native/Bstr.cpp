// Native bodies of the BSTR family. A BSTR points behind a byte count of four bytes and ends in a terminator that
// the count leaves out; the count may be odd. Any thread may allocate and any other may free.
#include "platform/com/Ole.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

// The count stands in the last four of these bytes, so that the characters keep an alignment of eight.
constexpr std::size_t kHeader = 8;

// The rest of 32 bits is left for header and terminator, as the count and the allocation are of that width elsewhere.
constexpr UINT kMaxBytes = 0xFFFFFFF0u - kHeader;

char* BlockOf(BSTR bstr)
{
    return reinterpret_cast<char*>(bstr) - kHeader;
}

void SetByteCount(char* block, UINT bytes)
{
    std::memcpy(block + kHeader - sizeof(UINT), &bytes, sizeof(UINT));
}

/// Writes the count and a terminator that stands at the first whole character behind the text.
BSTR Finish(char* block, UINT bytes)
{
    SetByteCount(block, bytes);
    std::memset(block + kHeader + bytes, 0, sizeof(OLECHAR) + bytes % sizeof(OLECHAR));
    return reinterpret_cast<BSTR>(block + kHeader);
}

std::size_t BlockSize(UINT bytes)
{
    return kHeader + bytes + bytes % sizeof(OLECHAR) + sizeof(OLECHAR);
}

/// Without a source the content is undefined up to the terminator.
BSTR Allocate(const void* source, UINT bytes)
{
    if (bytes > kMaxBytes)
        return nullptr;
    char* const block = static_cast<char*>(std::malloc(BlockSize(bytes)));
    if (!block)
        return nullptr;
    if (source)
        std::memcpy(block + kHeader, source, bytes);
    return Finish(block, bytes);
}

UINT LengthOf(const OLECHAR* text)
{
    return static_cast<UINT>(std::char_traits<OLECHAR>::length(text));
}

} // namespace

BSTR WINAPI SysAllocString(const OLECHAR* text)
{
    return text ? SysAllocStringLen(text, LengthOf(text)) : nullptr;
}

BSTR WINAPI SysAllocStringLen(const OLECHAR* text, UINT length)
{
    return length > kMaxBytes / sizeof(OLECHAR) ? nullptr : Allocate(text, length * UINT{sizeof(OLECHAR)});
}

BSTR WINAPI SysAllocStringByteLen(LPCSTR bytes, UINT count)
{
    return Allocate(bytes, count);
}

void WINAPI SysFreeString(BSTR bstr)
{
    if (bstr)
        std::free(BlockOf(bstr));
}

INT WINAPI SysReAllocString(LPBSTR bstr, const OLECHAR* text)
{
    return SysReAllocStringLen(bstr, text, text ? LengthOf(text) : 0);
}

/// The source may lie within the old string. The old string stays as it was when there is no memory. Without a
/// source the old content is kept as far as the new length reaches.
int WINAPI SysReAllocStringLen(BSTR* bstr, const OLECHAR* text, UINT length)
{
    if (!bstr)
        return FALSE;
    BSTR const fresh = SysAllocStringLen(text, length);
    if (!fresh)
        return FALSE;
    if (!text && *bstr)
        std::memcpy(fresh, *bstr, std::min(length * UINT{sizeof(OLECHAR)}, SysStringByteLen(*bstr)));
    SysFreeString(*bstr);
    *bstr = fresh;
    return TRUE;
}

UINT WINAPI SysStringByteLen(BSTR bstr)
{
    UINT bytes = 0;
    if (bstr)
        std::memcpy(&bytes, BlockOf(bstr) + kHeader - sizeof(UINT), sizeof(UINT));
    return bytes;
}

UINT WINAPI SysStringLen(BSTR bstr)
{
    return SysStringByteLen(bstr) / UINT{sizeof(OLECHAR)};
}
