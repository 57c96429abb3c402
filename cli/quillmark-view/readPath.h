#pragma once

#include "path/ToolPath.h"

inline constexpr const char* kProgramName = "quillmark-view";

/// Reads an APT file and, unless `log` is null, its log. Tells on standard error what was passed
/// over, or in one line why there is no path; then it returns false. A path has a movement.
[[nodiscard]] bool readPath(const char* apt, const char* log, ToolPath& path);
