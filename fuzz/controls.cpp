// A program for one of the dialects that come with the system, which the first byte chooses. Corpus
// and dictionary of the target say what it is about: cycles or frames.

#include "fuzz/conversion.h"
#include "fuzz/parameterFiles.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::array kDialects{
        bundledDialect("hash-mill"),        bundledDialect("o-word-mill"),
        bundledDialect("r-parameter-mill"), bundledDialect("hash-lathe-a"),
        bundledDialect("hash-lathe-b"),     bundledDialect("o-word-lathe"),
        bundledDialect("r-parameter-lathe")};
    if (size > 0) {
        const std::string_view text(reinterpret_cast<const char*>(data), size);
        convertControl(kDialects[data[0] % kDialects.size()], text.substr(1));
    }
    return 0;
}
