#include "tests/support/dialects.h"

namespace {

const Entries kCommon = {
    {"COMMENT_START", "("},
    {"COMMENT_END", ")"},
    {"RECORD_NUMBER", "N"},
    {"DECIMAL_POINT_REPRESENTATION", "."},
    {"CIRCULAR_INTERPOLATION_LEFT", "G03"},
    {"ABSOLUTE_ON", "G90"},
    {"INCREMENTAL_ON", "G91"},
    {"FEEDRAT_MMPM", "G94"},
    {"FEEDRAT_MMPR", "G95"},
    {"SPINDLE_CLOCKWISE", "M3"},
    {"SPINDLE_COUNTER_CLOCKWISE", "M4"},
    {"COOLANT_ON", "M8"},
    {"COOLANT_OFF", "M9"},
    {"PROGRAM_END", "M30"},
    {"FEEDRATE", "F\n1\nM5.3"},
    {"SPINDLE_SPEED", "S\n1\nM5.0"},
    {"1ST_CIRCLE_CENTER_COORDINATE", "I\n1\nM5.3"},
    {"2ND_CIRCLE_CENTER_COORDINATE", "J\n1\nM5.3"},
    {"3RD_CIRCLE_CENTER_COORDINATE", "K\n1\nM5.3"},
    {"CIRCLE_CENTER_ABS", "0"},
};

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
    append(text, kCommon);
    append(text, entries);
    return text;
}

std::string lathe(Entries entries) {
    std::string text =
        dialectOf({{"MFG_CLASS_NAME", "NC_LATHE_MACHINE"}, {"SPINDLE_OFF_LATHE", "M5"}});
    append(text, kMachine, "_LATHE");
    append(text, kCommon);
    append(text, entries);
    return text;
}
