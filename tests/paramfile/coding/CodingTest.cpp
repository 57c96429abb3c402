#include "driver/NCScan.h"
#include "driver/returnCodes.h"
#include "paramfile/ParamScan.h"
#include "paramfile/lineCoder.h"
#include "paramfile/ppcrypt.h"
#include "tests/charFeldTexts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

using testing::_;
using testing::ElementsAre;
using testing::HasSubstr;
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

TEST(Coding, DecodesToExactlyWhatWasCoded) {
    std::mt19937 random(20010104);
    for (const char* const version : {"#VERSION:    V1R5", ""}) {
        Texts plain = {"##### Header", "#FILE:       CODED", version, kHeading};
        for (int i = 0; i < 3000; ++i) {
            plain.emplace_back(random() % 256, ' ');
            std::ranges::generate(plain.back(), [&] { return char(1 + random() % 254); });
        }
        plain.emplace_back("#VERSION: V1R1"); // below the heading it chooses no key
        Texts lines = plain;
        ASSERT_EQ(crypt(kCodeOption, lines), 0);
        EXPECT_TRUE(std::equal(plain.begin(), plain.begin() + 4, lines.begin()));
        EXPECT_NE(lines.back(), plain.back());
        for (char& digit : lines[5]) {
            digit = digit >= 'A' ? static_cast<char>(digit + 32) : digit; // case does not matter
        }
        ASSERT_EQ(crypt(kDecodeOption, lines), 0);
        EXPECT_EQ(lines, plain);
    }
}

// The coded texts were computed apart from this code.
TEST(Ppcrypt, ChoosesTheKeyByTheReleaseAndKeepsEmptyLines) {
    const Texts older = {"E89E82802B0"}, newer = {"EC751A45BB0", "0", "92ED7D7"};
    const std::pair<const char*, std::string> rows[] = {
        {"#VERSION: V1R6   ", older[0]}, {"#VERSION: V1R7", newer[0]}, {"#VERSION: V2R5", newer[0]},
        {"#VERSION: V1R12", newer[0]},   {"#VERSION:V1R5", newer[0]},  {"", newer[0]},
        {"#VERSION: V1R five", older[0]}};
    for (const auto& [version, expected] : rows) {
        Texts lines = {version, kHeading, "RAPID", "", "G00"};
        ASSERT_EQ(crypt(kCodeOption, lines), 0);
        EXPECT_EQ(lines[2], expected) << version;
        EXPECT_TRUE(expected != newer[0] || Texts(lines.begin() + 2, lines.end()) == newer);
        ASSERT_EQ(crypt(kDecodeOption, lines), 0);
        EXPECT_THAT(lines, ElementsAre(version, kHeading, "RAPID", "", "G00"));
    }
}

TEST(Ppcrypt, LeavesPlainFilesAlone) {
    Texts lines;
    for (const std::string mark : {"#FILE:       UNCODED", "#FILE: is uncoded"}) {
        const Texts plain = {"##### Header", mark, kHeading, "RAPID"};
        lines = plain;
        EXPECT_EQ(crypt(kDecodeOption, lines), 0);
        EXPECT_EQ(lines, plain);
        EXPECT_EQ(crypt(kCodeOption, lines), 0);
        EXPECT_EQ(lines[1], ""); // from now on the file is coded and no longer says otherwise
    }
    const Texts noSection = {"##### Header", "not coded", "##### String Section", "FF"};
    lines = noSection;
    EXPECT_EQ(crypt(kCodeOption, lines), 0);
    EXPECT_EQ(crypt(kDecodeOption, lines), 0);
    EXPECT_EQ(lines, noSection);
    EXPECT_EQ(ppcrypt(kDecodeOption, nullptr), 0);
}

TEST(Ppcrypt, NamesTheLineThatFails) {
    const std::tuple<int, std::string, int, const char*> rows[] = {
        {kCodeOption, "a\xFF", kCoderUncodable, "line <a\xFF> can't be coded\n"},
        {kDecodeOption, "EC751A45BB", kCoderUndecodable, "line <EC751A45BB> can't be decoded\n"},
        {kDecodeOption, "RAPID", kCoderUndecodable, "line <RAPID> can't be decoded\n"},
        {kDecodeOption, "9A0", kCoderUndecodable, "line <9A0> can't be decoded\n"}, // a byte 0
        {kDecodeOption, "EB751A45BB0", kCoderChecksum, "Error in GGUVXVEH : Checksum-Error\n"},
        {kDecodeOption, std::string(10'000'000, 'x'), kCoderUndecodable, "> can't be decoded\n"},
    };
    for (const auto& [option, line, expected, message] : rows) {
        Texts lines = {"##### Header", kHeading, line, "G00"};
        CaptureStderr();
        EXPECT_EQ(crypt(option, lines), expected);
        const std::string messages = GetCapturedStderr();
        EXPECT_THAT(messages, HasSubstr(message));
        EXPECT_THAT(messages, HasSubstr("error in line 3\n"));
        EXPECT_LT(messages.size(), 700U);
        EXPECT_THAT(lines, ElementsAre("##### Header", kHeading, line, "G00"));
    }
}

TEST(Decode, WritesWhatWasReadWhenALineFails) {
    std::string file = "##### Header\n##### Toolmachine Section\nEC751A45BB0\n0\nRAPID\nG0\n";
    const FileOwner in(fmemopen(file.data(), file.size(), "r")), out(std::tmpfile());
    NCScan model;
    model.SetNoOutput();
    CaptureStderr();
    EXPECT_EQ(ParamScan(model).decode(in.get(), out.get()), kDecodeFailed);
    EXPECT_THAT(GetCapturedStderr(), HasSubstr("error in line 5\n"));
    std::rewind(out.get());
    EXPECT_THAT(taken(fp2CharFeld(out.get())),
                ElementsAre("##### Header", _, "RAPID", "", "RAPID", "G0"));
}

TEST(Vxveh, SeesEveryChangeOfASecondDigitByOne) {
    const std::string record = codedOld("*ENDCHAR %");
    for (std::size_t i = 1; i + 1 < kOldRecordLength; i += 2) {
        std::string corrupt = record, decoded(kOldLineLength, ' ');
        corrupt[i] = corrupt[i] == 'F' ? 'E' : corrupt[i] == '9' ? 'A' : char(corrupt[i] + 1);
        EXPECT_NE(vxveh(2, decoded, corrupt), 0) << i;
    }
}

TEST(Vxveh, RefusesWhatItCannotDo) {
    OldPhysicalLines physical;
    std::string line(kOldLineLength, ' ');
    std::string record(kOldRecordLength, '0');
    CaptureStderr();
    EXPECT_EQ(codeOldLine("\xFF", physical), kCoderUncodable);
    EXPECT_EQ(codeOldLine(std::string(81, 'x').c_str(), physical), kCoderTooLong);
    EXPECT_EQ(vxveh(3, line, record), 39999);
    EXPECT_EQ(vxveh(2, line, std::span(record).first(159)), kCoderUndecodable);
    EXPECT_EQ(GetCapturedStderr(),
              "line <\xFF" + std::string(79, ' ') +
                  "> can't be coded\npp inputline too long - parameterfile is corrupted!!\n"
                  "Error in GGUVXVEH : unknown aktivity\nline <" +
                  std::string(159, '0') + "> can't be decoded\n");
}

} // namespace
