// A program that computes, in one of the three families. The first byte of the input names it.

#include "fuzz/conversion.h"
#include "fuzz/parameterFiles.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace {

// What an endless program executes before it is stopped goes with the length of its lines.
constexpr std::size_t kMostBytes = 600;

std::string dialect(const char* language) {
    return std::string(kMill) + "REV_PROGRAM_LANGUAGE\n" + language + "\nREV_MOST_BLOCKS\n50\n";
}

std::string rParameterDialect() {
    constexpr std::string_view kComment = "COMMENT_START\n(\nCOMMENT_END\n)\n";
    std::string text = dialect("R_PARAMETER");
    return text.replace(text.find(kComment), kComment.size(), "COMMENT_START\n;\n");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::array<std::string, 3> kDialects{dialect("HASH"), dialect("O_WORD"),
                                                      rParameterDialect()};
    if (size > 0) {
        const std::string_view text(reinterpret_cast<const char*>(data), size);
        convertControl(kDialects[data[0] % kDialects.size()], text.substr(1, kMostBytes));
    }
    return 0;
}
