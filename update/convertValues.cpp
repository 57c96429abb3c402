#include "update/convertValues.h"

#include "update/oldLine.h"

#include <algorithm>

namespace {

constexpr std::size_t kValueWidth = 8;

const KeyMapping* findMapping(std::span<const KeyMapping> mappings, const char* line) noexcept {
    const auto found =
        std::find_if(mappings.begin(), mappings.end(),
                     [line](const KeyMapping& mapping) { return hasKey(line, mapping.oldKey); });
    return found == mappings.end() ? nullptr : &*found;
}

} // namespace

void convertValues(OldLines lines, std::span<const KeyMapping> mappings, ValueOf valueOf,
                   LineCollector& section) noexcept {
    for (int i = 0; lines[i] != nullptr; ++i) {
        const KeyMapping* const mapping = findMapping(mappings, lines[i]);
        if (mapping != nullptr) {
            lines.take(i);
            section.add(mapping->newKey);
            section.add(valueOf(*mapping, lines[i]));
        }
    }
}

char** valueSection(const char* heading, OldLines lines, std::span<const KeyMapping> mappings,
                    ValueOf valueOf) noexcept {
    LineCollector section;
    section.add(heading);
    convertValues(lines, mappings, valueOf, section);
    return section.release();
}

HeapText valueField(const KeyMapping& /*mapping*/, const char* line) noexcept {
    return trimmedColumns(line, kValueColumn, kValueWidth);
}
