#include "include/quillmark.h"

#include <cstring>
#include <string_view>

namespace {

constexpr std::string_view kBanner = "V1R8 TALLOWFIELD     [00007] (d)06.12.2004 (t)17:27:23";
static_assert(kBanner.size() == 54);

} // namespace

void gtvers(char* buffer, int* length) noexcept {
    std::memcpy(buffer, kBanner.data(), kBanner.size());
    *length = static_cast<int>(kBanner.size());
}
