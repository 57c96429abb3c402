#pragma once

#include "cli/quillmark/RunResult.h"
#include "driver/NCScan.h"

#include <cstdio>

/// Writes the report of a run as one JSON object; docs/report.md describes its keys.
void writeJsonReport(std::FILE* stream, NCScan& scan, const RunResult& result) noexcept;
