#pragma once

#include "update/OldLines.h"

#include <cstdio>

/// The converters of the updater. Each takes the lines of an old file (not null), in which it marks
/// what it takes over, and the stream for its messages (null for none), and returns the lines of
/// its section of the current format as a new `CharFeld` that begins with the heading; null when
/// memory is exhausted. A key that the old file lacks is not converted. Only setzeTdbUm changes the
/// lines, through versionCopy.
using SectionConverter = char** (*)(OldLines lines, std::FILE* msg);

/// The five header lines. Version and date are the same whatever the day.
[[nodiscard]] char** setzeHeader(OldLines lines, std::FILE* msg) noexcept;

/// The tool-machine section: machine class, limits and rotary axes. When the machine type cannot be
/// told, it says so on standard error and ends the process with status 99.
[[nodiscard]] char** setzeTdbUm(OldLines lines, std::FILE* msg);

/// The address section.
[[nodiscard]] char** setzeAdrUm(OldLines lines, std::FILE* msg) noexcept;

/// The string section: values as they stand in columns 10 to 17.
[[nodiscard]] char** setzeStrUm(OldLines lines, std::FILE* msg) noexcept;

/// The integer section. It repeats the keys of the string section; that is wanted. Three of its
/// keys changed their meaning and are recomputed.
[[nodiscard]] char** setzeIntUm(OldLines lines, std::FILE* msg) noexcept;

/// The real section: values are copied as text.
[[nodiscard]] char** setzeR8Um(OldLines lines, std::FILE* msg) noexcept;

/// The cycle section: a group for every cycle from 1 to 35, settings or not.
[[nodiscard]] char** setzeCycUm(OldLines lines, std::FILE* msg) noexcept;

/// The block section, a heading only. Writes to `msg` that macros must be redefined when the old
/// file has block lines that no converter before it has marked as taken.
[[nodiscard]] char** setzeBlkUm(OldLines lines, std::FILE* msg) noexcept;

/// The macro section, a heading only.
[[nodiscard]] char** setzeMacUm(OldLines lines, std::FILE* msg) noexcept;
