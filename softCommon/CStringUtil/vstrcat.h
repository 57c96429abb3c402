#pragma once

/// Joins `first` and the strings behind it, up to a null pointer that ends the list, into a new
/// heap string that the caller frees. Returns null when `first` is null or memory is exhausted.
[[nodiscard]] char* vstrcat(const char* first, ...) noexcept __attribute__((sentinel));
