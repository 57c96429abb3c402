// The command line front end: a thin shell around Controller::run.

#include "cli/quillmark/BatchOptions.h"
#include "cli/quillmark/BatchRun.h"
#include "cli/quillmark/FrontEndOptions.h"
#include "cli/quillmark/InputFiles.h"
#include "cli/quillmark/PartFile.h"
#include "cli/quillmark/ReportFile.h"
#include "cli/quillmark/RunResult.h"
#include "cli/quillmark/RunWatch.h"
#include "cli/quillmark/answerQuestion.h"
#include "cli/quillmark/exitStatus.h"
#include "cli/quillmark/printErrorStack.h"
#include "cli/quillmark/printReport.h"
#include "cli/quillmark/printStoppedBlock.h"
#include "cli/quillmark/reportKeys.h"
#include "cli/quillmark/showPath.h"
#include "cli/quillmark/writeJsonReport.h"
#include "cli/shared/errorLine.h"
#include "cli/shared/movementCommands.h"
#include "cli/shared/printDialects.h"
#include "cli/shared/printText.h"
#include "driver/Controller.h"
#include "driver/StandardDescriptors.h"
#include "driver/returnCodes.h"
#include "softCommon/CDebugUtil/dbtrace.h"
#include "softCommon/CErrorUtil/processEnd.h"
#include "update/liesPP.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

// Whether a pipe is at the other end of an output.
bool isPipe(const NCScan& scan, const char* name) noexcept {
    struct stat file {};
    const bool isFound =
        name != nullptr &&
        (scan.IsStandardStream(name) ? fstat(STDOUT_FILENO, &file) == 0 : stat(name, &file) == 0);
    return isFound && (S_ISFIFO(file.st_mode) || S_ISSOCK(file.st_mode));
}

// Whether a file holds what an earlier run wrote.
bool holdsResult(const char* name) noexcept {
    struct stat file {};
    return name != nullptr && stat(name, &file) == 0 && S_ISREG(file.st_mode) && file.st_size > 0;
}

bool isTerminal(int descriptor) noexcept {
    const char* const kind = std::getenv("TERM");
    return isatty(descriptor) != 0 && kind != nullptr && std::strcmp(kind, "dumb") != 0;
}

void warn(const FrontEndOptions& options, std::string_view text) noexcept {
    if (!options.quiet) {
        std::fputs("quillmark: warning: ", stderr);
        printText(stderr, text);
        (void)std::fputc('\n', stderr);
    }
}

int runBatch(const FrontEndOptions& options) {
    const BatchOptions batch = readBatchOptions(options);
    if (!batch.error.empty()) {
        return tellBatchError(batch);
    }
    for (const std::string& repetition : options.repetitions) {
        warn(options, repetition);
    }
    return BatchRun(batch).Execute();
}

// One conversion with all that the front end tells about it.
class Run {
public:
    explicit Run(FrontEndOptions options) : m_options(std::move(options)) {
        m_controller.UseStandardStreams();
        if (m_options.skipBlocks) {
            m_controller.SkipMarkedBlocks();
        }
        m_controller.SetSubprogramFolders(m_options.subprograms);
        readArguments();
        if (m_options.whole) {
            writeToParts();
        }
    }

