#include "cli/quillmark/BatchRun.h"

#include "cli/quillmark/exitStatus.h"
#include "cli/quillmark/writeBatchReport.h"
#include "cli/shared/JsonWriter.h"
#include "cli/shared/errorLine.h"
#include "cli/shared/fileKind.h"
#include "cli/shared/printDialects.h"
#include "cli/shared/printText.h"
#include "driver/Controller.h"
#include "driver/returnCodes.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool isBefore(const timespec& left, const timespec& right) noexcept {
    return left.tv_sec < right.tv_sec ||
           (left.tv_sec == right.tv_sec && left.tv_nsec < right.tv_nsec);
}

// As the report has it.
std::string parameterEntry(const char* name) {
    char* text = nullptr;
    std::size_t size = 0;
    std::FILE* const stream = open_memstream(&text, &size);
    if (stream == nullptr) {
        throw std::bad_alloc();
    }
    JsonWriter(stream).Entry("parameter", std::string_view(name));
    const bool isWhole = std::fclose(stream) == 0;
    const std::unique_ptr<char, decltype(&std::free)> owner(text, std::free);
    if (!isWhole) {
        throw std::bad_alloc();
    }
    return {text, size};
}

// Whether a report tells of another parameter file, or of a run that left its result as it was.
bool tellsOfAnother(const std::string& report, const char* parameter) {
    const std::string head = headOf(report.c_str());
    const auto holds = [&head](std::string_view text) { return head.find(text) != head.npos; };
    return !head.empty() && !(holds(parameterEntry(parameter)) && holds("\"exit_status\": 0,"));
}

void printQuoted(const std::string& name) noexcept {
    (void)std::fputc('\'', stderr);
    printText(stderr, name);
    (void)std::fputc('\'', stderr);
}

} // namespace

int tellBatchError(const BatchOptions& options) noexcept {
    std::fputs("quillmark: ", stderr);
    printText(stderr, options.error);
    (void)std::fputc('\n', stderr);
    return kExitUsage;
}

int BatchRun::Execute() {
    if (const int code = readParameterFile(); code != 0) {
        return code & 0xFF;
    }
    if (!makeFolder() || !openReport()) {
        return kExitUsage;
    }
    m_results.resize(m_options.programs.size());
    m_showsProgress = !m_options.quiet && isatty(STDERR_FILENO) != 0;
    for (startJobs(); !m_jobs.empty(); startJobs()) {
        waitForJobs();
    }
    tellFinished();
    hideProgress();
    tellSummary();
    const int status = exitStatus();
    return writeReport(status) || status > kExitDoubtful ? status : kExitUsage;
}

// What is wrong with it would be told by every job, so an empty program is converted first.
int BatchRun::readParameterFile() {
    Controller controller;
    int code = m_inputs.Test(controller);
    if (code == 0) {
        code = controller.execute(m_inputs.OpenedParameterName(), "/dev/null", "/dev/null", nullptr,
                                  eOutputAPT);
    }
    if (code != 0) {
        printErrorLine(stderr, "quillmark", code, {.parameter = m_inputs.ParameterName()},
                       controller.LastFailure());
        if (code == kParameterFileUnreadable && controller.LastFailure().systemError == ENOENT) {
            printNearestDialect(stderr, "quillmark", m_options.parameter);
        }
    }
    return code;
}

bool BatchRun::makeFolder() const {
    std::error_code error;
    std::filesystem::create_directories(m_options.folder, error);
    if (!error && !std::filesystem::is_directory(m_options.folder, error) && !error) {
        error = std::make_error_code(std::errc::not_a_directory);
    }
    if (error) {
        std::fputs("quillmark: cannot make folder ", stderr);
        printQuoted(m_options.folder);
        std::fprintf(stderr, ": %s\n", error.message().c_str());
    }
    return !error;
}

bool BatchRun::openReport() {
    if (m_options.report == nullptr) {
        return true;
    }
    std::vector<ReportFile::Other> others{{m_inputs.ParameterName(), "it is an input of this run"}};
    for (const BatchProgram& program : m_options.programs) {
        others.push_back({program.nc.c_str(), "it is an input of this run"});
        for (const std::string* const name : {&program.output, &program.log, &program.report}) {
            others.push_back({name->c_str(), "it is a result of a program as well"});
        }
    }
    return canWriteReport(m_report.Open(m_options.report, others));
}

bool BatchRun::writeReport(int exitStatus) {
    if (m_report.get() == nullptr) {
        return true;
    }
    writeBatchReport(m_report.get(), m_options, m_results, exitStatus);
    return canWriteReport(m_report.Close());
}

bool BatchRun::canWriteReport(const char* reason) const noexcept {
    if (reason != nullptr) {
        std::fputs("quillmark: cannot write report file ", stderr);
        printQuoted(m_options.report);
        std::fprintf(stderr, ": %s\n", reason);
    }
    return reason == nullptr;
}

void BatchRun::startJobs() {
    while (m_begun < m_results.size() && m_signals.Count() == 0 &&
           m_jobs.size() < static_cast<std::size_t>(m_options.jobs)) {
        startJob(m_begun++);
    }
    tellFinished();
    tellProgress();
}

