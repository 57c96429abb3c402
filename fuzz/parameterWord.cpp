// One address word: the first line is its text, a blank, and the decimal separator; the second the
// number of decimal places; the rest is the block.

#include "commands/MachineStatus.h"
#include "commands/Parameter.h"
#include "softCommon/CStringUtil/numberText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

namespace {

std::string cutLine(std::string& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string line = text.substr(0, end);
    text.erase(0, end + 1);
    return line;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string rest(reinterpret_cast<const char*>(data), size);
    const std::string words = cutLine(rest);
    const std::string places = cutLine(rest);
    const std::size_t blank = std::min(words.find(' '), words.size());
    // Exactly as long as it is, so that a step over its end is seen.
    const auto block = std::make_unique<char[]>(rest.size() + 1);
    std::memcpy(block.get(), rest.c_str(), rest.size() + 1);

    MachineStatus status;
    status.InitDecimalSeparator(words.c_str() + std::min(blank + 1, words.size()));
    Parameter word(words.substr(0, blank).c_str());
    word.SetDecimalPlace(readInteger(places.c_str()));
    double base = 1.0;
    // Every find takes something out, so the block runs out of words.
    std::size_t length = std::strlen(block.get());
    while (word.scanNC(block.get(), &status) == 1) {
        word.ConvertIncremental(base);
        base = word.GetValue();
        const std::size_t left = std::strlen(block.get());
        if (left >= length || word.GetNCLineStatus() != TRUE) {
            std::abort();
        }
        length = left;
    }
    if (word.GetValue() != 0.0 || word.GetNCLineStatus() != FALSE) {
        std::abort();
    }
    return 0;
}
