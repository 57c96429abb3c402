#include "cli/quillmark/BatchOptions.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <map>
#include <sched.h>
#include <set>
#include <string_view>
#include <strings.h>
#include <sys/stat.h>

namespace {

constexpr int kMostJobs = 500; // each holds a descriptor, and 1024 are the usual limit

struct PassedSwitch {
    const char* text;
    bool FrontEndOptions::*isSet;
};

constexpr PassedSwitch kPassedSwitches[] = {
    {"--summary", &FrontEndOptions::summary},
    {"--quiet", &FrontEndOptions::quiet},
    {"--strict", &FrontEndOptions::strict},
    {"--skip-blocks", &FrontEndOptions::skipBlocks},
};

// Those on which this process may run.
int processorCount() noexcept {
    cpu_set_t processors;
    return sched_getaffinity(0, sizeof processors, &processors) == 0 ? CPU_COUNT(&processors) : 1;
}

void readJobs(const char* text, BatchOptions& batch) {
    if (text == nullptr) {
        batch.jobs = std::min(processorCount(), kMostJobs);
        return;
    }
    const char* const end = text + std::strlen(text);
    const auto [behind, error] = std::from_chars(text, end, batch.jobs);
    if (error != std::errc() || behind != end || batch.jobs < 1 || batch.jobs > kMostJobs) {
        batch.error = "--jobs needs a number from 1 to " + std::to_string(kMostJobs);
    }
}

void passOptions(const FrontEndOptions& options, BatchOptions& batch) {
    batch.passed.emplace_back("--whole");
    for (const PassedSwitch& row : kPassedSwitches) {
        if (options.*row.isSet) {
            batch.passed.emplace_back(row.text);
        }
    }
    for (const std::string& folder : options.subprograms) {
        batch.passed.insert(batch.passed.end(), {"--subprograms", folder});
    }
}

BatchProgram programOf(const char* nc, const std::filesystem::path& folder) {
    const std::string stem = (folder / std::filesystem::path(nc).stem()).string();
    return {nc, stem + ".apt", stem + ".log", stem + ".json"};
}

void readProgram(std::string_view argument, BatchOptions& batch) {
    const std::string text(argument);
    if (argument.starts_with('-')) {
        batch.error = "'" + text +
                      "' is no option of a run with --into; a program of that name is "
                      "given as './" +
                      text + "'";
    } else if (std::filesystem::path(text).filename().empty()) {
        batch.error = "'" + text + "' is no name of a program";
    } else {
        batch.programs.push_back(programOf(text.c_str(), batch.folder));
    }
}

// Of the options of the conversion, a batch takes the parameter file alone.
void readArguments(const FrontEndOptions& options, BatchOptions& batch) {
    for (const char* const stray : options.strays) {
        readProgram(stray, batch);
    }
    bool takesOthers = false;
    for (std::size_t i = 1; i + 1 < options.arguments.size(); i += 2) {
        if (strcasecmp(options.arguments[i], "-p") == 0) {
            batch.parameter = options.arguments[i + 1];
        } else {
            takesOthers = true;
        }
    }
    if (takesOthers) {
        batch.error = "with --into, programs stand by themselves and their results get names from "
                      "them: -nc, -of, -l and -ot do not go together with it";
    } else if (batch.parameter == nullptr) {
        batch.error = "--into needs a parameter file: -p paramfile";
    } else if (batch.programs.empty() && batch.error.empty()) {
        batch.error = "--into needs the names of programs";
    }
}

void refuseSharedNames(BatchOptions& batch) {
    std::map<std::string_view, const BatchProgram*> byOutput;
    for (const BatchProgram& program : batch.programs) {
        const auto [other, isNew] = byOutput.emplace(program.output, &program);
        if (!isNew) {
            batch.error = "'" + other->second->nc + "' and '" + program.nc + "' would both give '" +
                          program.output + "'";
            return;
        }
    }
}

using FileIdentity = std::pair<dev_t, ino_t>;

bool identify(const std::string& name, FileIdentity& identity) noexcept {
    struct stat file {};
    if (stat(name.c_str(), &file) != 0) {
        return false;
    }
    identity = {file.st_dev, file.st_ino};
    return true;
}

void refuseInputsAsResults(BatchOptions& batch) {
    std::set<FileIdentity> inputs;
    FileIdentity identity;
    if (identify(batch.parameter, identity)) {
        inputs.insert(identity);
    }
    for (const BatchProgram& program : batch.programs) {
        if (identify(program.nc, identity)) {
            inputs.insert(identity);
        }
    }
    for (const BatchProgram& program : batch.programs) {
        for (const std::string* const name : {&program.output, &program.log, &program.report}) {
            if (identify(*name, identity) && inputs.contains(identity)) {
                batch.error = "cannot write '" + *name + "': it is an input of this run";
                return;
            }
        }
    }
}

} // namespace

BatchOptions readBatchOptions(const FrontEndOptions& options) {
    BatchOptions batch;
    batch.folder = options.into;
    batch.resume = options.resume;
    batch.quiet = options.quiet;
    batch.report = options.report;
    passOptions(options, batch);
    readArguments(options, batch);
    readJobs(options.jobs, batch);
    if (batch.error.empty()) {
        refuseSharedNames(batch);
    }
    if (batch.error.empty()) {
        refuseInputsAsResults(batch);
    }
    return batch;
}
