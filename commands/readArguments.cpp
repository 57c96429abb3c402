#include "commands/readArguments.h"

#include "commands/wordMatcher.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <string_view>

namespace {

// Nothing but blanks is a value that is left out.
bool readArgument(std::string_view text, std::optional<double>& value) {
    const std::size_t begin = text.find_first_not_of(' ');
    if (begin == std::string_view::npos) {
        return true;
    }
    text = text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
    text.remove_prefix(text.starts_with('+') ? 1 : 0);
    double number = 0.0;
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, number);
    value = number;
    return error == std::errc{} && last == end && std::isfinite(number);
}

} // namespace

bool readArguments(char* line, std::vector<std::optional<double>>& arguments) {
    arguments.clear();
    char* const open = std::strchr(line, '(');
    if (open == nullptr) {
        return true;
    }
    char* const close = std::strchr(open, ')');
    if (close == nullptr) {
        return false;
    }
    std::string_view rest(open + 1, static_cast<std::size_t>(close - open - 1));
    for (bool isLast = false; !isLast;) {
        const std::size_t comma = rest.find(',');
        isLast = comma == std::string_view::npos;
        if (!readArgument(rest.substr(0, comma), arguments.emplace_back())) {
            return false;
        }
        rest.remove_prefix(isLast ? rest.size() : comma + 1);
    }
    cutOut(open, close + 1);
    return true;
}
