// Native provider: no registry and no well-known folders; environment, program name and time are those of the system.
#include "platform/system/SystemFacts.h"

#include "platform/system/Utf8.h"

#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

class NativeFacts final : public SystemFacts {
public:
    bool HasRegistry() const override { return false; }
    bool MachineKeyExists(const OLECHAR*) const override { return false; }
    std::vector<Text> MachineSubKeys(const OLECHAR*) const override { return {}; }
    std::optional<Text> MachineText(const OLECHAR*, const OLECHAR*, DWORD) const override { return std::nullopt; }
    std::optional<Text> CommonDocumentsFolder() const override { return std::nullopt; }

    std::optional<Text> EnvironmentVariable(const OLECHAR* name) const override
    {
        const char* const value = std::getenv(Utf8From(name).c_str());
        return value ? std::optional(TextFromUtf8(value)) : std::nullopt;
    }
    Text ProgramFileName() const override
    {
        std::error_code error;
        return TextFromUtf8(std::filesystem::read_symlink("/proc/self/exe", error).native());
    }
    std::tm LocalTime() const override
    {
        const std::time_t now = std::time(nullptr);
        std::tm broken{};
        localtime_r(&now, &broken);
        return broken;
    }
};

} // namespace

const SystemFacts& SystemFacts::OfThisSystem() noexcept
{
    static const NativeFacts facts;
    return facts;
}
