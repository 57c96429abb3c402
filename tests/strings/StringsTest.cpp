#include "softCommon/CStringUtil/CharFeld.h"
#include "softCommon/CStringUtil/NoBlanks.h"
#include "softCommon/CStringUtil/fixedField.h"
#include "softCommon/CStringUtil/numberText.h"
#include "softCommon/CStringUtil/splitString.h"
#include "softCommon/CStringUtil/stricmp.h"
#include "softCommon/CStringUtil/string_mani.h"
#include "softCommon/CStringUtil/vstrcat.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::string taken(char* heapText) {
    std::string text(heapText);
    std::free(heapText);
    return text;
}

std::vector<std::string> entries(char* const* array) {
    return {array, array + sizeofCharFeld(array)};
}

std::vector<std::string> linesOf(const std::string& content) {
    std::FILE* const file = std::tmpfile();
    std::fwrite(content.data(), 1, content.size(), file);
    std::rewind(file);
    const CharFeldOwner lines(fp2CharFeld(file));
    std::fclose(file);
    EXPECT_NE(lines, nullptr);
    return entries(lines.get());
}

std::vector<std::string> fieldsOf(const char* text, const char* separators) {
    int count = -1;
    char** const fields =
        splitString(text, separators, static_cast<int>(std::string(separators).size()), &count);
    const std::vector<std::string> result = entries(fields);
    EXPECT_EQ(static_cast<std::size_t>(count), result.size());
    free_splitStringArray(fields, count);
    return result;
}

TEST(StringMani, EveryCodeWorksInPlace) {
    struct Row {
        int code;
        const char* text;
        const char* expected;
    };
    const Row rows[] = {
        {0, "G1 X5\r\nrest", "G1 X5"},
        {0, "no end", "no end"},
        {1, " a b  ", " a b"},
        {2, "  a b ", "a b "},
        {2, "   ", ""},
        {3, "  G1 X5 \r\n", "G1 X5"},
        {3, "   ", ""},
        {3, "\t x ", "\t x"},
        {3, "a \n b", "a"},
        {4, "'x y'", "x y"},
        {4, "''", ""},
        {4, "x 'y'", "x 'y'"},
        {4, "'open", "open"},
        {5, "  abc", "abcbc"}, // the old end keeps its place
        {5, "  abc\nd", "abc"},
        {5, "abc", "abc"},
        {9, "  kept  ", "  kept  "},
    };
    for (const Row& row : rows) {
        std::string text = row.text;
        string_mani(row.code, text.data());
        EXPECT_STREQ(text.c_str(), row.expected) << "code " << row.code << " on " << row.text;
    }
}

TEST(CharFeld, GrowsByEachIncrementAndKeepsCount) {
    for (const auto add : {addCharFeld, addCharFeld20, addCharFeld200}) {
        char** array = nullptr;
        int count = 0;
        for (int i = 0; i < 450; ++i) {
            array = add(array, &count, std::to_string(i).c_str());
        }
        const CharFeldOwner owner(array);
        EXPECT_EQ(count, 450);
        EXPECT_EQ(sizeofCharFeld(array), 450);
        EXPECT_STREQ(array[449], "449");
    }
}

TEST(CharFeld, CountsTheEntriesItselfWithoutAUsableCount) {
    int unknown = -1;
    char** array = addCharFeld(nullptr, nullptr, "a");
    array = addCharFeld(array, &unknown, "b");
    EXPECT_EQ(unknown, 2);
    EXPECT_THAT(entries(array), ElementsAre("a", "b"));
    EXPECT_EQ(freeCharFeld(array), nullptr);
}

