#pragma once

#include <cstdlib>
#include <memory>

struct FreeHeapText {
    void operator()(char* text) const noexcept { std::free(text); }
};

/// Owns one string from malloc, strdup and the like: an entry of a `CharFeld` outside its array.
using HeapText = std::unique_ptr<char, FreeHeapText>;
