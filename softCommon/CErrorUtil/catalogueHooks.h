#pragma once

#include <cstdint>

/// Places where settings of the catalogue would be loaded. They do nothing and return 0.

int gueini(std::int32_t severity) noexcept; ///< settings of one severity, 1 to 5
int glogon() noexcept;
int catgeo() noexcept;
