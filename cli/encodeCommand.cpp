#include "cli/paramCommands.h"
#include "cli/paramMessages.h"
#include "paramfile/codingMarks.h"
#include "paramfile/ppcrypt.h"

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
    if (ppcrypt(0, lines.get()) != 0) {
        return failWith(in.Name(), "cannot be coded");
    }
    for (char* const* line = lines.get(); *line != nullptr; ++line) {
        std::fprintf(out, "%s\n", *line);
    }
    return kParamDone;
}