void BatchRun::startJob(std::size_t number) {
    const BatchProgram& program = m_options.programs[number];
    BatchResult& result = m_results[number];
    if (m_options.resume && isUpToDate(program)) {
        result.outcome = BatchOutcome::kLeftAlone;
        return;
    }
    std::vector<std::string> arguments{
        "quillmark",    "-p",          m_inputs.OpenedParameterName(),
        "-nc",          program.nc,    "-of",
        program.output, "-l",          program.log,
        "--report",     program.report};
    arguments.insert(arguments.end(), m_options.passed.begin(), m_options.passed.end());
    BatchJob job(arguments, m_signals.MaskBefore(), result);
    if (job.IsRunning()) {
        m_jobs.push_back(std::move(job));
    }
}

bool BatchRun::isUpToDate(const BatchProgram& program) const {
    struct stat output {};
    struct stat nc {};
    struct stat parameter {};
    return stat(program.output.c_str(), &output) == 0 && stat(program.nc.c_str(), &nc) == 0 &&
           stat(m_inputs.OpenedParameterName(), &parameter) == 0 &&
           isBefore(nc.st_mtim, output.st_mtim) && isBefore(parameter.st_mtim, output.st_mtim) &&
           !tellsOfAnother(program.report, m_inputs.OpenedParameterName());
}

void BatchRun::waitForJobs() {
    std::vector<pollfd> descriptors;
    for (const BatchJob& job : m_jobs) {
        descriptors.push_back({job.Descriptor(), POLLIN, 0});
    }
    m_signals.Wait(descriptors);
    tellJobsToStop();
    for (std::size_t i = 0; i < m_jobs.size(); ++i) {
        if (descriptors[i].revents != 0) {
            m_jobs[i].Read(m_signals.First());
        }
    }
    std::erase_if(m_jobs, [](const BatchJob& job) { return !job.IsRunning(); });
}

// The first time gently; whoever insists does not want to wait for a job that does not end.
void BatchRun::tellJobsToStop() noexcept {
    if (m_signals.Count() == m_signalsPassed) {
        return;
    }
    const int signal = m_signalsPassed == 0 ? m_signals.First() : SIGKILL;
    m_signalsPassed = m_signals.Count();
    for (const BatchJob& job : m_jobs) {
        job.Tell(signal);
    }
}

void BatchRun::tellFinished() {
    while (m_told < m_begun && m_results[m_told].outcome != BatchOutcome::kRunning) {
        tell(m_told);
        m_results[m_told].text = {};
        ++m_told;
    }
}

void BatchRun::tell(std::size_t number) noexcept {
    const BatchResult& result = m_results[number];
    const bool isFailed = result.outcome == BatchOutcome::kFailed;
    if (!isFailed && result.text.empty()) {
        return;
    }
    hideProgress();
    std::fputs("quillmark: ", stderr);
    printQuoted(m_options.programs[number].nc);
    if (isFailed) {
        std::fprintf(stderr, " failed: %s\n", failureText(result).c_str());
    } else {
        std::fputs(":\n", stderr);
    }
    (void)std::fwrite(result.text.data(), 1, result.text.size(), stderr);
    if (!result.text.empty() && !result.text.ends_with('\n')) {
        (void)std::fputc('\n', stderr);
    }
}

void BatchRun::tellProgress() noexcept {
    const long failed = countOf(BatchOutcome::kFailed);
    const long done =
        failed + countOf(BatchOutcome::kConverted) + countOf(BatchOutcome::kLeftAlone);
    if (!m_showsProgress || (m_isProgressShown && done == m_doneShown)) {
        return;
    }
    hideProgress();
    m_isProgressShown = true;
    m_doneShown = done;
    std::fprintf(stderr, "quillmark: %ld of %zu programs, %ld failed", done, m_results.size(),
                 failed);
}

void BatchRun::hideProgress() noexcept {
    if (m_isProgressShown) {
        std::fputs("\r\x1B[K", stderr);
        m_isProgressShown = false;
    }
}

void BatchRun::tellSummary() noexcept {
    const int signal = m_signals.First();
    if (m_options.quiet && signal == 0) {
        return;
    }
    std::fputs("quillmark: ", stderr);
    if (signal != 0) {
        std::fprintf(stderr, "stopped by SIG%s: ", sigabbrev_np(signal));
    }
    std::fprintf(stderr, "%zu program%s: %ld converted, %ld failed", m_results.size(),
                 m_results.size() == 1 ? "" : "s", countOf(BatchOutcome::kConverted),
                 countOf(BatchOutcome::kFailed));
    if (m_options.resume) {
        std::fprintf(stderr, ", %ld left alone", countOf(BatchOutcome::kLeftAlone));
    }
    if (signal != 0) {
        std::fprintf(stderr, ", %ld not converted; --resume goes on with them",
                     countOf(BatchOutcome::kStopped) + countOf(BatchOutcome::kNotBegun));
    }
    (void)std::fputc('\n', stderr);
}

long BatchRun::countOf(BatchOutcome outcome) const noexcept {
    return std::ranges::count(m_results, outcome, &BatchResult::outcome);
}

int BatchRun::exitStatus() const noexcept {
    if (m_signals.First() != 0) {
        return kExitSignal + m_signals.First();
    }
    return statusOf(*std::ranges::max_element(m_results, {}, severityOf));
}
