#include "update/machineTypes.h"

#include "update/oldFileLookups.h"
#include "update/oldLine.h"

#include <array>
#include <cstddef>
#include <cstring>

namespace {

using Lines = DirectionFlip::Lines;

constexpr int kLathe = 12;

constexpr MachineClass kStandard = {.name = "NC_STANDARD_MACHINES"};
constexpr MachineClass kFiveAxis = {.name = "NC_FIVE_AXIS_MACHINES"};
constexpr MachineClass kStandardLathe = {.name = "NC_STANDARD_LATHE_MACHINES"};
constexpr MachineClass kUndefined7 = {.name = "UNDEFINED 7"};
constexpr MachineClass kUndefined8 = {.name = "UNDEFINED 8"};
constexpr MachineClass kDeleted10 = {.name = "DELETED 10"};

constexpr MachineClass kTwoOnHead = {
    .name = "NC_TWO_AXIS_ON_HEAD_MACHINES",
    .hasRotaryAxes = true,
    .axisPriority = "HEAD_FIRST",
    .flip = {.lines = Lines::kAll, .keys = {"MFG_SPN_POS_WAY", "MFG_SPN_POS_WAY_2"}}};

constexpr MachineClass kTwoOnTable = {.name = "NC_TWO_AXIS_ON_TABLE_MACHINES",
                                      .hasRotaryAxes = true,
                                      .axisPriority = "TABLE_FIRST",
                                      .flip = {.lines = Lines::kAll,
                                               .nutatorOnly = true,
                                               .keys = {"MFG_ROT_POS_WAY", "MFG_ROT_POS_WAY_2"}}};

constexpr MachineClass kTableAndHead = {
    .name = "NC_AXIS_ON_TABLE_HEAD_MACHINES",
    .hasRotaryAxes = true,
    .flip = {.lines = Lines::kFirst, .keys = {"MFG_SPN_POS_WAY", nullptr}}};

constexpr std::array<MachineType, kMachineTypes> kTypes = {{
    {&kStandard, 0},
    {&kTwoOnHead, 0},
    {&kTwoOnHead, 0},
    {&kTwoOnTable, 0},
    {&kFiveAxis, 0},
    {&kTableAndHead, 0},
    {&kTwoOnHead, 1},
    {&kUndefined7, 1},
    {&kUndefined8, 0},
    {&kTwoOnTable, 1},
    {&kDeleted10, 1},
    {&kTableAndHead, 0},
    {&kStandardLathe, 1},
}};

long readType(OldLines lines) noexcept {
    const char* const fork = suche_paramter(lines, "*5XGABEL");
    const char* const machine = suche_paramter(lines, "*MACHTYP");
    if (fork != nullptr && strnlen(fork, kSeparatorColumn) == kSeparatorColumn) {
        return integerFromColumn(fork, kSeparatorColumn);
    }
    return machine != nullptr && std::strstr(machine, "LATHE") != nullptr ? kLathe : -1;
}

} // namespace

const MachineType* findMachineType(OldLines lines) noexcept {
    const long type = readType(lines);
    return type < 0 || type >= kMachineTypes ? nullptr : &kTypes[static_cast<std::size_t>(type)];
}
