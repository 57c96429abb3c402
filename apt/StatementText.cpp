#include "apt/StatementText.h"

#include <charconv>

StatementText& StatementText::add(int value) noexcept {
    const auto [last, error] = std::to_chars(end(), limit(), value);
    return endAt(error == std::errc{} ? last : nullptr);
}
