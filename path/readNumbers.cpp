#include "path/readNumbers.h"

#include <charconv>
#include <cmath>

namespace {

constexpr double kLargest = 1e10; // its digits fit into 53 bits

constexpr const char* kTexts[] = {
    "nothing is wrong",           "a number is missing",
    "a number is none (NaN)",     "a number is larger than any machine",
    "there are too many numbers", "a number is followed by something else",
};

const char* skipBlanks(const char* text, const char* end) noexcept {
    while (text != end && (*text == ' ' || *text == '\t')) {
        ++text;
    }
    return text;
}

} // namespace

const char* textOf(NumberFault fault) noexcept { return kTexts[static_cast<std::size_t>(fault)]; }

NumberFault readNumbers(std::string_view& text, std::span<double> values,
                        std::size_t& count) noexcept {
    const char* at = text.data();
    const char* const end = at + text.size();
    for (count = 0; count < values.size();) {
        at = skipBlanks(at, end);
        if (at != end && *at == '+') {
            ++at;
        }
        double& value = values[count];
        const auto [last, error] = std::from_chars(at, end, value);
        if (error == std::errc::invalid_argument) {
            return NumberFault::kMissing;
        }
        if (error == std::errc{} && std::isnan(value)) {
            return NumberFault::kNotANumber;
        }
        if (error != std::errc{} || std::fabs(value) > kLargest) {
            return NumberFault::kTooLarge;
        }
        ++count;
        at = skipBlanks(last, end);
        if (at == end || *at == ')') {
            text.remove_prefix(static_cast<std::size_t>(at - text.data()));
            return NumberFault::kNone;
        }
        if (*at != ',') {
            return NumberFault::kFollowed;
        }
        ++at;
    }
    return NumberFault::kTooMany;
}
