#include "apt/APTFactory.h"

#include "apt/AResCircularMovement.h"
#include "apt/ResCoolant.h"
#include "apt/ResFeedRate.h"
#include "apt/ResMovTypeCom.h"
#include "apt/ResSpindle.h"
#include "apt/StatementText.h"
#include "softCommon/FileOwner.h"
#include "tests/support/TempFolder.h"
#include "tests/support/convert.h"
#include "tests/support/endOf.h"

#include <cfloat>
#include <climits>
#include <cstdio>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

template<class Writer>
std::unique_ptr<Writer> own(Writer* writer) {
    return std::unique_ptr<Writer>(writer);
}

// What `action` writes with the writers of a factory; its log has to be the same.
template<class Action>
std::string written(const Action& action) {
    const TempFolder folder;
    {
        const FileOwner output(std::fopen(folder.path("apt").c_str(), "w"));
        const FileOwner log(std::fopen(folder.path("log").c_str(), "w"));
        APTFactory factory(output.get(), log.get());
        action(factory);
    }
    EXPECT_EQ(folder.read("log"), folder.read("apt"));
    return folder.read("apt");
}

// An arc about the origin that ends in (0, 10, 0).
std::string arc(Boolean clockwise, const Point& start, const Point& normal) {
    return written([&](Factory& factory) {
        own(factory.GetCirculCom())
            ->InitOutput(clockwise, start[0], start[1], start[2], 0, 10, 0, 0, 0, 0, normal[0],
                         normal[1], normal[2]);
    });
}

TEST(Writers, TakeWhatIsNoTruthValueForItsSide) {
    EXPECT_EQ(written([](Factory& factory) {
                  own(factory.GetFeedRaCom())->InitOutput(-1, 0.125);
                  own(factory.GetSpindlCom())->InitOutput(7, 500);
                  own(factory.GetSpindlCom())->InitOutput(-1, -500);
                  own(factory.GetCoolanCom())->InitOutput(3);
                  own(factory.GetMovTypCom())->InitOutput(-1);
              }),
              "FEDRAT/    0.1250,MMPR\nSPINDL/  500.0000,RPM,CLW\nSPINDL/ -500.0000,RPM,CCLW\n"
              "COOLNT/OFF\nMODE/INCR,ON\n");
    EXPECT_EQ(arc(2, {10, 0, 0}, {0, 0, 1}), arcTo({0, 1, -0.0}, {}, 10, {0, 10, 0}));
}

TEST(CircleWriter, StartsAlongTheTangent) {
    // Neither the length of the normal nor the height of the start counts.
    EXPECT_EQ(arc(TRUE, {3, 4, 9}, {0, 0, 5}), arcTo({0.8, -0.6, 0}, {}, 10, {0, 10, 0}));
    EXPECT_EQ(arc(TRUE, {0, 0, 1e-9}, {1, 0, 0}), arcTo({-0.0, 1, 0}, {}, 10, {0, 10, 0}));
}

TEST(CircleWriter, EndsTheProcessWithoutADirection) {
    for (const Point& start : {Point{0, 0, 5}, Point{9e-11, 0, 0}}) {
        EXPECT_STREQ(endOf([&] {
                         (void)arc(TRUE, start, {0, 0, 1});
                     }).expression,
                     "!gmIsZero(len)");
    }
    EXPECT_EQ(endOf([] { (void)arc(TRUE, {1e-10, 0, 0}, {0, 0, 1}); }).expression, nullptr);
}

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
        text.circleValue(DBL_MAX).add(INT_MIN).add("some words");
    }
    EXPECT_EQ(text.view().substr(0, expected.size()), expected);
    EXPECT_LE(text.view().size(), 4096U);
}

} // namespace
