#include "tools/lvprop/Files.h"

#include "tools/lvprop/ToolError.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace {

std::filesystem::path PathOf(const std::string& name)
{
    return std::filesystem::path(std::u8string(name.begin(), name.end()));
}

std::string LastSystemError()
{
    return std::strerror(errno);
}

} // namespace

std::string ReadFile(const std::string& name)
{
    if (name == "-")
        return std::string(std::istreambuf_iterator<char>(std::cin), {});
    const std::filesystem::path path = PathOf(name);
    std::error_code error;
    if (std::filesystem::is_directory(path, error))
        RefuseInput(name + ": this is a folder, not a file");
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    if (!stream)
        RefuseInput(name + ": cannot be read: " + LastSystemError());
    std::string bytes;
    if (const auto size = std::filesystem::file_size(path, error); !error)
        bytes.reserve(size);
    char block[1 << 16];
    while (stream.read(block, sizeof block) || stream.gcount() > 0)
        bytes.append(block, static_cast<size_t>(stream.gcount()));
    if (stream.bad())
        RefuseInput(name + ": cannot be read to its end: " + LastSystemError());
    return bytes;
}

void WriteFile(const std::string& name, std::string_view bytes)
{
    if (name == "-") {
        std::cout << bytes << std::flush;
        return;
    }
    const std::filesystem::path path = PathOf(name);
    std::filesystem::path beside = path;
    beside += ".part";
    errno = 0;
    {
        std::ofstream stream(beside, std::ios::binary | std::ios::trunc);
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        stream.close();
        if (!stream) {
            const std::string reason = LastSystemError();
            std::error_code ignored;
            std::filesystem::remove(beside, ignored);
            RefuseInput(name + ": cannot be written: " + reason);
        }
    }
    std::error_code error;
    std::filesystem::rename(beside, path, error);
    if (error) {
        std::filesystem::remove(beside, error);
        RefuseInput(name + ": cannot be written: the file cannot be replaced");
    }
}
