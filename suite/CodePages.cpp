#include "suite/CodePages.h"

#include "platform/system/AnsiText.h"
#include "platform/system/Utf8.h"
#include "platform/system/Windows1252.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

std::string NarrowFrom(TextView text, LONG codePage)
{
    switch (codePage) {
    case kCodePageUtf8: return Utf8From(text);
    case kCodePageWindows1252: return Windows1252From(text);
    default: return AnsiFrom(text);
    }
}

Text TextFromNarrow(std::string_view bytes, LONG codePage)
{
    switch (codePage) {
    case kCodePageUtf8: return TextFromUtf8(bytes);
    case kCodePageWindows1252: return TextFromWindows1252(bytes);
    default: return TextFromAnsi(bytes);
    }
}

void AppendUnits(ByteView bytes, Text& text)
{
    const std::size_t before = text.size();
    const std::size_t units = bytes.size() / sizeof(OLECHAR);
    text.resize(before + units);
    if (units != 0)
        std::memcpy(text.data() + before, bytes.data(), units * sizeof(OLECHAR));
}

constexpr unsigned char kMarkUtf16[] = {0xFF, 0xFE};
constexpr unsigned char kMarkUtf8[] = {0xEF, 0xBB, 0xBF};

bool StartsWith(ByteView bytes, ByteView mark)
{
    return bytes.size() >= mark.size() && std::equal(mark.begin(), mark.end(), bytes.begin());
}

} // namespace

void EncodeText(TextView text, LONG codePage, ByteBuffer& out)
{
    if (codePage == kCodePageUtf16) {
        out.Append(text.data(), text.size() * sizeof(OLECHAR));
    } else {
        const std::string bytes = NarrowFrom(text, codePage);
        out.Append(bytes.data(), bytes.size());
    }
}

void DecodeText(ByteView bytes, LONG codePage, Text& text)
{
    if (codePage == kCodePageUtf16)
        AppendUnits(bytes, text);
    else
        text += TextFromNarrow({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, codePage);
}

ByteView ByteOrderMark(LONG codePage)
{
    switch (codePage) {
    case kCodePageUtf16: return kMarkUtf16;
    case kCodePageUtf8: return kMarkUtf8;
    default: return {};
    }
}

LONG CodePageOfMark(ByteView bytes)
{
    return StartsWith(bytes, kMarkUtf16) ? kCodePageUtf16 : StartsWith(bytes, kMarkUtf8) ? kCodePageUtf8 : -1;
}

std::size_t FindBytes(ByteView bytes, ByteView pattern, std::size_t step)
{
    if (pattern.empty())
        return bytes.size();
    std::size_t at = 0;
    while (bytes.size() - at >= pattern.size()) {
        const void* const hit = std::memchr(bytes.data() + at, pattern[0], bytes.size() - at - pattern.size() + 1);
        if (!hit)
            break;
        at = static_cast<std::size_t>(static_cast<const unsigned char*>(hit) - bytes.data());
        if (at % step == 0 && std::memcmp(hit, pattern.data(), pattern.size()) == 0)
            return at;
        ++at;
    }
    return bytes.size();
}
