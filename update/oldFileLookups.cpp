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

// Returns the index of the first line with `key`, or -1.
int takeKeyLine(OldLines lines, const char* key) noexcept {
    const int index = indexOfPrefix(lines.get(), key, kKeyLength);
    if (index >= 0) {
        lines.take(index);
    }
    return index;
}

} // namespace

const char* suche_paramter(OldLines lines, const char* key) noexcept {
    const int index = takeKeyLine(lines, key);
    return index < 0 ? nullptr : lines[index];
}

int gibIndex_tdb(char* const* lines, const char* key) noexcept {
    return indexOfPrefix(lines, key, std::strlen(key));
}

BlockRange findBlock(OldLines lines, const char* key) noexcept {
    const int keyIndex = takeKeyLine(lines, key);
    if (keyIndex < 0) {
        return {};
    }
    BlockRange block{keyIndex + 1, keyIndex + 1};
    while (lines[block.end] != nullptr && !isKeyLine(lines[block.end])) {
        lines.take(block.end++);
    }
    return block;
}

char** suche_blk(OldLines lines, const char* key) noexcept {
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
