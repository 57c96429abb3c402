#include "tests/param/ParamTool.h"

#include <map>
#include <sstream>

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

// A file from lines that ";" separates. "H" is a head, "M" and "L" are the class of a mill and of a
// lathe, "R" is a movement, "C" a centre word, "LONG" a line of 300 characters.
std::string file(const std::string& text) {
    const std::map<std::string, std::string> names = {
        {"H", "##### Header\n#FILE:       UNCODED\n##### Toolmachine Section"},
        {"M", "MFG_CLASS_NAME\nNC_STANDARD_MACHINES"},
        {"L", "MFG_CLASS_NAME\nNC_STANDARD_LATHE_MACHINES"},
        {"R", "RAPID\nG0"},
        {"C", "1ST_CIRCLE_CENTER_COORDINATE\nI\n1\nM5.3"},
        {"LONG", std::string(300, 'x')}};
    std::istringstream lines(text);
    std::string result;
    for (std::string line; std::getline(lines, line, ';');) {
        result += (names.contains(line) ? names.at(line) : line) + "\n";
    }
    return result;
}

TEST_F(ParamTool, TellsWhatAFileConfigures) {
    write("plain", file("H;L;R;RAPID_LATHE;G00;SPINDLE_CLOCKWISE;M03;REV_TLCHG_COM;T;"
                        "FEEDRATE;F;any;Z4.2;1ST_COORDINATE_LATHE;X;any;5;COMMENT_START;  (\x01;"
                        "##### Integer Section;NOBLANK;RAPID;MAX_COM_LENGTH;80;"
                        "##### Cycle Section;CYCLE_01;BOHREN;1,1,0,0"));
    ASSERT_EQ(param("encode plain coded").status, 0);
    for (const std::string name : {"plain", "coded"}) {
        const Run run = param("check " + name);
        EXPECT_EQ(run.status, 0);
        EXPECT_THAT(run.err, IsEmpty());
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

TEST_F(ParamTool, FindsWhatLooksWrongAndNothingElse) {
    struct Row {
        const char* text;
        const char* finding; // null: neither error nor warning
    };
    const Row rows[] = {
        {"H;R;LINEAR_INTERPOLATION", "line 6 error: the converter stops here: unexpected end"},
        {"H;RAPID;FMAX", "error: the converter stops here: unsupported dialect"},
        {"H;R;FEEDRATE;F;M5.3", "line 6 error: the converter stops here"},
        {"H;R;FEEDRATE;F;SPINDLE_SPEED;S;1;M5.0",
         "line 6 error: the lines behind the address of FEEDRATE are missing: 'SPINDLE_SPEED'"},
        {"H;R;FEEDRATE;F;MODAL;##### Integer Section",
         "error: the lines behind the address of FEEDRATE are missing: '#####"},
        {"H;R;FEEDRATE;F;MODAL;NONE", nullptr},
        {"H;R;SPINDLE_STOP;COOLANT_ON;M8",
         "line 6 error: the value line of SPINDLE_STOP is missing: 'COOLANT_ON'"},
        {"H;RAPID;SOME_OTHER_KEY;G1", "line 4 warning: the value 'SOME_OTHER_KEY' of RAPID"},
        {"H;M;RAPID_LATHE;G0", "error: RAPID_LATHE is not read on this machine, and RAPID, which"},
        {"H;RAPID_LATHE;G0;M", "line 4 error: RAPID_LATHE is not read on this machine"},
        {"H;M;R;2ND_COORDINATE_LATHE;Y", "error: 2ND_COORDINATE_LATHE is not read on this machine"},
        {"H;L;RAPID_LATHE;G0;2ND_COORDINATE;Y;1;M5.3", "warning: 2ND_COORDINATE is not read"},
        {"H;M;R;1ST_COORDINATE_INCR_LATHE;U;1;M5.3",
         "line 8 warning: 1ST_COORDINATE_INCR_LATHE is not read"},
        {"H;L;RAPID_LATHE;G0;LINEAR_INTERPOLATION; ", nullptr},
        {"H;RAPID_LATHE;G0;M;R", nullptr},
        {"H;R;L", "line 4 error: RAPID stands before MFG_CLASS_NAME and is judged"},
        {"H;R;L;RAPID_LATHE;G0", nullptr},
        {"H;LINEAR_INTERPOLATION; ;L;RAPID_LATHE;G0", nullptr},
        {"H;R;M", "line 4 warning: RAPID stands before MFG_CLASS_NAME: this works for a mill"},
        {"H;R;CIRCLE_CENTER_ABS;0;C", "error: CIRCLE_CENTER_ABS has no effect on 1ST_CIRCLE"},
        {"H;R;CIRCLE_CENTER_ABS;1;C", "line 6 warning: CIRCLE_CENTER_ABS has no effect on"},
        {"H;R;COOLANT_ON;M8;COOLANT_OFF;M08", "error: COOLANT_OFF has the code of COOLANT_ON"},
        {"H;R;COOLANT_ON;M06", "error: COOLANT_ON has the code of the default tool change"},
        {"H;R;PROGRAM_END;M30;PROGRAM_STOP;M30",
         "warning: PROGRAM_STOP has the code of PROGRAM_END"},
        {"H;R;COOLANT_ON;8", "line 6 error: the code '8' of COOLANT_ON has no letters"},
        {"H;R;FEEDRATE;F;1;M5;SPINDLE_SPEED;F;1;M5",
         "line 10 warning: SPINDLE_SPEED has the address of FEEDRATE"},
        {"H;R;REV_TLCHG_TLADR;X;1ST_COORDINATE;X;1;M5.3",
         "line 8 warning: 1ST_COORDINATE has the address of REV_TLCHG_TLADR"},
        {"H;R;FEEDRATE;T;1;M5", "warning: FEEDRATE has the address of the default tool word"},
        {"H;R;FEEDRATE;T;1;M5;REV_TLCHG_TLADR;D", nullptr},
        {"H;L;RAPID_LATHE;G0;ZX_LATHE_X_ASSIGNMENT;-",
         "line 8 warning: the one character '-' of ZX_LATHE_X_"},
        {"H;R;COOLANT_ON_MIST;M7", "line 6 warning: COOLANT_ON_MIST is read as COOLANT_ON"},
        {"H;R;COOLANT_ON;M7;COOLANT_ON;M8", "warning: COOLANT_ON replaces the value of line 6"},
        {"H;R;COMMENT_START;LONG", "error: COMMENT_START has a line of more than 254 characters"},
        {"H;R;LONG", "line 6 warning: the line has more than 254"},
        {"H;COOLANT_ON;M8", " warning: the parameter file configures no movement"},
        {"H;R;COOLANT_ON;  ", "line 6 note: COOLANT_ON is empty"},
        {"H;R", " note: REV_TLCHG_COM is absent: the tool change is M6"},
        {"##### Header;R", " warning: no #FILE: line says UNCODED"},
        {"##### Header;#FILE: ;##### Toolmachine Section;R", "line 2 error: the file counts"},
        {"H;M;R;RAPID_LATHE;G0;RAPID_2ND;G00;SPINDLE_STOP;M5;SPINDLE_OFF_LATHE;M5;PROGRAM_END;M2;"
         "PROGRAM_END;M30;C;CIRCLE_CENTER_ABS;0",
         nullptr},
    };
    for (const Row& row : rows) {
        const std::string finding = row.finding == nullptr ? ": 0 errors, 0 warnings" : row.finding;
        write("x.pp", file(row.text));
        const Run run =
            shell(QUILLMARK_PARAM " check x.pp >out; status=$?; tr -s ' ' <out; exit $status");
        EXPECT_EQ(run.status, finding.find("error:") != std::string::npos ? 1 : 0) << row.text;
        EXPECT_THAT(run.out, HasSubstr(finding)) << row.text;
        EXPECT_EQ(run.err.empty(), run.status == 0) << run.err;
    }
}

TEST_F(ParamTool, ListsOldKeysThatAreNotConverted) {
    write("old.txt", "*5XGABEL 0\n*UNKNOWN value\nblock\n*ANFCHAR %\n*5XAL1MX 1\n*KREISMI 0\n");
    const Run run = shell(QUILLMARK_PARAM " encode-old old.txt - | " QUILLMARK_PARAM " check -");
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, StartsWith("standard input: older generation, coded\nMachine: mill\n"));
    EXPECT_THAT(run.out, HasSubstr("(lines of the decoded text)\n"
                                   "  line     2  *UNKNOWN value\n"
                                   "  line     5  *5XAL1MX 1\n\n"));
    EXPECT_THAT(run.err, HasSubstr("Macros must be redefined!"));
}

} // namespace
