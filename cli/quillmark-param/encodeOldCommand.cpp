#include "cli/quillmark-param/paramCommands.h"
#include "cli/quillmark-param/paramMessages.h"
#include "paramfile/codeOldLine.h"

int encodeOldCommand(const ParamInput& in, std::FILE* out) {
    if (in.IsCurrentFormat()) {
        return failWith(in.Name(), "of the current format: code it with encode");
    }
    const CharFeldOwner lines = in.Lines();
    for (std::size_t i = 0; lines.get()[i] != nullptr; ++i) {
        OldPhysicalLines physical;
        if (codeOldLine(lines.get()[i], physical) != 0) {
            return failWith(in.Name(), "line " + std::to_string(i + 1) + " cannot be coded");
        }
        std::fprintf(out, "%s\n%s\n%s\n", physical.first.data(), physical.second.data(),
                     physical.third.data());
    }
    return kParamDone;
}
