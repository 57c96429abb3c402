#include "softCommon/CStringUtil/stricmp.h"

#include "softCommon/CStringUtil/asciiBytes.h"

int stricmp(const char* left, const char* right) noexcept {
    for (;; ++left, ++right) {
        const auto l = static_cast<unsigned char>(toLowerByte(*left));
        const auto r = static_cast<unsigned char>(toLowerByte(*right));
        if (l != r || l == 0) {
            return l - r;
        }
    }
}
