#include "update/takenLines.h"

#include "softCommon/CStringUtil/CharFeld.h"
#include "update/convertValues.h"
#include "update/cycleKeys.h"
#include "update/keyTables.h"
#include "update/machineTypes.h"
#include "update/oldFileLookups.h"
#include "update/oldLine.h"
#include "update/rotaryAxes.h"

#include <new>

namespace {

// Marks the first line with `key`, the one that a lookup finds.
void markLookup(char* const* lines, const char* key, bool* taken) noexcept {
    const int index = gibIndex_tdb(lines, key);
    if (index >= 0) {
        taken[index] = true;
    }
}

void markAxis(char* const* lines, const char* kindKey, int flag, bool* taken) noexcept {
    markLookup(lines, kindKey, taken);
    const long kind = integerFromColumn(suche_paramter(lines, kindKey), kSeparatorColumn);
    const std::span<const char* const> keys = oldRotaryKeys(kind);
    for (std::size_t i = 1; i + (flag == 1 ? 0U : 1U) < keys.size(); ++i) {
        markLookup(lines, keys[i], taken);
    }
}

void markMachine(char* const* lines, bool* taken) noexcept {
    for (const char* const key : {kForkKey, kMachineKey, "*VERSION"}) {
        markLookup(lines, key, taken);
    }
    const MachineType* const type = findMachineType(lines);
    if (type != nullptr && type->machineClass->hasRotaryAxes) {
        markAxis(lines, kFirstAxisKey, type->nutatorFlag, taken);
        markAxis(lines, kSecondAxisKey, 0, taken);
    }
}

void markTables(char* const* lines, bool* taken) noexcept {
    for (int i = 0; lines[i] != nullptr; ++i) {
        for (const auto& table : {machineKeys(), addressKeys(), integerKeys(), realKeys()}) {
            taken[i] = taken[i] || findMapping(table, lines[i]) != nullptr;
        }
    }
}

void markCycles(char* const* lines, bool* taken) noexcept {
    markLookup(lines, kCycleMkooKey, taken);
    bool seen[kCycleSettings][kCycles + 1] = {};
    bool inBlock = false;
    for (int i = 0; lines[i] != nullptr; ++i) {
        inBlock = inBlock && !isKeyLine(lines[i]);
        if (const auto key = cycleKeyOf(lines[i]); key && !seen[key->setting][key->cycle]) {
            seen[key->setting][key->cycle] = true;
            taken[i] = true;
            inBlock = inBlock || key->setting == kCycleBlockL || key->setting == kCycleBlockK;
        }
        taken[i] = taken[i] || inBlock;
    }
}

void markRenamed(char* const* lines, bool* taken) noexcept {
    for (const auto& [oldKey, newKey] : renamedKeys()) {
        const int renamed = gibIndex_tdb(lines, newKey);
        if (renamed >= 0 && taken[renamed]) {
            markLookup(lines, oldKey, taken);
        }
    }
}

} // namespace

std::unique_ptr<bool[]> takenLines(char* const* lines) noexcept {
    const auto count = static_cast<std::size_t>(sizeofCharFeld(lines));
    std::unique_ptr<bool[]> taken(new (std::nothrow) bool[count + 1]());
    if (taken != nullptr) {
        markMachine(lines, taken.get());
        markTables(lines, taken.get());
        markCycles(lines, taken.get());
        markRenamed(lines, taken.get());
    }
    return taken;
}
