#include "program/appendNumber.h"

#include <gtest/gtest.h>
#include <string>

namespace {

TEST(AppendNumber, WritesWhatReadsTheSameAndNoMore) {
    struct Row {
        double number;
        char separator;
        int decimals;
        const char* text;
    };
    constexpr Row kRows[] = {
        {12.5, '.', 0, "12.5"},
        {-0.001, ',', 0, "-0,001"},
        {-0.0, '.', 0, "0"},
        {2.0 / 3.0, '.', 0, "0.6666666666666666"},
        {0.1 + 0.2, '.', 0, "0.30000000000000004"},
        {1e21, '.', 0, "1000000000000000000000"},
        {1e-7, '.', 0, "0.0000001"},
        {999999999.999999, '.', 0, "999999999.999999"},
        // Implied decimals are rounded, halves away from 0.
        {2.0 / 3.0, '\0', 3, "667"},
        {-1.0005, '\0', 2, "-100"},
        {0.125, '\0', 2, "13"},
        {7.0, '\0', 0, "7"},
    };
    for (const Row& row : kRows) {
        std::string text = "X";
        appendNumber(text, row.number, row.separator, row.decimals);
        EXPECT_EQ(text, std::string("X") + row.text);
    }
}

} // namespace
