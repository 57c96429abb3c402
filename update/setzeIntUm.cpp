#include "update/convertValues.h"
#include "update/keyTables.h"
#include "update/oldLine.h"
#include "update/sectionConverters.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>
#include <iterator>

namespace {

struct Rule {
    const char* newKey;
    long (*apply)(long oldNumber) noexcept;
};

long oneMinus(long number) noexcept {
    return number < -LONG_MAX + 1 ? LONG_MAX : 1 - number; // stops at the limit
}
long isZero(long number) noexcept { return number == 0 ? 1 : 0; }

// Keys whose sense turned round between the generations. The two inversions differ for numbers
// other than 0 and 1; that is wanted.
constexpr Rule kRules[] = {
    {"HAS_RTCP_TABLE", oneMinus},
    {"RECORD_FORMAT_FIXED", oneMinus},
    {"NOBLANK", isZero},
};

HeapText integerValue(const KeyMapping& mapping, const char* line) noexcept {
    const auto* const rule =
        std::find_if(std::begin(kRules), std::end(kRules), [&mapping](const Rule& row) {
            return std::strcmp(row.newKey, mapping.newKey) == 0;
        });
    if (rule == std::end(kRules)) {
        return valueField(mapping, line);
    }
    std::array<char, 24> digits{};
    std::snprintf(digits.data(), digits.size(), "%ld",
                  rule->apply(integerFromColumn(line, kValueColumn)));
    return HeapText(strdup(digits.data()));
}

} // namespace

char** setzeIntUm(OldLines lines, std::FILE* /*msg*/) noexcept {
    return valueSection("##### Integer Section", lines, integerKeys(), integerValue);
}
