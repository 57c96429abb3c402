#pragma once

#include <cstddef>
#include <string_view>

/// The length of the valid UTF-8 sequence at the start of `text`, which is not empty; 0 for none.
/// Overlong forms, surrogates and codes beyond U+10FFFF are not valid.
[[nodiscard]] std::size_t utf8SequenceLength(std::string_view text) noexcept;
