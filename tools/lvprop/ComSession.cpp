#include "tools/lvprop/ComSession.h"

#include <algorithm>

void RefuseFailure(std::string_view what, const lumevor::Error& error)
{
    std::string reason = lumevor::ToUtf8(error.Description());
    if (reason.empty())
        reason = error.what();
    std::replace(reason.begin(), reason.end(), '\n', ' ');
    std::erase(reason, '\r');
    throw ToolError(ExitStatus::DataHasFaults, std::string(what) + ": " + reason);
}
