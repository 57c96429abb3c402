#include "commands/Comment.h"
#include "commands/RecordNumber.h"

#include <gtest/gtest.h>
#include <string>

namespace {

TEST(Comment, IsRemovedFromTheBlock) {
    struct Row {
        const char* start;
        const char* end;
        const char* line;
        const char* expected;
    };
    const Row rows[] = {
        {"(", ")", "G1 (A) X5 (B) Y6", "G1  X5  Y6"},
        {"(", ")", "G1 (open X5", "G1 "},
        {"(", ")", "(a(b)c)X1", "c)X1"}, // no nesting
        {"(", ")", ")X1(a)", ")X1"},
        {"(", ")", "()()X", "X"},
        {"(", ")", "", ""},
        {";", nullptr, "X5 ;note;more", "X5 "},
        {";", "", "X5 ;note", "X5 "},
        {nullptr, ")", "X5 (a)", "X5 (a)"},
        {"", ")", "X5 (a)", "X5 (a)"},
        {"/*", "*/", "X1/*a*/Y2/**/Z3", "X1Y2Z3"},
        {"\xA7", "\xA7", "X1\xA7 a \xA7Y2", "X1Y2"},
        // Start and end texts that are the same or overlap.
        {"*", "*", "X1*a*Y2*b*Z3", "X1Y2Z3"},
        {"*", "*", "X1*a*Y2*b", "X1Y2"},
        {"*", "*", "**X1***Y2", "X1"},
        {"(*", "*)", "X1(*)Y2", "X1Y2"},
        {"(*", "*)", "X1(*a*)Y2(*)(*)Z3", "X1Y2Z3"},
        {"*", "*/", "X1*/Y2*a*/Z3*b*/", "X1Z3"}, // "*/" opens a comment, too
        {"--", "-", "X1--a-Y2---Z3", "X1Y2Z3"},
    };
    for (const Row& row : rows) {
        Comment comment;
        comment.InitCommentStart(row.start);
        comment.InitCommentEnd(row.end);
        std::string line = row.line;
        EXPECT_EQ(comment.KillComments(line.data()), 0);
        EXPECT_STREQ(line.c_str(), row.expected)
            << row.line << " between " << (row.start == nullptr ? "null" : row.start) << " and "
            << (row.end == nullptr ? "null" : row.end);
    }
}

TEST(Comment, KeepsItsTextsWhenGivenNone) {
    Comment comment;
    comment.InitCommentStart("(");
    comment.InitCommentEnd(")");
    comment.InitCommentStart(nullptr);
    comment.InitCommentEnd(nullptr);
    std::string line = "(a)X1";
    EXPECT_EQ(comment.KillComments(line.data()), 0);
    EXPECT_STREQ(line.c_str(), "X1");
    EXPECT_EQ(comment.KillComments(nullptr), 0);
}

TEST(RecordNumber, IsRemovedFromTheStartOfTheBlockOnly) {
    struct Row {
        const char* address;
        const char* line;
        const char* expected;
    };
    const Row rows[] = {
        {"N", "N0010G1", "G1"},
        {"N", "N10 G1 N20", " G1 N20"},
        {"N", "G1 N10", "G1 N10"},
        {"N", "N", ""},
        {"N", "NX1", "X1"},
        {"N", "n10", "n10"},
        {":N", ":N10.5", ".5"},
        {nullptr, "N10 G1", "N10 G1"},
        {"", "10 G1", "10 G1"},
        {"N", "NUT 5", "UT 5"},
        {"N", "", ""},
        {"N", "N-5", "-5"},
    };
    for (const Row& row : rows) {
        RecordNumber record;
        record.InitRecordNumber(row.address);
        std::string line = row.line;
        EXPECT_EQ(record.DeleteRecordNumber(line.data()), 0);
        EXPECT_STREQ(line.c_str(), row.expected) << row.line;
    }
}

} // namespace
