#include "update/versionCopy.h"

#include "update/oldFileLookups.h"
#include "update/oldLine.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr KeyMapping kRenamedKeys[] = {
    {"*NEWP559", "*5XNUT01"}, {"*NEWP441", "*5XAL1DR"}, {"*NEWP442", "*5XAL2DR"},
    {"*NEWP443", "*5XAL3DR"}, {"*NEWP444", "*5XAL1NP"}, {"*NEWP445", "*5XAL2NP"},
    {"*NEWP446", "*5XAL3NP"},
};

} // namespace

std::span<const KeyMapping> renamedKeys() noexcept { return kRenamedKeys; }

int versionCopy(char** lines) noexcept {
    for (const auto& [oldKey, newKey] : kRenamedKeys) {
        const int found = gibIndex_tdb(lines, oldKey);
        if (found < 0) {
            continue;
        }
        char* renamed = lines[found];
        const int replaced = gibIndex_tdb(lines, newKey);
        if (replaced >= 0) {
            renamed = strdup(lines[found]);
            if (renamed == nullptr) {
                std::fputs("versionCopy: FATAL - malloc failed!\n", stderr);
                return 1;
            }
            std::free(lines[replaced]);
            lines[replaced] = renamed;
        }
        std::memcpy(renamed, newKey, kKeyLength);
    }
    return 0;
}
