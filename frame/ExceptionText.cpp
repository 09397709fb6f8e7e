#include "frame/ExceptionText.h"

#include "frame/FormatText.h"
#include "frame/LVErrorInfo.h"
#include "frame/LanguageStrings.h"
#include "frame/Raise.h"
#include "platform/com/SystemText.h"

#include <string>

namespace {

constexpr const OLECHAR* kUnknownErrorFallback = OLESTR("Unknown error encountered in file:\r\n%s(%d)");

Text DescriptionOf(const ComError& error)
{
    if (!error.info)
        return SystemText(error.hr);
    CComBSTR description;
    error.info->GetDescription(&description);
    return Text(description.View());
}

} // namespace

CaughtException DescribeCurrentException()
{
    try {
        throw;
    } catch (const LVErrorInfo& error) {
        Text message = error.m_szMessage;
        if (error.m_bHasLocation)
            message.append(OLESTR("\r\n")).append(error.m_szLocation);
        return {error.m_hr, std::move(message)};
    } catch (const ComError& error) {
        return {error.hr, DescriptionOf(error)};
    } catch (const OLECHAR* text) {
        // On purpose: a thrown text is a description without a failure, so the method succeeds and still reports it.
        return {S_OK, text};
    } catch (...) {
        return {kInternalError, {}, false};
    }
}

Text UnknownErrorAt(CallSite here)
{
    Text format;
    if (!LoadLanguageString(kUnknownErrorString, format))
        format = kUnknownErrorFallback;
    const std::string file(here.file);
    return FormatText(format, Text(file.begin(), file.end()), here.line);
}
