#include "cli/shared/utf8.h"

std::size_t utf8SequenceLength(std::string_view text) noexcept {
    const auto byteAt = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    struct Row {
        unsigned char firstLow, firstHigh, secondLow, secondHigh;
        std::size_t length;
    };
    static constexpr Row kRows[] = {
        {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3}, {0xE1, 0xEC, 0x80, 0xBF, 3},
        {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
        {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
    };
    if (byteAt(0) < 0x80) {
        return 1;
    }
    for (const Row& row : kRows) {
        if (byteAt(0) < row.firstLow || byteAt(0) > row.firstHigh) {
            continue;
        }
        if (text.size() < row.length || byteAt(1) < row.secondLow || byteAt(1) > row.secondHigh) {
            return 0;
        }
        for (std::size_t i = 2; i < row.length; ++i) {
            if ((byteAt(i) & 0xC0U) != 0x80U) {
                return 0;
            }
        }
        return row.length;
    }
    return 0;
}
