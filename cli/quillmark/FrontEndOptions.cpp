#include "cli/quillmark/FrontEndOptions.h"

#include "cli/shared/nearestName.h"
#include "cli/shared/viewSuffixes.h"
#include "driver/Controller.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <strings.h>
#include <utility>

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
    {"--view", &FrontEndOptions::view, "--view needs the name of a file as its own argument"},
};

constexpr std::string_view kSubprograms = "--subprograms";
constexpr const char* kSubprogramsNeedName =
    "--subprograms needs the name of a folder as its own argument";

bool isAssignment(std::string_view argument, std::string_view option) noexcept {
    return argument.starts_with(option) && argument.substr(option.size()).starts_with('=');
}

// Options of the conversion may be spelled in small and capital letters.
bool isSpelling(const char* argument, const char* option) noexcept {
    return strcasecmp(argument, option) == 0;
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

// The last value of an option counts.
void judgeRepetition(const char* option, std::vector<const char*>& given,
                     FrontEndOptions& options) {
    given.push_back(option);
    const auto times = std::ranges::count_if(
        given, [option](const char* other) { return isSpelling(option, other); });
    if (times == 2) {
        options.repetitions.push_back("'" + std::string(option) +
                                      "' is given more than once: the last one counts");
    }
}

// For the value of -ot; the names of the kinds are those that the conversion knows.
void judgeOutputType(const char* value, FrontEndOptions& options) {
    constexpr std::string_view kTypes[] = {"APT", "TOOLPATH"};
    if (value == nullptr || std::ranges::find(kTypes, value) != std::end(kTypes)) {
        return;
    }
    const std::string_view nearest = nearestName(value, kTypes);
    options.warnings.push_back(
        "kind of output '" + std::string(value) + "' is passed over; " +
        (nearest.empty() ? "the only kind is APT" : "the nearest is " + std::string(nearest)));
}

std::string describeOption(std::string_view argument) {
    constexpr std::string_view kQuestions[] = {"--dialects", "--help", "--version", "-h"};
    constexpr std::string_view kOptions[] = {
        "-l",         "-nc",       "-of",           "-ot",      "-p",
        "--dialects", "--help",    "--into",        "--jobs",   "--quiet",
        "--report",   "--resume",  "--skip-blocks", "--strict", "--subprograms",
        "--summary",  "--version", "--view",        "--whole"};
    const std::string name(argument.substr(0, argument.find('=')));
    if (std::ranges::find(kQuestions, argument) != std::end(kQuestions)) {
        return "'" + name + "' is passed over: it stands alone";
    }
    const std::string_view nearest = nearestName(name, kOptions);
    return "unknown option '" + name + "' is passed over; " +
           (nearest.empty() ? "'quillmark --help' lists the options"
                            : "the nearest is '" + std::string(nearest) + "'");
}

// For an argument that nothing takes; `before` is the option that took the one in front of it.
std::string describeStray(std::string_view argument, const char* before) {
    if (argument.size() > 1 && argument[0] == '-') {
        return describeOption(argument);
    }
    return "'" + std::string(argument) + "' is passed over: " +
           (before != nullptr && isSpelling(before, "-nc") ? "-nc takes one program"
                                                           : "no option takes it");
}

} // namespace

FrontEndOptions readFrontEndOptions(int argc, char** argv) {
    FrontEndOptions options;
    if (argc > 0) {
        options.arguments.push_back(argv[0]);
    }
    const char* before = nullptr;
    std::vector<const char*> given;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        const char* const optionBefore = std::exchange(before, nullptr);
        if (Controller::TakesValue(argv[i])) {
            before = argv[i];
            options.arguments.push_back(argv[i]);
            judgeRepetition(before, given, options);
            if (i + 1 < argc) {
                options.arguments.push_back(argv[++i]);
            } else if (isSpelling(before, "-l")) {
                options.warnings.emplace_back("'-l' is passed over: no name of a file follows it");
            }
            if (isSpelling(before, "-ot")) {
                judgeOutputType(argv[i] == before ? nullptr : argv[i], options);
            }
        } else if (const ValuedOption* const row = findValuedOption(argument)) {
            judgeRepetition(row->text.data(), given, options);
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
            options.strays.push_back(argv[i]);
            options.warnings.push_back(describeStray(argument, optionBefore));
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
    if (options.usageError == nullptr && options.view != nullptr) {
        options.usageError =
            options.into != nullptr
                ? "--view shows one program and does not go together with --into"
            : !isViewName(options.view)
                ? "--view takes the name of a file that ends in .html, .svg or .png"
                : nullptr;
    }
    return options;
}
