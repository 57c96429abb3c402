#pragma once

/// Puts something on the standard descriptors that the caller closed. Otherwise a file would be
/// opened there, and what is printed would land in it. Input is empty, errors vanish, and output
/// fails as on any descriptor that cannot be written.
void occupyStandardDescriptors() noexcept;

/// Whether all that was printed reached standard output; else after a line of `program` on standard
/// error.
[[nodiscard]] bool flushStandardOutput(const char* program) noexcept;
