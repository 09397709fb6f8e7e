// Texts of the interfaces: 16-bit units everywhere (wchar_t on Windows, char16_t elsewhere), owned as BSTR, and UTF-8
// at a program's edges. The kit brings owners of its own, so that it goes with any other library of COM helpers.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <ole2.h>

#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace lumevor {

using Text = std::basic_string<OLECHAR>;
using TextView = std::basic_string_view<OLECHAR>;

/// A lone surrogate becomes U+FFFD.
inline std::string ToUtf8(TextView text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t code = static_cast<char16_t>(text[i]);
        if (code >= 0xD800 && code < 0xE000) {
            const char32_t low = i + 1 < text.size() ? static_cast<char16_t>(text[i + 1]) : 0u;
            const bool isPair = code < 0xDC00 && low >= 0xDC00 && low < 0xE000;
            code = isPair ? 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00) : U'\xFFFD';
            i += isPair;
        }
        const auto add = [&](char32_t bits, char32_t lead) { out += static_cast<char>(lead | bits); };
        if (code < 0x80) {
            add(code, 0);
        } else if (code < 0x800) {
            add(code >> 6, 0xC0);
            add(code & 0x3F, 0x80);
        } else {
            if (code < 0x10000) {
                add(code >> 12, 0xE0);
            } else {
                add(code >> 18, 0xF0);
                add((code >> 12) & 0x3F, 0x80);
            }
            add((code >> 6) & 0x3F, 0x80);
            add(code & 0x3F, 0x80);
        }
    }
    return out;
}

/// Each byte that begins no character becomes U+FFFD.
inline Text FromUtf8(std::string_view bytes)
{
    Text out;
    for (std::size_t i = 0; i < bytes.size();) {
        const auto byteAt = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
        const unsigned lead = byteAt(i);
        const std::size_t length = lead < 0x80   ? 1
                                   : lead < 0xC2 ? 0
                                   : lead < 0xE0 ? 2
                                   : lead < 0xF0 ? 3
                                   : lead < 0xF5 ? 4
                                                 : 0;
        char32_t code = length == 1 ? lead : lead & (0x7Fu >> length);
        bool isCharacter = length != 0 && i + length <= bytes.size();
        for (std::size_t k = 1; isCharacter && k < length; ++k) {
            isCharacter = (byteAt(i + k) & 0xC0) == 0x80;
            code = code << 6 | (byteAt(i + k) & 0x3F);
        }
        constexpr char32_t kLowest[] = {0, 0, 0x80, 0x800, 0x10000};
        if (!isCharacter || code < kLowest[length] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) {
            out += static_cast<OLECHAR>(0xFFFD);
            ++i;
            continue;
        }
        if (code >= 0x10000) {
            out += static_cast<OLECHAR>(0xD800 + ((code - 0x10000) >> 10));
            out += static_cast<OLECHAR>(0xDC00 + ((code - 0x10000) & 0x3FF));
        } else {
            out += static_cast<OLECHAR>(code);
        }
        i += length;
    }
    return out;
}

/// Owns one BSTR.
class String {
public:
    String() = default;
    explicit String(TextView text) : m_text(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())))
    {
        if (!m_text)
            throw std::bad_alloc();
    }
    String(const String& other) : m_text(nullptr)
    {
        if (other.m_text)
            String(other.View()).Swap(*this);
    }
    String(String&& other) noexcept : m_text(std::exchange(other.m_text, nullptr)) {}
    String& operator=(String other) noexcept
    {
        Swap(other);
        return *this;
    }
    ~String() { SysFreeString(m_text); }

    void Swap(String& other) noexcept { std::swap(m_text, other.m_text); }

    /// For in parameters; stays owned here.
    BSTR Get() const noexcept { return m_text; }
    /// For out parameters, which must come in null: frees what is held.
    BSTR* Put() noexcept
    {
        SysFreeString(std::exchange(m_text, nullptr));
        return &m_text;
    }
    /// Hands the BSTR over to whoever frees it.
    BSTR Detach() noexcept { return std::exchange(m_text, nullptr); }

    bool IsNull() const noexcept { return !m_text; }
    /// Whole content by its length prefix; a null BSTR is an empty text.
    TextView View() const noexcept { return m_text ? TextView(m_text, SysStringLen(m_text)) : TextView(); }
    lumevor::Text ToText() const { return lumevor::Text(View()); }

private:
    BSTR m_text = nullptr;
};

} // namespace lumevor
