#pragma once

#include "commands/BlockNote.h"
#include "driver/Warning.h"

#include <optional>
#include <string_view>

/// What a word that no recogniser took means on most controls, by its number alone. For hints: it
/// knows no dialect.

/// The danger of leaving it out: a plane that is not the machine's usual one, inches, a cycle.
[[nodiscard]] std::optional<Warning::Kind> usualDangerOf(std::string_view word,
                                                         bool isLathe) noexcept;

/// What is worth a note: a work offset, a compensation.
[[nodiscard]] std::optional<BlockNote> usualNoteOf(std::string_view word) noexcept;

/// Whether a word does nothing to the path by the usual numbers: what is a note, the usual plane,
/// mm, what ends compensation, lengths of tools, ways of moving exactly, feed per minute.
[[nodiscard]] bool isUsuallyHarmless(std::string_view word, bool isLathe) noexcept;
