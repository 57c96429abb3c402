#include "update/versionCopy.h"

#include "update/keyTables.h"
#include "update/oldFileLookups.h"
#include "update/oldLine.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

int versionCopy(OldLines lines) noexcept {
    for (const auto& [oldKey, newKey] : renamedKeys()) {
        const int found = gibIndex_tdb(lines.get(), oldKey);
        if (found < 0) {
            continue;
        }
        char* renamed = lines[found];
        const int replaced = gibIndex_tdb(lines.get(), newKey);
        if (replaced >= 0) {
            renamed = strdup(lines[found]);
            if (renamed == nullptr) {
                std::fputs("versionCopy: FATAL - malloc failed!\n", stderr);
                return 1;
            }
            std::free(lines[replaced]);
            lines[replaced] = renamed;
            lines.setSource(replaced, found);
        }
        std::memcpy(renamed, newKey, kKeyLength);
    }
    return 0;
}
