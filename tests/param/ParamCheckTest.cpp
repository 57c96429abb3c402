#include "tests/cli/ProgramTest.h"
#include "tests/support/cases.h"

#include <gmock/gmock.h>
#include <map>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

// A file from lines that ";" separates, with a head unless it begins with "#". "M" and "L" are the
// class of a mill and of a lathe, "R" is a movement, "C" a centre word, "LONG" a long line.
std::string file(const std::string& text) {
    const std::map<std::string, std::string> names = {
        {"M", "MFG_CLASS_NAME\nNC_STANDARD_MACHINES"},
        {"L", "MFG_CLASS_NAME\nNC_STANDARD_LATHE_MACHINES"},
        {"R", "RAPID\nG0"},
        {"C", "1ST_CIRCLE_CENTER_COORDINATE\nI\n1\nM5.3"},
        {"LONG", std::string(300, 'x')}};
    std::istringstream lines(text);
    std::string result =
        text[0] == '#' ? "" : "##### Header\n#FILE:       UNCODED\n##### Toolmachine Section\n";
    for (std::string line; std::getline(lines, line, ';');) {
        result += (names.contains(line) ? names.at(line) : line) + "\n";
    }
    return result;
}

class ParamCheck : public ProgramTest {};

TEST_F(ParamCheck, TellsWhatAFileConfigures) {
    m_folder.write("plain",
                   file("L;R;RAPID_LATHE;G00;SPINDLE_CLOCKWISE;M03;REV_TLCHG_COM;T;"
                        "FEEDRATE;F;any;Z4.2;1ST_COORDINATE_LATHE;X;any;5;COMMENT_START;  (\x01;"
                        "##### Integer Section;NOBLANK;RAPID;MAX_COM_LENGTH;80;"
                        "##### Cycle Section;CYCLE_01;BOHREN;1,1,0,0"));
    ASSERT_EQ(shell("quillmark-param encode plain coded").status, 0);
    for (const std::string name : {"plain", "coded"}) {
        const ProgramResult run = shell("quillmark-param check " + name);
        EXPECT_EQ(std::to_string(run.status) + run.err, "0");
        const std::string head = name + ": current format, " + name + "\n";
        EXPECT_THAT(run.out, StartsWith(head + readFile(PARAM_DATA "configured.txt") +
                                        "Findings: 0 errors, 0 warnings, "));
        for (const char* const key : {"LINEAR_INTERPOLATION_LATHE", "ZX_LATHE_X_ASSIGNMENT"}) {
            EXPECT_THAT(run.out, HasSubstr("note: " + std::string(key) + " is absent"));
        }
    }
}

TEST_F(ParamCheck, CountsLinesOfTheFileThatItWasGivenAndKnowsPrograms) {
    m_folder.write("plain", file("R;COOLANT_ON;  "));
    m_folder.write("a.tap", "%\nN1 G0 X1\nN2 G1 X2\n");
    ASSERT_EQ(shell("quillmark-param encode plain coded").status, 0);
    EXPECT_THAT(shell("quillmark-param check plain").out, Not(HasSubstr("lines of the")));
    EXPECT_THAT(shell("quillmark-param check coded").out, HasSubstr("(lines of the decoded text)"));
    const ProgramResult run = shell("quillmark-param check a.tap");
    EXPECT_EQ(std::to_string(run.status) + run.out, "1");
    EXPECT_THAT(run.err, HasSubstr("it looks like an NC program"));
    EXPECT_THAT(shell("quillmark-param check --json coded").out,
                HasSubstr(R"("lines_of": "decoded")"));
    // Long enough for a record of an old file, which then cannot be decoded.
    m_folder.write("bad", std::string(80, '?') + "\n" + std::string(80, '?') + "\n?\n");
    const ProgramResult bad = shell("quillmark-param check --json bad");
    EXPECT_EQ(bad.status, 1);
    EXPECT_THAT(bad.out, AllOf(StartsWith("{\n"), HasSubstr(R"("return_code": 306)")));
    EXPECT_THAT(bad.err, HasSubstr("Error in PpLiesDatei: Can't decode\nquillmark-param: "));
    EXPECT_EQ(shell("quillmark-param check --json none").out, "");
}

TEST_F(ParamCheck, FindsWhatLooksWrongAndNothingElse) {
    for (const auto& [text, finding] : casesOf(PARAM_DATA "findings.txt", 66)) {
        m_folder.write("x.pp", file(text));
        const ProgramResult run =
            shell("quillmark-param check x.pp >out; status=$?; tr -s ' ' <out; exit $status");
        EXPECT_EQ(run.status, finding.find("error:") != std::string::npos ? 1 : 0) << text;
        EXPECT_THAT(run.out, HasSubstr(finding)) << text;
        EXPECT_EQ(run.err.empty(), run.status == 0) << run.err;
    }
}

} // namespace
