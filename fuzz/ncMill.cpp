// An NC program in a milling dialect.

#include "fuzz/conversion.h"
#include "fuzz/parameterFiles.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    convert(kMill, {reinterpret_cast<const char*>(data), size});
    return 0;
}
