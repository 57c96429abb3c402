#pragma once

#include "update/OldLines.h"

inline constexpr int kMachineTypes = 13;

/// Which direction values of the rotary axes turn round in the current format. The classes differ;
/// that is wanted.
struct DirectionFlip {
    enum class Lines { kNone, kFirst, kAll };

    Lines lines = Lines::kNone;
    bool nutatorOnly = false; ///< machines without a nutator keep their directions
    const char* keys[2] = {}; ///< the keys above the values; null for none
};

struct MachineClass {
    const char* name;
    bool hasRotaryAxes = false;
    const char* axisPriority = nullptr; ///< value of "MFG_AXIS_PRIORITY"; null for none
    DirectionFlip flip = {};
};

struct MachineType {
    const MachineClass* machineClass;
    int nutatorFlag; ///< 1 or 0
};

/// The machine of an old file, or null when its type is none of the kMachineTypes.
[[nodiscard]] const MachineType* findMachineType(OldLines lines) noexcept;
