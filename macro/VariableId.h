#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Which variable: a name, or a number when there is no name. A name is without blanks, and in
/// capitals where the family does not tell letters apart by their case. It belongs to someone else,
/// mostly the Expression that spelled it.
struct VariableId {
    std::int64_t number = 0;
    std::string_view name;

    [[nodiscard]] static VariableId Numbered(std::int64_t number) noexcept { return {number, {}}; }
    [[nodiscard]] static VariableId Named(std::string_view name) noexcept { return {0, name}; }

    [[nodiscard]] bool isNamed() const noexcept { return !name.empty(); }
    /// The name or the number, for messages.
    [[nodiscard]] std::string toText() const;
};
