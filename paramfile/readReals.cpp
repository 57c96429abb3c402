#include "paramfile/readReals.h"

#include <charconv>
#include <cmath>

namespace {

std::string_view trimmed(std::string_view text) noexcept {
    const std::size_t begin = text.find_first_not_of(' ');
    return begin == std::string_view::npos
               ? std::string_view()
               : text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

bool readReal(std::string_view text, double& number) noexcept {
    text = trimmed(text);
    if (text.starts_with('+')) {
        text.remove_prefix(1);
    }
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, number);
    return error == std::errc{} && last == end && std::isfinite(number);
}

} // namespace

bool readReals(std::string_view text, std::span<double> numbers) noexcept {
    for (double& number : numbers.first(numbers.size() - 1)) {
        const std::size_t separator = text.find(';');
        if (separator == std::string_view::npos || !readReal(text.substr(0, separator), number)) {
            return false;
        }
        text.remove_prefix(separator + 1);
    }
    return readReal(text, numbers.back());
}

std::optional<double> readOneReal(std::string_view text) noexcept {
    double number = 0.0;
    return readReals(text, {&number, 1}) ? std::optional(number) : std::nullopt;
}
