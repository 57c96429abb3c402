#include "tests/cli/ProgramTest.h"

#include <gmock/gmock.h>
#include <string>
#include <utility>
#include <vector>

namespace {

using testing::HasSubstr;

const std::string kSquare =
    "TLAXIS/0,0,1\nLOADTL/1\nRAPID\nGOTO/0,0,5\nFEDRAT/100,MMPM\nGOTO/0,0,0\n"
    "GOTO/10,0,0\nGOTO/10,10,0\nGOTO/0,10,0\nGOTO/0,0,0\nEND\n";

std::string with(std::string text, const std::string& from, const std::string& to) {
    return text.replace(text.find(from), from.size(), to);
}

class View : public ProgramTest {
protected:
    ProgramResult view(const std::string& options) {
        return shell("exec quillmark-view " + options);
    }
    void write(const std::string& name, const std::string& text) {
        (void)m_folder.write(name, text);
    }
};

} // namespace

TEST_F(View, TellsBadInputInOneLine) {
    std::string huge = "GOTO/0,0," + std::string(400, '9') + ".00000\n";
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"", "the file is empty"},
        {"PARTNO A\nEND\n", "no statement moves the tool"},
        {"GOTO/1,NaN,2\n", "line 1: GOTO: a number is none (NaN)"},
        {huge, "line 1: GOTO: a number is larger than any machine"},
        {kSquare + "RAPID\n", "line 12: the file ends in front of the movement that its last "
                              "statement announces"},
        {std::string(1000000, 'x'), "line 1: the line is longer than any statement"},
        {std::string("\0\0\0\n\0", 5), "no statement moves the tool"},
    };
    for (const auto& [text, reason] : rows) {
        write("a.apt", text);
        const ProgramResult result = view("a.apt --measure 2>&1 | grep -v warning");
        EXPECT_EQ(result.out, "quillmark-view: 'a.apt': " + reason + "\n");
        EXPECT_EQ(view("a.apt --measure").status, 1) << reason;
    }
    EXPECT_EQ(view(". --measure").err, "quillmark-view: '.': cannot be read: Is a directory\n");
    EXPECT_EQ(view("none.apt --measure").err,
              "quillmark-view: 'none.apt': cannot be read: No such file or directory\n");
    write("a.apt", "MACHIN/A\nGOTO/0,0,0\nMACHIN/B\nGOTO/0,0,1");
    const ProgramResult result = view("a.apt --measure");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err,
              "quillmark-view: warning: 'a.apt': MACHIN is not known in this form: passed "
              "over 2 times, first in line 1\nquillmark-view: warning: 'a.apt': the last "
              "line has no end, so the file may have been cut off\n");
}

TEST_F(View, RefusesWrongUsage) {
    write("a.apt", kSquare);
    write("in.svg", kSquare);
    ASSERT_EQ(shell("ln -s in.svg link.png").status, 0);
    for (const auto& [options, reason] : std::vector<std::pair<std::string, std::string>>{
             {"", "one APT file is wanted, or two to compare"},
             {"a.apt",
              "nothing is asked for: --measure prints figures, -o makes a page or a picture"},
             {"a.apt b.apt c.apt", "one APT file is wanted, or two to compare"},
             {"a.apt -o a.jpg", "-o takes the name of a file that ends in .html, .svg or .png"},
             {"a.apt -o a.html --view top", "--view is of use with a picture, -o"},
             {"a.apt b.apt -o a.html", "a page shows one path"},
             {"a.apt -o a.svg --view left", "--view takes top, front, side or isometric"},
             {"a.apt --measure --rapid fast", "--rapid takes a speed above 0, in mm/min"},
             {"a.apt --measure --rapid -1", "--rapid takes a speed above 0, in mm/min"},
             {"a.apt --view top --measure", "--view is of use with a picture, -o"},
             {"a.apt --rapid 9 -o a.svg", "--rapid is of use with --measure"},
             {"a.apt -l a -l b --measure", "there are more logs than APT files"},
             {"a.apt --measur", "'--measur' is no option"},
             {"in.svg -o in.svg", "-o names a file that is read"},
             {"a.apt in.svg -o link.png", "-o names a file that is read"},
             {"a.apt -l in.svg -o in.svg", "-o names a file that is read"},
         }) {
        const ProgramResult result = view(options);
        EXPECT_EQ(result.status, 2) << options;
        EXPECT_THAT(result.err, testing::StartsWith("quillmark-view: " + reason + "\nusage: "));
    }
    EXPECT_EQ(read("in.svg"), kSquare);
}

