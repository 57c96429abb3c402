#include "cli/quillmark/BatchResult.h"

#include "cli/quillmark/exitStatus.h"
#include "driver/returnCodes.h"

#include <algorithm>
#include <cstring>

int statusOf(const BatchResult& result) noexcept {
    if (result.startError != 0) {
        return kExitUsage;
    }
    return result.signal != 0 ? kExitSignal + result.signal : result.exitStatus;
}

int severityOf(const BatchResult& result) noexcept {
    if (result.outcome != BatchOutcome::kFailed) {
        return 0;
    }
    if (result.signal != 0) {
        return 4;
    }
    switch (statusOf(result)) {
    case kExitDoubtful:
        return 1;
    case kExitUsage:
        return 2;
    default:
        return 3;
    }
}

std::string failureText(const BatchResult& result) {
    if (result.startError != 0) {
        return std::string("its process cannot be started: ") + std::strerror(result.startError);
    }
    if (result.signal != 0) {
        return "ended by signal " + std::to_string(result.signal) + " (" +
               strsignal(result.signal) + ")";
    }
    if (result.exitStatus == kExitDoubtful) {
        return "text was not recognised, or there were warnings";
    }
    if (result.exitStatus == kExitUsage) {
        return "a result cannot be written";
    }
    const auto codes = returnCodes();
    const auto row = std::ranges::find(codes, result.exitStatus,
                                       [](const ReturnCode& code) { return code.code & 0xFF; });
    return row == codes.end() ? "exit status " + std::to_string(result.exitStatus)
                              : "error " + std::to_string(row->code) + ", " + row->meaning;
}
