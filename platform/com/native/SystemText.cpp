// Native body: the few codes that the core meets, in the words that Windows has for them.
#include "platform/com/SystemText.h"

#include <algorithm>
#include <iterator>

namespace {

struct CodeText {
    HRESULT code;
    const OLECHAR* text;
};

constexpr CodeText kTexts[] = {
    {E_INVALIDARG, OLESTR("The parameter is incorrect.\r\n")},
    {E_OUTOFMEMORY, OLESTR("Not enough storage is available to complete this operation.\r\n")},
    {E_NOTIMPL, OLESTR("Not implemented\r\n")},
    {E_NOINTERFACE, OLESTR("No such interface supported\r\n")},
    {REGDB_E_CLASSNOTREG, OLESTR("Class not registered\r\n")},
};

} // namespace

Text SystemText(HRESULT code)
{
    if (code == 0)
        return {};
    const auto found = std::ranges::find(kTexts, code, &CodeText::code);
    return found == std::end(kTexts) ? OLESTR("Error Formatting Last Error") : found->text;
}
