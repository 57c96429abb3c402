// The command line front end: a thin shell around Controller::run.

#include "include/quillmark.h"
#include "cli/errorLine.h"
#include "cli/helpText.h"
#include "driver/Controller.h"
#include "driver/returnCodes.h"
#include "softCommon/CErrorUtil/processEnd.h"

#include <cstdio>
#include <cstring>

namespace {

bool printsInformation(const char* argument, const Controller& controller) {
    if (std::strcmp(argument, "--help") == 0) {
        (void)std::fputs(helpText(controller.CmdLineParamsDesc()).c_str(), stdout);
        return true;
    }
    if (std::strcmp(argument, "--version") == 0) {
        char banner[64] = "";
        int length = 0;
        gtvers(banner, &length);
        std::printf("quillmark " QUILLMARK_VERSION "\n%.*s\n", length, banner);
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
    std::fprintf(stderr, "%s\n", errorLine(code, files, controller.FailureReason()).c_str());
}

} // namespace

int main(int argc, char** argv, char** envp) {
    Controller controller;
    if (argc == 2 && printsInformation(argv[1], controller)) {
        return 0;
    }
    setProcessEndHook(reportStoppedBlock, &controller);
    const int code = controller.run(argc, argv, envp);
    // After the code for an incomplete command line the usage text stands alone.
    if (code != 0 && code != kCommandLineIncomplete) {
        reportFailure(controller, code, argc, argv);
    }
    return code;
}
