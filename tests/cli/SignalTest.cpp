#include "tests/cli/ProgramTest.h"
#include "tests/support/convert.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <regex>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

using testing::HasSubstr;
using testing::MatchesRegex;

namespace {

/// A conversion of a pipe that the test fills.
class Signals : public ProgramTest {
protected:
    Signals() { EXPECT_EQ(shell("mkfifo pipe").status, 0); }
    ~Signals() override {
        if (m_pipe >= 0) {
            (void)close(m_pipe);
        }
    }

    /// Starts a conversion whose standard error is `err`, a file unless it is a descriptor. Waits
    /// for it to open the pipe.
    void start(const char* nc, const char* output, int err = -1) {
        m_process = fork();
        if (m_process == 0) {
            const int file =
                err >= 0 ? err : open(m_folder.path("err").c_str(), O_CREAT | O_WRONLY, 0600);
            if (chdir(m_folder.path().c_str()) == 0 && dup2(file, STDERR_FILENO) >= 0 &&
                setenv("TERM", "xterm", 1) == 0) {
                (void)execl(QUILLMARK_PROGRAMS "/quillmark", "quillmark", "-p", "a.pp", "-nc", nc,
                            "-of", output, "-l", "l", "--report", "r", nullptr);
            }
            _exit(1);
        }
        m_pipe = open(m_folder.path("pipe").c_str(), nc == kPipe ? O_WRONLY : O_RDONLY);
    }

    std::string someBlocks(std::size_t size) {
        std::string blocks;
        while (blocks.size() < size) {
            blocks += "G1 X" + std::to_string(++m_blocks) + "\n";
        }
        return blocks;
    }

