#include "apt/StatementText.h"

#include <algorithm>
#include <charconv>
#include <iterator>

StatementText& StatementText::add(int value) noexcept {
    const auto [last, error] = std::to_chars(end(), limit(), value);
    return endAt(error == std::errc{} ? last : nullptr);
}

StatementText& StatementText::plain(double value, std::ptrdiff_t width, int decimals) noexcept {
    char* const begin = end();
    const auto [last, error] =
        std::to_chars(begin, limit(), value, std::chars_format::fixed, decimals);
    const std::ptrdiff_t blanks = std::max<std::ptrdiff_t>(0, width - (last - begin));
    if (error != std::errc{} || limit() - last < blanks) {
        return endAt(nullptr);
    }
    std::move_backward(begin, last, last + blanks);
    std::fill_n(begin, blanks, ' ');
    return endAt(last + blanks);
}
