// The command line front end: a thin shell around Controller::run.

#include "cli/errorLine.h"
#include "cli/helpText.h"
#include "cli/movementCommands.h"
#include "cli/standardDescriptors.h"
#include "cli/versionText.h"
#include "driver/Controller.h"
#include "driver/returnCodes.h"
#include "softCommon/CErrorUtil/processEnd.h"

#include <cstdio>
#include <cstring>

namespace {

bool printsInformation(const char* argument, const Controller& controller) {
    if (std::strcmp(argument, "--help") == 0) {
        printHelp(stdout, controller.CmdLineParamsDesc());
        return true;
    }
    if (std::strcmp(argument, "--version") == 0) {
        printVersion(stdout, "quillmark");
        return true;
    }
    return false;
}

// The names that the command line gives.
ConversionFiles namedFiles(const Controller& controller, int argc, char** argv) {
    char* parameter = nullptr;
    char* nc = nullptr;
    char* log = nullptr;
    char* output = nullptr;
    eOutputType type = eOutputAPT;
    (void)controller.ScanParameters(argc, argv, parameter, nc, log, output, type);
    return {parameter, nc, output, log};
}

struct Run {
    Controller controller;
    ConversionFiles files;
};

// Tells where the program stands before the process ends in the middle of a conversion.
void reportProcessEnd(void* context, const ProcessEnd& /*end*/) {
    const auto& run = *static_cast<const Run*>(context);
    printStoppedBlock(stderr, run.controller, run.files);
}

void reportFailure(const Run& run, int code) {
    printErrorLine(stderr, "quillmark", code, run.files, run.controller.LastFailure());
    // When output or log could not be written, no block is to blame: every one was converted.
    if (code != kOutputFileUnwritable && code != kLogFileUnwritable) {
        printStoppedBlock(stderr, run.controller, run.files);
    }
}

} // namespace

int main(int argc, char** argv, char** envp) {
    occupyStandardDescriptors();
    Run run;
    if (argc == 2 && printsInformation(argv[1], run.controller)) {
        return std::fflush(stdout) == 0 ? 0 : 1;
    }
    run.files = namedFiles(run.controller, argc, argv);
    setProcessEndHook(reportProcessEnd, &run);
    const int code = run.controller.run(argc, argv, envp);
    // After the code for an incomplete command line the usage text stands alone.
    if (code != 0 && code != kCommandLineIncomplete) {
        reportFailure(run, code);
    }
    if (code == 0 && !configuresMovement(run.controller)) {
        std::fprintf(stderr, "quillmark: warning: %s\n", kNoMovementCommand);
    }
    return code;
}
