#include "cli/quillmark/printStoppedBlock.h"

#include "cli/quillmark/printLine.h"
#include "cli/shared/printText.h"

void printStoppedBlock(std::FILE* stream, const NCScan& scan, const char* outputName) noexcept {
    const Block& block = scan.CurrentBlock();
    if (block.GetPlace().number == 0) {
        return;
    }
    const Block::Place& place = block.GetPlace();
    std::fputs("quillmark: stopped at block ", stream);
    printLine(stream, place.line, place.file == nullptr ? "" : place.file);
    std::fputs(": ", stream);
    printText(stream, block.Text());
    std::fputs("\nquillmark: the output written so far stays in '", stream);
    printText(stream, outputName);
    std::fputs("'\n", stream);
}
