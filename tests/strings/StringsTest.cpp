#include "softCommon/CStringUtil/CharFeld.h"
#include "softCommon/CStringUtil/NoBlanks.h"
#include "softCommon/CStringUtil/fixedField.h"
#include "softCommon/CStringUtil/numberText.h"
#include "softCommon/CStringUtil/splitString.h"
#include "softCommon/CStringUtil/stricmp.h"
#include "softCommon/CStringUtil/string_mani.h"
#include "softCommon/CStringUtil/vstrcat.h"
#include "softCommon/FileOwner.h"
#include "softCommon/HeapText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <malloc.h>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

using namespace testing;

namespace {

std::vector<std::string> entries(char* const* array) {
    return {array, array + sizeofCharFeld(array)};
}

std::vector<std::string> linesOf(const std::string& content) {
    const FileOwner file(std::tmpfile());
    std::fwrite(content.data(), 1, content.size(), file.get());
    std::rewind(file.get());
    const CharFeldOwner lines(fp2CharFeld(file.get()));
    return entries(lines.get());
}

// The fields of the text, and behind them `more` that are added.
std::vector<std::string> fieldsOf(const char* text, const char* separators, int more = 0) {
    int count = -1;
    char** fields =
        splitString(text, separators, static_cast<int>(std::string(separators).size()), &count);
    while (more-- > 0) {
        fields = add_splitStringArray(fields, "more", &count);
    }
    const std::vector<std::string> result = entries(fields);
    EXPECT_EQ(static_cast<std::size_t>(count), result.size());
    free_splitStringArray(fields, count);
    return result;
}

void expectMani(int code, const std::vector<std::pair<const char*, const char*>>& rows) {
    for (const auto& [before, after] : rows) {
        std::string text = before;
        string_mani(code, text.data());
        EXPECT_STREQ(text.c_str(), after) << "code " << code << " on " << before;
    }
}

TEST(StringMani, EveryCodeWorksInPlace) {
    expectMani(0, {{"G1 X5\r\nrest", "G1 X5"}, {"no end", "no end"}});
    expectMani(1, {{" a b  ", " a b"}});
    expectMani(2, {{"  a b ", "a b "}, {"   ", ""}});
    expectMani(3, {{"  G1 X5 \r\n", "G1 X5"}, {"   ", ""}, {"\t x ", "\t x"}, {"a \n b", "a"}});
    expectMani(4, {{"'x y'", "x y"}, {"''", ""}, {"x 'y'", "x 'y'"}, {"'open", "open"}});
    expectMani(5, {{"  abc", "abcbc"}, {"  abc\nd", "abc"}}); // the old end keeps its place
}

TEST(CharFeld, GrowsByEachIncrementAndKeepsCount) {
    for (const auto add : {addCharFeld, addCharFeld20, addCharFeld200}) {
        int count = -1; // of no use: the entries are counted
        CharFeldOwner array(add(nullptr, nullptr, "first"));
        for (int i = 1; i < 450; ++i) {
            array.reset(add(array.release(), &count, std::to_string(i).c_str()));
        }
        EXPECT_EQ(count, 450);
        EXPECT_EQ(sizeofCharFeld(array.get()), 450);
        EXPECT_STREQ(array.get()[449], "449");
    }
}

TEST(CharFeld, ReadsLinesOfAnyLengthAndNumber) {
    EXPECT_THAT(linesOf("a\r\n\nb"), ElementsAre("a\r", "", "b"));
    EXPECT_THAT(linesOf(""), IsEmpty());
    for (const std::size_t length : {255U, 256U, 257U, 100'000U}) { // the first buffer holds 256
        const std::string line(length, 'x');
        EXPECT_THAT(linesOf(line + "\ny\n" + line), ElementsAre(line, "y", line));
    }
    EXPECT_THAT(linesOf(std::string(5000, '\n') + "b"), AllOf(SizeIs(5001), Contains("b")));
}

TEST(CharFeld, ReportsAFileThatCannotBeOpened) {
    internal::CaptureStderr();
    EXPECT_EQ(file2CharFeld("/nonexistent/x"), nullptr);
    EXPECT_EQ(internal::GetCapturedStderr(), "file2CharFeld: FATAL - cannot open /nonexistent/x!\n"
                                             "file2CharFeld: No such file or directory\n");
}

TEST(SplitString, TrimsFieldsAndKeepsEmptyOnes) {
    EXPECT_THAT(fieldsOf("  x , ,y ", ","), ElementsAre("x", "", "y"));
    EXPECT_THAT(fieldsOf("a;b,c", ",;"), ElementsAre("a", "b", "c"));
    EXPECT_THAT(fieldsOf("a,b", ",,"), ElementsAre("a", "", "b", ""));
    EXPECT_THAT(fieldsOf("", ","), IsEmpty());
    EXPECT_THAT(fieldsOf("   ", ","), IsEmpty());
    for (int fields = 1; fields <= 100; ++fields) { // arrays of every size grow where they must
        EXPECT_THAT(fieldsOf(std::string(fields - 1, ',').append("x").c_str(), ",", 22),
                    AllOf(SizeIs(fields + 22), Contains("more").Times(22)));
    }
}

TEST(SmallStrings, JoinCompareAndStrip) {
    const HeapText joined(vstrcat("a", "", "bc", nullptr));
    EXPECT_STREQ(joined.get(), "abc");
    EXPECT_EQ(vstrcat(nullptr, "x", nullptr), nullptr);
    EXPECT_LT(stricmp("ab", "ABC"), 0);
    EXPECT_EQ(stricmp("ABC", "abc"), 0);
    EXPECT_GT(stricmp("\xE4", "z"), 0); // bytes above 0x7F are unsigned and have no case
    EXPECT_NE(stricmp("\xC4", "\xE4"), 0);
    std::string text = " a\t b ";
    NoBlanks(text.data());
    EXPECT_STREQ(text.c_str(), "a\tb");
}

TEST(FixedField, IsPaddedAndCut) {
    char field[6] = "#####";
    s2fcpy(field, "AB", 5);
    EXPECT_STREQ(field, "AB   ");
    s2fcpy(field, "ABCDEFG", 5);
    EXPECT_STREQ(field, "ABCDE");
    s2fcpy(field, nullptr, 5);
    EXPECT_STREQ(field, "     ");
    for (const auto& [from, width, expected] :
         {std::tuple("AB   rest", 5U, "AB   "), {"AB\0rest", 200U, "AB"}, {"AB", 0U, ""}}) {
        const HeapText text(s2ccpy(from, static_cast<int>(width)));
        EXPECT_STREQ(text.get(), expected);
        EXPECT_GT(malloc_usable_size(text.get()), width); // the caller may fill the field
    }
}

TEST(NumberText, ClampsIntegers) {
    EXPECT_EQ(readInteger("99999999999999999999"), INT32_MAX);
    EXPECT_EQ(readInteger("-3000000000"), INT32_MIN);
}

} // namespace
