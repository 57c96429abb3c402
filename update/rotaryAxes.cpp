#include "update/rotaryAxes.h"

#include "update/oldFileLookups.h"
#include "update/oldLine.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace {

using KeyList = std::array<const char*, kRotaryKeys>;

constexpr KeyList kOldKeys[] = {
    {"A", "*5XAL1MX", "*5XAL1MN", "*5XAL1NP", "*5XAL1XW", "*5XAL1YW", "*5XAL1ZW", "*5XAL1DR",
     "*5XNUT01"},
    {"B", "*5XAL2MX", "*5XAL2MN", "*5XAL2NP", "*5XAL2XW", "*5XAL2YW", "*5XAL2ZW", "*5XAL2DR",
     "*5XNUT01"},
    {"C", "*5XAL3MX", "*5XAL3MN", "*5XAL3NP", "*5XAL3XW", "*5XAL3YW", "*5XAL3ZW", "*5XAL3DR",
     "*5XNUT01"},
};
constexpr int kKinds = 3;

constexpr KeyList kTable1 = {
    "MFG_ROTARY_AXIS",  "MFG_MAX_ROT_POS",  "MFG_MIN_ROT_POS",
    "MFG_INIT_ROT_POS", "MFG_X_ROT_CENTER", "MFG_Y_ROT_CENTER",
    "MFG_Z_ROT_CENTER", "MFG_ROT_POS_WAY",  "N3C_NUTATOR_ANGLE",
};
constexpr KeyList kTable2 = {
    "MFG_ROTARY_AXIS_2",  "MFG_MAX_ROT_POS_2", "MFG_MIN_ROT_POS_2",
    "MFG_INIT_ROT_POS_2", "MFG_X_ROT_CNTR_2",  "MFG_Y_ROT_CNTR_2",
    "MFG_Z_ROT_CNTR_2",   "MFG_ROT_POS_WAY_2", "N3C_NUTATOR_ANGLE",
};
constexpr KeyList kHead1 = {
    "MFG_SPNDL_AXIS",    "MFG_SPNDL_MAXPOS", "MFG_SPNDL_MINPOS",
    "N3C_SPNDL_INITPOS", "MFG_X_SPNDL_CTR",  "MFG_Y_SPNDL_CTR",
    "MFG_Z_SPNDL_CTR",   "MFG_SPN_POS_WAY",  "N3C_NUTATOR_ANGLE",
};
constexpr KeyList kHead2 = {
    "MFG_SPNDL_AXIS_2",  "MFG_SPNDL_MAXPS2",  "MFG_SPNDL_MINPS2",
    "N3C_SPNDL_INITPS2", "MFG_X_SPNDL_CTR_2", "MFG_Y_SPNDL_CTR_2",
    "MFG_Z_SPNDL_CTR_2", "MFG_SPN_POS_WAY_2", "N3C_NUTATOR_ANGLE",
};

struct ClassLists {
    const char* className;
    const KeyList* axes[2];
};

constexpr ClassLists kClassLists[] = {
    {"NC_TWO_AXIS_ON_TABLE_MACHINES", {&kTable1, &kTable2}},
    {"NC_TWO_AXIS_ON_HEAD_MACHINES", {&kHead1, &kHead2}},
    {"NC_AXIS_ON_TABLE_HEAD_MACHINES", {&kTable1, &kHead1}},
};

std::span<const char* const> oldRotaryKeys(long kind) noexcept {
    if (kind < 1 || kind > kKinds) {
        return {};
    }
    return kOldKeys[kind - 1];
}

std::span<const char* const> newRotaryKeys(int axis, const char* className) noexcept {
    for (const ClassLists& row : kClassLists) {
        if ((axis == 1 || axis == 2) && std::strcmp(row.className, className) == 0) {
            return *row.axes[axis - 1];
        }
    }
    return {};
}

int copyKeys(std::span<const char* const> list, int flag, RotaryKeys& keys, int& count) noexcept {
    keys = {};
    count = flag == 1 ? 9 : 8;
    if (list.empty()) {
        return 0;
    }
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        keys[i].reset(strdup(list[i]));
        if (keys[i] == nullptr) {
            std::fputs("setzeKenner: FATAL - malloc failed!\n", stderr);
            return 1;
        }
    }
    return 0;
}

} // namespace

int setzeKennerAlt(long kind, int flag, RotaryKeys& keys, int& count) noexcept {
    return copyKeys(oldRotaryKeys(kind), flag, keys, count);
}

int setzeKennerNeu(int axis, const char* className, int flag, RotaryKeys& keys,
                   int& count) noexcept {
    return copyKeys(newRotaryKeys(axis, className), flag, keys, count);
}

LineCollector setzeRotAchseUm(LineCollector out, OldLines lines, RotaryKeys& oldKeys,
                              RotaryKeys& newKeys, int count) noexcept {
    if (oldKeys[0] != nullptr && newKeys[0] != nullptr) {
        out.add(newKeys[0].get());
        out.add(oldKeys[0].get());
        const auto end = static_cast<std::size_t>(std::clamp<int>(count, 0, kRotaryKeys));
        for (std::size_t i = 1; i < end; ++i) {
            if (oldKeys[i] == nullptr || newKeys[i] == nullptr) {
                continue; // the ninth entry, of sets with different flags
            }
            const char* const line = suche_paramter(lines, oldKeys[i].get());
            if (line != nullptr) {
                out.add(newKeys[i].get());
                out.add(trimmedColumns(line, kSeparatorColumn));
            }
        }
    }
    oldKeys = {};
    newKeys = {};
    return out;
}