TEST_F(View, TellsWhereTwoPathsDiffer) {
    write("a.apt", kSquare);
    struct Row {
        std::string apt;
        const char* told;
    };
    const std::vector<Row> rows = {
        {kSquare, "the paths are the same: 6 movements\n"},
        {with(kSquare, "GOTO/10,10,0", "GOTO/10,13,4"),
         "the paths differ from movement 4 on: end\n"
         "  a.apt: line 8, feed to 10.00000 10.00000 0.00000\n"
         "  b.apt: line 8, feed to 10.00000 13.00000 4.00000\n"
         "largest distance 5.00000 mm, from 10.00000 13.00000 4.00000 in line 8 of b.apt\n"},
        // The same way in other pieces.
        {with(kSquare, "GOTO/10,0,0\n", "GOTO/4,0,0\nGOTO/10,0,0\n"),
         "the paths differ from movement 3 on: end\n"
         "  a.apt: line 7, feed to 10.00000 0.00000 0.00000\n"
         "  b.apt: line 7, feed to 4.00000 0.00000 0.00000\n"
         "the tool goes the same way in both\n"},
        {with(kSquare, "GOTO/0,10,0\nGOTO/0,0,0\n", "GOTO/0,10,0\n"),
         "the paths differ from movement 6 on: one path ends\n"
         "  a.apt: line 10, feed to 0.00000 0.00000 0.00000\n"
         "  b.apt: ends behind line 9\n"
         "largest distance 10.00000 mm, from 0.00000 0.00000 0.00000 in line 10 of a.apt\n"},
        {with(kSquare, "FEDRAT/100", "FEDRAT/200"),
         "the paths differ from movement 2 on: feed\n"
         "  a.apt: line 6, feed to 0.00000 0.00000 0.00000\n"
         "  b.apt: line 6, feed to 0.00000 0.00000 0.00000\n"
         "the tool goes the same way in both\n"},
    };
    for (const Row& row : rows) {
        write("b.apt", row.apt);
        const ProgramResult result = view("a.apt b.apt");
        EXPECT_EQ(result.out, row.told);
        EXPECT_EQ(result.status, row.apt == kSquare ? 0 : 3);
    }
    // In the other order the same place is the farthest.
    write("b.apt", rows[1].apt);
    EXPECT_THAT(view("b.apt a.apt").out, HasSubstr("largest distance 5.00000 mm, from 10.00000 "
                                                   "13.00000 4.00000 in line 8 of b.apt\n"));
    const auto json = [&] {
        std::string text = view("a.apt b.apt --json").out;
        std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
        return text;
    };
    EXPECT_EQ(json(), "{\"difference\":{\"differs_in\":\"end\",\"movement\":4,\"first\":["
                      "{\"file\":\"a.apt\",\"line\":8},{\"file\":\"b.apt\",\"line\":8}],"
                      "\"largest_distance\":5.000000,\"farthest\":{\"file\":\"b.apt\",\"line\":8,"
                      "\"at\":[10.000000,13.000000,4.000000]}}}");
    write("b.apt", rows[2].apt);
    EXPECT_THAT(json(), HasSubstr("\"largest_distance\":0.000000,\"farthest\":null}"));
}

TEST_F(View, NamesTheBlocksOfALog) {
    ASSERT_EQ(run("-l a.log").status, 0);
    ASSERT_EQ(shell("sed s/1.00000/2.00000/ o >other").status, 0);
    EXPECT_THAT(view("o other -l a.log").out,
                HasSubstr("  o: line 1, feed to 1.00000 0.00000 0.00000, block G1 X1\n"));
    EXPECT_EQ(view("other --measure -l a.log").err,
              "quillmark-view: 'a.log': it is not the log of this APT: line 1 of the APT is not in "
              "it\n");
}

TEST_F(View, CountsDwellsToTheTimeOfTheirTool) {
    write("a.apt", with(kSquare, "GOTO/10,0,0", "DELAY/90\nGOTO/10,0,0"));
    // 45 mm at 100 mm/min are 27 s.
    EXPECT_THAT(view("a.apt --measure").out,
                HasSubstr("45.000 mm cutting, 1 min 57.0 s, lowest Z 0.00000\n"));
}

TEST_F(View, DrawsPictures) {
    write("a.apt", kSquare);
    if (MAKES_PICTURES == 0) {
        EXPECT_EQ(view("a.apt -o a.svg").err,
                  "quillmark-view: 'a.svg': this quillmark-view was built "
                  "without cairo and makes no pictures\n");
        GTEST_SKIP() << "built without cairo";
    }
    ASSERT_EQ(view("a.apt -o a.svg").status, 0);
    const std::string svg = read("a.svg");
    EXPECT_THAT(svg, HasSubstr("<svg"));
    EXPECT_THAT(svg, testing::EndsWith("</svg>\n"));
    // One dashed way in front, side and isometric view; from above it is a point, or unseen.
    write("long.apt", with(kSquare, "GOTO/0,0,5\n", "GOTO/0,0,5\nRAPID\nGOTO/0,0,2\n"));
    ASSERT_EQ(view("long.apt -o long.svg --view front").status, 0);
    EXPECT_THAT(read("long.svg"), HasSubstr("stroke-dasharray"));
    ASSERT_EQ(view("a.apt long.apt -o both.png").status, 3);
    EXPECT_EQ(read("both.png").substr(0, 8), "\x89PNG\r\n\x1a\n");
    EXPECT_EQ(view("a.apt -o none/a.png").status, 1);
}
