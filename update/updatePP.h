#pragma once

#include <cstdio>

/// Results of updatePP; 0 is success.
enum UpdateResult : int {
    kUpdated = 0,
    kUpdateUnreadable = 1,  ///< the old file is corrupt, empty or cannot be read
    kUpdateNoMemory = 2,    ///< memory exhausted; nothing was written
    kUpdateWriteFailed = 3, ///< `out` could not be written completely
};

/// Converts the parameter file of the older generation that `in` holds from its current position on
/// and writes the current format to `out`. Messages go to standard error and standard output.
///
/// Takes over `in`: it is closed exactly once on every path, by liesPP at the end of the file or
/// here after a failure. A caller that needs its stream afterwards hands in one of its own. `out`
/// stays open and the caller's; it is flushed.
///
/// A file whose machine type cannot be told ends the process with status 99 through endProcess.
[[nodiscard]] int updatePP(std::FILE* in, std::FILE* out);
