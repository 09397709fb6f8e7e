#include "platform/system/AnsiText.h"

#include <algorithm>
#include <limits>

namespace {

// The conversions count in int; longer texts go in pieces of this many units.
constexpr std::size_t kPiece = std::numeric_limits<int>::max() / 4;

} // namespace

std::string AnsiFrom(TextView text)
{
    std::string out;
    while (!text.empty()) {
        const TextView piece = text.substr(0, std::min(text.size(), kPiece));
        const int units = static_cast<int>(piece.size());
        const int bytes = WideCharToMultiByte(CP_ACP, 0, piece.data(), units, nullptr, 0, nullptr, nullptr);
        const std::size_t start = out.size();
        out.resize(start + static_cast<std::size_t>(bytes));
        WideCharToMultiByte(CP_ACP, 0, piece.data(), units, out.data() + start, bytes, nullptr, nullptr);
        text.remove_prefix(piece.size());
    }
    return out;
}

Text TextFromAnsi(std::string_view bytes)
{
    Text out;
    while (!bytes.empty()) {
        const std::string_view piece = bytes.substr(0, std::min(bytes.size(), kPiece));
        const int count = static_cast<int>(piece.size());
        const int units = MultiByteToWideChar(CP_ACP, 0, piece.data(), count, nullptr, 0);
        const std::size_t start = out.size();
        out.resize(start + static_cast<std::size_t>(units));
        MultiByteToWideChar(CP_ACP, 0, piece.data(), count, out.data() + start, units);
        bytes.remove_prefix(piece.size());
    }
    return out;
}
