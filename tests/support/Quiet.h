#pragma once

#include <array>
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
        for (std::size_t i = 0; i < m_saved.size(); ++i) {
            m_saved[i] = fcntl(kStreams[i], F_DUPFD_CLOEXEC, kStreams[i]);
            (void)dup2(nowhere, kStreams[i]);
        }
        (void)close(nowhere);
    }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;
    ~Quiet() {
        (void)std::fflush(stdout);
        for (std::size_t i = 0; i < m_saved.size(); ++i) {
            (void)dup2(m_saved[i], kStreams[i]);
            (void)close(m_saved[i]);
        }
    }

private:
    static constexpr std::array<int, 2> kStreams = {STDOUT_FILENO, STDERR_FILENO};
    std::array<int, 2> m_saved{};
};
