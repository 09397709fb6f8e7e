// A folder of its own for one test, gone at its end, and the files in it.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

class ToolFiles {
public:
    ToolFiles()
    {
        std::random_device random;
        do
            m_folder = std::filesystem::temp_directory_path() / ("lvprop-" + std::to_string(random()));
        while (!std::filesystem::create_directory(m_folder));
    }
    ~ToolFiles()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    ToolFiles(const ToolFiles&) = delete;
    ToolFiles& operator=(const ToolFiles&) = delete;

    std::string Path(const std::string& name) const { return (m_folder / name).string(); }
    bool Has(const std::string& name) const { return std::filesystem::exists(m_folder / name); }
    size_t Count() const
    {
        return static_cast<size_t>(std::distance(std::filesystem::directory_iterator(m_folder), {}));
    }

    /// Writes a file and gives its path.
    std::string Write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(m_folder / name, std::ios::binary) << bytes;
        return Path(name);
    }
    static std::string Read(const std::string& path)
    {
        std::ifstream stream(std::filesystem::path(path), std::ios::binary);
        std::stringstream bytes;
        bytes << stream.rdbuf();
        return bytes.str();
    }

private:
    std::filesystem::path m_folder;
};
