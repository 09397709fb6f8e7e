// Long saved texts, random and damaged, through the commands that need no tree: each must come to its end, count every
// record, tell that the data has faults, and take memory in proportion to the file.
//   lvprop_volume [RECORDS]      10 million records when no number is given
#include "tests/tools/SpoiltText.h"
#include "tests/tools/ToolFiles.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

struct Run {
    int status = -1; ///< exit status; -1 when a signal ended the program
    std::size_t peakBytes = 0;
    double seconds = 0;
    std::string end; ///< of what it printed
};

/// Reads a pipe to its end and keeps the last bytes.
std::string EndOf(int pipe)
{
    constexpr std::size_t kKept = 400;
    std::string end;
    std::array<char, 1 << 16> block;
    for (ssize_t count = 0; (count = read(pipe, block.data(), block.size())) > 0;) {
        end.append(block.data(), static_cast<std::size_t>(count));
        if (end.size() > kKept)
            end.erase(0, end.size() - kKept);
    }
    close(pipe);
    return end;
}

Run RunTool(std::vector<std::string> words)
{
    words.insert(words.begin(), LV_TOOL);
    std::vector<char*> argv;
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);

    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0)
        return {};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    const auto start = std::chrono::steady_clock::now();
    pid_t process = 0;
    const int spawned = posix_spawn(&process, LV_TOOL, &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    Run run;
    run.end = EndOf(ends[0]);
    int status = 0;
    rusage usage{};
    if (spawned != 0 || wait4(process, &status, 0, &usage) != process)
        return {};
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    run.peakBytes = static_cast<std::size_t>(usage.ru_maxrss) * 1024;
    run.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return run;
}

/// The file itself once, and what is noted of each record: an id, and a count where it is repeated.
constexpr std::size_t MemoryFor(std::size_t fileBytes, std::size_t records)
{
    constexpr std::size_t kProgram = std::size_t{16} << 20;
    constexpr std::size_t kRecord = 16;
    return kProgram + fileBytes + kRecord * records;
}

/// A file that is written piece by piece: a program that it starts begins with the memory that this one ever had.
class SpoiltFile {
public:
    SpoiltFile(std::string (*make)(unsigned seed, std::size_t records), std::size_t records)
        : m_path(m_files.Path("saved.txt"))
    {
        constexpr std::size_t kPiece = 20'000;
        std::ofstream stream(m_path, std::ios::binary);
        for (unsigned seed = 1; records > 0; ++seed) {
            const std::size_t piece = std::min(records, kPiece);
            Append(stream, make(seed, piece));
            records -= piece;
        }
        Append(stream, "x"); // a line end at the very end would be no part of a record
    }

    const std::string& Path() const { return m_path; }
    std::size_t Bytes() const { return m_bytes; }
    /// What stands between markers, nothing excepted.
    std::size_t Records() const { return m_records; }

private:
    void Append(std::ofstream& stream, const std::string& text)
    {
        stream << text;
        m_bytes += text.size();
        for (const char c : text) {
            m_records += c != '~' && m_last == '~';
            m_last = c;
        }
    }

    ToolFiles m_files;
    std::string m_path;
    std::size_t m_bytes = 0;
    std::size_t m_records = 0;
    char m_last = '~';
};

bool Check(const char* kind, const SpoiltFile& file, std::vector<std::string> command)
{
    std::string name;
    for (const std::string& word : command)
        name += word + " ";
    command.push_back(file.Path());
    const Run run = RunTool(command);
    std::printf("%-8s %-24s %12zu %10.1f %10.1f %8.1f\n", kind, name.c_str(), file.Records(),
                static_cast<double>(file.Bytes()) / 1e6, static_cast<double>(run.peakBytes) / 1e6, run.seconds);
    std::fflush(stdout);

    const bool isJson = command[1] == "--json";
    const std::string counted = std::to_string(file.Records()) + " record";
    const bool counts = isJson || run.end.find(counted) != std::string::npos;
    const bool ends = run.status == 1;
    const std::size_t most = MemoryFor(file.Bytes(), file.Records());
    const bool fits = !LV_MEASURES_MEMORY || run.peakBytes <= most;
    if (!ends)
        std::printf("  exit status %d, not 1\n", run.status);
    if (!counts)
        std::printf("  the output does not end with \"%s...\": %s\n", counted.c_str(), run.end.c_str());
    if (!fits)
        std::printf("  more than the %.1f MB that the file accounts for\n", static_cast<double>(most) / 1e6);
    return ends && counts && fits;
}

bool CheckAll(const char* kind, const SpoiltFile& file)
{
    bool isFine = true;
    for (const std::vector<std::string>& command : {std::vector<std::string>{"decode"},
                                                    {"decode", "--json"},
                                                    {"decode", "--version=0"},
                                                    {"check"},
                                                    {"check", "--json"},
                                                    {"check", "--version=0"}})
        isFine = Check(kind, file, command) && isFine;
    return isFine;
}

} // namespace

int main(int argc, char** argv)
{
    const std::size_t records = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 10'000'000;
    std::printf("%-8s %-24s %12s %10s %10s %8s\n", "text", "command", "records", "file MB", "peak MB", "seconds");
    const bool isFine = CheckAll("random", SpoiltFile(&RandomText, records));
    return CheckAll("damaged", SpoiltFile(&DamagedText, records)) && isFine ? EXIT_SUCCESS : EXIT_FAILURE;
}
