#include "driver/usualCodes.h"

#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>
#include <charconv>

namespace {

struct Code {
    std::string_view letters; // capitals
    int number = -1;          // -1: none
    bool hasFraction = false;
};

template<class Meaning>
struct Row {
    std::string_view letters;
    int first;
    int last;
    Meaning meaning;
};

constexpr Row<Warning::Kind> kDangers[] = {
    {"G", 17, 19, Warning::Kind::kPlane},     {"G", 20, 20, Warning::Kind::kInch},
    {"G", 70, 70, Warning::Kind::kInch},      {"G", 73, 74, Warning::Kind::kCycle},
    {"G", 76, 76, Warning::Kind::kCycle},     {"G", 81, 89, Warning::Kind::kCycle},
    {"CYCLE", 81, 89, Warning::Kind::kCycle},
};
enum class Machine { kAny, kMill, kLathe };

// Of each the APT says the same without the word.
constexpr Row<Machine> kHarmless[] = {
    {"G", 17, 17, Machine::kMill}, {"G", 18, 18, Machine::kLathe}, {"G", 21, 21, Machine::kAny},
    {"G", 40, 40, Machine::kAny},  {"G", 43, 43, Machine::kMill},  {"G", 49, 49, Machine::kMill},
    {"G", 61, 61, Machine::kAny},  {"G", 64, 64, Machine::kAny},   {"G", 71, 71, Machine::kMill},
    {"G", 94, 94, Machine::kMill},
};
constexpr Row<BlockNote> kNotes[] = {
    {"G", 41, 42, BlockNote::kCompensation},
    {"G", 54, 59, BlockNote::kUnknownOrigin},
    {"G", 505, 599, BlockNote::kUnknownOrigin},
};

Code codeOf(std::string_view word) noexcept {
    const auto* const digits = std::ranges::find_if_not(word, isLetterByte);
    Code code{word.substr(0, static_cast<std::size_t>(digits - word.begin()))};
    const auto [end, error] = std::from_chars(digits, word.end(), code.number);
    code.hasFraction = error == std::errc{} && end != word.end();
    return code;
}

template<class Table>
const auto* find(const Table& table, const Code& code) noexcept {
    const auto* const row = std::ranges::find_if(table, [&](const auto& r) {
        return code.number >= r.first && code.number <= r.last &&
               std::ranges::equal(code.letters, r.letters, {}, toUpperByte);
    });
    return row == std::end(table) ? nullptr : row;
}

} // namespace

std::optional<Warning::Kind> usualDangerOf(std::string_view word, bool isLathe) noexcept {
    const Code code = codeOf(word);
    const auto* const row = find(kDangers, code);
    const int usualPlane = isLathe ? 18 : 17;
    if (row == nullptr || code.hasFraction || code.number == usualPlane) {
        return std::nullopt;
    }
    return row->meaning;
}

std::optional<BlockNote> usualNoteOf(std::string_view word) noexcept {
    const auto* const row = find(kNotes, codeOf(word)); // "G54.1" and "G41.1" as well
    return row == nullptr ? std::nullopt : std::optional(row->meaning);
}

bool isUsuallyHarmless(std::string_view word, bool isLathe) noexcept {
    const Code code = codeOf(word);
    if (find(kNotes, code) != nullptr) {
        return true;
    }
    const auto* const row = find(kHarmless, code);
    return row != nullptr && !code.hasFraction &&
           row->meaning != (isLathe ? Machine::kMill : Machine::kLathe);
}
