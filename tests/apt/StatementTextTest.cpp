#include "apt/StatementText.h"

#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace {

struct Format {
    const char* printf;
    StatementText& (StatementText::*add)(double) noexcept;
};

constexpr Format kFormats[] = {
    {"%11.5f", &StatementText::coordinate},
    {"%13.5f", &StatementText::circleValue},
    {"%10.4f", &StatementText::rate},
};

void expectAsPrinted(double value) {
    for (const Format& format : kFormats) {
        char printed[512];
        (void)std::snprintf(printed, sizeof printed, format.printf, value);
        StatementText text;
        (text.*format.add)(value);
        ASSERT_EQ(text.view(), printed) << std::bit_cast<std::uint64_t>(value);
    }
}

TEST(StatementText, PrintsNumbersAsPrintfDoes) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    for (const double value : {0.0,         1.0,          0.5,
                               1e-5,        5e-6,         4.9999999e-6,
                               9.999995,    99999.999995, 99999.99999,
                               123456789.0, 1e15,         1e22,
                               1e23,        1e300,        DBL_MAX,
                               DBL_MIN,     DBL_TRUE_MIN, 1.0 / 3,
                               2.5e-5,      0.000005,     std::numeric_limits<double>::infinity(),
                               kNaN}) {
        expectAsPrinted(value);
        expectAsPrinted(-value);
    }
}

// Every odd multiple of 2^-6 ends in a 5 at the sixth decimal, of 2^-5 at the fifth: the halves
// that a rounding rule is about. Neighbours on both sides fall off them.
TEST(StatementText, RoundsTiesToEven) {
    for (int i = -4001; i <= 4001; i += 2) {
        for (const double tie : {i / 32.0, i / 64.0, 1e6 + i / 64.0}) {
            expectAsPrinted(tie);
            expectAsPrinted(std::nextafter(tie, DBL_MAX));
            expectAsPrinted(std::nextafter(tie, -DBL_MAX));
        }
    }
}

TEST(StatementText, PrintsRandomNumbersAsPrintfDoes) {
    std::mt19937_64 random(20041206);
    std::uniform_real_distribution<double> coordinate(-100'000.0, 100'000.0);
    for (int i = 0; i < 20'000; ++i) {
        const double value = coordinate(random);
        expectAsPrinted(value);
        expectAsPrinted(std::round(value * 1000) / 1000);
        expectAsPrinted(std::bit_cast<double>(random()));
    }
}

TEST(StatementText, HoldsTheLongestStatementAndNeverMore) {
    StatementText text;
    std::string expected;
    for (int i = 0; i < 10; ++i) {
        text.circleValue(-DBL_MAX).add(",");
        char printed[512];
        (void)std::snprintf(printed, sizeof printed, "%13.5f,", -DBL_MAX);
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
