#include "update/LineCollector.h"
#include "update/oldFileLookups.h"
#include "update/oldLine.h"
#include "update/sectionConverters.h"

#include <array>

namespace {

constexpr int kCycles = 35;

using Text = std::array<char, 96>;

// The number of a cycle as the last two characters of a name.
Text numbered(const char* name, int cycle) noexcept {
    Text text{};
    std::snprintf(text.data(), text.size(), "%s%02d", name, cycle);
    return text;
}

const char* findSetting(OldLines lines, const char* name, int cycle) noexcept {
    return suche_paramter(lines, numbered(name, cycle).data());
}

long numberOr(const char* line, long missing) noexcept {
    return line == nullptr ? missing : integerFromColumn(line, kSeparatorColumn);
}

void addText(OldLines lines, int cycle, LineCollector& section) noexcept {
    const char* const line = findSetting(lines, "*CYCAP", cycle);
    section.add(trimmedColumns(line == nullptr ? "" : line, kSeparatorColumn));
}

void addBlock(OldLines lines, const char* name, int cycle, LineCollector& section) noexcept {
    const BlockRange block = findBlock(lines, numbered(name, cycle).data());
    if (block.first == block.end) {
        section.add("");
    }
    for (int i = block.first; i < block.end; ++i) {
        section.add(lines[i]);
    }
}

} // namespace

char** setzeCycUm(OldLines lines, std::FILE* /*msg*/) noexcept {
    const long oldMkoo = numberOr(suche_paramter(lines, "*CYCMKOO"), 0);
    const long mkoo = oldMkoo == 2 ? 1 : oldMkoo;
    const long atEnd = numberOr(suche_paramter(lines, "*CYCANEN"), 0);
    LineCollector section;
    section.add("##### Cycle Section");
    for (int cycle = 1; cycle <= kCycles; ++cycle) {
        section.add(numbered("CYCLE_", cycle).data());
        addText(lines, cycle, section);
        Text numbers{};
        std::snprintf(numbers.data(), numbers.size(), "%ld,%ld,%ld,%ld",
                      numberOr(findSetting(lines, "*CYCBH", cycle), 1),
                      numberOr(findSetting(lines, "*CYCLK", cycle), 1), mkoo, atEnd);
        section.add(numbers.data());
        addBlock(lines, "*CYCPL", cycle, section);
        addBlock(lines, "*CYCPK", cycle, section);
    }
    return section.release();
}
