#include "tests/support/dialects.h"

#include <regex>

namespace {

// "@" stands for the suffix by which alone some keys differ between the two kinds of machine.
const std::string kMachine =
    "RAPID@\nG00\nLINEAR_INTERPOLATION@\nG01\nCIRCULAR_INTERPOLATION_RIGHT@\nG02\n"
    "1ST_COORDINATE_INCR@\nU\n1\nM5.3\n2ND_COORDINATE_INCR@\nV\n1\nM5.3\n"
    "3RD_COORDINATE_INCR@\nW\n1\nM5.3\n1ST_COORDINATE@\nX\n1\nM5.3\n"
    "2ND_COORDINATE@\nY\n1\nM5.3\n3RD_COORDINATE@\nZ\n1\nM5.3\n"
    "COMMENT_START\n(\nCOMMENT_END\n)\nRECORD_NUMBER\nN\nDECIMAL_POINT_REPRESENTATION\n.\n"
    "CIRCULAR_INTERPOLATION_LEFT\nG03\nABSOLUTE_ON\nG90\nINCREMENTAL_ON\nG91\n"
    "FEEDRAT_MMPM\nG94\nFEEDRAT_MMPR\nG95\nSPINDLE_CLOCKWISE\nM3\n"
    "SPINDLE_COUNTER_CLOCKWISE\nM4\nCOOLANT_ON\nM8\nCOOLANT_OFF\nM9\nPROGRAM_END\nM30\n"
    "FEEDRATE\nF\n1\nM5.3\nSPINDLE_SPEED\nS\n1\nM5.0\n"
    "1ST_CIRCLE_CENTER_COORDINATE\nI\n1\nM5.3\n2ND_CIRCLE_CENTER_COORDINATE\nJ\n1\nM5.3\n"
    "3RD_CIRCLE_CENTER_COORDINATE\nK\n1\nM5.3\nCIRCLE_CENTER_ABS\n0\n";

std::string machine(Entries head, const char* suffix, Entries entries) {
    return dialectOf(head) + std::regex_replace(kMachine, std::regex("@"), suffix) +
           dialectOf(entries).substr(kHeader.size());
}

} // namespace

std::string dialectOf(Entries entries) {
    std::string text(kHeader);
    for (const auto& [key, value] : entries) {
        text.append(key).append("\n").append(value).append("\n");
    }
    return text;
}

std::string mill(Entries entries) { return machine({{"SPINDLE_STOP", "M5"}}, "", entries); }

std::string lathe(Entries entries) {
    return machine({{"MFG_CLASS_NAME", "NC_LATHE_MACHINE"}, {"SPINDLE_OFF_LATHE", "M5"}}, "_LATHE",
                   entries);
}
