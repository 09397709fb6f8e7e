// Random values of many kinds, seeded, against a library that is known to be exact.
#include "frame/NumberScan.h"
#include "frame/NumberText.h"
#include "tests/frame/ReferenceNumbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <functional>
#include <limits>
#include <random>

namespace {

using Random = std::mt19937_64;

Text Widen(const std::string& ascii)
{
    return {ascii.begin(), ascii.end()};
}

std::string Narrow(TextView text)
{
    std::string ascii;
    for (const OLECHAR unit : text)
        ascii.push_back(static_cast<char>(unit));
    return ascii;
}

std::string Trimmed(std::string text, int decimals)
{
    if (decimals > 0) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.')
            text.pop_back();
    }
    return text;
}

int Between(Random& random, int first, int last)
{
    return std::uniform_int_distribution(first, last)(random);
}

double AnyFinite(Random& random)
{
    for (;;) {
        const auto value = std::bit_cast<double>(random());
        if (std::isfinite(value))
            return value;
    }
}

/// Values as users and programs make them: some digits, some decimals.
double Everyday(Random& random)
{
    const auto digits = static_cast<double>(static_cast<std::int64_t>(random() >> Between(random, 11, 63)));
    return (random() & 1 ? digits : -digits) / std::pow(10.0, Between(random, 0, 12));
}

/// Magnitudes from far below one unit to far above 2^53, all bits in use.
double Moderate(Random& random)
{
    return std::ldexp(static_cast<double>(static_cast<std::int64_t>(random())), Between(random, -110, 4));
}

/// Few binary digits behind the point, so that many are exact ties at some decimal.
double Tie(Random& random)
{
    return std::ldexp(static_cast<double>(static_cast<std::int64_t>(random()) >> Between(random, 12, 62)),
                      -Between(random, 1, 12));
}

/// A value and its neighbours at a rounding edge of a decimal number.
double Edge(Random& random)
{
    const double base =
        (static_cast<double>(Between(random, 0, 2'000'000)) + 0.5) / std::pow(10.0, Between(random, 0, 9));
    switch (random() % 3) {
    case 0: return base;
    case 1: return std::nextafter(base, 0.0);
    default: return std::nextafter(base, std::numeric_limits<double>::infinity());
    }
}

const std::function<double(Random&)> kFamilies[] = {AnyFinite, Everyday, Moderate, Tie, Edge};

TEST(RandomNumbers, FixedTextEqualsTheLibraryAtZeroToTwentyDecimals)
{
    Random random(1);
    Text text;
    for (const auto& family : kFamilies) {
        for (int count = 0; count < reference::kValues; ++count) {
            const double value = family(random);
            const int decimals = Between(random, 0, 20);
            text.clear();
            AppendFixed(text, value, decimals);
            ASSERT_EQ(Narrow(text), reference::Fixed(value, decimals)) << std::hexfloat << value << ' ' << decimals;
        }
    }
}

TEST(RandomNumbers, NumberTextEqualsTheLibraryWithItsZerosCut)
{
    Random random(2);
    Text text;
    for (const auto& family : kFamilies) {
        for (int count = 0; count < reference::kValues; ++count) {
            const double value = family(random);
            const int decimals = Between(random, 0, 9);
            text.clear();
            AppendNumber(text, value, decimals);
            ASSERT_EQ(Narrow(text), Trimmed(reference::Fixed(value, decimals), decimals))
                << std::hexfloat << value << ' ' << decimals;
        }
    }
}

TEST(RandomNumbers, GeneralTextEqualsTheLibraryAtSixAndSixteenDigits)
{
    Random random(3);
    for (const auto& family : kFamilies) {
        for (int count = 0; count < reference::kValues / 4; ++count) {
            const double value = family(random);
            ASSERT_EQ(Narrow(FormatGeneral(value)), reference::General(value, 6)) << std::hexfloat << value;
            ASSERT_EQ(Narrow(FormatGeneral(value, 16)), reference::General(value, 16)) << std::hexfloat << value;
        }
    }
}

void ExpectReadsLikeTheLibrary(const std::string& ascii)
{
    const Text text = Widen(ascii);
    double wide = -1;
    float single = -1;
    ASSERT_TRUE(TextScanner(text).ReadDouble(wide)) << ascii;
    ASSERT_TRUE(TextScanner(text).ReadFloat(single)) << ascii;
    const double expectedWide = reference::ReadDouble(ascii);
    const float expectedSingle = reference::ReadFloat(ascii);
    if (std::isfinite(expectedWide)) {
        ASSERT_EQ(std::bit_cast<std::uint64_t>(wide), std::bit_cast<std::uint64_t>(expectedWide)) << ascii;
    }
    if (std::isfinite(expectedSingle)) {
        ASSERT_EQ(std::bit_cast<std::uint32_t>(single), std::bit_cast<std::uint32_t>(expectedSingle)) << ascii;
    } else {
        ASSERT_EQ(std::fabs(single), std::numeric_limits<float>::max()) << ascii;
    }
}

