#pragma once

#include "softCommon/CStringUtil/CharFeld.h"
#include "update/OldLines.h"

#include <array>
#include <cstdio>

/// The sections of a file of the current format, in their order there.
using Sections = std::array<CharFeldOwner, 9>;

/// Fills `sections` from the old lines (not null) by all converters, which rename keys in them and
/// mark what they take. `msg` takes their messages; null for none. Returns 0, or 1 when memory is
/// exhausted. Ends the process like setzeTdbUm.
[[nodiscard]] int convertSections(OldLines lines, std::FILE* msg, Sections& sections);
