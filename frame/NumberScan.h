// A cursor that reads numbers and literals out of 16-bit text, as the scan formats of the C library would in the "C"
// locale where those are defined, and by fixed rules where they are not:
// - every number skips white space ahead of it and takes one sign of either kind;
// - it takes the longest valid prefix, and the cursor stops behind that;
// - integers keep the low 32 bits of what stands there, without a limit;
// - floating-point text is decimal only, rounded correctly from the text, and an overflow gives the largest finite
//   number. "inf", "nan" and hexadecimal floats are no numbers.
// A read that finds nothing returns false and leaves the cursor and the value alone.
#pragma once

#include "platform/com/Ole.h"

#include <concepts>

/// A 32-bit integer of any name: LONG, DWORD, std::int32_t and the like.
template <class T>
concept Integer32 = std::integral<T> && sizeof(T) == 4;

class TextScanner {
public:
    explicit TextScanner(TextView text) : m_at(text.data()), m_end(m_at + text.size()) {}

    /// "%x" and "%X": digits of either case behind an optional "0x". "0x" alone reads 0.
    template <Integer32 T>
    bool ReadHex(T& value)
    {
        std::uint32_t bits = 0;
        if (!ReadHexBits(bits))
            return false;
        value = static_cast<T>(bits);
        return true;
    }

    /// "%ld" and "%lu": decimal digits only, so that "0x1F" reads 0 and "12.7" reads 12.
    template <Integer32 T>
    bool ReadDecimal(T& value)
    {
        std::uint32_t bits = 0;
        if (!ReadDecimalBits(bits))
            return false;
        value = static_cast<T>(bits);
        return true;
    }

    /// The hexadecimal digits that stand exactly here, without white space, sign or prefix.
    bool ReadBareHex(std::uint32_t& value);

    bool ReadDouble(double& value); ///< "%lg", "%lf"
    bool ReadFloat(float& value);   ///< "%f": rounded once, from the text to single precision.

    // Numbers in the very form in which NumberText writes them and in no other: what is read here renders as the same
    // text again, unit by unit. So a text that comes back unchanged, as nearly all saved ones do, can be kept as its
    // number. No white space, no plus, no zeros that nobody needs, and at most 15 digits with all its decimals.
    bool ReadWrittenNumber(int decimals, double& value); ///< as `FormatNumber(value, decimals)`
    bool ReadWrittenSigned(std::int32_t& value);         ///< as "%d"
    bool ReadWrittenUnsigned(std::uint32_t& value);      ///< as "%u"

    /// A literal of a format: must stand exactly here, without white space ahead of it.
    bool ReadLiteral(OLECHAR unit);
    bool ReadLiteral(TextView text);

    /// White space of a format: any amount of it, none included.
    void SkipWhiteSpace();

    /// What has not been read.
    TextView Rest() const { return {m_at, static_cast<std::size_t>(m_end - m_at)}; }
    bool AtEnd() const { return m_at == m_end; }

private:
    bool ReadHexBits(std::uint32_t& bits);
    bool ReadDecimalBits(std::uint32_t& bits);
    template <class Float>
    bool ReadFloating(Float& value);

    const OLECHAR* m_at;
    const OLECHAR* m_end;
};
