#include "commands/Comment.h"
#include "commands/RecordNumber.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace {

// Blocks, each with what stays of it.
using Blocks = std::vector<std::pair<const char*, const char*>>;

void expectRests(const auto& clean, const Blocks& blocks) {
    for (const auto& [block, rest] : blocks) {
        std::string line = block;
        EXPECT_EQ(clean(line.data()), 0);
        EXPECT_STREQ(line.c_str(), rest) << block;
    }
}

void expectComments(const char* start, const char* end, const Blocks& blocks) {
    Comment comment;
    comment.InitCommentStart(start);
    comment.InitCommentEnd(end);
    expectRests([&](char* line) { return comment.KillComments(line); }, blocks);
    EXPECT_FALSE(comment.WasUnterminated()) << "in the last block, whatever those before held";
}

TEST(Comment, IsRemovedFromTheBlock) {
    expectComments("(", ")", {{"G1 (open X5", "G1 "}, {"G1 (A) X5 (B) Y6", "G1  X5  Y6"}});
    expectComments("(", ")", {{"(a(b)c)X1", "c)X1"}, {")X1(a)", ")X1"}, {"", ""}});
    expectComments(";", nullptr, {{"X5 ;note;more", "X5 "}});
    expectComments("", ")", {{"X5 (a)", "X5 (a)"}});
    expectComments("\xA7", "\xA7", {{"X1\xA7 a \xA7Y2", "X1Y2"}});
    // Start and end texts that are the same or overlap.
    expectComments("*", "*", {{"**X1***Y2", "X1"}, {"X1*a*Y2*b*Z3", "X1Y2Z3"}});
    expectComments("(*", "*)", {{"X1(*)Y2", "X1Y2"}, {"X1(*a*)Y2(*)(*)Z3", "X1Y2Z3"}});
    expectComments("*", "*/", {{"X1*/Y2*a*/Z3*b*/", "X1Z3"}}); // "*/" opens a comment, too
    expectComments("--", "-", {{"X1--a-Y2---Z3", "X1Y2Z3"}});
}

void expectRecordNumbers(const char* address, const Blocks& blocks) {
    RecordNumber record;
    record.InitRecordNumber(address);
    expectRests([&](char* line) { return record.DeleteRecordNumber(line); }, blocks);
}

TEST(RecordNumber, IsRemovedFromTheStartOfTheBlockOnly) {
    expectRecordNumbers("N",
                        {{"N0010G1", "G1"}, {"N1 G1 N2", " G1 N2"}, {"G1 N1", "G1 N1"}, {"N", ""}});
    expectRecordNumbers("N", {{"NUT 5", "UT 5"}, {"n1", "n1"}, {"N-5", "-5"}, {"", ""}});
    expectRecordNumbers(":N", {{":N10.5", ".5"}});
    expectRecordNumbers("", {{"10 G1", "10 G1"}});
}

} // namespace
