#include "cli/shared/printText.h"

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
