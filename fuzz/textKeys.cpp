// Entries of any keys with any values behind a dialect that the first byte chooses, and behind an
// empty line a program.

#include "fuzz/conversion.h"
#include "fuzz/parameterFiles.h"
#include "paramfile/keys.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace {

std::vector<Key> allKeys() {
    std::vector<Key> keys;
    for (const auto table : keyTables()) {
        keys.insert(keys.end(), table.begin(), table.end());
    }
    return keys;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::vector<Key> kKeys = allKeys();
    static const std::array kDialects{std::string(kLathe) + "REV_MOST_BLOCKS\n50\n",
                                      std::string(kMill) + "REV_MOST_BLOCKS\n50\n"};
    if (size > 0) {
        std::string_view text(reinterpret_cast<const char*>(data), size);
        text.remove_prefix(1);
        const std::string entries = takeEntries(text, kKeys);
        convertControl(kDialects[data[0] % kDialects.size()] + entries, text);
    }
    return 0;
}
