#include "suite/settings/SettingsFile.h"

#include "suite/CodePages.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

std::optional<SettingsText> ReadSettingsFile(const Text& path)
{
    std::error_code error;
    const fs::path file(path);
    const fs::file_status status = fs::status(file, error);
    if (status.type() == fs::file_type::not_found)
        return SettingsText();
    if (!fs::is_regular_file(status))
        return std::nullopt;

    std::ifstream in(file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (!in.good() && !in.eof())
        return std::nullopt;
    const ByteView view(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    // Editors like to save in another encoding than they found.
    const LONG marked = CodePageOfMark(view);
    Text content;
    DecodeText(view, marked < 0 ? kCodePageUtf8 : marked, content);
    return SettingsText(content);
}

bool WriteSettingsFile(const Text& path, const SettingsText& settings)
{
    std::error_code error;
    const fs::path file(path);
    if (file.has_parent_path())
        fs::create_directories(file.parent_path(), error);

    fs::path fresh = file;
    fresh += ".new";
    ByteBuffer bytes;
    EncodeText(settings.Write(), kCodePageUtf8, bytes);
    std::ofstream out(fresh, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.Data()), static_cast<std::streamsize>(bytes.Size()));
    out.close();
    if (!out) {
        fs::remove(fresh, error);
        return false;
    }
    fs::rename(fresh, file, error);
    if (error) {
        std::error_code ignored;
        fs::remove(fresh, ignored);
    }
    return !error;
}
