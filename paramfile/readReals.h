#pragma once

#include <optional>
#include <span>
#include <string_view>

/// Reads exactly as many finite numbers as there is room for, separated by ";" and perhaps blanks.
/// False, with `numbers` undefined, when the text is anything else.
[[nodiscard]] bool readReals(std::string_view text, std::span<double> numbers) noexcept;

/// One such number.
[[nodiscard]] std::optional<double> readOneReal(std::string_view text) noexcept;
