#include "cli/quillmark/printStoppedBlock.h"

#include "cli/shared/printText.h"

void printStoppedBlock(std::FILE* stream, const NCScan& scan, const char* outputName) noexcept {
    const Block& block = scan.CurrentBlock();
    if (block.GetPlace().number == 0) {
        return;
    }
    std::fprintf(stream, "quillmark: stopped at block %ld: ", block.GetPlace().line);
    printText(stream, block.Text());
    std::fputs("\nquillmark: the output written so far stays in '", stream);
    printText(stream, outputName);
    std::fputs("'\n", stream);
}
