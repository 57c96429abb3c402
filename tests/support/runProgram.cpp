#include "tests/support/runProgram.h"

#include "tests/support/TempFolder.h"

#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr unsigned kSecondsToHang = 120;

[[noreturn]] void becomeProgram(const std::vector<std::string>& arguments,
                                const ProgramSetting& setting, int input, const char* out,
                                const char* err) {
    constexpr int kNew = O_WRONLY | O_CREAT | O_TRUNC;
    dup2(input, STDIN_FILENO);
    dup2(open(out, kNew, 0600), STDOUT_FILENO);
    dup2(open(err, kNew, 0600), STDERR_FILENO);
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    for (const auto& [name, value] : setting.environment) {
        setenv(name.c_str(), value.c_str(), 1);
    }
    std::vector<char*> argv;
    for (const std::string& argument : arguments) {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);
    alarm(kSecondsToHang);
    if (chdir(setting.folder.c_str()) == 0) {
        execvp(argv[0], argv.data());
    }
    _exit(127);
}

} // namespace

ProgramResult runProgram(const std::vector<std::string>& arguments, const ProgramSetting& setting) {
    const TempFolder streams;
    const std::string out = streams.path("out");
    const std::string err = streams.path("err");
    int input[2];
    if (pipe2(input, O_CLOEXEC) != 0) {
        throw std::runtime_error("cannot make a pipe");
    }
    // Small enough for the pipe's buffer, and written while a reader exists: a program that does
    // not read its input does no harm.
    const bool isFed = write(input[1], setting.input.data(), setting.input.size()) ==
                       static_cast<ssize_t>(setting.input.size());
    const pid_t child = fork();
    if (child == 0) {
        becomeProgram(arguments, setting, input[0], out.c_str(), err.c_str());
    }
    close(input[0]);
    close(input[1]);
    int status = 0;
    if (child < 0 || !isFed || waitpid(child, &status, 0) != child) {
        throw std::runtime_error("cannot run " + arguments[0]);
    }
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), readFile(out),
            readFile(err)};
}
