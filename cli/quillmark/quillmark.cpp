// The command line front end: a thin shell around Controller::run.

#include "cli/quillmark/BatchOptions.h"
#include "cli/quillmark/BatchRun.h"
#include "cli/quillmark/FrontEndOptions.h"
#include "cli/quillmark/PartFile.h"
#include "cli/quillmark/ReportFile.h"
#include "cli/quillmark/RunResult.h"
#include "cli/quillmark/exitStatus.h"
#include "cli/quillmark/helpText.h"
#include "cli/quillmark/printErrorStack.h"
#include "cli/quillmark/printReport.h"
#include "cli/quillmark/printStoppedBlock.h"
#include "cli/quillmark/writeJsonReport.h"
#include "cli/shared/errorLine.h"
#include "cli/shared/flushStandardOutput.h"
#include "cli/shared/movementCommands.h"
#include "cli/shared/printText.h"
#include "cli/shared/versionText.h"
#include "driver/Controller.h"
#include "driver/StandardDescriptors.h"
#include "driver/returnCodes.h"
#include "softCommon/CErrorUtil/processEnd.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <new>
#include <utility>

namespace {

bool printsInformation(const char* argument) {
    if (std::strcmp(argument, "--help") == 0) {
        printHelp(stdout, Controller().CmdLineParamsDesc());
        return true;
    }
    if (std::strcmp(argument, "--version") == 0) {
        printVersion(stdout, "quillmark");
        return true;
    }
    return false;
}

ConversionFiles filesOf(const Controller& controller, FrontEndOptions& options) {
    char* parameter = nullptr;
    char* nc = nullptr;
    char* log = nullptr;
    char* output = nullptr;
    eOutputType type = eOutputAPT;
    (void)controller.ScanParameters(options.ArgumentCount(), options.arguments.data(), parameter,
                                    nc, log, output, type);
    return {parameter, nc, output, log};
}

// One conversion with all that the front end tells about it.
class Run {
public:
    explicit Run(FrontEndOptions options) : m_options(std::move(options)) {
        m_result.files = filesOf(m_controller, m_options);
        if (m_options.whole) {
            writeToParts();
        }
        if (m_options.skipBlocks) {
            m_controller.SkipMarkedBlocks();
        }
        m_controller.SetSubprogramFolders(m_options.subprograms);
    }

    int Execute(char** envp) {
        if (!openReportFile()) {
            return kExitUsage;
        }
        setProcessEndHook(
            [](void* run, const ProcessEnd& end) { static_cast<Run*>(run)->tellEnd(end); }, this);
        m_begin = std::chrono::steady_clock::now();
        const int code =
            m_controller.run(m_options.ArgumentCount(), m_options.arguments.data(), envp);
        setProcessEndHook(nullptr, nullptr);
        stopClock();
        m_result.code = code;
        m_result.exitStatus = exitStatusOf(code);
        // After the code for an incomplete command line the usage text stands alone.
        if (code != kCommandLineIncomplete) {
            tell();
            if (code != 0) {
                tellFailure(code);
            }
        }
        if (m_result.exitStatus == 0 && m_options.whole) {
            m_result.files = m_wholeFiles;
        }
        if (!writeReportFile() && code == 0) {
            m_result.exitStatus = kExitUsage;
        }
        // The output comes last: where it has its name, log and report have theirs.
        if (m_result.exitStatus == 0 && !(hasItsName(m_log) && hasItsName(m_output))) {
            m_result.exitStatus = kExitUsage;
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
        for (char*& argument : m_options.arguments) {
            if (argument != nullptr && argument == m_wholeFiles.output) {
                argument = m_output.Name();
            } else if (argument != nullptr && argument == m_wholeFiles.log) {
                argument = m_log.Name();
            }
        }
        m_result.files = filesOf(m_controller, m_options);
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

    bool openReportFile() noexcept {
        if (m_options.report == nullptr) {
            return true;
        }
        const ReportFile::Other others[] = {
            {m_result.files.parameter, "it is an input of this run"},
            {m_result.files.nc, "it is an input of this run"},
            {m_result.files.output, "it is the output file as well"},
            {m_result.files.log, "it is the log file as well"},
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
            std::fprintf(stderr, "quillmark: cannot write report file '%s': %s\n", m_options.report,
                         reason);
        }
        return reason != nullptr;
    }

    // The low 8 bits of the code, as the shell sees them.
    [[nodiscard]] int exitStatusOf(int code) noexcept {
        if (code == 0 && m_options.strict && m_controller.Report().UnrecognisedBlocks() > 0) {
            return kExitUnrecognised;
        }
        return code & 0xFF;
    }

    void stopClock() noexcept {
        m_result.seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - m_begin).count();
    }

    void tell() noexcept {
        if (!m_options.quiet) {
            if (m_result.code == 0 && !configuresMovement(m_controller)) {
                std::fprintf(stderr, "quillmark: warning: %s\n", kNoMovementCommand);
            }
            printReport(stderr, m_controller);
        } else if (m_options.strict) {
            printUnrecognisedCount(stderr, m_controller);
        }
        if (m_options.summary) {
            printSummary(stderr, m_controller, m_result);
        }
    }

    void tellFailure(int code) noexcept {
        printErrorLine(stderr, "quillmark", code, m_result.files, m_controller.LastFailure());
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
        m_result.end = &end;
        if (end.kind == ProcessEnd::Kind::kExit) {
            m_result.exitStatus = end.status & 0xFF;
        } else if (end.kind == ProcessEnd::Kind::kAssertion) {
            m_controller.ReportFatalArc();
        }
        tell();
        printStoppedBlock(stderr, m_controller, m_result.files.output);
        (void)writeReportFile();
    }

    Controller m_controller;
    FrontEndOptions m_options;
    RunResult m_result;
    ReportFile m_reportFile;
    ConversionFiles m_wholeFiles; // as on the command line; only with --whole
    PartFile m_output;
    PartFile m_log;
    PartFile m_report;
    std::chrono::steady_clock::time_point m_begin;
};

} // namespace

int main(int argc, char** argv, char** envp) try {
    const StandardDescriptors descriptors(StandardDescriptors::Output::kFails);
    if (argc == 2 && printsInformation(argv[1])) {
        return flushStandardOutput("quillmark") ? 0 : 1;
    }
    FrontEndOptions options = readFrontEndOptions(argc, argv);
    if (options.usageError != nullptr) {
        std::fprintf(stderr, "quillmark: %s\n", options.usageError);
        return kExitUsage;
    }
    if (options.into != nullptr) {
        const BatchOptions batch = readBatchOptions(options);
        return batch.error.empty() ? BatchRun(batch).Execute() : tellBatchError(batch);
    }
    return Run(std::move(options)).Execute(envp);
} catch (const std::bad_alloc&) {
    printErrorLine(stderr, "quillmark", kMemoryExhausted, {}, {});
    return kMemoryExhausted & 0xFF;
}
