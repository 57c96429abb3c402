#pragma once

#include <span>
#include <string_view>

/// The candidate that `name` was most likely meant to be: the one that the fewest letters to
/// insert, remove or replace make of it. Empty when none comes near.
[[nodiscard]] std::string_view nearestName(std::string_view name,
                                           std::span<const std::string_view> candidates) noexcept;
