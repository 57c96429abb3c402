#include "tests/cli/ProgramTest.h"

#include <gmock/gmock.h>
#include <map>
#include <utility>

using testing::HasSubstr;
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
        EXPECT_THAT(run.out,
                    StartsWith(name + ": current format, " + name +
                               "\nMachine: lathe\n\nCommands\n"
                               "  line     8  RAPID_LATHE                     G0\n"
                               "  line    10  SPINDLE_CLOCKWISE               M3\n"
                               "  line    12  REV_TLCHG_COM                   T\n\nAddress words\n"
                               "  line    14  FEEDRATE                        F, 2 decimal places\n"
                               "  line    18  1ST_COORDINATE_LATHE            X\n\nOther settings\n"
                               "  line     4  MFG_CLASS_NAME                  "
                               "NC_STANDARD_LATHE_MACHINES\n"
                               "  line    22  COMMENT_START                   (?\n\n"
                               "Keys that the converter does not read\n"
                               "  line     6  RAPID\n  line    25  NOBLANK\n"
                               "  line    27  MAX_COM_LENGTH\n  line    30  CYCLE_01\n\n"
                               "Findings: 0 errors, 0 warnings, "));
        for (const char* const key : {"LINEAR_INTERPOLATION_LATHE", "ZX_LATHE_X_ASSIGNMENT"}) {
            EXPECT_THAT(run.out, HasSubstr("note: " + std::string(key) + " is absent"));
        }
    }
}

TEST_F(ParamCheck, FindsWhatLooksWrongAndNothingElse) {
    const std::pair<const char*, std::string> rows[] = {
        {"R;LINEAR_INTERPOLATION", "line 6 error: the converter stops here: unexpected end"},
        {"R;FEEDRATE;F;SPINDLE_SPEED;S;1;M5.0",
         "line 6 error: the lines behind the address of FEEDRATE are missing: 'SPINDLE_SPEED'"},
        {"R;FEEDRATE;F;MODAL;##### Integer Section",
         "error: the lines behind the address of FEEDRATE are missing: '#####"},
        {"R;FEEDRATE;F;MODAL;NONE", ": 0 errors, 0 warnings"},
        {"R;SPINDLE_STOP;COOLANT_ON;M8",
         "line 6 error: the value line of SPINDLE_STOP is missing: 'COOLANT_ON'"},
        {"RAPID;SOME_OTHER_KEY;G1", "line 4 warning: the value 'SOME_OTHER_KEY' of RAPID"},
        {"M;RAPID_LATHE;G0", "error: RAPID_LATHE is not read on this machine, and RAPID, which"},
        {"M;R;2ND_COORDINATE_LATHE;Y", "error: 2ND_COORDINATE_LATHE is not read on this machine"},
        {"L;RAPID_LATHE;G0;2ND_COORDINATE;Y;1;M5.3", "warning: 2ND_COORDINATE is not read"},
        {"M;R;1ST_COORDINATE_INCR_LATHE;U;1;M5.3",
         "line 8 warning: 1ST_COORDINATE_INCR_LATHE is not read"},
        {"L;RAPID_LATHE;G0;LINEAR_INTERPOLATION; ", ": 0 errors, 0 warnings"},
        {"RAPID_LATHE;G0;M;R", ": 0 errors, 0 warnings"},
        {"R;L", "line 4 error: RAPID stands before MFG_CLASS_NAME and is judged"},
        {"R;L;RAPID_LATHE;G0", ": 0 errors, 0 warnings"},
        {"R;M", "line 4 warning: RAPID stands before MFG_CLASS_NAME: this works for a mill"},
        {"R;CIRCLE_CENTER_ABS;0;C", "error: CIRCLE_CENTER_ABS has no effect on 1ST_CIRCLE"},
        {"R;CIRCLE_CENTER_ABS;1;C", "line 6 warning: CIRCLE_CENTER_ABS has no effect on"},
        {"R;COOLANT_ON;M8;COOLANT_OFF;M08", "error: COOLANT_OFF has the code of COOLANT_ON"},
        {"R;COOLANT_ON;M06", "error: COOLANT_ON has the code of the default tool change"},
        {"R;PROGRAM_END;M30;PROGRAM_STOP;M30", "warning: PROGRAM_STOP has the code of PROGRAM_END"},
        {"R;COOLANT_ON;8", "line 6 error: the code '8' of COOLANT_ON has no letters"},
        {"R;FEEDRATE;F;1;M5;SPINDLE_SPEED;F;1;M5",
         "line 10 warning: SPINDLE_SPEED has the address of FEEDRATE"},
        {"R;REV_TLCHG_TLADR;X;1ST_COORDINATE;X;1;M5.3",
         "line 8 warning: 1ST_COORDINATE has the address of REV_TLCHG_TLADR"},
        {"R;FEEDRATE;T;1;M5", "warning: FEEDRATE has the address of the default tool word"},
        {"R;FEEDRATE;T;1;M5;REV_TLCHG_TLADR;D", ": 0 errors, 0 warnings"},
        {"L;RAPID_LATHE;G0;ZX_LATHE_X_ASSIGNMENT;-",
         "line 8 warning: the one character '-' of ZX_LATHE_X_"},
        {"R;COOLANT_ON_MIST;M7", "line 6 warning: COOLANT_ON_MIST is read as COOLANT_ON"},
        {"R;COOLANT_ON;M7;COOLANT_ON;M8", "warning: COOLANT_ON replaces the value of line 6"},
        {"R;COMMENT_START;LONG", "error: COMMENT_START has a line of more than 254 characters"},
        {"R;LONG", "line 6 warning: the line has more than 254"},
        {"COOLANT_ON;M8", " warning: the parameter file configures no movement"},
        {"R;COOLANT_ON;  ", "line 6 note: COOLANT_ON is empty"},
        {"R", " note: REV_TLCHG_COM is absent: the tool change is M6"},
        {"##### Header;R", " warning: no #FILE: line says UNCODED"},
        {"##### Header;#FILE: ;##### Toolmachine Section;R", "line 2 error: the file counts"},
        {"M;R;RAPID_LATHE;G0;RAPID_2ND;G00;SPINDLE_STOP;M5;SPINDLE_OFF_LATHE;M5;PROGRAM_END;M2;"
         "PROGRAM_END;M30;C;CIRCLE_CENTER_ABS;0",
         ": 0 errors, 0 warnings"},
    };
    for (const auto& [text, finding] : rows) {
        m_folder.write("x.pp", file(text));
        const ProgramResult run =
            shell("quillmark-param check x.pp >out; status=$?; tr -s ' ' <out; exit $status");
        EXPECT_EQ(run.status, finding.find("error:") != std::string::npos ? 1 : 0) << text;
        EXPECT_THAT(run.out, HasSubstr(finding)) << text;
        EXPECT_EQ(run.err.empty(), run.status == 0) << run.err;
    }
}

} // namespace
