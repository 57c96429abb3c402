#include "tests/param/ParamTool.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

const std::string kHead = "##### Header\n#FILE:       UNCODED\n##### Toolmachine Section\n";
const std::string kMillClass = "MFG_CLASS_NAME\nNC_STANDARD_MACHINES\n";
const std::string kLatheClass = "MFG_CLASS_NAME\nNC_STANDARD_LATHE_MACHINES\n";
const std::string kRapid = "RAPID\nG0\n";
const std::string kCentre = "1ST_CIRCLE_CENTER_COORDINATE\nI\n1\nM5.3\n";

TEST_F(ParamTool, TellsWhatAFileConfigures) {
    const std::string text =
        kHead + kLatheClass +
        "RAPID\nG0\nRAPID_LATHE\nG00\nSPINDLE_CLOCKWISE\nM03\nREV_TLCHG_COM\nT\n"
        "FEEDRATE\nF\nany\nZ4.2\n1ST_COORDINATE_LATHE\nX\nany\n5\n"
        "COMMENT_START\n  (\x01\n##### Integer Section\nNOBLANK\nRAPID\n"
        "MAX_COM_LENGTH\n80\n##### Cycle Section\nCYCLE_01\nBOHREN\n1,1,0,0\n";
    write("lathe.pp", text);
    ASSERT_EQ(param("encode lathe.pp coded.pp").status, 0);
    for (const char* const name : {"lathe.pp", "coded.pp"}) {
        const Run run = param("check " + std::string(name));
        EXPECT_EQ(run.status, 0);
        EXPECT_THAT(run.err, IsEmpty());
        const auto hasLine = [](const std::string& line) { return HasSubstr(line + "\n"); };
        EXPECT_THAT(
            run.out,
            AllOf(hasLine(std::string(name) + ": current format, " +
                          (name[0] == 'c' ? "coded" : "plain")),
                  hasLine("Machine: lathe"),
                  hasLine("\nCommands\n"
                          "  line     8  RAPID_LATHE                     G0\n"
                          "  line    10  SPINDLE_CLOCKWISE               M3\n"
                          "  line    12  REV_TLCHG_COM                   T"),
                  hasLine("\nAddress words\n"
                          "  line    14  FEEDRATE                        F, 2 decimal places\n"
                          "  line    18  1ST_COORDINATE_LATHE            X"),
                  hasLine("  line    22  COMMENT_START                   (?"),
                  hasLine("\nKeys that the converter does not read\n"
                          "  line     6  RAPID\n"
                          "  line    25  NOBLANK\n"
                          "  line    27  MAX_COM_LENGTH\n"
                          "  line    30  CYCLE_01\n"),
                  hasLine("note: LINEAR_INTERPOLATION_LATHE is absent"),
                  hasLine("note: ZX_LATHE_X_ASSIGNMENT is absent")));
        EXPECT_THAT(run.out, Not(HasSubstr("RAPID_LATHE is absent")));
    }
}

