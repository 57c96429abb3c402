#include "tests/charFeldTexts.h"
#include "tests/support/TempFolder.h"
#include "tests/support/cases.h"
#include "tests/support/endOf.h"
#include "update/oldFileLookups.h"
#include "update/rotaryAxes.h"
#include "update/sectionConverters.h"
#include "update/unconvertedKeyLines.h"
#include "update/updatePP.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <map>
#include <sstream>

using testing::HasSubstr;
using testing::IsEmpty;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

namespace {

constexpr const char* kMacros = "Macros must be redefined! No automatic update possible!\n";

// An end mark at the very end ends the last line and begins none.
Texts split(const std::string& text, char end = '|') {
    Texts lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line, end);) {
        lines.push_back(line);
    }
    return lines;
}

Texts linesOf(const char* name) { return split(readFile(std::string(UPDATE_DATA) + name), '\n'); }

std::string coded(const Texts& plain) {
    std::string content;
    for (const std::string& line : plain) {
        content += codedOld(line, "\n");
    }
    return content;
}

struct Updated {
    int code = -1; // stays when the process is to end
    int exitStatus = 0;
    Texts lines;
    std::string errors;
};

// Checks on the way that the input is closed, whatever becomes of it.
Updated update(const std::string& content) {
    const TempFolder folder;
    std::FILE* const in = std::fopen(folder.write("in", content).c_str(), "r");
    std::FILE* const out = std::tmpfile();
    const int descriptor = fileno(in);
    Updated result;
    CaptureStderr();
    result.exitStatus = endOf([&] { result.code = updatePP(in, out); }).status;
    result.errors = GetCapturedStderr();
    EXPECT_EQ(fcntl(descriptor, F_GETFD), -1);
    std::rewind(out);
    result.lines = taken(fp2CharFeld(out));
    std::fclose(out);
    return result;
}

// The expected file was computed apart from this code, from the tables of keys alone.
TEST(UpdatePP, ConvertsEveryKeyOfALargeFileInEveryLayout) {
    const std::string content = coded(linesOf("allKeys.old"));
    // In the shifted layout the first line has 81 characters and the second 79.
    std::string crlf, spaced = "\n\n", shifted;
    int number = 0;
    for (const std::string& line : split(content, '\n')) {
        crlf += line + "\r\n";
        spaced += line + (++number % 3 == 0 ? "\n\r\n\n" : "\n");
        shifted += line + (number % 3 == 1 ? "" : "\n");
        if (number % 3 == 2) {
            shifted.insert(shifted.end() - 80, '\n');
        }
    }
    const std::string noLastLineEnd = content.substr(0, content.size() - 1);
    for (const std::string& layout : {content, crlf, spaced, shifted, noLastLineEnd}) {
        const Updated result = update(layout);
        EXPECT_EQ(result.code, 0);
        EXPECT_EQ(result.lines, linesOf("allKeys.new"));
        EXPECT_EQ(result.errors, kMacros);
    }
}

TEST(UpdatePP, RefusesCorruptFiles) {
    const std::string good = coded({"*5XGABEL 0", "*ANFCHAR %"}), first = good.substr(0, 81);
    std::string changedDigit = good;
    changedDigit[21] = changedDigit[21] == '7' ? '8' : '7';
    // The third says whether the reader gives up after decoding.
    const std::tuple<std::string, const char*, bool> rows[] = {
        {changedDigit, "Checksum-Error", true},
        {first + good.substr(162), "can't be decoded\n", true},  // no second line
        {good.substr(0, 162) + good.substr(164), "Error", true}, // no third line
        {std::string(82, '0') + "\n" + good, "too long - parameterfile", false},
        {good + good.substr(0, 120), "line <", false},
        {"plain\ntext\nhere\n", "line <plaintext", true},
        {"\n\r\n\n", "parameterfile is empty\n", false},
        {std::string(500, '\0'), "line <> can't be decoded\n", false},
    };
    for (const auto& [content, message, givesUp] : rows) {
        testing::internal::CaptureStdout();
        const Updated result = update(content);
        const std::string printed = testing::internal::GetCapturedStdout();
        EXPECT_EQ(printed, givesUp ? "Error in PpLiesDatei: Can't decode\n" : "") << message;
        EXPECT_EQ(result.code, kUpdateUnreadable) << message;
        EXPECT_THAT(result.errors, HasSubstr(message));
        EXPECT_THAT(result.lines, IsEmpty()) << message;
    }
    for (const char* const old : {"*5XGABEL 13", "*5XGABEL -2", "*MACHTYP MILL", "*ANFCHAR %"}) {
        const Updated result = update(coded({old}));
        EXPECT_EQ(result.exitStatus, 99) << old;
        EXPECT_EQ(result.errors, "Undefined Machine Type - no automatic update possible\n");
        EXPECT_THAT(result.lines, IsEmpty());
    }
}

Texts converted(SectionConverter converter, const Texts& old) {
    return taken(converter(fieldOf(old).get(), stderr));
}

