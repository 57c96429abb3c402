#include "cli/shared/blockText.h"

void printText(std::FILE* stream, std::string_view text) noexcept {
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F) {
            std::fprintf(stream, "\\x%02X", unsigned{byte});
        } else {
            std::fputc(c, stream);
        }
    }
}

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
