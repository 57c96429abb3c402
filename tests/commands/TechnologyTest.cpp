#include "tests/support/convert.h"
#include "tests/support/dialects.h"

#include <gtest/gtest.h>

namespace {

TEST(Technology, WritesItsStatements) {
    expectAPT(mill(),
              {// A speed word alone speaks only while the spindle turns.
               {"S1200\nM3\nS500\nS-1\nM04 S.5\nS7\nM5\nS99\nM3",
                "SPINDL/ 1200.0000,RPM,CLW\nSPINDL/  500.0000,RPM,CLW\nSPINDL/   -1.0000,RPM,CLW\n"
                "SPINDL/    0.5000,RPM,CCLW\nSPINDL/    7.0000,RPM,CCLW\nSPINDL/OFF\nSPINDL/   "
                "99.0000,RPM,CLW\n"},
               {"F100\nG95 F.25\nG95\nG94\nF1234567.89",
                "FEDRAT/  100.0000,MMPM\nFEDRAT/    0.2500,MMPR\nFEDRAT/    0.2500,MMPR\n"
                "FEDRAT/    0.2500,MMPM\nFEDRAT/1234567.8900,MMPM\n"},
               {"M8\nM8\nM9", "COOLNT/ON\nCOOLNT/ON\nCOOLNT/OFF\n"},
               {"M8 M9", "COOLNT/OFF\nCOOLNT/ON\n"}, // equal lengths: registered last, tried first
               {"T5 M6\nT7\nM06\nM6 T3.9\nM6 T-2.9", "LOADTL/5\nLOADTL/7\nLOADTL/3\nLOADTL/-2\n"},
               {"T99999999999 M6\nT-99999999999 M6", "LOADTL/2147483647\nLOADTL/-2147483648\n"},
               {"G1 X1 F100 M8 S5 M3 T2 M6 M30", // long words first, then the values in modal order
                "REWIND/0\nEND\nLOADTL/2\nCOOLNT/ON\nSPINDL/    5.0000,RPM,CLW\n"
                "FEDRAT/  100.0000,MMPM\nGOTO/    1.00000,    0.00000,    0.00000\n"}});
}

TEST(Technology, FollowsTheCodesOfTheDialect) {
    expectAPT(mill({{"REV_TLCHG_COM", "M16"},
                    {"REV_TLCHG_TLADR", "D"},
                    {"PROGRAM_STOP", "M0"},
                    {"PROGRAM_END", "M02"},
                    {"COOLANT_ON", "FLOOD"},
                    {"COOLANT_OFF", "DRY 7"}}),
              {{"M6 T3\nD4 M16", "LOADTL/4\n"},
               {"M0\nM2\nM30", "REWIND/0\nEND\nREWIND/0\nEND\nREWIND/0\nEND\n"},
               {"FLOOD\nFLOOD12\nDRY 07\nM8", "COOLNT/ON\nCOOLNT/ON\nCOOLNT/OFF\n"}});
    // Digits alone change the number of the tool change and leave its letter.
    expectAPT(mill({{"REV_TLCHG_COM", "16"}}), {{"T3 M16", "LOADTL/3\n"}});
    // An end of digits alone has no letter and stands in no block.
    expectAPT(mill({{"PROGRAM_STOP", "5"}, {"PROGRAM_END", "03"}}), {{"M8\n5 03", "COOLNT/ON\n"}});
    // A tool in implied decimal places.
    expectAPT(dialectOf({{"FEEDRATE", "F\n1\nM3.2"}, {"REV_TLCHG_TLADR", "TL"}}),
              {{"F1250\nTL12 M6", "FEDRAT/   12.5000,MMPM\nLOADTL/12\n"}});
}

TEST(Technology, HasDefaultsForWhatNoKeyConfigures) {
    expectAPT(dialectOf({{"1ST_COORDINATE", "X\n1\nM5.3"},
                         {"FEEDRATE", "F\n1\nM5.0"},
                         {"SPINDLE_SPEED", "S\n1\nM5.0"}}),
              {{"G1 X1500 F100 S5 M3 M8 G91\nX1500\nT4 M6",
                "FEDRAT/  100.0000,MMPM\nGOTO/    1.50000,    0.00000,    0.00000\n"
                "GOTO/    1.50000,    0.00000,    0.00000\nLOADTL/4\n"}});
}

} // namespace
