#include "driver/Controller.h"
#include "driver/takeWord.h"
#include "tests/support/TempFolder.h"
#include "tests/support/dialects.h"

#include <gtest/gtest.h>
#include <string>

using namespace std::string_literals;

namespace {

// A conversion whose report can be asked.
class Scan {
public:
    explicit Scan(std::string_view nc, const std::string& dialect = mill()) {
        const TempFolder folder;
        const std::string parameters = folder.write("a.pp", dialect);
        const std::string program = folder.write("a.nc", nc);
        EXPECT_EQ(m_controller.execute(parameters.c_str(), program.c_str(),
                                       folder.path("apt").c_str(), nullptr, eOutputAPT),
                  0);
    }
    ScanReport& operator*() { return m_controller.Report(); }
    ScanReport* operator->() { return &m_controller.Report(); }

    // "word count first-line; ..." in the order of the report.
    std::string words() {
        std::string text;
        for (const auto* const entry : m_controller.Report().Words().MostFrequentFirst()) {
            text += entry->first + " " + std::to_string(entry->second.count) + " " +
                    std::to_string(entry->second.firstLine) + "; ";
        }
        return text;
    }
    // "count/first-line" of the four oddities.
    std::string oddities() {
        std::string text;
        for (const Oddity oddity :
             {Oddity::kDroppedArc, Oddity::kLongLine, Oddity::kNulByte, Oddity::kOpenComment}) {
            const Tally& tally = m_controller.Report().Of(oddity);
            text += std::to_string(tally.count) + "/" + std::to_string(tally.firstLine) + " ";
        }
        return text;
    }
    // "line kind word; ..." with G for a G word and R for an arc.
    std::string warnings() {
        std::string text;
        for (const Warning& warning : m_controller.Report().FirstWarnings()) {
            const bool isArc = warning.kind == Warning::Kind::kArcWithoutCentre;
            text +=
                std::to_string(warning.block.line) + (isArc ? " R" : " G ") + warning.word + "; ";
        }
        return text;
    }

private:
    Controller m_controller;
};

TEST(TakeWord, SplitsLettersWithANumberAndOtherRuns) {
    struct Row {
        std::string_view text;
        char separator;
        std::string words;
    };
    const Row rows[] = {
        {"G54G41 D1", '.', "G54|G41|D1|"},
        {" R-5.25\tR+.5  R5. ", '.', "R-5.25|R+.5|R5.|"},
        {"R5,25 G54.1", ',', "R5,25|G54.1|"},
        {"R5,25 R5.", '\0', "R5|,25|R5.|"},
        {"% /N10 A=5 CYCL DEF200 X- E. #1", '.', "%|/N10|A=5|CYCL|DEF200|X-|E.|#1|"},
        {"G1% G1.2.3 5G1", '.', "G1|%|G1.2|.3|5G1|"},
        {"\xE4G1 G1\xE4", '.', "\xE4G1|G1|\xE4|"},
        {" \t ", '.', ""},
    };
    for (const Row& row : rows) {
        std::string_view rest = row.text;
        std::string words;
        for (auto word = takeWord(rest, row.separator); !word.empty();
             word = takeWord(rest, row.separator)) {
            words.append(word) += '|';
        }
        EXPECT_EQ(words, row.words) << row.text;
    }
}

TEST(ScanReport, IsEmptyWhenEverythingWasUnderstood) {
    Scan scan("N1 G90 G94 F100 (a) (b)\n  G1 X1 Y2 S100 \n\t\nM3 S5\n\nG2 X3 I1 M8\r\nG1 X9  ");
    EXPECT_EQ(scan->UnrecognisedBlocks(), 0);
    EXPECT_EQ(scan.words() + scan.warnings(), "");
    EXPECT_EQ(scan.oddities(), "0/0 0/0 0/0 0/0 ");
}

TEST(ScanReport, KeepsWordsAndRests) {
    Scan scan("%\nN2 G54 G0 G41 X1 D1\n\nG54 (x)\n E5 Q  \n%\n");
    EXPECT_EQ(scan->UnrecognisedBlocks(), 5);
    EXPECT_EQ(scan.words(), "% 2 1; G54 2 2; D1 1 2; G41 1 2; E5 1 5; Q 1 5; ");
    ASSERT_EQ(scan->FirstRests().size(), 5U);
    EXPECT_EQ(scan->FirstRests()[1].line, 2);
    EXPECT_EQ(scan->FirstRests()[1].text, "G54  G41  D1");
    EXPECT_EQ(scan->FirstRests()[3].text, "E5 Q");
}

TEST(ScanReport, WarnsOfGWordsThatMoveAndOfArcsWithoutACentre) {
    struct Row {
        std::string nc;
        std::string warnings;
    };
    const Row rows[] = {
        {"G1 X1\nG4 X2.\nG28 X0\nG92 X0\n", "2 G G4; 3 G G28; 4 G G92; "},
        {"G54\nG18\nG4 P2\nM8 G10\n", ""},          // nothing moves
        {"G1 X1\nX2 Q5 M99\nX3 GOTO5 AG4\n", ""},   // no G word
        {"G1 X1\n%G17 X2\nE1 g4 X3\n", "3 G g4; "}, // only where a word begins
        {"X1 G81 Z-5 R2.\nX2\nG54 G41 X1\n", "1 G G81; 3 G G54; "},
        {"G1 X1\nG18 G2 X2 Z0 I5 K0\n", "2 G G18; "},
        {"G2\nG1 X1\nG2 X1 R5\nG3 X1 I0\n", "1 R; 3 R; "}, // these arcs are dropped
    };
    for (const Row& row : rows) {
        Scan scan(row.nc);
        EXPECT_EQ(scan.warnings(), row.warnings) << row.nc;
        EXPECT_EQ(scan->WarningCount(), static_cast<long>(scan->FirstWarnings().size()));
    }
    EXPECT_EQ(Scan("G1 X1 F9\n (a) G4 X2. F5\n")->FirstWarnings()[0].block.text, "(a) G4 X2. F5");
}

TEST(ScanReport, CountsOddities) {
    const auto line = [](std::size_t length) { return "M8" + std::string(length - 2, ' '); };
    struct Row {
        std::string nc;
        std::string oddities; // dropped arcs, long blocks, NUL bytes, open comments
    };
    const Row rows[] = {
        {"G1 X1\nG2 X1\nG3\n", "2/2 0/0 0/0 0/0 "},
        {"G1 X5\nG2 X5 I5 J0\n", "0/0 0/0 0/0 0/0 "}, // a full circle
        {line(255) + "\n" + line(254) + "\r\n", "0/0 0/0 0/0 0/0 "},
        {line(255) + "\r\n" + line(255), "0/0 0/0 0/0 0/0 "},
        {"\n" + line(256) + "\n" + line(9'999), "0/0 2/2 0/0 0/0 "},
        {"X1\0\nX2\nX3\0X4"s, "0/0 0/0 2/1 0/0 "},
        {"X1\nX3\n\0"s, "0/0 0/0 1/3 0/0 "},
        {"X1\0\nX2\n\nX3"s, "0/0 0/0 1/1 0/0 "},
        {line(300) + "\0\nX2"s, "0/0 1/1 1/1 0/0 "},
        {line(200) + std::string(55, '\0') + "\nX2", "0/0 0/0 1/1 0/0 "},
        {"(a)\nX1 (b) (c\nX2 )\n((\n", "0/0 0/0 0/0 2/2 "},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Scan(row.nc).oddities(), row.oddities) << testing::PrintToString(row.nc);
    }
    // A comment that runs to the end of its line by definition is complete.
    EXPECT_EQ(Scan("X1 ; a\n", dialectOf({{"COMMENT_START", ";"}})).oddities(), "0/0 0/0 0/0 0/0 ");
}

TEST(ScanReport, StaysWithinItsBounds) {
    std::string nc;
    for (int i = 0; i < 5'000; ++i) {
        nc += "G4 X1 E" + std::to_string(i) + std::string(200, '0') + "\n";
    }
    Scan scan(nc);
    EXPECT_EQ(scan->UnrecognisedBlocks(), 5'000);
    EXPECT_EQ(scan->FirstRests().size(), ScanReport::kMaxBlocks);
    EXPECT_EQ(scan->WarningCount(), 5'000);
    EXPECT_EQ(scan->FirstWarnings().size(), ScanReport::kMaxWarnings);
    WordTally& words = scan->Words();
    EXPECT_EQ(words.Total(), 10'000);
    EXPECT_EQ(words.MostFrequentFirst().size(), WordTally::kMaxWords);
    EXPECT_EQ(words.Others(), 5'000 - (static_cast<long>(WordTally::kMaxWords) - 1));
    EXPECT_EQ(words.MostFrequentFirst()[0]->first, "G4");
    EXPECT_EQ(words.MostFrequentFirst()[0]->second.count, 5'000);
}

TEST(ScanReport, CountsStatementsByKind) {
    Scan scan("G91 G95 F1\nG0 X1\nG1 X1\nX1\nG2 X1 I5\nG2 I0 X0\nM3 S5\nM8\nM9\nT5 M6\nM30\n",
              mill({{"MFG_CLASS_NAME", "MILLING_MACHINE"},
                    {"REV_TLCHG_COM", "M6"},
                    {"REV_TLCHG_TLADR", "T"}}));
    std::string counts;
    for (std::size_t kind = 0; kind < static_cast<std::size_t>(StatementKind::kCount); ++kind) {
        counts += std::to_string(scan->Statements().Of(static_cast<StatementKind>(kind))) + " ";
    }
    // Rapid, feed, arc, dropped, axis, feed rate, spindle, coolant, tool, mode, end.
    EXPECT_EQ(counts, "1 2 1 1 1 1 1 2 1 1 1 ");
}

} // namespace
