#include "cli/quillmark-param/decodedLines.h"

#include "paramfile/codingMarks.h"
#include "paramfile/ppcrypt.h"

#include <algorithm>

namespace {

// The line of the head that is to say that the file is plain: a "#FILE:" line, or the first of
// those that coding emptied. Without either it goes in behind the first line.
std::size_t placeOfMark(std::span<char* const> head) noexcept {
    const auto isEmptied = [](const char* line) { return line[0] == '\0'; };
    auto place = std::find_if(head.begin(), head.end(), isFileLine);
    if (place == head.end()) {
        place = std::find_if(head.begin(), head.end(), isEmptied);
    }
    return place == head.end() ? 1 : static_cast<std::size_t>(place - head.begin());
}

} // namespace

std::optional<std::vector<std::string>> decodedLines(char** lines) {
    const auto head = plainHead(lines);
    const bool wasPlain = saysPlain(head);
    const std::size_t mark = placeOfMark(head);
    if (ppcrypt(1, lines) != 0) {
        return std::nullopt;
    }
    std::vector<std::string> plain;
    for (std::size_t i = 0; lines[i] != nullptr; ++i) {
        const char* const line = lines[i];
        const bool isMarked = i == mark && !wasPlain;
        if (isMarked) {
            plain.emplace_back(kPlainMark);
        }
        if (!isMarked || !(line[0] == '\0' || isFileLine(line))) {
            plain.emplace_back(line);
        }
    }
    return plain;
}