TEST(CharFeld, ReadsLinesOfAnyLengthAndNumber) {
    EXPECT_THAT(linesOf("a\n\nb"), ElementsAre("a", "", "b"));
    EXPECT_THAT(linesOf("a\r\n"), ElementsAre("a\r"));
    EXPECT_THAT(linesOf(""), IsEmpty());
    const std::string longLine(100'000, 'x');
    EXPECT_THAT(linesOf(longLine + "\ny"), ElementsAre(longLine, "y"));
    std::string many;
    for (int i = 0; i < 5000; ++i) {
        many += std::to_string(i) + "\n";
    }
    EXPECT_EQ(linesOf(many).size(), 5000U);
    EXPECT_EQ(linesOf(many)[4999], "4999");
}

TEST(CharFeld, ReportsAFileThatCannotBeOpened) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(file2CharFeld("/nonexistent/x"), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "file2CharFeld: FATAL - cannot open /nonexistent/x!\n"
              "file2CharFeld: No such file or directory\n");
}

TEST(SplitString, TrimsFieldsAndKeepsEmptyOnes) {
    EXPECT_THAT(fieldsOf("  x , ,y ", ","), ElementsAre("x", "", "y"));
    EXPECT_THAT(fieldsOf("one", ","), ElementsAre("one"));
    EXPECT_THAT(fieldsOf("a;b,c", ",;"), ElementsAre("a", "b", "c"));
    EXPECT_THAT(fieldsOf("a,b", ",,"), ElementsAre("a", "", "b", ""));
    EXPECT_THAT(fieldsOf("", ","), IsEmpty());
    EXPECT_THAT(fieldsOf("   ", ","), IsEmpty());
    std::string many;
    for (int i = 0; i < 99; ++i) {
        many += "f,";
    }
    EXPECT_EQ(fieldsOf((many + "f").c_str(), ",").size(), 100U);
}

TEST(SplitString, AppendsToASplitArray) {
    int count = 0;
    char** fields = splitString("a", ",", 1, &count);
    for (int i = 0; i < 60; ++i) {
        fields = add_splitStringArray(fields, "more", &count);
    }
    EXPECT_EQ(count, 61);
    EXPECT_EQ(sizeofCharFeld(fields), 61);
    free_splitStringArray(fields, 0);
}

TEST(SmallStrings, JoinCompareAndStrip) {
    EXPECT_EQ(taken(vstrcat("a", "", "bc", nullptr)), "abc");
    EXPECT_EQ(vstrcat(nullptr, "x", nullptr), nullptr);
    EXPECT_EQ(stricmp("ABC", "abc"), 0);
    EXPECT_LT(stricmp("ab", "ABC"), 0);
    EXPECT_GT(stricmp("\xE4", "z"), 0); // bytes above 0x7F are unsigned and have no case
    EXPECT_NE(stricmp("\xC4", "\xE4"), 0);
    std::string text = " a\t b ";
    NoBlanks(text.data());
    EXPECT_STREQ(text.c_str(), "a\tb");
}

TEST(FixedField, ConvertsBothWays) {
    char field[6] = "#####";
    s2fcpy(field, "AB", 5);
    EXPECT_STREQ(field, "AB   ");
    s2fcpy(field, "ABCDEFG", 5);
    EXPECT_STREQ(field, "ABCDE");
    s2fcpy(field, nullptr, 5);
    EXPECT_STREQ(field, "     ");
    EXPECT_EQ(taken(s2ccpy("AB   rest", 5)), "AB   ");
    EXPECT_EQ(taken(s2ccpy("AB", 0)), "");
}

TEST(NumberText, ClampsIntegersAndReadsReals) {
    EXPECT_EQ(readInteger(" -12x"), -12);
    EXPECT_EQ(readInteger("007"), 7);
    EXPECT_EQ(readInteger(""), 0);
    EXPECT_EQ(readInteger("99999999999999999999"), INT32_MAX);
    EXPECT_EQ(readInteger("-3000000000"), INT32_MIN);
    EXPECT_EQ(readReal("-1.25;2"), -1.25);
    EXPECT_EQ(readReal("text"), 0.0);
}

} // namespace