    int Execute(char** envp) {
        if (const char* const conflict = streamConflict()) {
            std::fprintf(stderr, "quillmark: %s\n", conflict);
            return kExitUsage;
        }
        if (!canShow() || !openReportFile()) {
            return kExitUsage;
        }
        tellWarnings();
        watch();
        setProcessEndHook(
            [](void* run, const ProcessEnd& end) { static_cast<Run*>(run)->tellEnd(end); }, this);
        m_begin = std::chrono::steady_clock::now();
        const int code = m_inputs ? convert()
                                  : m_controller.run(m_options.ArgumentCount(),
                                                     m_options.arguments.data(), envp);
        setProcessEndHook(nullptr, nullptr);
        stopClock();
        keepResult(code);
        tellResult(code);
        if (m_result.exitStatus == 0 && m_options.whole) {
            m_result.files = m_wholeFiles;
        }
        if (!writeReportFile() && m_result.code == 0) {
            m_result.exitStatus = kExitUsage;
        }
        // The output comes last: where it has its name, log and report have theirs.
        if (m_result.exitStatus == 0 && !(hasItsName(m_log) && hasItsName(m_output))) {
            m_result.exitStatus = kExitUsage;
        }
        if (m_options.view != nullptr && hasOutput()) {
            if (const int status = showPath(m_options.view, m_result.files); status != 0) {
                m_result.exitStatus = status;
            }
        }
        return *m_result.exitStatus;
    }

private:
    // From here on the results of the run are the parts, until they are whole.
    void writeToParts() {
        m_wholeFiles = m_result.files;
        const char* const inputs[] = {m_wholeFiles.parameter, m_wholeFiles.nc};
        m_output.Choose(m_wholeFiles.output, inputs);
        m_log.Choose(m_wholeFiles.log, inputs);
        m_report.Choose(m_options.report, inputs);
        m_wholeReport = m_options.report;
        m_result.files.output = m_output.Name();
        m_result.files.log = m_log.Name();
        m_options.report = m_report.Name();
    }

    static bool hasItsName(const PartFile& part) noexcept {
        const char* const reason = part.GiveName();
        if (reason != nullptr) {
            std::fputs("quillmark: cannot rename '", stderr);
            printText(stderr, part.Name());
            std::fprintf(stderr, "': %s\n", reason);
        }
        return reason == nullptr;
    }

    void readArguments() {
        char* parameter = nullptr;
        char* nc = nullptr;
        char* log = nullptr;
        char* output = nullptr;
        const int code =
            m_controller.ScanParameters(m_options.ArgumentCount(), m_options.arguments.data(),
                                        parameter, nc, log, output, m_type);
        m_result.files = {parameter, nc, output, log};
        if (code == 0) {
            m_inputs.emplace(parameter, nc);
            m_result.files.parameter = m_inputs->ParameterName();
        }
    }

    // Null, or which stream is wanted twice.
    [[nodiscard]] const char* streamConflict() const noexcept {
        const auto isStream = [this](const char* name) {
            return m_controller.IsStandardStream(name);
        };
        const ConversionFiles& files = m_result.files;
        if (isStream(files.parameter) && isStream(files.nc)) {
            return "standard input cannot be parameter file and NC file at once";
        }
        if (isStream(files.output) + isStream(files.log) + isStream(m_options.report) > 1) {
            return "standard output can be only one of output, log and report";
        }
        return nullptr;
    }

    void tellWarnings() const {
        for (const auto* const warnings : {&m_options.repetitions, &m_options.warnings}) {
            for (const std::string& warning : *warnings) {
                warn(m_options, warning);
            }
        }
    }

    void watch() noexcept {
        m_watch.emplace(m_controller, isPipe(m_controller, m_result.files.output) ||
                                          isPipe(m_controller, m_result.files.log));
        if (!m_options.quiet && isTerminal(STDERR_FILENO)) {
            m_watch->ShowProgress();
        }
    }

    int convert() {
        int code = m_inputs->Test(m_controller);
        if (code == 0 && (holdsResult(m_result.files.output) || holdsResult(m_result.files.log))) {
            code = m_inputs->TestDialect(m_controller);
        }
        m_isStoppedBefore = RunWatch::Signal() != 0;
        if (code != 0 || m_isStoppedBefore) {
            return code;
        }
        const ConversionFiles& files = m_result.files;
        if (m_inputs->HasParameterFileAsProgram()) {
            warn(m_options, "NC file '" + std::string(files.nc) + "' looks like a parameter file");
        }
        return m_controller.execute(m_inputs->OpenedParameterName(), files.nc, files.output,
                                    files.log, m_type);
    }

