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

char** unconvertedKeyLines(char* const* lines) noexcept {
    const CharFeldOwner renamed = copyOf(lines);
    if (renamed == nullptr || versionCopy(renamed.get()) != 0) {
        return nullptr;
    }
    const std::unique_ptr<bool[]> taken = takenLines(renamed.get());
    if (taken == nullptr) {
        return nullptr;
    }
    LineCollector lost;
    for (int i = 0; lines[i] != nullptr; ++i) {
        const char* const current = renamed.get()[i];
        const bool isReplaced = hasKey(lines[i], current) && std::strcmp(lines[i], current) != 0;
        if (isKeyLine(lines[i]) && (isReplaced || !taken[static_cast<std::size_t>(i)])) {
            lost.add(lines[i]);
        }
    }
    return lost.release();
}
