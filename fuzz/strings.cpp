// The routines on strings: trimming in every mode, splitting, comments. The first byte chooses, the
// text up to the first newline is the argument, the rest the string.

#include "commands/Comment.h"
#include "softCommon/CStringUtil/NoBlanks.h"
#include "softCommon/CStringUtil/fixedField.h"
#include "softCommon/CStringUtil/splitString.h"
#include "softCommon/CStringUtil/string_mani.h"
#include "softCommon/CStringUtil/vstrcat.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

namespace {

// An exact copy on the heap, so that a step over its end is seen.
std::unique_ptr<char[]> exactCopy(const std::string& text) {
    auto copy = std::make_unique<char[]>(text.size() + 1);
    std::memcpy(copy.get(), text.c_str(), text.size() + 1);
    return copy;
}

void expectShorter(const char* after, const std::string& before) {
    if (std::strlen(after) > std::strlen(before.c_str())) {
        std::abort();
    }
}

void manipulate(const std::string& text) {
    for (int code = -1; code <= 6; ++code) {
        const auto copy = exactCopy(text);
        string_mani(code, copy.get());
        expectShorter(copy.get(), text);
    }
    const auto copy = exactCopy(text);
    NoBlanks(copy.get());
    if (std::strchr(copy.get(), ' ') != nullptr) {
        std::abort();
    }
}

void split(const std::string& separators, const std::string& text) {
    int count = -1;
    char** fields = splitString(exactCopy(text).get(), separators.c_str(),
                                static_cast<int>(separators.size()), &count);
    for (int i = 0; i < count; ++i) {
        expectShorter(fields[i], text);
    }
    for (int i = 0; i < 20 && fields != nullptr; ++i) {
        fields = add_splitStringArray(fields, "more", &count);
    }
    free_splitStringArray(fields, text.size() % 2 == 0 ? count : 0);
}

void killComments(const std::string& delimiters, const std::string& text) {
    const std::size_t parting = delimiters.find(' ');
    Comment comment;
    comment.InitCommentStart(delimiters.substr(0, parting).c_str());
    if (parting != std::string::npos) {
        comment.InitCommentEnd(delimiters.substr(parting + 1).c_str());
    }
    const auto copy = exactCopy(text);
    if (comment.KillComments(copy.get()) != 0) {
        std::abort();
    }
    expectShorter(copy.get(), text);
}

void copyFields(const std::string& argument, const std::string& text) {
    const auto width = static_cast<unsigned>(argument.size());
    const auto field = std::make_unique<char[]>(width);
    s2fcpy(field.get(), text.c_str(), width);
    char* const back = s2ccpy(field.get(), static_cast<int>(width));
    char* const joined = vstrcat(back, text.c_str(), nullptr);
    std::free(joined);
    std::free(back);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::size_t parting = input.find('\n');
    if (parting == std::string::npos || parting == 0) {
        return 0;
    }
    const std::string argument = input.substr(1, parting - 1);
    const std::string text = input.substr(parting + 1);
    switch (input[0]) {
    case 'm':
        manipulate(text);
        break;
    case 's':
        split(argument, text);
        break;
    case 'c':
        killComments(argument, text);
        break;
    default:
        copyFields(argument, text);
        break;
    }
    return 0;
}
