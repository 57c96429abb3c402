#include "paramfile/codeOldLine.h"
#include "softCommon/CErrorUtil/processEnd.h"
#include "tests/charFeldTexts.h"
#include "update/liesPP.h"
#include "update/oldFileLookups.h"
#include "update/oldLine.h"
#include "update/sectionConverters.h"
#include "update/unconvertedKeyLines.h"
#include "update/updatePP.h"
#include "update/versionCopy.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <string>

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::internal::CaptureStderr;
using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStderr;
using testing::internal::GetCapturedStdout;

// The linker sends the library's allocations through these; the one with number g_failing fails.
namespace {
long g_failing = -1;
bool failsNow() { return g_failing >= 0 && g_failing-- == 0; }
} // namespace

extern "C" {
void* __real_realloc(void* block, std::size_t size);
char* __real_strdup(const char* text);
char* __real_strndup(const char* text, std::size_t length);
void* __wrap_realloc(void* block, std::size_t size) {
    return failsNow() ? nullptr : __real_realloc(block, size);
}
char* __wrap_strdup(const char* text) { return failsNow() ? nullptr : __real_strdup(text); }
char* __wrap_strndup(const char* text, std::size_t length) {
    return failsNow() ? nullptr : __real_strndup(text, length);
}
}

namespace {

Texts splitLines(const std::string& text) {
    Texts lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::string contentOf(const std::string& name) {
    std::ifstream in(UPDATE_DATA + name);
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

std::FILE* fileWith(const std::string& content) {
    std::FILE* const file = std::tmpfile();
    std::fwrite(content.data(), 1, content.size(), file);
    std::rewind(file);
    return file;
}

std::string coded(const Texts& plain) {
    std::string content;
    for (const std::string& line : plain) {
        OldPhysicalLines physical;
        EXPECT_EQ(codeOldLine(line.c_str(), physical), 0);
        content += std::string(physical.first.data()) + '\n' + physical.second.data() + '\n' +
                   physical.third.data() + '\n';
    }
    return content;
}

struct EndOfProcess {
    int status;
};

struct Updated {
    int code = 0;
    int exitStatus = 0;
    Texts lines;
    std::string errors;
};

// Checks on the way that the input is closed, whatever becomes of it.
Updated update(const std::string& content, long failingAllocation = -1) {
    Updated result;
    std::FILE* const in = fileWith(content);
    std::FILE* const out = std::tmpfile();
    const int descriptor = fileno(in);
    CaptureStderr();
    g_failing = failingAllocation;
    try {
        result.code = updatePP(in, out);
    } catch (const EndOfProcess& end) {
        result.exitStatus = end.status;
    }
    g_failing = -1;
    result.errors = GetCapturedStderr();
    EXPECT_EQ(fcntl(descriptor, F_GETFD), -1);
    std::rewind(out);
    result.lines = taken(fp2CharFeld(out));
    std::fclose(out);
    return result;
}

Texts converted(SectionConverter converter, const Texts& old) {
    return taken(converter(fieldOf(old).get(), stderr));
}

// The expected file was computed apart from this code, from the tables of keys alone.
TEST(UpdatePP, ConvertsEveryKeyOfALargeFile) {
    const Updated result = update(coded(splitLines(contentOf("allKeys.old"))));
    EXPECT_EQ(result.code, 0);
    EXPECT_THAT(result.lines, ElementsAreArray(splitLines(contentOf("allKeys.new"))));
    EXPECT_EQ(result.errors, "Macros must be redefined! No automatic update possible!\n");
}

TEST(UpdatePP, ReadsEveryLayoutOfTheSameFile) {
    const Texts plain = {"*MACHTYP LATHE", "*EILVORS 10", "*DREH043 20"};
    const std::string content = coded(plain);
    const Updated expected = update(content);
    EXPECT_EQ(expected.code, 0);
    EXPECT_THAT(Texts(expected.lines.begin() + 5, expected.lines.begin() + 12),
                ElementsAre("##### Toolmachine Section (TDB)", "MFG_CLASS_NAME",
                            "NC_STANDARD_LATHE_MACHINES", "MFG_RAPID_FEED", "10", "MFG_RAPID_FEED",
                            "20"));
    std::string crlf;
    std::string spaced = "\n\n";
    std::string shifted; // the first line of 81 characters, the second of 79
    int number = 0;
    for (const std::string& line : splitLines(content)) {
        crlf += line + "\r\n";
        spaced += line + (++number % 3 == 0 ? "\n\r\n\n" : "\n");
        shifted += line + (number % 3 == 1 ? "" : "\n");
        if (number % 3 == 2) {
            shifted.insert(shifted.end() - 80, '\n');
        }
    }
    const std::string noLastLineEnd = content.substr(0, content.size() - 1);
    for (const std::string& layout : {crlf, spaced, shifted, noLastLineEnd}) {
        const Updated result = update(layout);
        EXPECT_EQ(result.code, 0);
        EXPECT_EQ(result.lines, expected.lines);
    }
}

TEST(UpdatePP, RefusesCorruptFiles) {
    const std::string good = coded({"*5XGABEL 0", "*ANFCHAR %"});
    const std::string first = good.substr(0, 81);
    std::string changedDigit = good;
    changedDigit[21] = changedDigit[21] == '7' ? '8' : '7';
    std::string binary(4000, '\0');
    for (std::size_t i = 0; i < binary.size(); ++i) {
        binary[i] = static_cast<char>(i * 7 % 251);
    }
    struct Row {
        const char* what;
        std::string content;
        const char* message;
        const char* output; // of the reader that gives up after decoding
    };
    constexpr const char* kGivesUp = "Error in PpLiesDatei: Can't decode\n";
    const Row rows[] = {
        {"changed digit", changedDigit, "Checksum-Error", kGivesUp},
        {"second line missing", first + good.substr(162), "can't be decoded\n", kGivesUp},
        {"third line missing", good.substr(0, 162) + good.substr(164), "Error", kGivesUp},
        {"82 characters", std::string(82, '0') + "\n" + good, "too long - parameterfile", ""},
        {"81 are not too long", std::string(81, 'x') + "\n1\n2\n", "> can't be decoded", kGivesUp},
        {"cut behind line 1", good + first, "line <", ""},
        {"cut behind line 2", good + good.substr(0, 162), "line <", ""},
        {"cut in line 2", good + good.substr(0, 120), "line <", ""},
        {"short second line", first + good.substr(82), "can't be decoded\n", kGivesUp},
        {"no hex", std::string("plain\ntext\nhere\n"), "line <plaintext", kGivesUp},
        {"empty", "", "parameterfile is empty\n", ""},
        {"empty lines", "\n\r\n\n", "parameterfile is empty\n", ""},
        {"NUL bytes", std::string(500, '\0'), "line <> can't be decoded\n", ""},
        {"binary", binary, "can't be decoded\n", ""},
        {"10 MB line", std::string(10'000'000, 'A'), "too long - parameterfile", ""},
        {"10 MB second line", first + std::string(10'000'000, 'A'), "Checksum-Error", kGivesUp},
    };
    for (const Row& row : rows) {
        CaptureStdout();
        const Updated result = update(row.content);
        EXPECT_EQ(GetCapturedStdout(), row.output) << row.what;
        EXPECT_EQ(result.code, kUpdateUnreadable) << row.what;
        EXPECT_THAT(result.errors, HasSubstr(row.message)) << row.what;
        EXPECT_THAT(result.lines, IsEmpty()) << row.what;
    }
}

TEST(UpdatePP, ReportsAReaderAndAWriterThatFail) {
    const std::string good = coded({"*5XGABEL 0"});
    CaptureStderr();
    std::FILE* const directory = std::fopen("/", "r");
    std::FILE* const out = std::tmpfile();
    EXPECT_EQ(updatePP(directory, out), kUpdateUnreadable);
    EXPECT_EQ(std::ftell(out), 0);
    std::fclose(out);
    std::FILE* const full = std::fopen("/dev/full", "w");
    EXPECT_EQ(updatePP(fileWith(good), full), kUpdateWriteFailed);
    std::fclose(full);
    EXPECT_THAT(GetCapturedStderr(), HasSubstr("No space left"));
}

TEST(UpdatePP, SurvivesExhaustedMemoryAtEveryAllocation) {
    const std::string good =
        coded({"*5XGABEL 6", "*5XKRDAA 1", "*5XKRDUA 2", "*5XAL1DR 1", "*NEWP441 2", "*TOLERAN 1",
               "*NOBLANK 1", "*CYCPL01", "block", "*MITTANF ("});
    long failing = 0;
    for (Updated result = update(good, failing); result.code != 0; result = update(good, failing)) {
        ASSERT_THAT(result.errors, HasSubstr("FATAL")) << "allocation " << failing;
        ASSERT_THAT(result.lines, IsEmpty()) << "allocation " << failing;
        ++failing;
    }
    EXPECT_GT(failing, 250);
}

TEST(UpdatePP, EndsTheProcessOnAnUndefinedMachine) {
    setProcessEndHook([](void*, const ProcessEnd& end) { throw EndOfProcess{end.status}; },
                      nullptr);
    for (const Texts& old : {Texts{"*5XGABEL 13"}, Texts{"*5XGABEL -2", "*MACHTYP LATHE"},
                             Texts{"*MACHTYP MILL"}, Texts{"*ANFCHAR %"}}) {
        const Updated result = update(coded(old));
        EXPECT_EQ(result.exitStatus, 99) << old[0];
        EXPECT_EQ(result.errors, "Undefined Machine Type - no automatic update possible\n");
        EXPECT_THAT(result.lines, IsEmpty());
    }
    setProcessEndHook(nullptr, nullptr);
}

TEST(SetzeTdbUm, ConvertsEveryMachineType) {
    Texts sections;
    for (int type = 0; type <= 12; ++type) {
        const Texts section =
            converted(setzeTdbUm,
                      {"*5XGABEL " + std::to_string(type), "*5XKRDAA 1", "*5XKRDUA 3",
                       "*5XNUT01 45", "*5XAL1MX 120.", "*5XAL1DR 1", "*5XAL3DR 2", "*TOLERAN 0.1"});
        sections.insert(sections.end(), section.begin(), section.end());
    }
    EXPECT_THAT(sections, ElementsAreArray(splitLines(contentOf("machineTypes.new"))));
}

TEST(SetzeTdbUm, TreatsMissingAndEmptyLinesAsEmpty) {
    // Too short for a number: the machine word decides.
    EXPECT_THAT(converted(setzeTdbUm, {"*5XGABEL", "*MACHTYP MY LATHE 3"}),
                ElementsAre("##### Toolmachine Section (TDB)", "MFG_CLASS_NAME",
                            "NC_STANDARD_LATHE_MACHINES"));
    EXPECT_EQ(converted(setzeTdbUm, {"*5XGABEL "})[2], "NC_STANDARD_MACHINES");
    // No kind and one out of range, a direction without a value as the very last line of an axis,
    // and a value that reads like a direction key.
    EXPECT_THAT(converted(setzeTdbUm, {"*5XGABEL 1", "*5XKRDUA 4"}),
                ElementsAre("##### Toolmachine Section (TDB)", "MFG_CLASS_NAME",
                            "NC_TWO_AXIS_ON_HEAD_MACHINES", "MFG_AXIS_PRIORITY", "HEAD_FIRST"));
    EXPECT_THAT(converted(setzeTdbUm, {"*5XGABEL 5", "*PPNAMEN MFG_SPN_POS_WAY", "*GOHOMEX 1",
                                       "*5XKRDUA 2", "*5XAL2DR"}),
                ElementsAre("##### Toolmachine Section (TDB)", "MFG_CLASS_NAME",
                            "NC_AXIS_ON_TABLE_HEAD_MACHINES", "MFG_PP_NAME", "MFG_SPN_POS_WAY",
                            "MFG_X_HOME_POS", "1", "MFG_SPNDL_AXIS", "B", "MFG_SPN_POS_WAY", ""));
}

TEST(ValueSections, FollowTheOldFileAndItsOddRules) {
    struct Row {
        SectionConverter converter;
        Texts old;
        Texts expected; // behind the heading
    };
    const Row rows[] = {
        {setzeStrUm, {"*NOSUCHK 1", "no key"}, {}},
        {setzeStrUm,
         {"*ANFCHAR   123456789", "*ANFCHAR"},
         {"STRT_PROC_CHARACTER", "123456", "STRT_PROC_CHARACTER", ""}},
        {setzeStrUm,
         {"*XYZINFK 1", "*SATZNR2 2", "*AUTROTB 3", "*NOBLANK 0"},
         {"PLANE_FACT_INCR", "1", "AUTO_MODE", "3", "NOBLANK", "0"}},
        {setzeIntUm,
         {"*NOBLANK 5", "*NOBLANK 0", "*NOBLANK"},
         {"NOBLANK", "0", "NOBLANK", "1", "NOBLANK", "1"}},
        {setzeIntUm,
         {"*NCRECFM 5", "*5XAUSG2 2", "*5XAUSG2 -99999999999", "*5XAFDAG 7"},
         {"RECORD_FORMAT_FIXED", "-4", "HAS_RTCP_TABLE", "-1", "HAS_RTCP_TABLE", "2147483649",
          "5X_FEED_HANDLING", "7"}},
        {setzeR8Um,
         {"*5XAFDAG 7", "*5XWIDE3 1.23456789"},
         {"5X_FEED_HANDLING", "7", "5X_ANG_DIFF_3RD", "1.234567"}},
        {setzeAdrUm,
         {"*MITTEND )", "*DEZKOMM", "*MITTANF  (* a long comment opener"},
         {"COMMENT_END", ")", "DECIMAL_POINT_REPRESENTATION", "", "COMMENT_START",
          "(* a long comment opener"}},
    };
    for (const Row& row : rows) {
        Texts section = converted(row.converter, row.old);
        ASSERT_FALSE(section.empty());
        section.erase(section.begin());
        EXPECT_EQ(section, row.expected) << row.old[0];
    }
}

TEST(SetzeCycUm, WritesEveryCycleWhateverTheFileHolds) {
    Texts section = converted(setzeCycUm, {"no cycles"});
    ASSERT_EQ(section.size(), 1U + 35U * 5U);
    EXPECT_THAT(Texts(section.end() - 5, section.end()),
                ElementsAre("CYCLE_35", "", "1,1,0,0", "", ""));
    section = converted(setzeCycUm, {"*CYCMKOO 3", "*CYCBH02", "*CYCPK02", "*CYCPL02", "l1", "l2"});
    EXPECT_THAT(Texts(section.begin() + 6, section.begin() + 12),
                ElementsAre("CYCLE_02", "", "0,1,3,0", "l1", "l2", ""));
}

TEST(VersionCopy, LetsTheOldNameWin) {
    const CharFeldOwner lines = fieldOf({"*NEWP559 45", "*5XAL1DR new", "*NEWP441 old value",
                                         "*5XAL2NP kept", "*NEWP446", "*NEWP446 second"});
    EXPECT_EQ(versionCopy(lines.get()), 0);
    EXPECT_THAT(Texts(lines.get(), lines.get() + 6),
                ElementsAre("*5XNUT01 45", "*5XAL1DR old value", "*NEWP441 old value",
                            "*5XAL2NP kept", "*5XAL3NP", "*NEWP446 second"));
}

TEST(Lookups, KeepBlocksTogether) {
    const CharFeldOwner lines = fieldOf({"*BLOCK01 v", "text", "*lower01 v", "*NOBLANKX", "*SHORT",
                                         "", "*BLOCK02", "x", "*EMPTY01 ", "*LAST001"});
    EXPECT_THAT(taken(suche_blk(lines.get(), "*BLOCK01")),
                ElementsAre("text", "*lower01 v", "*NOBLANKX", "*SHORT", ""));
    EXPECT_THAT(taken(suche_blk(lines.get(), "*BLOCK02")), ElementsAre("x"));
    for (const char* const key : {"*EMPTY01", "*LAST001", "*NOSUCH1"}) {
        EXPECT_EQ(suche_blk(lines.get(), key), nullptr);
    }
    EXPECT_STREQ(suche_paramter(lines.get(), "*BLOCK02 more than a key"), "*BLOCK02");
    EXPECT_EQ(suche_paramter(lines.get(), "*SHORT"), lines.get()[4]);
    EXPECT_EQ(gibIndex_tdb(lines.get(), "*BLOCK"), 0);
    EXPECT_EQ(gibIndex_tdb(lines.get(), "*BLOCK02 v"), -1);
    EXPECT_EQ(gibIndex_tdb(nullptr, "*BLOCK"), -1);
}

TEST(SetzeBlkUm, TellsOfBlocksThatAreLost) {
    struct Row {
        Texts old;
        bool isLost;
    };
    const Row rows[] = {
        {{"before every key", "*CYCPL01", "taken", "*CYCPK35", "taken", "*ANFCHAR %"}, false},
        {{"*MAKRO01", "*ANFCHAR %"}, false},
        {{"*MAKRO01", "lost"}, true},
        {{"*CYCPL36", "lost"}, true},
        {{"*CYCPL01", "taken", "*CYCPL01", "lost"}, true},
        {{"*CYCAP01 text", "lost"}, true},
    };
    for (const Row& row : rows) {
        CaptureStderr();
        EXPECT_THAT(converted(setzeBlkUm, row.old), ElementsAre("##### Block Section"));
        EXPECT_EQ(GetCapturedStderr(),
                  row.isLost ? "Macros must be redefined! No automatic update possible!\n" : "")
            << row.old.back();
    }
}

Texts unconverted(char* const* lines) {
    const std::unique_ptr<bool[]> marks = unconvertedKeyLines(lines);
    Texts marked;
    for (std::size_t i = 0; lines[i] != nullptr; ++i) {
        if (marks[i]) {
            marked.emplace_back(lines[i]);
        }
    }
    return marked;
}

TEST(UnconvertedKeyLines, MarkWhatNoConverterTakes) {
    const CharFeldOwner lines = fieldOf({"*5XGABEL 1",
                                         "*5XKRDAA 1",
                                         "*5XKRDUA 2",
                                         "*VERSION 5",
                                         "*5XAL1DR replaced",
                                         "*NEWP441 1",
                                         "*NEWP443 no third axis",
                                         "*5XAL2MX 1",
                                         "*5XAL3MX no third axis",
                                         "*UNKNOWN 1",
                                         "block",
                                         "*CYCAP01 a",
                                         "*CYCAP01 second",
                                         "*CYCAP36 none",
                                         "*CYCMKOO 1",
                                         "*CYCANEN 1",
                                         "*MITTANF (",
                                         "*TOLERAN 1",
                                         "*TOLERAN 2",
                                         "*GOHOMEX 1",
                                         "*CYCPK07",
                                         "block"});
    EXPECT_THAT(unconverted(lines.get()),
                ElementsAre("*5XAL1DR replaced", "*NEWP443 no third axis", "*5XAL3MX no third axis",
                            "*UNKNOWN 1", "*CYCAP01 second", "*CYCAP36 none"));
    // Of a standard machine no axis setting is converted.
    const CharFeldOwner standard = fieldOf({"*5XGABEL 0", "*5XKRDAA 1", "*5XAL1MX 1"});
    EXPECT_THAT(unconverted(standard.get()), ElementsAre("*5XKRDAA 1", "*5XAL1MX 1"));
    EXPECT_STREQ(lines.get()[5], "*NEWP441 1") << "the lines themselves stay";
}

} // namespace
