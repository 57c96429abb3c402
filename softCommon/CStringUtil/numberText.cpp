#include "softCommon/CStringUtil/numberText.h"

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <limits>
#include <locale.h>

std::int32_t readInteger(const char* text) noexcept {
    return static_cast<std::int32_t>(std::clamp<long>(readLong(text),
                                                      std::numeric_limits<std::int32_t>::min(),
                                                      std::numeric_limits<std::int32_t>::max()));
}

long readLong(const char* text) noexcept { return std::strtol(text, nullptr, 10); }

double readReal(const char* text) noexcept {
    // The "C" locale object is static in the C library: made once, it needs no memory and no end.
    static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", nullptr);
    return strtod_l(text, nullptr, cLocale);
}
