#pragma once

/// Puts /dev/null on the standard descriptors that the caller closed. Otherwise a file would be
/// opened there, and what is printed would land in it.
void occupyStandardDescriptors() noexcept;
