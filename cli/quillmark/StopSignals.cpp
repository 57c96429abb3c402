#include "cli/quillmark/StopSignals.h"

#include <cstddef>

namespace {

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
    firstSignal = 0;
    signalCount = 0;
    sigset_t taken;
    sigemptyset(&taken);
    for (std::size_t i = 0; i < std::size(kStopSignals); ++i) {
        sigaction(kStopSignals[i], nullptr, &m_before[i]);
        if (m_before[i].sa_handler == SIG_IGN) {
            continue; // as under nohup
        }
        struct sigaction action {};
        action.sa_handler = takeSignal;
        sigfillset(&action.sa_mask);
        sigaction(kStopSignals[i], &action, nullptr);
        sigaddset(&taken, kStopSignals[i]);
    }
    sigprocmask(SIG_BLOCK, &taken, &m_maskBefore);
    m_maskOfWait = m_maskBefore;
    for (const int signal : kStopSignals) {
        sigdelset(&m_maskOfWait, signal);
    }
}

StopSignals::~StopSignals() {
    for (std::size_t i = 0; i < std::size(kStopSignals); ++i) {
        sigaction(kStopSignals[i], &m_before[i], nullptr);
    }
    sigprocmask(SIG_SETMASK, &m_maskBefore, nullptr);
}

void StopSignals::Wait(std::span<pollfd> descriptors) noexcept {
    (void)ppoll(descriptors.data(), descriptors.size(), nullptr, &m_maskOfWait);
}

int StopSignals::First() const noexcept { return firstSignal; }

int StopSignals::Count() const noexcept { return signalCount; }
