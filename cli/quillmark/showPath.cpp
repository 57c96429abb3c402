#include "cli/quillmark/showPath.h"

#include "cli/quillmark/RunWatch.h"
#include "cli/quillmark/exitStatus.h"
#include "cli/shared/printText.h"
#include "driver/fileIdentity.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr const char* kViewer = "quillmark-view";

std::filesystem::path wholeName(const char* name) {
    std::error_code error;
    return std::filesystem::weakly_canonical(std::filesystem::absolute(name, error), error);
}

// Also of files that are yet to be made.
bool isSameName(const char* left, const char* right) {
    return right != nullptr &&
           (isSameRegularFile(left, right) || wholeName(left) == wholeName(right));
}

// Without a slash when there is none beside this executable, so that PATH is searched.
std::string viewerName() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    const std::string beside = (program.parent_path() / kViewer).string();
    return !error && access(beside.c_str(), X_OK) == 0 ? beside : kViewer;
}

std::vector<std::string> argumentsOf(const char* view, const ConversionFiles& files) {
    const std::string output = files.output;
    std::vector<std::string> arguments = {kViewer, output.starts_with('-') ? "./" + output : output,
                                          "-o", view};
    std::error_code error;
    if (files.log != nullptr && std::filesystem::is_regular_file(files.log, error)) {
        arguments.insert(arguments.end(), {"-l", files.log});
    }
    return arguments;
}

// Returns 0 with the process, or the system's error.
int start(const std::string& name, const std::vector<std::string>& arguments, pid_t& process) {
    std::vector<char*> argv;
    argv.reserve(arguments.size() + 1);
    for (const std::string& argument : arguments) {
        argv.push_back(const_cast<char*>(argument.c_str())); // the interface of exec wants it so
    }
    argv.push_back(nullptr);
    return posix_spawnp(&process, name.c_str(), nullptr, nullptr, argv.data(), environ);
}

// A signal that reaches this process alone goes on to it.
int waitFor(pid_t process) noexcept {
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
        if (RunWatch::Signal() != 0) {
            (void)kill(process, RunWatch::Signal());
        }
    }
    return status;
}

int fail(const char* view, const std::string& reason, int exitStatus) {
    std::fputs("quillmark: the output is complete, but '", stderr);
    printText(stderr, view);
    std::fprintf(stderr, "' was not made: %s\n", reason.c_str());
    return exitStatus;
}

} // namespace

const char* viewObjection(const char* view, const ConversionFiles& files, const char* report) {
    if (isSameName(view, files.parameter) || isSameName(view, files.nc)) {
        return "it is an input of this run";
    }
    if (isSameName(view, files.output) || isSameName(view, files.log) || isSameName(view, report)) {
        return "it is another output of this run";
    }
    return nullptr;
}

int showPath(const char* view, const ConversionFiles& files) {
    const std::string name = viewerName();
    pid_t process = 0;
    if (const int error = start(name, argumentsOf(view, files), process); error != 0) {
        return fail(view,
                    error == ENOENT ? std::string("no quillmark-view beside quillmark, nor in PATH")
                                    : "cannot start '" + name + "': " + std::strerror(error),
                    kExitUsage);
    }
    const int status = waitFor(process);
    if (WIFSIGNALED(status)) {
        return fail(view, "signal " + std::to_string(WTERMSIG(status)) + " ended quillmark-view",
                    kExitSignal + WTERMSIG(status));
    }
    const int exitStatus = WEXITSTATUS(status);
    return exitStatus == 0
               ? 0
               : fail(view, "quillmark-view ended with status " + std::to_string(exitStatus),
                      kExitUsage);
}
