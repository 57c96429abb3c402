#include "tests/support/runProgram.h"

#include "tests/support/TempFolder.h"

#include <csignal>
#include <cstdio>
#include <regex>
#include <sys/wait.h>

namespace {

// The text as one word of a shell command, behind a blank.
std::string word(const std::string& text) {
    return " '" + std::regex_replace(text, std::regex("'"), "'\\''") + "'";
}

} // namespace

ProgramResult runProgram(const std::vector<std::string>& arguments, const ProgramSetting& setting) {
    const TempFolder streams;
    std::string command = "ulimit -c 0; cd" + word(setting.folder) + " && exec >" +
                          word(streams.path("out")) + " 2>" + word(streams.path("err")) +
                          " timeout -s KILL 120 env";
    for (const auto& [name, value] : setting.environment) {
        command += word(name + "=" + value);
    }
    for (const std::string& argument : arguments) {
        command += word(argument);
    }
    std::FILE* const input = popen(command.c_str(), "w");
    // A program that does not read its input does no harm.
    const auto atBrokenPipe = std::signal(SIGPIPE, SIG_IGN);
    (void)std::fwrite(setting.input.data(), 1, setting.input.size(), input);
    const int status = pclose(input);
    (void)std::signal(SIGPIPE, atBrokenPipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), streams.read("out"),
            streams.read("err")};
}
