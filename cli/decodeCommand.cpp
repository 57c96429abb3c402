#include "cli/oldFile.h"
#include "cli/paramCommands.h"
#include "cli/paramMessages.h"
#include "paramfile/codingMarks.h"
#include "paramfile/ppcrypt.h"

#include <algorithm>

namespace {

constexpr const char* kPlainMark = "#FILE:       UNCODED";

int failDecoding(const ParamInput& in) {
    return failWith(in.Name(), "cannot be decoded: it is damaged, was coded with another key, or "
                               "is no parameter file");
}

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

int decodeCurrent(const ParamInput& in, std::FILE* out) {
    const CharFeldOwner lines = in.Lines();
    const auto head = plainHead(lines.get());
    const bool wasPlain = saysPlain(head);
    if (!wasPlain && !hasSectionLine(head)) {
        return failWith(in.Name(), "nothing to decode: the line \"##### Toolmachine Section\" that "
                                   "begins the coded part is missing");
    }
    const std::size_t mark = placeOfMark(head);
    if (ppcrypt(1, lines.get()) != 0) {
        return failDecoding(in);
    }
    for (std::size_t i = 0; lines.get()[i] != nullptr; ++i) {
        const char* const line = lines.get()[i];
        const bool isMarked = i == mark && !wasPlain;
        if (isMarked) {
            std::fprintf(out, "%s\n", kPlainMark);
        }
        if (!isMarked || !(line[0] == '\0' || isFileLine(line))) {
            std::fprintf(out, "%s\n", line);
        }
    }
    return kParamDone;
}

int decodeOld(const ParamInput& in, std::FILE* out) {
    const CharFeldOwner lines = readOldFile(in);
    if (lines == nullptr) {
        return failDecoding(in);
    }
    if (*lines == nullptr) {
        return failWith(in.Name(), "the file holds no record");
    }
    for (char* const* line = lines.get(); *line != nullptr; ++line) {
        std::fprintf(out, "%s\n", *line);
    }
    return kParamDone;
}

} // namespace

int decodeCommand(const ParamInput& in, std::FILE* out) {
    return in.IsCurrentFormat() ? decodeCurrent(in, out) : decodeOld(in, out);
}
