// Windows provider, on the registry and the shell.
#include "platform/system/SystemFacts.h"

#include <shlobj.h>

#include <array>
#include <iterator>
#include <utility>

namespace {

/// A key of the local machine, opened for reading.
class MachineKey {
public:
    explicit MachineKey(const OLECHAR* name)
    {
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, name, 0, KEY_READ, &m_key) != ERROR_SUCCESS)
            m_key = nullptr;
    }
    ~MachineKey()
    {
        if (m_key)
            RegCloseKey(m_key);
    }
    MachineKey(const MachineKey&) = delete;
    MachineKey& operator=(const MachineKey&) = delete;

    explicit operator bool() const { return m_key != nullptr; }
    HKEY Get() const { return m_key; }

private:
    HKEY m_key = nullptr;
};

class WindowsFacts final : public SystemFacts {
public:
    bool HasRegistry() const override { return true; }

    bool MachineKeyExists(const OLECHAR* key) const override { return static_cast<bool>(MachineKey(key)); }

    std::vector<Text> MachineSubKeys(const OLECHAR* key) const override
    {
        std::vector<Text> names;
        const MachineKey opened(key);
        if (!opened)
            return names;
        OLECHAR name[260];
        for (DWORD index = 0;; ++index) {
            DWORD length = static_cast<DWORD>(std::size(name));
            const LSTATUS status =
                RegEnumKeyExW(opened.Get(), index, name, &length, nullptr, nullptr, nullptr, nullptr);
            if (status != ERROR_SUCCESS)
                return names;
            names.emplace_back(name, length);
        }
    }

    std::optional<Text> MachineText(const OLECHAR* key, const OLECHAR* value, DWORD maxBytes) const override
    {
        const MachineKey opened(key);
        if (!opened)
            return std::nullopt;
        // One unit more than may be read: the registry does not promise a terminator.
        Text buffer(maxBytes / 2 + 1, 0);
        DWORD bytes = maxBytes / 2 * 2;
        const LSTATUS status =
            RegQueryValueExW(opened.Get(), value, nullptr, nullptr, reinterpret_cast<BYTE*>(buffer.data()), &bytes);
        if (status != ERROR_SUCCESS)
            return std::nullopt;
        buffer.resize(std::char_traits<OLECHAR>::length(buffer.c_str()));
        return buffer;
    }

    std::optional<Text> CommonDocumentsFolder() const override
    {
        OLECHAR folder[MAX_PATH];
        if (SHGetFolderPathW(nullptr, CSIDL_COMMON_DOCUMENTS, nullptr, SHGFP_TYPE_CURRENT, folder) != S_OK)
            return std::nullopt;
        return folder;
    }

    std::optional<Text> EnvironmentVariable(const OLECHAR* name) const override
    {
        Text value(MAX_PATH, 0);
        for (;;) {
            SetLastError(ERROR_SUCCESS);
            const DWORD size = static_cast<DWORD>(value.size());
            const DWORD length = GetEnvironmentVariableW(name, value.data(), size);
            if (length == 0 && GetLastError() == ERROR_ENVVAR_NOT_FOUND)
                return std::nullopt;
            value.resize(length); // the room that is needed, when it did not fit
            if (length < size)
                return value;
        }
    }

    Text ProgramFileName() const override
    {
        Text name(MAX_PATH, 0);
        for (;;) {
            const DWORD size = static_cast<DWORD>(name.size());
            const DWORD length = GetModuleFileNameW(nullptr, name.data(), size);
            if (length < size) {
                name.resize(length);
                return name;
            }
            name.resize(name.size() * 2); // cut off
        }
    }

    std::tm LocalTime() const override
    {
        const std::time_t now = std::time(nullptr);
        std::tm broken{};
        localtime_s(&broken, &now);
        return broken;
    }
};

} // namespace

const SystemFacts& SystemFacts::OfThisSystem() noexcept
{
    static const WindowsFacts facts;
    return facts;
}