// Of a setting with its old name and its new one the old name wins, and of two the first.
TEST(Sections, ConvertEveryMachineType) {
    Texts sections;
    for (int type = 0; type <= 12; ++type) {
        const Texts section = converted(
            setzeTdbUm, split("*5XGABEL " + std::to_string(type) +
                              "|*5XKRDAA 1|*5XKRDUA 3|"
                              "*NEWP559 45|*5XAL1MX 120.|*5XAL1DR 2|*NEWP441 1|*NEWP443 2|"
                              "*NEWP443 1|*TOLERAN 0.1"));
        sections.insert(sections.end(), section.begin(), section.end());
    }
    EXPECT_EQ(sections, linesOf("machineTypes.new"));
}

TEST(Sections, FollowTheOldFileAndItsOddRules) {
    const std::map<std::string, SectionConverter> converters = {{"tdb", setzeTdbUm},
                                                                {"str", setzeStrUm},
                                                                {"int", setzeIntUm},
                                                                {"r8", setzeR8Um},
                                                                {"adr", setzeAdrUm}};
    for (const auto& [row, expected] : casesOf(UPDATE_DATA "oddRules.txt", 19)) {
        const std::size_t blank = row.find(' ');
        const std::string name = row.substr(0, blank), old = row.substr(blank + 1);
        if (name == "blk") {
            const Texts lines = split(old + "|*5XGABEL 0");
            EXPECT_EQ(update(coded(lines)).errors, expected == "lost" ? kMacros : "") << old;
        } else {
            const Texts section = converted(converters.at(name), split(old));
            ASSERT_FALSE(section.empty()) << old;
            EXPECT_EQ(Texts(section.begin() + 1, section.end()), split(expected)) << old;
        }
    }
    const Texts cycles = converted(
        setzeCycUm, split("*CYCMKOO3|*CYCBH02|*CYCAP02x y|*CYCLK024|*CYCPK02|*CYCPL02|l1|l2"));
    ASSERT_EQ(cycles.size(), 1U + 34U * 5U + 6U);
    EXPECT_EQ(Texts(cycles.begin() + 6, cycles.begin() + 12),
              split("CYCLE_02|x y|0,4,3,0|l1|l2||"));
}

TEST(RotaryAxes, LeaveOutWhatOneOfTheKeySetsLacks) {
    const CharFeldOwner lines = fieldOf({"*5XAL2MN -1", "*5XNUT01 45"});
    for (const int flag : {0, 1}) {
        RotaryKeys oldKeys, newKeys;
        int count = 0;
        EXPECT_EQ(setzeKennerAlt(2, flag, oldKeys, count), 0);
        EXPECT_EQ(setzeKennerNeu(1, "NC_TWO_AXIS_ON_TABLE_MACHINES", 1 - flag, newKeys, count), 0);
        EXPECT_EQ(taken(setzeRotAchseUm({}, lines.get(), oldKeys, newKeys, 9).release()),
                  split("MFG_ROTARY_AXIS|B|MFG_MIN_ROT_POS|-1"));
    }
}

TEST(Lookups, KeepBlocksTogether) {
    const CharFeldOwner lines =
        fieldOf(split("*BLOCK01 v|text|*lower01 v|*SHORT||*BLOCK02|x|*EMPTY01 |*LAST001"));
    EXPECT_EQ(taken(suche_blk(lines.get(), "*BLOCK01")), split("text|*lower01 v|*SHORT||"));
    EXPECT_EQ(taken(suche_blk(lines.get(), "*BLOCK02")), split("x"));
    for (const char* const key : {"*EMPTY01", "*LAST001", "*NOSUCH1"}) {
        EXPECT_EQ(suche_blk(lines.get(), key), nullptr);
    }
}

TEST(UnconvertedKeyLines, MarkWhatNoConverterTakes) {
    // The lines that are marked end in "!". Of a standard machine no axis setting is converted.
    for (const char* const old :
         {"*5XGABEL 1|*5XKRDAA 1|*5XKRDUA 2|*VERSION 5|*5XAL1DR replaced!|*NEWP441 1|*NEWP443 3!|"
          "*5XAL2MX 1|*5XAL3MX 3!|*NEWP442 1|*NEWP442 second!|*UNKNOWN 1!|block|*CYCAP01 a|"
          "*CYCAP01 second!|*CYCAP36 none!|*CYCMKOO 1|*CYCANEN 1|*MITTANF (|*TOLERAN 1|*TOLERAN 2|"
          "*GOHOMEX 1|*CYCPK07|block",
          "*5XGABEL|*5XKRDAA 1!|*5XAL1MX 1!"}) {
        const CharFeldOwner lines = fieldOf(split(old));
        const std::unique_ptr<bool[]> marks = unconvertedKeyLines(lines.get());
        for (std::size_t i = 0; lines.get()[i] != nullptr; ++i) {
            EXPECT_EQ(marks[i], std::string(lines.get()[i]).back() == '!') << lines.get()[i];
        }
    }
}

} // namespace
