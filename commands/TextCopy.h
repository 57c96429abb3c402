#pragma once

#include <memory>

/// A private copy of a text of the parameter file; null when none was set or memory was exhausted.
using TextCopy = std::unique_ptr<char[]>;

/// Copies `text`. Returns null for a null text and when memory is exhausted.
[[nodiscard]] TextCopy copyText(const char* text) noexcept;
