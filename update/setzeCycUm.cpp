#include "update/LineCollector.h"
#include "update/cycleKeys.h"
#include "update/oldFileLookups.h"
#include "update/oldLine.h"
#include "update/sectionConverters.h"

namespace {

long numberOr(const char* line, long missing) noexcept {
    return line == nullptr ? missing : integerFromColumn(line, kSeparatorColumn);
}

const char* findSetting(char* const* lines, CycleSetting setting, int cycle) noexcept {
    return suche_paramter(lines, cycleKeyText({setting, cycle}).data());
}

void addText(char* const* lines, int cycle, LineCollector& section) noexcept {
    const char* const line = findSetting(lines, kCycleText, cycle);
    section.add(trimmedColumns(line == nullptr ? "" : line, kSeparatorColumn));
}

void addBlock(char* const* lines, CycleSetting setting, int cycle,
              LineCollector& section) noexcept {
    const BlockRange block = findBlock(lines, cycleKeyText({setting, cycle}).data());
    if (block.first == block.end) {
        section.add("");
    }
    for (int i = block.first; i < block.end; ++i) {
        section.add(lines[i]);
    }
}

} // namespace

char** setzeCycUm(char** lines, std::FILE* /*msg*/) noexcept {
    const long oldMkoo = numberOr(suche_paramter(lines, kCycleMkooKey), 0);
    const long mkoo = oldMkoo == 2 ? 1 : oldMkoo;
    const long atEnd = numberOr(suche_paramter(lines, kCyclesAtEndKey), 0);
    LineCollector section;
    section.add("##### Cycle Section");
    for (int cycle = 1; cycle <= kCycles; ++cycle) {
        std::array<char, 96> text{};
        std::snprintf(text.data(), text.size(), "CYCLE_%02ld", static_cast<long>(cycle));
        section.add(text.data());
        addText(lines, cycle, section);
        std::snprintf(text.data(), text.size(), "%ld,%ld,%ld,%ld",
                      numberOr(findSetting(lines, kCycleBh, cycle), 1),
                      numberOr(findSetting(lines, kCycleLk, cycle), 1), mkoo, atEnd);
        section.add(text.data());
        addBlock(lines, kCycleBlockL, cycle, section);
        addBlock(lines, kCycleBlockK, cycle, section);
    }
    return section.release();
}
