#include "cli/quillmark/FrontEndOptions.h"

#include "driver/Controller.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

struct Switch {
    std::string_view text;
    bool FrontEndOptions::*isSet;
    const char* valueError;
};

constexpr Switch kSwitches[] = {
    {"--summary", &FrontEndOptions::summary, "--summary takes no value"},
    {"--quiet", &FrontEndOptions::quiet, "--quiet takes no value"},
    {"--strict", &FrontEndOptions::strict, "--strict takes no value"},
    {"--skip-blocks", &FrontEndOptions::skipBlocks, "--skip-blocks takes no value"},
    {"--whole", &FrontEndOptions::whole, "--whole takes no value"},
    {"--resume", &FrontEndOptions::resume, "--resume takes no value"},
};

struct ValuedOption {
    std::string_view text;
    const char* FrontEndOptions::*value;
    const char* valueError;
};

constexpr ValuedOption kValuedOptions[] = {
    {"--report", &FrontEndOptions::report, "--report needs the name of a file as its own argument"},
    {"--into", &FrontEndOptions::into, "--into needs the name of a folder as its own argument"},
    {"--jobs", &FrontEndOptions::jobs, "--jobs needs a number as its own argument"},
};

constexpr std::string_view kSubprograms = "--subprograms";
constexpr const char* kSubprogramsNeedName =
    "--subprograms needs the name of a folder as its own argument";

bool isAssignment(std::string_view argument, std::string_view option) noexcept {
    return argument.starts_with(option) && argument.substr(option.size()).starts_with('=');
}

// Whether `argument` belongs to the front end; then it has had its effect.
bool readSwitch(std::string_view argument, FrontEndOptions& options) noexcept {
    for (const Switch& row : kSwitches) {
        if (argument == row.text) {
            options.*row.isSet = true;
            return true;
        }
        if (isAssignment(argument, row.text)) {
            options.usageError = row.valueError;
            return true;
        }
    }
    return false;
}

// The row of `argument`, with or without "=" behind it; null when there is none.
const ValuedOption* findValuedOption(std::string_view argument) noexcept {
    const auto* const row = std::ranges::find_if(kValuedOptions, [&](const ValuedOption& option) {
        return argument == option.text || isAssignment(argument, option.text);
    });
    return row == std::end(kValuedOptions) ? nullptr : row;
}

} // namespace

FrontEndOptions readFrontEndOptions(int argc, char** argv) {
    FrontEndOptions options;
    if (argc > 0) {
        options.arguments.push_back(argv[0]);
    }
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (Controller::TakesValue(argv[i])) {
            options.arguments.push_back(argv[i]);
            if (i + 1 < argc) {
                options.arguments.push_back(argv[++i]);
            }
        } else if (const ValuedOption* const row = findValuedOption(argument)) {
            const bool hasValue = argument == row->text && i + 1 < argc && *argv[i + 1] != '\0';
            if (hasValue) {
                options.*row->value = argv[++i];
            } else {
                options.usageError = row->valueError;
            }
        } else if (argument == kSubprograms) {
            options.subprograms.emplace_back(i + 1 < argc ? argv[++i] : "");
            if (options.subprograms.back().empty()) {
                options.usageError = kSubprogramsNeedName;
            }
        } else if (isAssignment(argument, kSubprograms)) {
            options.usageError = kSubprogramsNeedName;
        } else if (!readSwitch(argument, options)) {
            options.arguments.push_back(argv[i]);
        }
    }
    options.arguments.push_back(nullptr);
    if (options.usageError == nullptr && options.summary && options.quiet) {
        options.usageError = "--summary and --quiet exclude each other";
    }
    if (options.usageError == nullptr && options.into == nullptr &&
        (options.resume || options.jobs != nullptr)) {
        options.usageError = "--resume and --jobs need --into FOLDER";
    }
    return options;
}
