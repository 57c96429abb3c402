#pragma once

#include <cstdlib>
#include <memory>

/// Owns one string from malloc, strdup and the like.
struct FreeHeapText {
    void operator()(char* text) const noexcept { std::free(text); }
};
using HeapText = std::unique_ptr<char, FreeHeapText>;
