// The command line front end: a thin shell around Controller::run.

#include "cli/quillmark/FrontEndOptions.h"
#include "cli/quillmark/ReportFile.h"
#include "cli/quillmark/RunResult.h"
#include "cli/quillmark/exitStatus.h"
#include "cli/quillmark/helpText.h"
#include "cli/quillmark/printErrorStack.h"
#include "cli/quillmark/printReport.h"
#include "cli/quillmark/printStoppedBlock.h"
#include "cli/quillmark/writeJsonReport.h"
#include "cli/shared/DialectFolder.h"
#include "cli/shared/errorLine.h"
#include "cli/shared/flushStandardOutput.h"
#include "cli/shared/movementCommands.h"
#include "cli/shared/printDialects.h"
#include "cli/shared/versionText.h"
#include "driver/Controller.h"
#include "driver/StandardDescriptors.h"
#include "driver/returnCodes.h"
#include "softCommon/CErrorUtil/processEnd.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <new>
#include <string>
#include <utility>

namespace {

// A question about the program itself: its spelling, and the answer, which tells whether there is
// one.
struct Question {
    const char* text;
    bool (*answer)();
};

bool answerHelp() {
    printHelp(stdout, Controller().CmdLineParamsDesc());
    return true;
}

constexpr Question kQuestions[] = {
    {"--help", answerHelp},
    {"-h", answerHelp},
    {"--version",
     [] {
         printVersion(stdout, "quillmark");
         return true;
     }},
    {"--dialects", [] { return printDialects(stdout, "quillmark"); }},
};

const Question* findQuestion(const char* argument) noexcept {
    const auto* const row = std::ranges::find_if(kQuestions, [&](const Question& question) {
        return std::strcmp(argument, question.text) == 0;
    });
    return row == std::end(kQuestions) ? nullptr : row;
}

// One conversion with all that the front end tells about it.
class Run {
public:
    explicit Run(FrontEndOptions options) : m_options(std::move(options)) {
        readArguments();
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
        const int code = convert(envp);
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
        if (!writeReportFile() && code == 0) {
            m_result.exitStatus = kExitUsage;
        }
        return *m_result.exitStatus;
    }

private:
    void readArguments() {
        char* parameter = nullptr;
        char* nc = nullptr;
        char* log = nullptr;
        char* output = nullptr;
        m_isComplete =
            m_controller.ScanParameters(m_options.ArgumentCount(), m_options.arguments.data(),
                                        parameter, nc, log, output, m_type) == 0;
        m_result.files = {parameter, nc, output, log};
        if (parameter != nullptr) {
            m_parameterFile = DialectFolder().Find(parameter);
            m_result.files.parameter = m_parameterFile.c_str();
        }
    }

    int convert(char** envp) {
        if (!m_isComplete) {
            return m_controller.run(m_options.ArgumentCount(), m_options.arguments.data(), envp);
        }
        const ConversionFiles& files = m_result.files;
        return m_controller.execute(files.parameter, files.nc, files.output, files.log, m_type);
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
        return !failsWith(m_reportFile.Close());
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
    bool m_isComplete = false; // the files that a conversion needs are named
    eOutputType m_type = eOutputAPT;
    std::string m_parameterFile; // as it was found
    RunResult m_result;
    ReportFile m_reportFile;
    std::chrono::steady_clock::time_point m_begin;
};

} // namespace

int main(int argc, char** argv, char** envp) try {
    const StandardDescriptors descriptors(StandardDescriptors::Output::kFails);
    if (const Question* const question = argc == 2 ? findQuestion(argv[1]) : nullptr) {
        const bool isAnswered = question->answer();
        return flushStandardOutput("quillmark") && isAnswered ? 0 : 1;
    }
    FrontEndOptions options = readFrontEndOptions(argc, argv);
    if (options.usageError != nullptr) {
        std::fprintf(stderr, "quillmark: %s\n", options.usageError);
        return kExitUsage;
    }
    return Run(std::move(options)).Execute(envp);
} catch (const std::bad_alloc&) {
    printErrorLine(stderr, "quillmark", kMemoryExhausted, {}, {});
    return kMemoryExhausted & 0xFF;
}
