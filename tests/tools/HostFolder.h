// A folder as a host deploys it without registration: libraries, manifests, texts, and the manifest of a program. On
// Windows these are the real files of the build; natively, files with the headers of libraries.
#pragma once

#include "tests/tools/ToolFiles.h"

#include <functional>
#include <string>

class HostFolder {
public:
    HostFolder();

    std::string Path() const { return m_files.Path(""); }
    std::string File(const std::string& name) const { return m_files.Path(name); }
    void Remove(const std::string& name) const { std::filesystem::remove(File(name)); }
    void Write(const std::string& name, const std::string& bytes) const { m_files.Write(name, bytes); }
    /// Changes the bytes of a file.
    void Edit(const std::string& name, const std::function<void(std::string&)>& change) const
    {
        std::string bytes = ToolFiles::Read(File(name));
        change(bytes);
        Write(name, bytes);
    }
    /// Replaces the first occurrence in a file.
    void Replace(const std::string& name, const std::string& from, const std::string& to) const
    {
        Edit(name, [&](std::string& bytes) { bytes.replace(bytes.find(from), from.size(), to); });
    }

private:
    /// Puts the libraries and their manifests there, and keeps the user's own settings out.
    void Fill() const;

    ToolFiles m_files;
};
