#include "cli/quillmark/reportKeys.h"
#include "driver/Controller.h"
#include "driver/looksComputed.h"
#include "driver/takeWord.h"
#include "tests/support/TempFolder.h"
#include "tests/support/dialects.h"

#include <gtest/gtest.h>
#include <string>
#include <tuple>
#include <utility>

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
    ScanReport* operator->() { return &m_controller.Report(); }

    // Words, warnings ("!") and oddities, each with its count and first line: "G54 2/1 !G54 1/1 ".
    std::string notes() {
        std::string text;
        const auto note = [&](const std::string& what, const Tally& tally) {
            if (tally.count > 0) {
                text += what + " " + std::to_string(tally.count) + "/" +
                        std::to_string(tally.firstLine) + " ";
            }
        };
        ScanReport& report = m_controller.Report();
        for (const auto* const entry : report.Words().MostFrequentFirst()) {
            note(entry->first, entry->second);
        }
        for (const auto& [kind, block, word] : report.FirstWarnings()) {
            note(kind == Warning::Kind::kArcWithoutCentre ? "!arc" : "!" + word, {1, block.line});
        }
        for (const auto& [name, oddity] :
             {std::pair{"dropped", Oddity::kDroppedArc}, std::pair{"long", Oddity::kLongLine},
              std::pair{"NUL", Oddity::kNulByte}, std::pair{"open", Oddity::kOpenComment},
              std::pair{"computes", Oddity::kComputes}}) {
            note(name, report.Of(oddity));
        }
        return text;
    }

    // Each with line and word: "cycle 1 G81, ".
    std::string warnings() {
        std::string text;
        for (const auto& [kind, block, word] : m_controller.Report().FirstWarnings()) {
            text += rowOf(kind).key + " "s + std::to_string(block.line);
            text += (word.empty() ? "" : " " + word) + ", ";
        }
        return text;
    }
    // The oddities that are mostly harmless.
    std::string harmlessNotes() {
        std::string text;
        for (const auto& [name, oddity] :
             {std::pair{"axis", Oddity::kAxisNotGiven}, std::pair{"origin", Oddity::kUnknownOrigin},
              std::pair{"compensation", Oddity::kCompensation}}) {
            const Tally& tally = m_controller.Report().Of(oddity);
            if (tally.count > 0) {
                text += name + " "s + std::to_string(tally.count) + "/" +
                        std::to_string(tally.firstLine) + " ";
            }
        }
        return text;
    }

private:
    Controller m_controller;
};

TEST(TakeWord, SplitsLettersWithANumberAndOtherRuns) {
    const std::tuple<std::string_view, char, std::string> rows[] = {
        {"G54G41 D1", '.', "G54|G41|D1|"},
        {" R-5.25\tR+.5  R5. ", '.', "R-5.25|R+.5|R5.|"},
        {"R5,25 G54.1", ',', "R5,25|G54.1|"},
        {"R5,25 R5.", '\0', "R5|,25|R5.|"},
        {"% /N10 A=5 CYCL DEF200 X- E. #1", '.', "%|/N10|A=5|CYCL|DEF200|X-|E.|#1|"},
        {"G1% G1.2.3 5G1", '.', "G1|%|G1.2|.3|5G1|"},
        {"\xE4G1 G1\xE4", '.', "\xE4G1|G1|\xE4|"},
        {" \t ", '.', ""},
    };
    for (const auto& [text, separator, expected] : rows) {
        std::string_view rest = text;
        std::string words;
        for (auto word = takeWord(rest, separator); !word.empty();
             word = takeWord(rest, separator)) {
            words.append(word) += '|';
        }
        EXPECT_EQ(words, expected) << text;
    }
}

