#include "cli/quillmark/printStoppedBlock.h"

#include "cli/quillmark/printLine.h"
#include "cli/shared/printText.h"

#include <cstring>

namespace {

void printBlock(std::FILE* stream, const Block& block) noexcept {
    const Block::Place& place = block.GetPlace();
    printLine(stream, place.line, place.file == nullptr ? "" : place.file);
    std::fputs(": ", stream);
    printBeginning(stream, block.Text());
}

} // namespace

void printStoppedBlock(std::FILE* stream, const NCScan& scan, const char* outputName) noexcept {
    const Block& block = scan.CurrentBlock();
    if (block.GetPlace().number == 0) {
        return;
    }
    std::fputs("quillmark: stopped at block ", stream);
    printBlock(stream, block);
    std::fputs("\nquillmark: the output written so far stays in '", stream);
    printText(stream, outputName);
    std::fputs("'\n", stream);
}

void printStopSignal(std::FILE* stream, const NCScan& scan, int signal,
                     const char* outputName) noexcept {
    std::fprintf(stream, "quillmark: stopped by SIG%s ", sigabbrev_np(signal));
    const Block& block = scan.CurrentBlock();
    if (block.GetPlace().number == 0) {
        std::fputs("before the first block\n", stream);
        return;
    }
    std::fputs("behind block ", stream);
    printBlock(stream, block);
    std::fputs("; '", stream);
    printText(stream, outputName);
    std::fputs("' holds what was converted until then\n", stream);
}

void printFatalArc(std::FILE* stream, const NCScan& scan) noexcept {
    const Block& block = scan.CurrentBlock();
    if (block.GetPlace().number == 0) {
        return;
    }
    std::fputs("quillmark: this arc has no direction, since its centre is its start: ", stream);
    printBlock(stream, block);
    std::fputs("\nquillmark: likely causes: it is given by its radius (R, CR=), which the dialect "
               "does not "
               "read; it lies in another plane; its centre word is one that the dialect lacks\n",
               stream);
}
