#include "update/oldFileLookups.h"

#include "update/LineCollector.h"
#include "update/oldLine.h"

#include <cstring>

namespace {

int indexOfPrefix(char* const* lines, const char* prefix, std::size_t length) noexcept {
    if (lines != nullptr) {
        for (int i = 0; lines[i] != nullptr; ++i) {
            if (std::strncmp(lines[i], prefix, length) == 0) {
                return i;
            }
        }
    }
    return -1;
}

} // namespace

const char* suche_paramter(char* const* lines, const char* key) noexcept {
    const int index = indexOfPrefix(lines, key, kKeyLength);
    return index < 0 ? nullptr : lines[index];
}

int gibIndex_tdb(char* const* lines, const char* key) noexcept {
    return indexOfPrefix(lines, key, std::strlen(key));
}

BlockRange findBlock(char* const* lines, const char* key) noexcept {
    const int keyIndex = indexOfPrefix(lines, key, kKeyLength);
    if (keyIndex < 0) {
        return {};
    }
    BlockRange block{keyIndex + 1, keyIndex + 1};
    while (lines[block.end] != nullptr && !isKeyLine(lines[block.end])) {
        ++block.end;
    }
    return block;
}

char** suche_blk(char* const* lines, const char* key) noexcept {
    const BlockRange block = findBlock(lines, key);
    if (block.first == block.end) {
        return nullptr;
    }
    LineCollector copy;
    for (int i = block.first; i < block.end; ++i) {
        copy.add(lines[i]);
    }
    return copy.release();
}