    /// Gives it blocks. A pipe holds less than these, so most of them are converted by then.
    void feed() {
        const std::string blocks = someBlocks(400'000);
        ASSERT_EQ(write(m_pipe, blocks.data(), blocks.size()), static_cast<ssize_t>(blocks.size()));
    }

    /// Reads at most that much of what it writes; empty at the end.
    std::string drain(std::size_t most) const {
        std::string text(most, '\0');
        const ssize_t length = ::read(m_pipe, text.data(), most);
        text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
        return text;
    }

    /// Whether it waits in a call of the system.
    [[nodiscard]] bool sleeps() const {
        const std::string state = readFile("/proc/" + std::to_string(m_process) + "/stat");
        return state.find(") S ") != std::string::npos;
    }

    /// Waits for its end: the exit status, or minus the number of a signal.
    int end() {
        (void)close(m_pipe);
        m_pipe = -1;
        int status = 0;
        EXPECT_EQ(waitpid(m_process, &status, 0), m_process);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    static constexpr const char* kPipe = "pipe";
    pid_t m_process = -1;
    int m_pipe = -1;
    int m_blocks = 0;
};

TEST_F(Signals, EndTheConversionBehindABlock) {
    for (const auto& [signal, name] :
         {std::pair(SIGINT, "INT"), {SIGTERM, "TERM"}, {SIGHUP, "HUP"}}) {
        start(kPipe, "o");
        feed();
        ASSERT_EQ(kill(m_process, signal), 0);
        EXPECT_EQ(end(), 128 + signal);
        const std::string apt = read("o");
        const auto last = std::count(apt.begin(), apt.end(), '\n');
        ASSERT_GT(last, 10'000);
        ASSERT_LT(last, m_blocks);
        const std::string x = std::to_string(last);
        EXPECT_TRUE(apt.ends_with(goTo(static_cast<double>(last), 0, 0)));
        EXPECT_TRUE(
            read("l").ends_with("\nG1 X" + x + "\n" + goTo(static_cast<double>(last), 0, 0)));
        EXPECT_EQ(read("err"), "quillmark: stopped by SIG" + std::string(name) + " behind block " +
                                   x + ": G1 X" + x +
                                   "; 'o' holds what was converted until then\n");
        const std::string report = read("r");
        EXPECT_THAT(report, HasSubstr("\"return_code\": null,\n  \"meaning\": null,\n"
                                      "  \"exit_status\": " +
                                      std::to_string(128 + signal)));
        EXPECT_THAT(report, HasSubstr("\"stopped\": {\n    \"signal\": " + std::to_string(signal) +
                                      ",\n    \"line\": " + x + ",\n"));
        EXPECT_TRUE(report.ends_with("\n}\n"));
        m_blocks = 0;
        EXPECT_EQ(shell("rm err").status, 0);
    }
}

TEST_F(Signals, ChangeNothingWhenTheyAreIgnoredOrTooLate) {
    (void)std::signal(SIGHUP, SIG_IGN); // as under nohup
    start(kPipe, "o");
    (void)std::signal(SIGHUP, SIG_DFL);
    feed();
    ASSERT_EQ(kill(m_process, SIGHUP), 0);
    EXPECT_EQ(end(), 0);
    const std::string apt = read("o");
    EXPECT_EQ(std::count(apt.begin(), apt.end(), '\n'), m_blocks);
}

TEST_F(Signals, LeaveTheOldResultWhileTheInputsAreRead) {
    m_folder.write("o", "old");
    // The parameter file is the pipe: nothing has begun.
    const ProgramResult result =
        shell("exec 3<>pipe; quillmark -p pipe -nc a.nc -of o 3>&- & "
              "until grep -q 'SigCgt:.*[4-7c-f]...$' /proc/$!/status; do :; done; " // SIGTERM is 15
              "kill -TERM $!; exec 3>&-; wait $!; echo $?");
    EXPECT_EQ(result.out, "143\n");
    EXPECT_EQ(result.err, "quillmark: stopped by SIGTERM before the first block\n");
    EXPECT_EQ(read("o"), "old");
}

TEST_F(Signals, LoseNothingOfWhatAPipeHasNotTakenYet) {
    m_folder.write("a.nc", someBlocks(4'000'000));
    start("a.nc", kPipe);
    int waiting = 0;
    while (waiting < fcntl(m_pipe, F_GETPIPE_SZ) || !sleeps()) { // then it hangs in its writing
        ASSERT_EQ(ioctl(m_pipe, FIONREAD, &waiting), 0);
    }
    ASSERT_EQ(kill(m_process, SIGTERM), 0);
    std::string apt;
    for (std::string part; !(part = drain(65'536)).empty();) {
        apt += part;
    }
    EXPECT_EQ(end(), 143);
    const auto last = std::count(apt.begin(), apt.end(), '\n');
    EXPECT_LT(last, m_blocks);
    EXPECT_TRUE(apt.ends_with(goTo(static_cast<double>(last), 0, 0)));
}

/// A terminal for the standard error of a conversion.
class Terminal : public Signals {
protected:
    Terminal() {
        m_terminal = posix_openpt(O_RDWR | O_NOCTTY);
        EXPECT_TRUE(m_terminal >= 0 && grantpt(m_terminal) == 0 && unlockpt(m_terminal) == 0);
        EXPECT_EQ(fcntl(m_terminal, F_SETFL, O_NONBLOCK), 0);
        m_end = open(ptsname(m_terminal), O_RDWR | O_NOCTTY);
    }
    ~Terminal() override {
        (void)close(m_end);
        (void)close(m_terminal);
    }

    /// Whether it shows the text by now.
    bool shows(const std::string& text) {
        std::array<char, 1024> buffer{};
        for (ssize_t length = 0; (length = ::read(m_terminal, buffer.data(), buffer.size())) > 0;) {
            m_shown.append(buffer.data(), static_cast<std::size_t>(length));
        }
        return m_shown.find(text) != std::string::npos;
    }

    int m_terminal = -1;
    int m_end = -1;
    std::string m_shown;
};

// However long a second takes: there are blocks until it has passed.
TEST_F(Terminal, ShowsTheBlockOfALongConversion) {
    start(kPipe, "o", m_end);
    while (!shows("quillmark: block ")) {
        feed();
    }
    EXPECT_EQ(end(), 0);
    EXPECT_FALSE(shows("%"));
    EXPECT_THAT(m_shown, MatchesRegex("(\r\x1B\\[Kquillmark: block [0-9]+)+\r\x1B\\[K"));
}

TEST_F(Terminal, ShowsHowMuchOfAFileIsRead) {
    m_folder.write("a.nc", someBlocks(6'000'000));
    start("a.nc", kPipe, m_end);
    while (!shows(" %\r") && !drain(2048).empty()) {
        (void)usleep(500);
    }
    ASSERT_EQ(kill(m_process, SIGTERM), 0);
    while (!drain(65'536).empty()) {
    }
    EXPECT_EQ(end(), 143);
    const std::regex progress("quillmark: block ([0-9]+), ([0-9]+) %");
    std::smatch found;
    ASSERT_TRUE(std::regex_search(m_shown, found, progress)) << m_shown;
    // What is read runs ahead of the block.
    const int percent = 100 * std::stoi(found[1]) / m_blocks;
    EXPECT_NEAR(std::stoi(found[2]), percent, 5);
}

} // namespace
