// Numbers as text on 16-bit units, digit by digit what the C library prints in its "C" locale for "%.*f", "%g",
// "%d", "%u" and "%x". No locale is ever asked. Everyday values take a road of plain 64-bit integer arithmetic;
// huge values and more than nine decimals take a longer one with the same result.
//
// A `Write...` function fills a caller's buffer of kMaxFastNumber units and returns the end of the text; it may
// scribble on the units behind that end and writes no terminator.
#pragma once

#include "platform/com/Ole.h"

/// Units that a caller must give to a `Write...` function.
inline constexpr std::size_t kMaxFastNumber = 32;

enum class HexCase { Lower, Upper };

OLECHAR* WriteSigned(OLECHAR* out, std::int32_t value) noexcept;                ///< "%d"
OLECHAR* WriteUnsigned(OLECHAR* out, std::uint32_t value) noexcept;             ///< "%u"
OLECHAR* WriteHex(OLECHAR* out, std::uint32_t value, HexCase letters) noexcept; ///< "%x", "%X"

/// The number text of a property: "%.*f", and with one decimal or more without trailing zeros and without a point at
/// the end. Zeros are cut after rounding, so a small negative value reads "-0". Fewer decimals than none print six,
/// zeros kept. Non-finite values print "inf", "-inf" and "nan".
Text FormatNumber(double value, int decimals);
void AppendNumber(Text& out, double value, int decimals);

/// `AppendNumber` into a buffer for those who write many numbers. Null, with the buffer's content lost, for a value
/// of 2^53 or more, a non-finite one, or decimals outside 0 to 9: then `AppendNumber` is the way.
OLECHAR* TryWriteNumber(OLECHAR* out, double value, int decimals) noexcept;

/// "%.*f" with all its zeros: the exact binary value, correctly rounded, ties to even.
Text FormatFixed(double value, int decimals);
void AppendFixed(Text& out, double value, int decimals);

/// "%.*g": that many significant digits, an exponent of two digits or more ("1e+14"), six digits by default.
Text FormatGeneral(double value, int digits = 6);
void AppendGeneral(Text& out, double value, int digits = 6);

/// "% 10.*f": a blank ahead of what has no minus sign, right aligned in ten columns; a longer number is not cut.
void AppendColumn(Text& out, double value, int decimals);

void AppendSigned(Text& out, std::int32_t value);
void AppendUnsigned(Text& out, std::uint32_t value);
void AppendHex(Text& out, std::uint32_t value, HexCase letters);
