#include "driver/Controller.h"

#include "driver/fileIdentity.h"
#include "driver/returnCodes.h"
#include "paramfile/ParamScan.h"
#include "softCommon/CDebugUtil/dbtrace.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

constexpr char kUsage[] =
    "quillmark -p paramfile -nc ncfile -of outputfile [-l logfile]\n"
    "  paramfile   parameter file of the postprocessor defining the nc-type.\n"
    "  ncfile      nc code stored in a file to be imported.\n"
    "  outputfile  file in which the output will be written.\n"
    "  logfile     file in which the error messages in case of problems \n"
    "              will be written. This parameter is optional. If it's not\n"
    "              given stderr will be used.\n";

enum class Option { kParameterFile, kNCFile, kLogFile, kOutputFile, kOutputType };

struct Spelling {
    const char* text;
    Option option;
};

constexpr Spelling kSpellings[] = {
    {"-p", Option::kParameterFile}, {"-P", Option::kParameterFile}, {"-nc", Option::kNCFile},
    {"-Nc", Option::kNCFile},       {"-nC", Option::kNCFile},       {"-NC", Option::kNCFile},
    {"-l", Option::kLogFile},       {"-L", Option::kLogFile},       {"-of", Option::kOutputFile},
    {"-Of", Option::kOutputFile},   {"-oF", Option::kOutputFile},   {"-OF", Option::kOutputFile},
    {"-ot", Option::kOutputType},   {"-Ot", Option::kOutputType},   {"-oT", Option::kOutputType},
    {"-OT", Option::kOutputType},
};

// The row of `argument`; null when it is no option.
const Spelling* findSpelling(const char* argument) noexcept {
    const auto* const row = std::ranges::find_if(
        kSpellings, [&](const Spelling& s) { return std::strcmp(argument, s.text) == 0; });
    return row == std::end(kSpellings) ? nullptr : row;
}

void readOutputType(const char* value, eOutputType& type) noexcept {
    if (value == nullptr) {
        return;
    }
    if (std::strcmp(value, "APT") == 0) {
        type = eOutputAPT;
    } else if (std::strcmp(value, "TOOLPATH") == 0) {
        type = eOutputToolpath;
    }
}

} // namespace

Controller::Controller() noexcept { (void)dbinit(); }

Controller::~Controller() { dbexit(); }

int Controller::run(int argc, char** argv, char** /*envp*/) {
    char* paramfile = nullptr;
    char* ncfile = nullptr;
    char* logfile = nullptr;
    char* outputfile = nullptr;
    eOutputType type = eOutputAPT;
    const int code = ScanParameters(argc, argv, paramfile, ncfile, logfile, outputfile, type);
    if (code != 0) {
        (void)std::fputs(CmdLineParamsDesc(), stderr);
        return code;
    }
    return execute(paramfile, ncfile, outputfile, logfile, type);
}

int Controller::execute(const char* paramfile, const char* ncfile, const char* outputfile,
                        const char* logfile, const eOutputType& type) {
    int code = kInternalError;
    try {
        code = runSteps(paramfile, ncfile, outputfile, logfile, type);
    } catch (const std::bad_alloc&) {
        code = kMemoryExhausted;
    } catch (...) {
        // Only a hook of the process ends throws anything else; the run is over then.
        code = kInternalError;
    }
    const Failure failure = LastFailure();
    const int written = CloseFiles();
    if (code == 0) {
        return written;
    }
    KeepFailure(failure);
    return code;
}

int Controller::runSteps(const char* paramfile, const char* ncfile, const char* outputfile,
                         const char* logfile, const eOutputType& type) {
    BeginConversion();
    if (const int code = protectInputs(paramfile, ncfile, outputfile, logfile); code != 0) {
        return code;
    }
    if (const int code = SetOutputType(type, outputfile, logfile); code != 0) {
        return code;
    }
    if (const int code = scanParamFile(paramfile); code != 0) {
        return code;
    }
    return scanNCFile(ncfile);
}

int Controller::protectInputs(const char* paramfile, const char* ncfile, const char* outputfile,
                              const char* logfile) noexcept {
    ncfile = IsStandardStream(ncfile) ? "/dev/stdin" : ncfile;
    outputfile = IsStandardStream(outputfile) ? "/dev/stdout" : outputfile;
    logfile = IsStandardStream(logfile) ? "/dev/stdout" : logfile;
    const auto isInput = [&](const char* name) {
        return isSameRegularFile(name, paramfile) || isSameRegularFile(name, ncfile);
    };
    if (isInput(logfile)) {
        KeepFailure({.text = "it is an input of this run"});
        return kLogFileUnwritable;
    }
    if (isInput(outputfile)) {
        KeepFailure({.text = "it is an input of this run"});
        return kOutputFileUnwritable;
    }
    if (isSameRegularFile(logfile, outputfile)) {
        KeepFailure({.text = "it is the output file as well"});
        return kLogFileUnwritable;
    }
    return 0;
}

int Controller::scanParamFile(const char* paramfile) {
    ParamScan scan(*this);
    if (const int code = scan.SetParameterFile(paramfile); code != 0) {
        return code;
    }
    return scan.run();
}

int Controller::scanNCFile(const char* ncfile) {
    if (const int code = SetNCFileName(ncfile); code != 0) {
        return code;
    }
    return NCScan::run();
}

int Controller::ScanParameters(int argc, char** argv, char*& paramfile, char*& ncfile,
                               char*& logfile, char*& outputfile, eOutputType& type) const {
    paramfile = nullptr;
    ncfile = nullptr;
    logfile = nullptr;
    outputfile = nullptr;
    type = eOutputAPT;
    for (int i = 1; i < argc; ++i) {
        const Spelling* const spelling = findSpelling(argv[i]);
        if (spelling == nullptr) {
            continue;
        }
        // The null that ends argv is the value of an option without one.
        char* const value = argv[++i];
        switch (spelling->option) {
        case Option::kParameterFile:
            paramfile = value;
            break;
        case Option::kNCFile:
            ncfile = value;
            break;
        case Option::kLogFile:
            logfile = value;
            break;
        case Option::kOutputFile:
            outputfile = value;
            break;
        case Option::kOutputType:
            readOutputType(value, type);
            break;
        }
    }
    const bool isComplete = paramfile != nullptr && ncfile != nullptr && outputfile != nullptr;
    return isComplete ? 0 : kCommandLineIncomplete;
}

const char* Controller::CmdLineParamsDesc() const { return kUsage; }

bool Controller::TakesValue(const char* argument) noexcept {
    return findSpelling(argument) != nullptr;
}
