#include "cli/quillmark/printStoppedBlock.h"

#include "cli/shared/printText.h"

void printStoppedBlock(std::FILE* stream, const NCScan& scan, const char* outputName) noexcept {
    if (scan.BlockNumber() == 0) {
        return;
    }
    std::fprintf(stream, "quillmark: stopped at block %ld: ", scan.BlockNumber());
    printText(stream, scan.BlockText());
    std::fputs("\nquillmark: the output written so far stays in '", stream);
    printText(stream, outputName);
    std::fputs("'\n", stream);
}
