// A machine with rotary axes and a program for it: entries of the machine behind a dialect that the
// first byte chooses, and behind an empty line the blocks.

#include "fuzz/conversion.h"
#include "fuzz/parameterFiles.h"
#include "paramfile/keys.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string kCoarse = "LINEAR_TOLERANCE\n0.5\nREV_AXIS_TOLERANCE\n5\n";
    static const std::array kDialects{bundledDialect("five-axis-table") + kCoarse,
                                      bundledDialect("five-axis-head") + kCoarse};
    if (size > 0) {
        std::string_view text(reinterpret_cast<const char*>(data), size);
        text.remove_prefix(1);
        const std::string entries = takeEntries(text, axisKeys());
        convertControl(kDialects[data[0] % kDialects.size()] + entries, withShortNumbers(text));
    }
    return 0;
}
