#pragma once

#include <cstdlib>
#include <memory>

/// Owns a string that came from malloc.
struct HeapStringDeleter {
    void operator()(char* string) const noexcept { std::free(string); }
};
using HeapString = std::unique_ptr<char, HeapStringDeleter>;
