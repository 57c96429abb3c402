// An NC program in a lathe dialect.

#include "fuzz/conversion.h"
#include "fuzz/parameterFiles.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    convert(kLathe, {reinterpret_cast<const char*>(data), size});
    return 0;
}
