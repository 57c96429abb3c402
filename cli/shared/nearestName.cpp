#include "cli/shared/nearestName.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>

namespace {

constexpr std::size_t kLongest = 40; // of the names that are compared

bool isSameLetter(char left, char right) noexcept {
    return std::tolower(static_cast<unsigned char>(left)) ==
           std::tolower(static_cast<unsigned char>(right));
}

// Row by row: the changes that make the first letters of `right` out of those of `left`. Small and
// capital letters are the same.
std::size_t changesBetween(std::string_view left, std::string_view right) noexcept {
    std::array<std::size_t, kLongest + 1> row{};
    for (std::size_t i = 0; i <= right.size(); ++i) {
        row[i] = i;
    }
    for (std::size_t i = 0; i < left.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < right.size(); ++j) {
            const std::size_t replaced = diagonal + (isSameLetter(left[i], right[j]) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row[right.size()];
}

} // namespace

std::string_view nearestName(std::string_view name, std::span<const std::string_view> candidates,
                             std::size_t most) noexcept {
    std::string_view nearest;
    std::size_t fewest = std::min(name.size() / 3, most) + 1;
    for (const std::string_view candidate : candidates) {
        const std::size_t longer = std::max(name.size(), candidate.size());
        const std::size_t shorter = std::min(name.size(), candidate.size());
        if (longer > kLongest || longer - shorter >= fewest) {
            continue;
        }
        if (const std::size_t changes = changesBetween(name, candidate); changes < fewest) {
            fewest = changes;
            nearest = candidate;
        }
    }
    return nearest;
}
