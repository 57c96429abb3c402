#include "cli/quillmark/BatchJob.h"

#include "cli/quillmark/exitStatus.h"

#include <cerrno>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

// Owns the two halves of what posix_spawn is told.
class SpawnSetting {
public:
    SpawnSetting(int output, const sigset_t& mask) {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_adddup2(&m_actions, output, STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&m_actions, output, STDERR_FILENO);
        posix_spawnattr_init(&m_attributes);
        posix_spawnattr_setsigmask(&m_attributes, &mask);
        posix_spawnattr_setpgroup(&m_attributes, 0);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETPGROUP);
    }
    SpawnSetting(const SpawnSetting&) = delete;
    SpawnSetting& operator=(const SpawnSetting&) = delete;
    ~SpawnSetting() {
        posix_spawnattr_destroy(&m_attributes);
        posix_spawn_file_actions_destroy(&m_actions);
    }

    [[nodiscard]] int Spawn(pid_t& process, char** argv) const noexcept {
        return posix_spawn(&process, "/proc/self/exe", &m_actions, &m_attributes, argv, environ);
    }

private:
    posix_spawn_file_actions_t m_actions{};
    posix_spawnattr_t m_attributes{};
};

} // namespace

BatchJob::BatchJob(std::span<const std::string> arguments, const sigset_t& mask,
                   BatchResult& result)
    : m_result(&result) {
    std::vector<char*> argv;
    for (const std::string& argument : arguments) {
        argv.push_back(const_cast<char*>(argument.c_str())); // the interface of exec wants it so
    }
    argv.push_back(nullptr);
    int ends[2];
    result.startError = pipe2(ends, O_CLOEXEC) == 0 ? 0 : errno;
    if (result.startError == 0) {
        result.startError = SpawnSetting(ends[1], mask).Spawn(m_process, argv.data());
        (void)close(ends[1]);
        m_descriptor = ends[0];
    }
    result.outcome = BatchOutcome::kRunning;
    if (result.startError != 0) {
        result.outcome = BatchOutcome::kFailed;
        if (m_descriptor >= 0) {
            (void)close(std::exchange(m_descriptor, -1));
        }
    }
}

BatchJob::BatchJob(BatchJob&& other) noexcept
    : m_process(other.m_process), m_descriptor(std::exchange(other.m_descriptor, -1)),
      m_result(other.m_result) {}

BatchJob& BatchJob::operator=(BatchJob&& other) noexcept {
    std::swap(m_process, other.m_process);
    std::swap(m_descriptor, other.m_descriptor);
    std::swap(m_result, other.m_result);
    return *this;
}

BatchJob::~BatchJob() {
    if (IsRunning()) {
        (void)close(m_descriptor);
    }
}

void BatchJob::Read(int stopSignal) {
    char bytes[16384];
    const ssize_t count = read(m_descriptor, bytes, sizeof bytes);
    if (count > 0) {
        m_result->text.append(bytes, static_cast<std::size_t>(count));
    } else if (count == 0 || errno != EINTR) {
        (void)close(std::exchange(m_descriptor, -1));
        takeEnd(stopSignal);
    }
}

void BatchJob::Tell(int signal) const noexcept { (void)kill(m_process, signal); }

void BatchJob::takeEnd(int stopSignal) noexcept {
    int status = 0;
    while (waitpid(m_process, &status, 0) < 0 && errno == EINTR) {
    }
    BatchResult& result = *m_result;
    result.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    result.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : 0;
    const bool isStopped = stopSignal != 0 && (statusOf(result) == kExitSignal + stopSignal ||
                                               statusOf(result) == kExitSignal + SIGKILL);
    const bool isConverted = statusOf(result) == 0;
    result.outcome = isConverted ? BatchOutcome::kConverted
                     : isStopped ? BatchOutcome::kStopped
                                 : BatchOutcome::kFailed;
}
