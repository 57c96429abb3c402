#include "apt/StatementText.h"

#include <cfloat>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {

TEST(StatementText, HoldsTheLongestStatementAndNeverMore) {
    StatementText text;
    char printed[512];
    (void)std::snprintf(printed, sizeof printed, "%13.5f,", -DBL_MAX);
    std::string expected;
    for (int i = 0; i < 10; ++i) {
        text.circleValue(-DBL_MAX).add(",");
        expected += printed;
    }
    EXPECT_EQ(text.view(), expected);
    for (int i = 0; i < 20; ++i) {
        text.circleValue(DBL_MAX).add(std::numeric_limits<int>::min()).add("some words");
    }
    EXPECT_EQ(text.view().substr(0, expected.size()), expected);
    EXPECT_LE(text.view().size(), 4096U);
}

} // namespace
