#include "update/unconvertedKeyLines.h"

#include "paramfile/vxveh.h"
#include "softCommon/CStringUtil/fixedField.h"
#include "update/LineCollector.h"
#include "update/oldLine.h"
#include "update/sections.h"

#include <array>
#include <cstring>
#include <new>

namespace {

// With the blanks that liesPP leaves: a machine type of blanks is one.
CharFeldOwner wholeLines(char* const* lines) noexcept {
    LineCollector copies;
    for (; *lines != nullptr; ++lines) {
        std::array<char, kOldLineLength + 1> line{};
        s2fcpy(line.data(), *lines, kOldLineLength);
        copies.add(line.data());
    }
    return CharFeldOwner(copies.release());
}

bool sameValues(const char* left, const char* right) noexcept {
    return std::strcmp(textFromColumn(left, kSeparatorColumn),
                       textFromColumn(right, kSeparatorColumn)) == 0;
}

} // namespace

std::unique_ptr<bool[]> unconvertedKeyLines(char* const* lines) {
    const CharFeldOwner copy = wholeLines(lines);
    const std::unique_ptr<LineMark[]> marks = newLineMarks(lines);
    const auto count = static_cast<std::size_t>(sizeofCharFeld(lines));
    std::unique_ptr<bool[]> isLost(new (std::nothrow) bool[count + 1]());
    Sections sections; // of no use here: the marks are what is wanted
    if (copy == nullptr || marks == nullptr || isLost == nullptr ||
        convertSections({copy.get(), marks.get()}, nullptr, sections) != 0) {
        return nullptr;
    }
    for (std::size_t i = 0; i < count; ++i) {
        const auto& [isTaken, source] = marks[i];
        const bool isReplaced = source >= 0 && !sameValues(lines[i], lines[source]);
        isLost[i] = isKeyLine(lines[i]) && (isReplaced || !isTaken);
    }
    return isLost;
}
