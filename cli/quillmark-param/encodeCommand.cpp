#include "cli/quillmark-param/decodedLines.h"
#include "cli/quillmark-param/paramCommands.h"
#include "cli/quillmark-param/paramMessages.h"
#include "paramfile/codingMarks.h"
#include "paramfile/ppcrypt.h"

#include <algorithm>

namespace {

// Coding empties the mark, and decoding writes it in one spelling. One that says more would lose
// it.
std::string withUsualMark(const char* line) {
    std::string blankless(line);
    std::erase(blankless, ' ');
    return blankless == "#FILE:UNCODED" || blankless == "#FILE:uncoded" ? kPlainMark : line;
}

std::vector<std::string> plainLines(char* const* lines) {
    const std::size_t headLength = plainHead(lines).size();
    std::vector<std::string> plain;
    for (std::size_t i = 0; lines[i] != nullptr; ++i) {
        plain.push_back(i < headLength ? withUsualMark(lines[i]) : lines[i]);
    }
    return plain;
}

} // namespace

int encodeCommand(const ParamInput& in, std::FILE* out) {
    if (!in.IsCurrentFormat()) {
        return failWith(in.Name(),
                        "not of the current format: the first line does not contain \"Header\"");
    }
    const CharFeldOwner lines = in.Lines();
    const auto head = plainHead(lines.get());
    if (!hasSectionLine(head)) {
        return failWith(in.Name(), "nothing to code: the line \"##### Toolmachine Section\" that "
                                   "begins the coded part is missing");
    }
    if (!saysPlain(head)) {
        return failWith(in.Name(), "coded already: no \"#FILE:\" line above the line \"##### "
                                   "Toolmachine Section\" says UNCODED");
    }
    const std::vector<std::string> plain = plainLines(lines.get());
    if (ppcrypt(0, lines.get()) != 0) {
        return failWith(in.Name(), "cannot be coded");
    }
    for (char* const* line = lines.get(); *line != nullptr; ++line) {
        std::fprintf(out, "%s\n", *line);
    }
    // The plain file may be about to be overwritten: what cannot be had back is not coded.
    const auto decoded = decodedLines(lines.get());
    if (!decoded || *decoded != plain) {
        const auto lost = decoded ? std::ranges::mismatch(plain, *decoded).in1 : plain.begin();
        return failWith(in.Name(), "cannot be coded: decoding would not give back line " +
                                       std::to_string(lost - plain.begin() + 1));
    }
    return kParamDone;
}
