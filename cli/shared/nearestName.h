#pragma once

#include <cstddef>
#include <span>
#include <string_view>

/// The candidate that `name` was most likely meant to be: the one that the fewest letters to
/// insert, remove or replace make of it. Empty when none comes near: more letters than `most` or
/// than a third of the name are another name.
[[nodiscard]] std::string_view nearestName(std::string_view name,
                                           std::span<const std::string_view> candidates,
                                           std::size_t most = 3) noexcept;
