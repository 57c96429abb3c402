#include "update/convertValues.h"

#include "update/oldLine.h"

#include <algorithm>

namespace {

constexpr std::size_t kValueWidth = 8;

} // namespace

const KeyMapping* findMapping(std::span<const KeyMapping> mappings, const char* line) noexcept {
    const auto found =
        std::find_if(mappings.begin(), mappings.end(),
                     [line](const KeyMapping& mapping) { return hasKey(line, mapping.oldKey); });
    return found == mappings.end() ? nullptr : &*found;
}

void convertValues(char* const* lines, std::span<const KeyMapping> mappings, ValueOf valueOf,
                   LineCollector& section) noexcept {
    for (; *lines != nullptr; ++lines) {
        if (const KeyMapping* const mapping = findMapping(mappings, *lines); mapping != nullptr) {
            section.add(mapping->newKey);
            section.add(valueOf(*mapping, *lines));
        }
    }
}

char** valueSection(const char* heading, char* const* lines, std::span<const KeyMapping> mappings,
                    ValueOf valueOf) noexcept {
    LineCollector section;
    section.add(heading);
    convertValues(lines, mappings, valueOf, section);
    return section.release();
}

HeapText valueField(const KeyMapping& /*mapping*/, const char* line) noexcept {
    return trimmedColumns(line, kValueColumn, kValueWidth);
}
