#include "cli/quillmark/RunWatch.h"

#include "cli/quillmark/StopSignals.h"

#include <csignal>
#include <cstdio>
#include <sys/time.h>
#include <unistd.h>

namespace {

volatile std::sig_atomic_t g_signal = 0;
volatile std::sig_atomic_t g_ticks = 0;
RunWatch* g_watch = nullptr;

void handle(int signal, void (*handler)(int), int flags) noexcept {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    (void)sigemptyset(&action.sa_mask);
    (void)sigaction(signal, &action, nullptr);
}

bool isIgnored(int signal) noexcept {
    struct sigaction action {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

void tickEvery(long seconds) noexcept {
    itimerval interval{};
    interval.it_interval.tv_sec = seconds;
    interval.it_value.tv_sec = seconds;
    (void)setitimer(ITIMER_REAL, &interval, nullptr);
}

} // namespace

RunWatch::RunWatch(NCScan& scan, bool writesToPipe) noexcept
    : m_scan(scan), m_restartsCalls(writesToPipe) {
    g_watch = this;
    for (const int signal : kStopSignals) {
        if (!isIgnored(signal)) { // nohup, and shells for what runs in the background
            handle(signal, onSignal, (m_restartsCalls ? SA_RESTART : 0) | SA_RESETHAND);
        }
    }
    m_scan.SetWatch(this);
}

RunWatch::~RunWatch() {
    HideProgress();
    m_scan.SetWatch(nullptr);
    for (const int signal : kStopSignals) {
        if (!isIgnored(signal)) {
            handle(signal, SIG_DFL, 0);
        }
    }
    g_watch = nullptr;
}

void RunWatch::ShowProgress() noexcept {
    m_showsProgress = true;
    handle(SIGALRM, onTick, SA_RESTART);
    tickEvery(1);
}

void RunWatch::HideProgress() noexcept {
    if (!m_showsProgress && g_signal == 0) {
        return;
    }
    m_showsProgress = false;
    tickEvery(0);
    handle(SIGALRM, SIG_DFL, 0);
    if (m_hasShown) {
        std::fputs("\r\x1B[K", stderr);
    }
}

int RunWatch::Signal() noexcept { return g_signal; }

void RunWatch::onSignal(int signal) noexcept {
    g_signal = signal;
    g_watch->Ask();
    if (!g_watch->m_restartsCalls) {
        onLateRead(SIGALRM);
    }
}

// The signal breaks off a read that waits. One that begins behind the last look at the signal would
// wait on, and is broken off by the next second.
void RunWatch::onLateRead(int signal) noexcept {
    handle(signal, onLateRead, 0);
    (void)alarm(1);
}

void RunWatch::onTick(int /*signal*/) noexcept {
    g_ticks = 1;
    g_watch->Ask();
}

bool RunWatch::decide() noexcept {
    Settle(); // first: a signal from here on asks again
    if (g_ticks != 0) {
        g_ticks = 0;
        printProgress();
    }
    if (g_signal == 0) {
        return true;
    }
    Ask();
    return false;
}

void RunWatch::printProgress() noexcept {
    const int percent = m_scan.PercentRead();
    std::fprintf(stderr, "\r\x1B[Kquillmark: block %ld", m_scan.CurrentBlock().GetPlace().number);
    if (percent >= 0) {
        std::fprintf(stderr, ", %d %%", percent);
    }
    (void)std::fflush(stderr);
    m_hasShown = true;
}
