// What the server asks of the machine it runs on: registry, folders, environment, the program's name and the time.
// All questions go through one provider, which tests and native hosts may replace by one of their own.
#pragma once

#include "platform/com/Ole.h"

#include <ctime>
#include <optional>
#include <vector>

/// Answers about the machine. Every method may be called on any thread and never throws but for lack of memory.
class SystemFacts {
public:
    SystemFacts() = default;
    SystemFacts(const SystemFacts&) = delete;
    SystemFacts& operator=(const SystemFacts&) = delete;
    virtual ~SystemFacts() = default;

    /// False when there is no registry to ask at all, so that "not found" says nothing about the machine.
    virtual bool HasRegistry() const = 0;
    /// Whether a key of the local machine opens for reading.
    virtual bool MachineKeyExists(const OLECHAR* key) const = 0;
    /// Names of a key's direct sub-keys, up to 260 characters each, in the order of their index; empty when the key
    /// does not open.
    virtual std::vector<Text> MachineSubKeys(const OLECHAR* key) const = 0;
    /// Text of a key's value, up to its first null character. Nothing when it is missing or takes more than
    /// `maxBytes`, its terminator included.
    virtual std::optional<Text> MachineText(const OLECHAR* key, const OLECHAR* value, DWORD maxBytes) const = 0;

    /// Documents folder of all users, without a separator at its end.
    virtual std::optional<Text> CommonDocumentsFolder() const = 0;
    /// Nothing when the variable is not set; a set one may be empty.
    virtual std::optional<Text> EnvironmentVariable(const OLECHAR* name) const = 0;
    /// Whole path of the running program.
    virtual Text ProgramFileName() const = 0;
    /// Local time, broken down.
    virtual std::tm LocalTime() const = 0;

    /// The provider in use: this system's own until another one takes its place.
    static const SystemFacts& Current() noexcept;
    /// This system's own provider. Natively it has no registry and knows no folder.
    static const SystemFacts& OfThisSystem() noexcept;
};

/// Puts a provider in use for the scope's life and the former one back afterwards. Scopes nest; they are opened and
/// closed while no other thread asks.
class ScopedSystemFacts {
public:
    explicit ScopedSystemFacts(const SystemFacts& facts) noexcept;
    ~ScopedSystemFacts();
    ScopedSystemFacts(const ScopedSystemFacts&) = delete;
    ScopedSystemFacts& operator=(const ScopedSystemFacts&) = delete;

private:
    const SystemFacts* const m_former;
};

/// "%H:%M:%S %A, %B %d, %Y" with the English names, whatever the process's locale: "07:05:09 Friday, March 01, 2024".
Text LocalTimeText(const std::tm& time);

/// Part of a path behind its last separator.
TextView FileNameOf(TextView path);
