#include "cli/quillmark/printLine.h"

#include "cli/shared/printText.h"

void printLine(std::FILE* stream, long line, std::string_view file) noexcept {
    std::fprintf(stream, "%ld", line);
    if (!file.empty()) {
        std::fputs(" of '", stream);
        printText(stream, file);
        std::fputc('\'', stream);
    }
}
