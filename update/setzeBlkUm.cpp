#include "update/LineCollector.h"
#include "update/oldLine.h"
#include "update/sectionConverters.h"

namespace {

bool hasLostBlockLine(OldLines lines) noexcept {
    bool isBelowKey = false;
    for (int i = 0; lines[i] != nullptr; ++i) {
        if (isKeyLine(lines[i])) {
            isBelowKey = true;
        } else if (isBelowKey && !lines.isTaken(i)) {
            return true;
        }
    }
    return false;
}

} // namespace

char** setzeBlkUm(OldLines lines, std::FILE* msg) noexcept {
    if (msg != nullptr && hasLostBlockLine(lines)) {
        std::fputs("Macros must be redefined! No automatic update possible!\n", msg);
    }
    LineCollector section;
    section.add("##### Block Section");
    return section.release();
}
