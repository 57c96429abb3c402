#include "tests/support/dialects.h"

namespace {

constexpr std::string_view kCommon =
    "COMMENT_START\n(\nCOMMENT_END\n)\nRECORD_NUMBER\nN\nDECIMAL_POINT_REPRESENTATION\n.\n"
    "CIRCULAR_INTERPOLATION_LEFT\nG03\nABSOLUTE_ON\nG90\nINCREMENTAL_ON\nG91\n"
    "FEEDRAT_MMPM\nG94\nFEEDRAT_MMPR\nG95\nSPINDLE_CLOCKWISE\nM3\n"
    "SPINDLE_COUNTER_CLOCKWISE\nM4\nCOOLANT_ON\nM8\nCOOLANT_OFF\nM9\nPROGRAM_END\nM30\n"
    "FEEDRATE\nF\n1\nM5.3\nSPINDLE_SPEED\nS\n1\nM5.0\n"
    "1ST_CIRCLE_CENTER_COORDINATE\nI\n1\nM5.3\n2ND_CIRCLE_CENTER_COORDINATE\nJ\n1\nM5.3\n"
    "3RD_CIRCLE_CENTER_COORDINATE\nK\n1\nM5.3\nCIRCLE_CENTER_ABS\n0\n";

// The keys that differ between the two kinds of machine by their suffix alone.
const Entries kMachine = {
    {"RAPID", "G00"},
    {"LINEAR_INTERPOLATION", "G01"},
    {"CIRCULAR_INTERPOLATION_RIGHT", "G02"},
    {"1ST_COORDINATE_INCR", "U\n1\nM5.3"},
    {"2ND_COORDINATE_INCR", "V\n1\nM5.3"},
    {"3RD_COORDINATE_INCR", "W\n1\nM5.3"},
    {"1ST_COORDINATE", "X\n1\nM5.3"},
    {"2ND_COORDINATE", "Y\n1\nM5.3"},
    {"3RD_COORDINATE", "Z\n1\nM5.3"},
};

void append(std::string& text, Entries entries, std::string_view suffix = "") {
    for (const auto& [key, value] : entries) {
        text.append(key).append(suffix).append("\n").append(value).append("\n");
    }
}

} // namespace

std::string dialectOf(Entries entries) {
    std::string text(kHeader);
    append(text, entries);
    return text;
}

std::string mill(Entries entries) {
    std::string text = dialectOf({{"SPINDLE_STOP", "M5"}});
    append(text, kMachine);
    text += kCommon;
    append(text, entries);
    return text;
}

std::string lathe(Entries entries) {
    std::string text =
        dialectOf({{"MFG_CLASS_NAME", "NC_LATHE_MACHINE"}, {"SPINDLE_OFF_LATHE", "M5"}});
    append(text, kMachine, "_LATHE");
    text += kCommon;
    append(text, entries);
    return text;
}
