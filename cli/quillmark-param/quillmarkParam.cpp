// The tool for parameter files: a table of commands around one input and one output.

#include "cli/quillmark-param/paramCommands.h"
#include "cli/quillmark-param/paramMessages.h"
#include "cli/shared/flushStandardOutput.h"
#include "cli/shared/versionText.h"
#include "cli/shared/wholeFile.h"
#include "driver/StandardDescriptors.h"
#include "softCommon/CErrorUtil/processEnd.h"
#include "update/liesPP.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <new>
#include <span>

namespace {

constexpr const char* kName = "quillmark-param";

struct ParamCommand {
    const char* name;
    const char* operands;
    const char* meaning;
    int (*run)(const ParamInput& in, std::FILE* out);
    bool hasOutput;
    bool hasTexts = false;                                            ///< one or more behind IN
    int (*runAsJson)(const ParamInput& in, std::FILE* out) = nullptr; ///< with --json, anywhere
};

constexpr ParamCommand kCommands[] = {
    {"encode", "IN OUT", "plain file of the current format to a coded one", encodeCommand, true},
    {"encode-old", "IN OUT",
     "plain lines of the older generation, of at most 80 bytes, to a coded"
     " file",
     encodeOldCommand, true},
    {"decode", "IN OUT", "coded file of either generation to plain text", decodeCommand, true},
    {"update", "IN OUT", "file of the older generation to a plain one of the current format",
     updateCommand, true},
    {"check", "[--json] IN", "tells what a parameter file configures and what looks wrong in it",
     checkCommand, false, false, checkAsJsonCommand},
    {"eval", "IN TEXT...", "prints the values of expressions in the language of a dialect",
     evalCommand, false, true},
};

void printUsage(std::FILE* stream) noexcept {
    const char* indent = "usage: ";
    for (const ParamCommand& command : kCommands) {
        std::fprintf(stream, "%squillmark-param %s %s\n", indent, command.name, command.operands);
        indent = "       ";
    }
}

void printHelp() noexcept {
    printUsage(stdout);
    (void)std::putchar('\n');
    for (const ParamCommand& command : kCommands) {
        std::printf("  %-11s %s\n", command.name, command.meaning);
    }
    (void)std::fputs("\n"
                     "  -           as IN is standard input, as OUT standard output\n"
                     "  NAME        as IN is also a dialect of quillmark --dialects, when no file\n"
                     "              has that name\n"
                     "  --json      lets check write one JSON object, in front of IN or behind it\n"
                     "  --help, -h  this text, as the only argument\n"
                     "  --version   version and banner, as the only argument\n"
                     "\n"
                     "OUT is written whole or not at all; it may be the same file as IN.\n"
                     "\n"
                     "eval executes assignments and declarations among its texts for those behind\n"
                     "them, and ends at the first failure.\n"
                     "\n"
                     "Exit status: 0 success, also with warnings; 1 failure, or check found an\n"
                     "error; 2 wrong usage; 99 an old file whose machine type cannot be told.\n",
                     stdout);
}

bool printsInformation(const char* argument) noexcept {
    if (std::strcmp(argument, "--help") == 0 || std::strcmp(argument, "-h") == 0) {
        printHelp();
        return true;
    }
    if (std::strcmp(argument, "--version") == 0) {
        printVersion(stdout, kName);
        return true;
    }
    return false;
}

// An operand that looks like an option is a mistake more often than a file name.
bool isOperand(const char* argument) noexcept {
    return argument[0] != '\0' && (argument[0] != '-' || argument[1] == '\0');
}

// Whether the arguments call for the command with as many operands as it has.
bool isCallOf(const ParamCommand& command, std::span<char*> arguments) noexcept {
    const std::size_t files = command.hasOutput ? 2 : 1;
    const bool isComplete =
        command.hasTexts ? arguments.size() > 1 + files : arguments.size() == 1 + files;
    return isComplete && std::strcmp(arguments[0], command.name) == 0 &&
           std::ranges::all_of(arguments.subspan(1, files), isOperand);
}

// The command that the arguments call for, or null.
const ParamCommand* findCommand(std::span<char*> arguments) noexcept {
    const auto* const command = std::ranges::find_if(
        kCommands, [&](const ParamCommand& row) { return isCallOf(row, arguments); });
    return command == std::end(kCommands) ? nullptr : command;
}

struct Call {
    const ParamCommand& command;
    const char* inName;
    std::FILE* out;
};

// Takes "--json" out of the arguments of a command that knows it. Tells whether it was there.
bool takeJsonOption(std::span<char*>& arguments) noexcept {
    const auto knowsIt = [&](const ParamCommand& command) {
        return command.runAsJson != nullptr && std::strcmp(arguments[0], command.name) == 0;
    };
    if (arguments.empty() || std::ranges::none_of(kCommands, knowsIt)) {
        return false;
    }
    const auto option = std::ranges::find_if(
        arguments, [](const char* argument) { return std::strcmp(argument, "--json") == 0; });
    if (option == arguments.end()) {
        return false;
    }
    std::rotate(option, option + 1, arguments.end());
    arguments = arguments.first(arguments.size() - 1);
    return true;
}

// A report is of use as far as it goes; the file of a command is not.
void reportEnd(void* context, const ProcessEnd& /*end*/) {
    const Call& call = *static_cast<const Call*>(context);
    if (call.command.hasOutput) {
        (void)failWith(call.inName, "cannot be updated");
    } else {
        (void)writeWholeFile(call.out, "-", kName);
        (void)failWith(call.inName, "the machine type cannot be told, and without it nothing else");
    }
}

int runCommand(const ParamCommand& command, std::span<char*> arguments, bool asJson) {
    const char* const inName = arguments[1];
    const char* const outName = command.hasOutput ? arguments[2] : "-";
    ParamInput in;
    in.SetTexts(arguments.subspan(2));
    if (const int status = in.Read(inName); status != kParamDone) {
        return status;
    }
    const FileOwner out(std::tmpfile());
    if (out == nullptr) {
        return failWith(inName, "no temporary file: " + std::string(std::strerror(errno)));
    }
    Call call{command, in.Name(), out.get()};
    setProcessEndHook(reportEnd, &call);
    const int status = (asJson ? command.runAsJson : command.run)(in, out.get());
    setProcessEndHook(nullptr, nullptr);
    if (command.hasOutput && status != kParamDone) {
        return status;
    }
    if (std::fflush(out.get()) != 0 || std::ferror(out.get()) != 0) {
        return failWith(inName, "the temporary file for the result cannot be written");
    }
    // A report is wanted above all when it tells of errors, and values until a failure.
    const bool isWritten = writeWholeFile(out.get(), outName, kName);
    return status == kParamDone && !isWritten ? kParamFailed : status;
}

} // namespace

int main(int argc, char** argv) {
    const StandardDescriptors descriptors(StandardDescriptors::Output::kFails);
    if (argc == 2 && printsInformation(argv[1])) {
        return flushStandardOutput(kName) ? kParamDone : kParamFailed;
    }
    setLiesPPMessages(stderr); // standard output is for what was asked for
    std::span arguments(argv + 1, argc < 1 ? 0U : static_cast<std::size_t>(argc) - 1);
    const bool asJson = takeJsonOption(arguments);
    const ParamCommand* const command = arguments.empty() ? nullptr : findCommand(arguments);
    if (command == nullptr) {
        printUsage(stderr);
        return kParamUsage;
    }
    try {
        return runCommand(*command, arguments, asJson);
    } catch (const std::bad_alloc&) {
        return failWith(arguments[1], "memory exhausted");
    }
}