TEST(ScanReport, NotesWordsWarningsAndOddities) {
    const auto line = [](std::size_t length) { return "M8" + std::string(length - 2, ' '); };
    const std::pair<std::string, std::string> rows[] = {
        {"N1 G90 G94 F100 (a) (b)\n  G1 X1 Y2 S100 \n\t\nM3 S5\n\nG2 X3 I1 M8\r\nG1 X9  ", ""},
        {"%\nN2 G54 G0 G41 X1 D1\n\nG54 (x)\n E5 Q  \n%\n",
         "% 2/1 G54 2/2 D1 1/2 G41 1/2 E5 1/5 Q 1/5 "},
        // A G word of a block that moves is a warning, unless it is usually harmless, but only
        // where a word begins.
        {"G1 X1\nG4 X2.\nG28 X0\n", "G4 1/2 G28 1/3 !G4 1/2 !G28 1/3 "},
        {"G54\nM8 G10\n", "G54 1/1 G10 1/2 "},
        {"X2 Q5 M99\nX3 GOTO5 AG4\n", "M99 1/1 Q5 1/1 computes 1/2 "},
        {"G1 X1\n%G17 X2\nE1 g4 X3\n", "%G17 1/2 E1 1/3 g4 1/3 !g4 1/3 "},
        {"G17 G54 G64 G42 X1\nG43.4 X2\nG18X3",
         "G17 1/1 G42 1/1 G54 1/1 G64 1/1 G43.4 1/2 G18 1/3 !G43.4 1/2 !G18 1/3 "},
        {"X1 G81 Z-5 R2.\nX2\nG54 G41 X1\n", "G81 1/1 G41 1/3 G54 1/3 !G81 1/1 "},
        // An arc without a centre word is dropped where it ends at its start.
        {"G2\nG1 X1\nG2 X1 R5\nG3 X1 I0\n", "R5 1/3 !arc 1/1 !arc 1/3 dropped 3/1 "},
        {"G1 X5\nG2 X5 I5 J0\n", ""}, // a full circle
        {line(254) + "\n" + line(255) + "\n" + line(254) + "\r\n", ""},
        {line(255) + "\r\n" + line(255), ""},
        {"\n" + line(256) + "\n" + line(9'999), "long 2/2 "},
        {"X1\0\nX2\nX3\0X4"s, "NUL 2/1 "},
        {"X1\nX3\n\0"s, "NUL 1/3 "},
        {"X1\0\nX2\n\nX3"s, "NUL 1/1 "},
        {line(300) + "\0\nX2"s, "long 1/1 NUL 1/1 "},
        {line(200) + std::string(55, '\0') + "\nX2", "NUL 1/1 "},
        {"(a)\nX1 (b) (c\nX2 )\n((\n", ") 1/3 open 2/2 "},
    };
    for (const auto& [nc, notes] : rows) {
        EXPECT_EQ(Scan(nc).notes(), notes) << testing::PrintToString(nc);
    }
    // A comment that runs to the end of its line by definition is complete.
    EXPECT_EQ(Scan("; a\n", dialectOf({{"COMMENT_START", ";"}})).notes(), "");
}

TEST(ScanReport, CountsMovementsBeforeEveryAxisWasGiven) {
    const std::pair<std::string, std::string> rows[] = {
        {"M8\nG0 X1 Y1 Z1\nX2", ""},
        {"G0 X1\nY1\nZ1\nX2", "axis 2/1 "},
        {"G0 X1 Y1\nM8\nG2 X3 I1 Z0\nG1 X5", "axis 1/1 "},
        // What only adds to a place does not give one.
        {"G91 G0 X1 Y1 Z1\nX1\nG90 X1 Y1\nZ1\nG91 X1", "axis 3/1 "},
        {"G0 U1 Y1 Z1\nX1 W1\nU1 Z1", "axis 1/1 "},
    };
    for (const auto& [nc, notes] : rows) {
        EXPECT_EQ(Scan(nc).harmlessNotes(), notes) << nc;
    }
    EXPECT_EQ(Scan("G0 X1\nZ1\nX2", lathe()).harmlessNotes(), "axis 1/1 ");
    EXPECT_EQ(Scan("G0 X1\nY1", dialectOf({{"RAPID", "G0"}, {"1ST_COORDINATE", "X\n1\nM5.3"}}))
                  .harmlessNotes(),
              "");
}

TEST(ScanReport, WarnsOfWhatAControlWouldObey) {
    const std::pair<std::string, std::string> rows[] = {
        // Fractions.
        {"G0.1 X5\nM3.1\ng1 M5.\nG91.1X1", "fraction_behind_code 1 G0.1, "
                                           "fraction_behind_code 2 M3.1, "
                                           "fraction_behind_code 4 G91.1, "},
        {"N10.5 M8\nG0 .1\nM30. X1\nM30 .1", ""},
        // Text behind a number that was read.
        {"G1 X10+5\nX1,5 F1.5.2\nX1Y2-3Z4\nX-1.*2\nX=1/[2]\nS1=300 X1",
         "text_behind_number 1 X10+5, text_behind_number 2 X1,5, text_behind_number 3 Y2-3, "
         "text_behind_number 4 X-1.*2, text_behind_number 5 X=1/[, text_behind_number 6 S1=300, "},
        {"X1\nQ10+5 X10\nX1*\nX1 +5\nM8;\nN5/Q1\nX1(a)\nX10 Q20Y5+5\n",
         "text_behind_number 8 Y5+5, "},
        // Axis words.
        {"G1 X1 X2\nA90 X3 Z#5\nX#1 Y2 C0\nU1 X=R5", "unread_axis 1 X2, unread_axis 2 A90, "
                                                     "unread_axis 3 X#1, unread_axis 4 X=R5, "},
        {"A90\nM8 X5 Y\nG1 X1 CR=5 AB1 ,C2 C E5", ""},
        // Those of a block that computes, whether it moves or not.
        {"G1 X#1\nX-[2]\nX1 Y#2 Z#3\nAB#4 Q#5",
         "unread_axis 1 X#1, unread_axis 2 X-[2], unread_axis 3 Y#2, "},
        // Movement codes.
        {"G0 X1\nX5 G2 G1\nG1 X1\nG91 G1 X1\nM8 G0", "two_movement_codes 2 G1, "},
        // Usual codes.
        {"G17\nG18 G19\nG018\nX1 g19 G54", "plane 2 G18, plane 3 G018, plane 4 g19, "},
        {"G20\nG21\nG70", "inch 1 G20, inch 3 G70, "},
        {"G72 G73\nG76\nG77 G80 G89\nG90.5 CYCLE83(1)\nCYCLE90 ACYCLE81 G181 G81.5",
         "cycle 1 G73, cycle 2 G76, cycle 3 G89, fraction_behind_code 4 G90.5, cycle 4 CYCLE83, "},
        {"G1 X1 G17 G81", "cycle 1 G81, "},
    };
    for (const auto& [nc, warnings] : rows) {
        EXPECT_EQ(Scan(nc).warnings(), warnings) << nc;
    }
    EXPECT_EQ(Scan("G17\nG18\nG19", lathe()).warnings(), "plane 1 G17, plane 3 G19, ");
    // Numbers without a point: behind one, nothing is read.
    EXPECT_EQ(Scan("G1 X1000\nX1.",
                   dialectOf({{"LINEAR_INTERPOLATION", "G1"}, {"1ST_COORDINATE", "X\n1\nM5.3"}}))
                  .warnings(),
              "text_behind_number 2 X1., ");
    // What the dialect has as words without effect is no danger, what such a code takes along is.
    EXPECT_EQ(Scan("G54 X1 X2\nG18 X1 A5\nG19", mill({{"REV_NO_EFFECT", "G54"},
                                                      {"REV_NO_EFFECT", "G18"},
                                                      {"REV_NO_EFFECT_WORD", "A"}}))
                  .warnings(),
              "unread_axis 1 X2, plane 3 G19, ");
    // Harmless where it stands in a block that moves, and what it does not belong to.
    EXPECT_EQ(Scan("G1 X1 G99 P.1\nG98 X2 G99", mill({{"REV_NO_EFFECT", "G99"}})).warnings(),
              "unrecognised_g_word 2 G98, ");
}

TEST(ScanReport, TellsEachCauseOnce) {
    Scan scan("G1 X1 A5\nX2 A6\nX3 B7\nX4 G4\nX5 G4\nX10+5\nX11+5\nY1+2\nG20\n"
              "G91 G2 X2 I1 Z5\nG2 X2 I1 Z5\n");
    std::string causes;
    for (const auto& [first, count] : scan->Causes()) {
        causes += rowOf(first.kind).key + " "s + first.word + " " +
                  std::to_string(first.block.line) + " x" + std::to_string(count) + "\n";
    }
    EXPECT_EQ(causes, "unread_axis A5 1 x2\nunread_axis B7 3 x1\nunrecognised_g_word G4 4 x2\n"
                      "text_behind_number X10+5 6 x2\ntext_behind_number Y1+2 8 x1\n"
                      "inch G20 9 x1\nhelix  10 x2\n");
    EXPECT_EQ(scan->CountOf(Warning::Kind::kUnreadAxis), 3);
    for (const char* const word : {"A5", "A6", "B7", "G4", "+5", "+2", "G20"}) {
        EXPECT_TRUE(scan->IsWarnedOf(word)) << word;
    }
    EXPECT_FALSE(scan->IsWarnedOf("X10+5"));
}

TEST(ScanReport, WarnsOfArcsThatAreNone) {
    const std::pair<std::string, std::string> rows[] = {
        {"G2 X2 I1 Z0.00001\nG3 X4 I1\nX4 I1 Z5", "helix 1, helix 3, "},
        {"G91 G2 X2 I1 Z0.000004\nG2 I1\nG2 X2 I1 Z-0.000006", "helix 3, "},
        {"G2 X2.028 I1\n", ""},
        {"G2 X2.029 I1\nG1 X0\nG2 X2 I1.1 Z5", "radii_differ 1, radii_differ 3, helix 3, "},
        // The radius is the one in the plane.
        {"G91 G2 X2 I1 K7\n", ""},
        {"G1 X5\nG2 X7 I2", "radii_differ 2, "},
    };
    for (const auto& [nc, warnings] : rows) {
        EXPECT_EQ(Scan(nc).warnings(), warnings) << nc;
    }
    EXPECT_EQ(Scan("G1 Z0\nG2 Z2 K1\nG2 Z4 K1 Y1", lathe()).warnings(), "helix 3, ");
}

TEST(ScanReport, NotesOffsetsAndCompensation) {
    const std::pair<std::string, std::string> rows[] = {
        {"G53 G53.1 G60 G500\nG40", ""},
        {"G54 G59\nG54.1 P5\nG505\nG41 D1\nM8 G042", "origin 3/1 compensation 2/4 "},
    };
    for (const auto& [nc, notes] : rows) {
        EXPECT_EQ(Scan(nc).harmlessNotes(), notes) << nc;
    }
    EXPECT_EQ(Scan("G41\nG42\nG40", mill({{"REV_CUTCOM_LEFT", "G41"},
                                          {"REV_CUTCOM_RIGHT", "G42"},
                                          {"REV_CUTCOM_OFF", "G40"}}))
                  .harmlessNotes(),
              "compensation 2/1 ");
    EXPECT_EQ(Scan("M8 G54 G41", mill({{"REV_NO_EFFECT", "G54"}})).harmlessNotes(),
              "origin 1/1 compensation 1/1 ");
}

TEST(LooksComputed, KnowsTheThreeFamiliesAndNoComments) {
    for (const char* const text :
         {"IF[#1 EQ 2]GOTO 100", "N5 while [", "DO1", "END 2", "M98 P1000", "G65 A1 P9", "P5 G66",
          "M97 P5", "#<a>=1", "X##2", "o100 if", "O5 endsub", "o<drill> call", "R1 = 5",
          "GOTOF LAST", "else", "X[1+2]", "Y - [3]", "(x) CALL \"A\""}) {
        EXPECT_TRUE(looksComputed(text)) << text;
    }
    for (const char* const text :
         {"; IF #1=3", "(IF #1=3", "\"R1=5\" X", "O1234", "O5 (SUB)", "M98",  "P5 M99",
          "TOOL # 3",  "R5",       "R1==5",      "DO",    "END",      "FORM", "X5 IF",
          "IF=3",      "CR=5",     "[5]",        "%",     "-",        ""}) {
        EXPECT_FALSE(looksComputed(text)) << text;
    }
}

TEST(ScanReport, FindsTheCauseOfNoMovement) {
    const std::string oWord = mill({{"REV_PROGRAM_LANGUAGE", "O_WORD"}});
    const std::tuple<std::string, std::string, std::string> rows[] = {
        {"G1 X1\n", mill(), ""},
        {"", mill(), ""},
        {" \n\t\r\n", mill(), ""},
        {"G2 I0 X0\n", mill(), ""}, // which is warned of as an arc
        {"#1=3\nG1 Y#1\n", mill(), ""},
        {"l q5 r0\nq5=7\n", mill(), "no_word"},
        {"e\n5\nL IX\n", mill(), "no_word"},
        {"g01 x5\ng01 y3\n", dialectOf({{"LINEAR_INTERPOLATION", "G01"}}), "lower_case"},
        {"g01 x5\n", dialectOf({{"LINEAR_INTERPOLATION", "G02"}}), "no_word"},
        {"\xFF\xFEG\0001\0 \0X\0005\0\n\0"s, mill(), "utf_16"},
        {"G\0001\0X\0005\0\n\0"s, mill(), "utf_16"},
        {"\0G\0001\0X\0005\0\n"s, mill(), "utf_16"},
        {"\x1F\x8B\x08\0\0"s, mill(), "gzip"},
        {"(G1 X5)\n(G1 X6)\n", mill(), "comments"},
        {"; a\n;b\n", mill(), "comments"},
        {"M8 (open\nM9\n", mill(), "comments"},
        {"M8\nM9\n", mill(), "unknown"},
        {std::string(100 * 2, '\n') + "E1\nM8\n", mill(), "unknown"},
        {"o<a> sub\nG1 X1\no<a> endsub\n", mill(), ""},
        {"(a)\no<a> sub\nG1 X1\no<a> endsub\n", oWord, "only_subprograms"},
        {"o<a> sub\nG1 X1\no<a> endsub\n#1=5\nM30\n", oWord, "only_subprograms"},
        {"o<a> sub\nG1 X1\no<a> endsub\nM8\n", oWord, "unknown"},
        {"o<a> sub\nG1 X1\no<a> endsub\nM8\nM30\n", oWord, "unknown"},
        {"M30\n", oWord, "unknown"},
        {"o<a> sub\nG1 X1\no<a> endsub\no<a> call\n", oWord, ""},
    };
    for (const auto& [nc, dialect, cause] : rows) {
        Scan scan(nc, dialect);
        const char* const key = rowOf(scan->Idle()).key;
        EXPECT_EQ(key == nullptr ? "" : key, cause) << testing::PrintToString(nc);
    }
}

TEST(ScanReport, KeepsRestsAndWholeBlocks) {
    Scan scan("%\nN2 G54 G0 G41 X1 D1\n E5 Q  \nM8\n (a) G4 X2. F5\n");
    EXPECT_EQ(scan->UnrecognisedBlocks(), 4);
    EXPECT_EQ(scan->FirstRests()[1].line, 2);
    EXPECT_EQ(scan->FirstRests()[1].text, "G54  G41  D1");
    EXPECT_EQ(scan->FirstRests()[2].text, "E5 Q");
    EXPECT_EQ(scan->FirstWarnings()[0].block.text, "(a) G4 X2. F5");
}

TEST(ScanReport, StaysWithinItsBounds) {
    std::string nc;
    for (int i = 0; i < 5'000; ++i) {
        nc += "X1 E" + std::to_string(i) + std::string(200, '0') + " G4\n";
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
    // Rapid, feed, arc, dropped, axis, feed rate, spindle, coolant, tool, mode, end, text,
    // delay, units, compensation, stop, home.
    EXPECT_EQ(counts, "1 2 1 1 1 1 1 2 1 1 1 0 0 0 0 0 0 ");
}

} // namespace
