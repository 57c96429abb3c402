#include "update/LineCollector.h"
#include "update/oldLine.h"
#include "update/sectionConverters.h"
#include "update/takenLines.h"

namespace {

bool hasLostBlockLine(char* const* lines, const bool* taken) noexcept {
    bool isBelowKey = false;
    for (int i = 0; lines[i] != nullptr; ++i) {
        if (isKeyLine(lines[i])) {
            isBelowKey = true;
        } else if (isBelowKey && !taken[i]) {
            return true;
        }
    }
    return false;
}

} // namespace

char** setzeBlkUm(char** lines, std::FILE* msg) noexcept {
    const std::unique_ptr<bool[]> taken = takenLines(lines);
    if (taken == nullptr) {
        return nullptr;
    }
    if (hasLostBlockLine(lines, taken.get())) {
        std::fputs("Macros must be redefined! No automatic update possible!\n", msg);
    }
    LineCollector section;
    section.add("##### Block Section");
    return section.release();
}
