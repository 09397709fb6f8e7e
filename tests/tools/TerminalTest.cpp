// The tool on a terminal: colours on its output, progress on its error stream, neither where somebody reads a file.
#include "tests/tools/ToolFixture.h"

#include <array>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

/// A terminal of its own for one stream of a program.
class Terminal {
public:
    Terminal() : m_master(posix_openpt(O_RDWR | O_NOCTTY))
    {
        EXPECT_GE(m_master, 0);
        EXPECT_EQ(grantpt(m_master), 0);
        EXPECT_EQ(unlockpt(m_master), 0);
        m_name = ptsname(m_master);
        m_slave = open(m_name.c_str(), O_RDWR | O_NOCTTY); // keeps what is written until it is read
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal()
    {
        close(m_slave);
        close(m_master);
    }

    const char* Name() const { return m_name.c_str(); }

    /// What has come so far.
    std::string Read() const
    {
        std::string text;
        pollfd ready{m_master, POLLIN, 0};
        std::array<char, 4096> block;
        while (poll(&ready, 1, 0) == 1 && (ready.revents & POLLIN)) {
            const ssize_t count = read(m_master, block.data(), block.size());
            if (count <= 0)
                break;
            text.append(block.data(), static_cast<std::size_t>(count));
        }
        return text;
    }

private:
    int m_master;
    int m_slave;
    std::string m_name;
};

class OnATerminal : public ToolTest {
protected:
    /// Runs the tool with its output and its error stream at these places. @return the exit status.
    static int RunAt(const char* out, const char* err, const std::vector<std::string>& arguments,
                     std::vector<std::string> settings = {})
    {
        std::vector<std::string> words{LV_TOOL};
        words.insert(words.end(), arguments.begin(), arguments.end());
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out, O_WRONLY | O_NOCTTY, 0);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err, O_WRONLY | O_NOCTTY, 0);
        pid_t process = 0;
        EXPECT_EQ(
            posix_spawn(&process, LV_TOOL, &actions, nullptr, PointersTo(words).data(), PointersTo(settings).data()),
            0);
        posix_spawn_file_actions_destroy(&actions);
        int status = 0;
        EXPECT_EQ(waitpid(process, &status, 0), process);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string saved = files.Write("saved.txt", "~1al1|35~zz");
    Terminal terminal;

private:
    static std::vector<char*> PointersTo(std::vector<std::string>& words)
    {
        std::vector<char*> pointers;
        for (std::string& word : words)
            pointers.push_back(word.data());
        pointers.push_back(nullptr);
        return pointers;
    }
};

} // namespace

TEST_F(OnATerminal, TheOutputIsColoured)
{
    EXPECT_EQ(RunAt(terminal.Name(), "/dev/null", {"decode", saved}), 1);
    EXPECT_THAT(terminal.Read(), AllOf(HasSubstr("\033[1m"), HasSubstr("\033[31mInvalid property string\033[0m")));
}

TEST_F(OnATerminal, TheOutputIsPlainForWhoeverWantsNoColours)
{
    EXPECT_EQ(RunAt(terminal.Name(), "/dev/null", {"decode", saved}, {"NO_COLOR=1"}), 1);
    EXPECT_THAT(terminal.Read(), AllOf(HasSubstr("Invalid property string"), Not(HasSubstr("\033["))));
}

TEST_F(OnATerminal, JsonIsPlain)
{
    EXPECT_EQ(RunAt(terminal.Name(), "/dev/null", {"decode", saved, "--json"}), 1);
    const std::string json = terminal.Read();
    EXPECT_TRUE(nlohmann::json::accept(json)) << json;
}

TEST_F(OnATerminal, TheErrorStreamShowsProgressAndWipesIt)
{
    EXPECT_EQ(RunAt("/dev/null", terminal.Name(), {"check", saved}), 1);
    EXPECT_THAT(terminal.Read(), AllOf(StartsWith("\rrecords: 1"), EndsWith("\r\033[K")));
}
