#include "softCommon/CStringUtil/vstrcat.h"

#include <cstdarg>
#include <cstdlib>
#include <cstring>

char* vstrcat(const char* first, ...) noexcept {
    if (first == nullptr) {
        return nullptr;
    }
    std::va_list strings;
    va_start(strings, first);
    std::va_list measured;
    va_copy(measured, strings);
    std::size_t length = 0;
    for (const char* s = first; s != nullptr; s = va_arg(measured, const char*)) {
        length += std::strlen(s);
    }
    va_end(measured);

    char* const joined = static_cast<char*>(std::malloc(length + 1));
    if (joined != nullptr) {
        char* end = joined;
        for (const char* s = first; s != nullptr; s = va_arg(strings, const char*)) {
            end = stpcpy(end, s);
        }
    }
    va_end(strings);
    return joined;
}
