#include "paramfile/codingMarks.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace {

constexpr std::string_view kFileTag = "#FILE:";
constexpr std::string_view kLastPlainLine = "##### Toolmachine Section";

bool isLastPlainLine(const char* line) noexcept {
    return std::string_view(line).starts_with(kLastPlainLine);
}

} // namespace

std::span<char* const> plainHead(char* const* lines) noexcept {
    std::size_t length = 0;
    while (lines[length] != nullptr) {
        if (isLastPlainLine(lines[length++])) {
            break;
        }
    }
    return {lines, length};
}

bool hasSectionLine(std::span<char* const> head) noexcept {
    return !head.empty() && isLastPlainLine(head.back());
}

bool isFileLine(const char* line) noexcept { return std::string_view(line).starts_with(kFileTag); }

bool marksPlainFile(const char* line) noexcept {
    return isFileLine(line) &&
           (std::strstr(line, "UNCODED") != nullptr || std::strstr(line, "uncoded") != nullptr);
}

bool saysPlain(std::span<char* const> head) noexcept {
    return std::any_of(head.begin(), head.end(), marksPlainFile);
}