    void keepResult(int code) noexcept {
        // It may also have broken off the opening of a pipe.
        const bool isStopped =
            m_isStoppedBefore || (code == 0 ? m_controller.WasStopped()
                                            : m_controller.LastFailure().systemError == EINTR);
        if (isStopped && RunWatch::Signal() != 0) {
            m_result.signal = RunWatch::Signal();
            m_result.exitStatus = kExitSignal + m_result.signal;
        } else {
            m_result.code = code;
            m_result.exitStatus = exitStatusOf(code);
        }
    }

    void tellResult(int code) {
        m_watch->HideProgress();
        if (code == kCommandLineIncomplete) {
            tellMissing();
            return;
        }
        tell();
        if (m_result.signal != 0) {
            printStopSignal(stderr, m_controller, m_result.signal, m_result.files.output);
        } else if (code != 0) {
            tellFailure(code);
        }
    }

    // Stands behind the usage text.
    void tellMissing() const noexcept {
        const ConversionFiles& files = m_result.files;
        const char* separator = "quillmark: missing: ";
        for (const auto& [name, text] :
             {std::pair(files.parameter, "-p paramfile"), std::pair(files.nc, "-nc ncfile"),
              std::pair(files.output, "-of outputfile")}) {
            if (name == nullptr) {
                std::fprintf(stderr, "%s%s", separator, text);
                separator = ", ";
            }
        }
        std::fputs("; 'quillmark --help' tells of all options\n", stderr);
    }

    // After a line when the name of the view belongs to another file of the run, or when there is
    // no file that can be shown.
    bool canShow() const {
        const ConversionFiles& files = m_options.whole ? m_wholeFiles : m_result.files;
        if (m_options.view == nullptr || files.output == nullptr) {
            return true;
        }
        if (m_controller.IsStandardStream(files.output)) {
            std::fputs("quillmark: --view shows a file: the output cannot be standard output\n",
                       stderr);
            return false;
        }
        const char* const objection = viewObjection(
            m_options.view, files, m_options.whole ? m_wholeReport : m_options.report);
        if (objection != nullptr) {
            std::fputs("quillmark: cannot write view '", stderr);
            printText(stderr, m_options.view);
            std::fprintf(stderr, "': %s\n", objection);
        }
        return objection == nullptr;
    }

    // Whether the output is complete and has its name.
    [[nodiscard]] bool hasOutput() const noexcept {
        return m_result.exitStatus == 0 ||
               (m_result.exitStatus == kExitDoubtful && !m_options.whole);
    }

    [[nodiscard]] const char* fileOf(const char* name, const char* stream) const noexcept {
        return m_controller.IsStandardStream(name) ? stream : name;
    }

    bool openReportFile() noexcept {
        if (m_options.report == nullptr) {
            return true;
        }
        const ReportFile::Other others[] = {
            {fileOf(m_result.files.parameter, "/dev/stdin"), "it is an input of this run"},
            {fileOf(m_result.files.nc, "/dev/stdin"), "it is an input of this run"},
            {fileOf(m_result.files.output, "/dev/stdout"), "it is the output file as well"},
            {fileOf(m_result.files.log, "/dev/stdout"), "it is the log file as well"},
        };
        return !failsWith(m_reportFile.Open(m_options.report, others));
    }

    bool writeReportFile() noexcept {
        if (m_reportFile.get() == nullptr) {
            return true;
        }
        writeJsonReport(m_reportFile.get(), m_controller, m_result);
        return !failsWith(m_reportFile.Close()) && hasItsName(m_report);
    }

    bool failsWith(const char* reason) const noexcept {
        if (reason != nullptr) {
            std::fputs("quillmark: cannot write report file '", stderr);
            printText(stderr, m_options.report);
            std::fprintf(stderr, "': %s\n", reason);
        }
        return reason != nullptr;
    }

    // The low 8 bits of the code, as the shell sees them.
    [[nodiscard]] int exitStatusOf(int code) noexcept {
        if (code == 0 && m_options.strict && isDoubtful()) {
            return kExitDoubtful;
        }
        return code & 0xFF;
    }

