#pragma once

/// Whether all that was printed reached standard output; else after a line of `program` on standard
/// error.
[[nodiscard]] bool flushStandardOutput(const char* program) noexcept;