TEST_F(ParamTool, FindsWhatLooksWrong) {
    const std::string kLongText(300, 'x');
    struct Row {
        std::string text;
        int status;
        const char* finding;
    };
    const Row rows[] = {
        {kHead + kRapid + "LINEAR_INTERPOLATION", 1,
         "line     6  error: the converter stops here: unexpected end of parameter file"},
        {kHead + "RAPID\nFMAX\n", 1, "error: the converter stops here: unsupported dialect"},
        {kHead + kRapid + "FEEDRATE\nF\nM5.3", 1, "line     6  error: the converter stops here"},
        {kHead + kRapid + "FEEDRATE\nF\nSPINDLE_SPEED\nS\n1\nM5.0\n", 1,
         "line     6  error: the lines behind the address of FEEDRATE are missing: "
         "'SPINDLE_SPEED'"},
        {kHead + kRapid + "FEEDRATE\nF\n1\nNOBLANK\n1\n", 1, "'NOBLANK' is taken for one"},
        {kHead + kRapid + "SPINDLE_STOP\nCOOLANT_ON\nM8\n", 1,
         "line     6  error: the value line of SPINDLE_STOP is missing: 'COOLANT_ON'"},
        {kHead + kMillClass + "RAPID_LATHE\nG0\n", 1,
         "line     6  error: RAPID_LATHE is not read on this machine, and RAPID, which is"},
        {kHead + kLatheClass + "1ST_COORDINATE_INCR\nU\n1\nM5.3\n", 1,
         "1ST_COORDINATE_INCR is not read on this machine, and 1ST_COORDINATE_INCR_LATHE"},
        {kHead + kRapid + kLatheClass, 1,
         "line     4  error: RAPID stands before MFG_CLASS_NAME and is judged as for a mill"},
        {kHead + kRapid + kMillClass, 0, "line     4  warning: RAPID stands before MFG_CLASS_NAME"},
        {kHead + kRapid + "CIRCLE_CENTER_ABS\n0\n" + kCentre, 1,
         "line     6  error: CIRCLE_CENTER_ABS has no effect on 1ST_CIRCLE_CENTER_COORDINATE"},
        {kHead + kRapid + "CIRCLE_CENTER_ABS\n1\n" + kCentre, 0,
         "line     6  warning: CIRCLE_CENTER_ABS has no effect on"},
        {kHead + kRapid + "COOLANT_ON\nM8\nCOOLANT_OFF\nM08\n", 1,
         "line     8  error: COOLANT_OFF has the code of COOLANT_ON"},
        {kHead + kRapid + "COOLANT_ON\nM06\n", 1,
         "line     6  error: COOLANT_ON has the code of the default tool change"},
        {kHead + kRapid + "PROGRAM_END\nM30\nPROGRAM_STOP\nM30\n", 0,
         "line     8  warning: PROGRAM_STOP has the code of PROGRAM_END, which does the same"},
        {kHead + kRapid + "COOLANT_ON\n8\n", 1, "the code '8' of COOLANT_ON has no letters"},
        {kHead + kRapid + "FEEDRATE\nF\n1\nM5\nSPINDLE_SPEED\nF\n1\nM5\n", 0,
         "line    10  warning: SPINDLE_SPEED has the address of FEEDRATE"},
        {kHead + kLatheClass + "RAPID_LATHE\nG0\nZX_LATHE_X_ASSIGNMENT\n-\n", 0,
         "line     8  warning: the one character '-' of ZX_LATHE_X_ASSIGNMENT"},
        {kHead + kRapid + "COOLANT_ON_MIST\nM7\n", 0,
         "line     6  warning: COOLANT_ON_MIST is read as COOLANT_ON"},
        {kHead + kRapid + "COOLANT_ON\nM7\nCOOLANT_ON\nM8\n", 0,
         "line     8  warning: COOLANT_ON replaces the value of line 6"},
        {kHead + kRapid + "COMMENT_START\n" + kLongText, 1,
         "line     7  error: COMMENT_START has a line of more than 254 characters"},
        {kHead + kRapid + kLongText, 0, "line     6  warning: the line has more than 254"},
        {kHead + "COOLANT_ON\nM8\n", 0, "  warning: the parameter file configures no movement"},
        {kHead + kRapid + "COOLANT_ON\n  \n", 0, "line     6  note: COOLANT_ON is empty"},
        {kHead + kRapid, 0, "  note: REV_TLCHG_COM is absent: the tool change is M6"},
        {"##### Header\n" + kRapid, 0, "  warning: no #FILE: line says UNCODED"},
        {"##### Header\n#FILE: \n##### Toolmachine Section\n" + kRapid, 1,
         "line     2  error: the file counts as coded"},
    };
    for (const Row& row : rows) {
        write("x.pp", row.text);
        const Run run = param("check x.pp");
        EXPECT_EQ(run.status, row.status) << row.finding;
        EXPECT_THAT(run.out, HasSubstr(row.finding)) << row.text;
        EXPECT_EQ(run.err.empty(), row.status == 0) << run.err;
    }
}

TEST_F(ParamTool, FindsNothingWrongWhereNothingIs) {
    write("x.pp", kHead + kMillClass + kRapid +
                      "RAPID_LATHE\nG0\nRAPID_2ND\nG00\nSPINDLE_STOP\nM5\nSPINDLE_OFF_LATHE\nM5\n"
                      "PROGRAM_END\nM2\nPROGRAM_END\nM30\n" +
                      kCentre + "CIRCLE_CENTER_ABS\n0\n");
    EXPECT_THAT(param("check x.pp").out, HasSubstr("Findings: 0 errors, 0 warnings, "));
}

TEST_F(ParamTool, ListsOldKeysThatAreNotConverted) {
    write("old.txt", "*5XGABEL 0\n*UNKNOWN value\nblock\n*ANFCHAR %\n*5XAL1MX 1\n*KREISMI 0\n");
    const Run run = shell(QUILLMARK_PARAM " encode-old old.txt - | " QUILLMARK_PARAM " check -");
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, HasSubstr("standard input: older generation, coded\nMachine: mill\n"));
    EXPECT_THAT(run.out, HasSubstr("(lines of the decoded text)\n"
                                   "  line     2  *UNKNOWN value\n"
                                   "  line     5  *5XAL1MX 1\n\n"));
    EXPECT_THAT(run.err, HasSubstr("Macros must be redefined!"));
}

} // namespace
