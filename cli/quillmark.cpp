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

// Tells where the program stands before the process ends in the middle of a conversion.
void reportStoppedBlock(void* context, const ProcessEnd& /*end*/) {
    const auto& controller = *static_cast<const Controller*>(context);
    if (controller.BlockNumber() > 0) {
        std::fprintf(stderr, "quillmark: stopped at block %ld: %s\n", controller.BlockNumber(),
                     controller.BlockText());
    }
}

void reportFailure(const Controller& controller, int code, int argc, char** argv) {
    char* parameter = nullptr;
    char* nc = nullptr;
    char* log = nullptr;
    char* output = nullptr;
    eOutputType type = eOutputAPT;
    (void)controller.ScanParameters(argc, argv, parameter, nc, log, output, type);
    const ConversionFiles files{parameter, nc, output, log};
    printErrorLine(stderr, "quillmark", code, files, controller.LastFailure());
}

} // namespace

int main(int argc, char** argv, char** envp) {
    occupyStandardDescriptors();
    Controller controller;
    if (argc == 2 && printsInformation(argv[1], controller)) {
        return std::fflush(stdout) == 0 ? 0 : 1;
    }
    setProcessEndHook(reportStoppedBlock, &controller);
    const int code = controller.run(argc, argv, envp);
    // After the code for an incomplete command line the usage text stands alone.
    if (code != 0 && code != kCommandLineIncomplete) {
        reportFailure(controller, code, argc, argv);
    }
    if (code == 0 && !configuresMovement(controller)) {
        std::fprintf(stderr, "quillmark: warning: %s\n", kNoMovementCommand);
    }
    return code;
}
