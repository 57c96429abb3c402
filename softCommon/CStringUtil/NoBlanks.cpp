#include "softCommon/CStringUtil/NoBlanks.h"

#include <algorithm>
#include <cstring>

void NoBlanks(char* string) noexcept {
    if (string != nullptr) {
        *std::remove(string, string + std::strlen(string), ' ') = '\0';
    }
}
