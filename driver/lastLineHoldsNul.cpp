#include "driver/lastLineHoldsNul.h"

#include <algorithm>
#include <array>
#include <string_view>

bool lastLineHoldsNul(std::FILE* file) noexcept {
    constexpr long kMostBytes = 254;
    std::array<char, kMostBytes + 1> bytes;
    if (std::fseek(file, 0, SEEK_END) != 0) {
        return false;
    }
    const long size = std::min(std::ftell(file), kMostBytes);
    if (size <= 0 || std::fseek(file, -size, SEEK_CUR) != 0) {
        return false;
    }
    // The byte that is asked for beyond the last one sets the end-of-file mark again.
    const std::size_t read = std::fread(bytes.data(), 1, static_cast<std::size_t>(size) + 1, file);
    const std::string_view text(bytes.data(), std::min(read, static_cast<std::size_t>(size)));
    const std::size_t newline = text.rfind('\n');
    const std::size_t lineStart = newline == std::string_view::npos ? 0 : newline + 1;
    return text.find('\0', lineStart) != std::string_view::npos;
}
