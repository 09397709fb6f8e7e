// A machine made of plain values: registry, environment, folders, program and clock.
#pragma once

#include "platform/system/SystemFacts.h"

#include <map>
#include <utility>

class FakeFacts : public SystemFacts {
public:
    bool HasRegistry() const override { return hasRegistry; }
    bool MachineKeyExists(const OLECHAR* key) const override { return keys.contains(key); }
    std::vector<Text> MachineSubKeys(const OLECHAR* key) const override
    {
        return Text(key) == kProduct ? subKeys : std::vector<Text>{};
    }
    std::optional<Text> MachineText(const OLECHAR* key, const OLECHAR* value, DWORD maxBytes) const override
    {
        askedBytes = maxBytes;
        const auto found = keys.find(key);
        if (found == keys.end() || Text(value) != OLESTR("SupportFilesDir"))
            return {};
        return found->second;
    }
    std::optional<Text> CommonDocumentsFolder() const override { return documents; }
    std::optional<Text> EnvironmentVariable(const OLECHAR* name) const override
    {
        const auto found = environment.find(name);
        return found == environment.end() ? std::nullopt : std::optional<Text>(found->second);
    }
    Text ProgramFileName() const override { return program; }
    std::tm LocalTime() const override { return time; }

    /// Makes a sub-key of the product's key, with a directory or without.
    void Install(const Text& name, std::optional<Text> directory = {})
    {
        subKeys.push_back(name);
        keys[kProduct + Text(OLESTR("\\")) + name] = std::move(directory);
    }

    const Text kProduct = OLESTR("Software\\Tolvarin Plc\\Lumevor");
    bool hasRegistry = true;
    std::map<Text, std::optional<Text>> keys; ///< whole path and the value SupportFilesDir
    std::vector<Text> subKeys;
    std::optional<Text> documents;
    std::map<Text, Text> environment;
    Text program = OLESTR("C:\\Programs\\Host\\Host.exe");
    std::tm time{};
    mutable DWORD askedBytes = 0;
};
