#include "tests/cli/ProgramTest.h"
#include "tests/support/convert.h"

#include <gmock/gmock.h>
#include <regex>

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class Report : public ProgramTest {
protected:
    Report() {
        m_folder.write("bad.nc", "%\nG1 X1\nG4 X2.\nG54 X3 R-5\n");
        m_folder.write("--quiet", kDialect);
    }

    const std::string kCountText = "quillmark: unrecognised text in 3 of 4 blocks\n";
    const std::string kBadText =
        "quillmark: warning: line 3: G4 not recognised, in a block that moves the tool: G4 X2.\n" +
        kCountText +
        R"(     count  first line  word
         1           1  %
         1           4  G54
         1           4  R-5
)";
};

TEST_F(Report, TellsWhatWasNotUnderstood) {
    // An option behind one that takes a value is that value.
    const std::string table = R"(--strict|0|nothing
-nc bad.nc|0|all
-nc bad.nc --quiet|0|nothing
-nc bad.nc --strict|3|all
--quiet -nc bad.nc --strict|3|count
-nc bad.nc -p --quiet|0|all
-p a.pp -nc bad.nc --report -p --quiet|0|nothing)";
    for (const auto& [options, status, said] : rowsOf(table)) {
        const ProgramResult result = run(options);
        EXPECT_EQ(result.status, std::stoi(status)) << options;
        EXPECT_EQ(result.out, "") << options;
        EXPECT_EQ(result.err, said == "all"     ? kBadText
                              : said == "count" ? kCountText + "quillmark: warnings: 1\n"
                                                : "")
            << options;
    }
    EXPECT_EQ(read("o"), goTo(1, 0, 0) + goTo(2, 0, 0) + goTo(3, 0, 0));
    EXPECT_THAT(read("-p"), StartsWith("{\n"));
}

