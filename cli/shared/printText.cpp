#include "cli/shared/printText.h"

#include "cli/shared/utf8.h"

#include <algorithm>
#include <limits>

namespace {

// U+0080 to U+009F are control characters as well.
bool isControl(std::string_view character) noexcept {
    const auto first = static_cast<unsigned char>(character[0]);
    const auto last = static_cast<unsigned char>(character.back());
    return first < 0x20 || first == 0x7F || (first == 0xC2 && last < 0xA0);
}

void printEscaped(std::FILE* stream, std::string_view bytes) noexcept {
    for (const char c : bytes) {
        std::fprintf(stream, "\\x%02X", unsigned{static_cast<unsigned char>(c)});
    }
}

// Prints at most that many characters and returns what is left.
std::string_view printCharacters(std::FILE* stream, std::string_view text,
                                 std::size_t most) noexcept {
    for (; !text.empty() && most > 0; --most) {
        const std::size_t length = utf8SequenceLength(text);
        const std::string_view character = text.substr(0, std::max<std::size_t>(length, 1));
        if (length == 0 || isControl(character)) {
            printEscaped(stream, character);
        } else {
            (void)std::fwrite(character.data(), 1, character.size(), stream);
        }
        text.remove_prefix(character.size());
    }
    return text;
}

} // namespace

void printText(std::FILE* stream, std::string_view text) noexcept {
    (void)printCharacters(stream, text, std::numeric_limits<std::size_t>::max());
}

void printBeginning(std::FILE* stream, std::string_view text) noexcept {
    constexpr std::size_t kMostCharacters = 200;
    if (!printCharacters(stream, text, kMostCharacters).empty()) {
        std::fputs("...", stream);
    }
}
