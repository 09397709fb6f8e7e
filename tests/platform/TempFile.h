// A file name that nobody else has, and the file's bytes around the class under test.
#pragma once

#include "platform/system/Utf8.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

/// The file is removed when the scope closes.
class TempFile {
public:
    TempFile()
    {
        const std::string name = "lv_" + std::to_string(std::random_device()()) + ".tmp";
        m_path = std::filesystem::temp_directory_path() / name;
    }
    explicit TempFile(std::string_view bytes) : TempFile() { Put(bytes); }
    ~TempFile() { Remove(); }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    Text Name() const
    {
        const std::u8string name = m_path.u8string();
        return TextFromUtf8({reinterpret_cast<const char*>(name.data()), name.size()});
    }
    bool Exists() const { return std::filesystem::exists(m_path); }
    void Put(std::string_view bytes) { std::ofstream(m_path, std::ios::binary) << bytes; }
    std::string Bytes() const
    {
        std::ifstream file(m_path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    void Remove()
    {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }
    std::filesystem::path m_path;
};
