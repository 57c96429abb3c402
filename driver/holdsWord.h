#pragma once

#include "program/Vocabulary.h"

#include <string_view>

/// Whether the words of a block hold one that the dialect knows: a code, or an address with a
/// value. Quotations hold none. May throw std::bad_alloc.
[[nodiscard]] bool holdsWord(std::string_view words, const Vocabulary& vocabulary);
