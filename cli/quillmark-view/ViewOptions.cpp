#include "cli/quillmark-view/ViewOptions.h"

#include "cli/quillmark-view/outputKinds.h"
#include "cli/quillmark-view/views.h"
#include "driver/fileIdentity.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string_view>

namespace {

using namespace std::string_view_literals;

bool readSpeed(const char* text, double& speed) noexcept {
    const char* const end = text + std::strlen(text);
    const auto [last, error] = std::from_chars(text, end, speed);
    return error == std::errc{} && last == end && speed > 0.0 && std::isfinite(speed);
}

// What an option does with its value. False when the value is none for it.
struct ValueOption {
    std::string_view name;
    bool (*take)(ViewOptions& options, const char* value);
    const char* wants;
};

constexpr ValueOption kValueOptions[] = {
    {"-o",
     [](ViewOptions& options, const char* value) {
         options.output = value;
         return findOutputKind(value) != nullptr;
     },
     "the name of a file that ends in .html, .svg or .png"},
    {"-l",
     [](ViewOptions& options, const char* value) {
         options.logs.push_back(value);
         return *value != '\0';
     },
     "the name of a log"},
    {"--rapid",
     [](ViewOptions& options, const char* value) { return readSpeed(value, options.rapid); },
     "a speed above 0, in mm/min"},
    {"--view",
     [](ViewOptions& options, const char* value) {
         options.view = value;
         return findView(value) != nullptr;
     },
     "top, front, side or isometric"},
};

const ValueOption* findOption(std::string_view name) noexcept {
    for (const ValueOption& row : kValueOptions) {
        if (row.name == name) {
            return &row;
        }
    }
    return nullptr;
}

bool isInput(const ViewOptions& options, const char* name) noexcept {
    const auto isSame = [name](const char* input) { return isSameRegularFile(input, name); };
    return std::ranges::any_of(options.apts, isSame) || std::ranges::any_of(options.logs, isSame);
}

std::string checked(const ViewOptions& options) {
    if (options.apts.empty() || options.apts.size() > 2) {
        return "one APT file is wanted, or two to compare";
    }
    if (options.logs.size() > options.apts.size()) {
        return "there are more logs than APT files";
    }
    const OutputKind* const kind =
        options.output == nullptr ? nullptr : findOutputKind(options.output);
    if (kind != nullptr && isInput(options, options.output)) {
        return "-o names a file that is read";
    }
    if (options.view != nullptr && (kind == nullptr || !kind->isPicture)) {
        return "--view is of use with a picture, -o";
    }
    if (options.apts.size() == 2 && kind != nullptr && !kind->isPicture) {
        return "a page shows one path";
    }
    if (options.json && !options.measures && options.apts.size() == 1) {
        return "--json is of use with --measure or two APT files";
    }
    if (options.rapid > 0.0 && !options.measures) {
        return "--rapid is of use with --measure";
    }
    if (options.apts.size() == 1 && !options.measures && options.output == nullptr) {
        return "nothing is asked for: --measure prints figures, -o makes a page or a picture";
    }
    return {};
}

} // namespace

ViewOptions readViewOptions(int argc, char** argv) {
    ViewOptions options;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (const ValueOption* const row = findOption(argument)) {
            const char* const value = i + 1 < argc ? argv[++i] : "";
            if (!row->take(options, value)) {
                options.usageError = std::string(argument) + " takes " + row->wants;
                return options;
            }
        } else if (argument == "--measure"sv) {
            options.measures = true;
        } else if (argument == "--json"sv) {
            options.json = true;
        } else if (argument.empty() || argument.starts_with('-')) {
            options.usageError = "'" + std::string(argument) + "' is no option";
            return options;
        } else {
            options.apts.push_back(argv[i]);
        }
    }
    options.usageError = checked(options);
    return options;
}
