#include "platform/system/SystemFacts.h"

#include <atomic>

namespace {

// Null stands for this system's own provider.
constinit std::atomic<const SystemFacts*> g_replacement{nullptr};

constexpr const OLECHAR* kDays[] = {OLESTR("Sunday"),   OLESTR("Monday"), OLESTR("Tuesday"), OLESTR("Wednesday"),
                                    OLESTR("Thursday"), OLESTR("Friday"), OLESTR("Saturday")};
constexpr const OLECHAR* kMonths[] = {OLESTR("January"),   OLESTR("February"), OLESTR("March"),    OLESTR("April"),
                                      OLESTR("May"),       OLESTR("June"),     OLESTR("July"),     OLESTR("August"),
                                      OLESTR("September"), OLESTR("October"),  OLESTR("November"), OLESTR("December")};

void AppendTwoDigits(Text& out, int number)
{
    out += static_cast<OLECHAR>(OLESTR('0') + number / 10 % 10);
    out += static_cast<OLECHAR>(OLESTR('0') + number % 10);
}

} // namespace

const SystemFacts& SystemFacts::Current() noexcept
{
    const SystemFacts* const replacement = g_replacement.load(std::memory_order_acquire);
    return replacement ? *replacement : OfThisSystem();
}

ScopedSystemFacts::ScopedSystemFacts(const SystemFacts& facts) noexcept : m_former(g_replacement.exchange(&facts)) {}

ScopedSystemFacts::~ScopedSystemFacts()
{
    g_replacement.store(m_former, std::memory_order_release);
}

Text LocalTimeText(const std::tm& time)
{
    Text out;
    AppendTwoDigits(out, time.tm_hour);
    out += OLESTR(':');
    AppendTwoDigits(out, time.tm_min);
    out += OLESTR(':');
    AppendTwoDigits(out, time.tm_sec);
    out.append(OLESTR(" ")).append(kDays[time.tm_wday]);
    out.append(OLESTR(", ")).append(kMonths[time.tm_mon]);
    out += OLESTR(' ');
    AppendTwoDigits(out, time.tm_mday);
    out += OLESTR(", ");
    const int year = time.tm_year + 1900;
    AppendTwoDigits(out, year / 100);
    AppendTwoDigits(out, year % 100);
    return out;
}

TextView FileNameOf(TextView path)
{
    const std::size_t separator = path.find_last_of(OLESTR("\\/:"));
    return separator == TextView::npos ? path : path.substr(separator + 1);
}
