// A parameter file of any generation, used by a program with every kind of word.

#include "fuzz/conversion.h"
#include "fuzz/parameterFiles.h"

#include <cstddef>
#include <cstdint>

namespace {

constexpr char kProgram[] = "N1 (part) G90 G94 F1000. T1 M6\nS500 M3 M8\nG0 X10. Y-2,5 Z25\n"
                            "G1 Z-.5 F250\nG2 X=AC(0) Y-10. I-10. J0 K=IC(1)\nG91 G3 X1 Z1 I5\n"
                            "U1 V2 W3 G95\nX1234567890123456789.5 Y00000000000000000001\n"
                            "M9 M5 M4\n; all\nM30\n";

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    convert(parameterFileOf({reinterpret_cast<const char*>(data), size}), kProgram);
    return 0;
}
