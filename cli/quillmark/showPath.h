#pragma once

#include "cli/shared/errorLine.h"

/// Why the view of a run cannot have the name `view`: one of the run's files or its report, which
/// may be null, has it. Null when nothing is wrong.
[[nodiscard]] const char* viewObjection(const char* view, const ConversionFiles& files,
                                        const char* report);

/// Lets quillmark-view make `view` of the output, with the blocks of the log where that is a file.
/// It is the one beside this executable, or else the one in PATH. Returns 0, or the exit status of
/// this run after a line on standard error: kExitUsage, or kExitSignal and the signal that ended
/// it.
[[nodiscard]] int showPath(const char* view, const ConversionFiles& files);
