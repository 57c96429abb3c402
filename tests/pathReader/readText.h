#pragma once

#include "path/AptReader.h"
#include "path/ToolPath.h"

#include <string>
#include <string_view>

/// The path of an APT text, which can be read.
[[nodiscard]] ToolPath pathOf(std::string_view apt);

/// "LINE: REASON" of an APT text that cannot be read; empty when it can.
[[nodiscard]] std::string errorOf(std::string_view apt);

/// The blocks of a log beside its APT, taken into the path; empty or the reason.
[[nodiscard]] std::string addBlocks(ToolPath& path, std::string_view log, std::string_view apt);
