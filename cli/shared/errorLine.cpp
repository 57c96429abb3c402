#include "cli/shared/errorLine.h"

#include "cli/shared/printText.h"
#include "driver/returnCodes.h"

#include <cstring>

namespace {

const char* nameOf(ConversionFile file, const ConversionFiles& files) noexcept {
    switch (file) {
    case ConversionFile::kParameter:
        return files.parameter;
    case ConversionFile::kNC:
        return files.nc;
    case ConversionFile::kOutput:
        return files.output;
    case ConversionFile::kLog:
        return files.log;
    case ConversionFile::kNone:
        break;
    }
    return nullptr;
}

} // namespace

void printErrorLine(std::FILE* stream, const char* program, int code, const ConversionFiles& files,
                    const Failure& failure) noexcept {
    (void)std::fflush(stdout); // one message of the reader may go there, and it comes first
    std::fprintf(stream, "%s: error %d", program, code);
    if (const ReturnCode* const row = findReturnCode(code)) {
        std::fprintf(stream, ": %s", row->meaning);
        if (const char* const name = nameOf(row->file, files)) {
            std::fputs(" '", stream);
            printText(stream, name);
            (void)std::fputc('\'', stream);
        }
        const char* const reason =
            failure.systemError != 0 ? std::strerror(failure.systemError) : failure.text;
        std::fputs(": ", stream);
        printText(stream, reason != nullptr ? reason : row->remedy);
    }
    (void)std::fputc('\n', stream);
}
