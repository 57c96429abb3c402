#include "softCommon/CStringUtil/arrayGrowth.h"

#include <cstdlib>

char** withRoomForOne(char** array, std::size_t entries, std::size_t increment) noexcept {
    if (array != nullptr && (entries + 1) % increment != 0) {
        return array;
    }
    return static_cast<char**>(std::realloc(array, (entries + increment + 1) * sizeof(char*)));
}
