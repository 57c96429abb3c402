#include "cli/quillmark/StopSignals.h"

#include <cstddef>
#include <iterator>

namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t firstSignal = 0;
volatile std::sig_atomic_t signalCount = 0;

void takeSignal(int signal) noexcept {
    if (firstSignal == 0) {
        firstSignal = signal;
    }
    signalCount = signalCount + 1;
}

} // namespace

StopSignals::StopSignals() noexcept {
    static_assert(std::size(kSignals) == sizeof m_before / sizeof *m_before);
    firstSignal = 0;
    signalCount = 0;
    sigset_t taken;
    sigemptyset(&taken);
    for (std::size_t i = 0; i < std::size(kSignals); ++i) {
        sigaction(kSignals[i], nullptr, &m_before[i]);
        if (m_before[i].sa_handler == SIG_IGN) {
            continue; // as under nohup
        }
        struct sigaction action {};
        action.sa_handler = takeSignal;
        sigfillset(&action.sa_mask);
        sigaction(kSignals[i], &action, nullptr);
        sigaddset(&taken, kSignals[i]);
    }
    sigprocmask(SIG_BLOCK, &taken, &m_maskBefore);
    m_maskOfWait = m_maskBefore;
    for (const int signal : kSignals) {
        sigdelset(&m_maskOfWait, signal);
    }
}

StopSignals::~StopSignals() {
    for (std::size_t i = 0; i < std::size(kSignals); ++i) {
        sigaction(kSignals[i], &m_before[i], nullptr);
    }
    sigprocmask(SIG_SETMASK, &m_maskBefore, nullptr);
}

void StopSignals::Wait(std::span<pollfd> descriptors) noexcept {
    (void)ppoll(descriptors.data(), descriptors.size(), nullptr, &m_maskOfWait);
}

int StopSignals::First() const noexcept { return firstSignal; }

int StopSignals::Count() const noexcept { return signalCount; }
