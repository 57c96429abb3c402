#include "apt/APTFactory.h"

#include "apt/AResCircularMovement.h"
#include "apt/ResCoolant.h"
#include "apt/ResEndCommand.h"
#include "apt/ResFeedRate.h"
#include "apt/ResLinearMovement.h"
#include "apt/ResMovTypeCom.h"
#include "apt/ResSpindle.h"
#include "apt/ResText.h"
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
                  own(factory.GetFeedRaCom())->InitOutput(-1, 0.09375); // a tie: to even
                  own(factory.GetSpindlCom())->InitOutput(7, 500);
                  own(factory.GetSpindlCom())->InitOutput(-1, -500);
                  own(factory.GetCoolanCom())->InitOutput(3);
                  own(factory.GetMovTypCom())->InitOutput(-1);
                  double zero = 0.0;
                  own(factory.GetLinearCom())->InitOutput(2, zero, zero, zero);
              }),
              "FEDRAT/    0.0938,MMPR\nSPINDL/  500.0000,RPM,CLW\nSPINDL/ -500.0000,RPM,CCLW\n"
              "COOLNT/OFF\nMODE/INCR,ON\n" +
                  goTo(0, 0, 0));
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

TEST(StatementText, HoldsTheLongestStatementAndTellsWhenMoreIsLost) {
    StatementText text;
    char printed[512];
    (void)std::snprintf(printed, sizeof printed, "%13.5f,", -DBL_MAX);
    std::string expected;
    for (int i = 0; i < 10; ++i) {
        text.circleValue(-DBL_MAX).add(",");
        expected += printed;
    }
    EXPECT_EQ(text.view(), expected);
    EXPECT_TRUE(text.isWhole());
    while (text.view().size() + 6 <= 4096) {
        text.add("words ");
    }
    StatementText byNumber = text;
    StatementText byInteger = text;
    EXPECT_TRUE(text.isWhole());
    EXPECT_FALSE(text.add("words ").isWhole());
    EXPECT_FALSE(byNumber.rate(1).isWhole());
    EXPECT_FALSE(byInteger.add(INT_MIN).isWhole());
}

// A writer that makes a statement of any length.
class LongWriter : public Result {
public:
    using Result::Result;
    void InitOutput(int words) const {
        StatementText text;
        for (int i = 0; i < words; ++i) {
            text.add("0123456789abcde\n");
        }
        write(StatementKind::kTool, text);
    }
};

TEST(Writers, WriteNowhereWithoutStreamsAndWholeStatementsOnly) {
    StatementCounts counts;
    const auto state = std::make_shared<OutputState>(OutputState{.counts = &counts});
    EXPECT_EQ(written([&](APTFactory& factory) {
                  const LongWriter writer(
                      Outputs(factory.GetOutputFile(), factory.GetLogFile(), state));
                  writer.InitOutput(2);
                  EXPECT_FALSE(state->hasLostStatement);
                  writer.InitOutput(257);
                  EXPECT_TRUE(state->hasLostStatement);
                  double zero = 0.0;
                  APTFactory counted(Outputs(nullptr, nullptr, state));
                  own(counted.GetLinearCom())->InitOutput(TRUE, zero, zero, zero);
                  EXPECT_EQ(counts.Of(StatementKind::kRapidMove), 1);
                  EXPECT_EQ(counts.Of(StatementKind::kFeedMove), 0);
                  state->Detach();
                  writer.InitOutput(1);
              }),
              "0123456789abcde\n0123456789abcde\n");
    EXPECT_EQ(counts.Of(StatementKind::kTool), 1);
    APTFactory nowhere(nullptr, nullptr);
    own(nowhere.GetCoolanCom())->InitOutput(TRUE);
    own(nowhere.GetCirculCom())->InitOutput(TRUE, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
}

TEST(Writers, WriteTextsInPiecesOfPrintableCharacters) {
    const std::string sixtySix(66, 'x');
    EXPECT_EQ(written([&](Factory& factory) {
                  const auto texts = own(factory.GetTextCom());
                  texts->WriteComment("$1 \t\xE4~\x7F");
                  texts->WriteComment("");
                  texts->WriteComment(sixtySix);
                  texts->WriteProgramName(sixtySix + sixtySix + " Y");
              }),
              "PPRINT S1 ??~?\nPPRINT " + sixtySix + "\nPARTNO " + sixtySix + "\nPARTNO " +
                  sixtySix + "\nPARTNO  Y\n");
}

TEST(APTFactory, GivesLaterWritersTheStreamsThatWereSet) {
    EXPECT_EQ(written([](APTFactory& factory) {
                  std::FILE* const output = factory.GetOutputFile();
                  const auto before = own(factory.GetCoolanCom());
                  factory.SetOutputFile(nullptr);
                  EXPECT_EQ(factory.GetOutputFile(), nullptr);
                  own(factory.GetEndCom())->InitOutput(); // to the log alone
                  factory.SetOutputFile(output);
                  std::FILE* const log = factory.GetLogFile();
                  factory.SetLogFile(nullptr);
                  EXPECT_EQ(factory.GetOutputFile(), output);
                  own(factory.GetEndCom())->InitOutput();
                  factory.SetLogFile(log);
                  before->InitOutput(TRUE);
              }),
              "REWIND/0\nEND\nCOOLNT/ON\n");
}

} // namespace