TEST_F(Report, ShowsTheMostFrequentWordsAndTheWorstCauses) {
    std::string nc = "G1 X1\n\x1B[2J\nG98\n";
    for (int i = 1; i <= 125; ++i) {
        nc += "X1 E" + std::to_string(i) + " G4\n";
    }
    for (int i = 101; i <= 130; ++i) {
        nc += "X1 A5 G" + std::to_string(i) + "\n";
    }
    m_folder.write("a.nc", nc + "G98 (\n" + std::string(300, ' ') + "M8\nX1 G18\nG2 X1 I0\nG2\n");
    EXPECT_EQ(run("").err.substr(0, run("").err.find("G102")),
              R"(quillmark: warning: line 163: arc without a centre word: G2
quillmark: warning: arcs of radius 0: 2, the first in line 162; nothing was written for them
quillmark: warning: line 161: G18 not recognised, may be another plane: the arcs behind it lie wrong: X1 G18
quillmark: warning: line 129, the first of 30: A5 not read, and the block moves without that word or not at all: X1 A5 G101
quillmark: warning: line 4, the first of 125: G4 not recognised, in a block that moves the tool: X1 E1 G4
quillmark: warning: line 129: G101 not recognised, in a block that moves the tool: X1 A5 G101
quillmark: warning: line 130: )");
    EXPECT_THAT(run("").err, HasSubstr(R"( X1 A5 G116
quillmark: warning: blocks longer than 255 characters: 1, the first in line 160; they were read in pieces, a number can be cut in two
quillmark: warning: comments without an end: 1, the first in line 159; the rest of the block was not read
quillmark: and 14 more warnings; --report FILE has more of them
quillmark: unrecognised text in 159 of 164 blocks
     count  first line  word
         2           3  G98
         1           2  \x1B[2J
         1           4  E1
)"));
    EXPECT_THAT(run("").err,
                EndsWith("  E18\nquillmark: and 107 more different words; --report FILE has more "
                         "of them\n"));
}

TEST_F(Report, SummaryIsPrintedAlways) {
    EXPECT_THAT(run("--summary").err,
                StartsWith("quillmark: blocks read: 1\n"
                           "quillmark: statements: rapid moves 0, feed moves 1, arcs 0, tool axes "
                           "0, feed rates 0, spindle 0, coolant 0, tools 0, modes 0, program ends "
                           "0, texts 0\nquillmark: seconds: "));
    EXPECT_THAT(run("--summary").err, EndsWith("quillmark: movements before every axis was given: "
                                               "1, the first in line 1; 0 was taken for the "
                                               "others\n"));
    m_folder.write("dwells.pp", kDialect + "REV_DWELL\nG4\n");
    m_folder.write("a.nc", "G0 X1 Y1 Z1\nG1 X2\nX3\nG1 X4 F100\n");
    EXPECT_THAT(run("-p dwells.pp --summary --strict").err,
                EndsWith("quillmark: feed movements before the program gave a feed: 2, the first "
                         "in line 2; the APT has none for them, or 0\n"));
    EXPECT_THAT(run("-nc x.nc --summary").err, AllOf(StartsWith("quillmark: blocks read: 0\n"),
                                                     HasSubstr("\nquillmark: error 200: ")));
}

TEST_F(Report, CountsMarkedBlocksUnlessTheyAreLeftOut) {
    m_folder.write("skip.pp", kDialect + "REV_BLOCK_SKIP\n/\n");
    m_folder.write("a.nc", "G1 X1\n/X2\n/1 X3\n");
    EXPECT_EQ(run("-p skip.pp --strict").err, "");
    EXPECT_THAT(
        run("-p skip.pp --summary").err,
        HasSubstr("quillmark: blocks with a mark to skip them: 2, the first in line 2; they "
                  "were converted, as with the operator's switch off\n"));
    EXPECT_EQ(read("o"), goTo(1, 0, 0) + goTo(2, 0, 0) + goTo(3, 0, 0));
    EXPECT_EQ(run("-p skip.pp --skip-blocks").err, "");
    EXPECT_EQ(read("o"), goTo(1, 0, 0));
    EXPECT_EQ(run("--skip-blocks=1").status, 2);
}

TEST_F(Report, StrictlyEveryWarningIsAFailure) {
    m_folder.write("skip.pp", kDialect + "REV_BLOCK_SKIP\n/\n");
    m_folder.write("none.pp", std::string(kHeader) + "SYMBOL_PROGRAM_START\nQ9\n");
    // The program, the options, the exit status.
    const std::string table = R"(G1 X1|-p skip.pp|0
/G1 X1|-p skip.pp|0
G1 X1~G3|-p skip.pp|3
G1 X1 (open|-p skip.pp|3
G91 G2 X2 I1 Z5|-p skip.pp|3
(no movement command)|-p none.pp|3)";
    for (const auto& [nc, options, status] : rowsOf(table)) {
        m_folder.write("a.nc", std::regex_replace(nc, std::regex("~"), "\n"));
        const ProgramResult result = run("--strict " + options);
        EXPECT_EQ(result.status, std::stoi(status)) << nc;
        EXPECT_EQ(result.err.find("quillmark: warning: ") == 0, result.status == 3) << result.err;
        EXPECT_EQ(run(options).status, 0) << nc;
    }
}

TEST_F(Report, JsonHoldsEverything) {
    m_folder.write("a.nc", "G1 X1\nG54 \"\\\xE4\xC3\xA4\xED\xA0\x80\x01\nG3\n");
    EXPECT_EQ(run("--report r --strict --quiet").status, 3);
    // Valid UTF-8 stays; other bytes become the Latin-1 characters of their codes.
    const std::string json =
        std::regex_replace(read("r"), std::regex("(\"seconds\": )[0-9.]+,"), "$1S,");
    EXPECT_EQ(json, "{\n  \"quillmark\": \"" QUILLMARK_VERSION "\",\n" +
                        readFile(CLI_DATA "report.rest"));
}

TEST_F(Report, IsWrittenAfterFailures) {
    // What an older report holds goes, however long it was.
    m_folder.write("r", std::string(100'000, '#'));
    EXPECT_EQ(run("-nc x.nc --report r").status, 200);
    EXPECT_THAT(read("r"),
                AllOf(StartsWith("{\n"), EndsWith("\"warnings\": []\n}\n"),
                      HasSubstr("\"return_code\": 200,\n  \"meaning\": \"cannot read NC file\",\n"
                                "  \"exit_status\": 200,\n")));
    EXPECT_EQ(shell("quillmark --report r").status, 100);
    EXPECT_THAT(read("r"), HasSubstr("\"return_code\": 100,"));
    // A full disk shows at the end: the conversion is complete, its own failure would outrank it.
    EXPECT_EQ(run("--report /dev/full --strict").status, 2);
    EXPECT_EQ(read("o"), goTo(1, 0, 0));
    EXPECT_EQ(run("--report /dev/full -nc x.nc").status, 200);
    EXPECT_THAT(run("--report /dev/stdout").out, StartsWith("{\n"));
}

} // namespace
