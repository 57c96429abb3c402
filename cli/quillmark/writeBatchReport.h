#pragma once

#include "cli/quillmark/BatchOptions.h"
#include "cli/quillmark/BatchResult.h"

#include <cstdio>
#include <span>

/// Writes what became of the programs of a batch as one JSON object; docs/batch.md describes its
/// keys. `results` are those of the programs, in their order.
void writeBatchReport(std::FILE* stream, const BatchOptions& options,
                      std::span<const BatchResult> results, int exitStatus) noexcept;
