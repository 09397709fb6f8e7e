// Any text through every read of the scanner: no read may move backwards, touch its value without success or, where it
// succeeds, disagree with what the value prints as.
#include "frame/NumberScan.h"
#include "frame/NumberText.h"
#include "fuzz/FuzzInput.h"

#include <bit>
#include <cmath>

namespace {

template <class T, class Method>
void Exercise(TextView text, Method method)
{
    const T untouched = 77;
    TextScanner scanner(text);
    while (!scanner.AtEnd()) {
        const std::size_t before = scanner.Rest().size();
        T value = untouched;
        if ((scanner.*method)(value)) {
            Require(scanner.Rest().size() < before);
        } else {
            Require(scanner.Rest().size() == before && value == untouched);
            Require(scanner.ReadLiteral(scanner.Rest().front()));
        }
    }
}

void RequireRoundTrip(TextView text)
{
    double value = 0;
    if (!TextScanner(text).ReadDouble(value))
        return;
    Require(std::isfinite(value));
    double again = 0;
    Require(TextScanner(FormatGeneral(value, 17)).ReadDouble(again));
    Require(std::bit_cast<std::uint64_t>(value) == std::bit_cast<std::uint64_t>(again));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const InputText input(data, size);
    const TextView text = input.View();
    Exercise<double>(text, &TextScanner::ReadDouble);
    Exercise<float>(text, &TextScanner::ReadFloat);
    Exercise<LONG>(text, &TextScanner::ReadDecimal<LONG>);
    Exercise<LONG>(text, &TextScanner::ReadHex<LONG>);
    RequireRoundTrip(text);
    return 0;
}
