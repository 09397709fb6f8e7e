#include "frame/SupportFilesDir.h"

#include "platform/system/SystemFacts.h"

#include <optional>

namespace {

constexpr const OLECHAR* kProductKey = OLESTR("Software\\Tolvarin Plc\\Lumevor");
constexpr const OLECHAR* kDirValue = OLESTR("SupportFilesDir");
constexpr DWORD kDirBytes = 260;

/// The products that may host the server, the one to prefer first.
constexpr const OLECHAR* kHosts[] = {
    OLESTR("Tarnwick Plugin"),
    OLESTR("Oxbel Plugin"),
    OLESTR("Sable Editor"),
    OLESTR("Sable Editor (Varn)"),
};

/// Variables may name each other in a circle; no sensible setting goes this deep.
constexpr int kMostReplacements = 64;

Text KeyOf(const Text& name)
{
    return Text(kProductKey).append(OLESTR("\\")).append(name);
}

std::optional<Text> InstalledHost(const SystemFacts& facts)
{
    for (const OLECHAR* const host : kHosts)
        if (facts.MachineKeyExists(KeyOf(host).c_str()))
            return host;
    return {};
}

} // namespace

Text GetSupportFilesDir()
{
    const SystemFacts& facts = SystemFacts::Current();
    const std::optional<Text> host = InstalledHost(facts);
    if (!host)
        return {};
    // A product may be installed under a longer name than the host's own, so every sub-key that holds it counts.
    for (const Text& name : facts.MachineSubKeys(kProductKey)) {
        if (name.find(*host) == name.npos)
            continue;
        if (std::optional<Text> dir = facts.MachineText(KeyOf(name).c_str(), kDirValue, kDirBytes))
            return ExpandEnvironment(std::move(*dir));
    }
    return {};
}

Text ExpandEnvironment(Text text)
{
    for (int i = 0; i < kMostReplacements; ++i) {
        const std::size_t first = text.find(OLESTR('%'));
        const std::size_t second = first == text.npos ? first : text.find(OLESTR('%'), first + 1);
        if (second == text.npos)
            break;
        const Text name = text.substr(first + 1, second - first - 1);
        const std::optional<Text> value = SystemFacts::Current().EnvironmentVariable(name.c_str());
        if (!value)
            break;
        text.replace(first, second - first + 1, *value);
    }
    return text;
}
