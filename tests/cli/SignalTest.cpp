#include "tests/cli/ProgramTest.h"
#include "tests/support/convert.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gmock/gmock.h>
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

    /// Starts a conversion whose standard error is `err`, a file unless it is a descriptor.
    void start(int err = -1) {
        m_process = fork();
        if (m_process == 0) {
            const int file =
                err >= 0 ? err : open(m_folder.path("err").c_str(), O_CREAT | O_WRONLY, 0600);
            if (chdir(m_folder.path().c_str()) == 0 && dup2(file, STDERR_FILENO) >= 0 &&
                setenv("TERM", "xterm", 1) == 0) {
                (void)execl(QUILLMARK_PROGRAMS "/quillmark", "quillmark", "-p", "a.pp", "-nc",
                            "pipe", "-of", "o", "-l", "l", "--report", "r", nullptr);
            }
            _exit(1);
        }
        m_pipe = open(m_folder.path("pipe").c_str(), O_WRONLY); // waits for the reader
    }

    /// Gives it blocks. A pipe holds less than these, so most of them are converted by then.
    void feed() {
        std::string blocks;
        while (blocks.size() < 400'000) {
            blocks += "G1 X" + std::to_string(++m_blocks) + "\n";
        }
        ASSERT_EQ(write(m_pipe, blocks.data(), blocks.size()), static_cast<ssize_t>(blocks.size()));
    }

    /// Waits for its end: the exit status, or minus the number of a signal.
    int end() {
        (void)close(m_pipe);
        m_pipe = -1;
        int status = 0;
        EXPECT_EQ(waitpid(m_process, &status, 0), m_process);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    pid_t m_process = -1;
    int m_pipe = -1;
    int m_blocks = 0;
};

TEST_F(Signals, EndTheConversionBehindABlock) {
    for (const auto& [signal, name] :
         {std::pair(SIGINT, "INT"), {SIGTERM, "TERM"}, {SIGHUP, "HUP"}}) {
        start();
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
    start();
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
              "until [ -e /proc/$!/fd/4 ]; do :; done; kill -TERM $!; exec 3>&-; wait $!; echo $?");
    EXPECT_EQ(result.out, "143\n");
    EXPECT_EQ(result.err, "quillmark: stopped by SIGTERM before the first block\n");
    EXPECT_EQ(read("o"), "old");
}

TEST_F(Signals, OfTheClockShowATerminalHowFarItIs) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_TRUE(terminal >= 0 && grantpt(terminal) == 0 && unlockpt(terminal) == 0);
    const int end = open(ptsname(terminal), O_RDWR | O_NOCTTY);
    start(end);
    (void)close(end);
    (void)fcntl(terminal, F_SETFL, O_NONBLOCK);
    std::string shown;
    char buffer[1024];
    // However long a second takes: blocks come until it has passed.
    while (shown.find("quillmark: block ") == std::string::npos) {
        feed();
        const ssize_t length = ::read(terminal, buffer, sizeof buffer);
        shown.append(buffer, length > 0 ? static_cast<std::size_t>(length) : 0);
    }
    EXPECT_EQ(this->end(), 0);
    for (ssize_t length = 0; (length = ::read(terminal, buffer, sizeof buffer)) > 0;) {
        shown.append(buffer, static_cast<std::size_t>(length));
    }
    (void)close(terminal);
    EXPECT_THAT(shown, MatchesRegex("(\r\x1B\\[Kquillmark: block [0-9]+)+\r\x1B\\[K"));
}

} // namespace
