#include "bench/Contestant.h"

#include "bench/Failure.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

double seconds(const timespec& time) noexcept {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double seconds(const timeval& time) noexcept {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

timespec now() noexcept {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time;
}

/// Where a child notes the time at which it becomes the contestant: the cost of the fork is not
/// the contestant's.
timespec* startOfChild() {
    static auto* const page = static_cast<timespec*>(
        mmap(nullptr, sizeof(timespec), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    if (page == MAP_FAILED) {
        throw Failure("no memory to share with the contestants");
    }
    return page;
}

[[noreturn]] void becomeContestant(char* const* arguments, const char* folder, timespec* start) {
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDIN_FILENO);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
    if (chdir(folder) == 0) {
        *start = now();
        execv(arguments[0], arguments);
    }
    _exit(127);
}

/// The middle value of an odd number of runs, the upper one of the two in the middle otherwise.
double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void printVerdict(double value, Bound bound, double goal) {
    if (bound == Bound::kNone) {
        std::printf("  no goal\n");
        return;
    }
    const bool met = bound == Bound::kAtLeast ? value >= goal : value <= goal;
    std::printf("  %s %5.2f  %s\n", bound == Bound::kAtLeast ? ">=" : "<=", goal,
                met ? "met" : "MISSED");
}

} // namespace

void Contestant::Run(const std::string& folder) {
    if (!output.empty()) {
        unlink(output.c_str());
    }
    std::vector<char*> arguments;
    for (std::string& argument : command) {
        arguments.push_back(argument.data());
    }
    arguments.push_back(nullptr);
    timespec* const start = startOfChild();
    const pid_t child = fork();
    if (child == 0) {
        becomeContestant(arguments.data(), folder.c_str(), start);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child) {
        throw Failure(name + ": " + std::strerror(errno));
    }
    const double end = seconds(now());
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        throw Failure(name + " fails: " + command[0]);
    }
    wall.push_back(end - seconds(*start));
    processor.push_back(seconds(usage.ru_utime) + seconds(usage.ru_stime));
    peakKibibytes = std::max(peakKibibytes, usage.ru_maxrss);
}

void Contestant::Print(double blocks) const {
    const auto [least, most] = std::minmax_element(wall.begin(), wall.end());
    const double middle = median(wall);
    std::printf("%-34s %4zu %10.2f %10.2f %10.2f %10.2f %9.1f", name.c_str(), wall.size(),
                middle * 1e3, *least * 1e3, *most * 1e3, median(processor) * 1e3,
                static_cast<double>(peakKibibytes) / 1024);
    if (blocks > 0) {
        std::printf(" %9.2f\n", blocks / middle * 1e-6);
    } else {
        std::printf(" %9s\n", "-");
    }
}

void printRatio(const char* text, const Contestant& over, const Contestant& under, Bound bound,
                double goal) {
    const double wall = median(over.wall) / median(under.wall);
    std::printf("%-52s %8.2f %8.2f", text, wall, median(over.processor) / median(under.processor));
    printVerdict(wall, bound, goal);
}

void printMemory(const char* text, long kibibytes, double goal) {
    const double mebibytes = static_cast<double>(kibibytes) / 1024;
    std::printf("%-52s %8.2f %8s", text, mebibytes, "-");
    printVerdict(mebibytes, Bound::kAtMost, goal);
}
