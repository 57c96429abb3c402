#include "softCommon/CErrorUtil/ersetzeFehlerVariablen.h"

#include "include/quillmark_messages.h"
#include "softCommon/CErrorUtil/CLocaleScope.h"
#include "softCommon/CStringUtil/asciiBytes.h"
#include "softCommon/CStringUtil/string_mani.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace {

// An empty name ends a group.
constexpr std::size_t kSlots = 14;
constexpr const char* kPlaceholders[][kSlots] = {
    {"&C01", "&C02", "&C03", "&C04", "&C05", "", "", "", "", "", "", "", "", ""},
    {"&I01", "&I02", "&I03", "&I04", "&I05", "&I06", "&I07", "&I08", "&I09", "&I10", "&I11", "&I12",
     "", ""},
    {"&R01", "&R02", "&R03", "&R04", "&R05", "&R06", "&R07", "&R08", "&R09", "&R10", "&R11", "&R12",
     "", ""},
    {"&F01", "&F02", "&F03", "&F04", "&F05", "&F06", "&F07", "&F08", "&F09", "&F10", "&F11", "&F12",
     "", ""},
};

constexpr unsigned kMaxWidth = 200;
constexpr unsigned kMaxPrecision = 60;
constexpr std::size_t kFormatAhead = 39; // characters looked at behind a placeholder

// What takes the place of a placeholder. The longest is a real: a sign, 309 digits, a point and
// kMaxPrecision digits.
struct Replacement {
    char text[400];
    std::size_t length;
    std::size_t consumed; // characters behind the placeholder that go with it
};

Replacement stringGroup(std::size_t slot, const char* /*behind*/) noexcept {
    Replacement value{};
    value.length =
        static_cast<std::size_t>(std::clamp(error_charlen[slot], 0, kMessageStringWidth));
    std::memcpy(value.text, error_char[slot].data(), value.length);
    return value;
}

template<class Number>
Replacement numberValue(const char* format, Number number) noexcept {
    Replacement value{};
    const CLocaleScope decimalPoint;
    (void)std::snprintf(value.text, sizeof value.text, format, number);
    string_mani(3, value.text);
    value.length = std::strlen(value.text);
    return value;
}

// Cuts the digits at the front of `text`; true when their number is at most `limit`.
bool cutNumber(std::string_view& text, unsigned limit) noexcept {
    unsigned number = 0;
    while (!text.empty() && isDigitByte(text.front())) {
        number = std::min(number * 10 + static_cast<unsigned>(text.front() - '0'), limit + 1);
        text.remove_prefix(1);
    }
    return number <= limit;
}

// Flags, digits, optionally a point and digits: nothing else may become part of a format.
bool isWidthAndPrecision(std::string_view text) noexcept {
    text.remove_prefix(std::min(text.find_first_not_of("-+ #0"), text.size()));
    if (!cutNumber(text, kMaxWidth)) {
        return false;
    }
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        if (!cutNumber(text, kMaxPrecision)) {
            return false;
        }
    }
    return text.empty();
}

Replacement realValue(std::size_t slot, const char* behind, const char* defaultFormat) noexcept {
    char ahead[kFormatAhead + 1] = {};
    std::memcpy(ahead, behind, strnlen(behind, kFormatAhead));
    string_mani(3, ahead);
    char* const close = std::strchr(ahead, ')');
    if (ahead[0] != '(' || close == nullptr ||
        !isWidthAndPrecision({ahead + 1, static_cast<std::size_t>(close - ahead - 1)})) {
        return numberValue(defaultFormat, error_r8[slot]);
    }
    *close = '\0';
    char format[kFormatAhead + 4];
    (void)std::snprintf(format, sizeof format, "%%%slf", ahead + 1);
    Replacement value = numberValue(format, error_r8[slot]);
    value.consumed = std::strspn(behind, " ") + static_cast<std::size_t>(close - ahead + 1);
    return value;
}

Replacement integerGroup(std::size_t slot, const char* /*behind*/) noexcept {
    return numberValue("%12d", error_i4[slot]);
}
Replacement realGroup(std::size_t slot, const char* behind) noexcept {
    return realValue(slot, behind, "%lf");
}
Replacement fixedGroup(std::size_t slot, const char* behind) noexcept {
    return realValue(slot, behind, "%15.5lf");
}

struct Group {
    const std::int32_t& count;
    Replacement (*value)(std::size_t slot, const char* behind) noexcept;
};
const Group kGroups[] = {
    {error_nbchar, stringGroup},
    {error_ni4, integerGroup},
    {error_nr8, realGroup},
    {error_nr8, fixedGroup},
};

// Puts `value` in the place of the `placeholder` within the first `limit` characters of the line.
void replace(char* line, std::size_t limit, char* placeholder, std::size_t placeholderLength,
             const Replacement& value) noexcept {
    const auto before = std::min(static_cast<std::size_t>(placeholder - line), limit);
    const char* const behind = placeholder + placeholderLength + value.consumed;
    const std::size_t inserted = std::min(value.length, limit - before);
    const std::size_t kept = std::min(std::strlen(behind), limit - before - inserted);
    std::memmove(line + before + inserted, behind, kept);
    std::memcpy(line + before, value.text, inserted);
    line[before + inserted + kept] = '\0';
}

} // namespace

void ersetzeFehlerVariablen(char* line, int length) noexcept {
    if (length <= 0) {
        return;
    }
    for (std::size_t group = 0; group < std::size(kGroups); ++group) {
        const auto* const names = kPlaceholders[group];
        const std::int32_t count = kGroups[group].count;
        for (std::size_t slot = 0; static_cast<std::int32_t>(slot) < count && *names[slot] != '\0';
             ++slot) {
            const std::size_t nameLength = std::strlen(names[slot]);
            if (char* const place = std::strstr(line, names[slot])) {
                replace(line, static_cast<std::size_t>(length - 1), place, nameLength,
                        kGroups[group].value(slot, place + nameLength));
            }
        }
    }
}