/// Values whose text neither overflows nor vanishes in single precision, so that every library agrees on them.
bool SuitsSinglePrecision(double value)
{
    return value == 0 || (std::fabs(value) > 1e-37 && std::fabs(value) < 1e38);
}

TEST(RandomNumbers, PrintedNumbersReadBackAsTheLibraryReadsThem)
{
    Random random(4);
    for (const auto& family : kFamilies) {
        for (int count = 0; count < reference::kValues / 2; ++count) {
            const double value = family(random);
            const int decimals = Between(random, 1, 20);
            if (SuitsSinglePrecision(value) && std::fabs(value) > 1)
                ExpectReadsLikeTheLibrary(reference::Fixed(value, decimals));
            if (SuitsSinglePrecision(value))
                ExpectReadsLikeTheLibrary(reference::General(value, Between(random, 1, 20)));
        }
    }
}

TEST(RandomNumbers, WhatIsReadAsAWrittenNumberRendersAsTheSameText)
{
    Random random(8);
    int read = 0;
    for (const auto& family : kFamilies) {
        for (int count = 0; count < reference::kValues; ++count) {
            const int decimals = Between(random, 0, 9);
            // Rounded elsewhere than it is read, so that some texts have a decimal too many or too few.
            const Text text = FormatNumber(family(random), std::clamp(decimals + Between(random, -1, 1), 0, 9));
            double value = 0;
            if (!TextScanner(text).ReadWrittenNumber(decimals, value))
                continue;
            ++read;
            ASSERT_EQ(Narrow(FormatNumber(value, decimals)), Narrow(text)) << decimals;
            ASSERT_EQ(std::bit_cast<std::uint64_t>(value),
                      std::bit_cast<std::uint64_t>(reference::ReadDouble(Narrow(text))))
                << Narrow(text);
        }
    }
    EXPECT_GT(read, reference::kValues); // of five times as many
}

TEST(RandomNumbers, EveryEverydayNumberIsReadInTheFormInWhichItWasWritten)
{
    Random random(9);
    for (int count = 0; count < reference::kValues; ++count) {
        const int decimals = Between(random, 0, 6);
        const double written = static_cast<double>(Between(random, -2'000'000'000, 2'000'000'000)) / 1e4;
        const Text text = FormatNumber(written, decimals);
        double value = 0;
        ASSERT_TRUE(TextScanner(text).ReadWrittenNumber(decimals, value)) << Narrow(text);
        ASSERT_EQ(Narrow(FormatNumber(value, decimals)), Narrow(text));
    }
}

TEST(RandomNumbers, SeventeenDigitsGiveEveryFiniteDoubleBack)
{
    Random random(5);
    for (int count = 0; count < reference::kValues; ++count) {
        const double value = AnyFinite(random);
        double read = -1;
        const Text text = FormatGeneral(value, 17);
        ASSERT_TRUE(TextScanner(text).ReadDouble(read));
        ASSERT_EQ(std::bit_cast<std::uint64_t>(read), std::bit_cast<std::uint64_t>(value)) << Narrow(text);
    }
}

TEST(RandomNumbers, TiesOfSinglePrecisionAreDecidedByTheText)
{
    Random random(6);
    for (int count = 0; count < reference::kValues / 4; ++count) {
        // Halfway between two floats in few enough digits, and a trifle beside it.
        const double tie = static_cast<double>(2 * Between(random, 1 << 23, (1 << 24) - 1) + 1) / 128;
        std::string text = reference::Fixed(tie, 10);
        text.back() = static_cast<char>('0' + Between(random, 0, 1));
        ExpectReadsLikeTheLibrary(text);
        ExpectReadsLikeTheLibrary(text + "0000000001");
    }
}

TEST(RandomNumbers, DigitsOfRandomLengthReadLikeTheLibrary)
{
    Random random(7);
    for (int count = 0; count < reference::kValues / 2; ++count) {
        std::string text;
        const int length = Between(random, 1, 24);
        const int point = Between(random, 0, 24);
        for (int at = 0; at < length; ++at) {
            if (at == point)
                text.push_back('.');
            text.push_back(static_cast<char>('0' + Between(random, 0, 9)));
        }
        if (random() & 1)
            text += "e" + std::to_string(Between(random, -12, 12));
        ExpectReadsLikeTheLibrary(text);
    }
}

} // namespace
