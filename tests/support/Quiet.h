#pragma once

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

/// While it lives, standard output and standard error go nowhere: for what the code under test
/// prints in great numbers. Allocates nothing, and holds two descriptors.
class Quiet {
public:
    Quiet() noexcept {
        (void)std::fflush(stdout);
        const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
        (void)dup2(nowhere, STDOUT_FILENO);
        (void)dup2(nowhere, STDERR_FILENO);
        (void)close(nowhere);
    }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;
    ~Quiet() {
        (void)std::fflush(stdout);
        (void)dup2(m_output, STDOUT_FILENO);
        (void)dup2(m_error, STDERR_FILENO);
        (void)close(m_output);
        (void)close(m_error);
    }

private:
    int m_output = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDOUT_FILENO);
    int m_error = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO);
};
