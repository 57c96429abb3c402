#include "fuzz/conversion.h"

#include "driver/Controller.h"
#include "driver/returnCodes.h"
#include "fuzz/MemoryFile.h"
#include "include/quillmark_messages.h"
#include "path/AptReader.h"
#include "softCommon/CErrorUtil/processEnd.h"
#include "softCommon/FileOwner.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

constexpr int kUndefinedMachineStatus = 99;

struct EndOfRun {};

// A degenerate arc and a parameter file without a machine type are results, not crashes.
void endRun(void* context, const ProcessEnd& end) {
    const bool isArc = end.kind == ProcessEnd::Kind::kAssertion &&
                       std::string_view(end.expression).starts_with("!gmIsZero(");
    const bool isMachine =
        end.kind == ProcessEnd::Kind::kExit && end.status == kUndefinedMachineStatus;
    if (!isArc && !isMachine) {
        std::abort();
    }
    *static_cast<bool*>(context) = true;
    throw EndOfRun{};
}

void expect(bool promise, const char* text) {
    if (!promise) {
        (void)std::fprintf(stderr, "broken promise: %s\n", text);
        std::abort();
    }
}

// Every line of the output stands in the log, in the same order.
bool isCopied(std::string_view output, std::string_view log) {
    while (!output.empty()) {
        const std::string_view line = output.substr(0, output.find('\n') + 1);
        const std::size_t found = line.empty() ? std::string_view::npos : log.find(line);
        if (found == std::string_view::npos) {
            return false;
        }
        output.remove_prefix(line.size());
        log.remove_prefix(found + line.size());
    }
    return true;
}

// A run that ended early may leave a movement that is announced only, and a program may ask for
// positions that are numbers, but beyond those that the reader takes. Without planes an arc is
// written as the block has it, about a centre above or below its start, too.
void expectReadable(const MemoryFile& output, int code) {
    constexpr std::string_view kAnnounced = "the file ends in front of the movement";
    constexpr std::string_view kRefused[] = {"larger than any machine",
                                             "about a point above its start"};
    const FileOwner file(std::fopen(output.path(), "rb"));
    ToolPath path;
    AptReader reader;
    if (!reader.Read(file.get(), path) &&
        std::ranges::none_of(kRefused,
                             [&](std::string_view reason) {
                                 return reader.Reason().find(reason) != std::string::npos;
                             }) &&
        (code == 0 || !std::string_view(reader.Reason()).starts_with(kAnnounced))) {
        expect(false, (std::to_string(reader.Line()) + ": " + reader.Reason()).c_str());
    }
    expect(path.unknown.Rows().empty(), "every statement is known");
}

struct Run {
    int code;
    const MemoryFile& output;
};

Run run(std::string_view parameters, std::string_view program) {
    static MemoryFile parameterFile;
    static MemoryFile ncFile;
    static MemoryFile outputFile;
    static MemoryFile logFile;
    parameterFile.write(parameters);
    ncFile.write(program);
    bool hasEnded = false;
    setProcessEndHook(endRun, &hasEnded);
    const int code = dllentry(parameterFile.path(), ncFile.path(), outputFile.path(),
                              logFile.path(), eOutputAPT);
    setProcessEndHook(nullptr, nullptr);
    freeErrorStack();
    expect(code == 0 || findReturnCode(code) != nullptr, "every code is known");
    expect((code == kInternalError) == hasEnded, "only a process end is an internal error");
    // The log is complete after an end as well: the hook runs before the statement is begun.
    expect(code == kDialectUnsupported || isCopied(outputFile.read(), logFile.read()),
           "the log holds every statement of the output");
    return {code, outputFile};
}

} // namespace

void convert(std::string_view parameters, std::string_view program) {
    (void)run(parameters, program);
}

void convertControl(std::string_view parameters, std::string_view program) {
    const auto [code, output] = run(parameters, program);
    expectReadable(output, code);
}
