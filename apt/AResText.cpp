#include "apt/AResText.h"

#include "apt/StatementText.h"

#include <algorithm>

namespace {

constexpr std::size_t kMostCharacters = 66;

char printable(char c) noexcept {
    if (c == '$') {
        return 'S';
    }
    return c >= ' ' && c <= '~' ? c : '?';
}

} // namespace

void AResText::WriteComment(std::string_view comment) { writeText("PPRINT ", comment); }

void AResText::WriteProgramName(std::string_view name) { writeText("PARTNO ", name); }

void AResText::writeText(std::string_view word, std::string_view text) const {
    while (!text.empty()) {
        std::array<char, kMostCharacters> part{};
        const std::size_t length = std::min(text.size(), part.size());
        std::transform(text.begin(), text.begin() + length, part.begin(), printable);
        StatementText statement;
        statement.add(word).add({part.data(), length}).add("\n");
        write(StatementKind::kText, statement);
        text.remove_prefix(length);
    }
}
