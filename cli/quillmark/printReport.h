#pragma once

#include "cli/quillmark/RunResult.h"
#include "driver/NCScan.h"

#include <cstdio>

/// Blocks read, statements by kind, seconds.
void printSummary(std::FILE* stream, NCScan& scan, const RunResult& result) noexcept;

/// How many blocks hold unrecognised text, on one line; nothing when none does.
void printUnrecognisedCount(std::FILE* stream, NCScan& scan) noexcept;

/// How many warnings there are, on one line; nothing when there are none.
void printWarningCount(std::FILE* stream, const ScanReport& report) noexcept;

/// All that was not understood: the causes of warnings, the worst first, then the count and the
/// words of which none warned; nothing when everything was. Long lists are cut, and it is told
/// where the rest is found.
void printReport(std::FILE* stream, NCScan& scan) noexcept;
