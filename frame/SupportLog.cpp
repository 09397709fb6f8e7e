#include "frame/SupportLog.h"

#include "frame/FormatText.h"
#include "frame/SupportFilesDir.h"
#include "frame/Version.h"
#include "frame/lvuStdioFile.h"
#include "platform/system/SystemFacts.h"

#include <optional>

namespace {

constexpr const OLECHAR* kLogName = OLESTR("ProductSupportErrorLog.txt");

/// Content is kept and the file made when it is missing.
constexpr UINT kAppend =
    CStdioFile::modeWrite | CStdioFile::modeCreate | CStdioFile::modeNoTruncate | CStdioFile::typeText;

/// Longest time text, its terminator included.
constexpr std::size_t kTimeUnits = 128;

Text EntryOf(const SystemFacts& facts, const Text& text)
{
    const Text program = facts.ProgramFileName();
    const Text time = LocalTimeText(facts.LocalTime()).substr(0, kTimeUnits - 1);
    const Text header = FormatText(OLESTR("[%s, v%s: %s]\n"), FileNameOf(program), kVersionText, time);
    return FormatText(OLESTR("%s%s\n"), header, text);
}

bool OpenLog(ClvuStdioFile& file, Text directory, UINT share)
{
    return file.Open(directory.append(OLESTR("\\")).append(kLogName).c_str(), kAppend | share);
}

bool OpenLog(ClvuStdioFile& file, const SystemFacts& facts)
{
    const Text directory = GetSupportFilesDir();
    // On purpose: a machine without a known host has the file in the root directory, if it can be opened there. Where
    // there is no registry to know a host from, that says nothing.
    if ((!directory.empty() || facts.HasRegistry()) && OpenLog(file, directory, CStdioFile::shareDenyWrite))
        return true;
    const std::optional<Text> documents = facts.CommonDocumentsFolder();
    return documents && OpenLog(file, *documents, CStdioFile::shareDenyNone);
}

} // namespace

void WriteSupportLog(const Text& text, bool bWithHeader) noexcept
{
    try {
        const SystemFacts& facts = SystemFacts::Current();
        const Text entry = bWithHeader ? EntryOf(facts, text) : text;
        ClvuStdioFile file;
        if (!OpenLog(file, facts))
            return;
        file.SeekToEnd();
        file.WriteString(entry);
        file.Close();
    } catch (...) {
        // On purpose: the log serves whoever has trouble already and must not add to it.
    }
}