    // What --strict does not let pass: text that was not recognised, and warnings.
    [[nodiscard]] bool isDoubtful() noexcept {
        const ScanReport& report = m_controller.Report();
        return report.UnrecognisedBlocks() > 0 || hasWarnings(report) ||
               !configuresMovement(m_controller);
    }

    void stopClock() noexcept {
        m_result.seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - m_begin).count();
    }

    void tell() noexcept {
        if (!configuresMovement(m_controller)) {
            m_controller.Report().SetIdle(IdleCause::kNone); // its dialect is to blame
        }
        if (!m_options.quiet) {
            if (m_result.code == 0 && !configuresMovement(m_controller)) {
                std::fprintf(stderr, "quillmark: warning: %s\n", kNoMovementCommand);
            }
            printReport(stderr, m_controller);
        } else if (m_options.strict) {
            printUnrecognisedCount(stderr, m_controller);
            printWarningCount(stderr, m_controller.Report());
        }
        if (m_options.summary) {
            printSummary(stderr, m_controller, m_result);
        }
    }

    void tellFailure(int code) {
        printErrorLine(stderr, "quillmark", code, m_result.files, m_controller.LastFailure());
        if (code == kParameterFileUnreadable && m_controller.LastFailure().systemError == ENOENT) {
            printNearestDialect(stderr, "quillmark", m_result.files.parameter);
        }
        printErrorStack(stderr);
        // When output or log could not be written, no block is to blame: every one was converted.
        if (code != kOutputFileUnwritable && code != kLogFileUnwritable) {
            printStoppedBlock(stderr, m_controller, m_result.files.output);
        }
        // Of these the error line tells what was wrong and not what helps.
        if (code >= kBlockUnreadable && code <= kProgramAborted) {
            std::fprintf(stderr, "quillmark: what helps: %s\n", findReturnCode(code)->remedy);
        }
    }

    // Tells what is known before the process ends in the middle of the conversion.
    void tellEnd(const ProcessEnd& end) noexcept {
        stopClock();
        m_watch->HideProgress();
        m_result.end = &end;
        if (end.kind == ProcessEnd::Kind::kExit) {
            m_result.exitStatus = end.status & 0xFF;
        } else if (end.kind == ProcessEnd::Kind::kAssertion) {
            m_controller.ReportFatalArc();
        }
        tell();
        if (end.kind == ProcessEnd::Kind::kAssertion) {
            printFatalArc(stderr, m_controller);
        }
        printStoppedBlock(stderr, m_controller, m_result.files.output);
        (void)writeReportFile();
    }

    Controller m_controller;
    FrontEndOptions m_options;
    std::optional<InputFiles> m_inputs; // when all the files that a conversion needs are named
    eOutputType m_type = eOutputAPT;
    bool m_isStoppedBefore = false; // by a signal, before an output was opened
    RunResult m_result;
    std::optional<RunWatch> m_watch;
    ReportFile m_reportFile;
    ConversionFiles m_wholeFiles; // as on the command line; only with --whole
    const char* m_wholeReport = nullptr;
    PartFile m_output;
    PartFile m_log;
    PartFile m_report;
    std::chrono::steady_clock::time_point m_begin;
};

} // namespace

int main(int argc, char** argv, char** envp) try {
    const StandardDescriptors descriptors(StandardDescriptors::Output::kFails);
    if (const int status = argc == 2 ? answerQuestion(argv[1]) : -1; status >= 0) {
        return status;
    }
    // Standard output is for what was asked for: an APT, a log, a report.
    setLiesPPMessages(stderr);
    stddbg = stderr;
    FrontEndOptions options = readFrontEndOptions(argc, argv);
    if (options.usageError != nullptr) {
        std::fprintf(stderr, "quillmark: %s\n", options.usageError);
        return kExitUsage;
    }
    if (options.into != nullptr) {
        return runBatch(options);
    }
    return Run(std::move(options)).Execute(envp);
} catch (const std::bad_alloc&) {
    printErrorLine(stderr, "quillmark", kMemoryExhausted, {}, {});
    return kMemoryExhausted & 0xFF;
}
