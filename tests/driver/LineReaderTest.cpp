#include "driver/LineReader.h"
#include "softCommon/FileOwner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace {

// Lines up to twice the length of a piece, of bytes that could be taken for ends.
std::string anyText(std::mt19937& random, std::size_t size) {
    std::string text;
    while (text.size() < size) {
        text += std::string(random() % 511, "x\r\0"[random() % 3]) + "\n";
    }
    return text.substr(0, size);
}

TEST(LineReader, GivesEveryLineInPieces) {
    std::mt19937 random(255);
    // Around the sizes of one and of two readings.
    for (std::size_t size = 0; size < 200'000; size += random() % 4000 + 1) {
        std::string text = anyText(random, size);
        const FileOwner file(size == 0 ? std::fopen("/dev/null", "r")
                                       : fmemopen(text.data(), text.size(), "r"));
        LineReader lines(file.get());
        std::size_t at = 0;
        for (std::string_view piece; lines.Next(piece); at += piece.size()) {
            const std::size_t most = std::min(LineReader::kMostBytes, text.size() - at);
            const std::size_t newline = text.substr(at, most).find('\n');
            ASSERT_EQ(piece, text.substr(at, std::min(newline, most - 1) + 1)) << size << " " << at;
        }
        EXPECT_EQ(at, text.size());
        EXPECT_FALSE(lines.HasFailed());
    }
}

} // namespace
