#include "cli/quillmark-param/decodedLines.h"
#include "cli/quillmark-param/oldFile.h"
#include "cli/quillmark-param/paramCommands.h"
#include "cli/quillmark-param/paramMessages.h"
#include "paramfile/codingMarks.h"

namespace {

int failDecoding(const ParamInput& in) {
    return failWith(in.Name(), "cannot be decoded: it is damaged, was coded with another key, or "
                               "is no parameter file");
}

int decodeCurrent(const ParamInput& in, std::FILE* out) {
    const CharFeldOwner lines = in.Lines();
    const auto head = plainHead(lines.get());
    if (!saysPlain(head) && !hasSectionLine(head)) {
        return failWith(in.Name(), "nothing to decode: the line \"##### Toolmachine Section\" that "
                                   "begins the coded part is missing");
    }
    const auto plain = decodedLines(lines.get());
    if (!plain) {
        return failDecoding(in);
    }
    for (const std::string& line : *plain) {
        std::fprintf(out, "%s\n", line.c_str());
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
