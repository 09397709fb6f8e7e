// Any text read as a tolerance: it fails for a bad type alone, and what was read comes back from its own text and from
// the record of the interface.
#include "core/prpTolerance.h"
#include "frame/LVErrorInfo.h"
#include "frame/NumberScan.h"
#include "frame/Raise.h"
#include "frame/TextTools.h"
#include "fuzz/FuzzInput.h"
#include "tests/core/ToleranceRecord.h"

#include <optional>

namespace {

std::optional<CprpTolerance> Read(TextView text)
{
    try {
        return CprpTolerance::Parse(text);
    } catch (const LVErrorInfo& error) {
        Require(error.m_hr == kInternalError);
        return std::nullopt;
    }
}

bool HasBadType(TextView text)
{
    ULONG head = 0;
    TextScanner(*SplitAt(text, OLESTR("#")).begin()).ReadHex(head);
    return (head & 0xFF) > E_TOL_TYPE_GDT_RECTANGULAR;
}

Text Written(const CprpTolerance& tolerance)
{
    Text text;
    tolerance.AppendTo(text);
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const InputText input(data, size);
    const std::optional<CprpTolerance> first = Read(input.View());
    Require(first.has_value() != HasBadType(input.View()));
    if (!first)
        return 0;

    const Text written = Written(*first);
    std::optional<CprpTolerance> second = Read(written);
    Require(second.has_value());
    Require(Written(*second) == written);
    Require(second->Equals(*Read(written)));

    ToleranceRecord record;
    second->Get(record);
    CprpTolerance third;
    third.Set(record);
    Require(Written(third) == written && third.Equals(*second));
    third.Convert(25.4);
    return 0;
}
