#pragma once

#include "include/quillmark_messages.h"

/// Appends an empty record to the error stack, which owns it. Null when memory is exhausted:
/// nothing is reported then and the run goes on, in contrast to SetErrStackPar.
[[nodiscard]] ErrorStackRecord* appendErrorRecord(std::int32_t msgnr) noexcept;
