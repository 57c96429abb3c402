#include "update/unconvertedKeyLines.h"

#include "update/LineCollector.h"
#include "update/oldLine.h"
#include "update/takenLines.h"
#include "update/versionCopy.h"

#include <cstring>

namespace {

CharFeldOwner copyOf(char* const* lines) noexcept {
    LineCollector copy;
    for (; *lines != nullptr; ++lines) {
        copy.add(*lines);
    }
    return CharFeldOwner(copy.release());
}

} // namespace

std::unique_ptr<bool[]> unconvertedKeyLines(char* const* lines) noexcept {
    const CharFeldOwner renamed = copyOf(lines);
    if (renamed == nullptr || versionCopy(renamed.get()) != 0) {
        return nullptr;
    }
    std::unique_ptr<bool[]> marks = takenLines(renamed.get());
    if (marks == nullptr) {
        return nullptr;
    }
    for (std::size_t i = 0; lines[i] != nullptr; ++i) {
        const char* const current = renamed.get()[i];
        const bool isReplaced = hasKey(lines[i], current) && std::strcmp(lines[i], current) != 0;
        marks[i] = isKeyLine(lines[i]) && (isReplaced || !marks[i]);
    }
    return marks;
}
