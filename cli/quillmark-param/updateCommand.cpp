#include "update/updatePP.h"

#include "cli/quillmark-param/paramCommands.h"
#include "cli/quillmark-param/paramMessages.h"
#include "cli/shared/movementCommands.h"
#include "paramfile/ParamScan.h"

#include <cerrno>
#include <cstring>
#include <new>

namespace {

// A file that cannot be scanned to its end is for check to explain.
bool configuresMovement(std::FILE* plain) {
    NCScan model;
    model.SetNoOutput();
    ParamScan scan(model);
    if (std::fseek(plain, 0, SEEK_SET) == 0 && scan.SetParameterStream(plain) == 0) {
        (void)scan.run();
    }
    return configuresMovement(model);
}

} // namespace

int updateCommand(const ParamInput& in, std::FILE* out) {
    if (in.IsCurrentFormat()) {
        return failWith(in.Name(), "of the current format already");
    }
    FileOwner stream = in.Open();
    if (stream == nullptr) {
        return failWith(in.Name(), std::strerror(errno));
    }
    switch (updatePP(stream.release(), out)) {
    case kUpdated:
        break;
    case kUpdateNoMemory:
        throw std::bad_alloc();
    case kUpdateWriteFailed:
        return failWith(in.Name(), "the temporary file for the result cannot be written");
    default:
        return failWith(in.Name(),
                        "cannot be updated: it is damaged, or it is no coded file of the older "
                        "generation");
    }
    if (!configuresMovement(out)) {
        warnOf(in.Name(), kNoMovementCommand);
    }
    return kParamDone;
}
