// A parameter file and a program for it, parted by the line "====".

#include "fuzz/conversion.h"
#include "fuzz/parameterFiles.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::string_view kParting = "\n====\n";
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t parted = std::min(input.find(kParting), size);
    const std::size_t program = std::min(parted + kParting.size(), size);
    convert(parameterFileOf(input.substr(0, parted)), input.substr(program));
    return 0;
}
