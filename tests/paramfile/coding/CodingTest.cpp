#include "paramfile/codeOldLine.h"
#include "paramfile/lineCoder.h"
#include "paramfile/ppcrypt.h"
#include "tests/charFeldTexts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <random>
#include <string>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

namespace {

constexpr const char* kHeading = "##### Toolmachine Section (TDB)";

// Replaces `texts` by what ppcrypt makes of them.
int crypt(int option, Texts& texts) {
    CharFeldOwner lines = fieldOf(texts);
    const int code = ppcrypt(option, lines.get());
    texts = taken(lines.release());
    return code;
}

std::string codedWith(const std::string& version, const std::string& text) {
    Texts texts = {"##### Header", version, kHeading, text};
    EXPECT_EQ(crypt(0, texts), 0);
    return texts.back();
}

// Every byte that a line may hold.
std::string randomLine(std::mt19937& random, std::size_t longest) {
    std::string line(random() % (longest + 1), ' ');
    for (char& byte : line) {
        do {
            byte = static_cast<char>(1 + random() % 254);
        } while (byte == '\n' || byte == '\r');
    }
    return line;
}

std::string recordOf(const std::string& plain) {
    OldPhysicalLines physical;
    EXPECT_EQ(codeOldLine(plain.c_str(), physical), 0);
    return std::string(physical.first.data()) + physical.second.data() + physical.third.data();
}

int decodeOld(std::string record, std::string& plain) {
    plain.assign(kOldLineLength, '\0');
    return vxveh(2, plain, record);
}

TEST(Ppcrypt, DecodesToExactlyWhatWasCoded) {
    std::mt19937 random(20010104);
    for (const char* const version : {"#VERSION:    V1R5", "#VERSION:    V1R7", ""}) {
        const Texts head = {"##### Header", "#FILE:       CODED", version, kHeading};
        Texts plain = head;
        for (int i = 0; i < 3000; ++i) {
            plain.push_back(randomLine(random, 255));
        }
        plain.emplace_back("#VERSION: V1R1"); // below the heading it chooses no key
        Texts lines = plain;
        ASSERT_EQ(crypt(0, lines), 0);
        EXPECT_TRUE(std::equal(head.begin(), head.end(), lines.begin()));
        for (std::size_t i = head.size(); i < lines.size(); ++i) {
            ASSERT_EQ(lines[i].size(), 2 * plain[i].size() + 1);
            ASSERT_EQ(lines[i].find_first_not_of("0123456789ABCDEF"), std::string::npos);
            if (i % 2 == 0) {
                std::transform(lines[i].begin(), lines[i].end(), lines[i].begin(),
                               [](unsigned char c) { return std::tolower(c); });
            }
        }
        ASSERT_EQ(crypt(1, lines), 0);
        EXPECT_EQ(lines, plain);
    }
}

// The coded texts were computed apart from this code.
TEST(Ppcrypt, ChoosesTheKeyByTheRelease) {
    struct Row {
        const char* version;
        const char* coded;
    };
    constexpr const char* kOld = "E89E82802B0";
    constexpr const char* kNew = "EC751A45BB0";
    const Row rows[] = {
        {"#VERSION:    V1R5", kOld}, {"#VERSION: V1R6   ", kOld},  {"#VERSION: V1R7", kNew},
        {"#VERSION:    V1R", kNew},  {"#VERSION: V2R5", kNew},     {"#VERSION: V1R12", kNew},
        {"#VERSION:V1R5", kNew},     {"#VERSION: V1R five", kOld}, {"", kNew},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(codedWith(row.version, "RAPID"), row.coded) << row.version;
    }
}

TEST(Ppcrypt, StartsTheGeneratorOnceAndKeepsEmptyLines) {
    Texts lines = {kHeading, "RAPID", "", "G00"};
    ASSERT_EQ(crypt(0, lines), 0);
    EXPECT_THAT(lines, ElementsAre(kHeading, "EC751A45BB0", "0", "92ED7D7"));
    ASSERT_EQ(crypt(1, lines), 0);
    EXPECT_THAT(lines, ElementsAre(kHeading, "RAPID", "", "G00"));
    Texts emptyCoded = {kHeading, ""};
    ASSERT_EQ(crypt(1, emptyCoded), 0);
    EXPECT_THAT(emptyCoded, ElementsAre(kHeading, ""));
}

TEST(Ppcrypt, LeavesPlainFilesAlone) {
    const Texts plain = {"##### Header", "#FILE:       UNCODED", kHeading, "RAPID", "G00"};
    Texts lines = plain;
    EXPECT_EQ(crypt(1, lines), 0);
    EXPECT_EQ(lines, plain);
    EXPECT_EQ(crypt(0, lines), 0); // from now on the file is coded and no longer says otherwise
    EXPECT_EQ(lines[1], "");
    EXPECT_NE(lines[3], "RAPID");
    EXPECT_EQ(crypt(1, lines), 0);
    EXPECT_EQ(lines[3], "RAPID");

    const Texts noSection = {"##### Header", "not coded", "##### String Section", "FF"};
    for (const int option : {0, 1}) {
        lines = noSection;
        EXPECT_EQ(crypt(option, lines), 0);
        EXPECT_EQ(lines, noSection);
    }
    EXPECT_EQ(ppcrypt(1, nullptr), 0);
}

TEST(Ppcrypt, NamesTheLineThatFails) {
    struct Row {
        int option;
        std::string line;
        int code;
        const char* message;
    };
    const Row rows[] = {
        {0, "a\xFF", kCoderUncodable, "line <a\xFF> can't be coded\n"},
        {1, "EC751A45BB", kCoderUndecodable, "line <EC751A45BB> can't be decoded\n"},
        {1, "RAPID", kCoderUndecodable, "line <RAPID> can't be decoded\n"},
        {1, "FF1A0", kCoderUndecodable, "line <FF1A0> can't be decoded\n"},
        {1, "9A0", kCoderUndecodable, "line <9A0> can't be decoded\n"}, // a byte 0
        {1, "7", kCoderChecksum, "Error in GGUVXVEH : Checksum-Error\n"},
        {1, "EB751A45BB0", kCoderChecksum, "Error in GGUVXVEH : Checksum-Error\n"},
        {1, std::string(10'000'000, 'x'), kCoderUndecodable, "> can't be decoded\n"},
    };
    for (const Row& row : rows) {
        Texts lines = {"##### Header", kHeading, row.line, "G00"};
        CaptureStderr();
        EXPECT_EQ(crypt(row.option, lines), row.code);
        const std::string messages = GetCapturedStderr();
        EXPECT_THAT(messages, HasSubstr(row.message));
        EXPECT_THAT(messages, HasSubstr("error in line 3\n"));
        EXPECT_LT(messages.size(), 700U);
        EXPECT_EQ(lines[2], row.line);
        EXPECT_EQ(lines[3], "G00");
    }
    Texts lines = {kHeading, "RAPID"};
    CaptureStderr();
    EXPECT_EQ(crypt(2, lines), 39999);
    EXPECT_EQ(GetCapturedStderr(), "Internal Error: unknown opt=2\nError in ppcrypt. Rc=39999\n");
    EXPECT_EQ(lines[1], "RAPID");
}

TEST(Vxveh, DecodesToExactlyWhatWasCoded) {
    std::mt19937 random(7);
    for (int i = 0; i < 3000; ++i) {
        std::string plain = randomLine(random, kOldLineLength);
        plain.erase(plain.find_last_not_of(' ') + 1);
        const std::string record = recordOf(plain);
        ASSERT_EQ(record.size(), kOldRecordLength);
        std::string decoded;
        ASSERT_EQ(decodeOld(record, decoded), 0);
        plain.resize(kOldLineLength, ' ');
        ASSERT_EQ(decoded, plain);
    }
}

TEST(Vxveh, HidesTheTextAndSpreadsAChange) {
    const std::string record = recordOf("*MITTANF (");
    EXPECT_THAT(record, Not(HasSubstr("MITTANF")));
    EXPECT_THAT(record, Not(HasSubstr("4D495454"))); // the digits of the bytes themselves
    EXPECT_EQ(record, recordOf("*MITTANF (")) << "every record starts its own generator";

    const std::string changed = recordOf("*MITTANF )");
    EXPECT_NE(record.back(), changed.back());
    int samePairs = 0;
    for (std::size_t i = 0; i + 1 < kOldRecordLength; i += 2) {
        samePairs += record.compare(i, 2, changed, i, 2) == 0 ? 1 : 0;
    }
    EXPECT_LE(samePairs, 2); // by chance, one of 255
}

TEST(Vxveh, SeesEveryChangeOfASecondDigitByOne) {
    const std::string record = recordOf("*ENDCHAR %");
    for (std::size_t i = 1; i + 1 < kOldRecordLength; i += 2) {
        std::string corrupt = record;
        corrupt[i] = corrupt[i] == 'F' ? 'E' : corrupt[i] == '9' ? 'A' : char(corrupt[i] + 1);
        std::string decoded;
        EXPECT_NE(decodeOld(corrupt, decoded), 0) << i;
    }
}

TEST(Vxveh, RefusesWhatItCannotDo) {
    OldPhysicalLines physical;
    std::string line(kOldLineLength, ' ');
    std::string record(kOldRecordLength, '0');
    CaptureStderr();
    EXPECT_EQ(codeOldLine("\xFF", physical), kCoderUncodable);
    EXPECT_STREQ(physical.first.data(), "");
    EXPECT_EQ(codeOldLine(std::string(81, 'x').c_str(), physical), kCoderTooLong);
    EXPECT_EQ(vxveh(3, line, record), 39999);
    EXPECT_EQ(vxveh(2, line, std::span(record).first(159)), kCoderUndecodable);
    EXPECT_EQ(pp_vxveh(2, std::span<char, kOldLineLength>(line),
                       std::span<char, kOldRecordLength>(record)),
              39999);
    EXPECT_EQ(GetCapturedStderr(), "line <\xFF" + std::string(79, ' ') +
                                       "> can't be coded\n"
                                       "pp inputline too long - parameterfile is corrupted!!\n"
                                       "Error in GGUVXVEH : unknown aktivity\n"
                                       "line <" +
                                       std::string(159, '0') +
                                       "> can't be decoded\n"
                                       "Internal Error (pp_vxveh): unknown option=2\n");
}

} // namespace
