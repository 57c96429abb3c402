#include "softCommon/CErrorUtil/processEnd.h"
#include "update/convertValues.h"
#include "update/keyTables.h"
#include "update/machineTypes.h"
#include "update/oldFileLookups.h"
#include "update/oldLine.h"
#include "update/rotaryAxes.h"
#include "update/sectionConverters.h"
#include "update/versionCopy.h"

#include <cstring>
#include <utility>

namespace {

constexpr int kUndefinedMachineStatus = 99;

HeapText machineValue(const KeyMapping& /*mapping*/, const char* line) noexcept {
    return trimmedColumns(line, kSeparatorColumn);
}

// Returns false when memory is exhausted.
bool addAxis(LineCollector& section, OldLines lines, int axis, const char* kindKey,
             const char* className, int flag) noexcept {
    const long kind = integerFromColumn(suche_paramter(lines, kindKey), kSeparatorColumn);
    RotaryKeys oldKeys;
    RotaryKeys newKeys;
    int count = 0;
    if (setzeKennerAlt(kind, flag, oldKeys, count) != 0 ||
        setzeKennerNeu(axis, className, flag, newKeys, count) != 0) {
        return false;
    }
    section = setzeRotAchseUm(std::move(section), lines, oldKeys, newKeys, count);
    return true;
}

bool isFlipKey(const char* line, const DirectionFlip& flip) noexcept {
    for (const char* const key : flip.keys) {
        if (key != nullptr && std::strcmp(line, key) == 0) {
            return true;
        }
    }
    return false;
}

// Behind its heading a section is pairs of key and value. Stepping by pairs keeps a value that
// reads like a direction key from being taken for one.
void flipDirections(char** section, const MachineType& type) noexcept {
    const DirectionFlip& flip = type.machineClass->flip;
    if (flip.lines == DirectionFlip::Lines::kNone || (flip.nutatorOnly && type.nutatorFlag != 1)) {
        return;
    }
    for (char** key = section + 1; key[0] != nullptr && key[1] != nullptr; key += 2) {
        if (!isFlipKey(key[0], flip)) {
            continue;
        }
        char& direction = key[1][0];
        if (direction != '\0') {
            direction = direction == '1' ? '2' : '1';
        }
        if (flip.lines == DirectionFlip::Lines::kFirst) {
            return;
        }
    }
}

[[noreturn]] void endOnUndefinedMachine() {
    std::fputs("Undefined Machine Type - no automatic update possible\n", stderr);
    endProcess({.kind = ProcessEnd::Kind::kExit, .status = kUndefinedMachineStatus});
}

// Returns false when memory is exhausted.
bool addRotaryAxes(LineCollector& section, OldLines lines, const MachineType& type) noexcept {
    const MachineClass& machine = *type.machineClass;
    // The nutator belongs to the first axis alone.
    if (!addAxis(section, lines, 1, "*5XKRDAA", machine.name, type.nutatorFlag) ||
        !addAxis(section, lines, 2, "*5XKRDUA", machine.name, 0)) {
        return false;
    }
    if (machine.axisPriority != nullptr) {
        section.add("MFG_AXIS_PRIORITY");
        section.add(machine.axisPriority);
    }
    return true;
}

} // namespace

char** setzeTdbUm(OldLines lines, std::FILE* /*msg*/) {
    const MachineType* const type = findMachineType(lines);
    if (type == nullptr) {
        endOnUndefinedMachine();
    }
    (void)suche_paramter(lines, "*VERSION"); // known, but of no use
    if (versionCopy(lines) != 0) {
        return nullptr;
    }
    LineCollector section;
    section.add("##### Toolmachine Section (TDB)");
    section.add("MFG_CLASS_NAME");
    section.add(type->machineClass->name);
    convertValues(lines, machineKeys(), machineValue, section);
    if (type->machineClass->hasRotaryAxes && !addRotaryAxes(section, lines, *type)) {
        return nullptr;
    }
    char** const result = section.release();
    if (result != nullptr) {
        flipDirections(result, *type);
    }
    return result;
}
